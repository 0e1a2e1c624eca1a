// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/record/image_analysis.h"
#include "base/result.h"
#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"

namespace morva {

/// A stored analysis and, where it was stored with one, its photo.
struct StoredRecord {
    std::optional<std::string> file;
    /// Empty where it was stored without one.
    std::string camera;
    ImageAnalysis analysis;
};

/// Reads the lines of "analyze --json" or one bare record, which may stretch over several lines.
/// Fails with a sentence that names `what` and the line.
Result<std::vector<StoredRecord>> readRecords(const std::string& text, const std::string& what);

/// Solves stored records as one batch, without opening a photo: {"file", "preset", "rule",
/// "sharedFaceUnit", "status", "solution"} a line.
ExitCode runSolve(const SolveArguments& solve, const Arguments& common, Console& console);

}  // namespace morva
