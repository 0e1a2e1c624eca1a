// SPDX-License-Identifier: GPL-3.0-or-later
// What the application state needs of the world: folders, the measuring of photos, time. Passed in,
// so that its flows are tested without models; the real ones load their models when first used.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

#include <tl/expected.hpp>

#include "analysis/record/image_analysis.h"
#include "app/batch_runner.h"
#include "app/save_queue.h"
#include "base/files.h"
#include "base/result.h"
#include "model/presets/reference_geometry.h"
#include "output/cut_out.h"

namespace morva {

/// All functions are called on worker threads, several at once.
struct AppServices {
    using Path = std::filesystem::path;

    Folders folders;
    /// Makes `analyze` ready; fails with a sentence when photos cannot be measured on this machine.
    std::function<Result<void>()> prepare;
    BatchRunner::Analyze analyze;
    /// The numbers that taught poses are recognised by.
    std::function<Result<std::vector<float>>(const Path&)> featurePrint;
    /// Fails with the sentence for the user.
    std::function<Result<ReferenceGeometry>(const Path&)> measureReference;
    /// Cuts the child out of an analysed photo; fails soon once the run is cancelled.
    std::function<std::unique_ptr<ChildCutter>(const Path&, const ImageAnalysis&,
                                               const std::stop_token&)>
        cutterFor;
    /// The poses in the data folder are others.
    std::function<void()> posesChanged;

    SaveQueue::Delays saveDelays = {};
    /// Between two merges of results.
    std::chrono::milliseconds flushInterval{250};
    int concurrency = BatchRunner::defaultConcurrency();

    /// The real ones.
    static AppServices real(const Folders& folders);
};

}  // namespace morva
