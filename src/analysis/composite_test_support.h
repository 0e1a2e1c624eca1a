// SPDX-License-Identifier: GPL-3.0-or-later
// Things put into a child's hands, for tests: cut from one photograph, pasted into another.
#pragma once

#include <filesystem>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "analysis/analysis_image.h"
#include "analysis/analysis_pipeline.h"
#include "imaging/decode.h"
#include "imaging/mat_view.h"

namespace morva {

inline AnalysisImage loadForAnalysis(const std::filesystem::path& file) {
    const auto photo = PhotoDecode::open(file, AnalysisPipeline::analysisMaxPixel);
    if (!photo) throw std::runtime_error(photo.error().message);
    return {
        photo->whole(AnalysisPipeline::analysisMaxPixel),
        {static_cast<double>(photo->sourceWidth()), static_cast<double>(photo->sourceHeight())}};
}

inline AnalysisImage copyOf(const AnalysisImage& image) {
    return {image.image.copy(), image.sourceSize};
}

/// Pastes `texture` into the polygon, whose corners are in pixels of `image`.
inline void paste(AnalysisImage& image, const Picture& texture, const std::vector<Point>& corners) {
    std::vector<cv::Point> outline;
    for (const Point corner : corners)
        outline.emplace_back(static_cast<int>(corner.x), static_cast<int>(corner.y));
    cv::Mat target = viewOf(image.image);
    const cv::Rect box = cv::boundingRect(outline) & cv::Rect(0, 0, target.cols, target.rows);
    cv::Mat shape = cv::Mat::zeros(target.size(), CV_8UC1);
    cv::fillPoly(shape, std::vector{outline}, 255, cv::LINE_AA);
    cv::Mat fill;
    cv::resize(viewOf(texture), fill, box.size(), 0, 0, cv::INTER_AREA);
    fill.copyTo(target(box), shape(box) > 127);
}

}  // namespace morva
