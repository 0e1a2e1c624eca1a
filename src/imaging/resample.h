// SPDX-License-Identifier: GPL-3.0-or-later
// Scaling with Lanczos filters on regions that do not lie on whole pixels.
#pragma once

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/raster.h"

namespace morva {

/// Cuts `region` (in pixels of `picture`, fractions allowed, wholly inside it) and scales it to width x height with
/// a Lanczos filter of three lobes in one pass, as wide as reducing needs.
Result<Picture> resampled(const Picture& picture, const Rect& region, int width, int height);

}  // namespace morva
