// SPDX-License-Identifier: GPL-3.0-or-later
// How each photo of a batch is to be solved: with which preset, and with which face size where the
// frames of one child share one. Called by the command line and for the jobs of the application
// before anything is solved; takes every record of the batch, for one photo speaks for others.
// Pure.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "crop/crop_rule.h"
#include "crop/subject_grouping.h"
#include "model/presets/crop_preset.h"

namespace morva {

/// How one photo is to be solved.
struct PhotoPlan {
    /// Points into the presets that were there to choose from.
    const CropPreset* preset = nullptr;
    /// Title of the rule that chose the preset; absent for any other choice.
    std::optional<std::string> rule;
    /// Face unit in pixels that the photo shares with others.
    std::optional<double> faceUnit;

    bool operator==(const PhotoPlan&) const = default;
};

/// What the photos of a batch choose from.
struct PresetChoices {
    /// At least one; of several with one identity the first counts.
    std::span<const CropPreset> presets;
    /// For photos that nothing else speaks for; the first preset where it does not exist.
    Uuid fallback;
    /// First match wins. Rules that select a preset that does not exist are passed over.
    std::span<const CropRule> rules;
    /// The preset that a person chose for the photo at this index, which wins over the rules unless
    /// it no longer exists; may be empty.
    std::function<std::optional<Uuid>(std::size_t)> ownPreset;
    /// Frames of one child share a face size, where their preset asks for it.
    bool sharesSizes = true;
    /// Where the photos are whole groups out of a larger batch: whether ratings are in use in that.
    std::optional<bool> ratingsInUse = std::nullopt;
};

namespace BatchPlanner {

/// For each photo the place in `choices.rules` of the rule that chooses its preset; absent where a
/// person chose, no rule matches, or there is no analysis.
std::vector<std::optional<std::size_t>> rulesFor(Analyses photos,
                                                 std::span<const std::string> cameras,
                                                 const PresetChoices& choices);

/// One plan per photo, in their order; a photo without an analysis gets no rule and shares nothing.
/// `cameras` as for `SubjectGrouping::groups`.
std::vector<PhotoPlan> plan(Analyses photos, std::span<const std::string> cameras,
                            const PresetChoices& choices);

}  // namespace BatchPlanner

}  // namespace morva
