// SPDX-License-Identifier: GPL-3.0-or-later
// Draws held cards into photographs, for tests.
#pragma once

#include <string>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "base/geometry.h"
#include "imaging/mat_view.h"
#include "imaging/raster.h"

namespace morva {

struct CardLook {
    const char* name;
    int font;
    int stroke;  // of letters 22 pixels high
    cv::Scalar ground;
    cv::Scalar ink;
};

inline const std::vector<CardLook>& cardLooks() {
    static const std::vector<CardLook> looks{
        {"printed", cv::FONT_HERSHEY_DUPLEX, 3, {248, 246, 240}, {25, 25, 30}},
        {"hand-written", cv::FONT_HERSHEY_SCRIPT_SIMPLEX, 3, {250, 240, 205}, {40, 50, 140}},
        {"letter board", cv::FONT_HERSHEY_DUPLEX, 3, {25, 25, 27}, {238, 238, 235}},
        {"slate", cv::FONT_HERSHEY_SCRIPT_COMPLEX, 2, {48, 58, 52}, {205, 210, 205}},
    };
    return looks;
}

/// Writes one line into each of as many rows of equal height, the first centred at `row`.
inline void write(cv::Mat& card, const CardLook& look, const std::vector<std::string>& lines,
                  int row, int pitch) {
    for (const std::string& line : lines) {
        int below = 0;
        cv::Size size = cv::getTextSize(line, look.font, 1, look.stroke, &below);
        const double scale = std::min((card.cols - 60.0) / size.width, 0.62 * pitch / size.height);
        size = cv::getTextSize(line, look.font, scale, look.stroke, &below);
        cv::putText(card, line, {(card.cols - size.width) / 2, row + size.height / 2}, look.font,
                    scale, look.ink, look.stroke, cv::LINE_AA);
        row += pitch;
    }
}

/// The card seen flat, half as wide again as it is high.
inline cv::Mat flatCard(const CardLook& look, const std::vector<std::string>& lines) {
    cv::Mat card(300, 460, CV_8UC3, look.ground);
    const int pitch = card.rows / (static_cast<int>(lines.size()) + 1);
    write(card, look, lines, pitch, pitch);
    return card;
}

/// A strip of two lines that leave hardly a margin.
inline cv::Mat nameStrip(const CardLook& look, const std::vector<std::string>& lines) {
    cv::Mat strip(150, 380, CV_8UC3, look.ground);
    write(strip, look, lines, 40, 70);
    return strip;
}

/// Lays the card into `picture`, `height` pixels high, turned by `degrees`, its right side a tenth
/// further away.
inline void holdCard(Picture& picture, const cv::Mat& card, Point center, double height,
                     double degrees) {
    const double half = height / 2;
    const double wide = half * card.cols / card.rows;
    std::vector<cv::Point2f> corners;
    for (const Point corner : {Point{-wide, -half}, Point{wide, -0.9 * half},
                               Point{wide, 0.9 * half}, Point{-wide, half}}) {
        const Point at = (center + corner).rotated(center, degrees);
        corners.emplace_back(static_cast<float>(at.x), static_cast<float>(at.y));
    }
    cv::Mat flat;
    // Reduced by area to twice the size first, so that nothing is sampled with gaps.
    const double reduced = std::min(1.0, 2 * height / card.rows);
    cv::resize(card, flat, {}, reduced, reduced, cv::INTER_AREA);
    const auto right = static_cast<float>(flat.cols);
    const auto bottom = static_cast<float>(flat.rows);
    const std::vector<cv::Point2f> flatCorners{{0, 0}, {right, 0}, {right, bottom}, {0, bottom}};
    cv::Mat target = viewOf(picture);
    cv::warpPerspective(flat, target, cv::getPerspectiveTransform(flatCorners, corners),
                        target.size(), cv::INTER_LINEAR, cv::BORDER_TRANSPARENT);
}

}  // namespace morva
