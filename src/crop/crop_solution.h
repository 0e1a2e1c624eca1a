// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/record/canvas_shortfall.h"
#include "base/geometry.h"
#include "base/json.h"
#include "crop/review_reason.h"

namespace morva {

enum class CropStatus { ready, review, failed };

/// Where things sit in the crop as solved. Vertical values are fractions of the crop's height,
/// `anchorX` and the side clearances of its width.
struct CropMetrics {
    double faceScale = 0;
    double anchorX = 0;
    double eyeLine = 0;
    double chinLine = 0;
    /// Absent without a head top.
    std::optional<double> headroom;
    /// Absent unless the hair is protected and its outline trusted.
    std::optional<double> sideClearanceLeft;
    std::optional<double> sideClearanceRight;
    std::optional<double> headHeightInFaceUnits;
    /// How much larger the crop became for a prop; absent when it did not.
    std::optional<double> propZoom;

    bool operator==(const CropMetrics&) const = default;
};

/// One photo's crop: what `CropSolver::solve` returns. Never stored; recomputed from the analysis
/// and the preset.
struct CropSolution {
    /// In the levelled frame: the photo turned about its centre by `rotationDegrees`.
    Rect rect;
    double rotationDegrees = 0;
    /// Horizontal anchor and eye line, in the levelled frame; the pivot of a manual zoom.
    Point anchor;
    CropStatus status = CropStatus::failed;
    /// Why the photo needs a look, in the order found, without repeats.
    std::vector<ReviewReason> reasons;
    double confidence = 0;  // 0 to 1
    /// Absent for a failed solution.
    std::optional<CropMetrics> metrics;
    /// Present only when the crop passes an edge of the photo visibly.
    std::optional<CanvasShortfall> shortfall;
    /// Explanations in plain sentences, in the order found.
    std::vector<std::string> notes;
    /// The missing canvas may be filled with backdrop at export.
    bool canvasExtendable = false;

    bool isReady() const { return status == CropStatus::ready; }
    bool has(ReviewReason reason) const;

    bool operator==(const CropSolution&) const = default;
};

void to_json(Json& json, CropStatus status);
void from_json(const Json& json, CropStatus& status);
void to_json(Json& json, const CropMetrics& metrics);
void from_json(const Json& json, CropMetrics& metrics);
void to_json(Json& json, const CropSolution& solution);
void from_json(const Json& json, CropSolution& solution);

}  // namespace morva
