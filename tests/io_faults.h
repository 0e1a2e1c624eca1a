// SPDX-License-Identifier: GPL-3.0-or-later
// A file system that fails on demand. Linked into a test binary, its functions stand in front of
// the system's for the program and all its libraries, and pass everything on until told otherwise.
#pragma once

#include <filesystem>

namespace morva {

/// While it lives, operations on files below `folder` are counted, and number `failing` (from 1)
/// fails: opening, reading, writing, flushing, renaming, linking, making a folder. Writing then
/// stops half way, as on a full disk. One at a time.
class IoFaults {
public:
    /// `plain`: as on memory cards and network drives, files cannot be without a name.
    IoFaults(const std::filesystem::path& folder, int failing, bool plain = false);
    ~IoFaults();
    IoFaults(const IoFaults&) = delete;
    IoFaults& operator=(const IoFaults&) = delete;

    /// From here on everything works again.
    void end();
    /// Whether there were as many operations.
    bool hasStruck() const;
    /// What failed, "rename".
    const char* operation() const;
};

}  // namespace morva
