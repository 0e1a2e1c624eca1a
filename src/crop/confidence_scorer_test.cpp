// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/confidence_scorer.h"

#include <functional>

#include <gtest/gtest.h>

#include "crop/synthetic_portrait.h"

namespace morva {
namespace {

using enum ReviewReason;

/// A certain face with the eyes this far apart, in face units of 400.
FaceGeometry faceWithEyes(double ratio) {
    FaceGeometry face = Synthetic::portrait().faces.front();
    face.leftEye.x = 2000 - 200 * ratio;
    face.rightEye.x = 2000 + 200 * ratio;
    return face;
}

FaceGeometry face(const std::function<void(FaceGeometry&)>& change) {
    FaceGeometry face = faceWithEyes(0.53);
    change(face);
    return face;
}

FaceGeometry faceWithChinsApart(double units) {
    return face([&](FaceGeometry& f) { f.chinFromContour.y += 400 * units; });
}

TEST(ConfidenceScorer, costsAndFlagsWhatIsUncertain) {
    struct Case {
        const char* what;
        FaceGeometry face;
        double score;
        std::vector<ReviewReason> reasons;
        std::vector<std::string> notes;
    };
    const auto landmark = [](double confidence) {
        return face([=](FaceGeometry& f) { f.landmarkConfidence = confidence; });
    };
    const auto yaw = [](double d) { return face([=](FaceGeometry& f) { f.yawDegrees = d; }); };
    const auto pitch = [](double d) { return face([=](FaceGeometry& f) { f.pitchDegrees = d; }); };
    const auto tilt = [](double d) {
        return faceWithEyes(0.53).transformed([=](Point p) { return p.rotated({0, 0}, d); });
    };
    const std::string eyes = "Eye spacing is unusual for the face height.";
    for (const Case& c : {
             Case{"sure", landmark(0.9), 1, {}, {}},
             Case{"halfway", landmark(0.675), 0.5, {}, {}},
             Case{"unclear",
                  landmark(0.64),
                  0.19 / 0.45,
                  {lowLandmarkConfidence},
                  {"Landmark confidence 64%."}},
             Case{"hopeless",
                  landmark(0.45),
                  0,
                  {lowLandmarkConfidence},
                  {"Landmark confidence 45%."}},
             Case{"cut off, not rounded",
                  landmark(0.509),
                  0.059 / 0.45,
                  {lowLandmarkConfidence},
                  {"Landmark confidence 50%."}},
             Case{"chins close", faceWithChinsApart(0.03), 1, {}, {}},
             Case{"chins apart", faceWithChinsApart(0.07), 0.68, {}, {}},
             Case{"chins too far apart",
                  faceWithChinsApart(0.0999),
                  1 - 8 * 0.0699,
                  {landmarkSanity},
                  {"Chin estimates disagree by 9% of the face."}},
             Case{"usual eyes", faceWithEyes(0.5), 1, {}, {}},
             Case{"close eyes", faceWithEyes(0.4), 0.88, {}, {}},
             Case{"wide eyes", faceWithEyes(0.7), 0.72, {}, {}},
             Case{"too wide", faceWithEyes(0.75), 0.52, {landmarkSanity}, {eyes}},
             Case{"too close", faceWithEyes(0.35), 0.68, {landmarkSanity}, {eyes}},
             Case{"turned a little", yaw(-20), 1, {}, {}},
             Case{"turned", yaw(25), 0.9, {}, {}},
             Case{
                 "turned away", yaw(-35.9), 1 - 15.9 / 50, {unusualHeadPose}, {"Head turned 35°."}},
             Case{"tipped", pitch(30), 0.75, {}, {}},
             Case{"tipped back", pitch(-36), 0.6, {unusualHeadPose}, {"Head tipped 36°."}},
             Case{"tilted", tilt(29), 1, {}, {}},
             Case{"tilted far", tilt(-31.5), 1, {unusualHeadPose}, {"Head tilted 31°."}},
         }) {
        SCOPED_TRACE(c.what);
        const auto report = ConfidenceScorer::score(c.face, std::nullopt);
        EXPECT_NEAR(report.score, c.score, 1e-9);
        EXPECT_EQ(report.reasons, c.reasons);
        EXPECT_EQ(report.notes, c.notes);
    }
}

TEST(ConfidenceScorer, multipliesDoubtsAndNamesEachReasonOnce) {
    FaceGeometry doubtful = faceWithEyes(0.75);
    doubtful.chinFromContour.y += 40;
    const HeadContent unreliable{};
    const auto report = ConfidenceScorer::score(doubtful, unreliable);
    EXPECT_NEAR(report.score, 0.44 * 0.52 * 0.8, 1e-9);
    EXPECT_EQ(report.reasons, std::vector{landmarkSanity});
    EXPECT_EQ(report.notes.size(), 2u);
}

TEST(ConfidenceScorer, isTheProductOfTheFactorsThatItTells) {
    FaceGeometry doubtful = faceWithChinsApart(0.07);
    doubtful.landmarkConfidence = 0.8;
    doubtful.yawDegrees = -30;
    HeadContent head;
    head.reliable = false;
    const auto report = ConfidenceScorer::score(doubtful, head);
    using enum ConfidenceScorer::Part;
    const std::vector<ConfidenceScorer::Part> parts{landmarks, chin, eyeSpacing, yaw, hair};
    ASSERT_EQ(report.factors.size(), parts.size()) << "a pitch that is not known is no factor";
    double product = 1;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        EXPECT_EQ(report.factors[i].part, parts[i]);
        product *= report.factors[i].factor;
    }
    EXPECT_DOUBLE_EQ(report.score, product);
    EXPECT_EQ(report.factors[3].measured, 30);
    EXPECT_NEAR(report.factors[3].factor, 0.8, 1e-12);
    EXPECT_EQ(report.factors[4].measured, 0);
}

}  // namespace
}  // namespace morva
