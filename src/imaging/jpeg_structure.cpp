// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/jpeg_structure.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace morva {

namespace {

constexpr std::uint8_t startOfImage = 0xd8;
constexpr std::uint8_t endOfImage = 0xd9;
constexpr std::uint8_t firstRestart = 0xd0;
constexpr std::uint8_t startOfScan = 0xda;
constexpr std::uint8_t profileSegment = 0xe2;
constexpr std::uint8_t temporary = 0x01;

/// Markers that stand alone, without a length and content.
bool standsAlone(std::uint8_t marker) {
    return marker == temporary || (marker >= firstRestart && marker <= startOfImage);
}

/// The next marker from `at` on, which is moved behind it and its content. Nothing at the end of
/// the bytes. Coded data between markers is passed over alike: a stuffed 0xff 0x00 is no marker.
std::optional<std::uint8_t> nextMarker(std::string_view bytes, std::size_t& at) {
    while (true) {
        at = bytes.find('\xff', at);
        if (at == std::string_view::npos || at + 1 >= bytes.size()) return std::nullopt;
        const auto marker = static_cast<std::uint8_t>(bytes[at + 1]);
        if (marker == endOfImage) return marker;
        if (marker == 0xff) {
            at += 1;
            continue;
        }
        at += 2;
        if (marker == 0 || standsAlone(marker)) continue;
        if (at + 2 > bytes.size()) return std::nullopt;
        at += static_cast<std::size_t>(static_cast<std::uint8_t>(bytes[at])) * 256 +
              static_cast<std::uint8_t>(bytes[at + 1]);
        return marker;
    }
}

}  // namespace

bool jpegReachesItsEnd(std::string_view bytes) {
    std::size_t at = 0;
    while (const auto marker = nextMarker(bytes, at))
        if (*marker == endOfImage) return true;
    return false;
}

int jpegProfileSegments(std::string_view bytes) {
    int count = 0;
    std::size_t at = 0;
    while (const auto marker = nextMarker(bytes, at)) {
        if (*marker == startOfScan || *marker == endOfImage) break;
        if (*marker == profileSegment) ++count;
    }
    return count;
}

}  // namespace morva
