// SPDX-License-Identifier: GPL-3.0-or-later
// Who may write into the data folder: one program at a time. The first one holds the lock until it
// ends, however it ends; a second one is told who holds it and leaves the folder's files alone.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <tl/expected.hpp>

class QLockFile;

namespace morva {

class JobLock {
public:
    struct Holder {
        std::int64_t pid = 0;
        std::string host;
        /// Name of the program's file.
        std::string program;

        bool operator==(const Holder&) const = default;
    };
    struct Refusal {
        /// Absent when the lock could not even be written, as in a folder that is read-only.
        std::optional<Holder> heldBy;
        /// One sentence for a person.
        std::string message;
    };

    /// Returns at once. The lock of a program that ended without releasing it is taken over, also
    /// one that a crash of the machine left empty or in pieces; one that another machine wrote into
    /// a shared folder is not, for nobody can tell whether that program lives. Makes the folder if
    /// need be.
    static tl::expected<JobLock, Refusal> tryAcquire(const std::filesystem::path& dataFolder);

    /// The file that says who holds the lock.
    static std::filesystem::path file(const std::filesystem::path& dataFolder);

    JobLock(JobLock&&) noexcept;
    JobLock& operator=(JobLock&&) noexcept;
    /// Releases the lock.
    ~JobLock();

private:
    explicit JobLock(std::unique_ptr<QLockFile> lock);
    std::unique_ptr<QLockFile> lock_;
};

}  // namespace morva
