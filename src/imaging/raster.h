// SPDX-License-Identifier: GPL-3.0-or-later
// Decoded pixels in memory: rows from top to bottom, channels interleaved, 8 bits each, no padding
// between rows. A raster moves but does not copy by accident: a photo can be 100 megabytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "imaging/pixel_memory.h"

namespace morva {

template <int channelCount>
class Raster {
public:
    static constexpr int channels = channelCount;

    Raster() = default;
    /// Pixels are not initialised. Width and height in pixels, not negative.
    Raster(int width, int height)
        : width_(width), height_(height), bytes_(allocatePixels(byteCount())) {}

    int width() const { return width_; }
    int height() const { return height_; }
    bool isEmpty() const { return width_ <= 0 || height_ <= 0; }

    std::size_t rowBytes() const { return static_cast<std::size_t>(width_) * channels; }
    std::size_t byteCount() const { return rowBytes() * static_cast<std::size_t>(height_); }

    std::uint8_t* row(int y) { return bytes_.get() + rowBytes() * static_cast<std::size_t>(y); }
    const std::uint8_t* row(int y) const {
        return bytes_.get() + rowBytes() * static_cast<std::size_t>(y);
    }
    std::uint8_t* pixel(int x, int y) { return row(y) + static_cast<std::ptrdiff_t>(x) * channels; }
    const std::uint8_t* pixel(int x, int y) const {
        return row(y) + static_cast<std::ptrdiff_t>(x) * channels;
    }
    std::span<const std::uint8_t> bytes() const { return {bytes_.get(), byteCount()}; }

    Raster copy() const {
        Raster twin(width_, height_);
        if (!isEmpty()) std::memcpy(twin.bytes_.get(), bytes_.get(), byteCount());
        return twin;
    }

private:
    int width_ = 0;
    int height_ = 0;
    PixelMemory bytes_;
};

/// Red, green, blue.
using Picture = Raster<3>;
/// One value a pixel, 0 to 255.
using Mask = Raster<1>;

}  // namespace morva
