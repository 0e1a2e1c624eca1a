// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/carry_metadata.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include <exiv2/exiv2.hpp>

#include "imaging/colour.h"
#include "imaging/exiv2_session.h"
#include "imaging/png_structure.h"

namespace morva {

namespace {

constexpr std::uint16_t makerNoteTag = 0x927c;
constexpr std::uint16_t interoperabilityTag = 0xa005;

/// The tags of the main directory that describe a photo. All others describe how the source file
/// stores its pixels, or point into it.
constexpr std::array<std::uint16_t, 12> descriptiveTags{
    0x010d,  // DocumentName
    0x010e,  // ImageDescription
    0x010f,  // Make
    0x0110,  // Model
    0x012d,  // TransferFunction
    0x0131,  // Software
    0x0132,  // DateTime
    0x013b,  // Artist
    0x013c,  // HostComputer
    0x013e,  // WhitePoint
    0x013f,  // PrimaryChromaticities
    0x8298,  // Copyright
};

// What EXIF says for sRGB and for every other colour space.
constexpr std::uint16_t srgb = 1;
constexpr std::uint16_t uncalibrated = 65535;

constexpr std::uint16_t inches = 2;

struct Inherited {
    Exiv2::ExifData exif;
    Exiv2::IptcData iptc;
    Exiv2::ByteOrder byteOrder = Exiv2::littleEndian;
    bool hasExifDirectory = false;
};

bool isCarried(const Exiv2::Exifdatum& datum) {
    if (datum.groupName() == "Photo")
        return datum.tag() != makerNoteTag && datum.tag() != interoperabilityTag;
    return datum.groupName() == "Image" && std::ranges::count(descriptiveTags, datum.tag()) > 0;
}

Inherited inheritedFrom(const std::filesystem::path& source) try {
    if (!pngChunksFit(source)) return {};
    const auto image = Exiv2::ImageFactory::open(source.string());
    image->readMetadata();
    Inherited inherited;
    inherited.iptc = image->iptcData();
    if (image->byteOrder() != Exiv2::invalidByteOrder) inherited.byteOrder = image->byteOrder();
    for (const Exiv2::Exifdatum& datum : image->exifData()) {
        if (!isCarried(datum)) continue;
        inherited.exif[datum.key()].setValue(&datum.value());
        inherited.hasExifDirectory |= datum.groupName() == "Photo";
    }
    return inherited;
} catch (const std::exception&) {
    return {};
}

Exiv2::URational resolution(double dpi) {
    constexpr std::uint32_t denominator = 100;
    const double scaled = std::clamp(dpi, 1.0, 65535.0) * denominator;
    const auto numerator = static_cast<std::uint32_t>(std::lround(scaled));
    return numerator % denominator == 0 ? Exiv2::URational{numerator / denominator, 1}
                                        : Exiv2::URational{numerator, denominator};
}

bool isSrgb(const std::string& iccProfile) {
    return ToSrgb(ColourModel::rgb, iccProfile).isIdentity();
}

/// What the file says about itself, whatever the source said.
void describe(Exiv2::ExifData& exif, const CropMetadata& metadata, bool hasExifDirectory) {
    exif["Exif.Image.Orientation"] = std::uint16_t{1};
    exif["Exif.Image.XResolution"] = resolution(metadata.dpi);
    exif["Exif.Image.YResolution"] = resolution(metadata.dpi);
    exif["Exif.Image.ResolutionUnit"] = inches;
    if (!hasExifDirectory) return;
    exif["Exif.Photo.PixelXDimension"] = static_cast<std::uint32_t>(metadata.pixelWidth);
    exif["Exif.Photo.PixelYDimension"] = static_cast<std::uint32_t>(metadata.pixelHeight);
    const auto colorSpace = exif.findKey(Exiv2::ExifKey("Exif.Photo.ColorSpace"));
    if (colorSpace != exif.end()) *colorSpace = isSrgb(metadata.iccProfile) ? srgb : uncalibrated;
}

/// A fixed text: left to the library, the prefix would be whichever a photo read earlier had used.
std::string ratingPacket(int rating) {
    std::string packet =
        "<?xpacket begin=\"\xef\xbb\xbf\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>"
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">"
        "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
        "<rdf:Description rdf:about=\"\" xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" xmp:Rating=\"";
    packet += std::to_string(rating);
    packet += "\"/></rdf:RDF></x:xmpmeta><?xpacket end=\"w\"?>";
    return packet;
}

Result<std::string> written(const std::string& jpeg, Inherited content,
                            const CropMetadata& metadata) try {
    const auto image = Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte*>(jpeg.data()),
                                                 static_cast<long>(jpeg.size()));
    image->setByteOrder(content.byteOrder);
    describe(content.exif, metadata, content.hasExifDirectory);
    image->setExifData(content.exif);
    image->setIptcData(content.iptc);
    if (metadata.rating) {
        image->setXmpPacket(ratingPacket(*metadata.rating));
        image->writeXmpFromPacket(true);
    }
    image->writeMetadata();
    Exiv2::BasicIo& io = image->io();
    std::string bytes(io.size(), '\0');
    io.seek(0, Exiv2::BasicIo::beg);
    io.read(reinterpret_cast<Exiv2::byte*>(bytes.data()), static_cast<long>(bytes.size()));
    return bytes;
} catch (const std::exception& error) {
    return failure("Could not write the metadata: " + std::string(error.what()) + ".");
}

}  // namespace

Result<std::string> withMetadata(const std::string& jpeg, const CropMetadata& metadata) {
    startExiv2();
    if (metadata.source) {
        const Inherited inherited = inheritedFrom(*metadata.source);
        if (auto bytes = written(jpeg, inherited, metadata)) return bytes;
    }
    return written(jpeg, {}, metadata);
}

}  // namespace morva
