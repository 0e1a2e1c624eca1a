// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/geometry.h"
#include "imaging/raster.h"

namespace morva {

/// The reduced, upright copy of a photo on which the analysers measure. They scale what they find
/// by `scaleToSource`, so that every result is in source pixels.
struct AnalysisImage {
    Picture image;
    /// Upright size of the full photo, pixels.
    Size sourceSize;

    /// Source pixels per image pixel along x and y.
    Point scaleToSource() const {
        return {sourceSize.width / image.width(), sourceSize.height / image.height()};
    }
};

}  // namespace morva
