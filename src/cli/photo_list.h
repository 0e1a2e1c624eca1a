// SPDX-License-Identifier: GPL-3.0-or-later
// From the inputs of a command to the photos that it works on. Lists; opens no photo.
#pragma once

#include <filesystem>
#include <vector>

#include "base/result.h"

namespace morva {

struct PhotoList {
    /// Inputs in the order given, the photos of a folder in natural order, none twice. Written as
    /// the inputs are.
    std::vector<std::filesystem::path> photos;
    /// The deepest folder that holds all of them, in full; output folders repeat what lies below
    /// it.
    std::filesystem::path root;
    /// Folders that nothing may be written into, in full: each input, or the folder that holds it.
    std::vector<std::filesystem::path> sourceFolders;

    /// A file that was named itself is taken whatever it is; its analysis says what is wrong.
    /// Fails with a sentence when an input does not exist or a folder has no photos.
    static Result<PhotoList> of(const std::vector<std::filesystem::path>& inputs);
};

}  // namespace morva
