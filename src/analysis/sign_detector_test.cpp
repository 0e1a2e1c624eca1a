// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/sign_detector.h"

#include <gtest/gtest.h>

namespace morva {
namespace {

/// Every pixel says where it lies, so that a detector can tell what it was given.
Picture chart(int x, int y, int width, int height) {
    Picture picture(width, height);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            std::uint8_t* pixel = picture.pixel(column, row);
            pixel[0] = static_cast<std::uint8_t>(x + column);
            pixel[1] = static_cast<std::uint8_t>(y + row);
            pixel[2] = static_cast<std::uint8_t>((x + column) / 256 * 16 + (y + row) / 256);
        }
    }
    return picture;
}

Point originOf(const Picture& picture) {
    const std::uint8_t* first = picture.pixel(0, 0);
    return {first[2] / 16 * 256.0 + first[0], first[2] % 16 * 256.0 + first[1]};
}

TextLine lineAt(Point center, double length = 60, double height = 20, double confidence = 0.9) {
    const Point half{length / 2, height / 2};
    return {Rect{center.x - half.x, center.y - half.y, length, height}.corners(), confidence};
}

/// Sees the same lines of the chart whatever part it is shown.
class ScriptedText final : public TextDetector {
public:
    explicit ScriptedText(Result<std::vector<TextLine>> lines, int sharpest = 2000)
        : lines_(std::move(lines)), sharpest_(sharpest) {}

    Result<std::vector<TextLine>> lines(const Picture& picture) const override {
        looks.push_back({originOf(picture).x, originOf(picture).y,
                         static_cast<double>(picture.width()),
                         static_cast<double>(picture.height())});
        auto seen = lines_;
        if (!seen) return seen;
        for (TextLine& line : *seen)
            for (Point& corner : line.corners) corner = corner - originOf(picture);
        return seen;
    }
    int sharpestSide() const override { return sharpest_; }

    mutable std::vector<Rect> looks;

private:
    Result<std::vector<TextLine>> lines_;
    int sharpest_;
};

FaceGeometry faceAt(Point eyes, double unit) {
    FaceGeometry face;
    face.leftEye = {eyes.x - 0.3 * unit, eyes.y};
    face.rightEye = {eyes.x + 0.3 * unit, eyes.y};
    face.chin = {eyes.x, eyes.y + unit};
    return face;
}

/// In a photo of 1000 x 1200: eyes at (500, 100), chin at (500, 200), a face unit of 100.
bool detected(Result<std::vector<TextLine>> lines, std::vector<FaceGeometry> others = {}) {
    const AnalysisImage image{chart(0, 0, 1000, 1200), {1000, 1200}};
    others.insert(others.begin(), faceAt({500, 100}, 100));
    return SignDetector::detect(ScriptedText(std::move(lines)), image, std::nullopt, others);
}

TEST(SignDetector, takesTwoLinesOfThreeCharactersBelowTheChin) {
    const TextLine good = lineAt({500, 500});
    struct Case {
        const char* what;
        std::vector<TextLine> lines;
        bool expected;
    };
    for (const Case& c : {
             Case{"nothing", {}, false},
             Case{"one line", {good}, false},
             Case{"two lines", {good, lineAt({500, 540})}, true},
             Case{"two words of one line", {good, lineAt({590, 504})}, false},
             Case{"the second word a line lower", {good, lineAt({590, 524})}, true},
             Case{"exactly 0.3 units below the chin", {good, lineAt({500, 230})}, false},
             Case{"just further", {good, lineAt({500, 230.5})}, true},
             Case{"exactly 8 units below the chin", {good, lineAt({500, 1000})}, false},
             Case{"just nearer", {good, lineAt({500, 999.5})}, true},
             Case{"exactly 3 units to the left", {good, lineAt({200, 560})}, false},
             Case{"just nearer", {good, lineAt({200.5, 560})}, true},
             Case{"exactly 3 units to the right", {good, lineAt({800, 560})}, false},
             Case{"just nearer", {good, lineAt({799.5, 560})}, true},
             Case{"beside the head", {good, lineAt({700, 120}, 300, 80)}, false},
             Case{"as wide as two characters", {good, lineAt({500, 540}, 24, 20)}, false},
             Case{"as wide as three, upright", {good, lineAt({500, 540}, 20, 30)}, true},
             Case{"hardly text", {good, lineAt({500, 540}, 60, 20, 0.59)}, false},
         }) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(detected(c.lines), c.expected);
    }
    EXPECT_FALSE(detected(failure("the model is gone")));
}

TEST(SignDetector, leavesEveryChildItsOwnCard) {
    const auto cardBelow = [](double x) { return std::vector{lineAt({x, 500}), lineAt({x, 540})}; };
    struct Case {
        const char* what;
        double card;
        FaceGeometry other;
        bool expected;
    };
    for (const Case& c : {
             Case{"own card, neighbour near", 510, faceAt({700, 100}, 90), true},
             Case{"the neighbour's card", 690, faceAt({700, 100}, 90), false},
             Case{"between both, nearer to this one", 590, faceAt({700, 100}, 90), true},
             Case{"as near to a smaller face, by its size", 560, faceAt({620, 100}, 50), true},
             Case{"the neighbour's head is below the card", 690, faceAt({700, 600}, 90), true},
             Case{"too far below the neighbour", 690, faceAt({700, 50}, 40), true},
         }) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(detected(cardBelow(c.card), {c.other}), c.expected);
    }
}

TEST(SignDetector, looksAtNothingButThePlaceOfSigns) {
    const AnalysisImage image{chart(0, 0, 1000, 1200), {1000, 1200}};
    const ScriptedText detector(std::vector<TextLine>{});
    const std::vector faces{faceAt({500, 100}, 100)};
    EXPECT_FALSE(SignDetector::detect(detector, image, std::nullopt, faces));
    ASSERT_EQ(detector.looks.size(), 1u);
    EXPECT_EQ(detector.looks[0].x, 170);
    EXPECT_EQ(detector.looks[0].y, 200) << "from the chin on";
    EXPECT_NEAR(detector.looks[0].width, 660, 1);

    EXPECT_FALSE(SignDetector::detect(detector, image, std::nullopt, {}));
    EXPECT_FALSE(
        SignDetector::detect(detector, image, std::nullopt, std::vector{faceAt({500, 1200}, 100)}));
    EXPECT_EQ(detector.looks.size(), 1u) << "no face, or no photo below it: no look";
}

struct Looks {
    bool sign = false;
    std::vector<Rect> parts;
};

/// A photo of 1000 x 1200 reduced to a quarter for the analysis, with close-ups.
Looks looksAt(const std::vector<TextLine>& lines, double unit, int sharpest) {
    const AnalysisImage image{chart(0, 0, 250, 300), {1000, 1200}};
    const CloseUps closeUps{
        1200,
        [](int side) {
            return Size{side / 1.2, static_cast<double>(side)};
        },
        [](int, int x, int y, int width, int height) { return chart(x, y, width, height); }};
    const ScriptedText detector(lines, sharpest);
    const bool sign =
        SignDetector::detect(detector, image, closeUps, std::vector{faceAt({500, 100}, unit)});
    return {sign, detector.looks};
}

TEST(SignDetector, readsSmallChildrenFromThePhotosOwnPixels) {
    const Looks looks = looksAt({lineAt({500, 300}), lineAt({500, 330})}, 50, 640);
    EXPECT_TRUE(looks.sign);
    ASSERT_EQ(looks.parts.size(), 1u);
    EXPECT_EQ(looks.parts[0], (Rect{335, 150, 330, 415}));
}

TEST(SignDetector, looksCloserOnlyWhereSmallWritingShows) {
    // The first look has half of the photo's pixels, and the lines lie in its own. The child is too
    // large to be looked at in tiles.
    const TextLine trace = lineAt({250, 300}, 15, 5, 0.4);
    EXPECT_EQ(looksAt({}, 220, 500).parts.size(), 1u);
    EXPECT_EQ(looksAt({lineAt({250, 300}, 100, 37)}, 220, 500).parts.size(), 1u)
        << "large writing hides nothing";
    EXPECT_EQ(looksAt({lineAt({250, 180}, 15, 5)}, 220, 500).parts.size(), 1u)
        << "writing elsewhere";
    const Looks looks = looksAt({trace}, 220, 500);
    EXPECT_FALSE(looks.sign);
    ASSERT_EQ(looks.parts.size(), 2u);
    EXPECT_EQ(looks.parts[1], (Rect{265, 375, 470, 450})) << "one unit around the trace";
    EXPECT_EQ(looksAt({trace}, 220, 1000).parts.size(), 1u) << "no finer pixels to be had";
}

TEST(SignDetector, looksAtTilesWhereTheWholeIsTooCoarseForTheSmallestCard) {
    const std::vector<Rect> parts = looksAt({}, 100, 415).parts;
    ASSERT_EQ(parts.size(), 5u) << "the window of 660 x 830 pixels at half its size, and 2 x 2";
    const double scale = 415 / 465.0;  // of the tiles, each 465 pixels high
    EXPECT_NEAR(parts[1].x, 170 * scale, 1);
    EXPECT_NEAR(parts[1].y, 200 * scale, 1);
    EXPECT_NEAR(parts[1].maxX() - parts[2].x, 100 * scale, 2) << "what they share";
    EXPECT_NEAR(parts[1].maxY() - parts[3].y, 100 * scale, 2);
    EXPECT_NEAR(parts[4].maxX(), 830 * scale, 1);
    EXPECT_NEAR(parts[4].maxY(), 1030 * scale, 1);

    EXPECT_EQ(looksAt({}, 50, 415).parts.size(), 1u) << "the whole is fine enough";
    EXPECT_EQ(looksAt({}, 211, 415).parts.size(), 1u) << "nobody so large holds such a card";
    const AnalysisImage coarse{chart(0, 0, 250, 300), {1000, 1200}};
    const ScriptedText detector(std::vector<TextLine>{}, 104);
    SignDetector::detect(detector, coarse, std::nullopt, std::vector{faceAt({500, 100}, 50)});
    EXPECT_EQ(detector.looks.size(), 1u) << "no finer pixels to be had";

    // Beside the window where the first look sees these, inside it where the first tile does.
    const Looks found = looksAt({lineAt({420, 400}), lineAt({420, 430})}, 100, 415);
    EXPECT_TRUE(found.sign);
    EXPECT_EQ(found.parts.size(), 2u) << "the rest is not looked at";
}

}  // namespace
}  // namespace morva
