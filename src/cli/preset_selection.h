// SPDX-License-Identifier: GPL-3.0-or-later
// Which preset each photo of a batch is cropped with, and which photos share a face size. Shared by
// the commands that solve; opens no photo.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/result.h"
#include "cli/arguments.h"
#include "crop/batch_planner.h"
#include "model/presets/crop_preset.h"

namespace morva {

class PresetSelection {
public:
    /// Fails with a sentence when a preset or the rules cannot be read, a rule selects a preset
    /// that does not exist, or a preset in use would stretch faces.
    static Result<PresetSelection> open(const SelectionArguments& wanted,
                                        const std::filesystem::path& dataFolder);

    /// The preset of the batch and those that rules select, none twice.
    std::vector<const CropPreset*> inUse() const;
    /// Changes each of them, for this run only.
    void changeThoseInUse(const std::function<void(CropPreset&)>& change);

    bool hasRules() const { return !rules_.empty(); }
    /// Whether the frames of a child are looked at together, for their size or by a rule.
    bool looksAtGroups() const;
    /// Everything that decides about the crops besides the photos, as text.
    std::string description() const;

    /// One plan per photo, in their order, pointing into the selection. `cameras`: one name per
    /// photo.
    std::vector<PhotoPlan> plan(Analyses photos, std::span<const std::string> cameras) const;

private:
    const CropPreset* preset(const Uuid& id) const;
    Result<void> check(const std::string& rulesFile) const;

    /// The preset of the whole batch comes first: photos that no rule speaks for have it, and it
    /// stands in for the stored preset of the same identity.
    std::vector<CropPreset> presets_;
    /// Those that are enabled.
    std::vector<CropRule> rules_;
    bool group_ = true;
};

}  // namespace morva
