// SPDX-License-Identifier: GPL-3.0-or-later
// The report of one export run: what became of every photo, as comma-separated text. Written by the
// export flow after the last photo; a report that cannot be written undoes no export.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/result.h"
#include "crop/crop_solution.h"

namespace morva {

namespace ExportReport {

/// Stands in the folder of the export.
inline constexpr const char* fileName = "Morva Export Report.csv";

/// One photo of the run.
struct Row {
    std::string file;
    std::string preset;
    /// Why the photo was not written; nothing else is told of it then.
    std::optional<std::string> skipped;
    std::string status;
    double confidence = 0;  // 0 to 1
    std::optional<CropMetrics> metrics;
    bool handAdjusted = false;
    /// Titles of the review reasons and of what was done otherwise than asked.
    std::vector<std::string> reasons;
};

/// `untouched`: photos that were exported before with the same crop and have no row.
std::string csv(std::span<const Row> rows, int untouched);

/// Replaces the report of the run before. Fails with a sentence naming the file.
Result<void> write(const std::filesystem::path& file, std::span<const Row> rows, int untouched);

}  // namespace ExportReport

/// "Low confidence; Needs more canvas": how both reports write a list of titles.
std::string joinedTitles(std::span<const std::string> titles);

}  // namespace morva
