// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/preview_files.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <system_error>
#include <vector>

#include "base/files.h"
#include "imaging/decode.h"
#include "imaging/encode.h"
#include "output/preview_renderer.h"

namespace morva::PreviewFiles {

namespace {

namespace fs = std::filesystem;

constexpr double quality = 0.85;
constexpr double dotsPerInch = 72;

/// Pixels to decode per pixel of the picture, so that reducing them leaves fine hair clean.
constexpr double detail = 1.5;
/// Longer side of the first decode, in heights of the picture: enough for a crop of more than a
/// quarter of its photo. A smaller one is decoded again, larger.
constexpr int firstLook = 4;

/// Long enough for any preview, whose height is asked for and whose width is at most some heights.
constexpr int wholePreview = 1 << 16;

std::optional<Picture> stored(const fs::path& file, int height) {
    const auto preview = PhotoDecode::open(file, wholePreview);
    if (!preview || preview->sourceHeight() != height) return std::nullopt;
    return preview->whole(wholePreview);
}

std::optional<Picture> drawn(const ThumbnailStore::Request& request) {
    auto photo = PhotoDecode::open(request.url, request.height * firstLook);
    if (!photo) return std::nullopt;
    const Size size{static_cast<double>(photo->sourceWidth()),
                    static_cast<double>(photo->sourceHeight())};
    const Rect rect = request.rect.value_or(Rect{0, 0, size.width, size.height});
    if (rect.isEmpty()) return std::nullopt;
    const double longer = std::max(size.width, size.height);
    const double wanted = std::min(longer, longer * detail * request.height / rect.height);
    const int side = static_cast<int>(std::ceil(wanted));
    if (photo->finestSide() < side) {
        photo = PhotoDecode::open(request.url, side);
        if (!photo) return std::nullopt;
    }
    return PreviewRenderer::cropPreview(photo->whole(side), rect, request.rotation, size,
                                        request.height, request.fill);
}

/// Named by what the picture shows and by the photo's state now, whatever the asking side knew.
std::optional<fs::path> fileIn(const fs::path& directory, ThumbnailStore::Request request) {
    request.stamp = ImageLoader::fileSignature(request.url);
    if (!request.stamp) return std::nullopt;
    return directory / (sha256(ThumbnailStore::key(request)) + ".jpg");
}

void keep(const Picture& picture, const fs::path& file) {
    const auto bytes = encodeJpeg(picture, quality, dotsPerInch);
    // A picture that cannot be kept is shown all the same.
    if (bytes && makeFolder(file.parent_path()))
        static_cast<void>(writeFileAtomically(file, *bytes));
}

}  // namespace

std::optional<Picture> picture(const fs::path& directory, const ThumbnailStore::Request& request) {
    const auto file = fileIn(directory, request);
    if (!file) return std::nullopt;
    if (auto found = stored(*file, request.height)) return found;
    auto made = drawn(request);
    if (made) keep(*made, *file);
    return made;
}

void prune(const fs::path& directory, std::uintmax_t mostBytes, const std::stop_token& stop) {
    struct Kept {
        fs::file_time_type written;
        std::uintmax_t size = 0;
        fs::path file;
    };
    std::vector<Kept> kept;
    std::uintmax_t bytes = 0;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end;
         !error && entry != end && !stop.stop_requested(); entry.increment(error)) {
        std::error_code gone;
        const Kept file{entry->last_write_time(gone), entry->file_size(gone), entry->path()};
        if (gone) continue;
        bytes += file.size;
        kept.push_back(file);
    }
    if (bytes <= mostBytes) return;
    std::ranges::sort(kept, {}, &Kept::written);
    for (auto file = kept.begin();
         file != kept.end() && bytes > mostBytes / 5 * 4 && !stop.stop_requested(); ++file) {
        if (fs::remove(file->file, error)) bytes -= file->size;
    }
}

}  // namespace morva::PreviewFiles
