// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/crop_batch.h"

#include <exception>

#include "analysis/analysis_pipeline.h"
#include "crop/crop_solver.h"
#include "imaging/decode.h"
#include "output/exporter.h"
#include "output/matte_cutter.h"
#include "output/overlay_renderer.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

constexpr double overlayQuality = 0.85;

/// Writes the crop of an outcome to its output.
Result<void> exportCrop(PhotoOutcome& outcome, const CropBatch& batch,
                        const ImageAnalysis& analysis, const CropPreset& preset) {
    Exporter::Request request{.sourceURL = outcome.file,
                              .destinationURL = *outcome.output,
                              .rect = outcome.solution->rect,
                              .rotationDegrees = outcome.solution->rotationDegrees,
                              .settings = preset.settingsForExport(),
                              .headAnchor = headAnchorOf(analysis),
                              .plates = batch.plates.get()};
    const bool replaces = preset.exportSettings.backdrop == BackdropMode::replace;
    const auto cutter = replaces ? batch.cutterFor(outcome.file, analysis) : nullptr;
    auto done = Exporter::exportPhoto(request, cutter.get());
    if (!done) return failure(done.error().message());
    outcome.fallbacks = std::move(done->fallbacks);
    return {};
}

Result<void> drawGuides(const fs::path& photo, const fs::path& destination,
                        const ImageAnalysis& analysis, const CropSolution& solution,
                        const CropPreset& preset) {
    std::error_code error;
    fs::create_directories(destination.parent_path(), error);
    if (error) return failure("Could not make " + destination.parent_path().string() + ".");
    constexpr int longestSide = AnalysisPipeline::analysisMaxPixel;
    return PhotoDecode::open(photo, longestSide).and_then([&](const PhotoDecode& decode) {
        const AnalysisImage loaded{.image = decode.whole(longestSide),
                                   .sourceSize = analysis.sourceSize()};
        return OverlayRenderer::writeJPEG(
            OverlayRenderer::render(loaded, analysis, solution, {}, preset), destination,
            overlayQuality);
    });
}

void finish(PhotoOutcome& outcome, const CropBatch& batch, const ImageAnalysis& analysis,
            const PhotoPlan& plan) {
    const fs::path& photo = outcome.file;
    outcome.solution = CropSolver::solve(analysis, *plan.preset, plan.faceUnit);
    outcome.fate = fateOf(*outcome.solution, batch.approve, batch.force);
    if (outcome.fate == Fate::fail) return;

    Result<void> done;
    if (outcome.fate == Fate::write) {
        outcome.output = batch.destinations.at(photo);
        if (!batch.dryRun) done = exportCrop(outcome, batch, analysis, *plan.preset);
        if (!done) outcome.output.reset();
    }
    if (done && !batch.dryRun && !batch.overlays.empty())
        done =
            drawGuides(photo, batch.overlays.at(photo), analysis, *outcome.solution, *plan.preset);
    if (!done) {
        outcome.fate = Fate::fail;
        outcome.error = done.error().message;
    }
}

}  // namespace

PhotoOutcome CropBatch::crop(std::size_t index, const ImageAnalysis& analysis,
                             const PhotoPlan& plan) const {
    PhotoOutcome outcome{.file = photos[index],
                         .preset = plan.preset->name,
                         .rule = plan.rule,
                         .sharedFaceUnit = plan.faceUnit,
                         .output = {},
                         .solution = {},
                         .error = analysis.error};
    if (analysis.sourceWidth > 0) outcome.photoSize = analysis.sourceSize();
    try {
        finish(outcome, *this, analysis, plan);
    } catch (const std::exception& error) {
        // Memory can run out on one photo; the batch goes on.
        outcome.fate = Fate::fail;
        outcome.output.reset();
        outcome.error =
            "Could not crop " + outcome.file.filename().string() + ": " + error.what() + ".";
    }
    return outcome;
}

}  // namespace morva
