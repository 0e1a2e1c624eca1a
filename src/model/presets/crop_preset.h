// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "base/json.h"
#include "base/uuid.h"
#include "model/presets/export_settings.h"
#include "model/presets/preset_choices.h"
#include "model/presets/reference_geometry.h"

namespace morva {

/// One crop type: how large the face is drawn and where it sits, what must not be cut, how far the
/// crop may turn, when it needs no look, and how its files are written. Vertical positions are
/// fractions of the crop height from the top, horizontal ones of the crop width from the left.
struct CropPreset {
    Uuid id = Uuid::random();
    std::string name = "Preset";
    double aspectWidth = 4;
    double aspectHeight = 5;
    /// Eye-to-chin distance over crop height.
    double faceScale = 0.2166;
    /// Where the horizontal anchor sits.
    double horizontalPosition = 0.5;
    HorizontalAnchor horizontalAnchor = HorizontalAnchor::faceCenter;
    VerticalMode verticalMode = VerticalMode::topMargin;
    /// Space above the top of the head.
    double topMargin = 0.06;
    double eyeLinePosition = 0.326;
    /// Keep the hair outline inside the crop.
    bool protectHair = true;
    /// Keep what is worn on the head inside.
    bool protectAccessories = true;
    /// Keep a held prop whole.
    bool protectProps = false;
    /// Keep a prop held above the head whole.
    bool protectPropsOverhead = false;
    /// One crop size per child across the frames shot seconds apart.
    bool steadyPerSubject = true;
    /// Least gap between protected content and the crop edge, as a share of the crop.
    double minEdgeClearance = 0.02;
    /// How far eye line and headroom may stray before the photo needs a look.
    double outlierTolerance = 0.12;
    RotationMode rotationMode = RotationMode::never;
    /// The fixed turn of `RotationMode::correctCameraRoll`.
    double cameraRollDegrees = 0;
    /// Largest turn of `RotationMode::levelEyes`.
    double levelMaxDegrees = 3;
    /// Share of the eye tilt that is removed, 0 to 1.
    double levelStrength = 1;
    /// Confidence from which a photo needs no look, 0 to 1.
    double autoApproveConfidence = 0.8;
    /// Under the key "export".
    ExportSettings exportSettings;
    /// The portrait that this preset was modelled on.
    std::optional<ReferenceGeometry> reference;
    Framing framing = Framing::face;
    /// Space above the head top for body framings.
    double bodyTopMargin = 0.142;
    /// Where the lowest body point (knees or feet) sits; above 1 it lies below the crop.
    double bodyBottomAnchor = 0.847;
    double bodyHipAnchor = 0.708;
    /// Short tag on rows and thumbnails.
    std::string badge;
    /// Star rating of the files exported with this preset.
    std::optional<int> exportRating;
    /// Colour of the preset in the window.
    Rgb color{0.55, 0.58, 0.62};

    /// Width over height; an `aspectHeight` of 0 is invalid input.
    double aspectRatio() const;

    /// How a photo of this preset is written: its export settings with its rating.
    ExportSettings settingsForExport() const;

    /// Takes over what was measured on a reference portrait; the ratio and everything else stay.
    void apply(const ReferenceGeometry& measured);

    bool operator==(const CropPreset&) const = default;
};

/// Reading keeps the default of every missing key; a missing identity becomes a fresh one.
void to_json(Json& json, const CropPreset& preset);
void from_json(const Json& json, CropPreset& preset);

/// A crop is never stretched: the written size must have the ratio of the crop.
namespace RatioCheck {

/// Deliberately tight: 2400 x 3000 against 4:5 passes, one step of rounding does too.
inline constexpr double tolerance = 0.002;

bool passes(const CropPreset& preset);
/// The height that belongs to the preset's width, rounded to whole pixels.
int fittingHeight(const CropPreset& preset);

inline constexpr const char* alertTitle = "Export size doesn't match the ratio";
/// What an export that cannot start says about the preset that fails.
std::string alertMessage(const CropPreset& preset);
/// What the export sheet says before.
std::string sheetWarning(const CropPreset& preset);

}  // namespace RatioCheck

}  // namespace morva
