// SPDX-License-Identifier: GPL-3.0-or-later
// The program without a display: arguments in, one command run, its exit code out.
#include <exception>
#include <iostream>
#include <variant>

#include "cli/analyze_command.h"
#include "cli/arguments.h"
#include "cli/backdrops_command.h"
#include "cli/console.h"
#include "cli/crop_command.h"
#include "cli/job_command.h"
#include "cli/merge_reports_command.h"
#include "cli/poses_command.h"
#include "cli/presets_command.h"
#include "cli/preview_command.h"
#include "cli/reference_command.h"
#include "cli/review_list_command.h"
#include "cli/rules_command.h"
#include "cli/solve_command.h"

namespace morva {

namespace {

struct Run {
    const Arguments& common;
    Console& console;

    ExitCode operator()(const CropArguments& crop) { return runCrop(crop, common, console); }
    ExitCode operator()(const MergeReportsArguments& merge) {
        return runMergeReports(merge, console);
    }
    ExitCode operator()(const AnalyzeArguments& analyze) {
        return runAnalyze(analyze, common, console);
    }
    ExitCode operator()(const SolveArguments& solve) { return runSolve(solve, common, console); }
    ExitCode operator()(const PresetsArguments& presets) {
        return runPresets(presets, common, console);
    }
    ExitCode operator()(const RulesArguments& rules) { return runRules(rules, common, console); }
    ExitCode operator()(const ReferenceArguments& reference) {
        return runReference(reference, common, console);
    }
    ExitCode operator()(const ReviewListArguments& list) {
        return runReviewList(list, common, console);
    }
    ExitCode operator()(const PreviewArguments& preview) {
        return runPreview(preview, common, console);
    }
    ExitCode operator()(const JobArguments& job) { return runJob(job, common, console); }
    ExitCode operator()(const PosesArguments& poses) { return runPoses(poses, common, console); }
    ExitCode operator()(const BackdropsArguments& backdrops) {
        return runBackdrops(backdrops, common, console);
    }
};

ExitCode run(int argc, const char* const* argv) {
    const auto arguments = parseArguments(argc, argv);
    if (!arguments) {
        const EarlyEnd& end = arguments.error();
        (end.code == ExitCode::done ? std::cout : std::cerr) << end.text;
        return end.code;
    }
    Console console(arguments->verbosity);
    return std::visit(Run{*arguments, console}, arguments->command);
}

}  // namespace

}  // namespace morva

int main(int argc, char** argv) {
    try {
        return static_cast<int>(morva::run(argc, argv));
    } catch (const std::exception& error) {
        std::cerr << "morva-cli cannot go on: " << error.what() << '\n';
        return static_cast<int>(morva::ExitCode::photosFailed);
    }
}
