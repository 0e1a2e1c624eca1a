// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/photo_outcome.h"

#include <algorithm>

#include "crop/review_reason.h"

namespace morva {

namespace {

using Outcomes = std::vector<PhotoOutcome>;

bool wasWritten(const PhotoOutcome& outcome) { return outcome.fate == Fate::write; }

std::string status(const PhotoOutcome& outcome) {
    if (outcome.fate == Fate::fail) return "failed";
    return Json(outcome.solution->status).get<std::string>();
}

/// One line for everything that was done otherwise than asked.
void collectFallbacks(std::vector<Findings>& all, const Outcomes& outcomes) {
    Findings found{.heading = "Written, but not as asked:", .lines = {}};
    for (const PhotoOutcome& outcome : outcomes)
        for (const ExportFallback fallback : outcome.fallbacks)
            found.lines.push_back(outcome.file.string() + ": " + std::string(title(fallback)));
    if (!found.lines.empty()) all.push_back(std::move(found));
}

template <class Is>
void collect(std::vector<Findings>& all, const char* heading, const Outcomes& outcomes, Is is) {
    Findings found{.heading = heading, .lines = {}};
    for (const PhotoOutcome& outcome : outcomes) {
        if (!is(outcome)) continue;
        const std::string what =
            outcome.error ? *outcome.error : reasonTitles(outcome.solution.value());
        found.lines.push_back(outcome.file.string() + ": " + what);
    }
    if (!found.lines.empty()) all.push_back(std::move(found));
}

}  // namespace

Fate fateOf(const CropSolution& solution, Approval approve, bool force) {
    if (solution.status == CropStatus::failed) return Fate::fail;
    const bool blocked =
        std::any_of(solution.reasons.begin(), solution.reasons.end(), blocksExport);
    if (blocked && !force) return Fate::leaveForCanvas;
    if (!solution.isReady() && approve == Approval::ready) return Fate::leaveForReview;
    return Fate::write;
}

bool PhotoOutcome::hasDoubts() const {
    return fate == Fate::write && solution && !solution->isReady();
}

Json outcomeJson(const PhotoOutcome& outcome) {
    Json json;
    json["file"] = outcome.file.string();
    if (outcome.output) json["output"] = outcome.output->string();
    json["preset"] = outcome.preset;
    putOptional(json, "rule", outcome.rule);
    putOptional(json, "sharedFaceUnit", outcome.sharedFaceUnit);
    json["status"] = status(outcome);
    for (const ExportFallback fallback : outcome.fallbacks)
        json["fallbacks"].push_back(key(fallback));
    putOptional(json, "solution", outcome.solution);
    putOptional(json, "error", outcome.error);
    return json;
}

std::string reasonTitles(const CropSolution& solution) {
    std::string titles;
    for (const ReviewReason reason : solution.reasons) {
        if (!titles.empty()) titles += ", ";
        titles += title(reason);
    }
    return titles;
}

std::string outcomeLine(const PhotoOutcome& outcome) {
    std::string line = outcome.file.string() + ": " + status(outcome);
    if (outcome.error)
        line += " (" + *outcome.error + ")";
    else if (outcome.solution && !outcome.solution->reasons.empty())
        line += " (" + reasonTitles(*outcome.solution) + ")";
    for (const ExportFallback fallback : outcome.fallbacks)
        line += ", " + std::string(title(fallback));
    line += ", " + outcome.preset;
    if (outcome.rule) line += " (" + *outcome.rule + ")";
    if (outcome.output) line += ", " + outcome.output->string();
    return line;
}

std::vector<Findings> findings(const Outcomes& outcomes) {
    std::vector<Findings> all;
    collectFallbacks(all, outcomes);
    collect(all, "Worth a look:", outcomes, [](const auto& o) { return o.hasDoubts(); });
    collect(all, "Left for review:", outcomes,
            [](const auto& o) { return o.fate == Fate::leaveForReview; });
    collect(all, "Not written for lack of canvas (--force writes them):", outcomes,
            [](const auto& o) { return o.fate == Fate::leaveForCanvas; });
    const std::size_t harmless = all.size();
    collect(all, "Failed:", outcomes, [](const auto& o) { return o.fate == Fate::fail; });
    if (all.size() > harmless) all.back().failed = true;
    return all;
}

std::string summary(const Outcomes& outcomes, bool dryRun) {
    const auto count = [&](auto is) { return std::count_if(outcomes.begin(), outcomes.end(), is); };
    const auto doubts = count([](const auto& o) { return o.hasDoubts(); });
    const auto otherwise = count([](const auto& o) { return !o.fallbacks.empty(); });
    const auto review = count([](const auto& o) { return o.fate == Fate::leaveForReview; });
    const auto canvas = count([](const auto& o) { return o.fate == Fate::leaveForCanvas; });
    const auto failed = count([](const auto& o) { return o.fate == Fate::fail; });
    std::string text = std::to_string(outcomes.size());
    text += outcomes.size() == 1 ? " photo: " : " photos: ";
    text += std::to_string(count(wasWritten)) + (dryRun ? " would be written" : " written");
    if (otherwise > 0) text += ", " + std::to_string(otherwise) + " not as asked";
    if (doubts > 0) text += ", " + std::to_string(doubts) + " worth a look";
    if (review > 0) text += ", " + std::to_string(review) + " left for review";
    if (canvas > 0) text += ", " + std::to_string(canvas) + " without enough canvas";
    if (failed > 0) text += ", " + std::to_string(failed) + " failed";
    return text + ".";
}

std::string interruptionText(std::size_t total, std::size_t analyzed, std::size_t cropped) {
    std::string text = "Interrupted: " + std::to_string(total - cropped) + " of " +
                       std::to_string(total) + " photos were not cropped";
    if (analyzed < total)
        text += ", " + std::to_string(total - analyzed) + " of them not analysed either";
    return text + ".";
}

std::string presetCounts(const Outcomes& outcomes) {
    std::vector<std::pair<std::string, int>> counts;
    for (const PhotoOutcome& outcome : outcomes) {
        auto known = std::ranges::find(counts, outcome.preset, &std::pair<std::string, int>::first);
        if (known == counts.end()) known = counts.insert(known, {outcome.preset, 0});
        ++known->second;
    }
    std::string text;
    for (const auto& [preset, count] : counts)
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + preset;
    return "Crop types: " + text + ".";
}

}  // namespace morva
