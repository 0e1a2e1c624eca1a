// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/photo_source.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>

#include "base/files.h"
#include "imaging/decode.h"
#include "imaging/metadata.h"
#include "imaging/png_structure.h"

namespace morva {

namespace {

using namespace std::string_view_literals;

/// A JPEG is read into memory whole. 300 megapixels at best quality stay below this.
constexpr std::uintmax_t largestJpegBytes = 400'000'000;

std::optional<PhotoFormat> formatOf(std::string_view start) {
    if (start.starts_with("\xff\xd8\xff"sv)) return PhotoFormat::jpeg;
    if (start.starts_with("\x89PNG\r\n\x1a\n"sv)) return PhotoFormat::png;
    for (const std::string_view tiff : {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv})
        if (start.starts_with(tiff)) return PhotoFormat::tiff;
    if (start.size() >= 12 && start.substr(4, 4) == "ftyp"sv) {
        constexpr std::array brands{"heic"sv, "heix"sv, "heim"sv, "heis"sv, "hevc"sv,
                                    "hevx"sv, "mif1"sv, "msf1"sv, "mif2"sv};
        if (std::ranges::find(brands, start.substr(8, 4)) != brands.end()) return PhotoFormat::heif;
    }
    return std::nullopt;
}

std::optional<std::string> firstBytes(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    std::string start(16, '\0');
    if (!stream.read(start.data(), static_cast<std::streamsize>(start.size())) && !stream.eof())
        return std::nullopt;
    start.resize(static_cast<std::size_t>(stream.gcount()));
    return start;
}

}  // namespace

tl::unexpected<Failure> unreadable(const std::filesystem::path& file, const std::string& reason) {
    return failure("Could not read " + file.filename().string() + ": " + reason + ".");
}

std::optional<Failure> refusedSize(const std::filesystem::path& file, int width, int height) {
    if (width <= 0 || height <= 0) return unreadable(file, damagedReason).value();
    const double megapixels = static_cast<double>(width) * height / 1e6;
    if (megapixels <= largestPhotoMegapixels) return std::nullopt;
    return unreadable(file, "it has " + std::to_string(static_cast<long>(megapixels)) +
                                " megapixels, more than the " +
                                std::to_string(static_cast<long>(largestPhotoMegapixels)) +
                                " that are supported")
        .value();
}

Result<PhotoSource> PhotoSource::open(const std::filesystem::path& file) {
    const std::optional<std::string> start = firstBytes(file);
    if (!start) return unreadable(file, "the file cannot be opened");
    const std::optional<PhotoFormat> format = formatOf(*start);
    if (!format) return unreadable(file, "it is not a JPEG, PNG, TIFF or HEIC photo");
    if (!pngChunksFit(file)) return unreadable(file, damagedReason);
    const auto properties = readProperties(file);
    PhotoSource source{
        file, *format, Orientation::fromExif(properties ? properties->orientation : 1), {}};
    if (*format != PhotoFormat::jpeg) return source;

    std::error_code error;
    if (std::filesystem::file_size(file, error) > largestJpegBytes)
        return unreadable(file, "the file is too large");
    Result<std::string> bytes = readFile(file);
    if (!bytes) return tl::unexpected(bytes.error());
    source.bytes = std::move(*bytes);
    return source;
}

}  // namespace morva
