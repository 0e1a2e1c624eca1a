// SPDX-License-Identifier: GPL-3.0-or-later
// What a large job costs: 10,000 analysed photos, solved, copied, written and read, without a
// photo.
#include <filesystem>

#include <benchmark/benchmark.h>

#include "base/file_url.h"
#include "crop/crop_rules.h"
#include "crop/synthetic_portrait.h"
#include "model/jobs/job_solver.h"
#include "model/jobs/job_store.h"
#include "model/presets/preset_library.h"

namespace morva {
namespace {

constexpr int photoCount = 10000;

/// Three frames a child, a child a minute, with all that a real record holds.
Job largeJob() {
    Job job;
    job.name = "School";
    job.folderURL = "/home/photographer/pictures/school";
    job.presetID = PresetLibrary::headshotID();
    job.rules = CropRules::defaults(PresetLibrary::standardLibrary());
    for (int i = 0; i < photoCount; ++i) {
        ImageItem item;
        item.relativePath =
            "class " + std::to_string(i / 30) + "/IMG_" + std::to_string(i) + ".jpg";
        item.url = job.folderURL / item.relativePath;
        item.id = fileURL(item.relativePath);
        const Point shift{i % 17 * 3.123456789, i % 13 * 2.123456789};
        item.analysis = Synthetic::holding(Synthetic::movedBy(Synthetic::portrait(), shift),
                                           {1300.123456, 600.2345678, 1500.3456, 3800.4567});
        item.analysis->backdropColor = {0.1234567891, 0.2345678912, 0.3456789123};
        item.analysis->edgeContact = EdgeContact{.bottom = true};
        item.analysis->rating = i % 11 == 0 ? 4 : 0;
        item.analysis->captureTime = 1.7e9 + i / 3 * 60 + i % 3 * 4;
        item.analysis->analysisSeconds = 0.123456789;
        item.analyzedStamp = FileStamp{1.7e9 + i + 0.123456, 8000000 + i};
        item.approved = i % 2 == 0;
        if (item.approved) item.approvedRect = Rect{100.5 + i, 200.25, 1600.125, 2000.0625};
        job.items.push_back(std::move(item));
    }
    return job;
}

void solvesAll(benchmark::State& state) {
    Job job = largeJob();
    job.autoAssign = state.range(0) == 1;
    state.SetLabel(job.autoAssign ? "by rules" : "one preset");
    for (auto _ : state) JobSolver::solve(job, PresetLibrary::standardLibrary());
}
BENCHMARK(solvesAll)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);

void copies(benchmark::State& state) {
    Job job = largeJob();
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
    const Job job = largeJob();
    for (auto _ : state)
        if (!store.saveNow(job)) state.SkipWithError("not written");
    state.counters["MB"] =
        static_cast<double>(std::filesystem::file_size(store.fileURL(job.id))) / 1e6;
}
BENCHMARK_REGISTER_F(Stored, saves)->Unit(benchmark::kMillisecond);

BENCHMARK_DEFINE_F(Stored, loads)(benchmark::State& state) {
    if (!store.saveNow(largeJob())) state.SkipWithError("not written");
    for (auto _ : state) {
        auto loaded = store.loadAll();
        if (loaded.jobs.size() != 1) state.SkipWithError("not read");
    }
}
BENCHMARK_REGISTER_F(Stored, loads)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace morva

BENCHMARK_MAIN();
