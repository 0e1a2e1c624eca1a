// SPDX-License-Identifier: GPL-3.0-or-later
// The small pictures of the grid and the large ones of the inspector, made in the background and
// remembered, the small ones also on disk. Used by the window's models on the main thread; shows
// the same cut and turn as the export and never changes a photo.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include <QImage>

#include "analysis/analysis_image.h"
#include "analysis/image_loader.h"
#include "app/callback_queue.h"
#include "app/shared_work.h"
#include "base/geometry.h"
#include "base/result.h"

namespace morva {

class ThumbnailStore {
public:
    /// Height at which the grid asks for thumbnails, pixels.
    static constexpr int gridHeight = 360;

    struct Request {
        std::filesystem::path url = {};
        /// In source pixels of the frame levelled by `rotation`; absent for the whole photo.
        std::optional<Rect> rect = {};
        /// Degrees.
        double rotation = 0;
        /// Of the picture, pixels.
        int height = gridHeight;
        /// Red, green, blue, 0 to 1, outside the photo; grey where it has not three components.
        std::vector<double> fill = {};
        /// The photo's state as far as known. A photo that changes while the program runs gets a
        /// new picture in memory when its new stamp is given; on disk the file itself counts.
        std::optional<FileSignature> stamp = {};
    };
    /// The text for all of a request's inputs; equal requests share it.
    static std::string key(const Request& request);

    /// Null when there is no picture.
    using Completion = std::function<void(const QImage&)>;
    /// Names a request that is under way; 0 for one that was completed at once.
    using Ticket = std::uint64_t;

    /// What the inspector shows: the photo reduced for measuring, and the same ready to draw.
    struct InspectorImage {
        AnalysisImage value;
        QImage image;
    };
    using InspectorCompletion = std::function<void(const std::shared_ptr<const InspectorImage>&)>;

    /// Keeps thumbnails in "previews" below the program's cache folder. Completions run through
    /// `callbacks`, which lead to the thread that calls these functions.
    ThumbnailStore(const std::filesystem::path& cacheFolder, CallbackQueue callbacks);
    ~ThumbnailStore();
    ThumbnailStore(const ThumbnailStore&) = delete;
    ThumbnailStore& operator=(const ThumbnailStore&) = delete;

    const std::filesystem::path& directory() const { return directory_; }

    /// A picture in memory completes before this returns, any other later. The first one has the
    /// folder cut back to a gigabyte in the background.
    Ticket request(const Request& request, Completion completion);
    /// For a cell that was scrolled away: it is told nothing, and a picture that nobody else waits
    /// for is not begun. Works on tickets of any age.
    void cancel(Ticket ticket);

    /// The picture in memory; null when there is none.
    QImage cached(const std::string& key) const;

    /// Null when the photo cannot be read. One is made at a time, on a thread of its own.
    Ticket inspectorImage(const std::filesystem::path& url,
                          const std::optional<FileSignature>& stamp,
                          InspectorCompletion completion);
    void cancelInspector(Ticket ticket);

    /// Removes the pictures on disk. Takes a while for many; any thread may call it.
    Result<void> clearDisk() const;

private:
    std::filesystem::path directory_;
    SharedWork<QImage> thumbnails_;
    SharedWork<std::shared_ptr<const InspectorImage>> inspector_;
    bool isPruned_ = false;
    std::stop_source ending_;
    WorkerPool pruning_{1};
};

}  // namespace morva
