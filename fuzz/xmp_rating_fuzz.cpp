// SPDX-License-Identifier: GPL-3.0-or-later
// XMP as any photo software may have written it, inside a JPEG and as the texts that the metadata
// library makes of it: it gives a rating, label and time that make sense, or none.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "analysis/metadata_reader.h"
#include "base/files.h"
#include "scratch_folder.h"

namespace {

using namespace morva;

/// A JPEG without a picture around the packet; metadata needs no more.
std::string jpegWith(std::string_view packet) {
    constexpr std::string_view name{"http://ns.adobe.com/xap/1.0/\0", 29};
    constexpr std::size_t largest = 0xffff - 2 - name.size();
    packet = packet.substr(0, largest);
    const std::size_t length = 2 + name.size() + packet.size();
    std::string jpeg = "\xff\xd8\xff\xe1";
    jpeg += static_cast<char>(length >> 8U);
    jpeg += static_cast<char>(length & 0xffU);
    return jpeg.append(name).append(packet) + "\xff\xd9";
}

void expectSense(const MetadataReader::PhotoMetadata& found) {
    constexpr double year10000 = 253402300800;
    if (found.captureTime && !(std::abs(*found.captureTime) <= year10000)) std::abort();
    if (found.label && found.label->empty()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto photo = scratchFolder() / "photo.jpg";
    if (!writeFileAtomically(photo, jpegWith(text))) std::abort();
    expectSense(MetadataReader::read(photo));

    const PhotoProperties properties{.xmpRating = text,
                                     .xmpLabel = {},
                                     .dateTimeOriginal = text.substr(0, text.find('.')),
                                     .subsecTimeOriginal = text.substr(text.find('.') + 1),
                                     .cameraMake = {},
                                     .cameraModel = text,
                                     .cameraSerial = text};
    expectSense({MetadataReader::rating(properties),
                 MetadataReader::captureTime(properties),
                 {},
                 MetadataReader::camera(properties)});
    return 0;
}
