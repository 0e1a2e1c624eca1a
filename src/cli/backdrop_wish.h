// SPDX-License-Identifier: GPL-3.0-or-later
// What --backdrop asks for, and what the presets of a run make of it. Used by "crop" before
// anything is solved: with a backdrop, crops may reach beyond their photo.
#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "base/result.h"
#include "cli/preset_selection.h"
#include "model/presets/export_settings.h"

namespace morva {

struct BackdropWish {
    /// The plate that the crop type used last, else one from the library, else a generated one.
    struct Automatic {};
    /// `keep` or `repeatEdges`; a plain colour; a plate.
    std::variant<BackdropMode, Rgb, std::filesystem::path, Automatic> what;

    /// "keep", "repeat", "auto", "color:#rrggbb" or a file. Fails with a sentence when a colour is
    /// none; files are not looked at.
    static Result<BackdropWish> parse(const std::string& text);

    /// Gives every preset in use its backdrop. Says which, one sentence each, where that was not
    /// said by the user. Fails when the plate cannot be read.
    Result<std::vector<std::string>> apply(PresetSelection& selection,
                                           const std::filesystem::path& dataFolder) const;

    /// Keeps a plate in mind for the crop types that were given it.
    Result<void> remember(const PresetSelection& selection,
                          const std::filesystem::path& dataFolder) const;
};

}  // namespace morva
