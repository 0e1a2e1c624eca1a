// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/region_map.h"

#include <algorithm>

namespace morva {

double RegionMap::at(Point place) const {
    const auto cell = [&](int x, int y) {
        return static_cast<double>(
            values[static_cast<std::size_t>(y) * static_cast<std::size_t>(side) +
                   static_cast<std::size_t>(x)]);
    };
    const double x = std::clamp(place.x - 0.5, 0.0, side - 1.0);
    const double y = std::clamp(place.y - 0.5, 0.0, side - 1.0);
    const int left = std::min(static_cast<int>(x), side - 2);
    const int top = std::min(static_cast<int>(y), side - 2);
    const double alongX = x - left;
    const double alongY = y - top;
    const double upper = cell(left, top) * (1 - alongX) + cell(left + 1, top) * alongX;
    const double lower = cell(left, top + 1) * (1 - alongX) + cell(left + 1, top + 1) * alongX;
    return upper * (1 - alongY) + lower * alongY;
}

}  // namespace morva
