// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "analysis/record/face_geometry.h"
#include "base/geometry.h"
#include "base/json.h"

namespace morva {

/// Body joints of the main subject in source pixels; a joint that was not seen clearly is absent.
struct BodyGeometry {
    std::optional<Point> leftShoulder;
    std::optional<Point> rightShoulder;
    std::optional<Point> leftHip;
    std::optional<Point> rightHip;
    std::optional<Point> leftKnee;
    std::optional<Point> rightKnee;
    std::optional<Point> leftAnkle;
    std::optional<Point> rightAnkle;

    /// Mean height of a pair of joints, or that of the one present.
    std::optional<double> shoulderY() const;
    std::optional<double> hipY() const;
    std::optional<double> kneeY() const;
    std::optional<double> ankleY() const;
    /// Mean x of the shoulders and hips present.
    std::optional<double> torsoCenterX() const;

    /// Mean of the points present; nothing when both are absent.
    static std::optional<double> avgX(const std::optional<Point>& a, const std::optional<Point>& b);
    static std::optional<double> avgY(const std::optional<Point>& a, const std::optional<Point>& b);

    /// A copy with every joint present mapped.
    BodyGeometry transformed(const PointMapping& by) const;

    bool operator==(const BodyGeometry&) const = default;
};

void to_json(Json& json, const BodyGeometry& body);
void from_json(const Json& json, BodyGeometry& body);

}  // namespace morva
