// SPDX-License-Identifier: GPL-3.0-or-later
// What a photo file says about itself, read without decoding pixels.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/result.h"

namespace morva {

/// Texts as they stand in the file; absent when missing or unreadable.
struct PhotoProperties {
    /// 1 to 8; 1 when missing. For HEIF the container's own rotation wins, as decoders apply it.
    int orientation = 1;
    std::optional<std::string> xmpRating;
    std::optional<std::string> xmpLabel;
    std::optional<std::string> dateTimeOriginal;    // EXIF, "yyyy:MM:dd HH:mm:ss"
    std::optional<std::string> subsecTimeOriginal;  // EXIF, digits after the decimal point
    std::optional<std::string> cameraMake;          // EXIF
    std::optional<std::string> cameraModel;         // EXIF
    std::optional<std::string> cameraSerial;        // EXIF, of the body
};

/// Reads the properties of the first image in `file`. Fails with a sentence when the file cannot be
/// read at all; damaged metadata in a readable file gives absent values.
Result<PhotoProperties> readProperties(const std::filesystem::path& file);

}  // namespace morva
