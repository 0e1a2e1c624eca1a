// SPDX-License-Identifier: GPL-3.0-or-later
// The eight ways in which a photo can lie in its file, and the way back upright. Used by the
// decoder only: above it every pixel and every coordinate is upright.
#pragma once

#include "imaging/raster.h"

namespace morva {

/// A rectangle on whole pixels.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const PixelRect&) const = default;
};

/// An upright pixel (x, y) lies in the file at (x, y), or at (y, x) when `transposed`, counted from
/// the right edge when `flippedX` and from the bottom edge when `flippedY`.
struct Orientation {
    bool transposed = false;
    bool flippedX = false;
    bool flippedY = false;

    /// From the value of the EXIF tag; anything but 2 to 8 is upright.
    static Orientation fromExif(int value);

    /// Upright rectangle to the rectangle in the file, whose picture is storedWidth x storedHeight.
    PixelRect toStored(const PixelRect& upright, int storedWidth, int storedHeight) const;
    /// The inverse of `toStored`.
    PixelRect toUpright(const PixelRect& stored, int storedWidth, int storedHeight) const;
    /// Turns pixels as they lie in the file upright.
    Picture upright(Picture stored) const;

    bool operator==(const Orientation&) const = default;
};

}  // namespace morva
