// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/presets/crop_preset.h"

namespace morva {

namespace {

/// Every field with its key, in the order of the format; one list for both directions, so that
/// reading and writing cannot differ.
template <class Preset, class Visit>
void visitFields(Preset& preset, Visit visit) {
    visit("id", preset.id);
    visit("name", preset.name);
    visit("aspectWidth", preset.aspectWidth);
    visit("aspectHeight", preset.aspectHeight);
    visit("faceScale", preset.faceScale);
    visit("horizontalPosition", preset.horizontalPosition);
    visit("horizontalAnchor", preset.horizontalAnchor);
    visit("verticalMode", preset.verticalMode);
    visit("topMargin", preset.topMargin);
    visit("eyeLinePosition", preset.eyeLinePosition);
    visit("protectHair", preset.protectHair);
    visit("protectAccessories", preset.protectAccessories);
    visit("protectProps", preset.protectProps);
    visit("protectPropsOverhead", preset.protectPropsOverhead);
    visit("steadyPerSubject", preset.steadyPerSubject);
    visit("minEdgeClearance", preset.minEdgeClearance);
    visit("outlierTolerance", preset.outlierTolerance);
    visit("rotationMode", preset.rotationMode);
    visit("cameraRollDegrees", preset.cameraRollDegrees);
    visit("levelMaxDegrees", preset.levelMaxDegrees);
    visit("levelStrength", preset.levelStrength);
    visit("autoApproveConfidence", preset.autoApproveConfidence);
    visit("export", preset.exportSettings);
    visit("reference", preset.reference);
    visit("framing", preset.framing);
    visit("bodyTopMargin", preset.bodyTopMargin);
    visit("bodyBottomAnchor", preset.bodyBottomAnchor);
    visit("bodyHipAnchor", preset.bodyHipAnchor);
    visit("badge", preset.badge);
    visit("exportRating", preset.exportRating);
    visit("color", preset.color);
}

struct Writer {
    Json& json;

    template <class T>
    void operator()(const char* key, const T& value) const {
        json[key] = value;
    }
    template <class T>
    void operator()(const char* key, const std::optional<T>& value) const {
        putOptional(json, key, value);
    }
};

}  // namespace

void to_json(Json& json, const CropPreset& preset) {
    json = Json::object();
    visitFields(preset, Writer{json});
}

void from_json(const Json& json, CropPreset& preset) {
    if (!json.is_object()) throw Json::type_error::create(302, "a preset is expected", &json);
    preset = {};
    visitFields(preset, [&](const char* key, auto& value) { readIfPresent(json, key, value); });
}

}  // namespace morva
