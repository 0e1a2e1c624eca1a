// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/decode.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "imaging/colour.h"
#include "imaging/decode_jpeg.h"
#include "imaging/decode_vips.h"
#include "imaging/photo_source.h"
#include "imaging/plane_reduce.h"
#include "imaging/stored_photo.h"

namespace morva {

namespace {

std::uint8_t toByte(int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); }

/// Luma and two colour differences to red, green and blue, in 1/65536 levels.
void lumaChromaToRgb(const std::uint8_t* luma, const std::uint8_t* blue, const std::uint8_t* red,
                     std::uint8_t* out, int pixels, int outStep) {
    constexpr int half = 1 << 15;
    for (int i = 0; i < pixels; ++i, out += outStep) {
        const int base = (luma[i] << 16) + half;
        const int b = blue[i] - 128;
        const int r = red[i] - 128;
        out[0] = toByte((base + 91881 * r) >> 16);
        out[1] = toByte((base - 22554 * b - 46802 * r) >> 16);
        out[2] = toByte((base + 116130 * b) >> 16);
    }
}

/// Puts reduced rows of single channels together to pixels of the photo's model.
void interleaved(const StoredPhoto& photo, const std::vector<std::vector<std::uint8_t>>& rows,
                 std::uint8_t* out) {
    const int pixels = static_cast<int>(rows[0].size());
    const int channels = static_cast<int>(rows.size());
    int done = 0;
    if (photo.lumaChroma) {
        lumaChromaToRgb(rows[0].data(), rows[1].data(), rows[2].data(), out, pixels, channels);
        done = 3;
        if (channels == 4)  // the three stand for the light that the inks leave over
            for (int i = 0; i < pixels; ++i)
                for (int c = 0; c < 3; ++c)
                    out[i * 4 + c] = static_cast<std::uint8_t>(255 - out[i * 4 + c]);
    }
    for (int c = done; c < channels; ++c) {
        const std::uint8_t* row = rows[static_cast<std::size_t>(c)].data();
        for (int i = 0; i < pixels; ++i) out[i * channels + c] = row[i];
    }
}

Result<StoredPhoto> storedPhoto(const std::filesystem::path& file, int longestSide) {
    const Result<PhotoSource> source = PhotoSource::open(file);
    if (!source) return tl::unexpected(source.error());
    return source->format == PhotoFormat::jpeg ? JpegDecode::planes(*source, longestSide)
                                               : VipsDecode::planes(*source, longestSide);
}

}  // namespace

struct PhotoDecode::Pixels {
    StoredPhoto photo;
    ToSrgb toSrgb;
    int longestSide = 0;  // that was asked for at opening

    /// Size of the whole photo, as it lies in the file, reduced to `side`.
    std::pair<int, int> storedSize(int side) const {
        const int longer = std::max(photo.width, photo.height);
        const int wanted = std::min({side, longestSide, longer});
        const double scale = static_cast<double>(wanted) / longer;
        const auto reduced = [&](int length) {
            return std::max(1, static_cast<int>(std::lround(length * scale)));
        };
        return {reduced(photo.width), reduced(photo.height)};
    }

    Picture stored(int side, const PixelRect& part) const {
        const auto [width, height] = storedSize(side);
        std::vector<PlaneReducer> reducers;
        reducers.reserve(photo.planes.size());
        for (const Plane& plane : photo.planes) reducers.emplace_back(plane, width, height, part);

        const std::vector<std::uint8_t> empty(static_cast<std::size_t>(part.width));
        std::vector<std::vector<std::uint8_t>> rows(reducers.size(), empty);
        std::vector<std::uint8_t> pixels(empty.size() * reducers.size());
        Picture picture(part.width, part.height);
        for (int y = 0; y < part.height; ++y) {
            for (std::size_t c = 0; c < reducers.size(); ++c) reducers[c].row(y, rows[c].data());
            std::uint8_t* target = toSrgb.isIdentity() ? picture.row(y) : pixels.data();
            interleaved(photo, rows, target);
            if (!toSrgb.isIdentity()) toSrgb.convert(pixels.data(), picture.row(y), part.width);
        }
        return picture;
    }
};

PhotoDecode::PhotoDecode(std::unique_ptr<Pixels> pixels) : pixels_(std::move(pixels)) {}
PhotoDecode::PhotoDecode(PhotoDecode&&) noexcept = default;
PhotoDecode& PhotoDecode::operator=(PhotoDecode&&) noexcept = default;
PhotoDecode::~PhotoDecode() = default;

Result<PhotoDecode> PhotoDecode::open(const std::filesystem::path& file, int longestSide) {
    Result<StoredPhoto> photo = storedPhoto(file, longestSide);
    if (!photo) return tl::unexpected(photo.error());
    ToSrgb toSrgb(photo->model, photo->profile);
    return PhotoDecode(
        std::make_unique<Pixels>(Pixels{std::move(*photo), std::move(toSrgb), longestSide}));
}

int PhotoDecode::sourceWidth() const {
    const StoredPhoto& photo = pixels_->photo;
    return photo.orientation.transposed ? photo.height : photo.width;
}

int PhotoDecode::sourceHeight() const {
    const StoredPhoto& photo = pixels_->photo;
    return photo.orientation.transposed ? photo.width : photo.height;
}

Size PhotoDecode::reducedSize(int longestSide) const {
    const auto [width, height] = pixels_->storedSize(longestSide);
    const bool transposed = pixels_->photo.orientation.transposed;
    return {static_cast<double>(transposed ? height : width),
            static_cast<double>(transposed ? width : height)};
}

Picture PhotoDecode::whole(int longestSide) const {
    const auto [width, height] = pixels_->storedSize(longestSide);
    return pixels_->photo.orientation.upright(pixels_->stored(longestSide, {0, 0, width, height}));
}

Picture PhotoDecode::region(int longestSide, int x, int y, int width, int height) const {
    const auto [storedWidth, storedHeight] = pixels_->storedSize(longestSide);
    const Orientation& orientation = pixels_->photo.orientation;
    const PixelRect part = orientation.toStored({x, y, width, height}, storedWidth, storedHeight);
    return orientation.upright(pixels_->stored(longestSide, part));
}

namespace {

/// Whole source pixels that cover `region`, inside the photo and never empty.
PixelRect coveredPixels(const Rect& region, int width, int height) {
    const auto span = [](double low, double high, int length) {
        const int first = static_cast<int>(std::clamp(std::floor(low), 0.0, length - 1.0));
        const int end = static_cast<int>(std::clamp(std::ceil(high), first + 1.0, length * 1.0));
        return std::pair(first, end - first);
    };
    const auto [x, acrossCount] = span(region.x, region.maxX(), width);
    const auto [y, downCount] = span(region.y, region.maxY(), height);
    return {x, y, acrossCount, downCount};
}

Picture inRgb(const StoredRegion& region, bool keepColours) {
    Picture picture(region.part.width, region.part.height);
    const ToSrgb toSrgb(region.model, keepColours ? std::string() : region.profile);
    const std::size_t rowBytes = static_cast<std::size_t>(region.part.width) *
                                 static_cast<std::size_t>(channelCount(region.model));
    for (int y = 0; y < region.part.height; ++y)
        toSrgb.convert(region.bytes.data() + static_cast<std::size_t>(y) * rowBytes, picture.row(y),
                       region.part.width);
    return picture;
}

}  // namespace

Result<DecodedRegion> decodeRegion(const std::filesystem::path& file, const Rect& region,
                                   double minScale) {
    return decodeRegion(
        file, [&](Size) { return region; }, minScale);
}

Result<DecodedRegion> decodeRegion(const std::filesystem::path& file,
                                   const std::function<Rect(Size)>& regionOf, double minScale) {
    const Result<PhotoSource> source = PhotoSource::open(file);
    if (!source) return tl::unexpected(source.error());
    int divisor = 8;
    while (divisor > 1 && 1.0 / divisor < minScale) divisor /= 2;
    const Orientation& orientation = source->orientation;
    const WantedPart wanted = [&](int storedWidth, int storedHeight) {
        const int width = orientation.transposed ? storedHeight : storedWidth;
        const int height = orientation.transposed ? storedWidth : storedHeight;
        const Rect region = regionOf({static_cast<double>(width), static_cast<double>(height)});
        return orientation.toStored(coveredPixels(region, width, height), storedWidth,
                                    storedHeight);
    };
    Result<StoredRegion> stored = source->format == PhotoFormat::jpeg
                                      ? JpegDecode::region(*source, wanted, divisor)
                                      : VipsDecode::region(*source, wanted, divisor);
    if (!stored) return tl::unexpected(stored.error());

    const bool keepColours =
        stored->model == ColourModel::rgb && profileFits(stored->profile, stored->model);
    const PixelRect covered{stored->part.x * divisor, stored->part.y * divisor,
                            stored->part.width * divisor, stored->part.height * divisor};
    const PixelRect place = orientation.toUpright(covered, stored->width, stored->height);
    return DecodedRegion{.pixels = orientation.upright(inRgb(*stored, keepColours)),
                         .origin = {static_cast<double>(place.x), static_cast<double>(place.y)},
                         .scale = 1.0 / divisor,
                         .sourceWidth = orientation.transposed ? stored->height : stored->width,
                         .sourceHeight = orientation.transposed ? stored->width : stored->height,
                         .iccProfile = keepColours ? std::move(stored->profile) : srgbProfile()};
}

}  // namespace morva
