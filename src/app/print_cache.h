// SPDX-License-Identifier: GPL-3.0-or-later
// Feature prints on disk, one small file per photo, so that teaching a pose decodes no photo twice.
// Losing it costs time and nothing else. Safe to use from several threads at once.
#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "base/result.h"

namespace morva {

class PrintCache {
public:
    using Print = std::vector<float>;

    /// Prints are kept in "prints" below the program's cache folder.
    explicit PrintCache(const std::filesystem::path& cacheFolder)
        : directory_(cacheFolder / "prints") {}

    using Make = std::function<Result<Print>(const std::filesystem::path&)>;

    /// The stored print, when it was made by this program's printer from the file as it is now;
    /// else what `make` says, which is stored. A photo that changes meanwhile does not keep its old
    /// print.
    Result<Print> print(const std::filesystem::path& photo, const Make& make) const;

    struct Making {
        Make print;
        int threads = 1;
        const std::atomic<bool>& stop;
        /// How many are done; called on any thread.
        std::function<void(int)> tick;
    };
    /// The prints of many photos, in their order, from the cache or made and stored, on some
    /// threads of its own; returns when all are there or `stop` became true. Absent where there is
    /// none.
    std::vector<std::optional<Print>> printsOf(std::span<const std::filesystem::path> photos,
                                               const Making& making) const;

private:
    struct Header;
    std::filesystem::path fileOf(const std::filesystem::path& photo) const;
    std::optional<Print> load(const std::filesystem::path& photo, const Header& wanted) const;
    Result<void> store(const Print& print, const std::filesystem::path& photo,
                       const Header& made) const;

    std::filesystem::path directory_;
};

}  // namespace morva
