// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <exiv2/exiv2.hpp>

#include "base/files.h"
#include "imaging/carry_metadata.h"
#include "imaging/colour.h"
#include "imaging/encode.h"

namespace morva {
namespace {

std::string jpeg(int width, int height) {
    Picture picture(width, height);
    std::ranges::fill_n(picture.row(0), static_cast<std::ptrdiff_t>(picture.byteCount()), 90);
    return *encodeJpeg(picture, 0.9, 240);
}

Exiv2::Image::AutoPtr opened(const std::string& bytes) {
    auto image = Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte*>(bytes.data()),
                                           static_cast<long>(bytes.size()));
    image->readMetadata();
    return image;
}

std::string text(const std::string& bytes, const std::string& key) {
    const auto image = opened(bytes);
    const auto found = image->exifData().findKey(Exiv2::ExifKey(key));
    return found == image->exifData().end() ? "none" : found->toString();
}

/// A photo with something of every kind of metadata.
class CarriedMetadata : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(writeFileAtomically(source, jpeg(64, 48)));
        const auto image = Exiv2::ImageFactory::open(source.string());
        Exiv2::ExifData& exif = image->exifData();
        exif["Exif.Image.Make"] = "Maker";
        exif["Exif.Image.Copyright"] = "Copy";
        exif["Exif.Image.Orientation"] = std::uint16_t{6};
        exif["Exif.Image.XResolution"] = Exiv2::URational{72, 1};
        exif["Exif.Image.Rating"] = std::uint16_t{5};
        exif["Exif.Image.Compression"] = std::uint16_t{7};
        exif["Exif.Photo.DateTimeOriginal"] = "2024:05:01 09:30:00";
        exif["Exif.Photo.ExposureTime"] = Exiv2::Rational{1, 160};
        exif["Exif.Photo.PixelXDimension"] = std::uint32_t{64};
        exif["Exif.Photo.ColorSpace"] = std::uint16_t{1};
        exif["Exif.Photo.MakerNote"] = "secret of the maker";
        exif["Exif.GPSInfo.GPSLatitudeRef"] = "N";
        exif["Exif.Iop.InteroperabilityIndex"] = "R98";
        Exiv2::ExifThumb(exif).setJpegThumbnail(
            reinterpret_cast<const Exiv2::byte*>("\xff\xd8\xff\xd9"), 4);
        image->iptcData()["Iptc.Application2.Byline"] = "A photographer";
        image->xmpData()["Xmp.dc.title"] = "not carried";
        image->xmpData()["Xmp.xmp.Rating"] = "2";
        image->writeMetadata();
    }
    void TearDown() override { std::filesystem::remove(source); }

    std::string described(CropMetadata metadata) const {
        metadata.pixelWidth = 40;
        metadata.pixelHeight = 50;
        return withMetadata(jpeg(40, 50), metadata).value();
    }

    const std::filesystem::path source =
        std::filesystem::path(testing::TempDir()) / "carried-metadata.jpg";
};

TEST_F(CarriedMetadata, keepsWhatDescribesThePhotoAndNothingElse) {
    CropMetadata metadata;
    metadata.source = source;
    metadata.dpi = 299.5;
    metadata.iccProfile = srgbProfile();
    const std::string bytes = described(metadata);
    const auto image = opened(bytes);
    std::string keys;
    for (const auto& datum : image->exifData()) keys += datum.key().substr(5) + " ";
    EXPECT_EQ(keys,
              "Image.Make Image.Orientation Image.XResolution Image.YResolution "
              "Image.ResolutionUnit Image.Copyright Image.ExifTag Photo.ExposureTime "
              "Photo.DateTimeOriginal Photo.ColorSpace Photo.PixelXDimension "
              "Photo.PixelYDimension ");
    EXPECT_EQ(text(bytes, "Exif.Image.Orientation"), "1");
    EXPECT_EQ(text(bytes, "Exif.Image.XResolution"), "29950/100");
    EXPECT_EQ(text(bytes, "Exif.Photo.PixelXDimension"), "40");
    EXPECT_EQ(text(bytes, "Exif.Photo.ColorSpace"), "1");
    EXPECT_EQ(image->iptcData()["Iptc.Application2.Byline"].toString(), "A photographer");
    EXPECT_TRUE(image->xmpData().empty());
    EXPECT_EQ(bytes.find("secret"), std::string::npos);
}

TEST_F(CarriedMetadata, saysHonestlyThatAWideProfileIsNotSrgb) {
    CropMetadata metadata;
    metadata.source = source;
    metadata.iccProfile = srgbProfile();
    // The red primary moved far out.
    const auto red = metadata.iccProfile.find("rXYZ", 128);
    ASSERT_NE(red, std::string::npos);
    const auto at =
        static_cast<std::size_t>(static_cast<unsigned char>(metadata.iccProfile[red + 6]) << 8 |
                                 static_cast<unsigned char>(metadata.iccProfile[red + 7]));
    metadata.iccProfile[at + 10] = '\xa0';
    EXPECT_EQ(text(described(metadata), "Exif.Photo.ColorSpace"), "65535");
}

TEST_F(CarriedMetadata, isBareWithoutASourceButForUprightResolutionAndRating) {
    CropMetadata metadata;
    metadata.rating = 3;
    const std::string bytes = described(metadata);
    const auto image = opened(bytes);
    EXPECT_EQ(image->exifData().count(), 4);
    EXPECT_EQ(text(bytes, "Exif.Image.Orientation"), "1");
    EXPECT_EQ(text(bytes, "Exif.Image.ResolutionUnit"), "2");
    EXPECT_TRUE(image->iptcData().empty());
    EXPECT_EQ(image->xmpData()["Xmp.xmp.Rating"].toString(), "3");
    EXPECT_NE(bytes.find("xmp:Rating=\"3\""), std::string::npos);
}

TEST_F(CarriedMetadata, survivesSourcesItCannotRead) {
    CropMetadata metadata;
    metadata.source = "/nowhere/at/all.jpg";
    EXPECT_EQ(opened(described(metadata))->exifData().count(), 4);

    EXPECT_FALSE(withMetadata("no JPEG at all", metadata));
}

}  // namespace
}  // namespace morva
