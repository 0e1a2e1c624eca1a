// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of `CropSolver::solveOnce`, each from values to values; nobody else calls them.
// All lengths are in source pixels, all positions in the levelled frame unless said otherwise.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/record/image_analysis.h"
#include "crop/crop_solution.h"
#include "model/presets/crop_preset.h"

namespace morva::CropSteps {

/// Reasons and notes in the order in which they arise.
struct Findings {
    std::vector<ReviewReason> reasons;
    std::vector<std::string> notes;

    void add(ReviewReason reason) { reasons.push_back(reason); }
    void note(std::string text) { notes.push_back(std::move(text)); }
};

/// The photo's measurements turned into the levelled frame.
struct Levelled {
    Size source;
    /// Centre of the photo, about which it turns.
    Point center;
    double roll = 0;
    FaceGeometry face;
    std::optional<HeadContent> head;
    std::optional<BodyGeometry> body;
    /// Bounds of the child with everything it holds; absent unless they can be trusted.
    std::optional<Rect> subject;
    /// Photo edges at which the subject ends only because the photo does.
    EdgeContact subjectCut;
    /// Photo edges that the person's outline touches.
    EdgeContact contact;
    /// The face unit that sizes the crop.
    double unit = 0;
};

/// Size of the crop, and its top where a body framing sets that too.
struct Framed {
    double width = 0;
    double height = 0;
    std::optional<double> top;
    /// The framing that was used: `Framing::face` after every fallback.
    Framing framing = Framing::face;
};

/// A crop on its way to the final rectangle.
struct Placement {
    Rect rect;
    double anchorX = 0;
    Framing framing = Framing::face;
    /// Zoom-out applied for a prop.
    std::optional<double> propZoom;
};

Levelled levelled(const ImageAnalysis& analysis, const FaceGeometry& face, const CropPreset& preset,
                  std::optional<double> faceUnitOverride);

/// Turned by `roll` degrees, whatever a preset asks for; `unit` is the face unit that sizes the
/// crop.
Levelled levelledBy(double roll, const ImageAnalysis& analysis, const FaceGeometry& face,
                    double unit);

/// The y below the top margin; nothing when the hair is not protected or was not measured.
std::optional<double> headTop(const Levelled& photo, const CropPreset& preset, Findings& findings);

Framed framed(const Levelled& photo, const CropPreset& preset, std::optional<double> top,
              Findings& findings);

/// The x that the preset places at its horizontal position.
double anchorX(const Levelled& photo, const CropPreset& preset, const Framed& size);

/// Top of a headshot.
double headshotTop(const Levelled& photo, const CropPreset& preset, std::optional<double> head,
                   double cropHeight, Findings& findings);

/// Zoomed out as far as a held prop needs and the limit allows.
Placement withPropWhole(Placement crop, const Levelled& photo, const CropPreset& preset,
                        Findings& findings);

/// Moved sideways off missing canvas, as far as the hair and the limit allow.
Placement slidOntoPhoto(Placement crop, const Levelled& photo, const CropPreset& preset,
                        Findings& findings);

CropMetrics metrics(const Placement& crop, const Levelled& photo, const CropPreset& preset,
                    std::optional<double> head);

void checkPlacement(const Placement& crop, const CropMetrics& metrics, const CropPreset& preset,
                    Findings& findings);

/// Canvas that the finished crop lacks, and whether backdrop may stand in for it.
struct Canvas {
    std::optional<CanvasShortfall> shortfall;
    bool extendable = false;
};
Canvas checkCanvas(const Placement& crop, const Levelled& photo, const CropPreset& preset,
                   Findings& findings);

}  // namespace morva::CropSteps
