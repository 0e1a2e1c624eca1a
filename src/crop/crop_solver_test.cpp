// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "crop/solver_test_support.h"

namespace morva {
namespace {

using enum ReviewReason;
using SolverTest::askingFor;
using SolverTest::expectRect;
using SolverTest::Notes;
using SolverTest::photoWith;
using SolverTest::presetWith;
using SolverTest::Reasons;
using SolverTest::solved;

TEST(CropSolver, solvesAPlainPortraitWithNothingToReview) {
    const CropSolution s = solved({});
    expectRect(s.rect, {1200, 1100, 1600, 2000});
    EXPECT_EQ(s.status, CropStatus::ready);
    EXPECT_EQ(s.anchor, (Point{2000, 1800}));
    EXPECT_EQ(s.notes, Notes{});
    EXPECT_NEAR(s.metrics->faceScale, 0.2, 1e-12);
    EXPECT_NEAR(s.metrics->anchorX, 0.5, 1e-12);
    EXPECT_NEAR(s.metrics->eyeLine, 0.35, 1e-12);
    EXPECT_NEAR(s.metrics->chinLine, 0.55, 1e-12);
    EXPECT_NEAR(*s.metrics->headroom, 0.1, 1e-12);
    EXPECT_NEAR(*s.metrics->sideClearanceLeft, 440 / 1600.0, 1e-12);
    EXPECT_NEAR(*s.metrics->sideClearanceRight, 440 / 1600.0, 1e-12);
    EXPECT_NEAR(*s.metrics->headHeightInFaceUnits, 1.25, 1e-12);
    EXPECT_FALSE(s.metrics->propZoom);
}

TEST(CropSolver, failsWithoutAFaceOfMoreThanAPixel) {
    const auto faceOf = [](double unit) {
        return [=](ImageAnalysis& photo) {
            photo.faces[0].chin.y = photo.faces[0].eyeMidpoint().y + unit;
        };
    };
    CropSolution none;
    none.reasons = {noFaceFound};
    none.notes = {"No face was found in this photo."};
    EXPECT_EQ(solved([](ImageAnalysis& photo) { photo.faces.clear(); }), none);
    EXPECT_EQ(solved(faceOf(1.0)), none);
    EXPECT_NE(solved(faceOf(1.0001)).status, CropStatus::failed);
    none.notes = {"The file is damaged."};
    EXPECT_EQ(solved([](ImageAnalysis& photo) {
                  photo.faces.clear();
                  photo.error = "The file is damaged.";
              }),
              none);
}

TEST(CropSolver, sizesTheFramesOfOneChildAlikeUnlessThePresetIsNotSteady) {
    const ImageAnalysis photo = Synthetic::portrait();
    CropPreset preset = Synthetic::preset();
    EXPECT_NEAR(CropSolver::solve(photo, preset, 420).rect.height, 2100, 1e-9);
    preset.steadyPerSubject = false;
    EXPECT_NEAR(CropSolver::solve(photo, preset, 420).rect.height, 2000, 1e-9);
}

TEST(Levelling, turnsByTheEyesTiltWithinTheLimit) {
    struct Case {
        const char* what;
        double tilt;
        RotationMode mode;
        double limit, strength, roll;
    };
    for (const Case& c : {
             Case{"a pose stays a pose", 12, RotationMode::levelEyes, 5, 1, 5},
             Case{"to the other side", -12, RotationMode::levelEyes, 5, 1, -5},
             Case{"fully", 2, RotationMode::levelEyes, 3, 1, 2},
             Case{"half", -4, RotationMode::levelEyes, 3, 0.5, -2},
             Case{"no more than fully", 2, RotationMode::levelEyes, 3, 7, 2},
             Case{"a negative limit allows nothing", 2, RotationMode::levelEyes, -3, 1, 0},
             Case{"never", 2, RotationMode::never, 3, 1, 0},
             Case{"the camera's roll without limit", 2, RotationMode::correctCameraRoll, 3, 1, -7},
         }) {
        SCOPED_TRACE(c.what);
        const CropSolution s = CropSolver::solve(Synthetic::turnedBy(Synthetic::portrait(), c.tilt),
                                                 presetWith([&](CropPreset& p) {
                                                     p.rotationMode = c.mode;
                                                     p.levelMaxDegrees = c.limit;
                                                     p.levelStrength = c.strength;
                                                     p.cameraRollDegrees = -7;
                                                 }));
        EXPECT_NEAR(s.rotationDegrees, c.roll, 1e-9);
    }
}

TEST(Levelling, solvesATurnedPhotoLikeTheStraightOne) {
    for (const Framing framing : {Framing::face, Framing::threeQuarter}) {
        for (const HorizontalAnchor anchor :
             {HorizontalAnchor::eyes, HorizontalAnchor::headCenter, HorizontalAnchor::bodyCenter}) {
            const CropPreset preset = presetWith([&](CropPreset& p) {
                p.framing = framing;
                p.horizontalAnchor = anchor;
                p.rotationMode = RotationMode::levelEyes;
            });
            const ImageAnalysis straight =
                photoWith([](ImageAnalysis& photo) { photo.headContent->topX = 2200; });
            const CropSolution expected = CropSolver::solveOnce(straight, preset);
            for (const double tilt : {-2.5, 2.5}) {
                const CropSolution s =
                    CropSolver::solveOnce(Synthetic::turnedBy(straight, tilt), preset);
                // The sides of the hair are known as columns only, which costs a pixel.
                expectRect(s.rect, expected.rect, 1);
                EXPECT_EQ(s.reasons, expected.reasons);
                EXPECT_NEAR(s.metrics->eyeLine, expected.metrics->eyeLine, 1e-9);
            }
        }
    }
}

TEST(Checks, flagResolutionOtherFacesAndLowConfidence) {
    const auto smallerFace = [](double share) {
        return [=](ImageAnalysis& p) {
            p.faces.push_back(p.faces[0]);
            p.faces[1].chin.y = p.faces[1].eyeMidpoint().y + 400 * share;
        };
    };
    EXPECT_EQ(solved(smallerFace(0.35)).reasons, Reasons{multipleFaces});
    EXPECT_EQ(solved(smallerFace(0.34)).reasons, Reasons{});
    const auto exportHeight = [](int pixels) {
        return [=](CropPreset& p) { p.exportSettings.pixelHeight = pixels; };
    };
    EXPECT_EQ(solved({}, exportHeight(4001)).reasons, Reasons{lowResolution});
    EXPECT_EQ(solved({}, exportHeight(4000)).reasons, Reasons{});
    const CropSolution zoomed =
        solved([](ImageAnalysis& p) { p = Synthetic::holding(p, askingFor(1.3, 'r')); },
               [&](CropPreset& p) {
                   exportHeight(4001)(p);
                   p.protectProps = true;
               });
    EXPECT_TRUE(zoomed.has(lowResolution)) << "a zoom-out adds no resolution to the face";
    const auto unsure = [](ImageAnalysis& p) { p.faces[0].landmarkConfidence = 0.8; };
    const CropSolution s = solved(unsure);
    EXPECT_NEAR(s.confidence, 0.35 / 0.45, 1e-9);
    EXPECT_EQ(s.reasons, Reasons{lowConfidence});
    EXPECT_EQ(s.status, CropStatus::review);
    EXPECT_TRUE(solved(unsure, [](CropPreset& p) { p.autoApproveConfidence = 0.7; }).isReady());
}

TEST(Retries, giveUpTheHairsShareOfTheAnchorForCanvas) {
    // Hair hangs far to the left: the head-centre anchor needs canvas there that a slide cannot
    // spare, the face-centre anchor does not.
    const auto hair = [](ImageAnalysis& p) {
        p = Synthetic::movedBy(p, {-1180, 0});
        p.headContent->leftX = 30;
        p.headContent->rightX = 1100;
    };
    const CropSolution s =
        solved(hair, [](CropPreset& p) { p.horizontalAnchor = HorizontalAnchor::headCenter; });
    EXPECT_FALSE(s.shortfall);
    EXPECT_NEAR(s.rect.x, 20, 1e-9);
}

/// A portrait with this much photo above the plain crop, its eyes tilted by 3 degrees.
ImageAnalysis tiltedNearTheTop(double roomAbove) {
    ImageAnalysis photo = Synthetic::movedBy(Synthetic::portrait(), {0, -1100 + roomAbove});
    FaceGeometry& face = photo.faces[0];
    const Point eyes = face.eyeMidpoint();
    face.leftEye = face.leftEye.rotated(eyes, 3);
    face.rightEye = face.rightEye.rotated(eyes, 3);
    return photo;
}

TEST(Retries, levelLessUntilTheCropStaysOnThePhoto) {
    struct Case {
        double roomAbove;
        double roll;
        bool needsCanvas;
    };
    const CropPreset preset =
        presetWith([](CropPreset& p) { p.rotationMode = RotationMode::levelEyes; });
    // Turned by 3 degrees, a corner of the crop rises about 42 pixels.
    for (const Case& c : {Case{50, 3, false}, Case{33, 2.25, false}, Case{25, 1.5, false},
                          Case{15, 0.75, false}, Case{5, 0, false}, Case{-20, 0.75, true}}) {
        SCOPED_TRACE(c.roomAbove);
        const CropSolution s = CropSolver::solve(tiltedNearTheTop(c.roomAbove), preset);
        EXPECT_NEAR(s.rotationDegrees, c.roll, 1e-6);
        EXPECT_EQ(s.has(needsMoreCanvas), c.needsCanvas);
    }
}

TEST(Retries, doNotReturnToTheHairsShareOfTheAnchor) {
    ImageAnalysis photo = tiltedNearTheTop(25);
    photo.headContent->rightX += 400;
    CropPreset preset = presetWith([](CropPreset& p) { p.rotationMode = RotationMode::levelEyes; });
    const CropSolution onFace = CropSolver::solve(photo, preset);
    preset.horizontalAnchor = HorizontalAnchor::headCenter;
    EXPECT_EQ(CropSolver::solve(photo, preset), onFace);
}

}  // namespace
}  // namespace morva
