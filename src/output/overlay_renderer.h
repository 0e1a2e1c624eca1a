// SPDX-License-Identifier: GPL-3.0-or-later
// Draws a photo's crop and what it was placed by over the photo, for checking by eye. Called by the
// command line and by the accuracy tools; changes neither the photo nor the records.
#pragma once

#include <filesystem>

#include "analysis/analysis_image.h"
#include "analysis/record/image_analysis.h"
#include "base/result.h"
#include "crop/crop_solution.h"
#include "crop/manual_adjustment.h"
#include "model/presets/crop_preset.h"

namespace morva::OverlayRenderer {

/// A copy of `loaded` with the final crop as an outline (its right corners, turned with it), the
/// line in the crop that the preset places the eyes or the head top on, and of every face the eye
/// line, eye midpoint and chin; of the main one also the top of the head.
Picture render(const AnalysisImage& loaded, const ImageAnalysis& analysis,
               const CropSolution& solution, const ManualAdjustment& adjustment,
               const CropPreset& preset);

/// Both replace `file` once the new one is complete; the folder must exist. `quality` from 0 to 1.
Result<void> writePNG(const Picture& image, const std::filesystem::path& file);
Result<void> writeJPEG(const Picture& image, const std::filesystem::path& file, double quality);

}  // namespace morva::OverlayRenderer
