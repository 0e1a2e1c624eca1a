// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/decode.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
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

/// Puts reduced rows of single channels together to `pixels` pixels of the photo's model.
void combined(const StoredPhoto& photo, const std::vector<std::vector<std::uint8_t>>& rows,
              std::size_t pixels, std::uint8_t* out) {
    switch (rows.size()) {
        case 1:
            std::copy_n(rows[0].data(), pixels, out);
            return;
        case 3:
            return (photo.lumaChroma ? lumaChromaToRgb : interleave)(rows[0].data(), rows[1].data(),
                                                                     rows[2].data(), out, pixels);
        default: {
            std::vector<std::uint8_t> inks(pixels * 3);
            (photo.lumaChroma ? lumaChromaToRgb : interleave)(rows[0].data(), rows[1].data(),
                                                              rows[2].data(), inks.data(), pixels);
            // Luma and chroma describe the light that three inks leave over.
            const int flip = photo.lumaChroma ? 255 : 0;
            for (std::size_t i = 0; i < pixels; ++i, out += 4) {
                for (std::size_t c = 0; c < 3; ++c)
                    out[c] = static_cast<std::uint8_t>(inks[i * 3 + c] ^ flip);
                out[3] = rows[3][i];
            }
        }
    }
}

Result<StoredPhoto> storedPhoto(const std::filesystem::path& file, int longestSide) try {
    const Result<PhotoSource> source = PhotoSource::open(file);
    if (!source) return tl::unexpected(source.error());
    return source->format == PhotoFormat::jpeg ? JpegDecode::planes(*source, longestSide)
                                               : VipsDecode::planes(*source, longestSide);
} catch (const std::bad_alloc&) {
    return unreadable(file, memoryReason);
}

}  // namespace

struct PhotoDecode::Pixels {
    StoredPhoto photo;
    ToSrgb toSrgb;

    /// Longer side of what was decoded, whole pixels.
    int finestSide() const {
        return static_cast<int>(std::max(photo.planes[0].coverWidth, photo.planes[0].coverHeight));
    }

    /// Size of the whole photo, as it lies in the file, reduced to `side`.
    std::pair<int, int> storedSize(int side) const {
        const int longer = std::max(photo.width, photo.height);
        const int wanted = std::min({side, finestSide(), longer});
        const double scale = static_cast<double>(wanted) / longer;
        const auto reduced = [&](int length) {
            return std::max(1, static_cast<int>(std::lround(length * scale)));
        };
        return {reduced(photo.width), reduced(photo.height)};
    }

    Picture stored(int side, const PixelRect& part) const {
        const auto [wholeWidth, wholeHeight] = storedSize(side);
        std::vector<PlaneReducer> reducers;
        reducers.reserve(photo.planes.size());
        for (const Plane& plane : photo.planes)
            reducers.emplace_back(plane, wholeWidth, wholeHeight, part);

        const auto width = static_cast<std::size_t>(part.width);
        std::vector<std::vector<std::uint8_t>> rows(reducers.size(),
                                                    std::vector<std::uint8_t>(padded(width)));
        std::vector<std::uint8_t> pixels(width * reducers.size());
        Picture picture(part.width, part.height);
        for (int y = 0; y < part.height; ++y) {
            for (std::size_t c = 0; c < reducers.size(); ++c) reducers[c].row(y, rows[c].data());
            std::uint8_t* target = toSrgb.isIdentity() ? picture.row(y) : pixels.data();
            combined(photo, rows, width, target);
            if (!toSrgb.isIdentity()) toSrgb.convert(target, picture.row(y), part.width);
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
    return PhotoDecode(std::make_unique<Pixels>(Pixels{std::move(*photo), std::move(toSrgb)}));
}

int PhotoDecode::sourceWidth() const {
    const StoredPhoto& photo = pixels_->photo;
    return photo.orientation.transposed ? photo.height : photo.width;
}

int PhotoDecode::sourceHeight() const {
    const StoredPhoto& photo = pixels_->photo;
    return photo.orientation.transposed ? photo.width : photo.height;
}

int PhotoDecode::finestSide() const { return pixels_->finestSide(); }

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

int divisorFor(double minScale) {
    int divisor = 8;
    while (divisor > 1 && 1.0 / divisor < minScale) divisor /= 2;
    return divisor;
}

}  // namespace

double decodedScale(double minScale) { return 1.0 / divisorFor(minScale); }

DecodedRegion partOf(const DecodedRegion& whole, const Rect& region) {
    const PixelRect wanted = coveredPixels(region, whole.sourceWidth, whole.sourceHeight);
    // Exact, for scales are powers of two.
    const auto first = [&](int place, double origin) {
        return static_cast<int>(std::floor((place - origin) * whole.scale));
    };
    const auto end = [&](int place, double origin) {
        return static_cast<int>(std::ceil((place - origin) * whole.scale));
    };
    const int left = first(wanted.x, whole.origin.x);
    const int top = first(wanted.y, whole.origin.y);
    const int right = end(wanted.x + wanted.width, whole.origin.x);
    const int bottom = end(wanted.y + wanted.height, whole.origin.y);
    DecodedRegion part{.pixels = Picture(right - left, bottom - top),
                       .origin = whole.origin + Point{left / whole.scale, top / whole.scale},
                       .scale = whole.scale,
                       .sourceWidth = whole.sourceWidth,
                       .sourceHeight = whole.sourceHeight,
                       .iccProfile = whole.iccProfile};
    for (int y = 0; y < part.pixels.height(); ++y)
        std::memcpy(part.pixels.row(y), whole.pixels.pixel(left, top + y), part.pixels.rowBytes());
    return part;
}

Result<DecodedRegion> decodeRegion(const std::filesystem::path& file, const Rect& region,
                                   double minScale) {
    return decodeRegion(
        file, [&](Size) { return region; }, minScale);
}

Result<DecodedRegion> decodeRegion(const std::filesystem::path& file,
                                   const std::function<Rect(Size)>& regionOf, double minScale) try {
    const Result<PhotoSource> source = PhotoSource::open(file);
    if (!source) return tl::unexpected(source.error());
    const int divisor = divisorFor(minScale);
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

    const PixelRect covered{stored->part.x * divisor, stored->part.y * divisor,
                            stored->part.width * divisor, stored->part.height * divisor};
    const PixelRect place = orientation.toUpright(covered, stored->width, stored->height);
    return DecodedRegion{.pixels = orientation.upright(std::move(stored->pixels)),
                         .origin = {static_cast<double>(place.x), static_cast<double>(place.y)},
                         .scale = 1.0 / divisor,
                         .sourceWidth = orientation.transposed ? stored->height : stored->width,
                         .sourceHeight = orientation.transposed ? stored->width : stored->height,
                         .iccProfile = std::move(stored->profile)};
} catch (const std::bad_alloc&) {
    return unreadable(file, memoryReason);
}

}  // namespace morva
