// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "app/app_state.h"
#include "app/batch_runner.h"

namespace morva {

/// A crop run on its way: the job, and the results that wait to be merged into it.
struct AppState::CropRun {
    explicit CropRun(Uuid of) : job(std::move(of)) {}

    Uuid job;
    std::vector<BatchRunner::Analyzed> pending;
    /// How often results were merged.
    int merges = 0;
    /// Absent until it is known which photos need it. Last: its end waits for the workers.
    std::optional<BatchRunner> runner;
};

}  // namespace morva
