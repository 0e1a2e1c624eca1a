// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/thumbnail_store.h"

#include <system_error>
#include <utility>

#include "analysis/analysis_pipeline.h"
#include "app/drawable.h"
#include "app/preview_files.h"
#include "base/file_url.h"
#include "base/files.h"
#include "base/json.h"
#include "imaging/decode.h"
#include "model/jobs/image_item.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

constexpr int thumbnailsAtOnce = 3;
constexpr int thumbnailsRemembered = 1500;
/// About forty thousand pictures.
constexpr std::uintmax_t mostBytesOnDisk = 1'000'000'000;
/// As many as that would take more memory than the rest of the program.
constexpr qsizetype bytesRemembered = qsizetype{160} << 20;
constexpr int inspectorImagesAtOnce = 1;
constexpr int inspectorImagesRemembered = 6;

std::string text(const std::optional<FileSignature>& stamp) {
    return stamp ? Json(*stamp).dump() : "";
}

std::shared_ptr<const ThumbnailStore::InspectorImage> opened(const fs::path& url) {
    constexpr int longestSide = AnalysisPipeline::analysisMaxPixel;
    const auto photo = PhotoDecode::open(url, longestSide);
    if (!photo) return nullptr;
    AnalysisImage value{
        photo->whole(longestSide),
        {static_cast<double>(photo->sourceWidth()), static_cast<double>(photo->sourceHeight())}};
    QImage image = drawable(value.image);
    return std::make_shared<const ThumbnailStore::InspectorImage>(
        ThumbnailStore::InspectorImage{std::move(value), std::move(image)});
}

}  // namespace

std::string ThumbnailStore::key(const Request& request) {
    Json inputs{fileURL(request.url), Json(),       request.rotation,
                request.height,       request.fill, text(request.stamp)};
    if (const auto& rect = request.rect) inputs[1] = {rect->x, rect->y, rect->width, rect->height};
    return inputs.dump();
}

ThumbnailStore::ThumbnailStore(const fs::path& cacheFolder, CallbackQueue callbacks)
    : directory_(cacheFolder / "previews"),
      thumbnails_(thumbnailsAtOnce, thumbnailsRemembered, callbacks),
      inspector_(inspectorImagesAtOnce, inspectorImagesRemembered, std::move(callbacks)) {
    thumbnails_.limitWeight(bytesRemembered,
                            [](const QImage& image) { return image.sizeInBytes(); });
}

ThumbnailStore::~ThumbnailStore() { ending_.request_stop(); }

ThumbnailStore::Ticket ThumbnailStore::request(const Request& request, Completion completion) {
    if (!std::exchange(isPruned_, true)) {
        pruning_.start([directory = directory_, stop = ending_.get_token()] {
            PreviewFiles::prune(directory, mostBytesOnDisk, stop);
        });
    }
    const auto make = [request, directory = directory_]() -> std::optional<QImage> {
        const auto picture = PreviewFiles::picture(directory, request);
        if (!picture) return std::nullopt;
        return drawable(*picture);
    };
    return thumbnails_.request(key(request), make,
                               [completion = std::move(completion)](const auto& image) {
                                   completion(image.value_or(QImage()));
                               });
}

void ThumbnailStore::cancel(Ticket ticket) { thumbnails_.cancel(ticket); }

QImage ThumbnailStore::cached(const std::string& key) const {
    return thumbnails_.cached(key).value_or(QImage());
}

ThumbnailStore::Ticket ThumbnailStore::inspectorImage(const fs::path& url,
                                                      const std::optional<FileSignature>& stamp,
                                                      InspectorCompletion completion) {
    using Image = std::shared_ptr<const InspectorImage>;
    const auto make = [url]() -> std::optional<Image> {
        Image image = opened(url);
        return image ? std::optional(image) : std::nullopt;
    };
    return inspector_.request(fileURL(url) + text(stamp), make,
                              [completion = std::move(completion)](const auto& image) {
                                  completion(image.value_or(nullptr));
                              });
}

void ThumbnailStore::cancelInspector(Ticket ticket) { inspector_.cancel(ticket); }

Result<void> ThumbnailStore::clearDisk() const { return emptyFolder(directory_); }

}  // namespace morva
