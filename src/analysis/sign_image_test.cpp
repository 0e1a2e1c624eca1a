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

CloseUps closeUpsOf(const Picture& photo) {
    return {photo.width(),
            [&](int side) {
                const double step = static_cast<double>(photo.width()) / side;
                return Size{static_cast<double>(side), std::round(photo.height() / step)};
            },
            [&](int side, int x, int y, int width, int height) {
                const double step = static_cast<double>(photo.width()) / side;
                const cv::Rect part(cv::Point2d(x * step, y * step),
                                    cv::Size2d(width * step, height * step));
                Picture closeUp(width, height);
                cv::Mat target = viewOf(closeUp);
                cv::resize(viewOf(photo)(part & cv::Rect(0, 0, photo.width(), photo.height())),
                           target, target.size(), 0, 0, cv::INTER_AREA);
                return closeUp;
            }};
}

/// The portrait's child in a photo of 24 megapixels, `unit` pixels from the eyes to the chin.
class SmallChild {
public:
    SmallChild(const Portrait& portrait, double unit) : pixels_(6000, 4000) {
        const cv::Mat whole = viewOf(portrait.photo.image);
        const double scale = unit / portrait.faces.front().faceUnit();
        const Point corner = Point{3000, 1500} - portrait.below(0, 0).scaled(scale, scale);
        cv::Mat canvas = viewOf(pixels_);
        canvas = cv::Scalar(128, 120, 110);
        cv::Mat child;
        cv::resize(whole, child, {}, scale, scale, scale < 1 ? cv::INTER_AREA : cv::INTER_LINEAR);
        const cv::Rect place(static_cast<int>(corner.x), static_cast<int>(corner.y), child.cols,
                             child.rows);
        const cv::Rect inside = place & cv::Rect(0, 0, canvas.cols, canvas.rows);
        child(inside - place.tl()).copyTo(canvas(inside));
        face_ = portrait.faces.front().transformed(
            [&](Point p) { return corner + p.scaled(scale, scale); });
    }

    /// `belowChin` in face units.
    bool signWith(const cv::Mat& strip, Point belowChin, double degrees) const {
        const Point place = face_.chin + belowChin.scaled(face_.faceUnit(), face_.faceUnit());
        Picture held = pixels_.copy();
        holdCard(held, strip, place, 40, degrees);
        AnalysisImage reduced{Picture(2048, 1365), {6000, 4000}};
        cv::Mat view = viewOf(reduced.image);
        cv::resize(viewOf(held), view, view.size(), 0, 0, cv::INTER_AREA);
        return SignDetector::detect(*realVision().text, reduced, closeUpsOf(held),
                                    std::vector{face_});
    }

private:
    Picture pixels_;
    FaceGeometry face_;
};

/// How many strips 40 pixels high are found, printed and written by hand, straight and turned.
int stripsFound(const SmallChild& child) {
    struct Place {
        Point belowChin;  // in face units
        double degrees;
    };
    int count = 0;
    for (const CardLook& look : {cardLooks()[0], cardLooks()[1]}) {
        const cv::Mat strip = nameStrip(look, twoLines);
        for (const Place& place : {Place{{0.3, 1.2}, -15}, Place{{-1, 2.2}, 0}, Place{{0, 4}, 15}})
            count += child.signWith(strip, place.belowChin, place.degrees);
    }
    return count;
}

TEST(SignOnPhotographs, isReadFromThePhotosOwnPixels) {
    const Portrait portrait(samplePortrait());
    for (const double unit : {50.0, 115.0, 160.0, 194.0}) {
        SCOPED_TRACE(unit);
        EXPECT_EQ(stripsFound(SmallChild(portrait, unit)), 6);
    }
}

TEST(SignOnPhotographs, isReadInFrontOfChildrenInThePhotosOwnPixels) {
    if (!testData()) GTEST_SKIP() << "no reference photographs here";
    const std::vector<std::pair<std::string, double>> children{{"scene-speaker-side.jpg", 194},
                                                               {"kid-girl-red-bow.jpg", 130}};
    for (const auto& [file, unit] : children) {
        SCOPED_TRACE(file);
        const Portrait portrait(*testData() / "portraits" / file);
        EXPECT_EQ(stripsFound(SmallChild(portrait, unit)), 6);
    }
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
