// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

#include "base/json.h"
#include "model/presets/preset_choices.h"

namespace morva {

/// Red, green and blue, each 0 to 1.
using Rgb = std::array<double, 3>;

/// How the files of a preset are written. The defaults are the 8 x 10 in print at 300 dpi.
struct ExportSettings {
    int pixelWidth = 2400;
    int pixelHeight = 3000;
    double jpegQuality = 0.92;  // 0 to 1
    double dpi = 300;
    /// Carry the source photo's EXIF and IPTC into the file.
    bool preserveMetadata = true;
    BackdropMode backdrop = BackdropMode::keep;
    /// The backdrop image for `BackdropMode::replace`.
    std::optional<std::filesystem::path> plateURL;
    bool floorReflection = true;
    /// Strength of the darkening toward the backdrop's corners.
    double backdropVignette = 0.6;
    /// Flat backdrop where there is no plate image.
    std::optional<Rgb> backdropColor;
    /// Scale at which the backdrop image is laid behind the child.
    double plateZoom = 1.45;
    /// Rating written into the file's XMP.
    std::optional<int> starRating;

    /// The shared default.
    static const ExportSettings& eightByTen300();

    bool operator==(const ExportSettings&) const = default;
};

/// A size that the window offers, all at 300 ppi.
struct ExportSize {
    std::string_view label;
    int pixelWidth;
    int pixelHeight;
};
std::span<const ExportSize> exportSizes();

/// Reading keeps the default of every missing key and understands the older switch
/// "extendBackdropEdges", which is never written.
void to_json(Json& json, const ExportSettings& settings);
void from_json(const Json& json, ExportSettings& settings);

}  // namespace morva
