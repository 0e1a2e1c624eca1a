// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/crop_solver.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/leveling.h"
#include "crop/confidence_scorer.h"
#include "crop/crop_steps.h"

namespace morva::CropSolver {

namespace {

using CropSteps::Findings;
using CropSteps::Framed;
using CropSteps::Levelled;
using CropSteps::Placement;

/// A face of a pixel is a detector's mistake and would make a crop of five pixels.
constexpr double smallestFaceUnit = 1.0;

/// Shares of the levelling that are tried, in this order, before it is given up.
constexpr std::array<double, 3> gentlerLevelling{0.75, 0.5, 0.25};

CropSolution failed(const ImageAnalysis& analysis) {
    CropSolution solution;
    solution.status = CropStatus::failed;
    solution.reasons = {ReviewReason::noFaceFound};
    solution.notes = {analysis.error.value_or("No face was found in this photo.")};
    return solution;
}

Placement placed(const Levelled& photo, const CropPreset& preset, std::optional<double> head,
                 const Framed& size, Findings& findings) {
    Placement crop;
    crop.framing = size.framing;
    crop.anchorX = CropSteps::anchorX(photo, preset, size);
    const double top =
        size.top ? *size.top : CropSteps::headshotTop(photo, preset, head, size.height, findings);
    crop.rect = {crop.anchorX - size.width * preset.horizontalPosition, top, size.width,
                 size.height};
    return crop;
}

/// `solvedHeight` is the height before a zoom-out for a prop: the zoom adds pixels, and what the
/// photographer chose is the size of the face.
void checkResolution(double solvedHeight, const CropPreset& preset, Findings& findings) {
    if (maxUpscale * solvedHeight < preset.exportSettings.pixelHeight)
        findings.add(ReviewReason::lowResolution);
}

void checkOtherFaces(const ImageAnalysis& analysis, const FaceGeometry& primary,
                     Findings& findings) {
    const auto isSecond = [&](const FaceGeometry& face) {
        return &face != &primary && face.faceUnit() / primary.faceUnit() >= secondaryFaceThreshold;
    };
    if (std::ranges::any_of(analysis.faces, isSecond)) findings.add(ReviewReason::multipleFaces);
}

/// Scores the face as the photo shows it, so that no levelling can change the score.
double checkConfidence(const ImageAnalysis& analysis, const FaceGeometry& face,
                       const CropPreset& preset, Findings& findings) {
    const ConfidenceScorer::Report report = ConfidenceScorer::score(face, analysis.headContent);
    for (const ReviewReason reason : report.reasons) findings.add(reason);
    for (const std::string& note : report.notes) findings.note(note);
    if (report.score < preset.autoApproveConfidence) findings.add(ReviewReason::lowConfidence);
    return report.score;
}

bool needsCanvas(const CropSolution& solution) {
    return solution.has(ReviewReason::needsMoreCanvas);
}

/// Levels less and less while the crop needs canvas; not at all only where that mends it.
CropSolution levelledLess(CropSolution solution, const ImageAnalysis& analysis, CropPreset preset,
                          std::optional<double> faceUnitOverride) {
    const double strength = preset.levelStrength;
    for (const double share : gentlerLevelling) {
        preset.levelStrength = strength * share;
        solution = solveOnce(analysis, preset, faceUnitOverride);
        if (!needsCanvas(solution)) return solution;
    }
    preset.rotationMode = RotationMode::never;
    CropSolution unturned = solveOnce(analysis, preset, faceUnitOverride);
    return needsCanvas(unturned) ? solution : unturned;
}

}  // namespace

CropSolution solveOnce(const ImageAnalysis& analysis, const CropPreset& preset,
                       std::optional<double> faceUnitOverride) {
    const FaceGeometry* face = analysis.primary();
    if (!face || !(face->faceUnit() > smallestFaceUnit)) return failed(analysis);

    Findings findings;
    const Levelled photo = CropSteps::levelled(analysis, *face, preset, faceUnitOverride);
    const std::optional<double> head = CropSteps::headTop(photo, preset, findings);
    const Framed size = CropSteps::framed(photo, preset, head, findings);

    Placement crop = placed(photo, preset, head, size, findings);
    crop = CropSteps::withPropWhole(crop, photo, preset, findings);
    crop = CropSteps::slidOntoPhoto(crop, photo, preset, findings);

    CropSolution solution;
    solution.rect = crop.rect;
    solution.rotationDegrees = photo.roll;
    solution.anchor = {crop.anchorX, photo.face.eyeMidpoint().y};
    solution.metrics = CropSteps::metrics(crop, photo, preset, head);
    CropSteps::checkPlacement(crop, *solution.metrics, preset, findings);
    const CropSteps::Canvas canvas = CropSteps::checkCanvas(crop, photo, preset, findings);
    solution.shortfall = canvas.shortfall;
    solution.canvasExtendable = canvas.extendable;
    checkResolution(size.height, preset, findings);
    checkOtherFaces(analysis, *face, findings);
    solution.confidence = checkConfidence(analysis, *face, preset, findings);

    removeRepeats(findings.reasons);
    solution.status = findings.reasons.empty() ? CropStatus::ready : CropStatus::review;
    solution.reasons = std::move(findings.reasons);
    solution.notes = std::move(findings.notes);
    return solution;
}

CropSolution solve(const ImageAnalysis& analysis, const CropPreset& preset,
                   std::optional<double> faceUnitOverride) {
    CropSolution solution = solveOnce(analysis, preset, faceUnitOverride);
    if (!needsCanvas(solution)) return solution;

    CropPreset gentler = preset;
    if (preset.horizontalAnchor == HorizontalAnchor::headCenter) {
        gentler.horizontalAnchor = HorizontalAnchor::faceCenter;
        solution = solveOnce(analysis, gentler, faceUnitOverride);
    }
    const bool turned = preset.rotationMode != RotationMode::never && solution.rotationDegrees != 0;
    if (!needsCanvas(solution) || !turned) return solution;
    return levelledLess(std::move(solution), analysis, std::move(gentler), faceUnitOverride);
}

std::optional<AdjustedCrop> adjusted(const ImageAnalysis& analysis, const CropPreset& preset,
                                     const CropSolution& solution,
                                     const ManualAdjustment& adjustment) {
    const FaceGeometry* face = analysis.primary();
    if (!face || !solution.metrics) return std::nullopt;
    if (adjustment.isIdentity()) return AdjustedCrop{*solution.metrics, solution.reasons};
    const double unit = solution.metrics->faceScale * solution.rect.height;
    const double roll = finalRotation(solution, adjustment);
    const Levelled photo = CropSteps::levelledBy(roll, analysis, *face, unit);
    Findings findings;
    const std::optional<double> head = CropSteps::headTop(photo, preset, findings);
    const Point onPhoto =
        Leveling::unlevel(solution.anchor, photo.center, solution.rotationDegrees);
    const bool byFace = solution.has(ReviewReason::bodyNotFound);
    const Placement crop{.rect = finalRect(solution, adjustment, photo.source),
                         .anchorX = Leveling::level(onPhoto, photo.center, roll).x,
                         .framing = byFace ? Framing::face : preset.framing,
                         .propZoom = solution.metrics->propZoom};
    AdjustedCrop found{CropSteps::metrics(crop, photo, preset, head), {}};
    CropSteps::checkPlacement(crop, found.metrics, preset, findings);
    removeRepeats(findings.reasons);
    found.reasons = std::move(findings.reasons);
    return found;
}

double rollToApply(const FaceGeometry& face, const CropPreset& preset) {
    switch (preset.rotationMode) {
        case RotationMode::never:
            return 0;
        case RotationMode::correctCameraRoll:
            return preset.cameraRollDegrees;
        case RotationMode::levelEyes:
            break;
    }
    const double strength = std::clamp(preset.levelStrength, 0.0, 1.0);
    const double limit = std::max(preset.levelMaxDegrees, 0.0);
    return std::clamp(face.rollDegrees() * strength, -limit, limit);
}

}  // namespace morva::CropSolver
