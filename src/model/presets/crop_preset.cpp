// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/presets/crop_preset.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace morva {

double CropPreset::aspectRatio() const { return aspectWidth / aspectHeight; }

ExportSettings CropPreset::settingsForExport() const {
    ExportSettings settings = exportSettings;
    if (exportRating) settings.starRating = exportRating;
    return settings;
}

void CropPreset::apply(const ReferenceGeometry& measured) {
    reference = measured;
    faceScale = measured.faceScale;
    eyeLinePosition = measured.eyeY;
    const bool onEyes = horizontalAnchor == HorizontalAnchor::eyes;
    horizontalPosition = onEyes ? measured.eyeX : measured.faceCenterX;
    if (measured.headTopY && *measured.headTopY >= 0) topMargin = *measured.headTopY;
}

namespace RatioCheck {

namespace {

/// A part of a ratio without needless decimals: "4", "8.5".
std::string plain(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%g", value);
    return text.data();
}

}  // namespace

bool passes(const CropPreset& preset) {
    const ExportSettings& size = preset.exportSettings;
    const double ratio = static_cast<double>(size.pixelWidth) / size.pixelHeight;
    return std::abs(ratio - preset.aspectRatio()) <= tolerance;
}

int fittingHeight(const CropPreset& preset) {
    return static_cast<int>(std::lround(preset.exportSettings.pixelWidth / preset.aspectRatio()));
}

std::string alertMessage(const CropPreset& preset) {
    const ExportSettings& size = preset.exportSettings;
    return std::to_string(size.pixelWidth) + " × " + std::to_string(size.pixelHeight) + " is not " +
           plain(preset.aspectWidth) + ":" + plain(preset.aspectHeight) +
           ". Morva will not stretch faces. Fix the size under Preset ▸ Export (the Fix height "
           "button).";
}

std::string sheetWarning(const CropPreset& preset) {
    return preset.name +
           ": the pixel size does not match its ratio. Morva will not stretch faces — fix it under "
           "Preset ▸ Export (Fix height).";
}

}  // namespace RatioCheck

}  // namespace morva
