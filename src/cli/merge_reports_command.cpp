// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/merge_reports_command.h"

#include <chrono>
#include <iostream>

#include "base/files.h"
#include "base/uuid.h"
#include "cli/report_part.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view draftMark = ".morva-";
/// A file is a draft for less than a second, also on a slow disk.
constexpr std::chrono::hours surelyAbandoned(1);

bool isDraft(const fs::path& file) {
    const std::string name = file.filename().string();
    return name.starts_with(draftMark) && Uuid::parse(name.substr(draftMark.size()));
}

/// Where the file system wants a name for a file that is being written, as on a network, a killed
/// shard leaves it behind.
void removeAbandonedDrafts(const fs::path& folder) {
    const auto before = fs::file_time_type::clock::now() - surelyAbandoned;
    std::error_code error;
    for (fs::recursive_directory_iterator entry(folder, error);
         !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        std::error_code none;
        if (isDraft(entry->path()) && entry->last_write_time(none) < before && !none)
            fs::remove(entry->path(), none);
    }
}

}  // namespace

ExitCode runMergeReports(const MergeReportsArguments& merge, Console& console) {
    for (const fs::path& folder : merge.folders) {
        const auto reports = ReportParts::joinedIn(folder);
        if (!reports) {
            console.failure(reports.error().message);
            return ExitCode::inputUnreadable;
        }
        for (const auto& [file, text] : *reports) {
            if (const auto written = replaceFile(file, text); !written) {
                console.failure(written.error().message);
                return ExitCode::outputUnwritable;
            }
            console.say("Joined " + file.string() + ".");
        }
        removeAbandonedDrafts(folder);
    }
    return ExitCode::done;
}

}  // namespace morva
