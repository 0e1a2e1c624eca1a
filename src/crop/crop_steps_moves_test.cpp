// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "crop/solver_test_support.h"

namespace morva {
namespace {

using enum ReviewReason;
using SolverTest::askingFor;
using SolverTest::expectRect;
using SolverTest::Notes;
using SolverTest::Reasons;
using SolverTest::solved;

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
    EXPECT_EQ(zoomOf({2000, 1400, 1999, 1400}, {}), 1) << "ends at the photo's right edge";
    EXPECT_EQ(zoomOf({1500, 1, 1000, 2000}, {}), 1) << "ends at the photo's top edge";
    EXPECT_GT(zoomOf({2, 1400, 2000, 1400}, {}), 1);
    EXPECT_GT(zoomOf({2000, 1400, 1998, 1400}, {}), 1);
}

TEST(PropZoom, ignoresWhatIsWhollyAboveTheCropUnlessOverheadPropsAreKept) {
    for (const bool overhead : {false, true}) {
        const CropSolution s = solved(
            [](ImageAnalysis& p) {
                p = Synthetic::holding(p, {1100, 200, 1800, 800});
            },
            [&](CropPreset& p) {
                p.protectProps = true;
                p.protectPropsOverhead = overhead;
            });
        EXPECT_EQ(s.metrics->propZoom.has_value(), overhead);
    }
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

}  // namespace
}  // namespace morva
