// SPDX-License-Identifier: GPL-3.0-or-later
// How the job commands find jobs and photos by what was typed, and how they print them. Reads the
// application state; changes nothing.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "app/app_state.h"
#include "base/json.h"
#include "output/export_report.h"

namespace morva::JobReport {

/// A job by its identity, its name in any case of letters, or its folder. Fails with a sentence
/// when there is none or more than one.
Result<Uuid> named(const AppState& state, const std::string& text);
/// A preset of the library as `PresetCatalog::find` takes it, or "auto" for the rules.
Result<Uuid> presetNamed(const AppState& state, const std::string& text);
/// A photo by its path below the job's folder, its path, or its file name where that is unique.
std::optional<std::size_t> photoNamed(const WorkingJob& job, const std::string& text);

/// {"id", "name", "folder", "photos", "pending", "ready", "review", "approved", "failed"}.
Json json(const WorkingJob& job);
/// "3b: 60 photos, 50 ready, 8 in review, 2 failed".
std::string line(const WorkingJob& job);

/// {"file", "status", "preset", "approved", "reasons", "error"}; absent ones are left out.
Json photoJson(const AppState& state, const WorkingJob& job, std::size_t index);
/// "class b/IMG_1.jpg: Ready, Headshot 4x5".
std::string photoLine(const AppState& state, const WorkingJob& job, std::size_t index);

/// {"file", "preset", "status", "reasons"}, or {"file", "preset", "skipped"}.
Json exportJson(const ExportReport::Row& row);
std::string exportLine(const ExportReport::Row& row);

}  // namespace morva::JobReport
