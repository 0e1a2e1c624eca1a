// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/floor_reflection.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "imaging/mat_view.h"

namespace morva::FloorReflection {

namespace {

/// Less floor than this shows no reflection, in source pixels.
constexpr double leastRoom = 4;
/// Share of the way from the crop's top to the feet over which the reflection fades, but not less
/// than the second, in source pixels.
constexpr double fadeShare = 0.35;
constexpr double shortestFade = 200;
constexpr double strongest = 0.32;

/// Blur: the photo's width over this, but not less than the second; source pixels.
constexpr double blursAcross = 800;
constexpr double leastBlur = 3;
/// The mirror image is reduced until its blur is about this many pixels, which loses nothing.
constexpr double blurInPixels = 1.2;
/// Clear rows and columns around the mirror image, in blurs: room to fade into.
constexpr double roomToFade = 3;

constexpr std::array<std::uint8_t, 3> clear{0, 0, 0};

/// The mirror image, upside down, with clear room around it; `color` is multiplied by `alpha`.
struct Mirrored {
    Picture color;
    Picture alpha;
    PicturePlace place;
};

/// Rows [from, to) of the cut-out, reduced by whole pixels, colour multiplied by alpha; the fourth
/// channel is alpha.
cv::Mat reduced(const DecodedRegion& photo, const Mask& alpha, int from, int to, int step) {
    const int width = (photo.pixels.width() + step - 1) / step;
    const int height = (to - from + step - 1) / step;
    cv::Mat sums(height, width, CV_32FC4, cv::Scalar::all(0));
    for (int y = from; y < to; ++y) {
        // Counted from the feet, so that the row at the feet is a whole one.
        auto* row = sums.ptr<cv::Vec4f>(height - 1 - (to - 1 - y) / step);
        const std::uint8_t* pixel = photo.pixels.row(y);
        const std::uint8_t* share = alpha.row(y);
        for (int x = 0; x < photo.pixels.width(); ++x, pixel += 3, ++share) {
            if (*share == 0) continue;
            const float part = static_cast<float>(*share) / 255;
            row[x / step] +=
                cv::Vec4f(static_cast<float>(pixel[0]) * part, static_cast<float>(pixel[1]) * part,
                          static_cast<float>(pixel[2]) * part, static_cast<float>(*share));
        }
    }
    return sums / (step * step);
}

/// The mirror image of what stands between `feetLine` and `reach` above it.
std::optional<Mirrored> mirrored(const DecodedRegion& photo, const Mask& alpha, double feetLine,
                                 double reach) {
    const double blur = std::max(photo.sourceWidth / blursAcross, leastBlur) * photo.scale;
    const int step = std::max(1, static_cast<int>(blur / blurInPixels));
    const auto row = [&](double y) {
        const double place = std::round((y - photo.origin.y) * photo.scale);
        return static_cast<int>(std::clamp<double>(place, 0, photo.pixels.height()));
    };
    const int to = row(feetLine);
    const int from = row(feetLine - reach - 2 * roomToFade * blur / photo.scale);
    if (from >= to) return std::nullopt;

    cv::Mat image = reduced(photo, alpha, from, to, step);
    cv::flip(image, image, 0);
    const int room = static_cast<int>(std::ceil(roomToFade * blur / step)) + 1;
    cv::copyMakeBorder(image, image, room, room, room, room, cv::BORDER_CONSTANT);
    cv::GaussianBlur(image, image, {}, blur / step, blur / step, cv::BORDER_CONSTANT);

    Mirrored mirror{Picture(image.cols, image.rows), Picture(image.cols, image.rows), {}};
    cv::Mat color(image.size(), CV_32FC3);
    cv::mixChannels(image, color, {0, 0, 1, 1, 2, 2});
    color.convertTo(viewOf(mirror.color), CV_8UC3);
    cv::mixChannels(image, color, {3, 0, 3, 1, 3, 2});
    color.convertTo(viewOf(mirror.alpha), CV_8UC3);
    mirror.place.scale = photo.scale / step;
    const double feetRow = photo.origin.y + to / photo.scale;
    mirror.place.origin = {photo.origin.x - room / mirror.place.scale,
                           2 * feetLine - feetRow - room / mirror.place.scale};
    return mirror;
}

void blend(std::uint8_t* pixel, const std::uint8_t* color, const std::uint8_t* alpha,
           float opacity) {
    for (int c = 0; c < 3; ++c) {
        const float shown = 1 - opacity * static_cast<float>(alpha[c]) * (1.0F / 255);
        const float laid =
            static_cast<float>(pixel[c]) * shown + opacity * static_cast<float>(color[c]) + 0.5F;
        pixel[c] = static_cast<std::uint8_t>(std::min(laid, 255.0F));
    }
}

}  // namespace

bool hasRoom(double feetLine, double photoHeight) { return feetLine < photoHeight - leastRoom; }

double fadeLength(double feetLine, const Rect& crop) {
    return std::max(fadeShare * std::abs(feetLine - crop.y), shortestFade);
}

double opacityAt(double y, double feetLine, double fade) {
    return strongest * std::clamp(1 - (y - feetLine) / fade, 0.0, 1.0);
}

Result<void> lay(const DecodedRegion& photo, const Mask& alpha, double feetLine, const Rect& crop,
                 const CropView& view, Picture& background) {
    const double fade = fadeLength(feetLine, crop);
    const auto mirror = mirrored(photo, alpha, feetLine, fade);
    if (!mirror) return {};
    const PicturePlace& place = mirror->place;
    const Rect extent{place.origin.x, place.origin.y, mirror->color.width() / place.scale,
                      mirror->color.height() / place.scale};
    const Rect seen{extent.x, extent.y, extent.width,
                    std::min(extent.height, feetLine + fade - extent.y)};
    const PixelBox box = view.showing(seen);
    if (box.isEmpty()) return {};
    const CropView part = view.part(box);
    const auto color = part.of(mirror->color, place, extent, clear);
    if (!color) return tl::unexpected(color.error());
    const auto hidden = part.of(mirror->alpha, place, extent, clear);
    if (!hidden) return tl::unexpected(hidden.error());
    const double slope = part.source(1, 0).y - part.source(0, 0).y;
    for (int y = 0; y < part.height(); ++y) {
        const double start = part.source(0.5, y + 0.5).y;
        for (int x = 0; x < part.width(); ++x) {
            if (*hidden->pixel(x, y) == 0) continue;
            const double opacity = opacityAt(start + slope * x, feetLine, fade);
            blend(background.pixel(box.left + x, box.top + y), color->pixel(x, y),
                  hidden->pixel(x, y), static_cast<float>(opacity));
        }
    }
    return {};
}

}  // namespace morva::FloorReflection
