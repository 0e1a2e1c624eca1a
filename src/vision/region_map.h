// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "base/geometry.h"
#include "vision/picture_region.h"

namespace morva {

/// Probabilities on a square grid over a turned window of a picture.
struct RegionMap {
    PictureRegion region;
    int side = 0;
    /// `side` x `side` values from 0 to 1, rows along the region's x axis.
    std::vector<float> values;

    /// The value at a place of the region, given from 0 to `side` on both axes, interpolated; at
    /// the border the nearest value.
    double at(Point place) const;
};

}  // namespace morva
