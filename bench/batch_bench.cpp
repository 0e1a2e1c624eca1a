// SPDX-License-Identifier: GPL-3.0-or-later
// What a crop run over a folder costs when every photo is known: lookups in the cache and results
// handed to the main thread, no pixels.
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "app/batch_runner.h"
#include "base/uuid.h"
#include "crop/synthetic_portrait.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

void takesPhotosFromTheCache(benchmark::State& state) {
    const fs::path folder = fs::temp_directory_path() / ("morva-batch-" + Uuid::random().text());
    fs::create_directories(folder);
    const AnalysisCache cache(folder);
    std::vector<fs::path> files;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        files.push_back(folder / (std::to_string(i) + ".jpg"));
        std::ofstream(files.back()) << i;
        if (!cache.store(Synthetic::portrait(), files.back(),
                         *ImageLoader::fileSignature(files.back())))
            std::abort();
    }
    for (auto _ : state) {
        CallbackLoop loop;
        bool ended = false;
        int known = 0;
        BatchRunner runner(BatchRunner::defaultConcurrency(), loop.queue());
        runner.analyze(
            files, cache, true,
            [](const fs::path&, const std::stop_token&) { return ImageAnalysis(); },
            [&](const BatchRunner::Analyzed& photo) { known += photo.fromCache; },
            [&](int, bool) { ended = true; });
        while (!ended) loop.runNext(std::chrono::milliseconds(100));
        if (known != state.range(0)) std::abort();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    fs::remove_all(folder);
}
BENCHMARK(takesPhotosFromTheCache)->Arg(2000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace morva

BENCHMARK_MAIN();
