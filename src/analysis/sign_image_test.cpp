// SPDX-License-Identifier: GPL-3.0-or-later
// The real text detector on photographs, with and without a card drawn into them.
#include <set>

#include <gtest/gtest.h>

#include "analysis/analysis_pipeline.h"
#include "analysis/card_drawing.h"
#include "analysis/image_loader.h"
#include "analysis/photo_test_support.h"
#include "analysis/sign_detector.h"
#include "imaging/decode.h"
#include "imaging/mat_view.h"

namespace morva {
namespace {

const std::vector<std::string> twoLines{"Emma Lind", "Class 3b"};

struct Portrait {
    AnalysisImage photo;
    std::vector<FaceGeometry> faces;

    explicit Portrait(const std::filesystem::path& file) {
        const auto decode = PhotoDecode::open(file, AnalysisPipeline::refineMaxPixel);
        photo.image = decode->whole(AnalysisPipeline::analysisMaxPixel);
        photo.sourceSize = {static_cast<double>(photo.image.width()),
                            static_cast<double>(photo.image.height())};
        faces = *FaceAnalyzer::detectFaces(*realVision().faces, photo.image, photo.sourceSize);
    }

    Point below(double aside, double units) const {
        const FaceGeometry& face = faces.front();
        return face.chin + Point{aside * face.faceUnit(), units * face.faceUnit()};
    }

    bool signWith(const cv::Mat& card, Point center, double height, double degrees) const {
        AnalysisImage held{photo.image.copy(), photo.sourceSize};
        holdCard(held.image, card, center, height, degrees);
        return SignDetector::detect(*realVision().text, held, std::nullopt, faces);
    }
};

/// How many of the cards of this look, in four sizes and three angles, are found.
int found(const Portrait& portrait, const CardLook& look) {
    int count = 0;
    for (const double units : {0.7, 1.0, 1.5, 2.2}) {
        const cv::Mat card = flatCard(
            look,
            units < 1.2 ? twoLines : std::vector<std::string>{"First day", "of school", "2024"});
        for (const double degrees : {0.0, -8.0, 15.0}) {
            const double height = units * portrait.faces.front().faceUnit();
            count +=
                portrait.signWith(card, portrait.below(0.2, 0.6 + 0.6 * units), height, degrees);
        }
    }
    return count;
}

TEST(SignOnPhotographs, isFoundHoweverTheCardLooksAndIsHeld) {
    const Portrait sample(samplePortrait());
    for (const CardLook& look : cardLooks()) {
        SCOPED_TRACE(look.name);
        EXPECT_EQ(found(sample, look), 12);
    }
}

TEST(SignOnPhotographs, isFoundOnChildrenOfAnySize) {
    if (!testData()) GTEST_SKIP() << "no reference photographs here";
    const std::vector<std::string> files{"teen-updo-half.jpg", "man-half-sofa.jpg",
                                         "woman-seated-full.jpg", "pif-stephanie-farquhar.jpg"};
    for (std::size_t i = 0; i < files.size(); ++i) {
        SCOPED_TRACE(files[i] + ", " + cardLooks()[i].name);
        EXPECT_EQ(found(Portrait(*testData() / "portraits" / files[i]), cardLooks()[i]), 12);
    }
}

TEST(SignOnPhotographs, needsTwoLinesBelowTheFace) {
    const Portrait portrait(samplePortrait());
    const double unit = portrait.faces.front().faceUnit();
    EXPECT_FALSE(
        SignDetector::detect(*realVision().text, portrait.photo, std::nullopt, portrait.faces));
    for (const CardLook& look : cardLooks()) {
        SCOPED_TRACE(look.name);
        EXPECT_FALSE(
            portrait.signWith(flatCard(look, {"Class 3b"}), portrait.below(0, 2), unit, 5));
        EXPECT_FALSE(portrait.signWith(flatCard(look, twoLines), portrait.below(2, -1), unit, 5))
            << "held beside the head";
    }
}

/// Children who are small in a photo of 24 megapixels, with a card 40 pixels high.
TEST(SignOnPhotographs, isReadFromThePhotosOwnPixels) {
    const Portrait portrait(samplePortrait());
    const double unit = portrait.faces.front().faceUnit();
    Picture large(6000, 4000);
    cv::Mat canvas = viewOf(large);
    canvas = cv::Scalar(128, 120, 110);
    const cv::Mat small = viewOf(portrait.photo.image);
    const Point corner{3100, 1900};
    const double scale = 50 / unit;
    cv::Mat place = canvas(cv::Rect(static_cast<int>(corner.x), static_cast<int>(corner.y),
                                    static_cast<int>(small.cols * scale),
                                    static_cast<int>(small.rows * scale)));
    cv::resize(small, place, place.size(), 0, 0, cv::INTER_AREA);
    const FaceGeometry face = portrait.faces.front().transformed(
        [&](Point p) { return corner + p.scaled(scale, scale); });
    holdCard(large, flatCard(cardLooks().front(), twoLines), face.chin + Point{5, 70}, 40, 7);

    AnalysisImage reduced{Picture(2048, 1365), {6000, 4000}};
    cv::Mat view = viewOf(reduced.image);
    cv::resize(canvas, view, view.size(), 0, 0, cv::INTER_AREA);
    const CloseUps closeUps{6000,
                            [](int side) {
                                return Size{static_cast<double>(side), std::round(side / 1.5)};
                            },
                            [&](int side, int x, int y, int width, int height) {
                                EXPECT_EQ(side, 6000);
                                Picture part(width, height);
                                canvas(cv::Rect(x, y, width, height)).copyTo(viewOf(part));
                                return part;
                            }};
    EXPECT_TRUE(SignDetector::detect(*realVision().text, reduced, closeUps, std::vector{face}));
}

TEST(SignOnPhotographs, isNotSeenWhereNobodyHoldsOne) {
    if (!testData()) GTEST_SKIP() << "no reference photographs here";
    std::set<std::string> seen;
    const auto files = ImageLoader::listImages(*testData() / "portraits");
    for (const auto& file : *files) {
        const Portrait portrait(file);
        if (SignDetector::detect(*realVision().text, portrait.photo, std::nullopt, portrait.faces))
            seen.insert(file.filename().string());
    }
    // A held book is a sign. The others are two lines of print on a shirt, and a badge on a
    // lanyard that looks like a card in every way but its size.
    EXPECT_EQ(seen, (std::set<std::string>{"man-holding-book.jpg", "scene-two-lanyards.jpg",
                                           "teen-boy-laptop.jpg", "woman-bar-boards.jpg"}));
}

}  // namespace
}  // namespace morva
