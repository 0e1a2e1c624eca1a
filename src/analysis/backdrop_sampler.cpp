// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/backdrop_sampler.h"

#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "imaging/mat_view.h"
#include "vision/picture_region.h"

namespace morva::BackdropSampler {

namespace {

constexpr int workingSide = 256;
/// A working pixel shows backdrop only when less than this of it, of 255, is person.
constexpr int backdropOnly = 13;
/// Kept off every outline, of the working side, against hair and colour that the mask missed.
constexpr int keptOff = 6;
/// Working pixels below which a colour would be chance.
constexpr std::size_t enoughPixels = 40;

std::vector<cv::Vec3b> pixelsOf(const cv::Mat& picture, const cv::Mat& chosen) {
    std::vector<cv::Vec3b> pixels;
    for (int y = 0; y < picture.rows; ++y) {
        for (int x = 0; x < picture.cols; ++x) {
            if (chosen.at<std::uint8_t>(y, x) != 0) pixels.push_back(picture.at<cv::Vec3b>(y, x));
        }
    }
    return pixels;
}

cv::Vec3b middleColor(const std::vector<cv::Vec3b>& pixels) {
    cv::Vec3b middle;
    std::vector<std::uint8_t> values(pixels.size());
    for (int c = 0; c < 3; ++c) {
        std::ranges::transform(pixels, values.begin(), [c](const cv::Vec3b& p) { return p[c]; });
        const auto at = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::ranges::nth_element(values, at);
        middle[c] = *at;
    }
    return middle;
}

}  // namespace

std::optional<std::vector<double>> color(const Picture& image, const Mask& persons) {
    const Picture small = smallCopy(image, workingSide);
    const cv::Mat picture = viewOf(small);
    cv::Mat mask;
    cv::resize(viewOf(persons), mask, picture.size(), 0, 0, cv::INTER_AREA);
    const cv::Mat backdrop = mask < backdropOnly;
    cv::Mat inner;
    cv::erode(backdrop, inner,
              cv::getStructuringElement(cv::MORPH_ELLIPSE, {2 * keptOff + 1, 2 * keptOff + 1}));
    std::vector<cv::Vec3b> pixels = pixelsOf(picture, inner);
    if (pixels.size() < enoughPixels) pixels = pixelsOf(picture, backdrop);
    if (pixels.size() < enoughPixels) return std::nullopt;

    const cv::Vec3b middle = middleColor(pixels);
    const auto half = pixels.begin() + static_cast<std::ptrdiff_t>(pixels.size() / 2);
    std::ranges::nth_element(pixels, half, {}, [&](const cv::Vec3b& p) {
        return cv::norm(cv::Vec3i(p) - cv::Vec3i(middle), cv::NORM_L2SQR);
    });
    cv::Vec3d sum;
    for (auto p = pixels.begin(); p != half; ++p) sum += cv::Vec3d((*p)[0], (*p)[1], (*p)[2]);
    const double share = 1.0 / (255.0 * static_cast<double>(pixels.size() / 2));
    return std::vector{sum[0] * share, sum[1] * share, sum[2] * share};
}

}  // namespace morva::BackdropSampler
