// SPDX-License-Identifier: GPL-3.0-or-later
// How a finished crop looks at the plane of its photo: which place each of its pixels shows, and
// pictures that lie in that plane seen through it. Used by the renderer of crops and by backdrops.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/raster.h"
#include "output/crop_geometry.h"

namespace morva {

/// Where a picture lies in the plane of the photo.
struct PicturePlace {
    /// Of its top-left corner, in source pixels of the photo.
    Point origin;
    /// Pixels of the picture per source pixel.
    double scale = 1;
};

/// A box of whole pixels of a crop; empty where an end is not above its begin.
struct PixelBox {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool isEmpty() const { return left >= right || top >= bottom; }
};

struct CropView {
    CropGeometry crop;
    /// Of the upright photo, in source pixels.
    Size photo;

    int width() const { return crop.width; }
    int height() const { return crop.height; }

    /// The place that (x, y) shows, in source pixels; x and y count output pixels from the corner.
    Point source(double x, double y) const;

    /// A part of the crop as a crop of its own, not empty.
    CropView part(const PixelBox& box) const;
    /// The pixels of the crop that show a place (source pixels); empty where none does.
    PixelBox showing(const Rect& place) const;

    /// The crop of a picture that lies in the photo's plane. Outside `extent` (source pixels) lies
    /// `color`; without a color the picture's border repeats outward.
    Result<Picture> of(const Picture& picture, const PicturePlace& place, const Rect& extent,
                       std::optional<std::array<std::uint8_t, 3>> color) const;
};

}  // namespace morva
