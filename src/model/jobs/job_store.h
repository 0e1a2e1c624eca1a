// SPDX-License-Identifier: GPL-3.0-or-later
// Every job as one JSON file. Writes whole files atomically; what it cannot understand it moves
// aside and never overwrites; what is deleted it keeps in a folder of its own.
#pragma once

#include <filesystem>
#include <vector>

#include "base/files.h"
#include "base/result.h"
#include "model/jobs/job.h"

namespace morva {

class JobStore {
public:
    /// Jobs are kept in "Jobs" below the program's data folder.
    explicit JobStore(const std::filesystem::path& dataFolder);

    const std::filesystem::path& directory() const { return directory_; }
    /// Where deleted jobs go.
    std::filesystem::path archiveDirectory() const;
    std::filesystem::path fileURL(const Uuid& id) const;

    struct Loaded {
        /// Oldest first.
        std::vector<Job> jobs;
        /// One sentence for each file that could not be read. Such a file was moved aside, under a
        /// name that says so, unless the folder was only looked at.
        std::vector<Failure> problems;
    };
    Loaded loadAll(FolderAccess access = FolderAccess::holding) const;

    /// Writes the job before returning; the caller chooses the thread. Fails with a sentence that
    /// names the file; the file of before is then unharmed.
    Result<void> saveNow(const Job& job) const;

    /// Moves the job's file into the archive, over an earlier one of the same identity. A job that
    /// was never saved is already deleted.
    Result<void> remove(const Uuid& id) const;

private:
    std::filesystem::path directory_;
};

}  // namespace morva
