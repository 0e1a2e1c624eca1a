// SPDX-License-Identifier: GPL-3.0-or-later
// The user's crop-type rules on disk. Called by the program's start and by every edit of the list.
// A file that it cannot understand is never overwritten.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "base/result.h"
#include "crop/crop_rule.h"
#include "model/presets/crop_preset.h"

namespace morva {

class RuleStore {
public:
    /// Rules are kept in `directory`; the starting rules are made for `library`.
    RuleStore(std::filesystem::path directory, std::vector<CropPreset> library);

    /// "rules.json" in the directory.
    std::filesystem::path fileURL() const;

    /// The rules of a file. Fails with a sentence that names it.
    static Result<std::vector<CropRule>> read(const std::filesystem::path& file);

    std::vector<CropRule> defaults() const;

    struct Loaded {
        std::vector<CropRule> rules;
        /// Why the starting rules stand in for those of the file.
        std::optional<Failure> problem;
    };
    /// The stored rules; the starting rules where there is no file or it cannot be understood.
    Loaded load() const;

    /// Writes the list, making the directory if need be. A file that cannot be understood is first
    /// moved aside, as "rules.unreadable.json"; one that cannot even be read is left alone, and the
    /// save fails.
    Result<void> save(const std::vector<CropRule>& rules) const;

    /// `CropRules::put` into the stored rules.
    Result<void> put(const CropRule& rule) const;

    /// Drops the rules with that condition.
    Result<void> remove(const RuleCondition& condition) const;

private:
    Result<std::vector<CropRule>> forChange() const;
    Result<void> write(const std::vector<CropRule>& rules) const;

    std::filesystem::path directory_;
    std::vector<CropPreset> library_;
};

}  // namespace morva
