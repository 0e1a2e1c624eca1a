// SPDX-License-Identifier: GPL-3.0-or-later
// What became of one photo in a run of "crop", and how that is told: one JSON line each, and the
// list of doubts at the end. Values only; the work is done in crop_batch.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/json.h"
#include "cli/arguments.h"
#include "crop/crop_solution.h"
#include "output/crop_renderer.h"

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
    /// Name of the preset, and title of the rule that chose it.
    std::string preset;
    std::optional<std::string> rule;
    /// Face unit in pixels that the photo shared with others.
    std::optional<double> sharedFaceUnit;
    Fate fate = Fate::fail;
    /// The finished file, or the one that a dry run would write.
    std::optional<std::filesystem::path> output;
    /// Absent when the photo could not even be analysed.
    std::optional<CropSolution> solution;
    /// One sentence, for a photo that failed.
    std::optional<std::string> error;
    /// Upright, in pixels; absent when the photo could not be read.
    std::optional<Size> photoSize = {};
    /// What was done otherwise than asked, in a photo that was written.
    std::vector<ExportFallback> fallbacks = {};

    /// Written, but worth a look.
    bool hasDoubts() const;
};

/// {"file", "output", "preset", "rule", "sharedFaceUnit", "status", "fallbacks", "solution",
/// "error"}; absent ones are left out.
Json outcomeJson(const PhotoOutcome& outcome);

/// "Hair outline uncertain, Low resolution for export size".
std::string reasonTitles(const CropSolution& solution);

/// "IMG_1.jpg: ready, Headshot 4x5 (5-star rating), out/IMG_1.jpg": one photo for a person.
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

/// "Interrupted: 40 of 60 photos were not cropped, 12 of them not analysed either."
std::string interruptionText(std::size_t total, std::size_t analyzed, std::size_t cropped);

/// "Crop types: 20 Headshot 4x5, 8 Full length 4x5." in the order of their first photos.
std::string presetCounts(const std::vector<PhotoOutcome>& outcomes);

}  // namespace morva
