// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>

#include <QCoreApplication>
#include <QLocale>

#include "ui/panel/preset_form_words.h"
#include "ui/widgets/words.h"

namespace morva::PresetFormWords {

namespace {

using Part = PresetForm::Part;

struct Text {
    Q_DECLARE_TR_FUNCTIONS(PresetForm)
};

QString placement(const CropPreset& preset) {
    if (isBody(preset.framing)) return Text::tr("by the body");
    switch (preset.verticalMode) {
        case VerticalMode::topMargin:
            return Text::tr("%1 above the head").arg(percent(preset.topMargin, 1));
        case VerticalMode::balanced:
            return Text::tr("balanced");
        case VerticalMode::eyeLine:
            return Text::tr("eyes at %1").arg(percent(preset.eyeLinePosition, 1));
    }
    return {};
}

QString keptInside(const CropPreset& preset) {
    QStringList kept;
    if (preset.protectHair) kept << Text::tr("hair");
    if (preset.protectHair && preset.protectAccessories) kept << Text::tr("head");
    if (preset.protectProps) kept << Text::tr("prop");
    if (kept.isEmpty()) return Text::tr("nothing");
    QString text = kept.join(Text::tr(", "));
    text[0] = text[0].toUpper();
    return text;
}

QString leveling(const CropPreset& preset) {
    switch (preset.rotationMode) {
        case RotationMode::never:
            return Text::tr("not used");
        case RotationMode::correctCameraRoll:
            return Text::tr("%1°").arg(number(preset.cameraRollDegrees, 1));
        case RotationMode::levelEyes:
            return Text::tr("at most %1°").arg(number(preset.levelMaxDegrees, 1));
    }
    return {};
}

QString backdrop(const ExportSettings& settings) {
    switch (settings.backdrop) {
        case BackdropMode::keep:
            return Text::tr("not used");
        case BackdropMode::repeatEdges:
            return Text::tr("edges repeated");
        case BackdropMode::replace:
            return settings.plateURL ? pathText(settings.plateURL->filename())
                                     : Text::tr("plain backdrop");
    }
    return {};
}

QString sizeText(const ExportSettings& settings) {
    return Text::tr("%1 × %2").arg(settings.pixelWidth).arg(settings.pixelHeight);
}

/// "4 : 5".
QString ratioText(const CropPreset& preset) {
    const QLocale locale;
    return Text::tr("%1 : %2").arg(locale.toString(preset.aspectWidth, 'g', 6),
                                   locale.toString(preset.aspectHeight, 'g', 6));
}

}  // namespace

QString wrongRatio(const CropPreset& preset) {
    return Text::tr("%1 is not %2.").arg(sizeText(preset.exportSettings), ratioText(preset));
}

QString mainValue(Part part, const CropPreset& preset) {
    switch (part) {
        case Part::cropType:
            return ratioText(preset);
        case Part::faceSize:
            return isBody(preset.framing) ? Text::tr("by the body") : percent(preset.faceScale, 1);
        case Part::placement:
            return placement(preset);
        case Part::body:
            return isBody(preset.framing) ? percent(preset.bodyBottomAnchor, 1)
                                          : Text::tr("not used");
        case Part::keepInside:
            return keptInside(preset);
        case Part::leveling:
            return leveling(preset);
        case Part::review:
            return percent(preset.autoApproveConfidence);
        case Part::reference:
            return preset.reference ? asGiven(preset.reference->sourceName) : Text::tr("not used");
        case Part::exports:
            return RatioCheck::passes(preset) ? sizeText(preset.exportSettings)
                                              : wrongRatio(preset);
        case Part::backdrop:
            return backdrop(preset.exportSettings);
    }
    return {};
}

}  // namespace morva::PresetFormWords
