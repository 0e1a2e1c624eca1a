// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/reference_analyzer.h"

#include <gtest/gtest.h>

#include "model/presets/reference_notes.h"

namespace morva {

namespace {

FaceGeometry face() {
    FaceGeometry face;
    face.leftEye = {350, 310};
    face.rightEye = {450, 330};
    face.chin = {430, 520};
    face.landmarkConfidence = 0.9;
    return face;
}

HeadContent head(bool reliable) {
    return {.topY = 50,
            .topX = 400,
            .leftX = 300,
            .rightX = 500,
            .reliable = reliable,
            .note = {},
            .bottomY = {}};
}

TEST(ReferenceMeasurement, isInSharesOfTheImage) {
    const ReferenceGeometry measured =
        ReferenceAnalyzer::measure(face(), head(true), {800, 1000}, "model.jpg", 1.7e9);
    EXPECT_EQ(measured.sourceName, "model.jpg");
    EXPECT_EQ(measured.cropWidth, 800);
    EXPECT_EQ(measured.cropHeight, 1000);
    EXPECT_DOUBLE_EQ(measured.faceScale, face().faceUnit() / 1000);
    EXPECT_DOUBLE_EQ(measured.eyeX, 0.5);
    EXPECT_DOUBLE_EQ(measured.eyeY, 0.32);
    EXPECT_DOUBLE_EQ(measured.chinX, 430.0 / 800);
    EXPECT_DOUBLE_EQ(measured.chinY, 0.52);
    EXPECT_DOUBLE_EQ(measured.faceCenterX, 415.0 / 800);
    EXPECT_EQ(measured.headTopY, 0.05);
    EXPECT_DOUBLE_EQ(measured.aspect, 0.8);
    EXPECT_EQ(measured.landmarkConfidence, 0.9);
    EXPECT_EQ(measured.measuredAt, 1.7e9);
}

TEST(ReferenceMeasurement, saysWhatAPresetCannotTakeOver) {
    struct Case {
        const char* what;
        double presetWidth;
        std::optional<HeadContent> head;
        std::vector<std::string> notes;
    };
    const std::string ratio =
        "The reference is 0.800:1 but the preset ratio is 0.750. The face measurements were "
        "adopted; the ratio was kept.";
    const std::string outline =
        "The hair outline could not be measured on the reference, so the top margin was left "
        "unchanged.";
    for (const Case& c : {
             Case{"the same ratio", 0.8, head(true), {}},
             Case{"within one percent", 0.793, head(true), {}},
             Case{"another ratio", 0.75, head(true), {ratio}},
             Case{"an outline that is not trusted", 0.8, head(false), {outline}},
             Case{"both", 0.75, {}, {ratio, outline}},
         }) {
        SCOPED_TRACE(c.what);
        CropPreset preset;
        preset.aspectWidth = c.presetWidth;
        preset.aspectHeight = 1;
        preset.topMargin = 0.07;
        const ReferenceGeometry measured =
            ReferenceAnalyzer::measure(face(), c.head, {800, 1000}, "model.jpg", 0);
        preset.apply(measured);
        EXPECT_EQ(ReferenceNotes::notes(measured, preset), c.notes);
        const bool trusted = c.head && c.head->reliable;
        EXPECT_EQ(preset.topMargin, trusted ? 0.05 : 0.07);
    }
}

}  // namespace

}  // namespace morva
