// SPDX-License-Identifier: GPL-3.0-or-later
// From the colours of one RGB profile to those of another, for pictures that are laid together.
// Used by the replacement of backdrops; the way to sRGB for measuring is `ToSrgb`.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "imaging/raster.h"

namespace morva {

class ColourTransfer {
public:
    /// Both are ICC profiles for RGB pixels. Where one of them cannot be read, nothing is changed:
    /// what `decodeRegion` hands out always can.
    ColourTransfer(const std::string& from, const std::string& to);

    /// In place; relative colorimetric, with black points matched.
    void convert(Picture& picture) const;
    void convert(std::uint8_t* pixels, int count) const;

private:
    std::shared_ptr<void> transform_;  // none: the colours are the same
};

}  // namespace morva
