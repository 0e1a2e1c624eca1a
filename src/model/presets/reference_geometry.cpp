// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/presets/reference_geometry.h"

namespace morva {

void to_json(Json& json, const ReferenceGeometry& reference) {
    json = {{"sourceName", reference.sourceName},
            {"cropWidth", reference.cropWidth},
            {"cropHeight", reference.cropHeight},
            {"faceScale", reference.faceScale},
            {"eyeX", reference.eyeX},
            {"eyeY", reference.eyeY},
            {"chinX", reference.chinX},
            {"chinY", reference.chinY},
            {"faceCenterX", reference.faceCenterX}};
    putOptional(json, "headTopY", reference.headTopY);
    json["aspect"] = reference.aspect;
    json["landmarkConfidence"] = reference.landmarkConfidence;
    json["measuredAt"] = reference.measuredAt;
}

void from_json(const Json& json, ReferenceGeometry& reference) {
    reference.sourceName = required<std::string>(json, "sourceName");
    reference.cropWidth = required<int>(json, "cropWidth");
    reference.cropHeight = required<int>(json, "cropHeight");
    reference.faceScale = required<double>(json, "faceScale");
    reference.eyeX = required<double>(json, "eyeX");
    reference.eyeY = required<double>(json, "eyeY");
    reference.chinX = required<double>(json, "chinX");
    reference.chinY = required<double>(json, "chinY");
    reference.faceCenterX = required<double>(json, "faceCenterX");
    readIfPresent(json, "headTopY", reference.headTopY);
    reference.aspect = required<double>(json, "aspect");
    reference.landmarkConfidence = required<double>(json, "landmarkConfidence");
    reference.measuredAt = required<double>(json, "measuredAt");
}

}  // namespace morva
