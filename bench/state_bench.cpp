// SPDX-License-Identifier: GPL-3.0-or-later
// What large jobs cost: 10,000 analysed photos solved, copied, written, read and opened, and how
// long a crop run of 2,000 cached photos holds up the main thread. No photo is opened.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <QTimer>

#include "app/app_state.h"
#include "large_job.h"
#include "model/jobs/job_solver.h"
#include "model/jobs/job_store.h"
#include "model/presets/preset_library.h"

namespace morva {
namespace {

constexpr int photoCount = 10000;

void solvesAll(benchmark::State& state) {
    Job job = largeJob(photoCount);
    job.autoAssign = state.range(0) == 1;
    state.SetLabel(job.autoAssign ? "by rules" : "one preset");
    for (auto _ : state) JobSolver::solve(job, PresetLibrary::standardLibrary());
}
BENCHMARK(solvesAll)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);

void copies(benchmark::State& state) {
    Job job = largeJob(photoCount);
    JobSolver::solve(job, PresetLibrary::standardLibrary());
    for (auto _ : state) {
        Job copy = job;
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(copies)->Unit(benchmark::kMillisecond);

class Stored : public benchmark::Fixture {
public:
    void SetUp(const benchmark::State&) override { std::filesystem::create_directories(folder); }
    void TearDown(const benchmark::State&) override { std::filesystem::remove_all(folder); }

    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("morva-state-bench-" + Uuid::random().text());
    const JobStore store{folder};
};

BENCHMARK_DEFINE_F(Stored, saves)(benchmark::State& state) {
    const Job job = largeJob(photoCount);
    for (auto _ : state)
        if (!store.saveNow(job)) state.SkipWithError("not written");
    state.counters["MB"] =
        static_cast<double>(std::filesystem::file_size(store.fileURL(job.id))) / 1e6;
}
BENCHMARK_REGISTER_F(Stored, saves)->Unit(benchmark::kMillisecond);

BENCHMARK_DEFINE_F(Stored, loads)(benchmark::State& state) {
    if (!store.saveNow(largeJob(photoCount))) state.SkipWithError("not written");
    for (auto _ : state) {
        auto loaded = store.loadAll();
        if (loaded.jobs.size() != 1) state.SkipWithError("not read");
    }
}
BENCHMARK_REGISTER_F(Stored, loads)->Unit(benchmark::kMillisecond);

/// Everything that the program does before its first window, but for the window.
BENCHMARK_DEFINE_F(Stored, starts)(benchmark::State& state) {
    if (!store.saveNow(largeJob(photoCount))) state.SkipWithError("not written");
    for (auto _ : state) {
        AppServices services;
        services.folders = {folder, folder / "cache"};
        AppState app(services);
        app.start();
        if (app.jobs().size() != 1) state.SkipWithError("not started");
    }
}
BENCHMARK_REGISTER_F(Stored, starts)->Unit(benchmark::kMillisecond);

constexpr int cachedCount = 2000;

/// A beat every millisecond; a gap between two is time that a window could not have answered in.
class Heartbeat {
public:
    Heartbeat() {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.callOnTimeout([this] { beat(); });
        timer_.start(1);
    }

    /// Gaps up to 5, 20, 50 milliseconds and above, and the longest.
    void report(benchmark::State& state) const {
        const auto between = [&](double from, double to) {
            return static_cast<double>(
                std::ranges::count_if(gaps_, [&](double gap) { return gap > from && gap <= to; }));
        };
        state.counters["to5ms"] = between(0, 5);
        state.counters["to20ms"] = between(5, 20);
        state.counters["to50ms"] = between(20, 50);
        state.counters["above"] = between(50, 1e9);
        state.counters["longest"] = gaps_.empty() ? 0 : std::ranges::max(gaps_);
    }

private:
    using Clock = std::chrono::steady_clock;

    void beat() {
        const auto now = Clock::now();
        gaps_.push_back(std::chrono::duration<double, std::milli>(now - last_).count());
        last_ = now;
    }

    Clock::time_point last_ = Clock::now();
    std::vector<double> gaps_;
    QTimer timer_;
};

/// Folder and cache of a job that was measured before.
void writeMeasuredFolder(const std::filesystem::path& photos, const std::filesystem::path& cache) {
    std::filesystem::create_directories(photos);
    const Job job = largeJob(photoCount);
    const AnalysisCache stored(cache);
    for (int i = 0; i < cachedCount; ++i) {
        const auto photo = photos / ("IMG_" + std::to_string(i) + ".jpg");
        std::ofstream(photo) << i;
        static_cast<void>(stored.store(*job.items[static_cast<std::size_t>(i)].analysis, photo,
                                       *ImageLoader::fileSignature(photo)));
    }
}

void runToEnd(AppState& app) {
    while (app.isBusy())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

/// The job forgets its analyses before each run, so that all come from the cache again.
BENCHMARK_DEFINE_F(Stored, cropsCachedPhotos)(benchmark::State& state) {
    writeMeasuredFolder(folder / "photos", folder / "cache");
    AppServices services;
    services.folders = {folder / "data", folder / "cache"};
    services.prepare = [] { return Result<void>(); };
    services.analyze = [](const std::filesystem::path&, const std::stop_token&) {
        return ImageAnalysis();
    };
    AppState app(services);
    app.start();
    app.openFolder(folder / "photos");
    runToEnd(app);
    Heartbeat heartbeat;
    for (auto _ : state) {
        state.PauseTiming();
        WorkingJob& job = *app.editable(*app.selectedJobID());
        for (std::size_t i = 0; i < job.job().items.size(); ++i) job.itemToChange(i).analysis = {};
        state.ResumeTiming();
        app.analyzeCurrentJob();
        runToEnd(app);
    }
    heartbeat.report(state);
}
BENCHMARK_REGISTER_F(Stored, cropsCachedPhotos)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace morva

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
