// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include <gtest/gtest.h>

#include "poses/pose_test_support.h"

namespace morva {
namespace {

TEST(PoseFeatures, areAlwaysAsManyAndFinite) {
    const std::vector<float> print{0.5F, -0.5F};
    const auto full = PoseFeatures::of(print, measuredPhoto());
    EXPECT_EQ(full[0], 0.5F);
    EXPECT_EQ(full[1], -0.5F);
    ImageAnalysis empty;
    empty.sourceWidth = empty.sourceHeight = 100;
    ImageAnalysis coincident = measuredPhoto();
    coincident.faces[0].rightEye = coincident.faces[0].chin = coincident.faces[0].leftEye;
    for (const ImageAnalysis& odd : {empty, coincident}) {
        const auto features = PoseFeatures::of(print, odd);
        EXPECT_EQ(features.size(), full.size());
        for (const float value : features) EXPECT_TRUE(std::isfinite(value));
    }
}

TEST(PoseFeatures, dependOnThePoseAndNotOnPixelsOrStars) {
    const auto features = PoseFeatures::of({}, measuredPhoto());
    EXPECT_EQ(PoseFeatures::of({}, measuredPhoto(4)), features);
    ImageAnalysis other = measuredPhoto();
    other.rating = 5;
    other.label = "Green";
    other.tags = {"sitting"};
    EXPECT_EQ(PoseFeatures::of({}, other), features);

    ImageAnalysis fullLength = measuredPhoto();
    fullLength.body->leftAnkle = Point{350, 980};
    ImageAnalysis two = measuredPhoto();
    two.faces.push_back(two.faces[0]);
    ImageAnalysis card = measuredPhoto();
    card.signDetected = true;
    for (const ImageAnalysis& pose : {fullLength, two, card})
        EXPECT_NE(PoseFeatures::of({}, pose), features);
}

}  // namespace
}  // namespace morva
