// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/face_analyzer.h"

#include <gtest/gtest.h>

namespace morva {
namespace {

/// Answers each call with the next of its scripted results.
class ScriptedFaces final : public FaceDetector {
public:
    using Answer = Result<std::vector<FaceObservation>>;
    explicit ScriptedFaces(std::vector<Answer> answers) : answers_(std::move(answers)) {}
    Result<std::vector<FaceObservation>> faces(const Picture&) const override {
        return answers_.at(calls_++);
    }
    std::size_t calls() const { return calls_; }

private:
    std::vector<Answer> answers_;
    mutable std::size_t calls_ = 0;
};

/// A frontal face whose eyes' midpoint is `eyes` and whose chin lies `unit` below, tilted about the
/// eyes.
FaceObservation frontalFace(Point eyes, double unit, double tiltDegrees = 0) {
    const auto at = [&](double across, double down) {
        return (eyes + Point{across * unit, down * unit}).rotated(eyes, tiltDegrees);
    };
    FaceLandmarks marks;
    marks.confidence = 0.9;
    marks.leftEye = {at(-0.32, 0), at(-0.22, 0)};
    marks.rightEye = {at(0.22, 0), at(0.32, 0)};
    marks.medianLine = {at(0, -0.4), at(0, 0.5), at(-0.02, 1)};
    marks.contour = {at(-0.7, 0.1), at(-0.3, 0.9), at(0.02, 1), at(0.3, 0.9), at(0.7, 0.1)};
    marks.nose = {at(0, 0.3), at(0, 0.5)};
    return {{eyes.x - unit, eyes.y - unit / 2, 2 * unit, 2 * unit}, 0.8, 3.0, -4.0, marks};
}

Picture blank(int width, int height) {
    Picture picture(width, height);
    std::fill_n(picture.row(0), picture.byteCount(), std::uint8_t{0});
    return picture;
}

FaceGeometry detectedFace(Point eyes, double unit) {
    const ScriptedFaces detector({std::vector{frontalFace(eyes, unit)}});
    return FaceAnalyzer::detectFaces(detector, blank(1000, 800), {1000, 800})->front();
}

TEST(FaceAnalyzer, scalesToSourcePixelsAndListsTheLargestFirst) {
    const ScriptedFaces detector({std::vector{
        frontalFace({100, 100}, 40), frontalFace({300, 120}, 60), frontalFace({200, 300}, 60)}});
    const auto faces = FaceAnalyzer::detectFaces(detector, blank(500, 400), {2000, 1600});
    ASSERT_TRUE(faces);
    ASSERT_EQ(faces->size(), 3u);
    EXPECT_NEAR((*faces)[0].faceUnit(), 240.0, 0.1);
    EXPECT_EQ((*faces)[0].eyeMidpoint(), (Point{1200, 480}))
        << "equal sizes keep the detector's order";
    EXPECT_EQ((*faces)[1].eyeMidpoint(), (Point{800, 1200}));
    EXPECT_NEAR((*faces)[2].noseTip->y, 100 * 4 + 0.4 * 160, 1e-9);
    EXPECT_EQ((*faces)[2].faceBox, (Rect{240, 320, 320, 320}));
}

TEST(FaceAnalyzer, findsTheChinAlongTheFaceHoweverItIsTilted) {
    for (const double tilt : {-75.0, -30.0, 0.0, 20.0, 60.0}) {
        SCOPED_TRACE(tilt);
        const Point eyes{500, 400};
        const ScriptedFaces detector({std::vector{frontalFace(eyes, 100, tilt)}});
        const auto faces = FaceAnalyzer::detectFaces(detector, blank(1000, 800), {1000, 800});
        const FaceGeometry& face = faces->front();
        EXPECT_NEAR(face.chinFromMedianLine.distance(Point{498, 500}.rotated(eyes, tilt)), 0, 1e-6);
        EXPECT_NEAR(face.chinFromContour.distance(Point{502, 500}.rotated(eyes, tilt)), 0, 1e-6);
        EXPECT_NEAR(face.rollDegrees(), tilt, 1e-6);
    }
}

TEST(FaceAnalyzer, skipsFacesWithoutCompleteLandmarksAndReportsFailure) {
    FaceObservation boxOnly = frontalFace({100, 100}, 40);
    boxOnly.landmarks.reset();
    FaceObservation noContour = frontalFace({100, 100}, 40);
    noContour.landmarks->contour.clear();
    FaceObservation noNose = frontalFace({300, 100}, 40);
    noNose.landmarks->nose.clear();
    const ScriptedFaces detector(
        {std::vector{boxOnly, noContour, noNose}, failure("the model is gone")});
    const auto faces = FaceAnalyzer::detectFaces(detector, blank(500, 400), {500, 400});
    ASSERT_EQ(faces->size(), 1u);
    EXPECT_FALSE(faces->front().noseTip);
    const auto failed = FaceAnalyzer::detectFaces(detector, blank(500, 400), {500, 400});
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.error().message, "the model is gone");
}

struct Refinement {
    FaceGeometry result;
    std::size_t looks;
    Rect cut;
};

/// Refines a face in a photo of 1000 x 800 from a picture `scale` times as large; the second look
/// reports what `seen` makes of the place and unit that a perfect detector would report in the cut.
Refinement refined(const FaceGeometry& face, double scale,
                   const std::function<FaceObservation(Point, double)>& seen) {
    Rect cut;
    const Point eyes = face.eyeMidpoint();
    const double reach = 1.7 * face.faceUnit();
    const Point corner{std::max(0.0, std::floor(scale * (face.faceCenter().x - reach))),
                       std::max(0.0, std::floor(scale * (face.faceCenter().y - reach)))};
    const ScriptedFaces detector(
        {std::vector{seen(eyes.scaled(scale, scale) - corner, face.faceUnit() * scale)}});
    const CloseUps closeUps{static_cast<int>(1000 * scale),
                            [](int side) {
                                return Size{static_cast<double>(side), side * 0.8};
                            },
                            [&](int, int x, int y, int width, int height) {
                                cut = {static_cast<double>(x), static_cast<double>(y),
                                       static_cast<double>(width), static_cast<double>(height)};
                                return blank(width, height);
                            }};
    const FaceGeometry result = FaceAnalyzer::refine(detector, face, closeUps, 4096, {1000, 800});
    return {result, detector.calls(), cut};
}

TEST(FaceRefinement, averagesBothLooksAndKeepsTheFirstBox) {
    const FaceGeometry face = detectedFace({500, 300}, 100);
    const Refinement done = refined(face, 2, [](Point eyes, double unit) {
        FaceObservation second = frontalFace(eyes + Point{8, 0}, unit * 1.1);
        second.yawDegrees = 12;
        second.landmarks->confidence = 0.7;
        return second;
    });
    EXPECT_NEAR(done.result.eyeMidpoint().x, 502, 1e-9);
    EXPECT_NEAR(done.result.faceUnit(), 105, 0.1);
    EXPECT_NEAR(done.result.landmarkConfidence, 0.8, 1e-9);
    EXPECT_EQ(done.result.faceBox, face.faceBox);
    EXPECT_EQ(done.result.yawDegrees, 12.0);
    EXPECT_EQ(done.cut.width, 680);
}

TEST(FaceRefinement, keepsTheFirstLookWhenTheSecondStrays) {
    const FaceGeometry face = detectedFace({500, 300}, 100);
    struct Case {
        const char* what;
        double shift;
        double growth;
        bool accepted;
    };
    for (const Case& c :
         {Case{"just near enough", 14.9, 1, true}, Case{"moved by 0.15 units", 15.1, 1, false},
          Case{"just the same size", 0, 1.14, true}, Case{"grown by 0.15 units", 0, 1.16, false}}) {
        SCOPED_TRACE(c.what);
        const Refinement done = refined(face, 1, [&](Point eyes, double unit) {
            return frontalFace(eyes + Point{c.shift, 0}, unit * c.growth);
        });
        EXPECT_EQ(done.result != face, c.accepted);
    }
}

TEST(FaceRefinement, leavesFacesAloneThatGainNothing) {
    const auto perfect = [](Point eyes, double unit) { return frontalFace(eyes, unit); };
    EXPECT_EQ(refined(detectedFace({500, 300}, 8), 4, perfect).looks, 0u)
        << "eight pixels are too few";
    EXPECT_EQ(refined(detectedFace({500, 300}, 28), 1, perfect).looks, 0u)
        << "a cut of 96 pixels is too small";
    EXPECT_EQ(refined(detectedFace({500, 300}, 29), 1, perfect).looks, 1u);
    const Refinement corner = refined(detectedFace({20, 15}, 100), 2, perfect);
    EXPECT_EQ(corner.cut.x, 0);
    EXPECT_EQ(corner.cut.y, 0);
}

}  // namespace
}  // namespace morva
