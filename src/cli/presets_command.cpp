// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/presets_command.h"

#include <cstdio>
#include <iostream>

#include "base/json.h"
#include "cli/photo_outcome.h"
#include "cli/preset_catalog.h"
#include "model/presets/preset_choices.h"

namespace morva {

namespace {

void printRow(const CropPreset& preset) {
    const ExportSettings& file = preset.exportSettings;
    std::printf("%-20s %-8s %5d x %-5d %s\n", preset.name.c_str(), preset.badge.c_str(),
                file.pixelWidth, file.pixelHeight,
                std::string(choice(preset.framing).label).c_str());
}

}  // namespace

ExitCode runPresets(const PresetsArguments& presets, const Arguments& common, Console& console) {
    const auto catalog = PresetCatalog::open(common.dataFolder);
    if (!catalog) {
        console.failure(catalog.error().message);
        return ExitCode::inputUnreadable;
    }
    if (presets.show) {
        const auto preset = catalog->find(*presets.show);
        if (!preset) {
            console.failure(preset.error().message);
            return ExitCode::inputUnreadable;
        }
        std::cout << jsonText(*preset, 2) << '\n';
    } else if (presets.json) {
        std::cout << jsonText(Json(catalog->presets())) << '\n';
    } else {
        for (const CropPreset& preset : catalog->presets()) printRow(preset);
    }
    return ExitCode::done;
}

}  // namespace morva
