// SPDX-License-Identifier: GPL-3.0-or-later
// Mattes of real photographs with the real segmenter.
#include "matting/matting.h"

#include <array>
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "analysis/face_analyzer.h"
#include "analysis/photo_test_support.h"
#include "imaging/decode.h"

namespace morva {
namespace {

constexpr int longestSide = 1 << 20;

Rect wholeOf(const Picture& picture) {
    return {0, 0, static_cast<double>(picture.width()), static_cast<double>(picture.height())};
}

/// What the model sees of the whole picture, as a mask of the model's size.
Mask personsIn(const Picture& picture) {
    const auto map = realVision().persons->persons(picture, wholeOf(picture));
    if (!map) throw std::runtime_error(map.error().message);
    Mask mask(map->side, map->side);
    for (std::size_t i = 0; i < map->values.size(); ++i)
        mask.row(0)[i] = static_cast<std::uint8_t>(std::lround(255 * map->values[i]));
    return mask;
}

Matte matteOf(const Picture& picture, const std::optional<Matting::Head>& head) {
    const Mask mask = personsIn(picture);
    auto matte =
        Matting::matte(picture, {mask, nullptr, wholeOf(picture), head}, *realVision().persons);
    if (!matte || !*matte) throw std::runtime_error("no matte");
    return std::move(**matte);
}

TEST(MatteOfPhotographs, cutsOutTheSamplePortrait) {
    const auto photo = PhotoDecode::open(samplePortrait(), longestSide);
    ASSERT_TRUE(photo);
    const Picture picture = photo->whole(longestSide);
    const auto faces = FaceAnalyzer::detectFaces(
        *realVision().faces, picture,
        {static_cast<double>(picture.width()), static_cast<double>(picture.height())});
    ASSERT_TRUE(faces && !faces->empty());
    const FaceGeometry& face = faces->front();
    const Matte matte = matteOf(picture, Matting::Head{face.eyeMidpoint(), face.faceUnit()});
    const auto at = [&](Point p) {
        return *matte.alpha.pixel(static_cast<int>(p.x), static_cast<int>(p.y));
    };
    const double unit = face.faceUnit();
    EXPECT_EQ(at(face.eyeMidpoint()), 255);
    EXPECT_EQ(at(face.chin), 255);
    EXPECT_EQ(at(face.chin + Point{0, 1.2 * unit}), 255);
    EXPECT_EQ(at(face.eyeMidpoint() + Point{-2 * unit, -.8 * unit}), 0);
    // Alpha is neither hard nor a haze: few pixels lie between.
    int between = 0;
    for (const std::uint8_t value : matte.alpha.bytes()) between += value > 10 && value < 245;
    EXPECT_GT(between, 500);
    EXPECT_LT(between, .06 * static_cast<double>(matte.alpha.byteCount()));
}

TEST(MatteOfPhotographs, keepsShortDarkHairBeforeDarkLeaves) {
    if (!testData()) GTEST_SKIP() << "needs $MORVA_TEST_DATA";
    const auto photo =
        PhotoDecode::open(*testData() / "portraits/man-dark-bg-wmf.jpg", longestSide);
    ASSERT_TRUE(photo);
    const Picture picture = photo->whole(longestSide);
    const Matte matte = matteOf(picture, Matting::Head{{400, 150}, 139});
    // Along the hair, from above one ear to above the other; the backdrop begins 8 pixels outside.
    for (const auto& [x, y] : {std::pair{325, 90}, {395, 62}, {440, 70}, {477, 130}, {485, 150}}) {
        int sum = 0;
        for (int i = 0; i < 25; ++i) sum += *matte.alpha.pixel(x + i % 5 - 2, y + i / 5 - 2);
        EXPECT_GT(sum, 25 * 230) << x << ", " << y;
    }
}

/// Mean absolute errors of the matte, of the one without a refined head, and of the bare map.
std::array<double, 3> errorsOn(const std::string& name, const Matting::Head& head) {
    const auto folder = *testData() / "groundtruth/matting-p3m";
    const auto photo = PhotoDecode::open(folder / (name + ".jpg"), longestSide);
    const auto known = PhotoDecode::open(folder / (name + "_alpha.png"), longestSide);
    if (!photo || !known) throw std::runtime_error("unreadable " + name);
    const Picture picture = photo->whole(longestSide);
    const Picture truth = known->whole(longestSide);
    const Matte matte = matteOf(picture, head);
    const Matte filtered = matteOf(picture, std::nullopt);
    const Mask map = personsIn(picture);
    std::array<double, 3> sums{};
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int alpha = *truth.pixel(x, y);
            sums[0] += std::abs(*matte.alpha.pixel(x, y) - alpha) / 255.0;
            sums[1] += std::abs(*filtered.alpha.pixel(x, y) - alpha) / 255.0;
            sums[2] += std::abs(*map.pixel(x * map.width() / picture.width(),
                                           y * map.height() / picture.height()) -
                                alpha) /
                       255.0;
        }
    }
    for (double& sum : sums) sum /= static_cast<double>(matte.alpha.byteCount());
    return sums;
}

TEST(MatteOfPhotographs, comesCloserToAKnownAlphaThanTheMap) {
    if (!testData()) GTEST_SKIP() << "needs $MORVA_TEST_DATA";
    struct Case {
        const char* name;
        Matting::Head head;
        double error;
    };
    // Seen from too near, the profile loses its nose and the turned head gains a chin. The last one
    // has black hair beside a black shadow, which no strand tells from hair.
    for (const Case& c : {Case{"p_d684dae3", {{1176, 343}, 245}, .0053},
                          Case{"p_514ca06a", {{490, 597}, 245}, .0080},
                          Case{"p_bd6af989", {{476, 595}, 140}, .0045},
                          Case{"p_22fc0130", {{535, 720}, 377}, .0080}}) {
        SCOPED_TRACE(c.name);
        const auto [own, filtered, map] = errorsOn(c.name, c.head);
        EXPECT_LT(own, filtered);
        EXPECT_LT(own, .9 * map);
        EXPECT_LT(own, c.error);
    }
}

}  // namespace
}  // namespace morva
