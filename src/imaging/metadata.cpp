// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/metadata.h"

#include <exception>
#include <system_error>

#include <exiv2/exiv2.hpp>

#include "imaging/exiv2_session.h"
#include "imaging/png_structure.h"

namespace morva {

namespace {

/// Longer texts are no rating, label or time, and would only be carried about.
constexpr std::size_t longestText = 1000;

/// The text under `key` in `data` (EXIF or XMP); absent when missing, empty or not readable.
template <class Key, class Data>
std::optional<std::string> text(const Data& data, const char* key) {
    const auto found = data.findKey(Key(key));
    if (found == data.end() || found->count() == 0) return std::nullopt;
    std::string value = found->toString();
    while (!value.empty() && value.back() == '\0') value.pop_back();
    if (value.empty() || value.size() > longestText) return std::nullopt;
    return value;
}

int orientationOf(const Exiv2::ExifData& exif) {
    const auto found = exif.findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
    if (found == exif.end() || found->count() == 0) return 1;
    const long value = found->toLong();
    return value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
}

PhotoProperties propertiesOf(Exiv2::Image& image) {
    const Exiv2::ExifData& exif = image.exifData();
    const Exiv2::XmpData& xmp = image.xmpData();
    PhotoProperties properties;
    if (image.imageType() != Exiv2::ImageType::bmff) properties.orientation = orientationOf(exif);
    properties.xmpRating = text<Exiv2::XmpKey>(xmp, "Xmp.xmp.Rating");
    properties.xmpLabel = text<Exiv2::XmpKey>(xmp, "Xmp.xmp.Label");
    properties.dateTimeOriginal = text<Exiv2::ExifKey>(exif, "Exif.Photo.DateTimeOriginal");
    properties.subsecTimeOriginal = text<Exiv2::ExifKey>(exif, "Exif.Photo.SubSecTimeOriginal");
    properties.cameraMake = text<Exiv2::ExifKey>(exif, "Exif.Image.Make");
    properties.cameraModel = text<Exiv2::ExifKey>(exif, "Exif.Image.Model");
    properties.cameraSerial = text<Exiv2::ExifKey>(exif, "Exif.Photo.BodySerialNumber");
    return properties;
}

}  // namespace

Result<PhotoProperties> readProperties(const std::filesystem::path& file) {
    startExiv2();
    const std::string name = file.filename().string();
    // Whoever opens a pipe waits for its other end.
    std::error_code none;
    if (!std::filesystem::is_regular_file(file, none) || !pngChunksFit(file))
        return failure("Could not read " + name + ".");
    try {
        const auto image = Exiv2::ImageFactory::open(file.string());
        if (image.get() == nullptr) return failure("Could not read " + name + ".");
        image->readMetadata();
        return propertiesOf(*image);
    } catch (const std::exception&) {
        return failure("Could not read " + name + ".");
    }
}

}  // namespace morva
