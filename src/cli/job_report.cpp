// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/job_report.h"

#include <algorithm>
#include <vector>

#include "base/text_case.h"
#include "cli/preset_catalog.h"
#include "model/presets/preset_library.h"
#include "output/export_paths.h"

namespace morva::JobReport {

namespace {

/// Stands for the choice by rules.
constexpr const char* automatic = "auto";

std::string presetName(const AppState& state, const WorkingJob& job, std::size_t index) {
    const CropPreset* preset = state.preset(job.solvedWith(index).presetID);
    return preset ? preset->name : std::string();
}

}  // namespace

Result<Uuid> named(const AppState& state, const std::string& text) {
    std::vector<Uuid> found;
    for (const auto& job : state.jobs()) {
        const bool isFolder =
            text.find('/') != std::string::npos &&
            Exporter::canonicalPath(text) == Exporter::canonicalPath(job->job().folderURL);
        if (isFolder || equalIgnoringCase(job->id().text(), text) ||
            equalIgnoringCase(job->job().name, text))
            found.push_back(job->id());
    }
    if (found.size() == 1) return found.front();
    if (found.empty()) return failure("There is no job \"" + text + "\"; see \"job list\".");
    return failure("There is more than one job \"" + text +
                   "\"; give the identity or the folder that \"job list --json\" shows.");
}

Result<Uuid> presetNamed(const AppState& state, const std::string& text) {
    if (equalIgnoringCase(text, automatic)) return PresetLibrary::autoPresetID();
    return PresetCatalog::open(state.services().folders.data)
        .and_then([&](const PresetCatalog& catalog) { return catalog.find(text); })
        .and_then([&](const CropPreset& preset) -> Result<Uuid> {
            if (state.preset(preset.id)) return preset.id;
            return failure("A job needs a preset of the library; " + preset.name +
                           " is not there.");
        });
}

std::optional<std::size_t> photoNamed(const WorkingJob& job, const std::string& text) {
    if (const auto index = job.indexOfFile(Exporter::standardized(text))) return index;
    if (const auto index = job.indexOfFile(job.job().folderURL / text)) return index;
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < job.job().items.size(); ++i) {
        if (job.item(i).url.filename() != text) continue;
        if (found) return std::nullopt;
        found = i;
    }
    return found;
}

Json json(const WorkingJob& job) {
    return {{"id", job.id()},
            {"name", job.job().name},
            {"folder", job.job().folderURL.string()},
            {"photos", job.job().items.size()},
            {"pending", job.count(ItemStatus::pending)},
            {"ready", job.count(ItemStatus::ready)},
            {"review", job.count(ItemStatus::review)},
            {"approved", job.count(ItemStatus::approved)},
            {"failed", job.count(StatusFilter::failed)}};
}

std::string line(const WorkingJob& job) {
    const std::size_t photos = job.job().items.size();
    std::string text =
        job.job().name + ": " + std::to_string(photos) + (photos == 1 ? " photo" : " photos");
    const auto add = [&](int count, const char* what) {
        if (count > 0) text += ", " + std::to_string(count) + " " + what;
    };
    add(job.count(ItemStatus::pending), "not cropped yet");
    add(job.count(ItemStatus::ready), "ready");
    add(job.count(ItemStatus::review), "in review");
    add(job.count(ItemStatus::approved), "approved");
    add(job.count(StatusFilter::failed), "failed");
    return text;
}

Json photoJson(const AppState& state, const WorkingJob& job, std::size_t index) {
    const ImageItem& item = job.item(index);
    Json json{{"file", item.relativePath.string()},
              {"status", label(job.status(index))},
              {"preset", presetName(state, job, index)},
              {"approved", item.approved},
              {"reasons", job.reasons(index)}};
    if (item.analysis) putOptional(json, "error", item.analysis->error);
    return json;
}

std::string photoLine(const AppState& state, const WorkingJob& job, std::size_t index) {
    std::string text = job.item(index).relativePath.string() + ": ";
    text += label(job.status(index));
    return text + ", " + presetName(state, job, index);
}

Json exportJson(const ExportReport::Row& row) {
    if (row.skipped) return {{"file", row.file}, {"preset", row.preset}, {"skipped", *row.skipped}};
    return {{"file", row.file},
            {"preset", row.preset},
            {"status", row.status},
            {"reasons", row.reasons}};
}

std::string exportLine(const ExportReport::Row& row) {
    return row.file + ": " + (row.skipped ? "skipped, " + *row.skipped : "written, " + row.preset);
}

}  // namespace morva::JobReport
