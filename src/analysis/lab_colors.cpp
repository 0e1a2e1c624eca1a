// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/lab_colors.h"

#include <opencv2/imgproc.hpp>

namespace morva {

namespace {

cv::Mat converted(const cv::Mat& rgb) {
    cv::Mat lab;
    cv::cvtColor(rgb, lab, cv::COLOR_RGB2Lab);
    return lab;
}

}  // namespace

cv::Mat labColors(const cv::Mat& rgb) {
    // The first conversion of the process fills tables that are guarded by nothing; two threads
    // that both came first would each fill them and lose one set of nearly 5 megabytes.
    [[maybe_unused]] static const cv::Mat tablesAreFilled =
        converted(cv::Mat::zeros(1, 1, CV_32FC3));
    return converted(rgb);
}

}  // namespace morva
