// SPDX-License-Identifier: GPL-3.0-or-later
// What re-cropping a batch costs: solving and adjusting from stored analyses, no pixels. Times are
// per photo, over a spread of photos that takes every framing, fallback and retry.
#include <vector>

#include <benchmark/benchmark.h>

#include "crop/crop_solver.h"
#include "crop/synthetic_portrait.h"
#include "model/presets/preset_library.h"

namespace morva {
namespace {

/// Children across the frame, near and far, upright and tilted, with and without props, joints and
/// hair; a fifth need a retry where no backdrop fills in.
std::vector<ImageAnalysis> batch() {
    std::vector<ImageAnalysis> photos;
    for (const double size : {0.5, 0.8, 1.1}) {
        for (const double aside : {-1600.0, -500.0, 0.0, 1300.0}) {
            for (const double tilt : {-6.0, -1.0, 0.0, 2.5}) {
                ImageAnalysis photo = Synthetic::transformed(Synthetic::portrait(), [&](Point p) {
                    return (p - Point{2000, 1800}).scaled(size, size) + Point{2000 + aside, 900};
                });
                photo = Synthetic::turnedBy(photo, tilt);
                if (photos.size() % 2 == 0)
                    photo = Synthetic::holding(photo, {1300 + aside, 600, 1500, 3800});
                if (photos.size() % 5 == 0) photo.headContent.reset();
                if (photos.size() % 7 == 0) photo.body.reset();
                if (photos.size() % 3 == 0) photo.edgeContact = EdgeContact{.bottom = true};
                photos.push_back(std::move(photo));
            }
        }
    }
    return photos;
}

void solveAndAdjust(benchmark::State& state, const CropPreset& preset) {
    const std::vector<ImageAnalysis> photos = batch();
    const ManualAdjustment nudge{.dx = 0.01, .dy = -0.02, .scale = 1.05, .rotation = 0.5};
    std::size_t next = 0;
    std::size_t retried = 0;
    for (const ImageAnalysis& photo : photos)
        retried += CropSolver::solveOnce(photo, preset).has(ReviewReason::needsMoreCanvas);
    for (auto _ : state) {
        const ImageAnalysis& photo = photos[next];
        next = (next + 1) % photos.size();
        const CropSolution solution = CropSolver::solve(photo, preset);
        Rect rect = CropSolver::finalRect(solution, nudge, photo.sourceSize());
        benchmark::DoNotOptimize(rect);
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["retried"] = static_cast<double>(retried) / static_cast<double>(photos.size());
}

void solvesStandardPreset(benchmark::State& state) {
    const auto& preset = PresetLibrary::standardLibrary()[static_cast<std::size_t>(state.range(0))];
    state.SetLabel(preset.name);
    solveAndAdjust(state, preset);
}
BENCHMARK(solvesStandardPreset)->DenseRange(0, 3);

/// The costliest case: grey outside the frame, so that every overhang goes through the retries.
void solvesWithoutBackdrop(benchmark::State& state) {
    CropPreset preset = PresetLibrary::standardLibrary().front();
    preset.exportSettings.backdrop = BackdropMode::keep;
    solveAndAdjust(state, preset);
}
BENCHMARK(solvesWithoutBackdrop);

}  // namespace
}  // namespace morva

BENCHMARK_MAIN();
