// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/solve_command.h"

#include <iostream>
#include <iterator>
#include <sstream>

#include "base/files.h"
#include "base/json.h"
#include "cli/photo_outcome.h"
#include "cli/preset_catalog.h"
#include "crop/crop_solver.h"

namespace morva {

namespace {

StoredRecord recordOf(const Json& json) {
    if (const auto analysis = json.find("analysis"); analysis != json.end()) {
        StoredRecord record{.file = {}, .analysis = analysis->get<ImageAnalysis>()};
        readIfPresent(json, "file", record.file);
        return record;
    }
    return {.file = {}, .analysis = json.get<ImageAnalysis>()};
}

Result<std::string> readInput(const std::filesystem::path& file) {
    if (file == "-") return std::string(std::istreambuf_iterator<char>(std::cin), {});
    return readFile(file);
}

std::string solutionLine(const StoredRecord& record, const CropPreset& preset) {
    const CropSolution solution = CropSolver::solve(record.analysis, preset);
    Json json;
    putOptional(json, "file", record.file);
    json["preset"] = preset.name;
    json["status"] = solution.status;
    json["solution"] = solution;
    return jsonLine(json);
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
    const auto preset = PresetCatalog::open(common.dataFolder).and_then([&](const auto& all) {
        return all.find(solve.preset);
    });
    if (!preset) {
        console.failure(preset.error().message);
        return ExitCode::inputUnreadable;
    }
    for (const std::filesystem::path& file : solve.records) {
        const auto records = readInput(file).and_then(
            [&](const std::string& text) { return readRecords(text, file.string()); });
        if (!records) {
            console.failure(records.error().message);
            return ExitCode::inputUnreadable;
        }
        for (const StoredRecord& record : *records)
            std::cout << solutionLine(record, *preset) << '\n';
    }
    return ExitCode::done;
}

}  // namespace morva
