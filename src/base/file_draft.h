// SPDX-License-Identifier: GPL-3.0-or-later
// A file while it is being written: without a name where the file system allows that, so that a
// killed program leaves nothing behind, else under a hidden one that nobody can guess, for its
// owner alone until it is published. Used by the atomic writer; names are bytes here, whatever
// their encoding.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

#include <tl/expected.hpp>

namespace morva {

class FileDraft {
public:
    using Done = tl::expected<void, std::error_code>;

    /// Begins a file that is to become `target`; its folder must exist. A link under that name is
    /// not followed.
    static tl::expected<FileDraft, std::error_code> begin(const std::filesystem::path& target);

    FileDraft(FileDraft&& other) noexcept;
    FileDraft& operator=(FileDraft&&) = delete;
    /// Drops what was not published.
    ~FileDraft();

    Done write(std::string_view content) const;
    /// Onto the disk itself.
    Done flush() const;
    /// Puts it in the place of the target, in one step that outlasts a power cut. It takes over the
    /// permissions of a file that is there, else it gets those of any new file.
    Done publish();

private:
    FileDraft(int file, std::filesystem::path target, std::filesystem::path name);

    int file_ = -1;
    std::filesystem::path target_;
    /// Its hidden name beside the target.
    std::filesystem::path name_;
    bool isNamed_ = false;
};

}  // namespace morva
