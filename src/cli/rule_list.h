// SPDX-License-Identifier: GPL-3.0-or-later
// The rules that can be named on the command line: the user's own, the starting rules in their
// place, or those of a file. Reads; changes no file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"
#include "cli/preset_catalog.h"
#include "crop/crop_rule.h"

namespace morva {

struct RuleList {
    std::vector<CropRule> rules;
    /// Where they come from, for messages.
    std::string source;

    /// `wanted`: the path of a file, or "auto" for "rules.json" in `dataFolder` or, where there is
    /// none, the starting rules for the presets of `catalog`. Fails with a sentence naming the
    /// file.
    static Result<RuleList> open(const std::string& wanted, const PresetCatalog& catalog,
                                 const std::filesystem::path& dataFolder);
};

}  // namespace morva
