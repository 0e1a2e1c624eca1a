// SPDX-License-Identifier: GPL-3.0-or-later
// The small values of the application's state: what is shown, how far a task is, what is told.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "base/uuid.h"
#include "model/jobs/image_item.h"

namespace morva {

/// The time as records keep it: seconds since 1970.
double secondsNow();

/// Which photos of a job are shown.
enum class StatusFilter { all, ready, review, approved, failed, adjusted };

/// What a person reads for it, "All photos".
std::string_view label(StatusFilter filter);
/// `failed` takes photos without a face and unreadable ones; `adjusted` those adjusted by hand,
/// whatever their status.
bool matches(StatusFilter filter, ItemStatus status, bool hasAdjustment);

/// All photos of a job, or one of them large.
enum class ViewMode { grid, inspect };

/// The page of the right panel.
enum class RightTab { preset, photo };

/// How far the running task is.
struct ProcessingProgress {
    std::string title;
    int completed = 0;
    /// 0 while it is not known.
    int total = 0;
    std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
};

/// Something that a person must be told.
struct AlertInfo {
    Uuid id = Uuid::random();
    std::string title;
    /// One sentence, more where several things are to be told.
    std::string message;
};

}  // namespace morva
