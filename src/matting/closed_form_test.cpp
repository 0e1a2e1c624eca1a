// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include <gtest/gtest.h>

#include "matting/closed_form.h"
#include "matting/local_linear.h"
#include "matting/windowed_colours.h"

namespace morva {
namespace {

/// A pattern between two colours, so that alpha is linear in colour everywhere.
struct Blend {
    cv::Mat colours = cv::Mat(30, 40, CV_32FC3);
    cv::Mat alpha = cv::Mat(30, 40, CV_32FC1);

    Blend() {
        for (int y = 0; y < alpha.rows; ++y) {
            for (int x = 0; x < alpha.cols; ++x) {
                const float a = .5F + .5F * static_cast<float>(std::sin(.7 * x) * std::cos(.5 * y));
                alpha.at<float>(y, x) = a;
                colours.at<cv::Vec3f>(y, x) =
                    a * cv::Vec3f(.3F, .2F, .1F) + (1 - a) * cv::Vec3f(.6F, .7F, .9F);
            }
        }
    }
};

double largestDifference(const cv::Mat& a, const cv::Mat& b) {
    return cv::norm(a, b, cv::NORM_INF);
}

TEST(ClosedForm, spreadsWhatIsKnownAlongTheColours) {
    const Blend blend;
    cv::Mat known = cv::Mat::zeros(blend.alpha.size(), CV_8U);
    known.colRange(0, 4).setTo(255);
    known.colRange(36, 40).setTo(255);
    cv::Mat start = blend.alpha.clone();
    start.colRange(4, 36).setTo(.5);
    const cv::Mat weight(start.size(), CV_32FC1, cv::Scalar(1e-6));
    const cv::Mat pull(start.size(), CV_32FC1, cv::Scalar(.5e-6));
    const cv::Mat solved = ClosedForm::solved(blend.colours, known, start, weight, pull);
    EXPECT_LT(largestDifference(solved, blend.alpha), .1);
    EXPECT_EQ(largestDifference(solved.colRange(0, 4), blend.alpha.colRange(0, 4)), 0);
}

TEST(ClosedForm, keepsAllWhereNothingIsOpen) {
    const Blend blend;
    const cv::Mat known(blend.alpha.size(), CV_8U, cv::Scalar(255));
    const cv::Mat none = cv::Mat::ones(blend.alpha.size(), CV_32FC1);
    const cv::Mat solved = ClosedForm::solved(blend.colours, known, blend.alpha, none, none);
    EXPECT_EQ(largestDifference(solved, blend.alpha), 0);
}

TEST(LocalLinear, recoversAnAlphaThatIsLinearInColour) {
    const Blend blend;
    const cv::Mat fits = LocalLinear::coefficients(blend.colours, blend.alpha, 2, 1e-7);
    for (int y = 0; y < fits.rows; ++y) {
        for (int x = 0; x < fits.cols; ++x) {
            const auto& k = fits.at<cv::Vec4f>(y, x);
            const auto& c = blend.colours.at<cv::Vec3f>(y, x);
            ASSERT_NEAR(k[0] * c[0] + k[1] * c[1] + k[2] * c[2] + k[3], blend.alpha.at<float>(y, x),
                        .01);
        }
    }
}

TEST(WindowedColours, carriesAGradientOnBehindAHole) {
    constexpr double unit = 48;
    cv::Mat colours(120, 160, CV_32FC3);
    cv::Mat seen = cv::Mat::ones(colours.size(), CV_32FC1);
    for (int y = 0; y < colours.rows; ++y)
        for (int x = 0; x < colours.cols; ++x)
            colours.at<cv::Vec3f>(y, x) =
                cv::Vec3f(.002F * static_cast<float>(x), .5F, .003F * static_cast<float>(y));
    const cv::Mat truth = colours.clone();
    const cv::Rect hole(60, 40, 40, 40);
    seen(hole).setTo(0);
    colours(hole).setTo(cv::Scalar(1, 0, 1));
    const cv::Mat plane = WindowedColours::plane(colours, seen, unit);
    EXPECT_LT(largestDifference(plane(hole), truth(hole)), .02);
}

}  // namespace
}  // namespace morva
