// SPDX-License-Identifier: GPL-3.0-or-later
// Turning the measurements into the levelled frame, and from them to the size and place of the
// crop.
#include <algorithm>
#include <cmath>
#include <limits>

#include "base/leveling.h"
#include "crop/crop_solver.h"
#include "crop/crop_steps.h"

namespace morva::CropSteps {

namespace {

/// A subject this close to the photo's edge goes on beyond it.
constexpr double edgeWidth = 1;
/// Below this distance under the head top a body point is no knee and no foot.
constexpr double shortestBodyInFaceUnits = 1.5;
/// Least share of the crop height between top margin and body anchor.
constexpr double smallestBodyShare = 0.1;
/// Where knees and the outline's lower end sit, relative to the feet's anchor.
constexpr double kneesAboveFeet = 0.146;
constexpr double outlineBelowFeet = 0.086;
/// Limits of the down-to-the-edge framing.
constexpr double largestFrameTopMargin = 0.4;
constexpr double lowestFrameAnchor = 1.0;
constexpr double highestFrameAnchor = 1.3;
/// The pinned edge depends on the crop's width and the width on the edge; three rounds settle it.
constexpr int pinningRounds = 3;

/// The outline's heights are turned at the places where they were measured; its sides were measured
/// above the eye line and are turned there, its lower end below the face.
HeadContent turned(HeadContent head, Point eyes, const PointMapping& level) {
    const Point top = level({head.topX, head.topY});
    head.leftX = level({head.leftX, eyes.y}).x;
    head.rightX = level({head.rightX, eyes.y}).x;
    if (head.bottomY) head.bottomY = level({eyes.x, *head.bottomY}).y;
    head.topX = top.x;
    head.topY = top.y;
    return head;
}

EdgeContact cutEdges(const Rect& bounds, const EdgeContact& contact, Size source) {
    return {.top = contact.top || bounds.y <= edgeWidth,
            .bottom = contact.bottom || bounds.maxY() >= source.height - edgeWidth,
            .left = contact.left || bounds.x <= edgeWidth,
            .right = contact.right || bounds.maxX() >= source.width - edgeWidth};
}

Framed headshot(const Levelled& photo, const CropPreset& preset) {
    const double height = photo.unit / preset.faceScale;
    return {height * preset.aspectRatio(), height, std::nullopt, Framing::face};
}

Framed withoutBody(const Levelled& photo, const CropPreset& preset, Findings& findings) {
    findings.add(ReviewReason::bodyNotFound);
    return headshot(photo, preset);
}

Framed bodyFramed(double height, double headTop, double topMargin, const CropPreset& preset) {
    return {.width = height * preset.aspectRatio(),
            .height = height,
            .top = headTop - topMargin * height,
            .framing = preset.framing};
}

Framed downToEdge(const Levelled& photo, const CropPreset& preset, double top, Findings& findings) {
    const double margin = std::clamp(preset.bodyTopMargin, 0.0, largestFrameTopMargin);
    const double anchor =
        std::clamp(preset.bodyBottomAnchor, lowestFrameAnchor, highestFrameAnchor);
    double span = photo.source.height - top;
    for (int round = 0; round < pinningRounds && photo.unit < span; ++round) {
        const double width = span / (anchor - margin) * preset.aspectRatio();
        span =
            CropSolver::pinnedBottom(photo.source, photo.roll, width, photo.face.faceCenter().x) -
            top;
    }
    if (!(span > photo.unit)) return withoutBody(photo, preset, findings);
    return bodyFramed(span / (anchor - margin), top, margin, preset);
}

/// The lowest point that a body framing measures to, where it goes, and what it says about the
/// photo once it is used.
struct BodyPoint {
    double y = 0;
    double anchor = 0;
    std::optional<ReviewReason> reason;
    std::optional<std::string> note;
};

std::optional<BodyPoint> kneesOrHips(const BodyGeometry& body, const CropPreset& preset) {
    if (const auto knees = body.kneeY()) return BodyPoint{*knees, preset.bodyBottomAnchor, {}, {}};
    if (const auto hips = body.hipY()) {
        return BodyPoint{*hips,
                         preset.bodyHipAnchor,
                         {},
                         "Knees are out of frame, so the crop was measured to the hips."};
    }
    return std::nullopt;
}

std::optional<BodyPoint> feet(const Levelled& photo, const BodyGeometry& body,
                              const CropPreset& preset) {
    constexpr auto partly = ReviewReason::bodyPartlyFound;
    const double anchor = preset.bodyBottomAnchor;
    if (const auto ankles = body.ankleY()) return BodyPoint{*ankles, anchor, {}, {}};
    if (photo.head && photo.head->bottomY)
        return BodyPoint{*photo.head->bottomY, anchor + outlineBelowFeet, partly, {}};
    if (const auto knees = body.kneeY())
        return BodyPoint{*knees, anchor - kneesAboveFeet, partly, {}};
    return std::nullopt;
}

Framed onBody(const Levelled& photo, const CropPreset& preset, double top, Findings& findings) {
    const BodyGeometry body = photo.body.value_or(BodyGeometry{});
    const auto lowest = preset.framing == Framing::threeQuarter ? kneesOrHips(body, preset)
                                                                : feet(photo, body, preset);
    const double margin = preset.bodyTopMargin;
    const bool usable = lowest && lowest->y > top + shortestBodyInFaceUnits * photo.unit &&
                        lowest->anchor > margin + smallestBodyShare;
    if (!usable) return withoutBody(photo, preset, findings);
    if (lowest->reason) findings.add(*lowest->reason);
    if (lowest->note) findings.note(*lowest->note);
    return bodyFramed((lowest->y - top) / (lowest->anchor - margin), top, margin, preset);
}

double headCenterX(const Levelled& photo) {
    const double face = photo.face.faceCenter().x;
    const auto& head = photo.head;
    if (!head || !head->reliable || head->rightX <= head->leftX) return face;
    return face + ((head->leftX + head->rightX) / 2 - face) * CropSolver::headOutlineShare;
}

/// The torso's centre, moved as far as a held prop needs to stay inside. A side at which the photo
/// itself cuts the subject off asks for nothing on the opposite side.
double bodyCenterX(const Levelled& photo, const CropPreset& preset, const Framed& size) {
    double center = photo.face.faceCenter().x;
    const auto torso = photo.body ? photo.body->torsoCenterX() : std::nullopt;
    if (torso && std::abs(*torso - center) <= CropSolver::maxTorsoOffsetInFaceUnits * photo.unit)
        center = *torso;
    if (!preset.protectProps || !photo.subject) return center;

    constexpr double unbounded = std::numeric_limits<double>::infinity();
    const double reach =
        size.width / 2 - CropSolver::propMargin * std::min(size.width, size.height);
    const double lower = photo.subjectCut.left ? -unbounded : photo.subject->maxX() - reach;
    const double upper = photo.subjectCut.right ? unbounded : photo.subject->x + reach;
    return upper < lower ? photo.subject->center().x : std::clamp(center, lower, upper);
}

double subjectCenterX(const Levelled& photo) {
    if (photo.subject) return photo.subject->center().x;
    const auto torso = photo.body ? photo.body->torsoCenterX() : std::nullopt;
    return torso.value_or(photo.face.faceCenter().x);
}

/// How far the balanced mode moves the crop down (up when negative) to bring the eye line back
/// within tolerance, paid for with headroom.
double balancingMove(double eyeLine, const CropPreset& preset) {
    const double error = eyeLine - preset.eyeLinePosition;
    const double tolerance = preset.outlierTolerance;
    if (error > tolerance) {
        const double spare = std::max(0.0, preset.topMargin - preset.minEdgeClearance);
        return std::min(spare, error - tolerance);
    }
    if (error < -tolerance) return -std::min(CropSolver::maxExtraHeadroom, -error - tolerance);
    return 0;
}

}  // namespace

Levelled levelled(const ImageAnalysis& analysis, const FaceGeometry& face, const CropPreset& preset,
                  std::optional<double> faceUnitOverride) {
    const bool shared = preset.steadyPerSubject && faceUnitOverride;
    return levelledBy(CropSolver::rollToApply(face, preset), analysis, face,
                      shared ? *faceUnitOverride : face.faceUnit());
}

Levelled levelledBy(double roll, const ImageAnalysis& analysis, const FaceGeometry& face,
                    double unit) {
    Levelled photo;
    photo.source = analysis.sourceSize();
    photo.roll = roll;
    photo.face = face;
    photo.head = analysis.headContent;
    photo.body = analysis.body;
    photo.contact = analysis.edgeContact.value_or(EdgeContact{});
    photo.center = {photo.source.width / 2, photo.source.height / 2};
    photo.unit = unit;
    if (analysis.subject && analysis.subject->reliable) {
        photo.subject = analysis.subject->bounds;
        photo.subjectCut = cutEdges(*photo.subject, photo.contact, photo.source);
    }
    if (photo.roll == 0) return photo;

    const PointMapping level = [&](Point point) {
        return Leveling::level(point, photo.center, photo.roll);
    };
    photo.face = face.transformed(level);
    if (photo.head) photo.head = turned(*photo.head, face.eyeMidpoint(), level);
    if (photo.body) photo.body = photo.body->transformed(level);
    if (photo.subject) {
        auto corners = photo.subject->corners();
        for (Point& corner : corners) corner = level(corner);
        photo.subject = Rect::bounding(corners);
    }
    return photo;
}

std::optional<double> headTop(const Levelled& photo, const CropPreset& preset, Findings& findings) {
    if (!preset.protectHair) return std::nullopt;
    if (!photo.head) {
        findings.add(ReviewReason::headContentUncertain);
        return std::nullopt;
    }
    const double eyeY = photo.face.eyeMidpoint().y;
    double top = photo.head->topY;
    if (!preset.protectAccessories)
        top = std::max(eyeY - CropSolver::accessoryCapInFaceUnits * photo.unit, top);
    if (!photo.head->reliable) findings.add(ReviewReason::headContentUncertain);
    const double headHeight = (eyeY - top) / photo.unit;
    if (headHeight > CropSolver::maxHeadHeightInFaceUnits)
        findings.add(ReviewReason::unusualHeadContent);
    if (headHeight < CropSolver::minHeadHeightInFaceUnits)
        findings.add(ReviewReason::headContentUncertain);
    return top;
}

Framed framed(const Levelled& photo, const CropPreset& preset, std::optional<double> top,
              Findings& findings) {
    if (preset.framing == Framing::face) return headshot(photo, preset);
    // Unprotected hair does not limit the crop, yet it is still where the body begins.
    if (!top && photo.head) top = photo.head->topY;
    if (!top) return withoutBody(photo, preset, findings);
    return preset.framing == Framing::frameBottom ? downToEdge(photo, preset, *top, findings)
                                                  : onBody(photo, preset, *top, findings);
}

double anchorX(const Levelled& photo, const CropPreset& preset, const Framed& size) {
    switch (preset.horizontalAnchor) {
        case HorizontalAnchor::eyes:
            return photo.face.eyeMidpoint().x;
        case HorizontalAnchor::headCenter:
            return headCenterX(photo);
        case HorizontalAnchor::bodyCenter:
            return bodyCenterX(photo, preset, size);
        case HorizontalAnchor::subjectCenter:
            return subjectCenterX(photo);
        case HorizontalAnchor::faceCenter:
            break;
    }
    return photo.face.faceCenter().x;
}

double headshotTop(const Levelled& photo, const CropPreset& preset, std::optional<double> head,
                   double cropHeight, Findings& findings) {
    const double eyeY = photo.face.eyeMidpoint().y;
    const double byEyeLine = eyeY - cropHeight * preset.eyeLinePosition;
    if (preset.verticalMode == VerticalMode::eyeLine) return byEyeLine;
    if (!head) {
        findings.note(preset.protectHair ? "Hair outline unavailable, so the crop was placed by "
                                           "the eye line instead."
                                         : "Hair protection is off, so the crop is placed by the "
                                           "eye line.");
        return byEyeLine;
    }
    const double byMargin = *head - cropHeight * preset.topMargin;
    if (preset.verticalMode == VerticalMode::topMargin) return byMargin;
    return byMargin + cropHeight * balancingMove((eyeY - byMargin) / cropHeight, preset);
}

}  // namespace morva::CropSteps
