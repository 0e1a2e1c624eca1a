// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/solve_command.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <sstream>

#include "base/files.h"
#include "base/json.h"
#include "cli/photo_outcome.h"
#include "cli/preset_selection.h"
#include "crop/crop_solver.h"

namespace morva {

namespace {

StoredRecord recordOf(const Json& json) {
    if (const auto analysis = json.find("analysis"); analysis != json.end()) {
        StoredRecord record{.file = {}, .camera = {}, .analysis = analysis->get<ImageAnalysis>()};
        readIfPresent(json, "file", record.file);
        if (record.file) record.camera = SubjectGrouping::cameraKey(*record.file);
        readIfPresent(json, "camera", record.camera);
        return record;
    }
    return {.file = {}, .camera = {}, .analysis = json.get<ImageAnalysis>()};
}

Result<std::string> readInput(const std::filesystem::path& file) {
    if (file == "-") return std::string(std::istreambuf_iterator<char>(std::cin), {});
    return readFile(file);
}

std::string solutionLine(const SolvedRecord& solved) {
    Json json;
    putOptional(json, "file", solved.record.file);
    json["preset"] = solved.plan.preset->name;
    putOptional(json, "rule", solved.plan.rule);
    putOptional(json, "sharedFaceUnit", solved.plan.faceUnit);
    json["status"] = solved.solution.status;
    json["solution"] = solved.solution;
    return jsonText(json);
}

Result<std::vector<StoredRecord>> readAll(const std::vector<std::filesystem::path>& files) {
    std::vector<StoredRecord> all;
    for (const std::filesystem::path& file : files) {
        auto records = readInput(file).and_then(
            [&](const std::string& text) { return readRecords(text, file.string()); });
        if (!records) return records;
        std::ranges::move(*records, std::back_inserter(all));
    }
    return all;
}

}  // namespace

Result<std::vector<StoredRecord>> readRecords(const std::string& text, const std::string& what) {
    std::size_t line = 0;
    try {
        if (Json::accept(text)) return std::vector{recordOf(Json::parse(text))};
        std::vector<StoredRecord> records;
        std::istringstream lines(text);
        for (std::string one; std::getline(lines, one);) {
            ++line;
            if (one.find_first_not_of(" \t\r") == std::string::npos) continue;
            records.push_back(recordOf(Json::parse(one)));
        }
        return records;
    } catch (const Json::exception& error) {
        return failure("Could not read the records in " + what +
                       (line > 0 ? ", line " + std::to_string(line) : "") + ": " + error.what());
    }
}

Result<std::vector<SolvedRecord>> solveRecords(const std::vector<std::filesystem::path>& files,
                                               const PresetSelection& selection) {
    auto records = readAll(files);
    if (!records) return tl::unexpected(records.error());
    std::vector<const ImageAnalysis*> analyses;
    std::vector<std::string> cameras;
    for (const StoredRecord& record : *records) {
        analyses.push_back(&record.analysis);
        cameras.push_back(record.camera);
    }
    std::vector<PhotoPlan> plans = selection.plan(analyses, cameras);
    std::vector<SolvedRecord> solved;
    for (std::size_t i = 0; i < plans.size(); ++i) {
        StoredRecord& record = records->at(i);
        CropSolution solution =
            CropSolver::solve(record.analysis, *plans[i].preset, plans[i].faceUnit);
        solved.push_back({std::move(record), std::move(plans[i]), std::move(solution)});
    }
    return solved;
}

ExitCode runSolve(const SolveArguments& solve, const Arguments& common, Console& console) {
    const auto selection = PresetSelection::open(solve.selection, common.dataFolder);
    const auto solved = selection.and_then(
        [&](const PresetSelection& chosen) { return solveRecords(solve.records, chosen); });
    if (!solved) {
        console.failure(solved.error().message);
        return ExitCode::inputUnreadable;
    }
    for (const SolvedRecord& each : *solved) std::cout << solutionLine(each) << '\n';
    return ExitCode::done;
}

}  // namespace morva
