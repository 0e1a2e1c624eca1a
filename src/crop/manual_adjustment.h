// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/geometry.h"
#include "base/json.h"

namespace morva {

/// The user's nudge, zoom and turn on top of a solved crop. Any finite values are accepted; the
/// inspector sets the limits.
struct ManualAdjustment {
    /// Both in heights of the solved crop, so that a step moves equally far in either direction.
    double dx = 0;
    double dy = 0;
    /// About the solution's anchor; above 1 the crop grows and the face gets smaller.
    double scale = 1;
    /// Degrees on top of the solved roll.
    double rotation = 0;

    bool isIdentity() const { return *this == ManualAdjustment{}; }
    /// `rect` zoomed about `anchor` and then moved; the turn is `CropSolver::finalRect`'s.
    Rect apply(const Rect& rect, Point anchor) const;

    bool operator==(const ManualAdjustment&) const = default;
};

/// Missing keys keep the identity's values.
void to_json(Json& json, const ManualAdjustment& adjustment);
void from_json(const Json& json, ManualAdjustment& adjustment);

}  // namespace morva
