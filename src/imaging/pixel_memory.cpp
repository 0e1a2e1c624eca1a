// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/pixel_memory.h"

#include <cstdlib>
#include <new>

#include <sys/mman.h>

namespace morva {

namespace {

constexpr std::size_t largePage = 2U << 20;

std::uint8_t* checked(void* memory) {
    if (!memory) throw std::bad_alloc();
    return static_cast<std::uint8_t*>(memory);
}

}  // namespace

void FreePixels::operator()(std::uint8_t* bytes) const { std::free(bytes); }

PixelMemory allocatePixels(std::size_t size) {
    if (size < 2 * largePage) return PixelMemory(checked(std::malloc(size)));
    const std::size_t rounded = (size + largePage - 1) / largePage * largePage;
    PixelMemory pixels(checked(std::aligned_alloc(largePage, rounded)));
    // Only advice: without it the pages are small and everything else is the same.
    (void)madvise(pixels.get(), rounded, MADV_HUGEPAGE);
    return pixels;
}

}  // namespace morva
