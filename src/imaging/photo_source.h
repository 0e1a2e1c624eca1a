// SPDX-License-Identifier: GPL-3.0-or-later
// A photo file before decoding: which format it really is, and the sentences in which reading it
// can fail. Used by the decoder; the name's extension plays no part.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/result.h"
#include "imaging/orientation.h"

namespace morva {

enum class PhotoFormat { jpeg, png, tiff, heif };

struct PhotoSource {
    std::filesystem::path file;
    PhotoFormat format = PhotoFormat::jpeg;
    Orientation orientation;
    /// The whole file; JPEG only, the other formats are read in pieces.
    std::string bytes;

    /// Looks at the first bytes and the orientation; reads all of a JPEG. Fails with a sentence.
    static Result<PhotoSource> open(const std::filesystem::path& file);
};

/// "Could not read NAME: REASON."
tl::unexpected<Failure> unreadable(const std::filesystem::path& file, const std::string& reason);

/// The failure of a photo of more than `largestPhotoMegapixels`, or of a size that is none.
std::optional<Failure> refusedSize(const std::filesystem::path& file, int width, int height);

/// What is wrong with a file that ends early or holds nonsense.
inline constexpr const char* damagedReason = "the file is damaged or incomplete";
inline constexpr const char* memoryReason = "there is not enough memory";

}  // namespace morva
