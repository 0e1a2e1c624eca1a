// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/run_reports.h"

#include <string_view>

namespace morva {

namespace {

/// The titles that the window gives the states of a photo.
std::string statusTitle(const PhotoOutcome& outcome) {
    if (!outcome.photoSize || !outcome.solution) return "Couldn't analyze";
    if (outcome.solution->status == CropStatus::failed) return "No face";
    return outcome.solution->isReady() ? "Ready" : "Review";
}

std::vector<std::string> reasonsOf(const PhotoOutcome& outcome) {
    std::vector<std::string> titles;
    if (outcome.solution)
        for (const ReviewReason reason : outcome.solution->reasons)
            titles.emplace_back(title(reason));
    for (const ExportFallback fallback : outcome.fallbacks) titles.emplace_back(title(fallback));
    return titles;
}

/// Why a photo was not written.
std::string skippedFor(const PhotoOutcome& outcome) {
    if (outcome.error) return *outcome.error;
    return joinedTitles(reasonsOf(outcome));
}

}  // namespace

std::vector<ExportReport::Row> exportRows(const std::vector<PhotoOutcome>& outcomes) {
    std::vector<ExportReport::Row> rows;
    for (const PhotoOutcome& outcome : outcomes) {
        ExportReport::Row row;
        row.file = outcome.file.filename().string();
        row.preset = outcome.preset;
        if (outcome.fate != Fate::write) {
            row.skipped = skippedFor(outcome);
        } else {
            row.status = statusTitle(outcome);
            row.confidence = outcome.solution->confidence;
            row.metrics = outcome.solution->metrics;
            row.reasons = reasonsOf(outcome);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<ReviewList::Item> waiting(const std::vector<PhotoOutcome>& outcomes) {
    std::vector<ReviewList::Item> items;
    for (const PhotoOutcome& outcome : outcomes) {
        if (outcome.solution && outcome.solution->isReady()) continue;
        ReviewList::Item item{.file = std::filesystem::absolute(outcome.file),
                              .status = statusTitle(outcome),
                              .issues = reasonsOf(outcome),
                              .canvas = {},
                              .size = outcome.photoSize};
        if (outcome.solution) item.canvas = outcome.solution->shortfall;
        if (item.issues.empty() && outcome.error) item.issues = {*outcome.error};
        items.push_back(std::move(item));
    }
    return items;
}

std::string exportReport(const std::vector<PhotoOutcome>& outcomes) {
    return ExportReport::csv(exportRows(outcomes), 0);
}

std::string reviewList(const std::vector<PhotoOutcome>& outcomes) {
    return ReviewList::csv(waiting(outcomes));
}

}  // namespace morva
