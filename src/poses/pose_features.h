// SPDX-License-Identifier: GPL-3.0-or-later
// What taught poses are recognised by: the feature print of a photo's centre, and what was measured
// on the child. Called by the analysis, and wherever a pose is taught; never looks at models.
#pragma once

#include <vector>

#include "analysis/record/image_analysis.h"
#include "base/result.h"
#include "vision/feature_printer.h"

namespace morva::PoseFeatures {

/// Rises with that of the feature printer and with the measurements: models remember the revision
/// they were taught with and are worthless with any other.
inline constexpr int revision = 4;

/// The print of the upright `image` without the outer fifth on each side, so that neighbours at the
/// frame's edge do not sway the pose. Fails when there is no print.
Result<std::vector<float>> print(const FeaturePrinter& printer, const Picture& image);

/// The features of a photo: its print, and behind it the measurements of its record, always as
/// many. Stars, labels and tags of the record play no part.
std::vector<float> of(std::vector<float> print, const ImageAnalysis& record);

}  // namespace morva::PoseFeatures
