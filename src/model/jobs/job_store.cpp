// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/jobs/job_store.h"

#include <algorithm>
#include <system_error>

#include "base/files.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> jobFiles(const fs::path& directory) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path& file = entry->path();
        std::error_code none;
        if (file.extension() == ".json" && !isSetAside(file) && entry->is_regular_file(none))
            files.push_back(file);
    }
    std::ranges::sort(files);
    return files;
}

}  // namespace

JobStore::JobStore(const fs::path& dataFolder) : directory_(dataFolder / "Jobs") {}

fs::path JobStore::archiveDirectory() const { return directory_ / "Removed"; }

fs::path JobStore::fileURL(const Uuid& id) const { return directory_ / (id.text() + ".json"); }

JobStore::Loaded JobStore::loadAll(FolderAccess access) const {
    Loaded loaded;
    for (const fs::path& file : jobFiles(directory_)) {
        const auto text = readFile(file);
        if (!text) {
            // A file that cannot be opened now may be readable later; it stays where it is.
            loaded.problems.push_back(text.error());
            continue;
        }
        auto job = decoded<Job>(*text, "the job in " + file.string());
        if (job) {
            loaded.jobs.push_back(std::move(*job));
            continue;
        }
        loaded.problems.push_back(job.error());
        if (access == FolderAccess::looking) continue;
        if (const auto moved = setAside(file); !moved) loaded.problems.push_back(moved.error());
    }
    std::ranges::stable_sort(loaded.jobs, {}, &Job::createdAt);
    return loaded;
}

Result<void> JobStore::saveNow(const Job& job) const {
    if (auto made = makeFolder(directory_); !made) return made;
    return writeFileAtomically(fileURL(job.id), jobText(job) + "\n");
}

Result<void> JobStore::remove(const Uuid& id) const {
    const fs::path file = fileURL(id);
    if (!isThere(file)) return {};
    if (auto made = makeFolder(archiveDirectory()); !made) return made;
    std::error_code error;
    fs::rename(file, archiveDirectory() / file.filename(), error);
    if (error) return failure("Could not move " + file.string() + ": " + error.message() + ".");
    return {};
}

}  // namespace morva
