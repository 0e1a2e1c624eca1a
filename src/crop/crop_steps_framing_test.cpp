// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include <gtest/gtest.h>

#include "base/leveling.h"
#include "crop/solver_test_support.h"

namespace morva {
namespace {

using enum ReviewReason;
using SolverTest::ChangePhoto;
using SolverTest::ChangePreset;
using SolverTest::expectRect;
using SolverTest::Notes;
using SolverTest::presetWith;
using SolverTest::Reasons;
using SolverTest::solved;

TEST(HeadTop, judgesHowFarTheHeadReaches) {
    struct Case {
        const char* what;
        ChangePhoto photo;
        ChangePreset preset;
        double top;
        Reasons reasons;
    };
    const auto topAt = [](double y, bool reliable = true) {
        return [=](ImageAnalysis& photo) {
            photo.headContent->topY = y;
            photo.headContent->reliable = reliable;
        };
    };
    const auto wide = [](CropPreset& p) { p.outlierTolerance = 1; };
    for (const Case& c : {
             Case{"a tall bow", topAt(830), wide, 630, {unusualHeadContent}},
             Case{"just not tall", topAt(841), wide, 641, {}},
             Case{"too low to be a head", topAt(1561), wide, 1361, {headContentUncertain}},
             Case{"unreliable and too low is one finding",
                  topAt(1561, false),
                  wide,
                  1361,
                  {headContentUncertain}},
             Case{"accessories may be cut",
                  topAt(900),
                  [&](CropPreset& p) {
                      wide(p);
                      p.protectAccessories = false;
                  },
                  1000,
                  {}},
             Case{"hair below the cap counts",
                  topAt(1250),
                  [&](CropPreset& p) {
                      wide(p);
                      p.protectAccessories = false;
                  },
                  1050,
                  {}},
         }) {
        SCOPED_TRACE(c.what);
        const CropSolution s = solved(c.photo, c.preset);
        EXPECT_NEAR(s.rect.y, c.top, 1e-9);
        EXPECT_EQ(s.reasons, c.reasons);
    }
}

TEST(HeadTop, fallsBackToTheEyeLineAndSaysWhy) {
    const auto noHead = [](ImageAnalysis& photo) { photo.headContent.reset(); };
    const CropSolution missing = solved(noHead);
    EXPECT_NEAR(missing.rect.y, 1100, 1e-9);
    EXPECT_EQ(missing.reasons, Reasons{headContentUncertain});
    EXPECT_EQ(missing.notes,
              Notes{"Hair outline unavailable, so the crop was placed by the eye line instead."});
    EXPECT_FALSE(missing.metrics->headroom);
    EXPECT_FALSE(missing.metrics->headHeightInFaceUnits);

    const CropSolution off = solved({}, [](CropPreset& p) { p.protectHair = false; });
    EXPECT_EQ(off.reasons, Reasons{});
    EXPECT_EQ(off.notes, Notes{"Hair protection is off, so the crop is placed by the eye line."});
    EXPECT_FALSE(off.metrics->sideClearanceLeft);
}

TEST(Placement, balancesHeadroomAgainstTheEyeLine) {
    struct Case {
        const char* what;
        double expected, tolerance, eyeLine;
        Reasons reasons;
    };
    for (const Case& c : {
             Case{"within tolerance", 0.30, 0.06, 0.35, {}},
             Case{"low: down to the tolerance", 0.25, 0.05, 0.30, {}},
             Case{"low: never below the clearance", 0.25, 0.01, 0.27, {faceSitsLow}},
             Case{"high: up to the tolerance", 0.45, 0.05, 0.40, {}},
             Case{"high: a little headroom at most", 0.60, 0.05, 0.41, {faceSitsHigh}},
         }) {
        SCOPED_TRACE(c.what);
        const CropSolution s = solved({}, [&](CropPreset& p) {
            p.verticalMode = VerticalMode::balanced;
            p.eyeLinePosition = c.expected;
            p.outlierTolerance = c.tolerance;
        });
        EXPECT_NEAR(s.metrics->eyeLine, c.eyeLine, 1e-9);
        EXPECT_EQ(s.reasons, c.reasons);
    }
}

TEST(Placement, checksHeadroomWhereTheEyeLineRules) {
    struct Case {
        const char* what;
        double eyeLine;
        double tolerance;
        Reasons reasons;
    };
    for (const Case& c : {Case{"as wanted", 0.35, 0.05, {}},
                          Case{"hair at the edge", 0.26, 0.2, {headContentClipped}},
                          Case{"much air", 0.42, 0.05, {headroomOutOfTolerance}},
                          Case{"little air", 0.29, 0.05, {headroomOutOfTolerance}}}) {
        SCOPED_TRACE(c.what);
        const CropSolution s = solved({}, [&](CropPreset& p) {
            p.verticalMode = VerticalMode::eyeLine;
            p.eyeLinePosition = c.eyeLine;
            p.outlierTolerance = c.tolerance;
        });
        EXPECT_NEAR(s.metrics->eyeLine, c.eyeLine, 1e-9);
        EXPECT_EQ(s.reasons, c.reasons);
    }
}

TEST(Placement, findsHairAtTheSide) {
    for (const double leftX : {1231.0, 1233.0}) {
        const CropSolution s =
            solved([=](ImageAnalysis& photo) { photo.headContent->leftX = leftX; });
        EXPECT_EQ(s.has(hairClippedAtSide), leftX < 1232);
    }
}

TEST(Framing, measuresOnTheBodyOrFallsBackToTheFace) {
    struct Case {
        const char* what;
        Framing framing;
        ChangePhoto photo;
        Rect rect;
        Reasons reasons;
        Notes notes;
    };
    const Rect headshot{1200, 1100, 1600, 2000};
    const auto ankles = [](ImageAnalysis& p) { p.body->rightAnkle = Point{2200, 4700}; };
    const auto outline = [](ImageAnalysis& p) { p.headContent->bottomY = 4900; };
    const auto noKnees = [](ImageAnalysis& p) {
        p.body->leftKnee.reset();
        p.body->rightKnee.reset();
    };
    const auto noJoints = [](ImageAnalysis& p) { p.body = BodyGeometry{}; };
    const Notes hips{"Knees are out of frame, so the crop was measured to the hips."};
    // Top of the hair 1300, margin 0.1: height = (point - 1300) / (anchor - 0.1).
    for (const Case& c : {
             Case{"to the knees", Framing::threeQuarter, {}, {400, 900, 3200, 4000}, {}, {}},
             Case{"to the hips",
                  Framing::threeQuarter,
                  noKnees,
                  {2000 - 1533.333333, 916.666667, 3066.666667, 3833.333333},
                  {},
                  hips},
             Case{"nothing to measure",
                  Framing::threeQuarter,
                  noJoints,
                  headshot,
                  {bodyNotFound},
                  {}},
             Case{"knees in the face are none",
                  Framing::threeQuarter,
                  [](ImageAnalysis& p) {
                      p.body->leftKnee = p.body->rightKnee = Point{2000, 1900};
                  },
                  headshot,
                  {bodyNotFound},
                  {}},
             Case{"to the feet", Framing::fullLength, ankles, {300, 875, 3400, 4250}, {}, {}},
             Case{"the outline's end stands in for feet",
                  Framing::fullLength,
                  outline,
                  {2000 - 1625.282167, 893.679458, 3250.564334, 4063.205418},
                  {bodyPartlyFound},
                  {}},
             Case{"knees stand in for feet",
                  Framing::fullLength,
                  {},
                  {2000 - 1957.186544, 810.703364, 3914.373089, 4892.966361},
                  {bodyPartlyFound},
                  {}},
             Case{"no feet, no knees", Framing::fullLength, noKnees, headshot, {bodyNotFound}, {}},
             Case{"down to the edge",
                  Framing::frameBottom,
                  {},
                  {2000 - 1644.444444, 888.888889, 3288.888889, 4111.111111},
                  {},
                  {}},
             Case{"no head, no body framing",
                  Framing::frameBottom,
                  [](ImageAnalysis& p) { p.headContent.reset(); },
                  headshot,
                  {headContentUncertain, bodyNotFound},
                  {"Hair outline unavailable, so the crop was placed by the eye line instead."}},
         }) {
        SCOPED_TRACE(c.what);
        const CropSolution s = solved(c.photo, [&](CropPreset& p) {
            p.framing = c.framing;
            p.bodyTopMargin = 0.1;
            p.bodyBottomAnchor = 0.9;
            p.bodyHipAnchor = 0.7;
            p.exportSettings.backdrop = BackdropMode::repeatEdges;
        });
        expectRect(s.rect, c.rect);
        EXPECT_EQ(s.reasons, c.reasons);
        Notes notes = s.notes;
        std::erase_if(notes, [](const auto& note) { return note.starts_with("The crop runs"); });
        EXPECT_EQ(notes, c.notes);
    }
}

TEST(Framing, refusesAnchorsThatLeaveNoRoomAndFacesAtTheBottom) {
    const auto anchored = [](Framing framing, double anchor) {
        return [=](CropPreset& p) {
            p.framing = framing;
            p.bodyTopMargin = 0.1;
            p.bodyBottomAnchor = anchor;
        };
    };
    EXPECT_TRUE(solved({}, anchored(Framing::threeQuarter, 0.19)).has(bodyNotFound));
    const CropSolution knees = solved({}, anchored(Framing::fullLength, 0.34));
    EXPECT_TRUE(knees.has(bodyNotFound));
    EXPECT_FALSE(knees.has(bodyPartlyFound)) << "the fallback was not used";
    const auto low = [](ImageAnalysis& p) { p = Synthetic::movedBy(p, {0, 3300}); };
    EXPECT_TRUE(solved(low, anchored(Framing::frameBottom, 1)).has(bodyNotFound));
}

TEST(Framing, standsOnThePhotosBottomEdgeAlsoWhenTurned) {
    for (const double tilt : {-3.0, 0.0, 1.5, 3.0}) {
        for (const double anchor : {0.8, 1.0, 1.07, 1.5}) {
            const ImageAnalysis photo = Synthetic::turnedBy(Synthetic::portrait(), tilt);
            const CropSolution s = CropSolver::solveOnce(photo, presetWith([&](CropPreset& p) {
                                                             p.framing = Framing::frameBottom;
                                                             p.bodyTopMargin = -1;
                                                             p.bodyBottomAnchor = anchor;
                                                             p.rotationMode =
                                                                 RotationMode::levelEyes;
                                                         }));
            // A negative margin counts as none; the photo ends between 1 and 1.3 crop heights down.
            EXPECT_NEAR(*s.metrics->headroom, 0, 1e-9);
            const double edge = s.rect.y + s.rect.height * std::clamp(anchor, 1.0, 1.3);
            const auto onPhoto = [&](double x) {
                return Leveling::unlevel({x, edge}, {2000, 2500}, s.rotationDegrees).y;
            };
            EXPECT_NEAR(std::max(onPhoto(s.rect.x), onPhoto(s.rect.maxX())), 5000, 0.5)
                << tilt << " " << anchor;
        }
    }
}

TEST(HorizontalAnchor, placesThePointThatThePresetNames) {
    struct Case {
        const char* what;
        HorizontalAnchor anchor;
        ChangePhoto photo;
        double x;
    };
    const auto tipped = [](ImageAnalysis& p) { p.faces[0].chin.x = 2100; };
    const auto hairTo = [](double right, bool reliable) {
        return [=](ImageAnalysis& p) {
            p.headContent->rightX = right;
            p.headContent->reliable = reliable;
        };
    };
    const auto torsoAt = [](double x) {
        return [=](ImageAnalysis& p) {
            p.body = BodyGeometry{};
            p.body->leftHip = Point{x, 3600};
        };
    };
    const auto subject = [](ImageAnalysis& p) {
        p = Synthetic::holding(p, {1500, 1300, 1400, 3000});
    };
    using enum HorizontalAnchor;
    for (const Case& c : {
             Case{"face", faceCenter, tipped, 2050},
             Case{"eyes", eyes, tipped, 2000},
             Case{"head: a quarter of the hair's centre", headCenter, hairTo(2760, true), 2050},
             Case{"head: untrusted hair", headCenter, hairTo(2760, false), 2000},
             Case{"head: no width", headCenter, hairTo(1640, true), 2000},
             Case{"body", bodyCenter, torsoAt(2400), 2400},
             Case{"body: too far from the face", bodyCenter, torsoAt(2401), 2000},
             Case{"subject", subjectCenter, subject, 2200},
             Case{"subject unknown: the torso at any distance", subjectCenter, torsoAt(2600), 2600},
             Case{"subject untrusted", subjectCenter,
                  [&](ImageAnalysis& p) {
                      subject(p);
                      p.subject->reliable = false;
                      p.body.reset();
                  },
                  2000},
         }) {
        SCOPED_TRACE(c.what);
        const CropSolution s =
            solved(c.photo, [&](CropPreset& p) { p.horizontalAnchor = c.anchor; });
        EXPECT_NEAR(s.anchor.x, c.x, 1e-9);
    }
}

TEST(HorizontalAnchor, movesTheBodyToKeepAPropInside) {
    struct Case {
        const char* what;
        double left, right;
        EdgeContact contact;
        double x;
    };
    // Half the crop less its clearance is 768.
    for (const Case& c : {
             Case{"inside already", 1500, 2700, {}, 2000},
             Case{"out to the right", 1500, 2868, {}, 2100},
             Case{"out to the left", 1100, 2300, {}, 1868},
             Case{"wider than the crop", 1100, 3100, {}, 2100},
             Case{"cut off at the left: the right is not followed", 1, 2868, {}, 769},
             Case{"cut off at the left by contact", 1500, 2868, {.left = true}, 2000},
             Case{"cut off at the right by contact", 1100, 2300, {.right = true}, 2000},
             Case{"cut off at both", 1100, 2868, {.left = true, .right = true}, 2000},
         }) {
        SCOPED_TRACE(c.what);
        const CropSolution s = solved(
            [&](ImageAnalysis& p) {
                p = Synthetic::holding(p, {c.left, 1400, c.right - c.left, 1400});
                p.edgeContact = c.contact;
            },
            [](CropPreset& p) {
                p.horizontalAnchor = HorizontalAnchor::bodyCenter;
                p.protectProps = true;
            });
        EXPECT_NEAR(s.anchor.x, c.x, 1e-9);
    }
}

}  // namespace
}  // namespace morva
