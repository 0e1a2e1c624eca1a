// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/geometry.h"

namespace morva {

inline double area(const Rect& rect) { return rect.width * rect.height; }

/// Intersection over union, 0 to 1. Both must have an area.
inline double overlap(const Rect& a, const Rect& b) {
    const double common = area(a.intersection(b));
    return common / (area(a) + area(b) - common);
}

}  // namespace morva
