// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/head_protector.h"

#include <functional>

#include <gtest/gtest.h>

namespace morva {
namespace {

/// A mask on which `person` says where somebody stands.
Mask drawn(int width, int height, const std::function<bool(int x, int y)>& person) {
    Mask mask(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) *mask.pixel(x, y) = person(x, y) ? 255 : 0;
    }
    return mask;
}

/// A photo of 1200 x 1600 on a mask a quarter of its size. The face's eyes lie on (600, 800), its
/// unit is 200: on the mask (150, 200) and 50. The head is an ellipse from y 120 to 260, half 45
/// wide, on shoulders.
constexpr Size photo{1200, 1600};

FaceGeometry face() {
    FaceGeometry f;
    f.leftEye = {550, 800};
    f.rightEye = {650, 800};
    f.chin = f.chinFromContour = f.chinFromMedianLine = {600, 1000};
    f.faceBox = {460, 700, 280, 300};
    return f;
}

bool onBust(int x, int y) {
    const double dx = (x - 150) / 45.0;
    const double dy = (y - 190) / 70.0;
    return dx * dx + dy * dy < 1 || (y > 270 && y < 390 && std::abs(x - 150) < 90) ||
           (y > 230 && y <= 270 && std::abs(x - 150) < 20);
}

HeadContent measured(const std::function<bool(int, int)>& person) {
    return HeadProtector::headContent(drawn(300, 400, person), face(), photo);
}

TEST(HeadContent, measuresTheOutlineOfHairAndWhatIsWornOnIt) {
    struct Case {
        const char* what;
        std::function<bool(int, int)> worn;
        double top, left, right;  // mask pixels
    };
    for (const Case& c : {
             Case{"bare head", [](int, int) { return false; }, 120, 105, 195},
             Case{"bun", [](int x, int y) { return std::abs(x - 160) < 10 && y > 95 && y < 130; },
                  96, 105, 195},
             Case{"bow behind a gap that a hair band leaves",
                  [](int x, int y) { return std::abs(x - 150) < 30 && y > 100 && y < 119; }, 101,
                  105, 195},
             Case{"brim wider than the head",
                  [](int x, int y) { return std::abs(x - 150) < 80 && y > 140 && y < 150; }, 120,
                  71, 230},
             Case{"bow that hangs down beside its knot",
                  [](int x, int y) {
                      return (y > 110 && y < 125 && x >= 150 && x < 220) ||
                             (y > 110 && y < 170 && x >= 205 && x < 220);
                  },
                  111, 105, 220},
             Case{"single hair", [](int x, int y) { return x == 150 && y > 90 && y < 125; }, 120,
                  105, 195},
             Case{"lamp far above",
                  [](int x, int y) { return std::abs(x - 150) < 30 && y > 75 && y < 100; }, 120,
                  105, 195},
         }) {
        SCOPED_TRACE(c.what);
        const HeadContent head =
            measured([&](int x, int y) { return onBust(x, y) || c.worn(x, y); });
        EXPECT_TRUE(head.reliable);
        EXPECT_FALSE(head.note);
        EXPECT_NEAR(head.topY / 4, c.top, 1.5);
        EXPECT_NEAR(head.leftX / 4, c.left, 1.5);
        EXPECT_NEAR(head.rightX / 4, c.right, 1.5);
        EXPECT_NEAR(*head.bottomY / 4, 390, 2);
    }
}

TEST(HeadContent, saysWhyItCannotBeTrusted) {
    const auto arm = [](int x, int y) {
        return onBust(x, y) || (std::abs(x - 150) < 12 && y < 130);
    };
    EXPECT_EQ(measured(arm).note, "Outline continues unusually far above the head");
    const auto halfCovered = [](int x, int y) { return onBust(x, y) && (x < 151 || y > 260); };
    EXPECT_EQ(measured(halfCovered).note, "Person outline does not cover the face");
    EXPECT_FALSE(measured(halfCovered).reliable);
    const HeadContent none = HeadProtector::headContent(Mask(2, 2), face(), photo);
    EXPECT_EQ(none.note, "No person outline available");
    EXPECT_EQ(none.topY, face().faceBox.y);
    EXPECT_EQ(none.rightX, face().faceBox.maxX());
    EXPECT_EQ(
        HeadProtector::headContent(drawn(12, 16, [](int, int) { return true; }), face(), photo)
            .note,
        "No person outline available")
        << "a face unit of two mask pixels";
}

TEST(HeadContent, takesHairAtThePhotosEdgeForAHeadNotForARunaway) {
    FaceGeometry high = face();
    const auto up = [](Point p) { return p - Point{0, 500}; };
    high = high.transformed(up);
    const HeadContent head = HeadProtector::headContent(
        drawn(300, 400, [](int x, int y) { return onBust(x, y + 125); }), high, photo);
    EXPECT_TRUE(head.reliable);
    EXPECT_EQ(head.topY, 0);
}

TEST(EdgeContact, needsEnoughPixelsOnTheOutermostOrTheNextLine) {
    struct Case {
        const char* what;
        int width, height, row, count;
        bool touches;
    };
    for (const Case& c :
         {Case{"three of 300", 300, 400, 0, 3, true}, Case{"two of 300", 300, 400, 0, 2, false},
          Case{"never fewer than two", 150, 150, 0, 2, true},
          Case{"one of 150", 150, 150, 0, 1, false},
          Case{"clear border of one pixel", 300, 400, 1, 5, true},
          Case{"clear border of two pixels", 300, 400, 2, 5, false},
          Case{"mask too small to tell", 4, 4, 0, 4, false}}) {
        SCOPED_TRACE(c.what);
        const auto line = [&](int along, int across) { return across == c.row && along < c.count; };
        const auto contact = [&](const std::function<bool(int, int)>& person) {
            return HeadProtector::edgeContact(drawn(c.width, c.height, person));
        };
        EXPECT_EQ(contact([&](int x, int y) { return line(x, y); }).top, c.touches);
        EXPECT_EQ(contact([&](int x, int y) { return line(x, c.height - 1 - y); }).bottom,
                  c.touches);
        EXPECT_EQ(contact([&](int x, int y) { return line(y, x); }).left, c.touches);
        EXPECT_EQ(contact([&](int x, int y) { return line(y, c.width - 1 - x); }).right, c.touches);
    }
}

/// A segmenter that sees one rectangle of persons in whatever region it is asked for.
class ScriptedPersons final : public PersonSegmenter {
public:
    explicit ScriptedPersons(Rect person) : person_(person) {}
    Result<PersonMap> persons(const Picture&, const Rect& region) const override {
        ++looks;
        PersonMap map{region, 64, std::vector<float>(64 * 64)};
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) {
                const double px = region.x + (x + 0.5) * region.width / 64;
                const double py = region.y + (y + 0.5) * region.height / 64;
                const bool inside =
                    px > person_.x && px < person_.maxX() && py > person_.y && py < person_.maxY();
                map.values[static_cast<std::size_t>(y * 64 + x)] = inside ? 1.0F : 0.0F;
            }
        }
        return map;
    }
    Result<RegionMap> faceSkin(const Picture&, const PictureRegion&) const override {
        return failure("unused");
    }
    mutable int looks = 0;

private:
    Rect person_;
};

TEST(PersonMask, looksAgainAtASmallHeadAtItsOwnScale) {
    const Picture picture(1200, 1600);
    FaceGeometry small = face();
    small.chin = {600, 840};  // 40 pixels a unit
    const ScriptedPersons persons({587, 745, 26, 855});
    const auto mask = HeadProtector::personMask(persons, {picture.copy(), photo}, small);
    EXPECT_EQ(persons.looks, 2);
    const double ky = mask->height() / photo.height;
    const auto column = static_cast<int>(600.0 * mask->width() / photo.width);
    int top = 0;
    while (*mask->pixel(column, top) < HeadProtector::personThreshold) ++top;
    EXPECT_NEAR(top / ky, 745, 3) << "the whole frame alone is good to 25 pixels here";

    const ScriptedPersons large({400, 300, 400, 1300});
    ASSERT_TRUE(HeadProtector::personMask(large, {picture.copy(), photo}, face()));
    EXPECT_EQ(large.looks, 1);
}

}  // namespace
}  // namespace morva
