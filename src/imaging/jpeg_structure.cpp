// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/jpeg_structure.h"

#include <cstddef>
#include <cstdint>

namespace morva {

namespace {

constexpr std::uint8_t startOfImage = 0xd8;
constexpr std::uint8_t endOfImage = 0xd9;
constexpr std::uint8_t firstRestart = 0xd0;
constexpr std::uint8_t lastRestart = 0xd7;
constexpr std::uint8_t temporary = 0x01;

/// Markers that stand alone, without a length and content.
bool standsAlone(std::uint8_t marker) {
    return marker == temporary || (marker >= firstRestart && marker <= startOfImage);
}

}  // namespace

bool jpegReachesItsEnd(std::string_view bytes) {
    std::size_t at = 0;
    while (true) {
        // Coded data between markers is skipped alike: a stuffed 0xff 0x00 is no marker.
        at = bytes.find('\xff', at);
        if (at == std::string_view::npos || at + 1 >= bytes.size()) return false;
        const auto marker = static_cast<std::uint8_t>(bytes[at + 1]);
        if (marker == endOfImage) return true;
        if (marker == 0xff) {
            at += 1;
            continue;
        }
        at += 2;
        if (marker == 0 || standsAlone(marker)) continue;
        if (at + 2 > bytes.size()) return false;
        at += static_cast<std::size_t>(static_cast<std::uint8_t>(bytes[at])) * 256 +
              static_cast<std::uint8_t>(bytes[at + 1]);
    }
}

}  // namespace morva
