// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/jpeg_profile_embedder.h"

#include <algorithm>
#include <optional>

#include "base/files.h"

namespace morva::JPEGProfileEmbedder {

namespace {

// Layout of a profile segment: the ICC's published convention for JPEG.
constexpr std::string_view signature{"ICC_PROFILE\0", 12};
/// The text of the signature without its end mark decides whether a profile is there.
constexpr std::string_view signatureText = signature.substr(0, 11);
constexpr std::size_t largestChunk = 65505;
/// Segment length without the chunk: the length field, the signature and the two counters.
constexpr std::size_t chunkOverhead = 16;
/// The number of segments must fit one byte.
constexpr std::size_t mostChunks = 255;

constexpr unsigned app0 = 0xe0;
constexpr unsigned app1 = 0xe1;
constexpr unsigned app2 = 0xe2;

unsigned byteAt(std::string_view bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes[index]);
}

bool isJpeg(std::string_view bytes) {
    return bytes.size() >= 5 && byteAt(bytes, 0) == 0xff && byteAt(bytes, 1) == 0xd8;
}

/// Markers that stand alone: TEM, the restart markers and SOI.
bool hasNoLength(unsigned marker) { return marker == 0x01 || (marker >= 0xd0 && marker <= 0xd8); }

/// Where the profile belongs; nothing when one is there already.
std::optional<std::size_t> insertionPoint(std::string_view bytes) {
    std::size_t at = 2;
    while (at + 4 <= bytes.size() && byteAt(bytes, at) == 0xff) {
        const unsigned marker = byteAt(bytes, at + 1);
        if (hasNoLength(marker)) {
            at += 2;
        } else if (marker == app0 || marker == app1) {
            at += 2 + (byteAt(bytes, at + 2) << 8 | byteAt(bytes, at + 3));
        } else if (marker == app2 && bytes.substr(at + 4, 11) == signatureText) {
            return std::nullopt;
        } else {
            break;
        }
    }
    return std::min(at, bytes.size());
}

std::string segments(std::string_view profile) {
    const std::size_t count = (profile.size() + largestChunk - 1) / largestChunk;
    std::string bytes;
    bytes.reserve(profile.size() + count * (chunkOverhead + 2));
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view chunk = profile.substr(i * largestChunk, largestChunk);
        const std::size_t length = chunk.size() + chunkOverhead;
        bytes += static_cast<char>(0xff);
        bytes += static_cast<char>(app2);
        bytes += static_cast<char>(length >> 8);
        bytes += static_cast<char>(length & 0xff);
        bytes += signature;
        bytes += static_cast<char>(i + 1);
        bytes += static_cast<char>(count);
        bytes += chunk;
    }
    return bytes;
}

}  // namespace

std::string embedded(std::string_view profile, std::string jpeg) {
    if (!isJpeg(jpeg) || profile.size() > mostChunks * largestChunk) return jpeg;
    if (const auto at = insertionPoint(jpeg)) jpeg.insert(*at, segments(profile));
    return jpeg;
}

Result<void> embed(std::string_view profile, const std::filesystem::path& file) {
    const Result<std::string> before = readFile(file);
    if (!before) return tl::unexpected(before.error());
    const std::string after = embedded(profile, *before);
    if (after == *before) return {};
    return writeFileAtomically(file, after);
}

}  // namespace morva::JPEGProfileEmbedder
