// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/backdrop_replacer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "imaging/colour.h"
#include "imaging/colour_transfer.h"
#include "imaging/lanczos.h"
#include "output/floor_reflection.h"
#include "output/plate_analyzer.h"
#include "output/plate_placement.h"
#include "output/studio_plate.h"

// The photo is laid over one even colour at the scale it was decoded at, and scaled once to the
// size of the crop. The true backdrop is made at that size and takes the even colour's place there:
// what shows of either is 1 - alpha, and scaling is linear. So no copy of photo or plate is ever
// made at full size, hard outlines are filtered as if the composite itself had been scaled, and a
// plate is scaled once only. All this goes in stripes, laid straight over the backdrop.

namespace morva::BackdropReplacer {

namespace {

using Pixel = std::array<std::uint8_t, 3>;

/// Alpha is carried through scaling with room on both sides for the filter's overshoot.
constexpr int alphaFloor = 20;
constexpr int alphaSpan = 215;

/// Output rows of a stripe: enough that the rows which its neighbours read too cost little.
constexpr int stripeRows = 256;

/// Decoded plate pixels per output pixel, at least: a format's own reduction leaves traces.
constexpr double decodedPerOutput = 2;

constexpr const char* stopped = "The replacement was stopped.";

/// Nothing when the plate does not load.
std::optional<Picture> placedPlate(const std::filesystem::path& file, const CropView& view,
                                   double zoom, const PlatePlacement::Scene& scene,
                                   DecodedPlates* plates, const std::string& iccProfile) {
    const PlateMarks marks{PlateAnalyzer::hotSpot(file), PlateAnalyzer::floorLine(file)};
    DecodedPlates forThisPhoto(0);
    if (!plates) plates = &forThisPhoto;
    const auto size = plates->size(file);
    if (!size) return std::nullopt;
    const Rect place = PlatePlacement::placed(*size, marks, zoom, scene);
    const double scale = size->width / place.width;
    const Rect area = view.crop.sourceArea(view.photo);
    const Rect shown{(area.x - place.x) * scale, (area.y - place.y) * scale, area.width * scale,
                     area.height * scale};
    const double perOutput = scale / view.crop.scale;
    const auto plate = plates->region(file, shown, std::min(1.0, decodedPerOutput / perOutput));
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

/// The colour around which a picture varies, from every 16th pixel of every 16th row.
Pixel meanOf(const Picture& picture) {
    constexpr int step = 16;
    std::array<std::int64_t, 3> sums{};
    std::int64_t count = 0;
    for (int y = 0; y < picture.height(); y += step) {
        for (int x = 0; x < picture.width(); x += step, ++count)
            for (std::size_t c = 0; c < 3; ++c) sums[c] += picture.pixel(x, y)[c];
    }
    Pixel mean{};
    if (count == 0) return mean;
    for (std::size_t c = 0; c < 3; ++c) mean[c] = static_cast<std::uint8_t>(sums[c] / count);
    return mean;
}

/// Lays the photo over an even colour, in place.
void layOver(const Pixel& color, const Mask& alpha, Picture& photo) {
    for (int y = 0; y < photo.height(); ++y) {
        std::uint8_t* pixel = photo.row(y);
        const std::uint8_t* share = alpha.row(y);
        for (int x = 0; x < photo.width(); ++x, pixel += 3, ++share) {
            if (*share == 255) continue;
            if (*share == 0) {
                std::copy(color.begin(), color.end(), pixel);
                continue;
            }
            for (std::size_t c = 0; c < 3; ++c)
                pixel[c] = static_cast<std::uint8_t>(
                    (pixel[c] * *share + color[c] * (255 - *share) + 127) / 255);
        }
    }
}

/// The part of alpha that holds anything of the child, in pixels of alpha.
PixelBox childIn(const Mask& alpha, int top, int bottom) {
    PixelBox box{alpha.width(), top, 0, bottom};
    const auto shown = [](std::uint8_t share) { return share != 0; };
    for (int y = top; y < bottom; ++y) {
        const std::uint8_t* row = alpha.row(y);
        const std::uint8_t* end = row + alpha.width();
        const std::uint8_t* first = std::find_if(row, row + box.left, shown);
        if (first != row + box.left) box.left = static_cast<int>(first - row);
        while (end > row + box.right && end[-1] == 0) --end;
        box.right = static_cast<int>(end - row);
    }
    return box;
}

struct CarriedAlpha {
    Picture picture;
    PicturePlace place;
};

std::array<std::uint8_t, 256> alphaCodes() {
    std::array<std::uint8_t, 256> codes{};
    for (std::size_t share = 0; share < codes.size(); ++share)
        codes[share] = static_cast<std::uint8_t>(alphaFloor + (share * alphaSpan + 127) / 255);
    return codes;
}

/// A part of alpha, with a clear border where there is one, as a picture of its own with room for
/// overshoot; the resampler knows pictures only.
CarriedAlpha carried(const Mask& alpha, const PicturePlace& place, PixelBox box) {
    static const std::array<std::uint8_t, 256> codes = alphaCodes();
    box.left = std::max(0, box.left - 1);
    box.right = std::min(alpha.width(), box.right + 1);
    const Point corner = Point{static_cast<double>(box.left), static_cast<double>(box.top)}.scaled(
        1 / place.scale, 1 / place.scale);
    CarriedAlpha result{Picture(box.right - box.left, box.bottom - box.top),
                        {place.origin + corner, place.scale}};
    for (int y = box.top; y < box.bottom; ++y) {
        std::uint8_t* out = result.picture.row(y - box.top);
        const std::uint8_t* end = alpha.row(y) + box.right;
        for (const std::uint8_t* share = alpha.pixel(box.left, y); share != end; ++share)
            for (int c = 0; c < 3; ++c) *out++ = codes[*share];
    }
    return result;
}

/// Lays a row of the photo, which stands before an even colour, over the background: exchanges the
/// colour behind the child.
void exchange(const Pixel& even, const std::uint8_t* photo, const std::uint8_t* alpha, int width,
              std::uint8_t* background) {
    for (int x = 0; x < width; ++x, photo += 3, alpha += 3, background += 3) {
        const int shown = alphaFloor + alphaSpan - *alpha;
        for (std::size_t c = 0; c < 3; ++c) {
            const float change =
                static_cast<float>((background[c] - even[c]) * shown) * (1.0F / alphaSpan);
            const float laid = static_cast<float>(photo[c]) + change + 0.5F;
            background[c] = static_cast<std::uint8_t>(std::clamp(laid, 0.0F, 255.0F));
        }
    }
}

/// Lays what a stripe of the crop shows of the child over the background. `photo` stands before the
/// even colour.
Result<void> composeStripe(const DecodedRegion& photo, const Mask& alpha, const CropView& view,
                           PixelBox stripe, const Pixel& even, Picture& background) {
    const PicturePlace place{photo.origin, photo.scale};
    const Rect area = view.part(stripe).crop.sourceArea(view.photo);
    const auto row = [&](double y, int least) {
        return static_cast<int>(
            std::clamp<double>((y - photo.origin.y) * photo.scale, least, alpha.height()));
    };
    const int from = row(area.y - 1 / photo.scale, 0);
    const int to = row(area.maxY() + 2 / photo.scale, from);
    const PixelBox child = childIn(alpha, from, to);
    if (child.isEmpty()) return {};
    const double reach = (std::max(1 / photo.scale, 1 / view.crop.scale) + 1) * Lanczos::lobes;
    const Rect source{photo.origin.x + child.left / photo.scale - reach, area.y,
                      (child.right - child.left) / photo.scale + 2 * reach, area.height};
    const PixelBox shown = view.showing(source);
    stripe.left = shown.left;
    stripe.right = shown.right;
    if (stripe.isEmpty()) return {};

    const Rect whole{0, 0, view.photo.width, view.photo.height};
    const CropView part = view.part(stripe);
    const auto picture = part.of(photo.pixels, place, whole, even);
    if (!picture) return tl::unexpected(picture.error());
    const CarriedAlpha carrier = carried(alpha, place, child);
    const auto shares =
        part.of(carrier.picture, carrier.place, whole, Pixel{alphaFloor, alphaFloor, alphaFloor});
    if (!shares) return tl::unexpected(shares.error());
    for (int y = 0; y < part.height(); ++y)
        exchange(even, picture->row(y), shares->row(y), part.width(),
                 background.pixel(stripe.left, stripe.top + y));
    return {};
}

/// Lays the child over the background. The photo is used up.
Result<void> compose(DecodedRegion& photo, const Mask& alpha, const CropView& view,
                     Picture& background, const std::stop_token& stop) {
    const Pixel even = meanOf(background);
    layOver(even, alpha, photo.pixels);
    for (int top = 0; top < view.height(); top += stripeRows) {
        if (stop.stop_requested()) return failure(stopped);
        const PixelBox stripe{0, top, view.width(), std::min(top + stripeRows, view.height())};
        if (auto laid = composeStripe(photo, alpha, view, stripe, even, background); !laid)
            return laid;
    }
    photo.pixels = Picture();
    return {};
}

}  // namespace

Options Options::from(const ExportSettings& settings, std::optional<Point> headAnchor,
                      DecodedPlates* plates) {
    Options options{.plateURL = settings.plateURL,
                    .floorReflection = settings.floorReflection,
                    .vignette = settings.backdropVignette,
                    .color = {},
                    .plateZoom = settings.plateZoom,
                    .headAnchor = headAnchor,
                    .plates = plates};
    if (settings.backdropColor)
        options.color.emplace(settings.backdropColor->begin(), settings.backdropColor->end());
    return options;
}

Result<std::optional<Replaced>> replace(DecodedRegion& photo, const CropView& view,
                                        const Rect& cropRect, const Options& options,
                                        const ChildCutter& cutter, const std::stop_token& stop) {
    auto child = cutter.cutOut(photo);
    if (!child) return tl::unexpected(child.error());
    if (!*child) return std::nullopt;
    const CutOut& cut = **child;
    if (stop.stop_requested()) return failure(stopped);

    Replaced replaced;
    std::optional<Picture> background;
    if (options.plateURL) {
        background = placedPlate(*options.plateURL, view, options.plateZoom,
                                 {cropRect, options.headAnchor, cut.feetLine}, options.plates,
                                 photo.iccProfile);
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
    if (stop.stop_requested()) return failure(stopped);
    if (options.floorReflection && cut.feetLine &&
        FloorReflection::hasRoom(*cut.feetLine, view.photo.height)) {
        if (const auto laid =
                FloorReflection::lay(photo, cut.alpha, *cut.feetLine, cropRect, view, *background);
            !laid)
            return tl::unexpected(laid.error());
    }
    if (const auto laid = compose(photo, cut.alpha, view, *background, stop); !laid)
        return tl::unexpected(laid.error());
    replaced.picture = std::move(*background);
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
