// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/crop_solution.h"

#include <gtest/gtest.h>

#include "base/leveling.h"
#include "crop/crop_solver.h"
#include "crop/solver_test_support.h"

namespace morva {
namespace {

TEST(CropSolutionJson, keepsEveryFieldAndTheirOrder) {
    constexpr const char* full =
        R"({"rect":[[1.0,2.0],[3.0,4.0]],"rotationDegrees":-1.5,"anchor":[5.0,6.0],)"
        R"("status":"review","reasons":["needsMoreCanvas","lowConfidence"],"confidence":0.5,)"
        R"("metrics":{"faceScale":0.2,"anchorX":0.5,"eyeLine":0.3,"chinLine":0.5,"headroom":0.1,)"
        R"("sideClearanceLeft":0.2,"sideClearanceRight":0.3,"headHeightInFaceUnits":1.2,)"
        R"("propZoom":1.1},"shortfall":{"left":1.0,"top":2.0,"right":3.0,"bottom":4.0},)"
        R"("notes":["a","b"],"canvasExtendable":true})";
    const auto solution = decoded<CropSolution>(full, "x");
    ASSERT_TRUE(solution) << solution.error().message;
    EXPECT_EQ(Json(*solution).dump(), full);
    EXPECT_EQ(Json(CropSolution{}).dump(),
              R"({"rect":[[0.0,0.0],[0.0,0.0]],"rotationDegrees":0.0,"anchor":[0.0,0.0],)"
              R"("status":"failed","reasons":[],"confidence":0.0,"notes":[],)"
              R"("canvasExtendable":false})");
}

TEST(ReviewReason, hasAKeyAndATitleForEveryCaseAndBlocksForTwo) {
    std::string blocking;
    for (const ReviewReason reason : allReviewReasons()) {
        EXPECT_EQ(Json(reason).get<ReviewReason>(), reason);
        EXPECT_FALSE(title(reason).empty());
        if (blocksExport(reason)) blocking += std::string(key(reason)) + " ";
    }
    EXPECT_EQ(allReviewReasons().size(), 19u);
    EXPECT_EQ(blocking, "noFaceFound needsMoreCanvas ");
    EXPECT_THROW(Json("blurred").get<ReviewReason>(), Json::exception);
}

TEST(ManualAdjustment, readsWhatIsThereAndKeepsTheRest) {
    const auto nudge = decoded<ManualAdjustment>(R"({"dx":0.1,"rotation":-2})", "x");
    EXPECT_EQ(*nudge, (ManualAdjustment{.dx = 0.1, .dy = 0, .scale = 1, .rotation = -2}));
    EXPECT_EQ(Json(*nudge).dump(), R"({"dx":0.1,"dy":0.0,"scale":1.0,"rotation":-2.0})");
    EXPECT_TRUE(decoded<ManualAdjustment>("{}", "x")->isIdentity());
}

CropSolution solved(double roll) {
    CropSolution solution;
    solution.rect = {1200, 1100, 800, 1000};
    solution.rotationDegrees = roll;
    solution.anchor = {1600, 1450};
    return solution;
}

constexpr Size photo{4000, 5000};

TEST(FinalRect, movesInCropHeightsAndZoomsAboutTheAnchor) {
    struct Case {
        const char* what;
        ManualAdjustment adjustment;
        Rect expected;
    };
    for (const Case& c : {
             Case{"untouched", {}, {1200, 1100, 800, 1000}},
             Case{"sideways in heights too", {0.1, -0.05, 1, 0}, {1300, 1050, 800, 1000}},
             Case{"grows about the anchor", {0, 0, 1.2, 0}, {1120, 1030, 960, 1200}},
             Case{"moves in unzoomed heights", {0.1, 0, 1.2, 0}, {1220, 1030, 960, 1200}},
         }) {
        SCOPED_TRACE(c.what);
        const Rect rect = CropSolver::finalRect(solved(-3), c.adjustment, photo);
        EXPECT_NEAR(rect.x, c.expected.x, 1e-9);
        EXPECT_NEAR(rect.y, c.expected.y, 1e-9);
        EXPECT_NEAR(rect.width, c.expected.width, 1e-9);
        EXPECT_NEAR(rect.height, c.expected.height, 1e-9);
    }
}

TEST(FinalRect, turnsAboutThePhotoPointAtItsCentre) {
    const CropSolution solution = solved(-3);
    const ManualAdjustment upright{.dx = 0.02, .dy = 0, .scale = 1.1, .rotation = 3};
    EXPECT_EQ(CropSolver::finalRotation(solution, upright), 0);
    const Rect turned = CropSolver::finalRect(solution, upright, photo);
    const Rect unturned = upright.apply(solution.rect, solution.anchor);
    const Point onPhoto = Leveling::unlevel(unturned.center(), {2000, 2500}, -3);
    EXPECT_NEAR(turned.center().distance(onPhoto), 0, 1e-9);
    EXPECT_EQ(turned.width, unturned.width);
    EXPECT_EQ(turned.height, unturned.height);
    EXPECT_EQ(CropSolver::finalRect(solution, upright, {0, 0}), unturned);
}

TEST(AdjustedCrop, measuresWhatTheAdjustedCropShows) {
    using namespace SolverTest;
    const ImageAnalysis portrait = Synthetic::turnedBy(Synthetic::portrait(), 4);
    const CropPreset preset = presetWith([](CropPreset& p) {
        p.rotationMode = RotationMode::levelEyes;
        p.levelMaxDegrees = 3;
    });
    const CropSolution solution = CropSolver::solve(portrait, preset);
    const CropMetrics& solved = *solution.metrics;
    const auto measured = [&](const ManualAdjustment& adjustment) {
        return CropSolver::adjusted(portrait, preset, solution, adjustment)->metrics;
    };
    EXPECT_EQ(measured({}), solved);
    EXPECT_NEAR(measured({.dy = 0.1}).eyeLine, solved.eyeLine - 0.1, 1e-9);
    EXPECT_NEAR(*measured({.dy = 0.1}).headroom, *solved.headroom - 0.1, 1e-9);
    EXPECT_NEAR(measured({.dx = 0.08}).anchorX, solved.anchorX - 0.08 / preset.aspectRatio(), 1e-9);
    EXPECT_NEAR(measured({.scale = 1.25}).faceScale, solved.faceScale / 1.25, 1e-9);
    EXPECT_NEAR(measured({.scale = 1.25}).eyeLine, solved.eyeLine, 1e-9) << "the pivot of a zoom";
    // Turned by the degree that the limit left over, the eyes are level and as far from the chin.
    const CropMetrics turned = measured({.rotation = 1});
    EXPECT_NEAR(turned.chinLine - turned.eyeLine, solved.faceScale, 1e-6);

    const auto low = CropSolver::adjusted(portrait, preset, solution, {.dy = -0.2});
    EXPECT_EQ(low->reasons, Reasons{ReviewReason::faceSitsLow});
    EXPECT_FALSE(CropSolver::adjusted(portrait, preset, CropSolution{}, {}));
}

TEST(Shortfall, measuresEachSideOnThePhoto) {
    EXPECT_FALSE(CropSolver::shortfall({-0.4, 0, 800, 1000}, 0, photo));
    EXPECT_EQ(CropSolver::shortfall({-0.6, 0, 800, 1000}, 0, photo)->summary(), "1 px left");
    const auto around = CropSolver::shortfall({-10, -20, 4040, 5060}, 0, photo);
    EXPECT_EQ(around->summary(), "20 px above, 40 px below, 10 px left, 30 px right");
    // Levelled by +2, the crop's left side leans out over the photo's top.
    const auto leaning = CropSolver::shortfall({500, 0, 3000, 4000}, 2, photo);
    EXPECT_NEAR(leaning->top, 1500 * 0.0348995 - 2500 * (1 - 0.9993908), 0.01);
    EXPECT_EQ(leaning->left + leaning->right + leaning->bottom, 0);
}

TEST(PinnedBottom, putsTheLowerCornerOnThePhotosEdge) {
    for (const double roll : {-3.0, -0.5, 0.0, 0.5, 3.0}) {
        for (const double centerX : {600.0, 2000.0, 3500.0}) {
            const double bottom = CropSolver::pinnedBottom(photo, roll, 1600, centerX);
            const auto lower = [&](double x) {
                return Leveling::unlevel({x, bottom}, {2000, 2500}, roll).y;
            };
            EXPECT_NEAR(std::max(lower(centerX - 800), lower(centerX + 800)), 5000, 1e-6)
                << roll << " at " << centerX;
        }
    }
}

}  // namespace
}  // namespace morva
