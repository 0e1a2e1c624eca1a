// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/presets/preset_library.h"

#include <algorithm>

namespace morva::PresetLibrary {

namespace {

/// What the four built-in presets have in common beyond the defaults of a preset.
CropPreset builtIn(const Uuid& id, const char* name, const char* badge, int rating, Rgb color) {
    CropPreset preset;
    preset.id = id;
    preset.name = name;
    preset.badge = badge;
    preset.exportRating = rating;
    preset.color = color;
    preset.rotationMode = RotationMode::levelEyes;
    preset.exportSettings.backdrop = BackdropMode::repeatEdges;
    return preset;
}

CropPreset headshot() {
    CropPreset preset = builtIn(headshotID(), "Headshot 4x5", "Head", 5, {0.36, 0.8, 0.45});
    preset.faceScale = 0.2148;
    preset.horizontalAnchor = HorizontalAnchor::headCenter;
    preset.topMargin = 0.057;
    preset.eyeLinePosition = 0.316;
    return preset;
}

CropPreset threeQuarter() {
    CropPreset preset = builtIn(threeQuarterID(), "Three-quarter 4x5", "3/4", 3, {0.33, 0.62, 1.0});
    preset.faceScale = 0.099;
    preset.horizontalAnchor = HorizontalAnchor::bodyCenter;
    preset.topMargin = 0.098;
    preset.eyeLinePosition = 0.244;
    preset.outlierTolerance = 0.16;
    preset.protectProps = true;
    preset.protectPropsOverhead = true;
    preset.levelStrength = 0.5;
    preset.framing = Framing::frameBottom;
    preset.bodyTopMargin = 0.1;
    preset.bodyBottomAnchor = 1.07;
    return preset;
}

CropPreset fullLength() {
    CropPreset preset = builtIn(fullLengthID(), "Full length 4x5", "Full", 2, {1.0, 0.6, 0.2});
    preset.faceScale = 0.062;
    preset.horizontalAnchor = HorizontalAnchor::subjectCenter;
    preset.topMargin = 0.142;
    preset.eyeLinePosition = 0.236;
    preset.protectProps = true;
    preset.framing = Framing::fullLength;
    return preset;
}

CropPreset topDown() {
    CropPreset preset = builtIn(landscapeID(), "Top-down 7x5", "Top", 4, {0.72, 0.48, 0.95});
    preset.aspectWidth = 7;
    preset.aspectHeight = 5;
    preset.faceScale = 0.204;
    preset.topMargin = 0.059;
    preset.eyeLinePosition = 0.367;
    preset.protectProps = true;
    preset.protectPropsOverhead = true;
    preset.framing = Framing::frameBottom;
    preset.bodyTopMargin = 0.06;
    preset.bodyBottomAnchor = 1.03;
    preset.exportSettings.pixelWidth = 2100;
    preset.exportSettings.pixelHeight = 1500;
    return preset;
}

}  // namespace

const Uuid& yearbookID() {
    static const Uuid id = Uuid::fixed("8E1C0F5A-6C0B-4F3E-9D3A-4B1E2C3D4E5F");
    return id;
}

const Uuid& headshotID() {
    static const Uuid id = Uuid::fixed("1A2B3C4D-0001-4000-8000-000000000001");
    return id;
}

const Uuid& threeQuarterID() {
    static const Uuid id = Uuid::fixed("1A2B3C4D-0002-4000-8000-000000000002");
    return id;
}

const Uuid& fullLengthID() {
    static const Uuid id = Uuid::fixed("1A2B3C4D-0003-4000-8000-000000000003");
    return id;
}

const Uuid& landscapeID() {
    static const Uuid id = Uuid::fixed("1A2B3C4D-0004-4000-8000-000000000004");
    return id;
}

const Uuid& autoPresetID() {
    static const Uuid id = Uuid::fixed("00000000-AUTO-4000-8000-00000000AUTO");
    return id;
}

const std::vector<CropPreset>& standardLibrary() {
    static const std::vector<CropPreset> library{headshot(), threeQuarter(), fullLength(),
                                                 topDown()};
    return library;
}

CropPreset yearbook4x5(const Uuid& id) {
    CropPreset preset;
    preset.id = id;
    preset.name = "Yearbook 4x5";
    preset.badge = "Year";
    return preset;
}

const CropPreset* presetWith(const Uuid& id, std::span<const CropPreset> presets) {
    const auto found = std::ranges::find(presets, id, &CropPreset::id);
    return found == presets.end() ? nullptr : &*found;
}

std::optional<CropPreset> replacement(const Uuid& id) {
    const CropPreset* found = presetWith(id, standardLibrary());
    return found ? std::optional(*found) : std::nullopt;
}

CropPreset standardPreset(const Uuid& id) {
    return replacement(id).value_or(standardLibrary().front());
}

}  // namespace morva::PresetLibrary
