// SPDX-License-Identifier: GPL-3.0-or-later
// Which file each photo is exported to, and whether one folder lies in another. Called by the
// export flow before it builds requests; touches the disk only to resolve links.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace morva::Exporter {

/// Where the crop of `source` goes: its path below `root`, below `exportFolder`, ending in ".jpg".
/// A source outside `root` keeps its whole chain of folders.
std::filesystem::path destinationURL(const std::filesystem::path& source,
                                     const std::filesystem::path& root,
                                     const std::filesystem::path& exportFolder);

/// A destination of its own for every source, also where upper and lower case are the same: photos
/// that differ only in their extension carry it in the name, further ones a number from 2 up.
std::map<std::filesystem::path, std::filesystem::path> destinationURLs(
    const std::vector<std::filesystem::path>& sources, const std::filesystem::path& root,
    const std::filesystem::path& exportFolder);

/// Absolute path without ".", "..", links or a trailing slash, also of what does not exist yet.
std::string canonicalPath(const std::filesystem::path& path);

/// True when `a` is `b` or lies anywhere below it. Both may be missing on disk.
bool isContained(const std::filesystem::path& a, const std::filesystem::path& b);

/// True when the export folder or one of the files would lie in any of `protectedFolders`. The
/// folders of all files count, not only the one above them: a link, or the name of a sub-folder,
/// can lead back to photos.
bool wouldWriteInto(std::span<const std::filesystem::path> protectedFolders,
                    const std::filesystem::path& exportFolder,
                    const std::map<std::filesystem::path, std::filesystem::path>& destinations);

/// A folder of the files that a link leads out of the export folder; absent when there is none.
std::optional<std::filesystem::path> folderOutside(
    const std::filesystem::path& exportFolder,
    const std::map<std::filesystem::path, std::filesystem::path>& destinations);
/// Why nothing is written there, in one sentence.
std::string outsideText(const std::filesystem::path& folder);

/// Absolute path without ".", ".." or a trailing slash; links stay.
std::filesystem::path standardized(const std::filesystem::path& path);

}  // namespace morva::Exporter
