// SPDX-License-Identifier: GPL-3.0-or-later
// The inner loops of reducing a photo, in vector instructions: they decide what looking at a photo
// costs beside decoding it. Rows of single channels; buffers are padded to `rowPadding`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace morva {

/// Rows of one channel have room for a multiple of this many pixels, and the loops may read and
/// write all of it.
inline constexpr std::size_t rowPadding = 16;

constexpr std::size_t padded(std::size_t pixels) {
    return (pixels + rowPadding - 1) / rowPadding * rowPadding;
}

/// Which pixels along one axis make one reduced pixel, and with which weight. Every output has the
/// same number of taps, a multiple of four; unused ones have weight 0 and may point behind the end.
struct ReduceTaps {
    std::size_t taps = 0;
    std::vector<int> first;             // of each output: its first input
    std::vector<std::int16_t> weights;  // `taps` for each output, adding up to the axis' total
};

/// Totals of the weights. 255 times the first fits 15 bits, times the second 31.
inline constexpr int downTotal = 1 << 7;
inline constexpr int acrossTotal = 1 << 14;

/// sums[i] = the weighted sum of all rows' pixel i, for `count` pixels.
void sumDown(std::span<const std::uint8_t* const> rows, std::span<const std::int16_t> weights,
             std::int16_t* sums, std::size_t count);

/// out[i] = the weighted sum of neighbouring sums, in levels. `across.first` has a multiple of four
/// entries; `out` has room for as many.
void sumAcross(const std::int16_t* sums, const ReduceTaps& across, std::uint8_t* out);

/// The means of two by two pixels of two rows; `pixels` means, whose inputs are padded.
void halve(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
           std::size_t pixels);

/// Luma and two colour differences (full range, BT.601 weights, as JPEG defines them) to
/// interleaved red, green, blue.
void lumaChromaToRgb(const std::uint8_t* luma, const std::uint8_t* blueness,
                     const std::uint8_t* redness, std::uint8_t* out, std::size_t pixels);

/// Three channels to interleaved pixels.
void interleave(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
                std::uint8_t* out, std::size_t pixels);

}  // namespace morva
