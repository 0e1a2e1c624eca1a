// SPDX-License-Identifier: GPL-3.0-or-later
// Where pixels live. A photo of 33 megapixels touches 25,000 ordinary pages and each costs a fault
// when it is first written, together a tenth of a decode; large pages make that 50.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace morva {

struct FreePixels {
    void operator()(std::uint8_t* bytes) const;
};
using PixelMemory = std::unique_ptr<std::uint8_t[], FreePixels>;

/// Not initialised. Throws std::bad_alloc.
PixelMemory allocatePixels(std::size_t size);

}  // namespace morva
