// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/haze.h"

#include <functional>

#include <gtest/gtest.h>

namespace morva {
namespace {

constexpr double unit = 150;
constexpr int side = 80;
constexpr float strands = .16F;

double shareInTheMiddle(const std::function<float(int, int)>& alpha, float prior) {
    cv::Mat cells(side, side, CV_32FC1);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) cells.at<float>(y, x) = alpha(x, y);
    const cv::Mat map(side, side, CV_32FC1, cv::Scalar(prior));
    const cv::Mat share =
        Haze::shareOf(cells, map, cv::Mat::zeros(cells.size(), CV_32FC1), unit, strands);
    return cv::mean(share(cv::Rect(side / 4, side / 4, side / 2, side / 2)))[0];
}

TEST(Haze, isWhatIsCoveredInPartWithoutStrands) {
    struct Case {
        const char* what;
        std::function<float(int, int)> alpha;
        float prior;
        double least;
        double most;
    };
    const auto even = [](float value) { return [value](int, int) { return value; }; };
    const auto fading = [](int x, int) { return .8F - .6F * static_cast<float>(x) / side; };
    const auto lines = [](int x, int) { return x % 6 < 2 ? .7F : .05F; };
    const auto faintLines = [](int x, int y) { return (x + y) % 5 < 2 ? .35F : .05F; };
    for (const Case& c : {
             Case{"an even veil that the map does not know", even(.4F), 0, .95, 1},
             Case{"a shadow that fades out", fading, 0, .9, 1},
             Case{"the same veil in the map", even(.4F), .4F, 0, 0},
             Case{"an even lack in hair", even(.6F), 1, .95, 1},
             Case{"a slight lack", even(.9F), 1, .2, .5},
             Case{"strands", lines, 0, 0, .05},
             Case{"faint strands", faintLines, 0, 0, .05},
             Case{"a part that the map has lost altogether", even(1), 0, 0, .01},
             Case{"nothing", even(0), 1, 0, .01},
         }) {
        SCOPED_TRACE(c.what);
        const double share = shareInTheMiddle(c.alpha, c.prior);
        EXPECT_GE(share, c.least);
        EXPECT_LE(share, c.most);
    }
}

/// A child on the left half, whose edge is sharp, with a strip beside it.
cv::Mat childWithStrip(float strip, int width) {
    cv::Mat alpha = cv::Mat::zeros(side, side, CV_32FC1);
    alpha.colRange(0, side / 2).setTo(1);
    alpha.colRange(side / 2, side / 2 + width).setTo(strip);
    return alpha;
}

TEST(Haze, isFoundAtTheChildsEdgeWhereTheBackdropIsTextured) {
    const cv::Mat map = childWithStrip(0, 0);
    const cv::Mat plain = cv::Mat::zeros(side, side, CV_32FC1);
    const cv::Mat textured = cv::Mat::ones(side, side, CV_32FC1);
    const cv::Mat veil = childWithStrip(.2F, 12);
    const auto atEdge = [&](const cv::Mat& alpha, const cv::Mat& texture) {
        const cv::Mat share = Haze::shareOf(alpha, map, texture, unit, strands);
        return cv::mean(share(cv::Rect(side / 2 + 1, side / 4, 4, side / 2)))[0];
    };
    EXPECT_LT(atEdge(veil, plain), .3);
    EXPECT_GT(atEdge(veil, textured), .8);
    cv::Mat fringe = veil.clone();
    for (int y = 0; y < side; ++y)
        if (y % 6 >= 2) fringe.row(y).colRange(side / 2, side).setTo(0);
    for (int y = 0; y < side; ++y)
        if (y % 6 < 2) fringe.row(y).colRange(side / 2, side / 2 + 12).setTo(.8F);
    EXPECT_LT(atEdge(fringe, textured), .1);
}

TEST(Haze, shadedHairIsToldFromHairWithGaps) {
    const cv::Mat full = cv::Mat::ones(side, side, CV_32FC1);
    cv::Mat shaded(side, side, CV_32FC1);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) shaded.at<float>(y, x) = (x + y) % 4 < 2 ? .9F : .4F;
    cv::Mat withGap = shaded.clone();
    withGap(cv::Rect(side / 2 - 1, side / 2 - 1, 3, 3)).setTo(0);
    const auto inTheMiddle = [](const cv::Mat& share) {
        return share.at<float>(side / 2 + 3, side / 2 + 3);
    };
    EXPECT_EQ(inTheMiddle(Haze::shareWithoutGaps(shaded, full, full, unit)), 1);
    EXPECT_EQ(inTheMiddle(Haze::shareWithoutGaps(withGap, full, full, unit)), 0);
    EXPECT_EQ(inTheMiddle(Haze::shareWithoutGaps(shaded, full * .5, full, unit)), 0);
    // Beyond the outline the backdrop shows, which is no gap.
    cv::Mat outline = full.clone();
    outline.colRange(side / 2, side).setTo(0);
    cv::Mat besideBackdrop = shaded.clone();
    besideBackdrop.colRange(side / 2, side).setTo(0);
    EXPECT_EQ(Haze::shareWithoutGaps(besideBackdrop, outline, outline, unit)
                  .at<float>(side / 2, side / 2 - 2),
              1);
}

}  // namespace
}  // namespace morva
