// SPDX-License-Identifier: GPL-3.0-or-later
// What tests on photographs share: where the photographs are, and the real detectors, loaded once a
// process.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "vision/vision_services.h"

namespace morva {

/// The public-domain portrait that every checkout has.
inline std::filesystem::path samplePortrait() {
    const char* file = std::getenv("MORVA_SAMPLE");
    if (file == nullptr)
        throw std::runtime_error("MORVA_SAMPLE is not set; run the tests with ctest");
    return file;
}

/// The folder of reference photographs; nothing where there is none.
inline std::optional<std::filesystem::path> testData() {
    const char* folder = std::getenv("MORVA_TEST_DATA");
    if (folder == nullptr || !std::filesystem::is_directory(folder)) return std::nullopt;
    return folder;
}

inline const VisionServices& realVision() {
    static const auto vision = VisionServices::open(
        VisionServices::modelFolder(), std::filesystem::temp_directory_path() / "morva-tests");
    if (!vision) throw std::runtime_error(vision.error().message);
    return *vision;
}

}  // namespace morva
