// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "base/leveling.h"
#include "imaging/decode.h"
#include "output/overlay_renderer.h"

namespace morva {
namespace {

TEST(Overlay, drawsTheCropThroughItsTurnedCornersAndTheFaceWhereItIs) {
    AnalysisImage loaded{Picture(400, 300), {1600, 1200}};
    std::fill_n(loaded.image.row(0), loaded.image.byteCount(), std::uint8_t{0});
    ImageAnalysis analysis;
    FaceGeometry face;
    face.leftEye = {700, 500};
    face.rightEye = {900, 520};
    face.chin = {790, 760};
    analysis.faces = {face};
    CropSolution solution;
    solution.rect = {500, 200, 640, 800};
    solution.rotationDegrees = 5;
    ManualAdjustment adjustment;
    adjustment.dx = 0.1;
    const Picture overlay =
        OverlayRenderer::render(loaded, analysis, solution, adjustment, CropPreset());

    const auto brightestNear = [&](Point source) {
        int brightest = 0;
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx)
                for (int c = 0; c < 3; ++c)
                    brightest = std::max<int>(
                        brightest, overlay.pixel(static_cast<int>(source.x / 4) + dx,
                                                 static_cast<int>(source.y / 4) + dy)[c]);
        return brightest;
    };
    const Rect moved{580, 200, 640, 800};
    for (const Point corner : moved.corners())
        EXPECT_GT(brightestNear(Leveling::unlevel(corner, {800, 600}, 5)), 150);
    EXPECT_GT(brightestNear(face.eyeMidpoint()), 150);
    EXPECT_GT(brightestNear(face.chin), 150);
    EXPECT_EQ(brightestNear({200, 200}), 0);
    EXPECT_EQ(brightestNear({800, 900}), 0);

    const auto folder = std::filesystem::path(testing::TempDir());
    ASSERT_TRUE(OverlayRenderer::writePNG(overlay, folder / "overlay.png"));
    ASSERT_TRUE(OverlayRenderer::writeJPEG(overlay, folder / "overlay.jpg", 0.9));
    const auto png = decodeRegion(folder / "overlay.png", {0, 0, 400, 300}, 1);
    ASSERT_TRUE(png);
    EXPECT_TRUE(std::ranges::equal(png->pixels.bytes(), overlay.bytes()));
    EXPECT_TRUE(decodeRegion(folder / "overlay.jpg", {0, 0, 400, 300}, 1));
    EXPECT_FALSE(OverlayRenderer::writePNG(overlay, folder / "missing" / "overlay.png"));
}

}  // namespace
}  // namespace morva
