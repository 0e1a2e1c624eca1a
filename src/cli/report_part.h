// SPDX-License-Identifier: GPL-3.0-or-later
// A report that one shard wrote: the rows of its photos, each after the photo's place in the whole
// run, and a last line that says what it is a part of. Written by "crop", joined by
// "merge-reports"; knows no columns, so both reports are joined by the same code.
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"
#include "cli/shard.h"

namespace morva {

struct ReportPart {
    Shard shard;
    /// The same for all shards of a run and for no other run: lower-case hexadecimal digits.
    std::string run;
    /// Without its line break, as the rows.
    std::string header;
    /// By the photo's place in the run, counted from 1.
    std::map<std::size_t, std::string> rows;

    /// Takes over the header, and the row if there is one, from the report of this photo alone.
    void add(std::size_t place, std::string_view reportOfOne);

    std::string text() const;
    /// Nothing for a file of another kind or one that lacks its end.
    static std::optional<ReportPart> parse(std::string_view text);
};

namespace ReportParts {

/// "Report 2 of 4.csv" for "Report.csv".
std::filesystem::path fileOf(const std::filesystem::path& report, const Shard& shard);

/// The reports that an undivided run writes, by their files, from all parts that lie in a folder.
/// Fails with a sentence when there are none, or when those of a report are not all parts of one
/// run.
Result<std::map<std::filesystem::path, std::string>> joinedIn(const std::filesystem::path& folder);

}  // namespace ReportParts

}  // namespace morva
