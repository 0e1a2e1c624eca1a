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
    const cv::Mat share = Haze::shareOf(cells, map, unit, strands);
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

}  // namespace
}  // namespace morva
