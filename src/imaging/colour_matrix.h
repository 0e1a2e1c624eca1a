// SPDX-License-Identifier: GPL-3.0-or-later
// The short way to sRGB for profiles that are three curves and a matrix, as those of cameras and
// screens are: several times as fast as the general way, and the same to within one level.
// Made and used by `ToSrgb` only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace morva {

class ColourMatrix {
public:
    /// Absent when `profile` is no RGB profile of this kind.
    static std::optional<ColourMatrix> of(const std::string& profile);

    /// Interleaved RGB to interleaved RGB; may be done in place.
    void convert(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels) const;

private:
    ColourMatrix() = default;
    /// What each level of each channel adds to red, green and blue light (and a zero), in 1/256
    /// steps of the table below.
    std::vector<std::int32_t> light_;
    /// From light to the sRGB level.
    std::vector<std::uint8_t> levels_;
};

}  // namespace morva
