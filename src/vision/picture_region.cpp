// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/picture_region.h"

#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "imaging/mat_view.h"

namespace morva {

namespace {

cv::Rect wholePixels(const Rect& rect, const Picture& picture) {
    const int left = std::clamp(static_cast<int>(std::floor(rect.x)), 0, picture.width() - 1);
    const int top = std::clamp(static_cast<int>(std::floor(rect.y)), 0, picture.height() - 1);
    const int right =
        std::clamp(static_cast<int>(std::ceil(rect.maxX())), left + 1, picture.width());
    const int bottom =
        std::clamp(static_cast<int>(std::ceil(rect.maxY())), top + 1, picture.height());
    return {left, top, right - left, bottom - top};
}

void spread(const cv::Mat& pixels, InputRange range, std::span<float> input) {
    const float factor = (range.high - range.low) / 255.0F;
    std::size_t i = 0;
    for (int y = 0; y < pixels.rows; ++y) {
        const std::uint8_t* row = pixels.ptr(y);
        for (int x = 0; x < pixels.cols * 3; ++x)
            input[i++] = range.low + factor * static_cast<float>(row[x]);
    }
}

/// Reduces by a power of two. Halving runs several times faster than one larger step and is as
/// exact to within the rounding to 8 bits.
void averageBlocks(cv::Mat source, cv::Mat& target, int factor) {
    for (; factor > 2; factor /= 2) {
        cv::Mat half;
        cv::resize(source, half, {source.cols / 2, source.rows / 2}, 0, 0, cv::INTER_AREA);
        source = half;
    }
    cv::resize(source, target, target.size(), 0, 0, cv::INTER_AREA);
}

/// A picture more than twice as fine as the model's input would be sampled with gaps. Reduced to
/// leave at least this many pixels for one of the model's, it has at most 2.5.
constexpr double finestRatio = 2;
constexpr double reducedRatio = 1.25;

Rect boundsOf(const PictureRegion& region) {
    const double reach =
        region.side / 2 * (std::abs(std::cos(region.radians)) + std::abs(std::sin(region.radians)));
    return {region.center.x - reach, region.center.y - reach, 2 * reach, 2 * reach};
}

void warp(const Picture& picture, const PictureRegion& region, int n, cv::Mat& pixels) {
    // OpenCV speaks of pixel centres: half a pixel is added on the model's side and taken off on
    // the picture's.
    const Point origin = region.toPicture({0.5, 0.5}, n);
    const Point right = region.toPicture({1.5, 0.5}, n) - origin;
    const Point down = region.toPicture({0.5, 1.5}, n) - origin;
    const cv::Matx23d map(right.x, down.x, origin.x - 0.5, right.y, down.y, origin.y - 0.5);
    cv::warpAffine(viewOf(picture), pixels, map, {n, n}, cv::INTER_LINEAR | cv::WARP_INVERSE_MAP,
                   cv::BORDER_CONSTANT);
}

}  // namespace

Point PictureRegion::toPicture(Point point, double n) const {
    const double step = side / n;
    const double dx = (point.x - n / 2) * step * (mirrored ? -1 : 1);
    const double dy = (point.y - n / 2) * step;
    return {center.x + dx * std::cos(radians) - dy * std::sin(radians),
            center.y + dx * std::sin(radians) + dy * std::cos(radians)};
}

void sample(const Picture& picture, const PictureRegion& region, int n, InputRange range,
            std::span<float> input) {
    cv::Mat pixels;
    if (region.side / n <= finestRatio) {
        warp(picture, region, n, pixels);
    } else {
        const Patch patch = cutPatch(picture, boundsOf(region), static_cast<int>(reducedRatio * n));
        PictureRegion inPatch = region;
        inPatch.center = patch.fromPicture(region.center);
        inPatch.side = region.side / patch.scale;
        warp(patch.picture, inPatch, n, pixels);
    }
    spread(pixels, range, input);
}

Rect wholePixelRect(const Rect& rect, const Picture& picture) {
    const cv::Rect whole = wholePixels(rect, picture);
    return {static_cast<double>(whole.x), static_cast<double>(whole.y),
            static_cast<double>(whole.width), static_cast<double>(whole.height)};
}

void sampleStretched(const Picture& picture, const Rect& rect, int n, InputRange range,
                     std::span<float> input) {
    const Rect whole = wholePixelRect(rect, picture);
    const Patch patch = cutPatch(picture, whole, static_cast<int>(reducedRatio * n));
    const Point corner = patch.fromPicture({whole.x, whole.y});
    const double across = whole.width / patch.scale / n;
    const double down = whole.height / patch.scale / n;
    const cv::Matx23d map(across, 0, corner.x + across / 2 - 0.5, 0, down,
                          corner.y + down / 2 - 0.5);
    cv::Mat pixels;
    cv::warpAffine(viewOf(patch.picture), pixels, map, {n, n},
                   cv::INTER_LINEAR | cv::WARP_INVERSE_MAP, cv::BORDER_REPLICATE);
    spread(pixels, range, input);
}

Patch cutPatch(const Picture& picture, const Rect& window, int pixelsNeeded) {
    int factor = 1;
    while (std::max(window.width, window.height) / (2 * factor) >= pixelsNeeded) factor *= 2;
    // Blocks are whole: the window grows by what the last one lacks, and at a photo's edge a
    // remainder smaller than a block is left out.
    const Rect grown{window.x, window.y, window.width + factor, window.height + factor};
    cv::Rect part = wholePixels(grown, picture);
    while (factor > std::min(part.width, part.height)) factor /= 2;
    part.width -= part.width % factor;
    part.height -= part.height % factor;
    Patch patch{Picture(part.width / factor, part.height / factor),
                {static_cast<double>(part.x), static_cast<double>(part.y)},
                static_cast<double>(factor)};
    cv::Mat target = viewOf(patch.picture);
    averageBlocks(viewOf(picture)(part), target, factor);
    return patch;
}

Picture smallCopy(const Picture& picture, int longestSide) {
    const int longest = std::max(picture.width(), picture.height());
    if (longest <= longestSide) return picture.copy();
    const Rect frame{0, 0, static_cast<double>(picture.width()),
                     static_cast<double>(picture.height())};
    const Patch patch = cutPatch(picture, frame, longestSide);
    const double factor = static_cast<double>(longestSide) / longest;
    Picture result(std::max(1, static_cast<int>(std::lround(picture.width() * factor))),
                   std::max(1, static_cast<int>(std::lround(picture.height() * factor))));
    cv::Mat target = viewOf(result);
    cv::resize(viewOf(patch.picture), target, target.size(), 0, 0, cv::INTER_AREA);
    return result;
}

Picture onItsSide(const Picture& picture, bool clockwise) {
    Picture result(picture.height(), picture.width());
    cv::Mat target = viewOf(result);
    cv::rotate(viewOf(picture), target,
               clockwise ? cv::ROTATE_90_CLOCKWISE : cv::ROTATE_90_COUNTERCLOCKWISE);
    return result;
}

}  // namespace morva
