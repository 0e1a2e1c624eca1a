// SPDX-License-Identifier: GPL-3.0-or-later
// Records from files that anybody may have written: they are read or refused, and what is read can
// be kept and solved with every built-in preset.
#include <cmath>

#include "analysis/record/image_analysis.h"
#include "crop/crop_solver.h"
#include "json_round_trip.h"
#include "model/presets/preset_library.h"

namespace {

using namespace morva;

void solve(const ImageAnalysis& record, const CropPreset& preset) {
    for (const std::optional<double> sharedUnit : {std::optional<double>(), {300.0}}) {
        const CropSolution solution = CropSolver::solve(record, preset, sharedUnit);
        const ManualAdjustment adjustment{.dx = 0.1, .dy = -0.1, .scale = 1.2, .rotation = 3};
        CropSolver::adjusted(record, preset, solution, adjustment);
        CropSolver::shortfall(CropSolver::finalRect(solution, adjustment, record.sourceSize()),
                              CropSolver::finalRotation(solution, adjustment), record.sourceSize());
        if (!(solution.confidence >= 0 && solution.confidence <= 1)) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto record = decoded<ImageAnalysis>(textOf(data, size), "a record");
    if (!record) return 0;
    expectRoundTrip(*record);
    for (const CropPreset& preset : PresetLibrary::standardLibrary()) solve(*record, preset);
    return 0;
}
