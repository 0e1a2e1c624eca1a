// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/matting.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "matting/matting_test_support.h"

namespace morva {
namespace {

constexpr Colour brown{70, 45, 30};

Colour greyField(int x, int y) {
    const double light = 150 + .1 * x - .05 * y;
    return {light, light, light + 6};
}

Rect wholeOf(const Picture& picture) {
    return {0, 0, static_cast<double>(picture.width()), static_cast<double>(picture.height())};
}

Matting::Child childOf(const SyntheticChild& child, const Mask& mask, const Picture& picture) {
    return {mask, nullptr, wholeOf(picture), Matting::Head{child.head, SyntheticChild::unit}};
}

Matte matteOf(const SyntheticChild& child, const Picture& picture, bool withHead = true) {
    const Mask mask = mapOf(child);
    Matting::Child asked = childOf(child, mask, picture);
    if (!withHead) asked.head.reset();
    auto matte = Matting::matte(picture, asked, SyntheticSegmenter(child));
    EXPECT_TRUE(matte && *matte);
    return std::move(**matte);
}

/// Mean of the alpha's absolute error, 0 to 1, where the truth is open or close to it.
double outlineError(const SyntheticChild& child, const std::function<double(int, int)>& alpha) {
    double sum = 0;
    int count = 0;
    for (int y = 0; y < SyntheticChild::height; ++y) {
        for (int x = 0; x < SyntheticChild::width; ++x) {
            const double r = std::hypot(x + .5 - child.head.x, y + .5 - child.head.y);
            if (y > child.head.y || r < .95 * SyntheticChild::unit ||
                r > 1.25 * SyntheticChild::unit)
                continue;
            sum += std::abs(alpha(x, y) - child.pixelAlpha(x, y));
            ++count;
        }
    }
    return count > 0 ? sum / count : 0;
}

double outlineError(const SyntheticChild& child, const Matte& matte) {
    return outlineError(child, [&](int x, int y) { return *matte.alpha.pixel(x, y) / 255.0; });
}

TEST(ChildMatte, bringsBackStrandsThatTheMapLost) {
    const SyntheticChild child;
    const Picture picture = painted(child, brown, greyField);
    const double map = outlineError(child, [&](int x, int y) { return child.mapValue(x, y); });
    const double filtered = outlineError(child, matteOf(child, picture, false));
    const double refined = outlineError(child, matteOf(child, picture));
    EXPECT_LT(filtered, map);
    EXPECT_LT(refined, .3 * map);
    EXPECT_LT(refined, .05);
}

TEST(ChildMatte, leavesInsideFullAndOutsideEmpty) {
    const SyntheticChild child;
    const Matte matte = matteOf(child, painted(child, brown, greyField));
    for (int y = 0; y < SyntheticChild::height; ++y) {
        for (int x = 0; x < SyntheticChild::width; ++x) {
            const double r = std::hypot(x - child.head.x, y - child.head.y) / SyntheticChild::unit;
            const double down = (y - child.head.y) / SyntheticChild::unit;
            const double across = std::abs(x - child.head.x) / SyntheticChild::unit;
            if (r < .85 || (down > 1.4 && across < 1.7)) {
                ASSERT_EQ(*matte.alpha.pixel(x, y), 255);
            }
            if (r > 1.4 && (down < .8 || across > 2.15)) {
                ASSERT_EQ(*matte.alpha.pixel(x, y), 0);
            }
        }
    }
}

TEST(ChildMatte, showsNoSeamWhereHeadAndBodyMeet) {
    const SyntheticChild child;
    const Matte matte = matteOf(child, painted(child, brown, greyField));
    // The sides of the body run straight down through the seam, 1.9 units from the head's middle.
    for (const double side : {-1.9, 1.9}) {
        const int edge = static_cast<int>(child.head.x + side * SyntheticChild::unit);
        for (int y = static_cast<int>(child.head.y + 1.4 * SyntheticChild::unit);
             y < SyntheticChild::height; ++y) {
            double covered = 0;
            double truth = 0;
            for (int x = edge - 10; x < edge + 10; ++x) {
                covered += *matte.alpha.pixel(x, y) / 255.0;
                truth += child.pixelAlpha(x, y);
            }
            ASSERT_NEAR(covered, truth, 1) << "row " << y;
        }
    }
}

TEST(ChildMatte, isTheSameTwice) {
    const SyntheticChild child;
    const Picture picture = painted(child, brown, greyField);
    const Matte first = matteOf(child, picture);
    const Matte second = matteOf(child, picture);
    EXPECT_TRUE(std::ranges::equal(first.alpha.bytes(), second.alpha.bytes()));
}

TEST(ChildMatte, copesWithAwkwardPhotos) {
    struct Case {
        const char* what;
        Point head;
        Colour own;
        std::function<Colour(int, int)> backdrop;
        double error;
    };
    const Point middle{240, 200};
    const auto grey = [](int, int) { return Colour{180, 180, 180}; };
    const auto checks = [](int x, int y) {
        const double light = (x / 4 + y / 4) % 2 == 0 ? 110 : 190;
        return Colour{light, light, light};
    };
    for (const Case& c : {
             Case{"one grey on another", middle, {40, 40, 40}, grey, .05},
             Case{"the head cut by the top", {240, 60}, brown, greyField, .06},
             Case{"the head cut by the side", {40, 200}, brown, greyField, .06},
             Case{"no difference between child and backdrop", middle, {180, 180, 180}, grey, .3},
             Case{"a patterned backdrop", middle, brown, checks, .2},
         }) {
        SCOPED_TRACE(c.what);
        const SyntheticChild child(c.head);
        const Picture picture = painted(child, c.own, c.backdrop);
        EXPECT_LT(outlineError(child, matteOf(child, picture)), c.error);
    }
}

TEST(ChildMatte, drawsNoPatternIntoTheOutline) {
    const SyntheticChild child;
    for (const int size : {2, 7}) {
        SCOPED_TRACE(size);
        const auto checks = [size](int x, int y) {
            const double light = (x / size + y / size) % 2 == 0 ? 90 : 200;
            return Colour{light, light, light};
        };
        const Matte matte = matteOf(child, painted(child, brown, checks));
        const double map = outlineError(child, [&](int x, int y) { return child.mapValue(x, y); });
        EXPECT_LT(outlineError(child, matte), map);
        // Beyond the strands, dark fields must not show.
        for (int x = 0; x < SyntheticChild::width; ++x)
            ASSERT_EQ(*matte.alpha.pixel(x, 200 - static_cast<int>(1.3 * SyntheticChild::unit)), 0);
    }
}

TEST(ChildMatte, staysByTheFilterOnTexturedBackdrops) {
    const SyntheticChild child;
    const auto checks = [](int size, double dark, double light) {
        return [=](int x, int y) {
            const double level = (x / size + y / size) % 2 == 0 ? dark : light;
            return Colour{level, level + 5, level - 10};
        };
    };
    const auto planks = [](int, int y) {
        return y % 40 < 6 ? Colour{60, 50, 40} : Colour{120, 190, 160};
    };
    const auto foliage = [](int x, int y) {
        const double leaf = std::sin(.9 * x + .3 * y) * std::cos(.5 * y - .2 * x);
        return Colour{90 + 40 * leaf, 110 + 60 * leaf, 60 + 30 * leaf};
    };
    struct Case {
        const char* what;
        std::function<Colour(int, int)> backdrop;
    };
    for (const Case& c :
         {Case{"threads", checks(2, 90, 200)}, Case{"small checks", checks(5, 90, 200)},
          Case{"stones", checks(20, 90, 200)}, Case{"planks", planks}, Case{"foliage", foliage}}) {
        SCOPED_TRACE(c.what);
        const Picture picture = painted(child, brown, c.backdrop);
        EXPECT_LT(outlineError(child, matteOf(child, picture)),
                  1.02 * outlineError(child, matteOf(child, picture, false)));
    }
}

TEST(ChildMatte, seesClothesThatTheMaskLostBelowTheHead) {
    const SyntheticChild child;
    const Picture picture = painted(child, brown, greyField);
    Mask mask = mapOf(child);
    const int lost = static_cast<int>(child.head.y + 1.95 * SyntheticChild::unit);
    std::fill_n(mask.row(lost / 2),
                mask.rowBytes() * static_cast<std::size_t>(mask.height() - lost / 2),
                std::uint8_t{0});
    const auto matte =
        Matting::matte(picture, childOf(child, mask, picture), SyntheticSegmenter(child));
    ASSERT_TRUE(matte && *matte);
    EXPECT_EQ(*(*matte)->alpha.pixel(240, lost + 8), 255);
}

TEST(ChildMatte, keepsOthersOut) {
    const SyntheticChild child;
    const Picture picture = painted(child, brown, greyField);
    const Mask mask = mapOf(child);
    // The head's own look sees a person at the left border that the masks give to somebody else.
    Mask others(mask.width(), mask.height());
    Mask alone = mask.copy();
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x) {
            const bool theirs = 2 * x < child.head.x - .5 * SyntheticChild::unit;
            *others.pixel(x, y) = theirs ? *mask.pixel(x, y) : std::uint8_t{0};
            if (theirs) *alone.pixel(x, y) = 0;
        }
    }
    Matting::Child asked = childOf(child, alone, picture);
    asked.others = &others;
    const auto matte = Matting::matte(picture, asked, SyntheticSegmenter(child));
    ASSERT_TRUE(matte && *matte);
    EXPECT_EQ(*(*matte)->alpha.pixel(179, 200), 0);
    EXPECT_EQ(*(*matte)->alpha.pixel(260, 200), 255);
}

TEST(ChildMatte, givesNothingWithoutAChildAndFailsWithItsSegmenter) {
    const SyntheticChild child;
    const Picture picture = painted(child, brown, greyField);
    Mask empty(32, 32);
    std::fill_n(empty.row(0), empty.byteCount(), std::uint8_t{100});
    SyntheticSegmenter segmenter(child);
    const auto none = Matting::matte(picture, childOf(child, empty, picture), segmenter);
    ASSERT_TRUE(none);
    EXPECT_FALSE(*none);
    segmenter.fails = true;
    const Mask mask = mapOf(child);
    EXPECT_FALSE(Matting::matte(picture, childOf(child, mask, picture), segmenter));
}

TEST(ChildMatte, findsTheFeetOnTheMasksOwnScale) {
    const SyntheticChild child;
    const Picture picture = painted(child, brown, greyField);
    Mask mask(40, 100);
    std::fill_n(mask.row(0), mask.byteCount(), std::uint8_t{0});
    std::fill_n(mask.row(30), mask.rowBytes() * 50, std::uint8_t{200});
    const Matting::Child lower{mask, nullptr, {0, -520, 480, 1560}, std::nullopt};
    const auto matte = Matting::matte(picture, lower, SyntheticSegmenter(child));
    ASSERT_TRUE(matte && *matte);
    EXPECT_DOUBLE_EQ((*matte)->feetLine.value(), -520 + 1560 * .8);
}

TEST(TakeBackdropOut, givesTheChildsOwnColour) {
    const SyntheticChild child;
    const Colour green{40, 200, 60};
    Picture picture = painted(child, brown, [&](int, int) { return green; });
    Matte matte = matteOf(child, picture);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            *matte.alpha.pixel(x, y) =
                static_cast<std::uint8_t>(std::lround(255 * child.pixelAlpha(x, y)));
    const Picture before = picture.copy();
    Matting::takeBackdropOut(picture, matte);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int alpha = *matte.alpha.pixel(x, y);
            // What covers less shows less of a wrong colour.
            const double most = alpha == 0 ? 0 : std::max(4.0, 1.5 * 255 / alpha);
            for (std::size_t c = 0; c < 3; ++c) {
                const double own = alpha == 0 ? before.pixel(x, y)[c] : brown[c];
                ASSERT_NEAR(picture.pixel(x, y)[c], own, most) << x << " " << y << " " << alpha;
            }
        }
    }
}

}  // namespace
}  // namespace morva
