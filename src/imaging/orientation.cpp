// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/orientation.h"

#include <algorithm>
#include <utility>

namespace morva {

namespace {

/// Pixels of a tile whose rows and columns both stay in the first-level cache while transposing.
constexpr int tile = 32;

void copyPixel(const std::uint8_t* from, std::uint8_t* to) {
    to[0] = from[0];
    to[1] = from[1];
    to[2] = from[2];
}

PixelRect flipped(PixelRect rect, const Orientation& orientation, int width, int height) {
    if (orientation.flippedX) rect.x = width - rect.x - rect.width;
    if (orientation.flippedY) rect.y = height - rect.y - rect.height;
    return rect;
}

PixelRect transposed(const PixelRect& rect) { return {rect.y, rect.x, rect.height, rect.width}; }

Picture mirrored(Picture picture, const Orientation& orientation) {
    const int width = picture.width();
    const int height = picture.height();
    Picture out(width, height);
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* from = picture.row(orientation.flippedY ? height - 1 - y : y);
        std::uint8_t* to = out.row(y);
        if (!orientation.flippedX) {
            std::copy_n(from, picture.rowBytes(), to);
            continue;
        }
        for (int x = 0; x < width; ++x) copyPixel(from + (width - 1 - x) * 3, to + x * 3);
    }
    return out;
}

}  // namespace

Orientation Orientation::fromExif(int value) {
    return {.transposed = value >= 5 && value <= 8,
            .flippedX = value == 2 || value == 3 || value == 7 || value == 8,
            .flippedY = value == 3 || value == 4 || value == 6 || value == 7};
}

PixelRect Orientation::toStored(const PixelRect& upright, int storedWidth, int storedHeight) const {
    return flipped(transposed ? morva::transposed(upright) : upright, *this, storedWidth,
                   storedHeight);
}

PixelRect Orientation::toUpright(const PixelRect& stored, int storedWidth, int storedHeight) const {
    const PixelRect rect = flipped(stored, *this, storedWidth, storedHeight);
    return transposed ? morva::transposed(rect) : rect;
}

Picture Orientation::upright(Picture stored) const {
    if (*this == Orientation{}) return stored;
    if (!transposed) return mirrored(std::move(stored), *this);
    const int width = stored.height();
    const int height = stored.width();
    Picture out(width, height);
    for (int top = 0; top < height; top += tile) {
        for (int left = 0; left < width; left += tile) {
            for (int y = top; y < std::min(top + tile, height); ++y) {
                const int x = flippedX ? height - 1 - y : y;
                for (int u = left; u < std::min(left + tile, width); ++u)
                    copyPixel(stored.pixel(x, flippedY ? width - 1 - u : u), out.pixel(u, y));
            }
        }
    }
    return out;
}

}  // namespace morva
