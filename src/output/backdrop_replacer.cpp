// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/backdrop_replacer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "imaging/colour.h"
#include "imaging/colour_transfer.h"
#include "output/floor_reflection.h"
#include "output/plate_analyzer.h"
#include "output/plate_placement.h"
#include "output/studio_plate.h"

// The photo is laid over one even colour at the scale it was decoded at, and scaled once to the
// size of the crop. The true backdrop is made at that size and takes the even colour's place there:
// what shows of either is 1 - alpha, and scaling is linear. So no copy of photo or plate is ever
// made at full size, hard outlines are filtered as if the composite itself had been scaled, and a
// plate is scaled once only.

namespace morva::BackdropReplacer {

namespace {

using Pixel = std::array<std::uint8_t, 3>;

/// Alpha is carried through scaling with room on both sides for the filter's overshoot.
constexpr int alphaFloor = 20;
constexpr int alphaSpan = 215;

/// Decoded plate pixels per output pixel, at least: a format's own reduction leaves traces.
constexpr double decodedPerOutput = 2;

/// Nothing when the plate does not load.
std::optional<Picture> placedPlate(const std::filesystem::path& file, const CropView& view,
                                   double zoom, const PlatePlacement::Scene& scene,
                                   const std::string& iccProfile) {
    const PlateMarks marks{PlateAnalyzer::hotSpot(file), PlateAnalyzer::floorLine(file)};
    Rect place;
    const auto shown = [&](Size plate) {
        place = PlatePlacement::placed(plate, marks, zoom, scene);
        const double scale = plate.width / place.width;
        const Rect area = view.crop.sourceArea(view.photo);
        return Rect{(area.x - place.x) * scale, (area.y - place.y) * scale, area.width * scale,
                    area.height * scale};
    };
    const auto size = decodeRegion(file, Rect{}, 0);
    if (!size) return std::nullopt;
    const double width =
        shown({static_cast<double>(size->sourceWidth), static_cast<double>(size->sourceHeight)})
            .width;
    const double perOutput = width / view.crop.sourceArea(view.photo).width / view.crop.scale;
    const auto plate = decodeRegion(file, shown, std::min(1.0, decodedPerOutput / perOutput));
    if (!plate) return std::nullopt;

    const double sourcePerPlate = place.width / plate->sourceWidth;
    const PicturePlace at{
        {place.x + plate->origin.x * sourcePerPlate, place.y + plate->origin.y * sourcePerPlate},
        plate->scale / sourcePerPlate};
    auto seen = view.of(plate->pixels, at, place, {});
    if (!seen) return std::nullopt;
    ColourTransfer(plate->iccProfile, iccProfile).convert(*seen);
    return std::move(*seen);
}

Rgb plateColor(const DecodedRegion& photo, const Mask& alpha, const CropView& view,
               const Options& options) {
    if (!options.color || options.color->size() < 3)
        return sampleBackdropColor(photo, alpha, view.crop.sourceArea(view.photo));
    Pixel levels;
    for (std::size_t c = 0; c < levels.size(); ++c)
        levels[c] =
            static_cast<std::uint8_t>(std::lround(std::clamp((*options.color)[c], 0.0, 1.0) * 255));
    ColourTransfer(srgbProfile(), photo.iccProfile).convert(levels.data(), 1);
    return {levels[0] / 255.0, levels[1] / 255.0, levels[2] / 255.0};
}

Pixel meanOf(const Picture& picture) {
    std::array<double, 3> sums{};
    for (const std::uint8_t* pixel = picture.bytes().data();
         pixel != picture.bytes().data() + picture.byteCount(); pixel += 3)
        for (std::size_t c = 0; c < 3; ++c) sums[c] += pixel[c];
    Pixel mean;
    for (std::size_t c = 0; c < 3; ++c)
        mean[c] = static_cast<std::uint8_t>(
            std::lround(sums[c] * 3 / static_cast<double>(picture.byteCount())));
    return mean;
}

/// Lays the photo over an even colour, in place.
void layOver(const Pixel& color, const Mask& alpha, Picture& photo) {
    for (int y = 0; y < photo.height(); ++y) {
        std::uint8_t* pixel = photo.row(y);
        const std::uint8_t* share = alpha.row(y);
        for (int x = 0; x < photo.width(); ++x, pixel += 3, ++share) {
            if (*share == 255) continue;
            for (std::size_t c = 0; c < 3; ++c)
                pixel[c] = static_cast<std::uint8_t>(
                    (pixel[c] * *share + color[c] * (255 - *share) + 127) / 255);
        }
    }
}

/// Alpha as a picture of its own, with room for overshoot; the resampler knows pictures only.
Picture carried(const Mask& alpha) {
    Picture picture(alpha.width(), alpha.height());
    std::uint8_t* out = picture.row(0);
    for (const std::uint8_t share : alpha.bytes()) {
        const auto code = static_cast<std::uint8_t>(alphaFloor + (share * alphaSpan + 127) / 255);
        for (int c = 0; c < 3; ++c) *out++ = code;
    }
    return picture;
}

/// Exchanges the even colour behind the child for the background.
void exchange(const Pixel& color, const Picture& alpha, const Picture& background,
              Picture& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        std::uint8_t* pixel = picture.row(y);
        const std::uint8_t* code = alpha.row(y);
        const std::uint8_t* behind = background.row(y);
        for (int x = 0; x < picture.width(); ++x, pixel += 3, code += 3, behind += 3) {
            const int shown = alphaFloor + alphaSpan - *code;
            if (shown == 0) continue;
            for (std::size_t c = 0; c < 3; ++c) {
                const float change = static_cast<float>((behind[c] - color[c]) * shown) / alphaSpan;
                pixel[c] = static_cast<std::uint8_t>(
                    std::clamp(static_cast<float>(pixel[c]) + change + 0.5F, 0.0F, 255.0F));
            }
        }
    }
}

Result<Picture> composed(DecodedRegion& photo, const CutOut& child, const CropView& view,
                         const Picture& background) {
    const Pixel even = meanOf(background);
    const PicturePlace place{photo.origin, photo.scale};
    const Rect whole{0, 0, view.photo.width, view.photo.height};
    layOver(even, child.alpha, photo.pixels);
    auto picture = view.of(photo.pixels, place, whole, even);
    photo.pixels = Picture();
    if (!picture) return picture;
    const auto alpha =
        view.of(carried(child.alpha), place, whole, Pixel{alphaFloor, alphaFloor, alphaFloor});
    if (!alpha) return tl::unexpected(alpha.error());
    exchange(even, *alpha, background, *picture);
    return picture;
}

}  // namespace

Options Options::from(const ExportSettings& settings, std::optional<Point> headAnchor) {
    Options options{.plateURL = settings.plateURL,
                    .floorReflection = settings.floorReflection,
                    .vignette = settings.backdropVignette,
                    .color = {},
                    .plateZoom = settings.plateZoom,
                    .headAnchor = headAnchor};
    if (settings.backdropColor)
        options.color.emplace(settings.backdropColor->begin(), settings.backdropColor->end());
    return options;
}

Result<std::optional<Replaced>> replace(DecodedRegion& photo, const CropView& view,
                                        const Rect& cropRect, const Options& options,
                                        const ChildCutter& cutter) {
    auto child = cutter.cutOut(photo);
    if (!child) return tl::unexpected(child.error());
    if (!*child) return std::nullopt;
    const CutOut& cut = **child;

    Replaced replaced;
    std::optional<Picture> background;
    if (options.plateURL) {
        background = placedPlate(*options.plateURL, view, options.plateZoom,
                                 {cropRect, options.headAnchor, cut.feetLine}, photo.iccProfile);
        replaced.plateUnreadable = !background;
    }
    if (!background) {
        const StudioPlate plate{.color = plateColor(photo, cut.alpha, view, options),
                                .size = view.photo,
                                .center = cropRect.center(),
                                .radius = std::max(cropRect.width, cropRect.height),
                                .vignette = options.vignette};
        background = plate.seen(view);
    }
    if (options.floorReflection && cut.feetLine &&
        FloorReflection::hasRoom(*cut.feetLine, view.photo.height)) {
        if (const auto laid =
                FloorReflection::lay(photo, cut.alpha, *cut.feetLine, cropRect, view, *background);
            !laid)
            return tl::unexpected(laid.error());
    }
    auto picture = composed(photo, cut, view, *background);
    if (!picture) return tl::unexpected(picture.error());
    replaced.picture = std::move(*picture);
    return replaced;
}

Rgb sampleBackdropColor(const DecodedRegion& photo, const Mask& alpha, const Rect& area) {
    const auto pixels = [&](double place, double origin, int length) {
        return static_cast<int>(
            std::clamp<double>(std::round((place - origin) * photo.scale), 0, length));
    };
    const int left = pixels(area.x, photo.origin.x, photo.pixels.width());
    const int right = pixels(area.maxX(), photo.origin.x, photo.pixels.width());
    const int top = pixels(area.y, photo.origin.y, photo.pixels.height());
    const int bottom = pixels(area.maxY(), photo.origin.y, photo.pixels.height());
    std::array<double, 3> sums{};
    double weight = 0;
    // Every second pixel of every second row has the same mean.
    for (int y = top; y < bottom; y += 2) {
        for (int x = left; x < right; x += 2) {
            const double share = 255 - *alpha.pixel(x, y);
            for (std::size_t c = 0; c < 3; ++c) sums[c] += share * photo.pixels.pixel(x, y)[c];
            weight += share;
        }
    }
    if (weight <= 0) return {0.5, 0.5, 0.5};
    return {sums[0] / weight / 255, sums[1] / weight / 255, sums[2] / weight / 255};
}

}  // namespace morva::BackdropReplacer
