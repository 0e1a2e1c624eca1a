// SPDX-License-Identifier: GPL-3.0-or-later
// Measuring the finished crop and finding what is wrong with it.
#include <algorithm>
#include <cmath>

#include "crop/crop_solver.h"
#include "crop/crop_steps.h"

namespace morva::CropSteps {

namespace {

/// A crop placed exactly at the tolerance, or slid until the hair has exactly its clearance, passes
/// in spite of rounding.
constexpr double roundingSlack = 1e-9;

void checkEyeLine(const CropMetrics& metrics, const CropPreset& preset, Findings& findings) {
    const double error = metrics.eyeLine - preset.eyeLinePosition;
    const double tolerance = preset.outlierTolerance + roundingSlack;
    if (error > tolerance) findings.add(ReviewReason::faceSitsLow);
    if (error < -tolerance) findings.add(ReviewReason::faceSitsHigh);
}

void checkHeadroom(double headroom, const CropPreset& preset, Findings& findings) {
    if (headroom < preset.minEdgeClearance)
        findings.add(ReviewReason::headContentClipped);
    else if (std::abs(headroom - preset.topMargin) > preset.outlierTolerance)
        findings.add(ReviewReason::headroomOutOfTolerance);
}

}  // namespace

CropMetrics metrics(const Placement& crop, const Levelled& photo, const CropPreset& preset,
                    std::optional<double> head) {
    const Rect& rect = crop.rect;
    const double eyeY = photo.face.eyeMidpoint().y;
    CropMetrics found;
    found.faceScale = photo.unit / rect.height;
    found.anchorX = (crop.anchorX - rect.x) / rect.width;
    found.eyeLine = (eyeY - rect.y) / rect.height;
    found.chinLine = (photo.face.chin.y - rect.y) / rect.height;
    if (head) {
        found.headroom = (*head - rect.y) / rect.height;
        found.headHeightInFaceUnits = (eyeY - *head) / photo.unit;
    }
    if (preset.protectHair && photo.head && photo.head->reliable) {
        found.sideClearanceLeft = (photo.head->leftX - rect.x) / rect.width;
        found.sideClearanceRight = (rect.maxX() - photo.head->rightX) / rect.width;
    }
    found.propZoom = crop.propZoom;
    return found;
}

void checkPlacement(const Placement& crop, const CropMetrics& metrics, const CropPreset& preset,
                    Findings& findings) {
    // A body framing and a zoomed-out prop put the face where the body and the prop allow.
    if (!isBody(crop.framing) && !crop.propZoom) {
        if (preset.verticalMode != VerticalMode::eyeLine)
            checkEyeLine(metrics, preset, findings);
        else if (metrics.headroom)
            checkHeadroom(*metrics.headroom, preset, findings);
    }
    if (metrics.sideClearanceLeft && metrics.sideClearanceRight &&
        std::min(*metrics.sideClearanceLeft, *metrics.sideClearanceRight) <
            preset.minEdgeClearance - roundingSlack)
        findings.add(ReviewReason::hairClippedAtSide);
}

Canvas checkCanvas(const Placement& crop, const Levelled& photo, const CropPreset& preset,
                   Findings& findings) {
    const auto lacking = CropSolver::shortfall(crop.rect, photo.roll, photo.source);
    if (!lacking) return {};
    const bool blocked = photo.contact.blocks(*lacking);
    const bool extendable = preset.exportSettings.backdrop != BackdropMode::keep && !blocked;
    const std::string sides = lacking->summary();
    if (extendable) {
        findings.note("The crop runs past the photo (" + sides +
                      "); only backdrop is missing there, so it is filled at export.");
        return {lacking, true};
    }
    findings.add(ReviewReason::needsMoreCanvas);
    if (blocked) {
        findings.note("The crop runs past the photo (" + sides +
                      "), and the child or their prop is cut off by the " +
                      photo.contact.summary() +
                      " edge, so there is nothing honest to fill it with.");
    } else {
        findings.note("The crop runs past the photo edge: " + sides + ".");
    }
    return {lacking, false};
}

}  // namespace morva::CropSteps
