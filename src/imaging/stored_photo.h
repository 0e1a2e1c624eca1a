// SPDX-License-Identifier: GPL-3.0-or-later
// One decoded photo as it lies in its file: planes of one channel, not yet turned, coloured or
// reduced to the size asked for. Format readers fill it; `PhotoDecode` cuts upright sRGB from it.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "imaging/colour.h"
#include "imaging/orientation.h"
#include "imaging/pixel_memory.h"

namespace morva {

/// One channel. The photo covers [0, coverWidth) x [0, coverHeight) of it, fractions included: a
/// plane decoded at half scale of an odd width ends with half a pixel that is not photo.
struct Plane {
    int width = 0;
    int height = 0;
    std::size_t stride = 0;  // bytes between rows
    double coverWidth = 0;
    double coverHeight = 0;
    PixelMemory bytes;

    /// Bytes are not initialised. `rows` may be more than the height, for a reader that writes
    /// whole blocks. Throws std::bad_alloc.
    static Plane sized(double coverWidth, double coverHeight, std::size_t stride, int rows) {
        return {static_cast<int>(std::ceil(coverWidth)),
                static_cast<int>(std::ceil(coverHeight)),
                stride,
                coverWidth,
                coverHeight,
                allocatePixels(stride * static_cast<std::size_t>(rows))};
    }

    std::uint8_t* row(int y) { return bytes.get() + static_cast<std::size_t>(y) * stride; }
    const std::uint8_t* row(int y) const {
        return bytes.get() + static_cast<std::size_t>(y) * stride;
    }
};

struct StoredPhoto {
    /// Full size as it lies in the file.
    int width = 0;
    int height = 0;
    Orientation orientation;
    ColourModel model = ColourModel::rgb;
    /// The first three planes are luma and two colour differences (full range, BT.601 weights, as
    /// JPEG defines them) instead of the model's first three channels.
    bool lumaChroma = false;
    /// One for each channel of the model; their sizes may differ.
    std::vector<Plane> planes;
    /// As found in the file; empty when there is none.
    std::string profile;
};

/// Pixels of a region as they lie in the file.
struct StoredRegion {
    /// In their own colours where these are RGB, else already sRGB.
    Picture pixels;
    /// Which pixels of the decode these are, and how many source pixels one stands for.
    PixelRect part;
    int divisor = 1;
    /// Full size as it lies in the file.
    int width = 0;
    int height = 0;
    /// Of `pixels`, never empty.
    std::string profile;
};

/// Source pixels that a region should cover, asked for when the size is known, as they lie in the
/// file.
using WantedPart = std::function<PixelRect(int storedWidth, int storedHeight)>;

/// The pixels at 1/`divisor` that cover `part` of the source.
inline PixelRect reducedCover(const PixelRect& part, int divisor) {
    const int x = part.x / divisor;
    const int y = part.y / divisor;
    return {x, y, (part.x + part.width + divisor - 1) / divisor - x,
            (part.y + part.height + divisor - 1) / divisor - y};
}

}  // namespace morva
