// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/stored_photo.h"

#include <cmath>
#include <cstdlib>
#include <new>

#include <sys/mman.h>

namespace morva {

namespace {

/// Memory comes in pages of this size where the system can: a photo of 33 megapixels touches 50
/// pages instead of 25,000, each of which costs a fault.
constexpr std::size_t largePage = 2U << 20;

std::uint8_t* allocated(std::size_t size) {
    const std::size_t rounded = (size / largePage + 1) * largePage;
    void* memory = std::aligned_alloc(largePage, rounded);
    if (!memory) throw std::bad_alloc();
    // Only advice: without it the pages are small and everything else is the same.
    (void)madvise(memory, rounded, MADV_HUGEPAGE);
    return static_cast<std::uint8_t*>(memory);
}

}  // namespace

void Plane::Free::operator()(std::uint8_t* bytes) const { std::free(bytes); }

Plane Plane::sized(double coverWidth, double coverHeight, std::size_t stride, int rows) {
    Plane plane;
    plane.width = static_cast<int>(std::ceil(coverWidth));
    plane.height = static_cast<int>(std::ceil(coverHeight));
    plane.stride = stride;
    plane.coverWidth = coverWidth;
    plane.coverHeight = coverHeight;
    plane.bytes.reset(allocated(stride * static_cast<std::size_t>(rows)));
    return plane;
}

}  // namespace morva
