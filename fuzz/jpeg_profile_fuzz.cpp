// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes go through the profile embedder: nothing is read past the end, and nothing but the
// profile is added.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "output/jpeg_profile_embedder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string jpeg(reinterpret_cast<const char*>(data), size);
    const std::string profile(70000, 'p');  // two segments
    const std::string embedded = morva::JPEGProfileEmbedder::embedded(profile, jpeg);
    const std::size_t added = embedded.size() - jpeg.size();
    if (added != 0 && added != profile.size() + 2 * 18) std::abort();
    return 0;
}
