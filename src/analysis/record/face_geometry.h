// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>

#include "base/geometry.h"
#include "base/json.h"

namespace morva {

/// A mapping of photo points, into a levelled or mirrored frame for example.
using PointMapping = std::function<Point(Point)>;

/// One face as measured, in source pixels of the upright photo. Made by the face analyser; the
/// distances and angles that every later step works with are derived here and never stored.
struct FaceGeometry {
    /// Centre of the eye on the left of the picture, as the landmark set names it.
    Point leftEye;
    Point rightEye;
    /// Midpoint of the two estimates below.
    Point chin;
    /// Lower end of the face's median line.
    Point chinFromMedianLine;
    /// Lowest part of the face contour.
    Point chinFromContour;
    std::optional<Point> noseTip;
    /// The detector's bounding box.
    Rect faceBox;
    double landmarkConfidence = 0;   // 0 to 1
    double detectionConfidence = 0;  // 0 to 1
    std::optional<double> yawDegrees;
    std::optional<double> pitchDegrees;

    Point eyeMidpoint() const;
    /// Eye midpoint to chin: the size unit of the whole system.
    double faceUnit() const;
    /// Between the eye midpoint and the chin.
    Point faceCenter() const;
    double eyeSpacing() const;
    /// Eye spacing in face units; 0 for a face without height.
    double eyeSpacingRatio() const;
    /// How far the two chin estimates lie apart, in face units; 1, the worst, for a face without
    /// height.
    double chinAgreement() const;
    /// Tilt of the eye line; positive when the eye further right sits lower. The order in which
    /// the eyes are given does not matter.
    double rollDegrees() const;

    /// A copy with every point mapped; the face box becomes the bounds of its mapped corners.
    FaceGeometry transformed(const PointMapping& by) const;

    bool operator==(const FaceGeometry&) const = default;
};

void to_json(Json& json, const FaceGeometry& face);
void from_json(const Json& json, FaceGeometry& face);

}  // namespace morva
