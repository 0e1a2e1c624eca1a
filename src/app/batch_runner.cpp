// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/batch_runner.h"

#include <algorithm>
#include <cassert>
#include <exception>
#include <mutex>
#include <utility>

#include <QThread>

namespace morva {

namespace {

constexpr int fewestAtOnce = 2;
constexpr int mostAtOnce = 6;

ImageAnalysis failed(const std::filesystem::path& file, const std::exception& error) {
    ImageAnalysis record;
    record.detectionFailed = true;
    record.error = "Could not analyse " + file.filename().string() + ": " + error.what() + ".";
    return record;
}

}  // namespace

struct BatchRunner::Run {
    explicit Run(CallbackQueue queue) : callbacks(std::move(queue)) {}

    const CallbackQueue callbacks;

    // Fixed once the run has begun.
    std::vector<std::filesystem::path> files;
    std::optional<AnalysisCache> cache;
    bool useCache = false;
    Analyze analyze;
    OnResult onResult;
    OnFinished onFinished;

    mutable std::mutex mutex;
    std::size_t begun = 0;
    int done = 0;
    int workers = 0;
    bool isRunning = false;
    bool wasCancelled = false;

    /// The runner is gone and nobody waits; belongs to the caller's thread.
    bool abandoned = false;

    std::optional<std::size_t> next();
    Analyzed analyzed(const std::filesystem::path& file) const;
    static void work(const std::shared_ptr<Run>& run);
    static void leave(const std::shared_ptr<Run>& run);
};

/// The photo to begin with now; none when the run is over.
std::optional<std::size_t> BatchRunner::Run::next() {
    const std::lock_guard lock(mutex);
    if (wasCancelled || begun == files.size()) return std::nullopt;
    return begun++;
}

BatchRunner::Analyzed BatchRunner::Run::analyzed(const std::filesystem::path& file) const {
    Analyzed photo;
    photo.file = file;
    photo.stamp = ImageLoader::fileSignature(file);
    try {
        if (auto stored = useCache ? cache->load(file) : std::nullopt) {
            photo.analysis = std::move(*stored);
            photo.fromCache = true;
            return photo;
        }
        photo.analysis = analyze(file);
        // A result that cannot be kept is a result all the same.
        if (photo.stamp && !photo.analysis.detectionFailed)
            static_cast<void>(cache->store(photo.analysis, file, *photo.stamp));
    } catch (const std::exception& error) {
        // Memory can run out on one photo; the batch goes on.
        photo.analysis = failed(file, error);
    }
    return photo;
}

void BatchRunner::Run::work(const std::shared_ptr<Run>& run) {
    while (const auto index = run->next()) {
        auto photo = std::make_shared<Analyzed>(run->analyzed(run->files[*index]));
        {
            const std::lock_guard lock(run->mutex);
            ++run->done;
        }
        run->callbacks([run, photo] {
            if (!run->abandoned) run->onResult(std::move(*photo));
        });
    }
    leave(run);
}

/// The last worker to leave has seen all results on their way.
void BatchRunner::Run::leave(const std::shared_ptr<Run>& run) {
    bool cancelled = false;
    {
        const std::lock_guard lock(run->mutex);
        if (--run->workers > 0) return;
        run->isRunning = false;
        cancelled = run->wasCancelled;
    }
    run->callbacks([run, count = run->done, cancelled] {
        if (!run->abandoned) run->onFinished(count, cancelled);
    });
}

int BatchRunner::defaultConcurrency(int cores) {
    return std::clamp(cores / 2, fewestAtOnce, mostAtOnce);
}

int BatchRunner::defaultConcurrency() { return defaultConcurrency(QThread::idealThreadCount()); }

BatchRunner::BatchRunner(int concurrency, CallbackQueue callbacks)
    : run_(std::make_shared<Run>(std::move(callbacks))), pool_(concurrency) {}

BatchRunner::~BatchRunner() {
    cancel();
    run_->abandoned = true;
}

void BatchRunner::analyze(std::vector<std::filesystem::path> files, AnalysisCache cache,
                          bool useCache, Analyze analyze, OnResult onResult,
                          OnFinished onFinished) {
    assert(!run_->onFinished && "a runner is good for one run");
    run_->files = std::move(files);
    run_->cache = std::move(cache);
    run_->useCache = useCache;
    run_->analyze = std::move(analyze);
    run_->onResult = std::move(onResult);
    run_->onFinished = std::move(onFinished);
    run_->workers = pool_.width();
    run_->isRunning = true;
    for (int i = 0; i < pool_.width(); ++i) pool_.start([run = run_] { Run::work(run); });
}

void BatchRunner::cancel() {
    const std::lock_guard lock(run_->mutex);
    run_->wasCancelled = true;
}

bool BatchRunner::isRunning() const {
    const std::lock_guard lock(run_->mutex);
    return run_->isRunning;
}

}  // namespace morva
