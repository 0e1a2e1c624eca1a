// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of this room share: a folder of their own, small photos, and waiting for workers.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

#include "app/callback_queue.h"
#include "base/files.h"
#include "base/uuid.h"
#include "imaging/encode.h"
#include "imaging/raster.h"

namespace morva {

/// A folder that is gone with its owner.
class TemporaryFolder {
public:
    TemporaryFolder()
        : path_(std::filesystem::temp_directory_path() / ("morva-app-" + Uuid::random().text())) {
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// A left half of `left` grey and a right half of `right`, as a PNG whatever its name says.
inline void writePhoto(const std::filesystem::path& file, int width, int height,
                       std::uint8_t left = 40, std::uint8_t right = 200) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            std::fill_n(picture.pixel(x, y), 3, x < width / 2 ? left : right);
    }
    ASSERT_TRUE(writeFileAtomically(file, *encodePng(picture)));
}

/// Runs callbacks until `done`; false after ten seconds.
inline bool runUntil(CallbackLoop& loop, const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!done() && std::chrono::steady_clock::now() < end)
        loop.runNext(std::chrono::milliseconds(50));
    return done();
}

}  // namespace morva
