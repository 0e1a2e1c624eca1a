// SPDX-License-Identifier: GPL-3.0-or-later
// Metadata of a finished crop: what it inherits from its source photo and what is said anew. Called
// by the exporter with the encoded JPEG in memory; never touches a file but to read the source.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/result.h"

namespace morva {

struct CropMetadata {
    /// The photo whose EXIF (without maker note, GPS, interoperability and thumbnail), descriptive
    /// TIFF tags and IPTC are carried over; absent: none of it. Metadata that cannot be read or
    /// does not fit into a JPEG is left out.
    std::optional<std::filesystem::path> source;
    int pixelWidth = 0;
    int pixelHeight = 0;
    double dpi = 300;
    /// Written as "xmp:Rating"; the source's own XMP is never carried over.
    std::optional<int> rating;
    /// Of the pixels; decides what the EXIF colour space says. Not embedded here.
    std::string iccProfile;
};

/// `jpeg` with its metadata replaced: always upright orientation and resolution, the rest as told.
/// Segments land behind the leading JFIF segment. Fails only when `jpeg` is no JPEG.
Result<std::string> withMetadata(const std::string& jpeg, const CropMetadata& metadata);

}  // namespace morva
