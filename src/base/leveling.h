// SPDX-License-Identifier: GPL-3.0-or-later
// Into and out of the levelled frame: the photo turned about a centre by its roll.
// Used by the solver, the adjustments, the exporter and the overlay, so that all of them turn the
// same way.
#pragma once

#include "base/geometry.h"

namespace morva::Leveling {

/// Maps a photo point into the frame levelled by `rollDegrees`; a roll of 0 returns the point bit
/// for bit.
Point level(Point point, Point center, double rollDegrees);

/// The inverse of `level`.
Point unlevel(Point point, Point center, double rollDegrees);

}  // namespace morva::Leveling
