// SPDX-License-Identifier: GPL-3.0-or-later
// Colour profiles: does a profile fit its pixels, is it sRGB in effect, and the way to sRGB.
// Used by the decoder, which converts only the pixels that it hands out.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace morva {

/// What the channels of decoded pixels mean, 8 bits each. `cmykInverted`: 255 is no ink.
enum class ColourModel { grey, rgb, cmyk, cmykInverted };

int channelCount(ColourModel model);

/// The ICC profile that stands for sRGB wherever this program writes one.
const std::string& srgbProfile();

/// Whether `profile` can be read, is meant for pixels of `model`, and leads to sRGB.
bool profileFits(const std::string& profile, ColourModel model);

class ColourConversion;

/// Converts pixels of one photo to sRGB. A profile that does not fit counts as sRGB for grey and
/// RGB pixels and as common offset printing for CMYK.
class ToSrgb {
public:
    ToSrgb(ColourModel model, const std::string& profile);

    /// RGB pixels that are sRGB already, to within one level: `convert` only copies.
    bool isIdentity() const;
    /// Interleaved pixels of the model to interleaved RGB. RGB may be converted in place.
    void convert(const std::uint8_t* from, std::uint8_t* to, int pixels) const;

private:
    ColourModel model_;
    std::shared_ptr<const ColourConversion> conversion_;  // none: copy (RGB), repeat (grey)
};

/// What a finished crop makes of its photo's colours: RGB keeps its own, the rest becomes sRGB.
struct RegionColours {
    RegionColours(ColourModel model, std::string found);

    ToSrgb conversion;    // copies RGB
    std::string profile;  // of the converted pixels: the photo's own where that fits, else sRGB
};

}  // namespace morva
