// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "analysis/record/image_analysis.h"
#include "base/result.h"
#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_code.h"
#include "cli/preset_selection.h"
#include "crop/crop_solution.h"

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

/// A record and what the solver made of it.
struct SolvedRecord {
    StoredRecord record;
    PhotoPlan plan;
    CropSolution solution;
};

/// Solves the records of all files as one batch. The plans point into `selection`. Fails with a
/// sentence when a file cannot be read.
Result<std::vector<SolvedRecord>> solveRecords(const std::vector<std::filesystem::path>& files,
                                               const PresetSelection& selection);

/// Solves stored records as one batch, without opening a photo: {"file", "preset", "rule",
/// "sharedFaceUnit", "status", "solution"} a line.
ExitCode runSolve(const SolveArguments& solve, const Arguments& common, Console& console);

}  // namespace morva
