// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "base/json.h"

namespace morva {

/// What was measured on a finished portrait that a preset takes as its model. Positions are
/// fractions of the reference image's width (x) and height (y).
struct ReferenceGeometry {
    /// File name of the reference image.
    std::string sourceName;
    /// Size of the reference image in pixels.
    int cropWidth = 0;
    int cropHeight = 0;
    /// Face unit over image height.
    double faceScale = 0;
    double eyeX = 0;
    double eyeY = 0;
    double chinX = 0;
    double chinY = 0;
    double faceCenterX = 0;
    /// Absent when the hair outline could not be trusted.
    std::optional<double> headTopY;
    /// Width over height.
    double aspect = 0;
    double landmarkConfidence = 0;
    /// Seconds since 1970-01-01 00:00:00 UTC.
    double measuredAt = 0;

    bool operator==(const ReferenceGeometry&) const = default;
};

void to_json(Json& json, const ReferenceGeometry& reference);
void from_json(const Json& json, ReferenceGeometry& reference);

}  // namespace morva
