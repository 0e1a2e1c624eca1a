// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <utility>

#include <gtest/gtest.h>

#include "imaging/jpeg_fixture.h"
#include "output/backdrop_replacer.h"
#include "output/backdrop_test_support.h"
#include "output/crop_renderer.h"
#include "output/floor_reflection.h"
#include "output/matte_cutter.h"
#include "output/plate_analyzer.h"
#include "output/studio_plate.h"

namespace morva {
namespace {

using BackdropReplacer::Options;
using BackdropReplacer::Replaced;

constexpr Rect wholeCrop{0, 0, 800, 1000};

/// Blue to the left of its middle, yellow to the right, black below 0.9 of its height.
Picture twoToned(int width, int height) {
    Picture plate = even(width, height, {20, 40, 200});
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            if (y < height * 9 / 10 && x < width / 2) continue;
            const Levels color = y >= height * 9 / 10 ? Levels{0, 0, 0} : Levels{220, 200, 30};
            for (std::size_t c = 0; c < 3; ++c)
                plate.pixel(x, y)[c] = static_cast<std::uint8_t>(color[c]);
        }
    return plate;
}

Options flat(const Levels& color) {
    Options options;
    options.color = {color[0] / 255.0, color[1] / 255.0, color[2] / 255.0};
    options.vignette = 0;
    options.floorReflection = false;
    return options;
}

class ReplacedBackdrop : public BackdropFiles {
protected:
    Replaced replaced(const Options& options, const Rect& crop = wholeCrop,
                      std::optional<double> feet = {}, double degrees = 0) const {
        DecodedRegion photo = portrait.decoded();
        auto done = BackdropReplacer::replace(photo, portrait.view(crop, 400, degrees), crop,
                                              options, BlockCutter(portrait.child, feet));
        EXPECT_TRUE(done && *done);
        return done && *done ? std::move(**done) : Replaced{even(400, 500, {0, 0, 0})};
    }
    BlockPortrait portrait;
};

TEST_F(ReplacedBackdrop, keepsTheChildAndNothingOfTheOldBackdrop) {
    const Picture picture = replaced(flat({100, 100, 100})).picture;
    ASSERT_EQ(picture.width(), 400);
    // The child fills [150, 250) x [100, 400) of the crop.
    for (const auto& [x, y] : {std::pair{200, 250}, {152, 102}, {247, 397}})
        for (std::size_t c = 0; c < 3; ++c)
            EXPECT_NEAR(picture.pixel(x, y)[c], portrait.skin[c], 1) << x << ", " << y;
    for (const auto& [x, y] : {std::pair{5, 5}, {395, 495}, {140, 250}, {260, 250}, {200, 90}}) {
        EXPECT_NEAR(meanAround(picture, x, y, 3, 0), 100, 7) << x << ", " << y;
        EXPECT_NEAR(meanAround(picture, x, y, 3, 1), 100, 7) << x << ", " << y;
    }
    // Along the outline no pixel may be greener than the two colours that meet there.
    for (int x = 140; x < 260; ++x) EXPECT_LE(picture.pixel(x, 250)[1], 112) << x;
}

TEST_F(ReplacedBackdrop, filtersTheOutlineAsIfTheCompositeHadBeenScaled) {
    // The place of the outline decides how much of a pixel it covers.
    portrait.child = {301, 201, 201, 601};
    const Rect crop{0.7, 0.3, 640, 800};
    DecodedRegion composite = portrait.decoded();
    const Picture plate = even(100, 125, {30, 60, 90});
    for (int y = 0; y < portrait.height; ++y)
        for (int x = 0; x < portrait.width; ++x)
            if (levels(composite.pixels, x, y) == portrait.backdrop)
                std::copy_n(plate.pixel(0, 0), 3, composite.pixels.pixel(x, y));
    const CropView view = portrait.view(crop, 400, 2);
    const Picture expected =
        *view.of(composite.pixels, {}, {0, 0, 800, 1000}, std::array<std::uint8_t, 3>{30, 60, 90});
    Options options = flat({});
    options.plateURL = saved(plate, "even.png");
    const Picture found = replaced(options, crop, {}, 2).picture;
    int worst = 0;
    for (std::size_t i = 0; i < found.byteCount(); ++i)
        worst = std::max(worst, std::abs(found.bytes()[i] - expected.bytes()[i]));
    EXPECT_LE(worst, 2);
}

TEST_F(ReplacedBackdrop, goesOnBeyondThePhoto) {
    const Rect wide{-400, -500, 1600, 2000};
    const Picture studio = replaced(flat({100, 100, 100}), wide).picture;
    for (const auto& [x, y] : {std::pair{3, 3}, {396, 250}, {200, 496}})
        EXPECT_NEAR(meanAround(studio, x, y, 3), 100, 7);

    Options options = flat({});
    options.plateURL = saved(twoToned(60, 75), "small.png");
    const Picture plate = replaced(options, wide).picture;
    EXPECT_EQ(levels(plate, 5, 5), (Levels{20, 40, 200}));
    EXPECT_EQ(levels(plate, 395, 5), (Levels{220, 200, 30}));
    // Turned so far that a corner shows places beyond the plate: its border goes on.
    options.plateZoom = 1;
    const Picture turned = replaced(options, wide, {}, 12).picture;
    EXPECT_EQ(levels(turned, 0, 0), (Levels{20, 40, 200}));
}

TEST_F(ReplacedBackdrop, showsThePlateWhereItWasPlaced) {
    Options options = flat({});
    options.plateURL = saved(twoToned(800, 1000), "plate.png");
    options.headAnchor = Point{300, 400};
    options.plateZoom = 2;
    // 1600 wide, it cannot go further left than -800 without uncovering the crop's right side.
    EXPECT_EQ(levels(replaced(options).picture, 5, 30), (Levels{220, 200, 30}));
    options.headAnchor = Point{700, 400};
    const Picture picture = replaced(options).picture;
    const double hot = PlateAnalyzer::hotSpot(*options.plateURL)->x;
    EXPECT_NEAR(hot, 0.75, 0.1) << "the yellow half";
    const int middle = static_cast<int>((700 - hot * 1600 + 800) / 2);
    EXPECT_EQ(levels(picture, middle - 4, 30), (Levels{20, 40, 200}));
    EXPECT_EQ(levels(picture, middle + 4, 30), (Levels{220, 200, 30}));
}

TEST_F(ReplacedBackdrop, turnsAPlateUprightThatLiesSidewaysInItsFile) {
    Options options = flat({});
    options.plateURL = folder / "sideways.jpg";
    const JpegFixture fixture{.width = 600, .height = 400, .orientation = 6};
    ASSERT_TRUE(writeFileAtomically(*options.plateURL, fixture.bytes()));
    const auto upright = decodeRegion(*options.plateURL, {0, 0, 1e5, 1e5}, 1);
    ASSERT_TRUE(upright);
    ASSERT_EQ(upright->pixels.width(), 400);
    const Picture sideways = replaced(options).picture;
    options.plateURL = saved(upright->pixels, "upright.png");
    const Picture expected = replaced(options).picture;
    double sum = 0;
    for (std::size_t i = 0; i < expected.byteCount(); ++i)
        sum += std::abs(expected.bytes()[i] - sideways.bytes()[i]);
    EXPECT_LT(sum / static_cast<double>(expected.byteCount()), 1);
}

TEST_F(ReplacedBackdrop, takesPlatesOfEveryDepthAndKind) {
    struct Case {
        const char* what;
        std::vector<int> pixel;
        int bits;
        Levels seen;
    };
    for (const Case& c : {
             Case{"16 bits", {40, 90, 200}, 16, {40, 90, 200}},
             Case{"grey", {70}, 8, {70, 70, 70}},
             Case{"16 bits of grey", {70}, 16, {70, 70, 70}},
             Case{"opaque", {40, 90, 200, 255}, 8, {40, 90, 200}},
             Case{"16 bits, opaque", {40, 90, 200, 255}, 16, {40, 90, 200}},
         }) {
        SCOPED_TRACE(c.what);
        Options options = flat({});
        options.plateURL = folder / (std::string(c.what) + ".tif");
        ASSERT_TRUE(writeFileAtomically(*options.plateURL, evenTiff(60, 75, c.pixel, c.bits)));
        const Replaced done = replaced(options);
        EXPECT_FALSE(done.plateUnreadable);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(levels(done.picture, 20, 30)[i], c.seen[i], 1);
    }
}

TEST_F(ReplacedBackdrop, endsAChildThatThePhotoCutsAtItsEdge) {
    portrait.child = {300, 200, 500, 800};  // as far as the right and the lower edge
    Options options = flat({});
    options.floorReflection = true;
    options.plateURL = saved(even(60, 75, {30, 60, 90}), "even.png");
    const Rect wide{0, 0, 1200, 1500};  // 3 source pixels per output pixel
    const Picture picture = replaced(options, wide, 1000).picture;
    EXPECT_EQ(levels(picture, 200, 200), portrait.skin);
    EXPECT_EQ(levels(picture, 262, 328), portrait.skin);
    for (const auto& [x, y] : {std::pair{272, 200}, {200, 340}, {275, 340}, {95, 200}, {200, 490}})
        EXPECT_EQ(levels(picture, x, y), (Levels{30, 60, 90})) << x << ", " << y;
    // The colours of the photo's own backdrop show nowhere along the cut.
    for (int x = 262; x < 272; ++x) EXPECT_LE(picture.pixel(x, 200)[1], 66) << x;
}

TEST_F(ReplacedBackdrop, fallsBackToAGeneratedPlateAndSaysSo) {
    Options options = flat({100, 100, 100});
    options.plateURL = folder / "missing.png";
    const Replaced missing = replaced(options);
    EXPECT_TRUE(missing.plateUnreadable);
    EXPECT_NEAR(meanAround(missing.picture, 50, 50, 8), 100, 7);
    ASSERT_TRUE(writeFileAtomically(folder / "broken.png", "\x89PNG\r\n\x1a\nno pixels"));
    options.plateURL = folder / "broken.png";
    EXPECT_TRUE(replaced(options).plateUnreadable);
    options.plateURL.reset();
    EXPECT_FALSE(replaced(options).plateUnreadable);
}

TEST_F(ReplacedBackdrop, matchesThePhotosOwnColourWhereNoneIsGiven) {
    Options options = flat({});
    for (const auto& color :
         {std::optional<std::vector<double>>{}, std::optional(std::vector{0.9, 0.1})}) {
        options.color = color;
        const Picture picture = replaced(options).picture;
        for (std::size_t c = 0; c < 3; ++c)
            EXPECT_NEAR(meanAround(picture, 60, 300, 25, c), portrait.backdrop[c], 5);
    }
}

TEST_F(ReplacedBackdrop, leavesThePhotoAsItIsWithoutAChild) {
    for (const bool fails : {false, true}) {
        ExportSettings settings;
        settings.backdrop = BackdropMode::replace;
        const EmptyHandedCutter cutter(fails);
        const Rect crop{-200, 0, 800, 1000};
        const auto done = CropRenderer::render(
            portrait.decoded(), {crop, portrait.view(crop, 400).crop, settings, Point{}, &cutter});
        ASSERT_TRUE(done) << "an export never fails for want of a matte";
        EXPECT_EQ(levels(done->picture, 20, 250), portrait.backdrop) << "repeated edges";
        EXPECT_EQ(levels(done->picture, 300, 250), portrait.skin);
        EXPECT_EQ(done->fallbacks, std::vector{fails ? ExportFallback::matteFailed
                                                     : ExportFallback::nobodyToCutOut});
    }
}

TEST(MatteCutter, findsNobodyWithoutAFace) {
    DecodedRegion photo = BlockPortrait().decoded();
    const auto cut = MatteCutter("photo.jpg", {}, {}).cutOut(photo);
    ASSERT_TRUE(cut);
    EXPECT_FALSE(*cut);
}

TEST_F(ReplacedBackdrop, mirrorsTheChildInTheFloor) {
    portrait.backdrop = {100, 100, 100};
    Options options = flat({100, 100, 100});
    options.floorReflection = true;
    const Rect crop = wholeCrop;  // feet at 800: fades over max(0.35 x 800, 200) = 280
    const Picture picture = replaced(options, crop, 800).picture;
    const auto red = [&](int sourceY) { return meanAround(picture, 200, sourceY / 2, 2, 0); };
    const auto expected = [](double sourceY) {
        return 100 + (200 - 100) * 0.32 * (1 - (sourceY - 800) / 280);
    };
    for (const int y : {820, 880, 940, 990}) EXPECT_NEAR(red(y), expected(y), 7) << y;
    EXPECT_NEAR(meanAround(picture, 100, 420, 3, 0), 100, 7) << "only under the child";
    EXPECT_NEAR(meanAround(replaced(options, crop, 997).picture, 200, 499, 1, 0), 100, 7)
        << "no floor to see it in";
}

TEST(FloorReflection, fadesWithTheHeightOfTheChildInTheCrop) {
    using namespace FloorReflection;  // NOLINT
    EXPECT_TRUE(hasRoom(995.9, 1000));
    EXPECT_FALSE(hasRoom(996, 1000));
    EXPECT_DOUBLE_EQ(fadeLength(2000, {0, 400, 100, 100}), 0.35 * 1600);
    EXPECT_DOUBLE_EQ(fadeLength(500, {0, 400, 100, 100}), 200);
    EXPECT_DOUBLE_EQ(opacityAt(2000, 2000, 560), 0.32);
    EXPECT_DOUBLE_EQ(opacityAt(2280, 2000, 560), 0.16);
    EXPECT_DOUBLE_EQ(opacityAt(2600, 2000, 560), 0);
}

TEST(StudioPlate, darkensOutwardAsFarAsItsVignetteAsks) {
    const BlockPortrait portrait{.width = 2000, .height = 2000};
    const Rect crop{0, 0, 2000, 2000};
    for (const double vignette : {0.0, 0.6, 1.0}) {
        SCOPED_TRACE(vignette);
        const StudioPlate plate{{0.6, 0.6, 0.6}, {2000, 2000}, {1000, 1000}, 900, vignette};
        const Picture picture = plate.seen(portrait.view(crop, 1000));
        const double mean = 0.6 * 255;
        // A ring of places evens the mottling out.
        const auto ring = [&](double radius) {
            double sum = 0;
            for (int i = 0; i < 64; ++i)
                sum += meanAround(picture, static_cast<int>(500 + radius / 2 * std::cos(i * 0.098)),
                                  static_cast<int>(500 + radius / 2 * std::sin(i * 0.098)), 4);
            return sum / 64;
        };
        EXPECT_NEAR(ring(300), mean, 2.5);
        EXPECT_NEAR(ring(960), mean * (1 - 0.65 * vignette), 2.5);
        EXPECT_NEAR(ring(630), mean * (1 - 0.65 * vignette / 2), 2.5);
    }
}

TEST(StudioPlate, isMottledWithinItsLimitsAndTheSameAtEverySize) {
    const BlockPortrait portrait{.width = 3000, .height = 3000};
    const StudioPlate plate{{0.5, 0.5, 0.5}, {3000, 3000}, {1500, 1500}, 3000, 0};
    const Picture large = plate.seen(portrait.view({0, 0, 3000, 3000}, 1500));
    int low = 255;
    int high = 0;
    for (const std::uint8_t value : large.bytes()) {
        low = std::min<int>(low, value);
        high = std::max<int>(high, value);
    }
    EXPECT_GE(low, static_cast<int>(127.5 * 0.94) - 1);
    EXPECT_LE(high, static_cast<int>(127.5 * 1.06) + 1);
    EXPECT_LT(low, 124) << "visible";
    EXPECT_GT(high, 131);
    const Picture small = plate.seen(portrait.view({0, 0, 3000, 3000}, 300));
    for (int y = 5; y < 300; y += 29)
        for (int x = 5; x < 300; x += 29)
            EXPECT_NEAR(meanAround(small, x, y, 1), meanAround(large, x * 5 + 2, y * 5 + 2, 7),
                        1.5);
}

}  // namespace
}  // namespace morva
