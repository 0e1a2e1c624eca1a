// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/frame_drag.h"

#include <gtest/gtest.h>

#include "base/leveling.h"
#include "crop/crop_solver.h"

namespace morva {
namespace {

constexpr Size photo{4000, 3000};

CropSolution solved() {
    CropSolution solution;
    solution.rect = {1500, 400, 1600, 2000};
    solution.rotationDegrees = 2;
    solution.anchor = {2280, 1050};
    solution.status = CropStatus::ready;
    return solution;
}

Rect frameOf(const ManualAdjustment& adjustment) {
    return CropSolver::finalRect(solved(), adjustment, photo);
}

/// As shown before the drag, whatever the adjustment turns.
Point shownBefore(Point place, const ManualAdjustment& before, const ManualAdjustment& after) {
    const Point center{photo.width / 2, photo.height / 2};
    const CropSolution solution = solved();
    return Leveling::level(
        Leveling::unlevel(place, center, CropSolver::finalRotation(solution, after)), center,
        CropSolver::finalRotation(solution, before));
}

const std::vector<ManualAdjustment> beginnings{
    {}, {.dx = 0.1, .dy = -0.05, .scale = 1.3, .rotation = -7}, {.scale = 0.6, .rotation = 15}};

TEST(FrameDrag, bringsThePlaceTakenHoldOfToThePointer) {
    for (const ManualAdjustment& before : beginnings) {
        const Rect frame = frameOf(before);
        const Point grip = frame.center() + Point{-200, 150};
        const FrameDrag drag(CanvasPart::inside, solved(), before, photo, grip);
        EXPECT_EQ(drag.to(grip), before);
        const ManualAdjustment after = drag.to(grip + Point{123, -45});
        EXPECT_NEAR(frameOf(after).x, frame.x + 123, 1e-9);
        EXPECT_NEAR(frameOf(after).y, frame.y - 45, 1e-9);
        EXPECT_EQ(after.scale, before.scale);
        EXPECT_EQ(after.rotation, before.rotation);
    }
}

TEST(FrameDrag, zoomsSoThatTheCornerStaysWithThePointerOnItsWay) {
    struct Case {
        CanvasPart part;
        double x, y;  // of the corner, in frames
    };
    for (const ManualAdjustment& before : beginnings) {
        for (const Case& c :
             {Case{CanvasPart::topLeft, 0, 0}, Case{CanvasPart::topRight, 1, 0},
              Case{CanvasPart::bottomRight, 1, 1}, Case{CanvasPart::bottomLeft, 0, 1}}) {
            SCOPED_TRACE(static_cast<int>(c.part));
            const auto corner = [&](const ManualAdjustment& a) {
                const Rect frame = frameOf(a);
                return Point{frame.x + c.x * frame.width, frame.y + c.y * frame.height};
            };
            ManualAdjustment wanted = before;
            wanted.scale *= 1.17;
            const Point grip = corner(before) + Point{4, -3};
            const FrameDrag drag(c.part, solved(), before, photo, grip);
            // Along the corner's own way it is met exactly, aside of it by the nearest place.
            const Point way = corner(wanted) - corner(before);
            EXPECT_NEAR(drag.to(grip + way).scale, wanted.scale, 1e-9);
            const Point aside{-way.y, way.x};
            EXPECT_NEAR(drag.to(grip + way + aside).scale, wanted.scale, 1e-9);
            EXPECT_EQ(drag.to(grip + way).dx, before.dx);
            EXPECT_GT(drag.to(grip + way.scaled(-100, -100)).scale, 0);
        }
    }
}

TEST(FrameDrag, turnsThePhotoWithThePointerAboutTheFramesMiddle) {
    for (const ManualAdjustment& before : beginnings) {
        const Rect frame = frameOf(before);
        const Point grip{frame.x - 100, frame.center().y};
        const FrameDrag drag(CanvasPart::turn, solved(), before, photo, grip);
        for (const double degrees : {4.0, -11.0}) {
            const ManualAdjustment after = drag.to(grip.rotated(frame.center(), degrees));
            EXPECT_NEAR(after.rotation, before.rotation - degrees, 1e-9);
            // What lay in the middle still does.
            const Point middle = shownBefore(frameOf(after).center(), before, after);
            EXPECT_NEAR(middle.x, frame.center().x, 1e-6);
            EXPECT_NEAR(middle.y, frame.center().y, 1e-6);
        }
    }
}

}  // namespace
}  // namespace morva
