// SPDX-License-Identifier: GPL-3.0-or-later
// PNG, TIFF and HEIC through libvips: pixels of 8 bits in their own colours, read in strips so that
// a huge photo never lies in memory whole. Used by the decoder only.
#pragma once

#include "base/result.h"
#include "imaging/photo_source.h"
#include "imaging/stored_photo.h"

namespace morva::VipsDecode {

/// All planes, reduced by a whole number where that leaves `longestSide` pixels on the longer side.
Result<StoredPhoto> planes(const PhotoSource& source, int longestSide);

/// The pixels at 1/`divisor` that cover the wanted part.
Result<StoredRegion> region(const PhotoSource& source, const WantedPart& wanted, int divisor);

}  // namespace morva::VipsDecode
