// SPDX-License-Identifier: GPL-3.0-or-later
// Rating, colour label, capture time and camera of a photo, from what cameras and photo-management
// software wrote into the file. Called by the analysis pipeline, and for batches whose frames are
// grouped by camera.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "imaging/metadata.h"

namespace morva::MetadataReader {

/// Each absent when missing, malformed or not readable.
struct PhotoMetadata {
    std::optional<int> rating;
    /// Seconds since 1970. The camera's local clock read as if it were UTC, so that the photos of
    /// one shoot compare alike wherever the computer stands.
    std::optional<double> captureTime;
    /// As it stands in the file, often a colour's name.
    std::optional<std::string> label;
    /// Tells one camera body from another.
    std::optional<std::string> camera;

    bool operator==(const PhotoMetadata&) const = default;
};

/// Reads all of them in one pass over the file.
PhotoMetadata read(const std::filesystem::path& file);

/// A decimal integer with an optional sign and nothing else.
std::optional<int> rating(const PhotoProperties& properties);

/// "yyyy:MM:dd HH:mm:ss", a date that exists, plus the fraction of a second where that is made of
/// digits.
std::optional<double> captureTime(const PhotoProperties& properties);

/// Make, model and serial number. Absent without a serial number: two bodies of one model often
/// work side by side.
std::optional<std::string> camera(const PhotoProperties& properties);

}  // namespace morva::MetadataReader
