// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/photo_list.h"

#include <algorithm>
#include <set>
#include <string>

#include "analysis/image_loader.h"
#include "output/export_paths.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

fs::path commonFolder(const fs::path& a, const fs::path& b) {
    fs::path common;
    for (auto left = a.begin(), right = b.begin();
         left != a.end() && right != b.end() && *left == *right; ++left, ++right)
        common /= *left;
    return common;
}

}  // namespace

Result<PhotoList> PhotoList::of(const std::vector<fs::path>& inputs) {
    PhotoList list;
    std::set<fs::path> known;
    for (const fs::path& input : inputs) {
        std::error_code none;
        if (!fs::exists(input, none))
            return failure("There is no file or folder " + input.string() + ".");
        const bool folder = fs::is_directory(input, none);
        const auto photos =
            folder ? ImageLoader::listImages(input) : Result<std::vector<fs::path>>({input});
        if (!photos) return tl::unexpected(photos.error());
        if (photos->empty()) return failure("There are no photos in " + input.string() + ".");
        const fs::path full = Exporter::standardized(input);
        list.sourceFolders.push_back(folder ? full : full.parent_path());
        for (const fs::path& photo : *photos)
            if (known.insert(Exporter::standardized(photo)).second) list.photos.push_back(photo);
    }
    list.root = list.sourceFolders.front();
    for (const fs::path& folder : list.sourceFolders) list.root = commonFolder(list.root, folder);
    return list;
}

}  // namespace morva
