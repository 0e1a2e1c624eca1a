// SPDX-License-Identifier: GPL-3.0-or-later
// Joints and outline of the main child on real photographs.
#include <gtest/gtest.h>

#include "analysis/analysis_pipeline.h"
#include "analysis/photo_test_support.h"

namespace morva {
namespace {

ImageAnalysis analysed(const std::string& name) {
    return AnalysisPipeline::analyze(*testData() / "portraits" / name, realVision());
}

bool holds(const Rect& rect, Point point) {
    return point.x >= rect.x && point.x < rect.maxX() && point.y >= rect.y && point.y < rect.maxY();
}

class SeveralPeople : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (!testData()) GTEST_SKIP() << "MORVA_TEST_DATA is not set";
    }
};

TEST_P(SeveralPeople, leaveJointsAndOutlineToTheMainFace) {
    const ImageAnalysis analysis = analysed(GetParam());
    ASSERT_FALSE(analysis.faces.empty());
    const Point eyes = analysis.faces.front().eyeMidpoint();
    const double unit = analysis.faces.front().faceUnit();
    ASSERT_TRUE(analysis.subject);
    EXPECT_TRUE(holds(analysis.subject->bounds, eyes));
    const auto torso = analysis.body ? analysis.body->torsoCenterX() : std::nullopt;
    if (torso) {
        EXPECT_LT(std::abs(*torso - eyes.x), unit);
    }
    for (std::size_t i = 1; i < analysis.faces.size(); ++i) {
        const Point other = analysis.faces[i].eyeMidpoint();
        if (torso) {
            EXPECT_LT(std::abs(*torso - eyes.x), std::abs(*torso - other.x));
        }
        // Apart, the neighbour lies outside; arm in arm, the bounds are marked as a guess.
        EXPECT_TRUE(!holds(analysis.subject->bounds, other) || !analysis.subject->reliable);
    }
}

INSTANTIATE_TEST_SUITE_P(Photographs, SeveralPeople,
                         testing::Values("kids-two-binoculars-flag.jpg", "kids-two-brothers.jpg",
                                         "kids-two-frontal-table.jpg", "kids-two-table-full.jpg",
                                         "kids-two-vests.jpg", "kids-three-holding-cards.jpg",
                                         "family-baby.jpg", "family-four-beach.jpg",
                                         "group-six.jpg", "scene-two-women.jpg"));

TEST(WholeChild, isMeasuredFromHeadToFeet) {
    if (!testData()) GTEST_SKIP() << "MORVA_TEST_DATA is not set";
    for (const char* name :
         {"man-full-suit.jpg", "woman-full-forest.jpg", "kid-climbing-full.jpg"}) {
        SCOPED_TRACE(name);
        const ImageAnalysis analysis = analysed(name);
        ASSERT_TRUE(analysis.body);
        const BodyGeometry& body = *analysis.body;
        ASSERT_TRUE(body.shoulderY() && body.hipY() && body.kneeY() && body.ankleY());
        EXPECT_LT(*body.shoulderY(), *body.hipY());
        EXPECT_LT(*body.hipY(), *body.kneeY());
        EXPECT_LT(*body.kneeY(), *body.ankleY());
    }
}

TEST(WholeChild, growsNoLegsBelowABust) {
    const ImageAnalysis analysis = AnalysisPipeline::analyze(samplePortrait(), realVision());
    ASSERT_TRUE(analysis.body);
    EXPECT_TRUE(analysis.body->leftShoulder && analysis.body->rightShoulder);
    EXPECT_GT(*analysis.body->shoulderY(), analysis.faces.front().chin.y);
    EXPECT_FALSE(analysis.body->hipY() || analysis.body->kneeY() || analysis.body->ankleY());
    ASSERT_TRUE(analysis.backdropColor);
    if (!testData()) return;
    int lower = 0;
    for (const char* name : {"pif-kevin-luo.jpg", "official-portrait-obama.jpg",
                             "kid-girl-red-bow.jpg", "woman-studio-holding-glasses.png"}) {
        const ImageAnalysis bust = analysed(name);
        lower += bust.body && (bust.body->hipY() || bust.body->kneeY()) ? 1 : 0;
    }
    EXPECT_EQ(lower, 0);
}

TEST(WholeChild, reachesAsFarAsRaisedArms) {
    if (!testData()) GTEST_SKIP() << "MORVA_TEST_DATA is not set";
    const ImageAnalysis analysis = analysed("woman-v-signs.jpg");
    ASSERT_TRUE(analysis.subject && analysis.subject->reliable);
    EXPECT_TRUE(analysis.subject->edges.left && analysis.subject->edges.right)
        << "both elbows are cut by the photo";
    EXPECT_FALSE(analysis.subject->edges.top);
}

}  // namespace
}  // namespace morva
