// SPDX-License-Identifier: GPL-3.0-or-later
// Where the benchmarks find the test photographs.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>

namespace morva {

/// The folder that $MORVA_TEST_DATA names. Where there is none, says that `program` is skipped.
inline std::optional<std::filesystem::path> testPhotographs(const char* program) {
    const char* folder = std::getenv("MORVA_TEST_DATA");
    if (folder != nullptr && std::filesystem::is_directory(folder)) return folder;
    std::printf("%s: skipped, MORVA_TEST_DATA names no folder of photographs\n", program);
    return std::nullopt;
}

}  // namespace morva
