// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/backdrops_command.h"

#include <algorithm>
#include <iostream>
#include <vector>

#include "base/json.h"
#include "cli/photo_outcome.h"
#include "cli/preset_catalog.h"
#include "output/backdrop_library.h"

namespace morva {

namespace {

/// The plates that suit the preset; the one that it used last comes first, wherever it lies.
std::vector<Backdrop> suited(std::vector<Backdrop> plates, const CropPreset& preset,
                             const std::filesystem::path& dataFolder) {
    const auto last = BackdropMemory(dataFolder).plate(preset.id);
    std::vector<Backdrop> suited = BackdropLibrary::suggestions(plates, preset.aspectRatio());
    if (!last) return suited;
    std::erase_if(suited, [&](const Backdrop& plate) { return plate.file == *last; });
    if (const auto remembered = BackdropLibrary::plate(*last))
        suited.insert(suited.begin(), *remembered);
    return suited;
}

void print(const std::vector<Backdrop>& plates, bool json) {
    if (!json) {
        for (const Backdrop& plate : plates)
            std::cout << plate.file.string() << "  " << plate.width << " x " << plate.height
                      << '\n';
        return;
    }
    Json rows = Json::array();
    for (const Backdrop& plate : plates)
        rows.push_back(
            {{"file", plate.file.string()}, {"width", plate.width}, {"height", plate.height}});
    std::cout << jsonText(rows) << '\n';
}

}  // namespace

ExitCode runBackdrops(const BackdropsArguments& backdrops, const Arguments& common,
                      Console& console) {
    std::vector<Backdrop> plates =
        BackdropLibrary::plates(BackdropLibrary::folders(common.dataFolder));
    if (backdrops.suggest) {
        const auto preset =
            PresetCatalog::open(common.dataFolder).and_then([&](const PresetCatalog& catalog) {
                return catalog.find(backdrops.preset);
            });
        if (!preset) {
            console.failure(preset.error().message);
            return ExitCode::inputUnreadable;
        }
        plates = suited(std::move(plates), *preset, common.dataFolder);
    }
    if (plates.empty())
        console.say("No backdrop images found in the Backdrops folder next to the program or in " +
                    (common.dataFolder / BackdropLibrary::folderName).string() + ".");
    print(plates, backdrops.json);
    return ExitCode::done;
}

}  // namespace morva
