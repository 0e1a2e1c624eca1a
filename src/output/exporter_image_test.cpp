// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include <gtest/gtest.h>
#include <exiv2/exiv2.hpp>

#include "base/files.h"
#include "imaging/colour.h"
#include "imaging/decode.h"
#include "imaging/encode.h"
#include "imaging/metadata.h"
#include "imaging/orientation.h"
#include "output/exporter.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

/// Photographs; the tests that need them are passed over where there are none.
class ExportedPhotos : public testing::Test {
protected:
    void SetUp() override {
        fs::remove_all(out);
        fs::create_directories(out);
        ASSERT_TRUE(std::getenv("MORVA_SAMPLE"));
        sample = std::getenv("MORVA_SAMPLE");
    }
    void TearDown() override { fs::remove_all(out); }

    static fs::path testData() {
        const char* folder = std::getenv("MORVA_TEST_DATA");
        return folder ? fs::path(folder) : fs::path();
    }

    Exporter::Request request(const fs::path& source, const Rect& rect) const {
        Exporter::Request made;
        made.sourceURL = source;
        made.destinationURL = out / "crop.jpg";
        made.rect = rect;
        made.settings.pixelWidth = 400;
        made.settings.pixelHeight = 500;
        made.settings.jpegQuality = 0.95;
        return made;
    }

    static DecodedRegion exported(const Exporter::Request& made) {
        const auto done = Exporter::exportPhoto(made);
        EXPECT_TRUE(done) << made.sourceURL << ": " << done.error().message();
        auto region = decodeRegion(made.destinationURL, {0, 0, 1e5, 1e5}, 1);
        EXPECT_TRUE(region) << made.sourceURL;
        return region ? std::move(*region) : DecodedRegion();
    }

    static double meanDifference(const Picture& a, const Picture& b) {
        if (a.byteCount() != b.byteCount()) return 255;
        double sum = 0;
        for (std::size_t i = 0; i < a.byteCount(); ++i)
            sum += std::abs(a.bytes()[i] - b.bytes()[i]);
        return sum / static_cast<double>(a.byteCount());
    }

    const fs::path out = fs::path(testing::TempDir()) / "morva-exported-photos";
    fs::path sample;
};

/// What every file below `folder` holds.
std::map<fs::path, std::string> hashes(const fs::path& folder) {
    std::map<fs::path, std::string> hashes;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) hashes[entry.path()] = sha256(*readFile(entry.path()));
    return hashes;
}

TEST_F(ExportedPhotos, theSamplesCropIsThePhotoItself) {
    // At its own scale on whole pixels nothing but the JPEG's loss changes a pixel.
    Exporter::Request made = request(sample, {50, 7, 400, 500});
    made.settings.jpegQuality = 1;
    const DecodedRegion crop = exported(made);
    const auto photo = decodeRegion(sample, {50, 7, 400, 500}, 1);
    ASSERT_TRUE(photo);
    EXPECT_LT(meanDifference(crop.pixels, photo->pixels), 0.6);

    // A turn there and back again about the photo's centre: only the filter's trace remains.
    made.destinationURL = out / "turned.jpg";
    made.rect = {6, 6, 500, 500};
    made.rotationDegrees = 5;
    made.settings.pixelWidth = made.settings.pixelHeight = 1000;
    exported(made);
    Exporter::Request back = request(made.destinationURL, {300, 250, 400, 500});
    back.rotationDegrees = -5;
    const auto middle = exported(back);
    const auto straight = exported(request(sample, {156, 131, 200, 250}));
    EXPECT_LT(meanDifference(middle.pixels, straight.pixels), 2);
}

/// The sample as a JPEG that lies in its file as `tag` says; its sides are odd on purpose.
void writeTurnedSample(const fs::path& file, int tag) {
    const auto photo = decodeRegion(std::getenv("MORVA_SAMPLE"), {0, 0, 511, 509}, 1);
    ASSERT_TRUE(photo);
    const Orientation orientation = Orientation::fromExif(tag);
    const Picture& upright = photo->pixels;
    Picture stored(orientation.transposed ? upright.height() : upright.width(),
                   orientation.transposed ? upright.width() : upright.height());
    for (int y = 0; y < upright.height(); ++y)
        for (int x = 0; x < upright.width(); ++x) {
            const PixelRect to =
                orientation.toStored({x, y, 1, 1}, stored.width(), stored.height());
            std::copy_n(upright.pixel(x, y), 3, stored.pixel(to.x, to.y));
        }
    ASSERT_TRUE(writeFileAtomically(file, *encodeJpeg(stored, 1, 72)));
    const auto image = Exiv2::ImageFactory::open(file.string());
    image->exifData()["Exif.Image.Orientation"] = static_cast<std::uint16_t>(tag);
    image->writeMetadata();
}

TEST_F(ExportedPhotos, areTheSameCropHoweverTheSampleLiesInItsFile) {
    for (const int width : {80, 400}) {  // decoded at half and at full scale
        for (const double degrees : {0.0, 4.0}) {
            Picture first;
            for (int tag = 1; tag <= 8; ++tag) {
                SCOPED_TRACE(std::to_string(width) + " wide, orientation " + std::to_string(tag));
                writeTurnedSample(out / "photo.jpg", tag);
                Exporter::Request made = request(out / "photo.jpg", {60.3, 40.6, 360, 450});
                made.settings.pixelWidth = width;
                made.settings.pixelHeight = width * 5 / 4;
                made.rotationDegrees = degrees;
                Picture crop = std::move(exported(made).pixels);
                EXPECT_EQ(readProperties(made.destinationURL)->orientation, 1);
                if (tag == 1)
                    first = std::move(crop);
                else
                    EXPECT_LT(meanDifference(first, crop), 2);  // the trace of eight JPEGs
            }
        }
    }
}

TEST_F(ExportedPhotos, comeOutUprightFromAllEightOrientations) {
    const fs::path folder = testData() / "formats" / "orientation";
    if (!fs::exists(folder)) GTEST_SKIP() << "no test photographs";
    Picture first;
    for (int tag = 1; tag <= 8; ++tag) {
        SCOPED_TRACE(tag);
        const fs::path file = folder / ("Portrait_" + std::to_string(tag) + ".jpg");
        Picture crop = std::move(exported(request(file, {300.4, 500.7, 800, 1000})).pixels);
        if (tag == 1)
            first = std::move(crop);
        else
            EXPECT_LT(meanDifference(first, crop), 2);
    }
}

TEST_F(ExportedPhotos, keepTheirOwnRgbProfileAndGetSrgbOtherwise) {
    const fs::path folder = testData() / "formats";
    if (!fs::exists(folder)) GTEST_SKIP() << "no test photographs";
    const std::map<std::string, bool> keepsOwn{
        {"color/adobergb-small.jpg", true},     {"color/portrait-displayp3.jpg", true},
        {"color/portrait-applewide.jpg", true}, {"color/cmyk-swop.jpg", false},
        {"color/cmyk-noprofile.jpg", false},    {"color/portrait-gray.jpg", false},
        {"tiff/hopper.Lab.tif", false},         {"heic/phone-12mp.heic", true}};
    for (const auto& [name, own] : keepsOwn) {
        SCOPED_TRACE(name);
        const auto source = decodeRegion(folder / name, {20, 20, 80, 100}, 1);
        ASSERT_TRUE(source);
        const DecodedRegion crop = exported(request(folder / name, {20, 20, 80, 100}));
        EXPECT_EQ(crop.iccProfile, source->iccProfile);
        EXPECT_EQ(crop.iccProfile != srgbProfile(), own);
        // The numbers in the file are the source's numbers in that space.
        const auto average = [](const Picture& picture) {
            double sum = 0;
            for (const std::uint8_t value : picture.bytes()) sum += value;
            return sum / static_cast<double>(picture.byteCount());
        };
        EXPECT_NEAR(average(crop.pixels), average(source->pixels), 2);
    }
}

TEST_F(ExportedPhotos, hostileFilesGiveAnErrorOrAWholeFileAndNothingIsTouched) {
    const fs::path bad = testData() / "bad";
    if (!fs::exists(bad)) GTEST_SKIP() << "no test photographs";
    const auto before = hashes(testData() / "bad");
    for (const auto& [file, hash] : before) {
        SCOPED_TRACE(file);
        const Exporter::Request made = request(file, {-5.5, 3.25, 40, 50});
        fs::remove(made.destinationURL);
        if (Exporter::exportPhoto(made))
            EXPECT_TRUE(decodeRegion(made.destinationURL, {0, 0, 400, 500}, 1));
        else
            EXPECT_FALSE(fs::exists(made.destinationURL));
    }
    EXPECT_EQ(hashes(testData() / "bad"), before);
}

}  // namespace
}  // namespace morva
