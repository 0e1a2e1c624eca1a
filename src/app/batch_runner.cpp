// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/batch_runner.h"

#include <algorithm>
#include <atomic>
#include <cassert>
#include <exception>
#include <mutex>
#include <stop_token>
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
    std::stop_source stop;
    /// The runner is gone and nobody waits.
    std::atomic<bool> isAbandoned{false};

    // Fixed once the run has begun.
    std::vector<std::filesystem::path> files;
    std::optional<AnalysisCache> cache;
    bool useCache = false;
    Analyze analyze;
    OnResult onResult;
    OnFinished onFinished;

    mutable std::mutex mutex;
    std::size_t begun = 0;
    int workers = 0;

    // Of the caller's thread.
    int told = 0;
    bool isOver = false;

    std::optional<std::size_t> next();
    std::optional<Analyzed> analyzed(const std::filesystem::path& file) const;
    std::optional<ImageAnalysis> measured(const Analyzed& photo) const;
    void tell(Analyzed photo);
    void end(bool cancelled);
    static void work(const std::shared_ptr<Run>& run);
};

/// The photo to begin with now; none when the run is over.
std::optional<std::size_t> BatchRunner::Run::next() {
    const std::lock_guard lock(mutex);
    if (stop.stop_requested() || begun == files.size()) return std::nullopt;
    return begun++;
}

std::optional<ImageAnalysis> BatchRunner::Run::measured(const Analyzed& photo) const {
    auto analysis = analyze(photo.file, stop.get_token());
    // A result that cannot be kept is a result all the same.
    if (analysis && photo.stamp && !analysis->detectionFailed)
        static_cast<void>(cache->store(*analysis, photo.file, *photo.stamp));
    return analysis;
}

/// Nothing for a photo that was given up.
std::optional<BatchRunner::Analyzed> BatchRunner::Run::analyzed(
    const std::filesystem::path& file) const {
    Analyzed photo;
    photo.file = file;
    photo.stamp = ImageLoader::fileSignature(file);
    try {
        auto analysis = useCache ? cache->load(file) : std::nullopt;
        photo.fromCache = analysis.has_value();
        if (!analysis) analysis = measured(photo);
        if (!analysis) return std::nullopt;
        photo.analysis = std::move(*analysis);
    } catch (const std::exception& error) {
        // Memory can run out on one photo; the batch goes on.
        photo.analysis = failed(file, error);
    }
    return photo;
}

void BatchRunner::Run::tell(Analyzed photo) {
    if (isAbandoned || isOver) return;
    ++told;
    onResult(std::move(photo));
}

void BatchRunner::Run::end(bool cancelled) {
    if (isAbandoned || std::exchange(isOver, true)) return;
    onFinished(told, cancelled);
}

void BatchRunner::Run::work(const std::shared_ptr<Run>& run) {
    while (const auto index = run->next()) {
        auto photo = run->analyzed(run->files[*index]);
        if (!photo) break;
        run->callbacks([run, done = std::make_shared<Analyzed>(std::move(*photo))] {
            run->tell(std::move(*done));
        });
    }
    const std::lock_guard lock(run->mutex);
    // The last worker to leave has seen all results on their way.
    if (--run->workers == 0)
        run->callbacks([run, cancelled = run->stop.stop_requested()] { run->end(cancelled); });
}

int BatchRunner::defaultConcurrency(int cores) {
    return std::clamp(cores / 2, fewestAtOnce, mostAtOnce);
}

int BatchRunner::defaultConcurrency() { return defaultConcurrency(QThread::idealThreadCount()); }

BatchRunner::BatchRunner(int concurrency, CallbackQueue callbacks)
    : run_(std::make_shared<Run>(std::move(callbacks))), pool_(concurrency) {}

BatchRunner::~BatchRunner() {
    run_->isAbandoned = true;
    run_->stop.request_stop();
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
    for (int i = 0; i < pool_.width(); ++i) pool_.start([run = run_] { Run::work(run); });
}

void BatchRunner::cancel() {
    run_->stop.request_stop();
    if (run_->onFinished) run_->callbacks([run = run_] { run->end(true); });
}

bool BatchRunner::isRunning() const {
    const std::lock_guard lock(run_->mutex);
    return run_->workers > 0;
}

}  // namespace morva
