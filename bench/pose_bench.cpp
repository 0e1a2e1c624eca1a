// SPDX-License-Identifier: GPL-3.0-or-later
// What teaching a pose costs: training at the features' real length, from few photos to a whole
// job. Made prints: what photos have in common makes a few directions long, as in real prints.
#include <cstddef>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "poses/pose_features.h"
#include "poses/pose_trainer.h"

namespace morva {
namespace {

/// Of the print alone.
constexpr std::size_t printLength = 384;
const std::size_t featureCount = printLength + PoseFeatures::of({}, {}).size();
constexpr std::size_t commonDirections = 24;

class PrintMaker {
public:
    PrintMaker() {
        for (auto& direction : directions_)
            for (float& value : direction) value = 0.05F * normal_(random_);
    }

    PoseTrainer::Prints prints(std::size_t count, float poseShift) {
        PoseTrainer::Prints made;
        for (std::size_t i = 0; i < count; ++i) {
            std::vector<float> print(featureCount);
            for (float& value : print) value = 0.02F * normal_(random_);
            for (std::size_t d = 0; d < commonDirections; ++d) {
                const float amount = normal_(random_) + (d == 3 ? poseShift : 0);
                for (std::size_t k = 0; k < featureCount; ++k)
                    print[k] += amount * directions_[d][k];
            }
            made.push_back(std::move(print));
        }
        return made;
    }

private:
    std::mt19937 random_{1};
    std::normal_distribution<float> normal_;
    std::vector<std::vector<float>> directions_{commonDirections, std::vector<float>(featureCount)};
};

void teachesAPose(benchmark::State& state) {
    PrintMaker maker;
    const auto positives = maker.prints(static_cast<std::size_t>(state.range(0)), 2);
    const auto negatives = maker.prints(static_cast<std::size_t>(state.range(1)), 0);
    double f1 = 0;
    for (auto _ : state) {
        const auto learned = PoseTrainer::train("pose", positives, negatives, {}, {}, 0);
        if (!learned) {
            state.SkipWithError(learned.error().message().c_str());
            return;
        }
        const auto& report = learned->report;
        f1 = 2 * report.precision * report.recall / (report.precision + report.recall);
    }
    state.counters["f1"] = f1;
}

BENCHMARK(teachesAPose)
    ->ArgNames({"examples", "others"})
    ->Args({6, 60})
    ->Args({60, 400})
    ->Args({200, 2000})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace morva

BENCHMARK_MAIN();
