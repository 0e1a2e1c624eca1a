// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of this process alone, for targets whose readers open files. script/fuzz puts it into
// memory and takes it away.
#pragma once

#include <filesystem>
#include <string>

#include <unistd.h>

namespace morva {

inline const std::filesystem::path& scratchFolder() {
    static const std::filesystem::path folder = [] {
        auto made =
            std::filesystem::temp_directory_path() / ("morva-fuzz-" + std::to_string(getpid()));
        std::filesystem::create_directories(made);
        return made;
    }();
    return folder;
}

}  // namespace morva
