// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/review_list_command.h"

#include <iostream>

#include "cli/preset_selection.h"
#include "cli/run_reports.h"
#include "cli/solve_command.h"

namespace morva {

namespace {

PhotoOutcome outcomeOf(const SolvedRecord& solved) {
    const ImageAnalysis& analysis = solved.record.analysis;
    PhotoOutcome outcome{.file = solved.record.file.value_or(""),
                         .preset = solved.plan.preset->name,
                         .rule = solved.plan.rule,
                         .sharedFaceUnit = solved.plan.faceUnit,
                         .output = {},
                         .solution = solved.solution,
                         .error = analysis.error};
    if (analysis.sourceWidth > 0) outcome.photoSize = analysis.sourceSize();
    return outcome;
}

}  // namespace

ExitCode runReviewList(const ReviewListArguments& list, const Arguments& common, Console& console) {
    const auto selection = PresetSelection::open(list.selection, common.dataFolder);
    const auto solved = selection.and_then(
        [&](const PresetSelection& chosen) { return solveRecords(list.records, chosen); });
    if (!solved) {
        console.failure(solved.error().message);
        return ExitCode::inputUnreadable;
    }
    std::vector<PhotoOutcome> outcomes;
    for (const SolvedRecord& each : *solved) outcomes.push_back(outcomeOf(each));
    std::cout << reviewList(outcomes);
    return ExitCode::done;
}

}  // namespace morva
