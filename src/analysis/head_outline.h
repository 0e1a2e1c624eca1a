// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/geometry.h"
#include "imaging/raster.h"

namespace morva {

/// Extent of a head on a person mask, in mask pixels (continuous: pixel i covers [i, i + 1)).
struct HeadOutline {
    double topY = 0;
    double topX = 0;
    double leftX = 0;
    double rightX = 0;
    /// The outline goes on at the upper end of the search: something other than a head is up there.
    bool runaway = false;
};

/// Follows the outline upward from the eye row (`eyes`, `unitX` and `unitY` in mask pixels): the
/// person pixels connected with the face within 2.2 units to the sides and 2.6 units above. Gaps of
/// at most 0.03 units (a hair band, the rim of a hat) are bridged upward. The top is the highest
/// row with a run of at least 0.04 units, so that single hairs do not count.
HeadOutline headOutline(const Mask& mask, Point eyes, double unitX, double unitY);

}  // namespace morva
