// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/crop_solver.h"

#include <functional>

#include <gtest/gtest.h>

#include "base/leveling.h"
#include "crop/synthetic_portrait.h"

namespace morva {
namespace {

using enum ReviewReason;
using Reasons = std::vector<ReviewReason>;
using Notes = std::vector<std::string>;
using ChangePhoto = std::function<void(ImageAnalysis&)>;
using ChangePreset = std::function<void(CropPreset&)>;

ImageAnalysis photoWith(const ChangePhoto& change) {
    ImageAnalysis photo = Synthetic::portrait();
    if (change) change(photo);
    return photo;
}

CropPreset presetWith(const ChangePreset& change) {
    CropPreset preset = Synthetic::preset();
    if (change) change(preset);
    return preset;
}

CropSolution solved(const ChangePhoto& photo, const ChangePreset& preset = {}) {
    return CropSolver::solve(photoWith(photo), presetWith(preset));
}

void expectRect(const Rect& rect, const Rect& expected, double tolerance = 1e-6) {
    EXPECT_NEAR(rect.x, expected.x, tolerance);
    EXPECT_NEAR(rect.y, expected.y, tolerance);
    EXPECT_NEAR(rect.width, expected.width, tolerance);
    EXPECT_NEAR(rect.height, expected.height, tolerance);
}

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

/// A child whose outline asks the plain crop for this zoom on one side. The crop's clearance is 32,
/// its pivot lies 800 from the sides and 1000 from top and bottom.
Rect askingFor(double zoom, char side) {
    Rect box{1500, 1400, 1000, 1400};
    const double sideways = 768 + 800 * (zoom - 1);
    const double upright = 968 + 1000 * (zoom - 1);
    if (side == 'l') box = {2000 - sideways, 1400, 400 + sideways, 1400};
    if (side == 'r') box.width = 500 + sideways;
    if (side == 't') box = {1500, 2100 - upright, 1000, upright};
    if (side == 'b') box.height = 700 + upright;
    return box;
}

TEST(PropZoom, zoomsOutAsFarAsThePropNeedsAndTheLimitAllows) {
    struct Case {
        const char* what;
        char side;
        double needed;
        bool overhead;
        double zoom;
        Reasons reasons;
        Notes notes;
    };
    const auto zoomed = [](const char* percent) {
        return Notes{std::string("Zoomed out ") + percent +
                     "% so the whole prop fits; the face is that much smaller than the rest of the "
                     "batch."};
    };
    const Notes tooBig{"What the child is holding is too big to fit at this crop size."};
    for (const Case& c : {
             Case{"fits", 'r', 1, false, 1, {}, {}},
             Case{"not worth a word", 'r', 1.05, false, 1.05, {}, {}},
             Case{"worth a look", 'l', 1.07, false, 1.07, {zoomedOutForProp}, zoomed("7")},
             Case{
                 "only said where overhead props are kept", 'b', 1.07, true, 1.07, {}, zoomed("7")},
             Case{"rounded", 'b', 1.246, false, 1.246, {zoomedOutForProp}, zoomed("25")},
             Case{"too big", 'r', 1.7, false, 1.6, {propClipped}, tooBig},
             Case{"not too big where overhead props are kept",
                  'r',
                  1.7,
                  true,
                  1.7,
                  {},
                  zoomed("70")},
             Case{"too big even so", 'l', 2.5, true, 2.4, {propClipped}, tooBig},
             Case{"overhead", 't', 1.3, true, 1.3, {}, zoomed("30")},
             Case{"overhead, not protected", 't', 1.3, false, 1, {}, {}},
         }) {
        SCOPED_TRACE(c.what);
        const CropSolution s = solved(
            [&](ImageAnalysis& p) {
                p = Synthetic::holding(p, askingFor(c.needed, c.side));
                p.sourceWidth = p.sourceHeight = 9000;
                p = Synthetic::movedBy(p, {3000, 3000});
            },
            [&](CropPreset& p) {
                p.protectProps = true;
                p.protectPropsOverhead = c.overhead;
            });
        expectRect(s.rect,
                   {5000 - 800 * c.zoom, 5100 - 1000 * c.zoom, 1600 * c.zoom, 2000 * c.zoom});
        EXPECT_NEAR(s.metrics->propZoom.value_or(1), c.zoom, 1e-9);
        EXPECT_EQ(s.metrics->propZoom.has_value(), c.zoom > 1);
        EXPECT_EQ(s.reasons, c.reasons);
        EXPECT_EQ(s.notes, c.notes);
    }
}

TEST(PropZoom, ignoresSidesAtWhichThePhotoCutsTheSubject) {
    const auto zoomOf = [](Rect bounds, const EdgeContact& contact) {
        const CropSolution s = solved(
            [&](ImageAnalysis& p) {
                p = Synthetic::holding(p, bounds);
                p.edgeContact = contact;
            },
            [](CropPreset& p) { p.protectProps = p.protectPropsOverhead = true; });
        return s.metrics->propZoom.value_or(1);
    };
    EXPECT_NEAR(zoomOf(askingFor(1.3, 'l'), {}), 1.3, 1e-9);
    EXPECT_EQ(zoomOf(askingFor(1.3, 'l'), {.left = true}), 1);
    EXPECT_EQ(zoomOf(askingFor(1.3, 'r'), {.right = true}), 1);
    EXPECT_EQ(zoomOf(askingFor(1.3, 't'), {.top = true}), 1);
    EXPECT_EQ(zoomOf(askingFor(1.3, 'b'), {.bottom = true}), 1);
    EXPECT_EQ(zoomOf({1, 1400, 2000, 1400}, {}), 1) << "ends at the photo's left edge";
    EXPECT_EQ(zoomOf({1500, 1400, 1000, 3599}, {}), 1) << "ends at the photo's bottom edge";
    EXPECT_GT(zoomOf({2, 1400, 2000, 1400}, {}), 1);
}

TEST(PropZoom, keepsTheBottomFramingOnThePhotosEdge) {
    const CropSolution s = solved(
        [](ImageAnalysis& p) {
            p = Synthetic::holding(p, {300, 1300, 2500, 3700});
        },
        [](CropPreset& p) {
            p.framing = Framing::frameBottom;
            p.bodyTopMargin = 0.1;
            p.bodyBottomAnchor = 1;
            p.protectProps = true;
        });
    EXPECT_GT(s.metrics->propZoom.value_or(1), 1.05);
    EXPECT_NEAR(s.rect.maxY(), 5000, 1e-6);
    EXPECT_NEAR(s.rect.center().x, 2000, 1e-6);
}

TEST(SideSlide, staysWithinTheBackdropsToleranceTheLimitAndTheHair) {
    struct Case {
        const char* what;
        double overhang;
        BackdropMode backdrop;
        double hairLeft;
        double slide;
        Notes notes;
    };
    using enum BackdropMode;
    // The clearance of the hair is 32, the backdrop's tolerance 40, the limit 192.
    for (const Case& c : {
             Case{"grey outside the frame: every pixel counts",
                  10,
                  keep,
                  400,
                  10,
                  {"Slid 10 px right to stay on the photo."}},
             Case{"too little to see", 0.5, keep, 400, 0, {}},
             Case{"the backdrop fills 2.5 % of the width",
                  10,
                  repeatEdges,
                  400,
                  0,
                  {"The crop runs past the photo (10 px left); only backdrop is missing there, so "
                   "it is filled at export."}},
             Case{"and the rest is slid",
                  60,
                  replace,
                  400,
                  20,
                  {"Slid 20 px right to stay on the photo.",
                   "The crop runs past the photo (40 px left); only backdrop is missing there, so "
                   "it is filled at export."}},
             Case{"never further than 12 % of the width",
                  300,
                  keep,
                  400,
                  192,
                  {"Slid 192 px right to stay on the photo.",
                   "The crop runs past the photo edge: 108 px left."}},
             Case{"the hair keeps its clearance",
                  20,
                  keep,
                  24,
                  12,
                  {"Slid 12 px right to stay on the photo.",
                   "The crop runs past the photo edge: 8 px left."}},
             Case{"hair at the edge forbids it",
                  20,
                  keep,
                  5,
                  0,
                  {"The crop runs past the photo edge: 20 px left."}},
         }) {
        SCOPED_TRACE(c.what);
        const CropSolution s = solved(
            [&](ImageAnalysis& p) {
                p = Synthetic::movedBy(p, {-1200 - c.overhang, 0});
                p.headContent->leftX = c.hairLeft;
            },
            [&](CropPreset& p) { p.exportSettings.backdrop = c.backdrop; });
        EXPECT_NEAR(s.rect.x, -c.overhang + c.slide, 1e-9);
        EXPECT_EQ(s.notes, c.notes);
    }
}

TEST(SideSlide, isNotForCropsThatHangOverBothSides) {
    const CropSolution s = solved([](ImageAnalysis& p) {
        p = Synthetic::movedBy(p, {-1210, 0});
        p.sourceWidth = 1590;
    });
    EXPECT_NEAR(s.rect.x, -10, 1e-9);
    const CropSolution left = solved([](ImageAnalysis& p) {
        p = Synthetic::movedBy(p, {1215, 0});
    });
    EXPECT_NEAR(left.rect.maxX(), 4000, 1e-9);
    EXPECT_EQ(left.notes, Notes{"Slid 15 px left to stay on the photo."});
}

TEST(Canvas, isFilledOnlyWhereNothingOfTheChildIsCutOff) {
    struct Case {
        const char* what;
        BackdropMode backdrop;
        EdgeContact contact;
        bool extendable;
        std::string note;
    };
    using enum BackdropMode;
    for (const Case& c : {
             Case{"grey", keep, {}, false, "The crop runs past the photo edge: 150 px above."},
             Case{"backdrop",
                  repeatEdges,
                  {.bottom = true},
                  true,
                  "The crop runs past the photo (150 px above); only backdrop is missing there, so "
                  "it is filled at export."},
             Case{"cut off",
                  replace,
                  {.top = true, .right = true},
                  false,
                  "The crop runs past the photo (150 px above), and the child or their prop is cut "
                  "off by the top, right edge, so there is nothing honest to fill it with."},
         }) {
        SCOPED_TRACE(c.what);
        const CropSolution s = solved(
            [&](ImageAnalysis& p) {
                p = Synthetic::movedBy(p, {0, -1250});
                p.edgeContact = c.contact;
            },
            [&](CropPreset& p) { p.exportSettings.backdrop = c.backdrop; });
        EXPECT_NEAR(s.shortfall->top, 150, 1e-9);
        EXPECT_EQ(s.canvasExtendable, c.extendable);
        EXPECT_EQ(s.has(needsMoreCanvas), !c.extendable);
        EXPECT_EQ(s.notes, Notes{c.note});
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

TEST(Retries, levelLessUntilTheCropStaysOnThePhoto) {
    struct Case {
        double roomAbove;
        double roll;
        bool needsCanvas;
    };
    // Turned by 3 degrees, a corner of the crop rises about 42 pixels.
    for (const Case& c : {Case{50, 3, false}, Case{33, 2.25, false}, Case{25, 1.5, false},
                          Case{15, 0.75, false}, Case{5, 0, false}, Case{-20, 0.75, true}}) {
        SCOPED_TRACE(c.roomAbove);
        const CropSolution s = solved(
            [&](ImageAnalysis& p) {
                p = Synthetic::movedBy(p, {0, -1100 + c.roomAbove});
                FaceGeometry& face = p.faces[0];
                face.leftEye = face.leftEye.rotated(face.eyeMidpoint(), 3);
                face.rightEye = Point{4000, 2 * (700 + c.roomAbove)} - face.leftEye;
            },
            [](CropPreset& p) { p.rotationMode = RotationMode::levelEyes; });
        EXPECT_NEAR(s.rotationDegrees, c.roll, 1e-6);
        EXPECT_EQ(s.has(needsMoreCanvas), c.needsCanvas);
    }
}

}  // namespace
}  // namespace morva
