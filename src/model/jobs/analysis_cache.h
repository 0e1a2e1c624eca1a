// SPDX-License-Identifier: GPL-3.0-or-later
// Analyses on disk, keyed by the photo's path, so that a photo that has not changed is never
// analysed twice, across jobs and restarts. Losing it costs time and nothing else, so what goes
// wrong with it is a miss. Safe to use from several threads and programs at once.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "analysis/image_loader.h"
#include "analysis/record/image_analysis.h"
#include "base/result.h"

namespace morva {

class AnalysisCache {
public:
    /// Entries are kept in "analysis" below the program's cache folder.
    explicit AnalysisCache(const std::filesystem::path& cacheFolder);

    const std::filesystem::path& directory() const { return directory_; }

    /// SHA-256 of the photo's absolute, normal path as 64 lower-case hexadecimal digits.
    static std::string key(const std::filesystem::path& photo);

    /// The stored analysis, when the photo has the modification time and size of then and the
    /// analysis is of the current kind.
    std::optional<ImageAnalysis> load(const std::filesystem::path& photo) const;

    /// Stores an analysis. `made` is the photo's state from before it was analysed: a photo that
    /// changes meanwhile must not keep the old measurements. Fails with a sentence, which callers
    /// may ignore.
    Result<void> store(const ImageAnalysis& analysis, const std::filesystem::path& photo,
                       const FileSignature& made) const;

    /// Removes all entries.
    Result<void> clear() const;

private:
    std::filesystem::path entryFile(const std::filesystem::path& photo) const;

    std::filesystem::path directory_;
};

}  // namespace morva
