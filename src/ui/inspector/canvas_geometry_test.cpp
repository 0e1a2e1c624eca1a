// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/canvas_geometry.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/leveling.h"
#include "ui/inspector/label_spread.h"

namespace morva {
namespace {

using Place = CanvasGeometry::Place;

constexpr Size photo{4000, 3000};
const QRectF area(100, 50, 880, 640);
constexpr double labels = 120;

CanvasGeometry showing(const CropOnPhoto& shown, const Place& place = {area, labels, false}) {
    CanvasGeometry geometry;
    geometry.setPlace(place);
    geometry.show(shown);
    return geometry;
}

CropOnPhoto portrait(double rotation = 0) { return {photo, Rect{1500, 400, 1600, 2000}, rotation}; }

void expectNear(QPointF a, QPointF b, double tolerance = 1e-6) {
    EXPECT_NEAR(a.x(), b.x(), tolerance);
    EXPECT_NEAR(a.y(), b.y(), tolerance);
}

TEST(CanvasGeometry, fitsPhotoFrameHandleAndLabelsWhereverTheFrameLies) {
    struct Case {
        const char* what;
        Rect frame;
        double rotation;
        bool mirrored;
    };
    for (const Case& c : {Case{"in the middle", {1500, 400, 1600, 2000}, 0, false},
                          Case{"turned", {1500, 400, 1600, 2000}, 12, false},
                          Case{"at the right edge", {2600, 300, 1400, 1750}, 3, false},
                          Case{"at the left edge", {0, 300, 1400, 1750}, -3, false},
                          Case{"at the right edge, labels left", {2600, 300, 1400, 1750}, 3, true},
                          Case{"far below the photo", {1500, 2500, 1600, 2000}, 0, false},
                          Case{"around the photo", {-500, -500, 5000, 6250}, 0, true}}) {
        SCOPED_TRACE(c.what);
        const CanvasGeometry geometry =
            showing({photo, c.frame, c.rotation}, {area, labels, c.mirrored});
        constexpr double slack = 1e-6;
        const QRectF inner = area.adjusted(24 - slack, 24 - slack, slack - 24, slack - 24);
        for (const Point corner : Rect{0, 0, photo.width, photo.height}.corners())
            EXPECT_TRUE(inner.contains(geometry.photoToCanvas(corner)));
        EXPECT_TRUE(inner.contains(geometry.frame()));
        const QRectF frame = geometry.frame();
        const double beside =
            c.mirrored ? frame.left() - area.left() : area.right() - frame.right();
        EXPECT_GE(beside, labels - slack);
        const QPointF handle = geometry.turnHandle();
        EXPECT_NEAR(std::abs(handle.x() - (c.mirrored ? frame.right() : frame.left())), 37, slack);
        EXPECT_EQ(geometry.partAt(handle), CanvasPart::turn);
    }
}

TEST(CanvasGeometry, mapsThereAndBackAndTurnsThePhotoSoThatTheFrameIsUpright) {
    for (const double rotation : {0.0, -3.0, 17.5}) {
        SCOPED_TRACE(rotation);
        const CanvasGeometry geometry = showing(portrait(rotation));
        const Point back = geometry.toLevel(geometry.toCanvas(Point{1234, 567}));
        EXPECT_NEAR(back.x, 1234, 1e-6);
        EXPECT_NEAR(back.y, 567, 1e-6);
        const Point corner{1500, 400};
        const Point onPhoto = Leveling::unlevel(corner, {2000, 1500}, rotation);
        expectNear(geometry.photoToCanvas(onPhoto), geometry.frame().topLeft());
        expectNear(geometry.photoTransform().map(QPointF(onPhoto.x, onPhoto.y)),
                   geometry.frame().topLeft());
    }
}

TEST(CanvasGeometry, zoomsAroundThePointerBetweenTheWholeAndTheClosest) {
    CanvasGeometry geometry = showing(portrait());
    const double whole = geometry.scale();
    const QPointF pointer(600, 300);
    const Point under = geometry.toLevel(pointer);
    geometry.zoom(1.7, pointer, 2);
    EXPECT_FALSE(geometry.isFitted());
    EXPECT_NEAR(geometry.scale(), whole * 1.7, 1e-9);
    expectNear(geometry.toCanvas(under), pointer);
    geometry.zoom(1000, pointer, 2);
    EXPECT_EQ(geometry.scale(), 2);
    expectNear(geometry.toCanvas(under), pointer);
    geometry.zoom(1e-3, pointer, 2);
    EXPECT_TRUE(geometry.isFitted());
    EXPECT_NEAR(geometry.scale(), whole, 1e-12);
}

TEST(CanvasGeometry, pansOnlyWhatIsZoomedAndNeverOutOfSight) {
    CanvasGeometry geometry = showing(portrait());
    const QPointF before = geometry.frame().topLeft();
    geometry.pan({50, 50});
    expectNear(geometry.frame().topLeft(), before);
    geometry.zoom(3, area.center(), 2);
    const QPointF zoomed = geometry.frame().topLeft();
    geometry.pan({50, -20});
    expectNear(geometry.frame().topLeft(), zoomed + QPointF(50, -20));
    geometry.pan({1e6, 1e6});
    expectNear(geometry.photoToCanvas({0, 0}), area.center());
}

TEST(CanvasGeometry, keepsThePhotoStillUnderAMovedFrameAndTheFrameUnderATurnedPhoto) {
    CanvasGeometry geometry = showing(portrait(2));
    const QPointF eye = geometry.photoToCanvas({2100, 900});
    CropOnPhoto moved = portrait(2);
    moved.frame->x -= 300;
    geometry.follow(moved);
    geometry.keepInSight();
    expectNear(geometry.photoToCanvas({2100, 900}), eye);

    const QRectF frame = geometry.frame();
    const Point middle = Leveling::unlevel(moved.frame->center(), {2000, 1500}, 2);
    CropOnPhoto turned = moved;
    turned.rotation = 9;
    const Point now = Leveling::level(middle, {2000, 1500}, 9);
    turned.frame->x = now.x - 800;
    turned.frame->y = now.y - 1000;
    geometry.follow(turned);
    expectNear(geometry.frame().topLeft(), frame.topLeft());
    expectNear(geometry.photoToCanvas(middle), frame.center());
}

TEST(CanvasGeometry, fitsAgainOnlyWhenTheFrameLeavesTheCanvas) {
    CanvasGeometry geometry = showing(portrait());
    CropOnPhoto below = portrait();
    below.frame->y = 2900;
    geometry.follow(below);
    EXPECT_FALSE(area.contains(geometry.frame()));
    geometry.keepInSight();
    EXPECT_TRUE(area.contains(geometry.frame()));
    geometry.zoom(2, area.center(), 2);
    below.frame->y = 4000;
    geometry.follow(below);
    const double scale = geometry.scale();
    geometry.keepInSight();
    EXPECT_EQ(geometry.scale(), scale);  // who zoomed in chose what to see
}

TEST(CanvasGeometry, keepsTheMiddleWhenTheWindowChangesAndFitsWhatWasFitted) {
    CanvasGeometry geometry = showing(portrait());
    const QRectF larger(0, 0, 1200, 900);
    geometry.zoom(2, {300, 300}, 2);
    const Point middle = geometry.toLevel(area.center());
    geometry.setPlace({larger, labels, false});
    expectNear(geometry.toCanvas(middle), larger.center());
    geometry.fit();
    const double scale = geometry.scale();
    geometry.setPlace({area, labels, false});
    EXPECT_LT(geometry.scale(), scale);
}

TEST(CanvasGeometry, findsWhatThePointerCanTakeHoldOf) {
    const CanvasGeometry geometry = showing(portrait());
    const QRectF frame = geometry.frame();
    struct Case {
        const char* what;
        QPointF at;
        CanvasPart part;
    };
    for (const Case& c :
         {Case{"middle", frame.center(), CanvasPart::inside},
          Case{"corner", frame.topLeft(), CanvasPart::topLeft},
          Case{"inside a corner", frame.topRight() + QPointF(-15, 15), CanvasPart::topRight},
          Case{"outside a corner", frame.bottomRight() + QPointF(15, 15), CanvasPart::bottomRight},
          Case{"past a corner", frame.bottomLeft() + QPointF(-17, 17), CanvasPart::outside},
          Case{"past a corner, inside", frame.bottomLeft() + QPointF(17, -17), CanvasPart::inside},
          Case{"disc", geometry.turnHandle() + QPointF(11, 11), CanvasPart::turn},
          Case{"past the disc", geometry.turnHandle() + QPointF(0, 17), CanvasPart::outside},
          Case{"photo", frame.topLeft() - QPointF(60, 0), CanvasPart::outside}}) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(geometry.partAt(c.at), c.part);
    }
    // A frame smaller than its handles can still be moved.
    const CanvasGeometry tiny = showing({photo, Rect{1900, 1400, 80, 100}, 0});
    EXPECT_LT(tiny.frame().width(), 24);
    EXPECT_EQ(tiny.partAt(tiny.frame().center()), CanvasPart::inside);
    EXPECT_EQ(showing({photo, {}, 0}).partAt(area.center()), CanvasPart::outside);
}

TEST(CanvasGeometry, leavesTheTurnHandleInReachOfAFrameThatIsLargerThanTheCanvas) {
    CanvasGeometry geometry = showing(portrait());
    geometry.zoom(3.5, geometry.frame().center(), 4);
    ASSERT_LT(geometry.frame().left(), area.left());
    EXPECT_TRUE(area.contains(geometry.turnHandle()));
}

TEST(LabelSpread, keepsOrderAndDistanceNearTheWantedPlaces) {
    struct Case {
        const char* what;
        std::vector<double> wanted;
        std::vector<double> placed;
    };
    for (const Case& c :
         {Case{"apart already", {100, 200, 300}, {100, 200, 300}},
          Case{"two at one place", {100, 100}, {88, 112}},
          Case{"in any order", {110, 100, 300}, {117, 93, 300}},
          Case{"a chain", {100, 110, 130}, {89.0 + 1.0 / 3, 113.0 + 1.0 / 3, 137.0 + 1.0 / 3}},
          Case{"at the top", {0, 5}, {10, 34}},
          Case{"at the bottom", {395, 500, 600}, {342, 366, 390}}, Case{"none", {}, {}}}) {
        SCOPED_TRACE(c.what);
        const auto placed = spread(c.wanted, 20, 4, 0, 400);
        ASSERT_EQ(placed.size(), c.placed.size());
        for (std::size_t i = 0; i < placed.size(); ++i) EXPECT_NEAR(placed[i], c.placed[i], 1e-9);
    }
}

}  // namespace
}  // namespace morva
