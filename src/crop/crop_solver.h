// SPDX-License-Identifier: GPL-3.0-or-later
// Turns one photo's measurements and one preset into a crop: rectangle, roll, metrics, findings.
// Pure: the same input gives the same solution; sees no pixel and no file, never fails (a problem
// is a reason of the solution). Rectangles live in the levelled frame, the photo turned about its
// centre by the solution's roll.
#pragma once

#include <optional>
#include <vector>

#include "analysis/record/canvas_shortfall.h"
#include "analysis/record/image_analysis.h"
#include "crop/crop_solution.h"
#include "crop/manual_adjustment.h"
#include "model/presets/crop_preset.h"

namespace morva::CropSolver {

/// Eye line to head top, in face units: above this a head is unusual.
inline constexpr double maxHeadHeightInFaceUnits = 2.4;
/// A head top closer to the eye line than this is not believed.
inline constexpr double minHeadHeightInFaceUnits = 0.6;
/// Another face of at least this share of the main face counts as a second one.
inline constexpr double secondaryFaceThreshold = 0.35;
/// With accessories unprotected, the head ends at most this far above the eye line.
inline constexpr double accessoryCapInFaceUnits = 1.5;
/// The export may enlarge the crop at most this much.
inline constexpr double maxUpscale = 2.0;
/// Headroom that the balanced mode adds at most, as a share of the crop height.
inline constexpr double maxExtraHeadroom = 0.06;
/// Clearance kept around a prop, as a share of the crop's shorter side.
inline constexpr double propMargin = 0.02;
/// Largest zoom-out for a prop.
inline constexpr double maxPropZoom = 1.6;
/// A zoom-out for a prop above this is reported.
inline constexpr double propZoomWorthFlagging = 1.06;
/// Largest sideways slide, as a share of the crop width.
inline constexpr double maxSideSlide = 0.12;
/// Overhang left for the backdrop to fill, as a share of the crop width.
inline constexpr double sideFillTolerance = 0.025;
/// Weight of the hair outline's centre in the head-centre anchor.
inline constexpr double headOutlineShare = 0.25;
/// The torso's centre is used only this close to the face's centre.
inline constexpr double maxTorsoOffsetInFaceUnits = 1.0;

/// The crop of a photo. Where the preferred crop would need invented canvas, first the hair's share
/// of the anchor and then the levelling are given up step by step.
/// `faceUnitOverride`: face unit in pixels shared by the frames of one child; used only by presets
/// that are steady per subject.
CropSolution solve(const ImageAnalysis& analysis, const CropPreset& preset,
                   std::optional<double> faceUnitOverride = std::nullopt);

/// One pass with the preset as it is.
CropSolution solveOnce(const ImageAnalysis& analysis, const CropPreset& preset,
                       std::optional<double> faceUnitOverride = std::nullopt);

/// The roll in degrees that levels this face as far as the preset allows.
double rollToApply(const FaceGeometry& face, const CropPreset& preset);

/// The y in the levelled frame at which the lower-hanging bottom corner of a crop of `cropWidth`
/// about `centerX` meets the photo's bottom edge.
double pinnedBottom(Size sourceSize, double rollDegrees, double cropWidth, double centerX);

struct SideShortfall {
    double left = 0;
    double right = 0;
};
/// How far the corners of `rect` pass the photo's left and right edge, in pixels, never negative.
/// `center` is the centre of the levelling.
SideShortfall sideShortfall(const Rect& rect, double rollDegrees, Point center, Size source);

/// The solved crop with the user's adjustment. A turn keeps the crop's size and the photo point at
/// its centre.
Rect finalRect(const CropSolution& solution, const ManualAdjustment& adjustment, Size sourceSize);

/// Solved roll plus the user's turn, in degrees.
double finalRotation(const CropSolution& solution, const ManualAdjustment& adjustment);

/// What a crop measures as adjusted by hand.
struct AdjustedCrop {
    CropMetrics metrics;
    /// What is wrong with where things sit in it; as solved where nothing was adjusted.
    std::vector<ReviewReason> reasons;
};
/// `solution` is the photo's crop by this preset; nothing for a failed one.
std::optional<AdjustedCrop> adjusted(const ImageAnalysis& analysis, const CropPreset& preset,
                                     const CropSolution& solution,
                                     const ManualAdjustment& adjustment);

/// Canvas that a crop in the frame levelled by `rotationDegrees` lacks; nothing when no side lacks
/// more than can be seen.
std::optional<CanvasShortfall> shortfall(const Rect& rect, double rotationDegrees, Size sourceSize);

}  // namespace morva::CropSolver
