// SPDX-License-Identifier: GPL-3.0-or-later
// File locations in JSON. A path may hold any bytes; as a URL it is plain ASCII and comes back byte
// for byte.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace morva {

/// "file:///pictures/3b%20%C3%A4.jpg"; a relative path gets no scheme, "3b%20%C3%A4.jpg".
std::string fileURL(const std::filesystem::path& path);

/// The path that `fileURL` was given.
std::filesystem::path pathOfFileURL(std::string_view text);

}  // namespace morva
