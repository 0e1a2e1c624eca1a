// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/reason_words.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>

#include "crop/confidence_scorer.h"
#include "ui/widgets/words.h"

namespace morva::ReasonWords {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(ReasonWords)
};

QString landmarks(const FaceGeometry& face) {
    if (face.chinAgreement() > ConfidenceScorer::chinWorthReview)
        return Text::tr("The two measurements of the chin lie %1 of the face apart.")
            .arg(percent(face.chinAgreement()));
    return Text::tr("The eyes are %1 face heights apart; %2 is usual.")
        .arg(number(face.eyeSpacingRatio(), 2),
             number(ConfidenceScorer::typicalEyeSpacingRatio, 2));
}

QString headPose(const FaceGeometry& face) {
    using namespace ConfidenceScorer;
    const auto degrees = [](double value) { return number(std::trunc(std::abs(value))); };
    if (face.yawDegrees && std::abs(*face.yawDegrees) > yawWorthReview)
        return Text::tr("The head is turned %1° to the side; the face looks narrower than it is.")
            .arg(degrees(*face.yawDegrees));
    if (face.pitchDegrees && std::abs(*face.pitchDegrees) > pitchWorthReview)
        return Text::tr("The head is tipped %1° up or down; the face looks shorter than it is.")
            .arg(degrees(*face.pitchDegrees));
    return Text::tr("The head is tilted %1°, too far to be sure of the crop.")
        .arg(degrees(face.rollDegrees()));
}

QString hairOutline(const Subject& subject) {
    const auto& head = subject.item.analysis->headContent;
    if (!head) return Text::tr("No outline of the hair was found, so its top is not known.");
    if (!head->reliable && head->note)
        return Text::tr("%1. The top of the hair is a guess.").arg(said(*head->note));
    if (!head->reliable) return Text::tr("The outline of the hair cannot be trusted.");
    return Text::tr("The hair seems to end very close above the eyes, which is hard to believe.");
}

QString hairAtSide(const CropMetrics& metrics, const CropPreset& preset) {
    const double left = metrics.sideClearanceLeft.value_or(1);
    const double right = metrics.sideClearanceRight.value_or(1);
    const double least = std::min(left, right);
    if (least < 0)
        return (left < right ? Text::tr("The hair passes the left edge of the crop by %1.")
                             : Text::tr("The hair passes the right edge of the crop by %1."))
            .arg(percent(-least, 1));
    return (left < right
                ? Text::tr("%1 are left beside the hair at the left; the preset keeps %2.")
                : Text::tr("%1 are left beside the hair at the right; the preset keeps %2."))
        .arg(percent(least, 1), percent(preset.minEdgeClearance, 1));
}

QString hairAtTop(const CropMetrics& metrics, const CropPreset& preset) {
    const double headroom = metrics.headroom.value_or(0);
    if (headroom < 0)
        return Text::tr("The head passes the top of the crop by %1.").arg(percent(-headroom, 1));
    return Text::tr("%1 are left above the head; the preset keeps %2.")
        .arg(percent(headroom, 1), percent(preset.minEdgeClearance, 1));
}

QString eyeLine(const CropMetrics& metrics, const CropPreset& preset) {
    const double off = metrics.eyeLine - preset.eyeLinePosition;
    const QString sentence = off > 0 ? Text::tr(
                                           "The eye line is at %1, %2 lower than the preset asks "
                                           "for; tall hair or a bow pushes the face down.")
                                     : Text::tr(
                                           "The eye line is at %1, %2 higher than the preset asks "
                                           "for.");
    return sentence.arg(percent(metrics.eyeLine, 1), percent(std::abs(off), 1));
}

QString canvas(const Subject& subject) {
    if (!subject.lacking) return Text::tr("The crop reaches past the edge of the photo.");
    const QString where = missing(*subject.lacking);
    const bool blocked = subject.preset.exportSettings.backdrop != BackdropMode::keep &&
                         subject.item.solution && !subject.item.solution->canvasExtendable;
    return blocked ? Text::tr(
                         "The photo ends inside the frame (%1) and cuts the child off there, so "
                         "nothing is added.")
                         .arg(where)
                   : Text::tr("The photo ends inside the frame: %1.").arg(where);
}

QString otherFaces(const ImageAnalysis& analysis) {
    const FaceGeometry& main = *analysis.primary();
    const auto isSecond = [&](const FaceGeometry& face) {
        return &face != &main &&
               face.faceUnit() / main.faceUnit() >= CropSolver::secondaryFaceThreshold;
    };
    const auto others = std::ranges::count_if(analysis.faces, isSecond);
    return Text::tr("%n other face(s) could be meant as well; the crop follows the largest.", "",
                    static_cast<int>(others));
}

QString resolution(const Subject& subject) {
    const double height = subject.item.solution->rect.height;
    const int wanted = subject.preset.exportSettings.pixelHeight;
    return Text::tr(
               "The crop is %1 px high and would be enlarged %2 times to %3 px; %4 times is the "
               "limit.")
        .arg(number(height), number(height > 0 ? wanted / height : 0, 1), number(wanted),
             number(CropSolver::maxUpscale));
}

QString propZoom(const CropMetrics& metrics) {
    return Text::tr("Zoomed out %1 so that the prop fits; the face is that much smaller.")
        .arg(percent(metrics.propZoom.value_or(1) - 1));
}

/// The reasons that can be told without a crop.
QString aboutTheFace(ReviewReason reason, const Subject& subject) {
    const FaceGeometry* face = subject.item.analysis->primary();
    if (!face || reason == ReviewReason::noFaceFound)
        return Text::tr("There is no face to crop by. Such a photo is not exported.");
    switch (reason) {
        case ReviewReason::multipleFaces:
            return otherFaces(*subject.item.analysis);
        case ReviewReason::lowLandmarkConfidence:
            return Text::tr("Eyes and chin are only %1 sure; less than %2 needs a look.")
                .arg(percent(face->landmarkConfidence),
                     percent(ConfidenceScorer::landmarkWorthReview));
        case ReviewReason::landmarkSanity:
            return landmarks(*face);
        case ReviewReason::unusualHeadPose:
            return headPose(*face);
        case ReviewReason::headContentUncertain:
            return hairOutline(subject);
        default:
            return {};
    }
}

}  // namespace

Compared compared(double one, double other) {
    for (const int decimals : {0, 1, 2}) {
        Compared made{percent(one, decimals), percent(other, decimals)};
        if (made.one != made.other) return made;
    }
    return {percent(one), percent(other)};
}

QString missing(const CanvasShortfall& lacking) {
    QStringList sides;
    const auto add = [&](double pixels, const char* text) {
        if (pixels > CanvasShortfall::tolerance) sides << Text::tr(text).arg(number(pixels));
    };
    add(lacking.top, QT_TRANSLATE_NOOP("ReasonWords", "%1 px missing above"));
    add(lacking.bottom, QT_TRANSLATE_NOOP("ReasonWords", "%1 px missing below"));
    add(lacking.left, QT_TRANSLATE_NOOP("ReasonWords", "%1 px missing at the left"));
    add(lacking.right, QT_TRANSLATE_NOOP("ReasonWords", "%1 px missing at the right"));
    return sides.join(Text::tr(", "));
}

QString explanation(ReviewReason reason, const Subject& subject) {
    const QString face = aboutTheFace(reason, subject);
    if (!face.isEmpty() || !subject.crop) return face;
    const CropMetrics& metrics = subject.crop->metrics;
    const CropPreset& preset = subject.preset;
    switch (reason) {
        case ReviewReason::unusualHeadContent:
            return Text::tr("The head reaches %1 face heights above the eyes; up to %2 is usual.")
                .arg(number(metrics.headHeightInFaceUnits.value_or(0), 2),
                     number(CropSolver::maxHeadHeightInFaceUnits, 2));
        case ReviewReason::headContentClipped:
            return hairAtTop(metrics, preset);
        case ReviewReason::hairClippedAtSide:
            return hairAtSide(metrics, preset);
        case ReviewReason::needsMoreCanvas:
            return canvas(subject);
        case ReviewReason::faceSitsLow:
        case ReviewReason::faceSitsHigh:
            return eyeLine(metrics, preset);
        case ReviewReason::headroomOutOfTolerance:
            return Text::tr("%1 are left above the head; the preset asks for %2 ± %3.")
                .arg(percent(metrics.headroom.value_or(0), 1), percent(preset.topMargin, 1),
                     percent(preset.outlierTolerance));
        case ReviewReason::lowResolution:
            return resolution(subject);
        case ReviewReason::lowConfidence: {
            const Compared scores =
                compared(subject.item.solution->confidence, preset.autoApproveConfidence);
            return Text::tr("Scored %1; the preset asks for %2.").arg(scores.one, scores.other);
        }
        case ReviewReason::bodyNotFound:
            return Text::tr("Knees or feet could not be measured, so the face sets the size.");
        case ReviewReason::bodyPartlyFound:
            return Text::tr(
                "The ankles were not seen; the crop was measured by the knees or the "
                "outline.");
        case ReviewReason::propClipped:
            return Text::tr("What the child holds needs more than the largest zoom of %1.")
                .arg(number(metrics.propZoom.value_or(CropSolver::maxPropZoom), 1));
        case ReviewReason::zoomedOutForProp:
            return propZoom(metrics);
        default:
            return {};
    }
}

}  // namespace morva::ReasonWords
