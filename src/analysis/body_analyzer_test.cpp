// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/body_analyzer.h"

#include <limits>

#include <gtest/gtest.h>

namespace morva {
namespace {

AnalysisImage halfSize() { return {Picture(500, 400), {1000, 800}}; }

/// A face 100 pixels of the photo in size.
FaceGeometry faceAt(Point eyes) {
    FaceGeometry face;
    face.leftEye = eyes - Point{30, 0};
    face.rightEye = eyes + Point{30, 0};
    face.chin = eyes + Point{0, 100};
    face.faceBox = {eyes.x - 68, eyes.y - 32, 137, 137};
    return face;
}

/// A body in pixels of the reduced image with both shoulders around `shoulders`.
BodyObservation bodyAt(Point eyes, Point shoulders, float confidence = 0.9F) {
    BodyObservation body;
    body.eyes = eyes;
    body.joints[0] = {shoulders + Point{40, 0}, confidence};
    body.joints[1] = {shoulders - Point{40, 0}, confidence};
    return body;
}

TEST(BodyAnalyzer, keepsOnlyJointsAboveTheThresholdInSourcePixels) {
    BodyObservation body = bodyAt({250, 100}, {250, 175});
    body.joints[2] = {{240, 300}, BodyAnalyzer::minimumJointConfidence};
    body.joints[4] = {{240, 350}, std::nextafter(BodyAnalyzer::minimumJointConfidence, 1.0F)};
    const auto found =
        BodyAnalyzer::detect(std::vector{body}, halfSize(), std::vector{faceAt({500, 200})});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->leftShoulder, (Point{580, 350}));
    EXPECT_FALSE(found->leftHip) << "exactly at the threshold";
    EXPECT_EQ(found->leftKnee, (Point{480, 700}));
    EXPECT_FALSE(found->rightAnkle);
}

TEST(BodyAnalyzer, takesTheBodyUnderTheMainFaceWhateverTheOrder) {
    const BodyObservation neighbour = bodyAt({350, 100}, {350, 170});
    const BodyObservation own = bodyAt({250, 100}, {255, 180});
    const auto found = BodyAnalyzer::detect(std::vector{neighbour, own}, halfSize(),
                                            std::vector{faceAt({500, 200})});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->shoulderY(), 360);
    EXPECT_FALSE(
        BodyAnalyzer::detect(std::vector{neighbour}, halfSize(), std::vector{faceAt({500, 200})}))
        << "another's body is not borrowed";
    const BodyObservation mixed = bodyAt({250, 100}, {330, 175});
    const std::vector faces{faceAt({500, 200}), faceAt({700, 200})};
    EXPECT_FALSE(BodyAnalyzer::detect(std::vector{mixed}, halfSize(), faces))
        << "this face with the neighbour's shoulders";
}

TEST(BodyAnalyzer, rejectsBodiesFarFromWhereShouldersHang) {
    // Expected 1.5 units below the eyes; the limit lies 4 units from there.
    const auto at = [](double shoulderY) {
        return BodyAnalyzer::detect(std::vector{bodyAt({250, 100}, {250, shoulderY})}, halfSize(),
                                    std::vector{faceAt({500, 200})});
    };
    EXPECT_FALSE(at(375));
    EXPECT_TRUE(at(374.9));
    const auto faint = bodyAt({250, 100}, {250, 175}, 0.2F);
    EXPECT_FALSE(
        BodyAnalyzer::detect(std::vector{faint}, halfSize(), std::vector{faceAt({500, 200})}))
        << "no confident joint of the torso";
}

TEST(BodyAnalyzer, usesTheHipsHeightWhereNoShoulderIsSeen) {
    BodyObservation body = bodyAt({250, 100}, {250, 175}, 0);
    body.joints[3] = {{250, 380}, 0.9F};
    EXPECT_FALSE(
        BodyAnalyzer::detect(std::vector{body}, halfSize(), std::vector{faceAt({500, 200})}));
    body.joints[3].place.y = 300;
    EXPECT_TRUE(
        BodyAnalyzer::detect(std::vector{body}, halfSize(), std::vector{faceAt({500, 200})}));
}

/// Remembers which faces it was asked about.
class AskedBodies final : public BodyPoseDetector {
public:
    Result<std::vector<BodyObservation>> bodies(const Picture&,
                                                std::span<const Rect> faces) const override {
        asked.assign(faces.begin(), faces.end());
        return std::vector<BodyObservation>{};
    }
    mutable std::vector<Rect> asked;
};

TEST(BodyAnalyzer, looksAtTheMainFaceAndThoseWhoMayTouchIt) {
    const AskedBodies detector;
    const std::vector faces{faceAt({500, 200}), faceAt({900, 700}), faceAt({650, 200})};
    ASSERT_TRUE(BodyAnalyzer::observe(detector, halfSize(), faces));
    ASSERT_EQ(detector.asked.size(), 3u);
    EXPECT_EQ(detector.asked[0], (Rect{216, 84, 68.5, 68.5}));
    EXPECT_EQ(detector.asked[1].x, 291) << "the nearest neighbour first";
    const std::vector apart{faceAt({100, 100}), faceAt({950, 100})};
    ASSERT_TRUE(BodyAnalyzer::observe(detector, halfSize(), apart));
    EXPECT_EQ(detector.asked.size(), 1u);
}

}  // namespace
}  // namespace morva
