// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <fstream>
#include <optional>
#include <sstream>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "base/files.h"
#include "imaging/colour.h"
#include "imaging/decode.h"
#include "imaging/jpeg_fixture.h"
#include "imaging/metadata.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

std::optional<fs::path> testData() {
    const char* folder = std::getenv("MORVA_TEST_DATA");
    if (!folder || !fs::exists(fs::path(folder) / "formats")) return std::nullopt;
    return fs::path(folder);
}

fs::path sample() {
    const char* file = std::getenv("MORVA_SAMPLE");
    return file ? file : "";
}

using Colour = std::array<double, 3>;

Colour mean(const Picture& picture) {
    Colour sum{};
    for (int y = 0; y < picture.height(); ++y)
        for (int i = 0; i < picture.width() * 3; ++i)
            sum[static_cast<std::size_t>(i % 3)] += picture.row(y)[i];
    for (double& part : sum) part /= static_cast<double>(picture.width()) * picture.height();
    return sum;
}

double distance(const Colour& a, const Colour& b) {
    double largest = 0;
    for (std::size_t c = 0; c < 3; ++c) largest = std::max(largest, std::abs(a[c] - b[c]));
    return largest;
}

/// Mean absolute difference of two pictures of one size, in levels.
double difference(const Picture& a, const Picture& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.byteCount(); ++i) sum += std::abs(a.bytes()[i] - b.bytes()[i]);
    return sum / static_cast<double>(a.byteCount());
}

TEST(DecodeSample, givesTheSamePixelsByEveryWay) {
    const auto photo = PhotoDecode::open(sample(), 4096);
    ASSERT_TRUE(photo) << photo.error().message;
    const Picture whole = photo->whole(2048);
    EXPECT_EQ(whole.width(), 512);
    const Picture part = photo->region(2048, 200, 50, 100, 120);
    const auto region = decodeRegion(sample(), {200, 50, 100, 120}, 1);
    ASSERT_TRUE(region) << region.error().message;
    EXPECT_EQ(region->origin, (Point{200, 50}));
    EXPECT_TRUE(ToSrgb(ColourModel::rgb, region->iccProfile).isIdentity());
    EXPECT_EQ(difference(part, region->pixels), 0);
    EXPECT_EQ(std::memcmp(part.row(7), whole.pixel(200, 57), part.rowBytes()), 0);
    EXPECT_LT(distance(mean(photo->whole(100)), mean(whole)), 0.5);
    const auto halved = decodeRegion(sample(), {0, 0, 512, 512}, 0.5);
    EXPECT_EQ(halved->pixels.width(), 256);
    EXPECT_LT(difference(halved->pixels, photo->whole(256)), 0.6);
}

TEST(DecodeFormats, theEightOrientationsShowOnePicture) {
    const auto data = testData();
    if (!data) GTEST_SKIP() << "no test photographs";
    for (const std::string shape : {"Landscape_", "Portrait_"}) {
        std::optional<Picture> first;
        for (int i = 1; i <= 8; ++i) {
            SCOPED_TRACE(shape + std::to_string(i));
            const fs::path file =
                *data / "formats/orientation" / (shape + std::to_string(i) + ".jpg");
            const auto photo = PhotoDecode::open(file, 4096);
            ASSERT_TRUE(photo);
            EXPECT_EQ(readProperties(file)->orientation, i);
            Picture picture = photo->whole(240);
            const auto region = decodeRegion(file, {0, 0, 1e4, 1e4}, 1);
            EXPECT_EQ(region->pixels.width(), photo->sourceWidth());
            EXPECT_EQ(region->pixels.height(), photo->sourceHeight());
            if (!first) {
                first = std::move(picture);
                continue;
            }
            ASSERT_EQ(picture.width(), first->width());
            ASSERT_EQ(picture.height(), first->height());
            // The number painted into the middle differs, as does the compression.
            EXPECT_LT(difference(picture, *first), 6);
        }
    }
}

TEST(DecodeFormats, everyFormatAndColourSpaceShowsThePhoto) {
    const auto data = testData();
    if (!data) GTEST_SKIP() << "no test photographs";
    struct Case {
        const char* file;
        int width, height;
        Colour expected;  // mean in sRGB, from a second program
        double tolerance;
    };
    // One portrait of 128 pixels in many guises, one scene in colours and inks, phones, oddities.
    const Colour hopper{90, 80, 95};
    for (const Case& c : {
             Case{"misc/hopper.jpg", 128, 128, hopper, 1},
             {"misc/hopper.png", 128, 128, hopper, 1},
             {"tiff/hopper.iccprofile.tif", 128, 128, hopper, 2},
             {"tiff/hopper_bigtiff.tif", 128, 128, hopper, 1},
             {"tiff/hopper_lzw.tif", 128, 128, hopper, 1},
             {"tiff/hopper.Lab.tif", 128, 128, hopper, 4},
             {"color/portrait-cmyk.jpg", 800, 533, {31, 33, 30}, 8},
             {"color/portrait-gray.jpg", 800, 533, {31, 31, 31}, 1},
             {"color/cmyk-noprofile.jpg", 500, 333, {121, 126, 115}, 14},
             {"color/p3.png", 8, 8, {255, 0, 0}, 1},
             {"color/portrait-displayp3.jpg", 768, 768, {154, 150, 160}, 2},
             {"heic/libheif-example.heic", 1280, 854, {123, 126, 121}, 2},
             {"heic/displayp3-orientation-6.heic", 3024, 4032, {143, 107, 89}, 3},
             {"heic/alpha-512.heic", 512, 512, {157, 145, 145}, 3},
             {"misc/monkey16.png", 149, 227, {82, 99, 111}, 2},
             {"tiff/tiff_16bit_RGB.tiff", 100, 40, {42, 29, 22}, 2},
             {"tiff/tiff_strip_cmyk_jpeg.tif", 100, 100, {27, 4, 21}, 12},
             {"misc/ultra-hdr.jpg", 3840, 2160, {100, 98, 97}, 2},
             {"jpeg/large-meta.jpg", 200, 130, {146, 145, 147}, 4},
         }) {
        SCOPED_TRACE(c.file);
        const auto photo = PhotoDecode::open(*data / "formats" / c.file, 4096);
        ASSERT_TRUE(photo) << photo.error().message;
        EXPECT_EQ(photo->sourceWidth(), c.width);
        EXPECT_EQ(photo->sourceHeight(), c.height);
        const Picture picture = photo->whole(300);
        EXPECT_LT(distance(mean(picture), c.expected), c.tolerance);
        const auto region = decodeRegion(*data / "formats" / c.file, {0, 0, 1e5, 1e5}, 1);
        ASSERT_TRUE(region) << region.error().message;
        EXPECT_TRUE(profileFits(region->iccProfile, ColourModel::rgb));
        EXPECT_EQ(region->pixels.width(), c.width);
        // Brought to sRGB, the finished pixels are those that the analysis sees.
        Picture colours(c.width, c.height);
        ToSrgb(ColourModel::rgb, region->iccProfile)
            .convert(region->pixels.row(0), colours.row(0), c.width * c.height);
        EXPECT_LT(distance(mean(colours), mean(picture)), 1.5);
    }
    const auto twelveBits = PhotoDecode::open(*data / "formats/misc/12bit.jpg", 4096);
    ASSERT_FALSE(twelveBits);
    EXPECT_NE(twelveBits.error().message.find("12 bits"), std::string::npos);
}

TEST(DecodeFormats, keepsTheProfilesOfRgbPhotosOnly) {
    const auto data = testData();
    if (!data) GTEST_SKIP() << "no test photographs";
    for (const auto& [name, kept] : {std::pair{"portrait-adobergb.jpg", true},
                                     {"portrait-displayp3.jpg", true},
                                     {"portrait-cmyk.jpg", false},
                                     {"portrait-gray.jpg", false},
                                     {"prophoto.png", true}}) {
        SCOPED_TRACE(name);
        const auto region = decodeRegion(*data / "formats/color" / name, {0, 0, 9, 9}, 1);
        ASSERT_TRUE(region);
        EXPECT_EQ(region->iccProfile != srgbProfile(), kept);
    }
}

/// Peak memory of this process so far, megabytes.
#ifdef __SANITIZE_ADDRESS__
constexpr double mostMegabytes = 1500;  // freed memory is kept for a while
#else
constexpr double mostMegabytes = 500;
#endif

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// Decodes in both ways; the picture when they delivered one.
std::optional<Picture> decodedInTime(const fs::path& file, double secondsAllowed) {
    const auto start = std::chrono::steady_clock::now();
    const auto photo = PhotoDecode::open(file, 4096);
    const auto region = decodeRegion(file, {0, 0, 1e5, 1e5}, 0.5);
    (void)readProperties(file);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_LT(taken.count(), secondsAllowed);
    for (const std::string& message : {photo ? std::string() : photo.error().message,
                                       region ? std::string() : region.error().message}) {
        EXPECT_TRUE(message.empty() || message.starts_with("Could not read ")) << message;
        EXPECT_TRUE(message.empty() || message.find(file.filename().string()) != std::string::npos);
    }
    EXPECT_EQ(photo.has_value(), region.has_value());
    if (!photo) return std::nullopt;
    return photo->whole(1000);
}

TEST(DamagedFiles, failWithASentenceInBoundedTimeAndMemory) {
    const auto data = testData();
    if (!data) GTEST_SKIP() << "no test photographs";
    // Only their metadata is bad, or a program other than this one stumbled over them.
    const std::array<std::string, 3> readable{"exiv2-empty.jpg", "invalid-exif.jpg",
                                              "issue_1918_poc1.jpg"};
    for (const auto& entry : fs::directory_iterator(*data / "bad")) {
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        EXPECT_EQ(decodedInTime(entry.path(), 5).has_value(),
                  std::ranges::find(readable, name) != readable.end());
    }
    EXPECT_LT(peakMegabytes(), mostMegabytes);
}

TEST(DamagedFiles, noTruncatedPhotoPasses) {
    const auto data = testData();
    if (!data) GTEST_SKIP() << "no test photographs";
    std::vector<fs::path> files{sample()};
    for (const char* name :
         {"color/portrait-displayp3.jpg", "color/portrait-cmyk.jpg", "orientation/Portrait_6.jpg",
          "heic/libheif-example.heic", "heic/alpha-512.heic", "misc/hopper.png", "misc/sample.tif",
          "misc/monkey16.png", "tiff/hopper_lzw.tif", "tiff/tiff_16bit_RGB.tiff",
          "tiff/tiff_strip_cmyk_jpeg.tif"})
        files.push_back(*data / "formats" / name);
    files.push_back(*data / "portraits/pif-jasmine-miles.jpg");
    for (const fs::path& file : files) {
        const std::string bytes = readFile(file).value_or(std::string());
        const std::optional<Picture> complete = decodedInTime(file, 5);
        ASSERT_TRUE(complete) << file;
        for (std::size_t part = 0; part < 16; ++part) {
            SCOPED_TRACE(file.filename().string() + " cut at " + std::to_string(part) + "/16");
            const TemporaryFile cut("cut" + file.extension().string(),
                                    bytes.substr(0, bytes.size() * part / 16));
            // Some files end with metadata that the picture does without.
            const std::optional<Picture> picture = decodedInTime(cut.path(), 5);
            EXPECT_TRUE(!picture || difference(*picture, *complete) == 0);
        }
    }
    EXPECT_LT(peakMegabytes(), mostMegabytes);
}

TEST(PhotoProperties, areThoseOfTheFile) {
    const auto data = testData();
    if (!data) GTEST_SKIP() << "no test photographs";
    const auto rated = readProperties(*data / "formats/rating/rating3-xmp.jpg");
    ASSERT_TRUE(rated);
    EXPECT_EQ(rated->xmpRating, "3");
    EXPECT_EQ(rated->dateTimeOriginal, "2009:08:29 13:18:08");
    EXPECT_EQ(rated->subsecTimeOriginal, "17");
    const auto phone = readProperties(*data / "formats/heic/displayp3-orientation-6.heic");
    ASSERT_TRUE(phone);
    EXPECT_EQ(phone->orientation, 1);  // its decoder has turned it already
    EXPECT_EQ(phone->dateTimeOriginal, "2021:02:13 11:03:31");
    EXPECT_FALSE(readProperties(*data / "formats/missing.jpg"));
}

}  // namespace
}  // namespace morva
