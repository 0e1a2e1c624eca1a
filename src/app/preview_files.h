// SPDX-License-Identifier: GPL-3.0-or-later
// Thumbnails as files: drawn from the photo once, read back as long as the photo has not changed.
// Losing them costs time and nothing else, so what goes wrong with a file is a miss. Called by the
// workers of the thumbnail store.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stop_token>

#include "app/thumbnail_store.h"
#include "imaging/raster.h"

namespace morva::PreviewFiles {

/// From `directory`, else drawn and kept there. Nothing when the photo cannot be read or the crop
/// is empty.
std::optional<Picture> picture(const std::filesystem::path& directory,
                               const ThumbnailStore::Request& request);

/// Removes the oldest pictures where all of them take more than `mostBytes`, until a fifth of that
/// is free again. Ends early once `stop` is requested.
void prune(const std::filesystem::path& directory, std::uintmax_t mostBytes,
           const std::stop_token& stop);

}  // namespace morva::PreviewFiles
