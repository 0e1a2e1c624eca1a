// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "base/json.h"

namespace morva {

/// Canvas that a crop lacks on each side of the photo, in source pixels, never negative.
/// Measured by `CropSolver::shortfall`, read by the review, the reports and the exporter.
struct CanvasShortfall {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    /// Half a pixel of missing canvas cannot be seen and does not count.
    static constexpr double tolerance = 0.5;

    bool isEmpty() const;
    /// The missing sides in words for notes and reports, "12 px above, 40 px left".
    std::string summary() const;

    bool operator==(const CanvasShortfall&) const = default;
};

void to_json(Json& json, const CanvasShortfall& shortfall);
void from_json(const Json& json, CanvasShortfall& shortfall);

}  // namespace morva
