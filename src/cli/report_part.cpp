// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/report_part.h"

#include <algorithm>
#include <charconv>

#include "base/files.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view placeColumn = "place,";
constexpr std::string_view closing = "(part ";
constexpr std::string_view ofRun = " of run ";
constexpr std::string_view of = " of ";

/// Lines, except that a line break in quotes ends none. What follows the last line break is none.
std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t begin = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') quoted = !quoted;
        if (text[i] != '\n' || quoted) continue;
        lines.push_back(text.substr(begin, i - begin));
        begin = i + 1;
    }
    return lines;
}

/// "1 of 4", as in the name and in the last line of a part.
std::optional<Shard> shardIn(std::string_view text) {
    const std::size_t middle = text.find(of);
    if (middle == std::string_view::npos) return std::nullopt;
    return Shard::parse(std::string(text.substr(0, middle)) + "/" +
                        std::string(text.substr(middle + of.size())));
}

/// "(part 2 of 4 of run 5f3a...)".
bool readClosing(std::string_view line, ReportPart& part) {
    const std::size_t run = line.find(ofRun);
    if (!line.starts_with(closing) || !line.ends_with(")") || run == std::string_view::npos)
        return false;
    const auto shard = shardIn(line.substr(closing.size(), run - closing.size()));
    part.run = line.substr(run + ofRun.size());
    part.run.pop_back();
    if (shard) part.shard = *shard;
    return shard && !part.run.empty();
}

bool readRow(std::string_view line, ReportPart& part) {
    std::size_t place = 0;
    const auto [stop, error] = std::from_chars(line.data(), line.data() + line.size(), place);
    const auto comma = static_cast<std::size_t>(stop - line.data());
    if (error != std::errc() || comma >= line.size() || line[comma] != ',') return false;
    return part.rows.emplace(place, line.substr(comma + 1)).second;
}

/// The report that a file is a part of by its name; nothing when it is none.
std::optional<fs::path> reportOf(const fs::path& file) {
    const std::string stem = file.stem().string();
    const std::size_t middle = stem.rfind(of);
    if (middle == std::string::npos || middle == 0) return std::nullopt;
    const std::size_t blank = stem.rfind(' ', middle - 1);
    if (blank == std::string::npos || !shardIn(std::string_view(stem).substr(blank + 1)))
        return std::nullopt;
    return file.parent_path() / (stem.substr(0, blank) + file.extension().string());
}

using Found = std::map<fs::path, std::vector<ReportPart>>;

/// All parts in a folder by their reports, those of a report by their numbers.
Result<Found> partsIn(const fs::path& folder) {
    std::error_code error;
    std::vector<fs::path> files;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        files.push_back(entry->path());
    if (error) return failure("Could not read " + folder.string() + ": " + error.message() + ".");
    Found found;
    for (const fs::path& file : files) {
        const auto report = reportOf(file);
        if (!report) continue;
        const auto text = readFile(file);
        if (!text) return tl::unexpected(text.error());
        // Another file may have such a name too.
        if (!text->starts_with(placeColumn)) continue;
        auto part = ReportPart::parse(*text);
        if (!part || ReportParts::fileOf(*report, part->shard) != file)
            return failure(file.string() + " is not whole; run its shard again.");
        found[*report].push_back(std::move(*part));
    }
    for (auto& [report, parts] : found)
        std::ranges::sort(parts, {}, [](const ReportPart& part) {
            return std::pair(part.shard.number, part.shard.count);
        });
    return found;
}

Result<void> checkThatAllAreThere(const fs::path& report, const std::vector<ReportPart>& parts) {
    const ReportPart& first = parts.front();
    for (const ReportPart& part : parts) {
        if (part.shard.count != first.shard.count)
            return failure("There are parts of " + report.filename().string() + " from a run of " +
                           std::to_string(first.shard.count) + " shards and from one of " +
                           std::to_string(part.shard.count) +
                           "; remove those that you do not want.");
    }
    for (int number = 1; number <= first.shard.count; ++number) {
        if (std::ranges::any_of(parts, [&](const auto& p) { return p.shard.number == number; }))
            continue;
        const fs::path file = ReportParts::fileOf(report, {number, first.shard.count});
        return failure(file.filename().string() + " is missing; run that shard.");
    }
    for (const ReportPart& part : parts) {
        if (part.run != first.run || part.header != first.header)
            return failure("Parts " + first.shard.text() + " and " + part.shard.text() + " of " +
                           report.filename().string() +
                           " come from runs with other photos, presets or options; run the older "
                           "one again.");
    }
    return {};
}

Result<std::string> joined(const fs::path& report, const std::vector<ReportPart>& parts) {
    std::map<std::size_t, std::string> rows;
    for (const ReportPart& part : parts) {
        for (const auto& [place, row] : part.rows) {
            if (!rows.emplace(place, row).second)
                return failure("Two parts of " + report.filename().string() +
                               " tell of the same photo; run all shards again.");
        }
    }
    std::string text = parts.front().header + "\n";
    for (const auto& [place, row] : rows) text += row + "\n";
    return text;
}

}  // namespace

void ReportPart::add(std::size_t place, std::string_view reportOfOne) {
    const auto lines = linesOf(reportOfOne);
    header = lines.front();
    if (lines.size() > 1) rows[place] = lines[1];
}

std::string ReportPart::text() const {
    std::string text = std::string(placeColumn) + header + "\n";
    for (const auto& [place, row] : rows) text += std::to_string(place) + "," + row + "\n";
    return text + std::string(closing) + shard.text() + std::string(ofRun) + run + ")\n";
}

std::optional<ReportPart> ReportPart::parse(std::string_view text) {
    const auto lines = linesOf(text);
    ReportPart part;
    if (lines.size() < 2 || !lines.front().starts_with(placeColumn) ||
        !readClosing(lines.back(), part))
        return std::nullopt;
    part.header = lines.front().substr(placeColumn.size());
    for (std::size_t i = 1; i + 1 < lines.size(); ++i)
        if (!readRow(lines[i], part)) return std::nullopt;
    return part;
}

fs::path ReportParts::fileOf(const fs::path& report, const Shard& shard) {
    fs::path file = report;
    return file.replace_filename(report.stem().string() + " " + shard.text() +
                                 report.extension().string());
}

Result<std::map<fs::path, std::string>> ReportParts::joinedIn(const fs::path& folder) {
    const auto found = partsIn(folder);
    if (!found) return tl::unexpected(found.error());
    if (found->empty()) return failure("There are no parts of reports in " + folder.string() + ".");
    std::map<fs::path, std::string> reports;
    for (const auto& [report, parts] : *found) {
        if (const auto whole = checkThatAllAreThere(report, parts); !whole)
            return tl::unexpected(whole.error());
        auto text = joined(report, parts);
        if (!text) return tl::unexpected(text.error());
        reports[report] = std::move(*text);
    }
    return reports;
}

}  // namespace morva
