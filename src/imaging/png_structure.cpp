// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/png_structure.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <string_view>
#include <system_error>

namespace morva {

namespace {

constexpr std::string_view signature = "\x89PNG\r\n\x1a\n";
constexpr std::string_view endChunk = "IEND";
/// Length and type before the content of a chunk, and the checksum behind it.
constexpr std::size_t headBytes = 8;
constexpr std::uintmax_t checksumBytes = 4;

std::uintmax_t lengthIn(std::string_view head) {
    std::uintmax_t length = 0;
    for (std::size_t i = 0; i < 4; ++i) length = length << 8U | static_cast<std::uint8_t>(head[i]);
    return length;
}

}  // namespace

bool pngChunksFit(const std::filesystem::path& file) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) return true;
    std::ifstream stream(file, std::ios::binary);
    std::array<char, headBytes> bytes{};
    const std::string_view head(bytes.data(), bytes.size());
    if (!stream.read(bytes.data(), bytes.size()) || head != signature) return true;
    for (std::uintmax_t at = headBytes; at < size;) {
        if (!stream.seekg(static_cast<std::streamoff>(at)) ||
            !stream.read(bytes.data(), bytes.size()))
            return false;
        if (head.substr(4) == endChunk) return true;
        at += headBytes + lengthIn(head) + checksumBytes;
        if (at > size) return false;
    }
    return true;
}

}  // namespace morva
