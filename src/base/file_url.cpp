// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/file_url.h"

#include <array>
#include <charconv>

namespace morva {

namespace {

constexpr std::string_view scheme = "file://";
constexpr std::string_view plain =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/!$&'()*+,;=:@";

}  // namespace

std::string fileURL(const std::filesystem::path& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string url(path.is_absolute() ? scheme : "");
    for (const char c : path.native()) {
        if (plain.find(c) != std::string_view::npos) {
            url += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            url += {'%', digits[byte >> 4U], digits[byte & 15U]};
        }
    }
    return url;
}

std::filesystem::path pathOfFileURL(std::string_view text) {
    if (text.starts_with(scheme)) text.remove_prefix(scheme.size());
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned int byte = 0;
        const char* digits = text.data() + i + 1;
        const bool escaped = text[i] == '%' && i + 2 < text.size() &&
                             std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
        path += escaped ? static_cast<char>(byte) : text[i];
        if (escaped) i += 2;
    }
    return path;
}

}  // namespace morva
