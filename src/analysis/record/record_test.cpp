// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "analysis/record/image_analysis.h"

namespace morva {
namespace {

constexpr const char* fullRecord =
    R"({"version":11,"sourceWidth":4000,"sourceHeight":3000,"faces":[{"leftEye":[10.0,20.0],)"
    R"("rightEye":[30.0,20.5],"chin":[20.0,60.0],"chinFromMedianLine":[20.0,61.0],)"
    R"("chinFromContour":[20.0,59.0],"noseTip":[20.0,40.0],"faceBox":[[1.0,2.0],[50.0,70.0]],)"
    R"("landmarkConfidence":0.9,"detectionConfidence":0.8,"yawDegrees":-4.5,"pitchDegrees":3.0}],)"
    R"("headContent":{"topY":5.0,"topX":21.0,"leftX":2.0,"rightX":38.0,"reliable":false,)"
    R"("note":"No person outline available","bottomY":2900.0},"analysisSeconds":0.25,)"
    R"("error":"No face was found.","detectionFailed":true,"body":{"leftShoulder":[1.0,2.0],)"
    R"("rightAnkle":[3.0,4.0]},"rating":5,"label":"Red","signDetected":true,)"
    R"("tags":["full","sign"],"backdropColor":[0.5,0.25,0.125],"subject":)"
    R"({"bounds":[[0.0,1.0],[2.0,3.0]],"reliable":true,"propReach":0.5,"note":"held","edges":)"
    R"({"top":false,"bottom":true,"left":false,"right":true}},"edgeContact":)"
    R"({"top":true,"bottom":false,"left":true,"right":false},"captureTime":1700000000.42})";

Json recordWithout(std::initializer_list<const char*> path) {
    Json record = Json::parse(fullRecord);
    Json* parent = &record;
    for (auto key = path.begin(); key + 1 != path.end(); ++key)
        parent = parent->is_array() ? &parent->front() : &parent->at(*key);
    if (parent->is_array()) parent = &parent->front();
    parent->erase(*(path.end() - 1));
    return record;
}

TEST(ImageAnalysisJson, keepsEveryFieldAndTheirOrder) {
    const auto record = decoded<ImageAnalysis>(fullRecord, "the record");
    ASSERT_TRUE(record) << record.error().message;
    EXPECT_EQ(Json(*record).dump(), fullRecord);
    EXPECT_EQ(decoded<ImageAnalysis>(Json(*record).dump(), "the record"), record);
    EXPECT_EQ(record->body->rightAnkle, (Point{3, 4}));
    EXPECT_TRUE(record->isCurrent());
}

TEST(ImageAnalysisJson, readsTheBarestRecordAsStaleAndWritesNoAbsentValue) {
    const auto record =
        decoded<ImageAnalysis>(R"({"sourceWidth":40,"sourceHeight":30})", "the record");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->version, 0);
    EXPECT_FALSE(record->isCurrent());
    EXPECT_EQ(record->primary(), nullptr);
    EXPECT_EQ(Json(*record).dump(),
              R"({"version":0,"sourceWidth":40,"sourceHeight":30,"faces":[],)"
              R"("analysisSeconds":0.0,"detectionFailed":false,"signDetected":false,"tags":[]})");
}

TEST(ImageAnalysisJson, refusesTheWholeRecordForOneMissingRequiredKey) {
    for (const auto& path :
         std::initializer_list<std::initializer_list<const char*>>{{"sourceWidth"},
                                                                   {"sourceHeight"},
                                                                   {"faces", "leftEye"},
                                                                   {"faces", "chinFromContour"},
                                                                   {"faces", "faceBox"},
                                                                   {"faces", "landmarkConfidence"},
                                                                   {"headContent", "topX"},
                                                                   {"headContent", "reliable"},
                                                                   {"subject", "propReach"},
                                                                   {"subject", "edges"},
                                                                   {"subject", "edges", "bottom"},
                                                                   {"edgeContact", "left"}}) {
        EXPECT_FALSE(decoded<ImageAnalysis>(recordWithout(path).dump(), "x")) << *(path.end() - 1);
    }
    for (const auto& path :
         std::initializer_list<std::initializer_list<const char*>>{{"faces", "noseTip"},
                                                                   {"faces", "yawDegrees"},
                                                                   {"headContent", "note"},
                                                                   {"headContent", "bottomY"},
                                                                   {"body", "leftShoulder"},
                                                                   {"subject", "note"}}) {
        EXPECT_TRUE(decoded<ImageAnalysis>(recordWithout(path).dump(), "x")) << *(path.end() - 1);
    }
}

TEST(ImageAnalysisJson, refusesWrongTypes) {
    for (const auto& [key, value] :
         std::initializer_list<std::pair<const char*, Json>>{{"sourceWidth", 4000.5},
                                                             {"sourceWidth", true},
                                                             {"sourceWidth", 5'000'000'000},
                                                             {"sourceHeight", "3000"},
                                                             {"version", "11"},
                                                             {"tags", "full"},
                                                             {"rating", 2.5},
                                                             {"faces", Json::array({1})},
                                                             {"body", 7},
                                                             {"signDetected", 1}}) {
        Json record = Json::parse(fullRecord);
        record[key] = value;
        EXPECT_FALSE(decoded<ImageAnalysis>(record.dump(), "x")) << key << " = " << value;
    }
}

TEST(FaceGeometry, readsTheTiltFromTheEyesInEitherOrder) {
    struct Case {
        const char* what;
        Point a, b;
        double roll;
    };
    for (const Case& c : {Case{"level", {100, 50}, {200, 50}, 0},
                          Case{"right eye lower", {100, 50}, {200, 60}, 5.7106},
                          Case{"right eye higher", {100, 60}, {200, 50}, -5.7106}}) {
        SCOPED_TRACE(c.what);
        FaceGeometry face;
        face.leftEye = c.a;
        face.rightEye = c.b;
        EXPECT_NEAR(face.rollDegrees(), c.roll, 1e-4);
        std::swap(face.leftEye, face.rightEye);
        EXPECT_NEAR(face.rollDegrees(), c.roll, 1e-4);
    }
}

TEST(FaceGeometry, countsAFaceWithoutHeightAsDisagreeing) {
    FaceGeometry face;
    face.leftEye = {90, 100};
    face.rightEye = {110, 100};
    face.chin = {100, 100};
    EXPECT_EQ(face.eyeSpacingRatio(), 0);
    EXPECT_EQ(face.chinAgreement(), 1);
    face.chin = {100, 150};
    face.chinFromMedianLine = {100, 152};
    face.chinFromContour = {100, 148};
    EXPECT_DOUBLE_EQ(face.eyeSpacingRatio(), 0.4);
    EXPECT_DOUBLE_EQ(face.chinAgreement(), 0.08);
    EXPECT_EQ(face.faceCenter(), (Point{100, 125}));
}

TEST(FaceGeometry, reboxesItsBoxWhenTransformed) {
    FaceGeometry face;
    face.faceBox = {10, 20, 30, 40};
    face.noseTip = Point{25, 40};
    const FaceGeometry mirrored = face.transformed([](Point p) { return Point{100 - p.x, p.y}; });
    EXPECT_EQ(mirrored.faceBox, (Rect{60, 20, 30, 40}));
    EXPECT_EQ(mirrored.noseTip, (Point{75, 40}));
    face.noseTip.reset();
    const FaceGeometry turned = face.transformed([](Point p) { return p.rotated({0, 0}, 90); });
    EXPECT_NEAR(turned.faceBox.x, -60, 1e-9);
    EXPECT_NEAR(turned.faceBox.width, 40, 1e-9);
    EXPECT_FALSE(turned.noseTip);
}

TEST(BodyGeometry, averagesTheJointsThatArePresent) {
    BodyGeometry body;
    EXPECT_FALSE(body.torsoCenterX());
    EXPECT_FALSE(body.kneeY());
    body.leftShoulder = Point{10, 100};
    body.rightHip = Point{40, 300};
    body.rightShoulder = Point{70, 120};
    EXPECT_EQ(body.shoulderY(), 110);
    EXPECT_EQ(body.hipY(), 300);
    EXPECT_EQ(body.torsoCenterX(), 40);
    const BodyGeometry moved = body.transformed([](Point p) { return p + Point{1, 2}; });
    EXPECT_EQ(moved.rightHip, (Point{41, 302}));
    EXPECT_FALSE(moved.leftKnee);
}

TEST(EdgeContact, blocksOnlyWhereATouchedEdgeVisiblyLacksCanvas) {
    const EdgeContact leftAndTop{.top = true, .bottom = false, .left = true, .right = false};
    EXPECT_EQ(leftAndTop.summary(), "top, left");
    EXPECT_FALSE(leftAndTop.blocks({.left = 0.5, .top = 0, .right = 90, .bottom = 90}));
    EXPECT_TRUE(leftAndTop.blocks({.left = 0.51, .top = 0, .right = 0, .bottom = 0}));
    EXPECT_TRUE(leftAndTop.blocks({.left = 0, .top = 2, .right = 0, .bottom = 0}));
    const EdgeContact others{.top = false, .bottom = true, .left = false, .right = true};
    EXPECT_TRUE(others.blocks({.left = 0, .top = 0, .right = 1, .bottom = 0}));
    EXPECT_TRUE(others.blocks({.left = 0, .top = 0, .right = 0, .bottom = 1}));
    EXPECT_FALSE(others.blocks({.left = 9, .top = 9, .right = 0, .bottom = 0}));
}

TEST(CanvasShortfall, namesTheVisibleSidesInOrder) {
    EXPECT_EQ((CanvasShortfall{.left = 40.4, .top = 12, .right = 0.5, .bottom = 0}.summary()),
              "12 px above, 40 px left");
    EXPECT_EQ((CanvasShortfall{.left = 0.6, .top = 0, .right = 3, .bottom = 7.6}.summary()),
              "8 px below, 1 px left, 3 px right");
    EXPECT_TRUE((CanvasShortfall{.left = 0.5, .top = 0.5, .right = 0.5, .bottom = 0.5}.isEmpty()));
}

}  // namespace
}  // namespace morva
