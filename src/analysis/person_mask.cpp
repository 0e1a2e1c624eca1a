// SPDX-License-Identifier: GPL-3.0-or-later
// The person mask, put together from the whole frame and, for a small face, its own surroundings.
#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "analysis/head_protector.h"
#include "imaging/mat_view.h"

namespace morva::HeadProtector {

namespace {

/// Face units in pixels of the analysis image below which the whole frame gives the head too few of
/// the model's 256 pixels.
constexpr double smallHeadUnit = 80;
constexpr double headRegionSide =
    6.5;  // face units; the scale at which crowns are as good as on headshots
constexpr double headRegionDrop = 0.3;  // face units from the eyes down to the region's centre
constexpr double seamShare = 0.1;       // of the region's side, over which the two maps are blended
constexpr int usualMaskSide = 1024;
constexpr double enoughMaskUnit =
    40;  // mask pixels a face unit, for a head top good to a fortieth of it

cv::Mat stretched(const PersonMap& map, cv::Size size) {
    cv::Mat result;
    cv::resize(viewOf(map.values, map.side), result, size, 0, 0, cv::INTER_LINEAR);
    return result;
}

cv::Size maskSize(const Picture& image, double unit) {
    const int longest = std::max(image.width(), image.height());
    const bool fine = unit * usualMaskSide / longest < enoughMaskUnit;
    const double factor = fine ? 1 : std::min(1.0, static_cast<double>(usualMaskSide) / longest);
    return {std::max(1, static_cast<int>(std::lround(image.width() * factor))),
            std::max(1, static_cast<int>(std::lround(image.height() * factor)))};
}

Rect headRegion(const FaceGeometry& face, Point toImage) {
    const double unit = face.faceUnit();
    const Point center = face.eyeMidpoint() + Point{0, headRegionDrop * unit};
    const double half = headRegionSide * unit / 2;
    return {(center.x - half) / toImage.x, (center.y - half) / toImage.y, 2 * half / toImage.x,
            2 * half / toImage.y};
}

/// Weight of the head map at a distance from the two ends of its extent; an end at the photo's edge
/// needs no seam.
float seamWeight(int at, int length, bool startsAtEdge, bool endsAtEdge) {
    const double seam = std::max(1.0, seamShare * length);
    double weight = 1;
    if (!startsAtEdge) weight = std::min(weight, (at + 0.5) / seam);
    if (!endsAtEdge) weight = std::min(weight, (length - at - 0.5) / seam);
    return static_cast<float>(weight);
}

void blendIn(cv::Mat& whole, const PersonMap& head, const Picture& image) {
    const double kx = static_cast<double>(whole.cols) / image.width();
    const double ky = static_cast<double>(whole.rows) / image.height();
    const cv::Rect place =
        cv::Rect(cv::Point(static_cast<int>(std::lround(head.extent.x * kx)),
                           static_cast<int>(std::lround(head.extent.y * ky))),
                 cv::Point(static_cast<int>(std::lround(head.extent.maxX() * kx)),
                           static_cast<int>(std::lround(head.extent.maxY() * ky)))) &
        cv::Rect(0, 0, whole.cols, whole.rows);
    if (place.empty()) return;
    const cv::Mat near = stretched(head, place.size());
    for (int y = 0; y < place.height; ++y) {
        const float down = seamWeight(y, place.height, place.y == 0, place.br().y == whole.rows);
        auto* target = whole.ptr<float>(place.y + y) + place.x;
        const auto* source = near.ptr<float>(y);
        for (int x = 0; x < place.width; ++x) {
            const float weight =
                down * seamWeight(x, place.width, place.x == 0, place.br().x == whole.cols);
            target[x] += weight * (source[x] - target[x]);
        }
    }
}

}  // namespace

Result<Mask> personMask(const PersonSegmenter& segmenter, const AnalysisImage& image,
                        const FaceGeometry& face) {
    const Picture& picture = image.image;
    const Rect frame{0, 0, static_cast<double>(picture.width()),
                     static_cast<double>(picture.height())};
    const auto whole = segmenter.persons(picture, frame);
    if (!whole) return tl::unexpected(whole.error());
    const Point toImage = image.scaleToSource();
    const double unit = face.faceUnit() / std::max(toImage.x, toImage.y);
    cv::Mat values = stretched(*whole, maskSize(picture, unit));
    if (unit < smallHeadUnit) {
        const auto head = segmenter.persons(picture, headRegion(face, toImage));
        if (!head) return tl::unexpected(head.error());
        blendIn(values, *head, picture);
    }
    Mask mask(values.cols, values.rows);
    cv::Mat target = viewOf(mask);
    values.convertTo(target, CV_8U, 255);
    return mask;
}

}  // namespace morva::HeadProtector
