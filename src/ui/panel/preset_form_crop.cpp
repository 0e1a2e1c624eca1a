// SPDX-License-Identifier: GPL-3.0-or-later
// The sections of the preset's form that say how it crops.
#include <array>

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "ui/panel/color_button.h"
#include "ui/panel/form_rows.h"
#include "ui/panel/preset_form_controls.h"
#include "ui/panel/reference_box.h"
#include "ui/widgets/typography.h"

namespace morva {

using FormRows::addRow;
using FormRows::inDegrees;
using FormRows::inOneLine;

namespace {

constexpr int mostBadgeLetters = 8;

constexpr std::array<ColorButton::Swatch, 12> presetColors{
    {{0x5CCC73, QT_TRANSLATE_NOOP("ColorButton", "Green")},
     {0x2FC6B5, QT_TRANSLATE_NOOP("ColorButton", "Teal")},
     {0x549EFF, QT_TRANSLATE_NOOP("ColorButton", "Blue")},
     {0x8C8CFF, QT_TRANSLATE_NOOP("ColorButton", "Indigo")},
     {0xB87AF2, QT_TRANSLATE_NOOP("ColorButton", "Violet")},
     {0xED739E, QT_TRANSLATE_NOOP("ColorButton", "Pink")},
     {0xFF6B5E, QT_TRANSLATE_NOOP("ColorButton", "Red")},
     {0xFF9933, QT_TRANSLATE_NOOP("ColorButton", "Orange")},
     {0xE8C547, QT_TRANSLATE_NOOP("ColorButton", "Yellow")},
     {0xA8C256, QT_TRANSLATE_NOOP("ColorButton", "Olive")},
     {0xC79A6B, QT_TRANSLATE_NOOP("ColorButton", "Brown")},
     {0x8C949E, QT_TRANSLATE_NOOP("ColorButton", "Gray")}}};

bool hasHair(const CropPreset& preset) { return preset.protectHair; }
bool hasProps(const CropPreset& preset) { return preset.protectProps; }
bool framesBody(const CropPreset& preset) { return isBody(preset.framing); }
bool measuresToTheHips(const CropPreset& preset) { return preset.framing == Framing::threeQuarter; }
bool levelsEyes(const CropPreset& preset) { return preset.rotationMode == RotationMode::levelEyes; }
bool correctsRoll(const CropPreset& preset) {
    return preset.rotationMode == RotationMode::correctCameraRoll;
}

}  // namespace

void PresetForm::buildCropType() {
    QVBoxLayout* body = open(Part::cropType, tr("Crop type"));
    QFormLayout* rows = FormRows::add(body);
    addRow(rows, tr("Name"), line("name", tr("Name"), "Rename Preset", &CropPreset::name));
    QLineEdit* badge = line("badge", tr("Badge"), "Change Badge", &CropPreset::badge);
    badge->setMaxLength(mostBadgeLetters);
    auto* color = new ColorButton(tr("Color of the badge"), presetColors);
    connect(color, &ColorButton::picked, this, [this](const Rgb& picked) {
        edit("Change Badge", [&](CropPreset& preset) { preset.color = picked; });
    });
    add(color, "color", [color](Preset preset) { color->setColor(preset.color); });
    addRow(rows, tr("Badge"), inOneLine({badge, color}, 0), badge);
    const SliderRow::Scale part{1, {}, 2, 0.1, 100, 1};
    auto* width = spin<PlainSpinBox>(
        {"aspectWidth", tr("Ratio, width"), "Change Ratio", part},
        [](auto& preset) -> auto& { return preset.aspectWidth; });
    auto* height = spin<PlainSpinBox>(
        {"aspectHeight", tr("Ratio, height"), "Change Ratio", part},
        [](auto& preset) -> auto& { return preset.aspectHeight; });
    addRow(rows, tr("Ratio"),
           inOneLine({width, makeLabel(QStringLiteral(":"), TextRole::body, Ink::text2), height}),
           width);
    body->addWidget(choice(
        "framing", tr("Framing"), "Change Framing",
        [](auto& preset) -> auto& { return preset.framing; }));
}

void PresetForm::buildFaceSize() {
    QVBoxLayout* body = open(Part::faceSize, tr("Face size"));
    body->addWidget(slider(
        {"faceScale", tr("Face size (eyes to chin)"), "Change Face Size", inPercent(2, 45)},
        [](auto& preset) -> auto& { return preset.faceScale; }));
    body->addWidget(slider(
        {"outlierTolerance", tr("Outlier tolerance"), "Change Tolerance", inPercent(0, 30)},
        [](auto& preset) -> auto& { return preset.outlierTolerance; }));
    body->addWidget(check(
        "steadyPerSubject", tr("One steady crop size per child"), "Change Steady Size",
        [](auto& preset) -> auto& { return preset.steadyPerSubject; }));
}

void PresetForm::buildPlacement() {
    QVBoxLayout* body = open(Part::placement, tr("Placement"));
    body->addWidget(choice(
        "horizontalAnchor", tr("Horizontal anchor"), "Change Anchor",
        [](auto& preset) -> auto& { return preset.horizontalAnchor; }));
    body->addWidget(slider(
        {"horizontalPosition", tr("Horizontal position"), "Change Horizontal Position",
         inPercent(0, 100)},
        [](auto& preset) -> auto& { return preset.horizontalPosition; }));
    body->addWidget(choice(
        "verticalMode", tr("Vertical placement"), "Change Vertical Placement",
        [](auto& preset) -> auto& { return preset.verticalMode; }));
    body->addWidget(slider(
        {"topMargin", tr("Top margin"), "Change Top Margin", inPercent(0, 20)},
        [](auto& preset) -> auto& { return preset.topMargin; }));
    body->addWidget(slider(
        {"eyeLinePosition", tr("Eye line position"), "Change Eye Line", inPercent(0, 60)},
        [](auto& preset) -> auto& { return preset.eyeLinePosition; }));
}

void PresetForm::buildBody() {
    QVBoxLayout* body = open(Part::body, tr("Body framing"));
    body->addWidget(slider(
        {"bodyTopMargin", tr("Top margin, body"), "Change Body Framing", inPercent(0, 40)},
        [](auto& preset) -> auto& { return preset.bodyTopMargin; }, framesBody));
    body->addWidget(slider(
        {"bodyBottomAnchor", tr("Knees or feet at"), "Change Body Framing", inPercent(0, 130)},
        [](auto& preset) -> auto& { return preset.bodyBottomAnchor; }, framesBody));
    body->addWidget(slider(
        {"bodyHipAnchor", tr("Hips at"), "Change Body Framing", inPercent(0, 130)},
        [](auto& preset) -> auto& { return preset.bodyHipAnchor; }, measuresToTheHips));
}

void PresetForm::buildKeepInside() {
    QVBoxLayout* body = open(Part::keepInside, tr("Keep inside the crop"));
    constexpr auto act = "Change What Stays Inside";
    body->addWidget(check(
        "protectHair", tr("Hair outline"), act,
        [](auto& preset) -> auto& { return preset.protectHair; }));
    body->addWidget(check(
        "protectAccessories", tr("Bows, hats and what is on the head"), act,
        [](auto& preset) -> auto& { return preset.protectAccessories; }, hasHair));
    body->addWidget(check(
        "protectProps", tr("A held prop"), act,
        [](auto& preset) -> auto& { return preset.protectProps; }));
    body->addWidget(check(
        "protectPropsOverhead", tr("A prop held above the head"), act,
        [](auto& preset) -> auto& { return preset.protectPropsOverhead; }, hasProps));
    body->addWidget(slider(
        {"minEdgeClearance", tr("Least gap to the edge"), "Change Gap", inPercent(0, 10)},
        [](auto& preset) -> auto& { return preset.minEdgeClearance; }, hasHair));
}

void PresetForm::buildLeveling() {
    QVBoxLayout* body = open(Part::leveling, tr("Leveling"));
    body->addWidget(choice(
        "rotationMode", tr("Turn of the crop"), "Change Leveling",
        [](auto& preset) -> auto& { return preset.rotationMode; }));
    QLabel* detail = makeWrappedLabel({}, TextRole::small, Ink::text3);
    body->addWidget(detail);
    fields_.push_back({detail,
                       [detail](Preset preset) {
                           detail->setText(said(morva::choice(preset.rotationMode).detail));
                       },
                       {}});
    body->addWidget(slider(
        {"levelMaxDegrees", tr("Straighten at most (°)"), "Change Leveling", inDegrees(0, 10)},
        [](auto& preset) -> auto& { return preset.levelMaxDegrees; }, levelsEyes));
    body->addWidget(slider(
        {"levelStrength", tr("Strength"), "Change Leveling", inPercent(0, 100, 1)},
        [](auto& preset) -> auto& { return preset.levelStrength; }, levelsEyes));
    body->addWidget(slider(
        {"cameraRollDegrees", tr("Camera roll"), "Change Leveling", inDegrees(-10, 10)},
        [](auto& preset) -> auto& { return preset.cameraRollDegrees; }, correctsRoll));
}

void PresetForm::buildReview() {
    QVBoxLayout* body = open(Part::review, tr("Review"));
    body->addWidget(slider(
        {"autoApproveConfidence", tr("Approve at confidence"), "Change Confidence Threshold",
         inPercent(0, 100, 1)},
        [](auto& preset) -> auto& { return preset.autoApproveConfidence; }));
}

void PresetForm::buildReference() {
    QVBoxLayout* body = open(Part::reference, tr("Reference portrait"));
    auto* box = new ReferenceBox(state_);
    body->addWidget(box);
    fields_.push_back(
        {box, [this, box](Preset preset) { box->show(preset, !state_.isReadOnly()); }, {}});
}

}  // namespace morva
