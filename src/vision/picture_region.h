// SPDX-License-Identifier: GPL-3.0-or-later
// Square, turned and mirrored windows onto a picture, as the detectors' inputs are cut from it.
// All coordinates are continuous: pixel i covers [i, i + 1).
#pragma once

#include <span>

#include "base/geometry.h"
#include "imaging/raster.h"

namespace morva {

/// A square window. Model coordinates run from 0 to n on both axes.
struct PictureRegion {
    Point center;
    double side = 0;
    /// Clockwise as seen.
    double radians = 0;
    /// The window's x axis runs the other way.
    bool mirrored = false;

    /// A point of an n x n model input, in pixels of the picture.
    Point toPicture(Point point, double n) const;
};

/// How byte values 0 to 255 are spread over a model's input.
struct InputRange {
    float low = 0;
    float high = 1;
};

/// Fills `input` (n x n x 3) with the window, averaged by area where it is reduced; black outside
/// the picture.
void sample(const Picture& picture, const PictureRegion& region, int n, InputRange range,
            std::span<float> input);

/// `rect` grown to whole pixels and clipped to the picture; at least one pixel.
Rect wholePixelRect(const Rect& rect, const Picture& picture);

/// Fills `input` (n x n x 3) with `wholePixelRect(rect)` of the picture, stretched, averaged by
/// area where it is reduced.
void sampleStretched(const Picture& picture, const Rect& rect, int n, InputRange range,
                     std::span<float> input);

/// A part of a picture, reduced by a power of two.
struct Patch {
    Picture picture;
    /// Place of the patch's top-left corner in the picture, and picture pixels per patch pixel.
    Point origin;
    double scale = 1;

    Point toPicture(Point point) const {
        return {origin.x + point.x * scale, origin.y + point.y * scale};
    }
    Point fromPicture(Point point) const {
        return {(point.x - origin.x) / scale, (point.y - origin.y) / scale};
    }
};

/// The part inside `window` (clipped to the picture), averaged by the largest power of two that
/// leaves at least `pixelsNeeded` pixels on the window's longer side.
Patch cutPatch(const Picture& picture, const Rect& window, int pixelsNeeded);

/// The whole picture averaged down to `longestSide` pixels; a copy when it is smaller.
Picture smallCopy(const Picture& picture, int longestSide);

/// The picture turned by a quarter.
Picture onItsSide(const Picture& picture, bool clockwise);

}  // namespace morva
