// SPDX-License-Identifier: GPL-3.0-or-later
// Puts an ICC profile into a finished JPEG by editing its segments; the pixels and every other byte
// stay as they are. Called by the exporter, in memory, so that a file is written once.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/result.h"

namespace morva::JPEGProfileEmbedder {

/// `jpeg` with `profile` right behind its leading APP0 and APP1 segments. Unchanged when it is no
/// JPEG, already has a profile there, or `profile` is empty or needs more than 255 segments.
std::string embedded(std::string_view profile, std::string jpeg);

/// The same for a file, in place: a reader sees the old file or the new, never a part. Fails when
/// the file cannot be read or written.
Result<void> embed(std::string_view profile, const std::filesystem::path& file);

}  // namespace morva::JPEGProfileEmbedder
