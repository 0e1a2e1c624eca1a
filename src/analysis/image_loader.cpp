// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/image_loader.h"

#include <algorithm>
#include <string>

#include <sys/stat.h>

#include "base/natural_order.h"

namespace morva::ImageLoader {

namespace {

namespace fs = std::filesystem;

struct Listing {
    std::vector<fs::path> photos;
    std::vector<fs::path> folders;  // still to be looked into
};

bool isHidden(const fs::path& path) { return path.filename().native().starts_with('.'); }

bool isExport(const fs::path& folder) {
    std::error_code error;
    return fs::exists(folder / exportMarkerName, error);
}

/// False when the folder cannot be read. An entry that vanishes meanwhile is passed over.
bool list(const fs::path& folder, Listing& listing) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (isHidden(entry->path())) continue;
        std::error_code ignored;
        if (entry->symlink_status(ignored).type() == fs::file_type::directory) {
            listing.folders.push_back(entry->path());
        } else if (isSupported(entry->path()) && entry->is_regular_file(ignored)) {
            listing.photos.push_back(entry->path());
        }
    }
    return !error;
}

}  // namespace

bool isSupported(const fs::path& file) {
    std::string extension = file.extension().string();
    if (extension.empty()) return false;
    extension.erase(0, 1);
    std::ranges::transform(extension, extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return std::ranges::find(supportedExtensions, extension) != supportedExtensions.end();
}

Result<std::vector<fs::path>> listImages(const fs::path& folder) {
    Listing listing;
    if (!isExport(folder) && !list(folder, listing))
        return failure("Could not read the folder " + folder.string() + ".");
    while (!listing.folders.empty()) {
        const fs::path next = std::move(listing.folders.back());
        listing.folders.pop_back();
        if (!isExport(next)) list(next, listing);
    }
    sortNaturally(listing.photos);
    return std::move(listing.photos);
}

std::optional<FileSignature> fileSignature(const fs::path& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) return std::nullopt;
    return FileSignature{static_cast<double>(status.st_mtim.tv_sec) +
                             static_cast<double>(status.st_mtim.tv_nsec) * 1e-9,
                         status.st_size};
}

}  // namespace morva::ImageLoader
