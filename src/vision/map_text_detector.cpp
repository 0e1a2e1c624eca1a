// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/map_text_detector.h"

#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "imaging/mat_view.h"

namespace morva {

namespace {

// The model takes any multiple of 32, but every other size compiles anew; pictures are laid into
// the top-left corner of one of these two.
constexpr int inputWidth = 640;
constexpr int squareHeight = 640;
constexpr int flatHeight = 320;

// Blue, green, red: the order in which the model was trained.
constexpr std::array<double, 3> channelMean{0.485, 0.456, 0.406};
constexpr std::array<double, 3> channelSpread{0.229, 0.224, 0.225};

constexpr float coreLikelihood = 0.3F;
constexpr double smallestCore = 3;  // across, pixels of the map
constexpr double smallestLine = 5;
/// The map shows the core of a line; its outline lies further out by this share of the core's area
/// over its circumference.
constexpr double coreGrowth = 1.5;

/// Lays `pixels` into the corner of the input; the rest is as neutral as the training's padding.
void fill(const cv::Mat& pixels, int height, std::span<float> input) {
    std::array<cv::Mat, 3> channels;  // red, green, blue
    cv::split(pixels, channels.data());
    const std::size_t planeSize =
        static_cast<std::size_t>(inputWidth) * static_cast<std::size_t>(height);
    for (std::size_t c = 0; c < 3; ++c) {
        cv::Mat plane(height, inputWidth, CV_32FC1, input.data() + c * planeSize);
        channels[2 - c].convertTo(plane({0, 0, pixels.cols, pixels.rows}), CV_32F,
                                  1 / (255 * channelSpread[c]), -channelMean[c] / channelSpread[c]);
        plane.rowRange(pixels.rows, height).setTo(0);
        plane.colRange(pixels.cols, inputWidth).setTo(0);
    }
}

/// Mean likelihood over the inside of a contour.
double confidenceOf(const std::vector<cv::Point>& contour, const cv::Mat& map) {
    const cv::Rect bounds = cv::boundingRect(contour);
    cv::Mat inside = cv::Mat::zeros(bounds.size(), CV_8UC1);
    cv::fillPoly(inside, std::vector{contour}, cv::Scalar(1), cv::LINE_8, 0, -bounds.tl());
    return cv::mean(map(bounds), inside)[0];
}

std::array<Point, 4> cornersOf(const cv::RotatedRect& rect) {
    std::array<cv::Point2f, 4> points;
    rect.points(points.data());
    std::array<Point, 4> corners;
    // Contours run through pixel centres.
    std::ranges::transform(points, corners.begin(), [](cv::Point2f p) {
        return Point{p.x + 0.5, p.y + 0.5};
    });
    return corners;
}

}  // namespace

Result<std::shared_ptr<const MapTextDetector>> MapTextDetector::load(
    InferenceEngine& engine, const std::filesystem::path& models) {
    std::shared_ptr<MapTextDetector> detector(new MapTextDetector);
    const auto file = models / "ch_PP-OCRv4_det_infer.onnx";
    auto square = InferenceModel::loadReshaped(engine, file, {1, 3, squareHeight, inputWidth});
    if (!square) return tl::unexpected(square.error());
    auto flat = InferenceModel::loadReshaped(engine, file, {1, 3, flatHeight, inputWidth});
    if (!flat) return tl::unexpected(flat.error());
    detector->square_ = *square;
    detector->flat_ = *flat;
    return detector;
}

int MapTextDetector::sharpestSide() const { return inputWidth; }

std::vector<TextLine> MapTextDetector::linesInMap(std::span<const float> values, int width,
                                                  int height) {
    const cv::Mat map(height, width, CV_32FC1, const_cast<float*>(values.data()));
    const cv::Mat cores = map > coreLikelihood;
    std::vector<std::vector<cv::Point>> contours;
    cv::findContours(cores, contours, cv::RETR_LIST, cv::CHAIN_APPROX_SIMPLE);
    std::vector<TextLine> lines;
    for (const auto& contour : contours) {
        cv::RotatedRect rect = cv::minAreaRect(contour);
        if (std::min(rect.size.width, rect.size.height) < smallestCore) continue;
        const double growth = coreGrowth * rect.size.area() / (rect.size.width + rect.size.height);
        rect.size.width += static_cast<float>(growth);
        rect.size.height += static_cast<float>(growth);
        if (std::min(rect.size.width, rect.size.height) < smallestLine) continue;
        lines.push_back({cornersOf(rect), confidenceOf(contour, map)});
    }
    return lines;
}

Result<std::vector<TextLine>> MapTextDetector::lines(const Picture& picture) const {
    if (picture.isEmpty()) return std::vector<TextLine>{};
    // Enlarged, the weave of clothes reads as writing, and no more cards are found.
    const double scale = std::min(
        1.0, static_cast<double>(inputWidth) / std::max(picture.width(), picture.height()));
    const cv::Size size(std::max(1, static_cast<int>(std::lround(picture.width() * scale))),
                        std::max(1, static_cast<int>(std::lround(picture.height() * scale))));
    cv::Mat pixels = viewOf(picture);
    if (size != pixels.size()) cv::resize(viewOf(picture), pixels, size, 0, 0, cv::INTER_AREA);

    const bool flat = size.height <= flatHeight;
    const int height = flat ? flatHeight : squareHeight;
    auto session = (flat ? flat_ : square_)->session();
    if (!session) return tl::unexpected(session.error());
    fill(pixels, height, session->input());
    if (auto done = session->infer(); !done) return tl::unexpected(done.error());
    const auto map = session->output(static_cast<std::size_t>(height) * inputWidth);
    if (map.empty()) return failure("The text model's output has an unexpected size.");

    std::vector<TextLine> lines = linesInMap(map, inputWidth, height);
    const double back = 1 / scale;
    for (TextLine& line : lines)
        for (Point& corner : line.corners) corner = corner.scaled(back, back);
    return lines;
}

}  // namespace morva
