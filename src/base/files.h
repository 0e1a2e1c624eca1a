// SPDX-License-Identifier: GPL-3.0-or-later
// Whole-file reading and writing, and the folders that the program owns.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/result.h"

namespace morva {

/// The whole content. Fails with a sentence naming the file.
Result<std::string> readFile(const std::filesystem::path& file);

/// Writes to a temporary file in the same folder, flushes it to disk and renames it over `file`, so
/// that a reader finds the old content or the new, never a part. The folder must exist. Through a
/// link, the file that it leads to is written; a file that is locked against writing is not. Fails
/// with a sentence naming the file.
Result<void> writeFileAtomically(const std::filesystem::path& file, std::string_view content);

/// The same for a file in a folder that is handed on, such as crops: a link under the name gives
/// way to the file, and what it leads to stays as it is.
Result<void> replaceFile(const std::filesystem::path& file, std::string_view content);

/// Makes a folder with those above it; one that is there is made. Fails with a sentence naming it.
Result<void> makeFolder(const std::filesystem::path& folder);

/// Removes everything in a cache's folder and makes it again. Fails with a sentence naming it.
Result<void> emptyFolder(const std::filesystem::path& folder);

/// Also false when the file system does not say.
bool isThere(const std::filesystem::path& file);

/// Renames a file that could not be understood, "rules.json" to "rules.unreadable.json" (or
/// "rules.unreadable 2.json" and so on where that is taken), so that nothing overwrites it. Fails
/// with a sentence naming the file.
Result<void> setAside(const std::filesystem::path& file);
/// Whether a file has such a name.
bool isSetAside(const std::filesystem::path& file);

/// Where the program keeps what it must not lose, and what it can make again.
struct Folders {
    std::filesystem::path data;
    std::filesystem::path cache;

    /// The user's folders: "Morva" below $XDG_DATA_HOME and $XDG_CACHE_HOME.
    static Folders standard();
};

/// How a program may read a folder of the data: as the one that holds its lock, which renews and
/// sets aside what it finds, or as one that only looks and leaves everything as it is.
enum class FolderAccess { holding, looking };

/// SHA-256 as 64 lower-case hexadecimal digits.
std::string sha256(std::string_view content);

}  // namespace morva
