// SPDX-License-Identifier: GPL-3.0-or-later
// A shoot made of one public-domain portrait: the sample turned, scaled, lit and mirrored a little
// for each "child". For tests of whole evenings and for the pictures of the documents.
#pragma once

#include <filesystem>

namespace morva::DemoPhotos {

/// Writes `count` JPEGs "IMG_0101.jpg" and so on into `folder`, which is made. The same count
/// gives the same photos. `sample`: the portrait's file; the photos are `enlargement` times as
/// high. Throws when a file cannot be read or written.
void write(const std::filesystem::path& sample, const std::filesystem::path& folder, int count,
           int enlargement = 4);

}  // namespace morva::DemoPhotos
