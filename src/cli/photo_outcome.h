// SPDX-License-Identifier: GPL-3.0-or-later
// What became of one photo in a run of "crop", and how that is told: one JSON line each, and the
// list of doubts at the end. Values only; the work is done in crop_batch.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/json.h"
#include "cli/arguments.h"
#include "crop/crop_solution.h"

namespace morva {

/// What is to be done with a solved crop.
enum class Fate {
    write,
    /// It has doubts, and only crops without are wanted.
    leaveForReview,
    /// It would show canvas that the photo does not have and no backdrop can honestly fill.
    leaveForCanvas,
    /// There is no crop.
    fail,
};

Fate fateOf(const CropSolution& solution, Approval approve, bool force);

struct PhotoOutcome {
    std::filesystem::path file;
    Fate fate = Fate::fail;
    /// The finished file, or the one that a dry run would write.
    std::optional<std::filesystem::path> output;
    /// Absent when the photo could not even be analysed.
    std::optional<CropSolution> solution;
    /// One sentence, for a photo that failed.
    std::optional<std::string> error;

    /// Written, but worth a look.
    bool hasDoubts() const;
};

/// {"file", "output", "preset", "status", "solution", "error"}; absent ones are left out.
Json outcomeJson(const PhotoOutcome& outcome, const std::string& presetName);

/// "Hair outline uncertain, Low resolution for export size".
std::string reasonTitles(const CropSolution& solution);

/// "IMG_1.jpg: ready, out/IMG_1.jpg": one photo for a person.
std::string outcomeLine(const PhotoOutcome& outcome);

/// A heading and the photos below it, one a line.
struct Findings {
    std::string heading;
    /// These did not work, as opposed to being worth a look.
    bool failed = false;
    std::vector<std::string> lines;
};

/// The photos that need a person, worst last; groups without photos are left out.
std::vector<Findings> findings(const std::vector<PhotoOutcome>& outcomes);

/// "28 photos: 25 written, 4 of them with doubts, 1 lacks canvas, 2 failed."
std::string summary(const std::vector<PhotoOutcome>& outcomes, bool dryRun);

/// One line of JSON; a file name that is not UTF-8 gets replacement characters.
std::string jsonLine(const Json& json);

}  // namespace morva
