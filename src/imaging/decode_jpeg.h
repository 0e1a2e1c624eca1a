// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG through libjpeg-turbo. Whole photos come as planes, before chroma is enlarged and colours
// are made, which costs less than a full decode; regions come as finished pixels. Used by the
// decoder only.
#pragma once

#include "base/result.h"
#include "imaging/photo_source.h"
#include "imaging/stored_photo.h"

namespace morva {

/// The largest of 1, 2, 4 and 8 that leaves at least `smallest` pixels of `length`.
int jpegDivisor(int length, int smallest);

namespace JpegDecode {

/// All planes at the smallest scale that has `longestSide` pixels on the longer side.
Result<StoredPhoto> planes(const PhotoSource& source, int longestSide);

/// The pixels of a decode at 1/`divisor` that cover the wanted part, the same as in a decode of
/// everything.
Result<StoredRegion> region(const PhotoSource& source, const WantedPart& wanted, int divisor);

}  // namespace JpegDecode

}  // namespace morva
