// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/face_boxes.h"

#include <limits>

#include <gtest/gtest.h>

namespace morva {
namespace {

/// Output of the box model with nothing in it; anchors are filled in one by one.
class BoxOutput {
public:
    BoxOutput()
        : values_(FaceBoxes::anchorCount * FaceBoxes::valuesPerAnchor, 0.0F),
          logits_(FaceBoxes::anchorCount, -20.0F) {}

    /// A box of `size` centred on the anchor in `column` and `row`.
    BoxOutput& with(std::size_t column, std::size_t row, float size, float logit, float shift = 0) {
        const std::size_t anchor = row * 48 + column;
        float* v = values_.data() + anchor * FaceBoxes::valuesPerAnchor;
        v[0] = shift;
        v[2] = v[3] = size;
        v[4] = -size / 4 + shift;
        v[6] = size / 4 + shift;
        logits_[anchor] = logit;
        return *this;
    }
    std::vector<FaceBox> decoded() const { return FaceBoxes::decoded(values_, logits_, 0.5); }

private:
    std::vector<float> values_;
    std::vector<float> logits_;
};

TEST(FaceBoxes, placesABoxOnItsAnchorInModelPixels) {
    const auto faces = BoxOutput().with(10, 20, 40, 5).decoded();
    ASSERT_EQ(faces.size(), 1u);
    EXPECT_EQ(faces[0].box.center(), (Point{42, 82}));
    EXPECT_NEAR(faces[0].leftEye.x, 32, 1e-6);
    EXPECT_NEAR(faces[0].rightEye.x, 52, 1e-6);
    EXPECT_NEAR(faces[0].score, 0.9933, 1e-4);
}

TEST(FaceBoxes, averagesWhatOverlapsAndKeepsWhatStandsApart) {
    const auto faces =
        BoxOutput().with(10, 20, 40, 5).with(11, 20, 40, 5).with(40, 40, 20, 1).decoded();
    ASSERT_EQ(faces.size(), 2u);
    EXPECT_NEAR(faces[0].box.center().x, 44, 1e-4);
    EXPECT_NEAR(faces[1].box.width, 20, 1e-6);
}

TEST(FaceBoxes, survivesDegenerateAndInfiniteValues) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const auto faces = BoxOutput()
                           .with(1, 1, 0, 9)
                           .with(2, 2, -5, 9)
                           .with(3, 3, nan, 9)
                           .with(4, 4, 10, nan)
                           .with(30, 30, 12, 1e30F)
                           .decoded();
    ASSERT_EQ(faces.size(), 1u);
    EXPECT_EQ(faces[0].score, 1);
}

TEST(FaceBoxes, dropsPartsOfALargeFaceSeenInATile) {
    const FaceBox whole{{100, 100, 100, 100}, {}, {}, 0.9};
    const FaceBox part{{110, 150, 40, 40}, {}, {}, 0.8};
    const FaceBox neighbour{{195, 100, 90, 90}, {}, {}, 0.6};
    const auto kept = FaceBoxes::merged({part, neighbour, whole});
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0].box, whole.box);
    EXPECT_EQ(kept[1].box, neighbour.box);
}

}  // namespace
}  // namespace morva
