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

std::string solutionLine(const StoredRecord& record, const PhotoPlan& plan) {
    const CropSolution solution = CropSolver::solve(record.analysis, *plan.preset, plan.faceUnit);
    Json json;
    putOptional(json, "file", record.file);
    json["preset"] = plan.preset->name;
    putOptional(json, "rule", plan.rule);
    putOptional(json, "sharedFaceUnit", plan.faceUnit);
    json["status"] = solution.status;
    json["solution"] = solution;
    return jsonLine(json);
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

ExitCode runSolve(const SolveArguments& solve, const Arguments& common, Console& console) {
    const auto selection = PresetSelection::open(solve.selection, common.dataFolder);
    const auto records = readAll(solve.records);
    for (const auto& problem : {selection ? std::nullopt : std::optional(selection.error()),
                                records ? std::nullopt : std::optional(records.error())}) {
        if (!problem) continue;
        console.failure(problem->message);
        return ExitCode::inputUnreadable;
    }
    std::vector<const ImageAnalysis*> analyses;
    std::vector<std::string> cameras;
    for (const StoredRecord& record : *records) {
        analyses.push_back(&record.analysis);
        cameras.push_back(record.camera);
    }
    const std::vector<PhotoPlan> plans = selection->plan(analyses, cameras);
    for (std::size_t i = 0; i < plans.size(); ++i)
        std::cout << solutionLine(records->at(i), plans[i]) << '\n';
    return ExitCode::done;
}

}  // namespace morva
