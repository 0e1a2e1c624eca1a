// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "imaging/decode.h"
#include "imaging/jpeg_fixture.h"
#include "imaging/orientation.h"

namespace morva {
namespace {

std::vector<JpegFixture> everyKind() {
    std::vector<JpegFixture> kinds;
    for (const auto& [across, down] : {std::pair{1, 1}, {2, 1}, {1, 2}, {2, 2}, {4, 1}})
        for (const bool progressive : {false, true})
            for (const int orientation : {0, 6})
                kinds.push_back({.chromaAcross = across,
                                 .chromaDown = down,
                                 .progressive = progressive,
                                 .orientation = orientation});
    kinds.push_back({.restartRows = 2});
    kinds.push_back({.pixels = JCS_GRAYSCALE});
    kinds.push_back({.width = 17, .height = 3});
    kinds.push_back({.width = 1, .height = 1});
    return kinds;
}

std::string describe(const JpegFixture& kind) {
    return std::to_string(kind.width) + "x" + std::to_string(kind.height) + " chroma " +
           std::to_string(kind.chromaAcross) + "x" + std::to_string(kind.chromaDown) +
           (kind.progressive ? " progressive" : "") + " orientation " +
           std::to_string(kind.orientation) + " colours " + std::to_string(kind.pixels);
}

/// The largest difference between `part` and the pixels of `whole` at (left, top).
int largestDifference(const Picture& part, const Picture& whole, int left, int top) {
    int largest = 0;
    for (int y = 0; y < part.height(); ++y)
        for (int i = 0; i < part.width() * 3; ++i)
            largest =
                std::max(largest, std::abs(part.row(y)[i] - whole.row(top + y)[left * 3 + i]));
    return largest;
}

TEST(DecodeRegion, equalsTheSamePixelsOfAFullDecode) {
    for (const JpegFixture& kind : everyKind()) {
        const TemporaryFile file("region.jpg", kind.bytes());
        for (const double scale : {1.0, 0.5, 0.25, 0.125}) {
            SCOPED_TRACE(describe(kind) + " at " + std::to_string(scale));
            const auto all = decodeRegion(file.path(), {-9, -9, 999, 999}, scale);
            ASSERT_TRUE(all) << all.error().message;
            for (const Rect& wanted : {Rect{60, 40, 50, 70},
                                       {0, 0, 30.5, 20.5},
                                       {99.2, 130, 500, 500},
                                       {150, 90, 3, 3},
                                       {-50, -50, 10, 10}}) {
                const auto part = decodeRegion(file.path(), wanted, scale);
                ASSERT_TRUE(part) << part.error().message;
                const int left = static_cast<int>((part->origin.x - all->origin.x) * scale);
                const int top = static_cast<int>((part->origin.y - all->origin.y) * scale);
                ASSERT_LE(left + part->pixels.width(), all->pixels.width());
                ASSERT_LE(top + part->pixels.height(), all->pixels.height());
                EXPECT_EQ(largestDifference(part->pixels, all->pixels, left, top), 0)
                    << wanted.x << " " << wanted.y;
            }
        }
    }
}

TEST(DecodeRegion, coversWhatWasAskedForAndSaysWhereItLies) {
    const JpegFixture kind{.width = 403, .height = 301, .orientation = 8};
    const TemporaryFile file("place.jpg", kind.bytes());
    for (const double scale : {1.0, 0.5, 0.3, 0.125}) {
        const Rect wanted{33.3, 120.7, 100, 150};
        const auto part = decodeRegion(file.path(), wanted, scale);
        ASSERT_TRUE(part);
        EXPECT_GE(part->scale, scale);
        EXPECT_EQ(part->sourceWidth, 301);
        EXPECT_EQ(part->sourceHeight, 403);
        EXPECT_LE(part->origin.x, wanted.x);
        EXPECT_LE(part->origin.y, wanted.y);
        EXPECT_GE(part->origin.x + part->pixels.width() / part->scale, wanted.maxX());
        EXPECT_GE(part->origin.y + part->pixels.height() / part->scale, wanted.maxY());
        // Upright (x, y) lies at (402 - y, x) of the file; a smooth picture tells the place.
        const double x = part->origin.x + 10.5 / part->scale;
        const double y = part->origin.y + 10.5 / part->scale;
        EXPECT_NEAR(part->pixels.pixel(10, 10)[1],
                    kind.level(static_cast<int>(402 - y), static_cast<int>(x), 1), 20);
    }
}

TEST(PhotoDecode, aRegionEqualsThePartOfTheWhole) {
    for (const JpegFixture& kind : everyKind()) {
        SCOPED_TRACE(describe(kind));
        const TemporaryFile file("part.jpg", kind.bytes());
        const auto photo = PhotoDecode::open(file.path(), 150);
        ASSERT_TRUE(photo) << photo.error().message;
        for (const int side : {150, 149, 71, 20}) {
            const Picture whole = photo->whole(side);
            EXPECT_EQ(photo->reducedSize(side), (Size{whole.width() * 1.0, whole.height() * 1.0}));
            EXPECT_LE(std::max(whole.width(), whole.height()), side);
            const PixelRect part{whole.width() / 3, whole.height() / 4, (whole.width() + 1) / 2,
                                 (whole.height() + 1) / 2};
            const Picture region = photo->region(side, part.x, part.y, part.width, part.height);
            EXPECT_EQ(largestDifference(region, whole, part.x, part.y), 0) << side;
        }
    }
}

/// Sum of squared differences between `picture`, shifted by (dx, dy) source pixels, and the fixture
/// sampled at the places where the picture's pixels claim to lie.
double misfit(const JpegFixture& kind, const Picture& picture, double dx, double dy) {
    double sum = 0;
    const double stepX = static_cast<double>(kind.width) / picture.width();
    const double stepY = static_cast<double>(kind.height) / picture.height();
    for (int y = 4; y < picture.height() - 4; ++y) {
        for (int x = 4; x < picture.width() - 4; ++x) {
            // The fixture's level belongs to the middle of its pixel.
            const double atX = (x + 0.5) * stepX + dx - 0.5;
            const double atY = (y + 0.5) * stepY + dy - 0.5;
            const int left = static_cast<int>(atX), top = static_cast<int>(atY);
            const double fx = atX - left, fy = atY - top;
            const double level = (1 - fy) * ((1 - fx) * kind.level(left, top, 1) +
                                             fx * kind.level(left + 1, top, 1)) +
                                 fy * ((1 - fx) * kind.level(left, top + 1, 1) +
                                       fx * kind.level(left + 1, top + 1, 1));
            sum += std::pow(level - picture.pixel(x, y)[1], 2);
        }
    }
    return sum;
}

/// Where the parabola through three misfits a pixel apart has its lowest point.
double lowest(double before, double at, double after) {
    return 0.5 * (before - after) / (before - 2 * at + after);
}

TEST(PhotoDecode, everySizeShowsThePhotoAtTheSamePlace) {
    for (const int chroma : {1, 2}) {
        const JpegFixture kind{
            .width = 401, .height = 303, .chromaAcross = chroma, .chromaDown = chroma};
        const TemporaryFile file("size.jpg", kind.bytes());
        for (const auto& [openedAt, side] :
             {std::pair{400, 400}, {400, 239}, {150, 150}, {150, 61}, {90, 90}}) {
            SCOPED_TRACE(std::to_string(openedAt) + " then " + std::to_string(side));
            const Picture picture = PhotoDecode::open(file.path(), openedAt)->whole(side);
            const double at = misfit(kind, picture, 0, 0);
            EXPECT_LT(at / picture.width() / picture.height(), 12);
            EXPECT_NEAR(lowest(misfit(kind, picture, -1, 0), at, misfit(kind, picture, 1, 0)), 0,
                        0.1);
            EXPECT_NEAR(lowest(misfit(kind, picture, 0, -1), at, misfit(kind, picture, 0, 1)), 0,
                        0.1);
        }
    }
}

TEST(PhotoDecode, theLongerSideIsAsAskedForAndNothingIsEnlarged) {
    struct Case {
        int width, height, side, expectedWidth, expectedHeight;
    };
    for (const Case& c : {Case{300, 200, 100, 100, 67},
                          {200, 300, 100, 67, 100},
                          {90, 60, 100, 90, 60},
                          {100, 100, 100, 100, 100},
                          {1000, 3, 100, 100, 1}}) {
        const JpegFixture kind{.width = c.width, .height = c.height};
        const TemporaryFile file("sides.jpg", kind.bytes());
        const Picture picture = PhotoDecode::open(file.path(), 4096)->whole(c.side);
        EXPECT_EQ(picture.width(), c.expectedWidth);
        EXPECT_EQ(picture.height(), c.expectedHeight);
    }
}

TEST(PhotoDecode, refusesEveryTruncatedFile) {
    for (JpegFixture kind : everyKind()) {
        SCOPED_TRACE(describe(kind));
        const std::string whole = kind.bytes();
        for (std::size_t part = 0; part < 16; ++part) {
            const TemporaryFile file("cut.jpg", whole.substr(0, whole.size() * part / 16));
            const auto photo = PhotoDecode::open(file.path(), 4096);
            ASSERT_FALSE(photo) << part;
            EXPECT_TRUE(photo.error().message.starts_with("Could not read "));
            EXPECT_NE(photo.error().message.find("cut.jpg"), std::string::npos);
            EXPECT_FALSE(decodeRegion(file.path(), {0, 0, 5, 5}, 1)) << part;
        }
    }
}

TEST(PhotoDecode, refusesAPictureWhoseCodeWasCutOutOrOverwritten) {
    for (const bool progressive : {false, true}) {
        const std::string whole =
            JpegFixture{.width = 800, .height = 600, .progressive = progressive}.bytes();
        std::string shorter = whole;
        shorter.erase(whole.size() / 2, 3000);
        std::string overwritten = whole;
        overwritten.replace(whole.size() / 2, 3000, std::string(3000, '\0'));
        for (const std::string& bytes : {shorter, overwritten}) {
            const TemporaryFile file("holed.jpg", bytes);
            EXPECT_FALSE(PhotoDecode::open(file.path(), 4096)) << progressive;
        }
    }
}

TEST(PhotoDecode, toleratesWhatDoesNotTouchThePicture) {
    const std::string whole = JpegFixture{}.bytes();
    const std::string padded =
        whole.substr(0, whole.size() - 2) + std::string(3, '\0') + "\xff\xd9";
    const std::string followed = whole + std::string(5000, 'x');
    std::string profileParts;  // a decoder that keeps all of them takes a minute
    for (int i = 0; i < 100000; ++i) profileParts.append("\xff\xe2\x00\x02", 4);
    const std::string labelled = std::string(whole).insert(2, profileParts);
    for (const std::string& bytes : {padded, followed, labelled}) {
        const TemporaryFile file("odd.png", bytes);  // the name is wrong, too
        EXPECT_TRUE(PhotoDecode::open(file.path(), 4096));
    }
}

TEST(PhotoDecode, refusesPicturesThatAreTooLargeOrNone) {
    std::string bytes = JpegFixture{}.bytes();
    const std::size_t frame = bytes.find("\xff\xc0");
    bytes.replace(frame + 5, 4, "\x46\x50\x46\x50");  // 18000 x 18000
    const TemporaryFile huge("huge.jpg", bytes);
    const auto photo = PhotoDecode::open(huge.path(), 4096);
    ASSERT_FALSE(photo);
    EXPECT_NE(photo.error().message.find("324 megapixels"), std::string::npos)
        << photo.error().message;

    const TemporaryFile text("text.jpg", "not a photo at all");
    EXPECT_FALSE(PhotoDecode::open(text.path(), 4096));
    EXPECT_FALSE(PhotoDecode::open(std::filesystem::temp_directory_path(), 4096));
    EXPECT_FALSE(PhotoDecode::open("/nowhere/to/be/found.jpg", 4096));
}

}  // namespace
}  // namespace morva
