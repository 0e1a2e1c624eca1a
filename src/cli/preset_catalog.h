// SPDX-License-Identifier: GPL-3.0-or-later
// The presets that can be named on the command line: the user's own and the built-in ones.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"
#include "model/presets/crop_preset.h"

namespace morva {

class PresetCatalog {
public:
    /// The user's presets ("presets.json" in `dataFolder`, where there is one), then the built-in
    /// ones that they do not replace. Fails with a sentence when that file cannot be read.
    static Result<PresetCatalog> open(const std::filesystem::path& dataFolder);

    const std::vector<CropPreset>& presets() const { return presets_; }

    /// By full name, first words of it or badge, in any case of letters and with hyphens for blanks
    /// if you like ("full-length"); else the preset file of that path. Fails with a sentence that
    /// lists the names.
    Result<CropPreset> find(const std::string& nameOrFile) const;

private:
    std::vector<CropPreset> presets_;
};

}  // namespace morva
