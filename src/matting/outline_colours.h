// SPDX-License-Identifier: GPL-3.0-or-later
// Learns the colours on both sides of a finished matte's outline. Used inside this room only.
#pragma once

#include "imaging/raster.h"
#include "matting/matte.h"

namespace morva {

/// From a picture, its alpha, and the face unit in pixels.
OutlineColours outlineColours(const Picture& picture, const Mask& alpha, double unit);

}  // namespace morva
