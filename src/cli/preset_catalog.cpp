// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/preset_catalog.h"

#include <algorithm>
#include <cctype>

#include "base/files.h"
#include "base/json.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace {

/// Lower case, with hyphens for blanks: "full-length-4x5".
std::string plain(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (c == ' ') c = '-';
    }
    return text;
}

/// `name` is the preset's badge, or its name up to any word.
bool goesBy(const CropPreset& preset, const std::string& name) {
    return plain(preset.name).starts_with(name + "-") ||
           (!preset.badge.empty() && name == plain(preset.badge));
}

Result<CropPreset> readPreset(const std::filesystem::path& file) {
    return readFile(file).and_then([&](const std::string& text) {
        return decoded<CropPreset>(text, "the preset " + file.string());
    });
}

}  // namespace

Result<PresetCatalog> PresetCatalog::open(const std::filesystem::path& dataFolder) {
    PresetCatalog catalog;
    const std::filesystem::path own = dataFolder / "presets.json";
    if (std::error_code none; std::filesystem::exists(own, none)) {
        auto presets = readFile(own).and_then([&](const std::string& text) {
            return decoded<std::vector<CropPreset>>(text, "the presets in " + own.string());
        });
        if (!presets) return tl::unexpected(presets.error());
        catalog.presets_ = std::move(*presets);
    }
    std::vector<CropPreset> builtIn = PresetLibrary::standardLibrary();
    builtIn.push_back(PresetLibrary::yearbook4x5());
    for (CropPreset& preset : builtIn) {
        const bool replaced = std::any_of(catalog.presets_.begin(), catalog.presets_.end(),
                                          [&](const auto& mine) { return mine.id == preset.id; });
        if (!replaced) catalog.presets_.push_back(std::move(preset));
    }
    return catalog;
}

Result<CropPreset> PresetCatalog::find(const std::string& nameOrFile) const {
    const std::string name = plain(nameOrFile);
    for (const CropPreset& preset : presets_)
        if (plain(preset.name) == name) return preset;
    for (const CropPreset& preset : presets_)
        if (goesBy(preset, name)) return preset;
    if (std::error_code none; std::filesystem::is_regular_file(nameOrFile, none))
        return readPreset(nameOrFile);
    std::string names;
    for (const CropPreset& preset : presets_) names += (names.empty() ? "" : ", ") + preset.name;
    return failure("There is no preset or preset file \"" + nameOrFile + "\". Presets: " + names +
                   ".");
}

}  // namespace morva
