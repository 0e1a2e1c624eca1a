// SPDX-License-Identifier: GPL-3.0-or-later
// What lies in the folder of a job, held against the photos that the job knows: new, changed,
// renamed and vanished ones. Read on a worker thread, for folders are large and disks slow; applied
// on the main thread, where decisions may have changed meanwhile.
#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/result.h"
#include "model/jobs/analysis_cache.h"
#include "model/jobs/image_item.h"

namespace morva {

/// What the reading needs to know of a photo of the job.
struct KnownPhoto {
    std::string id;
    std::filesystem::path url;
    std::optional<FileStamp> stamp;

    static std::vector<KnownPhoto> of(std::span<const ImageItem> items);
};

struct FolderReading {
    /// One photo as it is now.
    struct Photo {
        /// Of the job's photo, also of one that has got another name; a fresh one for a new photo.
        std::string id;
        std::filesystem::path url;
        /// The stored analysis, where it still holds.
        std::optional<ImageAnalysis> analysis;
        /// The file's state; absent when it cannot be seen at this moment.
        std::optional<FileStamp> stamp;
    };
    /// In natural order.
    std::vector<Photo> photos;
    /// The job's photos whose files are gone for certain.
    std::vector<std::string> gone;

    /// Lists and compares. A photo counts as gone only when its file is known not to exist: one in
    /// a folder that cannot be read at this moment, or that the listing leaves out, stays. A new
    /// file with the size and time of one that is gone is that one renamed. `read` is told how many
    /// photos were looked at, of how many. Fails with a sentence when the folder cannot be read or
    /// `stop` became true.
    static Result<FolderReading> of(const std::filesystem::path& folder,
                                    const std::vector<KnownPhoto>& known,
                                    const AnalysisCache& cache, const std::atomic<bool>& stop,
                                    const std::function<void(int, int)>& read);

    /// The photos of a job after the reading. Decisions stay with their photo. A file that changed
    /// loses its analysis unless another was stored: what was measured on the old picture must not
    /// crop the new one.
    std::vector<ImageItem> applied(std::vector<ImageItem> items,
                                   const std::filesystem::path& folder) const;
};

}  // namespace morva
