// SPDX-License-Identifier: GPL-3.0-or-later
// Why a photo needs a look, one sentence for each reason with the figures that it was found by.
// The figures are the engine's own; nothing is measured here.
#pragma once

#include <optional>

#include <QString>

#include "crop/crop_solver.h"
#include "model/jobs/image_item.h"
#include "model/presets/crop_preset.h"

namespace morva::ReasonWords {

/// What the sentences speak of. `item` has an analysis; a photo without a face has no `crop`.
struct Subject {
    const ImageItem& item;
    const CropPreset& preset;
    std::optional<CropSolver::AdjustedCrop> crop = {};
    /// Canvas that the crop as adjusted lacks.
    std::optional<CanvasShortfall> lacking = {};
};

QString explanation(ReviewReason reason, const Subject& subject);

/// "425 px below, 12 px left"; empty when nothing is lacking.
QString missing(const CanvasShortfall& lacking);

/// Two shares as figures that can be told apart: with decimals where whole percents are the same.
struct Compared {
    QString one;
    QString other;
};
Compared compared(double one, double other);

}  // namespace morva::ReasonWords
