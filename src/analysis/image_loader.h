// SPDX-License-Identifier: GPL-3.0-or-later
// Which files of a folder are photos, and how to tell that one has changed. Called by the import,
// the cache and the command line; never opens a photo.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace morva {

/// A stored analysis belongs to a file as long as both are the same.
struct FileSignature {
    double modified = 0;  // seconds since 1970
    std::int64_t size = 0;

    bool operator==(const FileSignature&) const = default;
};

namespace ImageLoader {

/// Compared with a file's extension in lower case.
inline constexpr std::array<std::string_view, 7> supportedExtensions{"jpg",  "jpeg", "png", "tif",
                                                                     "tiff", "heic", "heif"};
/// The file that the exporter leaves in every folder it writes, so that finished crops are never
/// imported as photos.
inline constexpr const char* exportMarkerName = ".morva-export";

bool isSupported(const std::filesystem::path& file);

/// All photos below `folder` in natural order of their paths. Hidden files and folders are left
/// out, as are folders with an export marker, whatever lies below them, and sub-folders that cannot
/// be read. A link to a photo counts, a link to a folder is not followed. Fails with a sentence
/// when `folder` itself cannot be read.
Result<std::vector<std::filesystem::path>> listImages(const std::filesystem::path& folder);

/// Absent when the file's attributes cannot be read.
std::optional<FileSignature> fileSignature(const std::filesystem::path& file);

}  // namespace ImageLoader

}  // namespace morva
