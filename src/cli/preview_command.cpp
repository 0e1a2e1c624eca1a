// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/preview_command.h"

#include <utility>

#include "cli/analyzed_photo.h"
#include "cli/backdrop_wish.h"
#include "cli/preset_selection.h"
#include "crop/crop_solver.h"
#include "output/crop_renderer.h"
#include "output/exporter.h"
#include "output/matte_cutter.h"
#include "output/overlay_renderer.h"

namespace morva {

namespace {

constexpr double previewQuality = 0.9;

Result<PresetSelection> selectionFor(const PreviewArguments& preview, const Arguments& common,
                                     Console& console) {
    SelectionArguments wanted;
    wanted.preset = preview.preset;
    auto selection = PresetSelection::open(wanted, common.dataFolder);
    if (!selection || !preview.backdrop) return selection;
    const auto wish = BackdropWish::parse(*preview.backdrop);
    if (!wish) return tl::unexpected(wish.error());
    const auto told = wish->apply(*selection, common.dataFolder);
    if (!told) return tl::unexpected(told.error());
    for (const std::string& sentence : *told) console.say(sentence);
    return selection;
}

Result<RenderedCrop> drawn(const PreviewArguments& preview, const Arguments& common,
                           Console& console) {
    const auto selection = selectionFor(preview, common, console);
    if (!selection) return tl::unexpected(selection.error());
    const CropPreset& preset = *selection->inUse().front();
    const auto vision = openDetectors(common);
    if (!vision) return tl::unexpected(vision.error());
    const ImageAnalysis analysis = AnalyzedPhoto::of(preview.photo, *vision).analysis;
    const CropSolution solution = CropSolver::solve(analysis, preset, {});
    if (solution.status == CropStatus::failed)
        return failure(preview.photo.string() + ": " +
                       analysis.error.value_or("There is no crop."));
    const MatteCutter cutter(preview.photo, analysis.faces, *vision);
    return CropRenderer::preview(preview.photo, analysis.sourceSize(), solution.rotationDegrees,
                                 {.rect = solution.rect,
                                  .geometry = {},
                                  .settings = preset.exportSettings,
                                  .headAnchor = headAnchorOf(analysis),
                                  .cutter = &cutter},
                                 preview.height);
}

}  // namespace

ExitCode runPreview(const PreviewArguments& preview, const Arguments& common, Console& console) {
    if (Exporter::canonicalPath(preview.out) == Exporter::canonicalPath(preview.photo)) {
        console.failure("The preview needs a file of its own (--out).");
        return ExitCode::outputUnwritable;
    }
    const auto crop = drawn(preview, common, console);
    if (!crop) {
        console.failure(crop.error().message);
        return ExitCode::inputUnreadable;
    }
    for (const ExportFallback fallback : crop->fallbacks) console.say(title(fallback));
    const auto written =
        preview.out.extension() == ".png"
            ? OverlayRenderer::writePNG(crop->picture, preview.out)
            : OverlayRenderer::writeJPEG(crop->picture, preview.out, previewQuality);
    if (!written) {
        console.failure(written.error().message);
        return ExitCode::outputUnwritable;
    }
    return ExitCode::done;
}

}  // namespace morva
