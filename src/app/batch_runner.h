// SPDX-License-Identifier: GPL-3.0-or-later
// Analyses a list of photos in parallel, from the cache where that still holds, and hands the
// results to its caller's thread as they come. One object per run; made by the crop run of the
// application and by the command line. Never touches the model and never writes but to the cache.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

#include "analysis/image_loader.h"
#include "analysis/record/image_analysis.h"
#include "app/callback_queue.h"
#include "app/worker_pool.h"
#include "model/jobs/analysis_cache.h"

namespace morva {

class BatchRunner {
public:
    /// One photo that is done. A photo that could not be read has an analysis that says so.
    struct Analyzed {
        std::filesystem::path file;
        ImageAnalysis analysis;
        bool fromCache = false;
        /// The file's state from before it was opened, so that a photo which changed meanwhile is
        /// seen to need another analysis; absent when the file could not be found.
        std::optional<FileSignature> stamp;
    };
    /// The analysis itself, called by several workers at once. May give nothing once the run is
    /// cancelled: such a photo is one that was not begun.
    using Analyze = std::function<std::optional<ImageAnalysis>(const std::filesystem::path&,
                                                               const std::stop_token&)>;
    using OnResult = std::function<void(Analyzed)>;
    /// The number of photos done, and whether the run was cancelled.
    using OnFinished = std::function<void(int count, bool cancelled)>;

    /// Half of `cores`, at least 2 and at most 6: an analysis keeps its core and its memory busy,
    /// and the person at the screen needs some too.
    static int defaultConcurrency(int cores);
    /// For this machine.
    static int defaultConcurrency();

    /// `concurrency` photos at once; results and the end arrive through `callbacks`.
    BatchRunner(int concurrency, CallbackQueue callbacks);
    /// Cancels and waits for the analyses that have begun; nothing is called any more. On any
    /// thread, so that nobody at a screen has to wait for a slow one.
    ~BatchRunner();
    BatchRunner(const BatchRunner&) = delete;
    BatchRunner& operator=(const BatchRunner&) = delete;

    /// Begins with `files` in their order and returns at once; to be called once. Fresh analyses
    /// go into the cache, also where it is not to be asked (`useCache` false); one that failed does
    /// not, for a disk that was gone may come back. `onFinished` is called exactly once, after the
    /// last result, with the number of results.
    void analyze(std::vector<std::filesystem::path> files, AnalysisCache cache, bool useCache,
                 Analyze analyze, OnResult onResult, OnFinished onFinished);

    /// Ends the run at once: results that are on their way arrive, then the end. Photos in hand are
    /// given up; one that is complete all the same is in the cache for the next run.
    void cancel();

    /// Whether workers are still busy, be it with giving up.
    bool isRunning() const;

private:
    struct Run;
    /// Shared with callbacks that are still queued when the runner is gone.
    std::shared_ptr<Run> run_;
    WorkerPool pool_;
};

}  // namespace morva
