// SPDX-License-Identifier: GPL-3.0-or-later
// What may still change a placed crop: zooming out for a prop, sliding onto the photo.
#include <algorithm>
#include <cmath>

#include "crop/crop_solver.h"
#include "crop/crop_steps.h"
#include "crop/whole_number_text.h"

namespace morva::CropSteps {

namespace {

/// Zoom limit where props held overhead are protected too.
constexpr double maxOverheadPropZoom = 2.4;
/// A zoom below this is rounding.
constexpr double smallestZoom = 1.0001;
/// A slide below this cannot be seen.
constexpr double smallestSlide = 0.5;

/// The zoom about a pivot, `distance` away from a side, that brings in what lies `missing` beyond
/// it.
double zoomFor(double missing, double distance) {
    return missing > 0 && distance > 0 ? (missing + distance) / distance : 1;
}

Point zoomPivot(const Rect& crop, const CropPreset& preset) {
    return {crop.x + crop.width * preset.horizontalPosition, crop.center().y};
}

/// The zoom that keeps the subject whole with its clearance, without a limit. With overhead props
/// unprotected only what lies below the crop's top edge counts, and nothing asks for room above.
double neededZoom(const Rect& crop, const Levelled& photo, const CropPreset& preset) {
    if (!preset.protectProps || !photo.subject || photo.subject->isEmpty()) return 1;
    const Rect& box = *photo.subject;
    const bool overhead = preset.protectPropsOverhead;
    if (!overhead && box.maxY() <= crop.y) return 1;

    const double margin = CropSolver::propMargin * std::min(crop.width, crop.height);
    const Point pivot = zoomPivot(crop, preset);
    const EdgeContact& cut = photo.subjectCut;
    double zoom = 1;
    const auto ask = [&](double beyond, double distance) {
        zoom = std::max(zoom, zoomFor(margin + beyond, distance));
    };
    if (!cut.left) ask(crop.x - box.x, pivot.x - crop.x);
    if (!cut.right) ask(box.maxX() - crop.maxX(), crop.maxX() - pivot.x);
    if (!cut.top && overhead) ask(crop.y - box.y, pivot.y - crop.y);
    if (!cut.bottom) ask(box.maxY() - crop.maxY(), crop.maxY() - pivot.y);
    return zoom;
}

/// A crop that stands on the photo's bottom edge keeps standing there.
Rect zoomed(const Rect& crop, Point pivot, double zoom, Framing framing) {
    Rect larger{pivot.x - zoom * (pivot.x - crop.x), pivot.y - zoom * (pivot.y - crop.y),
                crop.width * zoom, crop.height * zoom};
    if (framing == Framing::frameBottom) larger.y = crop.maxY() - larger.height;
    return larger;
}

/// To the right when positive. Only an overhang on one side can be slid away.
double wantedSlide(const Rect& crop, const Levelled& photo, const CropPreset& preset) {
    const auto [left, right] =
        CropSolver::sideShortfall(crop, photo.roll, photo.center, photo.source);
    const bool filled = preset.exportSettings.backdrop != BackdropMode::keep;
    const double tolerance = filled ? CropSolver::sideFillTolerance * crop.width : 0;
    const double limit = CropSolver::maxSideSlide * crop.width;
    const double unseen = CanvasShortfall::tolerance;
    if (left > tolerance + unseen && right <= unseen) return std::min(limit, left - tolerance);
    if (right > tolerance + unseen && left <= unseen) return -std::min(limit, right - tolerance);
    return 0;
}

/// The part of a slide that leaves the hair its clearance from the side that comes closer.
double withHairClear(double slide, const Rect& crop, const Levelled& photo,
                     const CropPreset& preset) {
    if (!preset.protectHair || !photo.head || !photo.head->reliable) return slide;
    const double clearance = preset.minEdgeClearance * crop.width;
    if (slide > 0) return std::min(slide, std::max(0.0, photo.head->leftX - clearance - crop.x));
    return std::max(slide, -std::max(0.0, crop.maxX() - clearance - photo.head->rightX));
}

}  // namespace

Placement withPropWhole(Placement crop, const Levelled& photo, const CropPreset& preset,
                        Findings& findings) {
    const double needed = neededZoom(crop.rect, photo, preset);
    if (!(needed > smallestZoom)) return crop;
    const bool overhead = preset.protectPropsOverhead;
    const double limit = overhead ? maxOverheadPropZoom : CropSolver::maxPropZoom;
    const double zoom = std::min(needed, limit);
    crop.rect = zoomed(crop.rect, zoomPivot(crop.rect, preset), zoom, crop.framing);
    crop.propZoom = zoom;

    if (needed > limit) {
        findings.add(ReviewReason::propClipped);
        findings.note("What the child is holding is too big to fit at this crop size.");
    } else if (zoom > CropSolver::propZoomWorthFlagging) {
        if (!overhead) findings.add(ReviewReason::zoomedOutForProp);
        findings.note("Zoomed out " + wholeNumberText((zoom - 1) * 100) +
                      "% so the whole prop fits; the face is that much smaller than the rest of "
                      "the batch.");
    }
    return crop;
}

Placement slidOntoPhoto(Placement crop, const Levelled& photo, const CropPreset& preset,
                        Findings& findings) {
    if (crop.rect.width > photo.source.width) return crop;
    const double wanted = wantedSlide(crop.rect, photo, preset);
    if (wanted == 0) return crop;
    const double slide = withHairClear(wanted, crop.rect, photo, preset);
    if (std::abs(slide) < smallestSlide) return crop;
    crop.rect.x += slide;
    findings.note("Slid " + wholeNumberText(std::abs(slide)) + " px " +
                  (slide < 0 ? "left" : "right") + " to stay on the photo.");
    return crop;
}

}  // namespace morva::CropSteps
