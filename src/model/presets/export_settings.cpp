// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/presets/export_settings.h"

#include <string>
#include <vector>

namespace morva {

const ExportSettings& ExportSettings::eightByTen300() {
    static const ExportSettings settings;
    return settings;
}

std::span<const ExportSize> exportSizes() {
    static constexpr std::array<ExportSize, 3> sizes{
        {{"8 × 10 in @ 300 ppi (2400 × 3000)", 2400, 3000},
         {"4 × 5 in @ 300 ppi (1200 × 1500)", 1200, 1500},
         {"2 × 2.5 in @ 300 ppi (600 × 750)", 600, 750}}};
    return sizes;
}

void to_json(Json& json, const ExportSettings& settings) {
    json = {{"pixelWidth", settings.pixelWidth},
            {"pixelHeight", settings.pixelHeight},
            {"jpegQuality", settings.jpegQuality},
            {"dpi", settings.dpi},
            {"preserveMetadata", settings.preserveMetadata},
            {"backdrop", settings.backdrop}};
    if (settings.plateURL) json["plateURL"] = settings.plateURL->string();
    json["floorReflection"] = settings.floorReflection;
    json["backdropVignette"] = settings.backdropVignette;
    putOptional(json, "backdropColor", settings.backdropColor);
    json["plateZoom"] = settings.plateZoom;
    putOptional(json, "starRating", settings.starRating);
}

void from_json(const Json& json, ExportSettings& settings) {
    settings = {};
    readIfPresent(json, "pixelWidth", settings.pixelWidth);
    readIfPresent(json, "pixelHeight", settings.pixelHeight);
    readIfPresent(json, "jpegQuality", settings.jpegQuality);
    readIfPresent(json, "dpi", settings.dpi);
    readIfPresent(json, "preserveMetadata", settings.preserveMetadata);
    bool extendBackdropEdges = false;
    readIfPresent(json, "extendBackdropEdges", extendBackdropEdges);
    if (extendBackdropEdges) settings.backdrop = BackdropMode::repeatEdges;
    readIfPresent(json, "backdrop", settings.backdrop);
    std::optional<std::string> plate;
    readIfPresent(json, "plateURL", plate);
    if (plate) settings.plateURL = *plate;
    readIfPresent(json, "floorReflection", settings.floorReflection);
    readIfPresent(json, "backdropVignette", settings.backdropVignette);
    std::optional<std::vector<double>> color;
    readIfPresent(json, "backdropColor", color);
    if (color && color->size() >= 3)
        settings.backdropColor = Rgb{(*color)[0], (*color)[1], (*color)[2]};
    readIfPresent(json, "plateZoom", settings.plateZoom);
    readIfPresent(json, "starRating", settings.starRating);
}

}  // namespace morva
