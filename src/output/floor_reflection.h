// SPDX-License-Identifier: GPL-3.0-or-later
// The child mirrored in a polished floor: under the feet, blurred, and fading away. Called by
// `BackdropReplacer` before the photo's pixels are laid on anything.
#pragma once

#include <optional>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/decode.h"
#include "imaging/raster.h"
#include "output/crop_view.h"

namespace morva::FloorReflection {

/// Whether there is floor below the feet to see a reflection in: more than 4 source pixels of the
/// photo.
bool hasRoom(double feetLine, double photoHeight);

/// How far below the feet it is gone, in source pixels.
double fadeLength(double feetLine, const Rect& crop);

/// How opaque it is at height `y`: 0.32 at the feet, 0 from `fade` below them.
double opacityAt(double y, double feetLine, double fade);

/// Lays the reflection of the cut-out `photo` over `background`, which shows `view`. `crop` is the
/// crop rectangle that the fading is measured by.
Result<void> lay(const DecodedRegion& photo, const Mask& alpha, double feetLine, const Rect& crop,
                 const CropView& view, Picture& background);

}  // namespace morva::FloorReflection
