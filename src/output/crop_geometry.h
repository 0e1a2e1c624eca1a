// SPDX-License-Identifier: GPL-3.0-or-later
// The numbers between a crop rectangle and the finished picture: its size, its scale, and the part
// of the photo that it is made from. Pure; used by the exporter.
#pragma once

#include <optional>

#include "base/geometry.h"

namespace morva {

/// A crop as it will be written.
struct CropGeometry {
    /// The cut in the levelled frame, in source pixels; as wide as the output at its scale, so a
    /// trifle more or less than the crop asked for.
    Rect cut;
    double rotationDegrees = 0;
    /// Size of the file in pixels.
    int width = 0;
    int height = 0;
    /// Output pixels per source pixel.
    double scale = 1;

    /// A file of `pixelWidth` by `pixelHeight`; where the crop's ratio differs visibly from theirs,
    /// the height follows the crop, for nothing is ever stretched. Nothing when no pixel is left.
    static std::optional<CropGeometry> of(const Rect& rect, double rotationDegrees, int pixelWidth,
                                          int pixelHeight);

    /// The upright part of the photo that holds the turned cut and the neighbours that scaling
    /// looks at; it may reach outside the photo.
    Rect sourceArea(Size photo) const;
};

}  // namespace morva
