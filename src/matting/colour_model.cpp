// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/colour_model.h"

#include <array>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "matting/windowed_colours.h"

namespace morva {

namespace {

constexpr float childReach = .25F;    // from the open band, face units, for the child's colours
constexpr float fitGap = .08F;        // left out between the band and the backdrop of the test fit
constexpr float errorReach = .12F;    // from the band, over which the test fit's error is taken
constexpr float colourFloor = 2e-4F;  // variance that even a plain colour has
constexpr float noiseVariance = .012F * .012F;  // of a camera at a school's light
constexpr float priorSpread = .35F;             // how far alpha may lie from the person map
constexpr float leastVariance = 1e-4F;
constexpr int steps = 16;  // of alpha between 0 and 1

struct Symmetric {
    float rr, rg, rb, gg, gb, bb;
};

/// log of the normal density of `r` under variance `v`, without constants.
float logDensity(const Symmetric& v, const cv::Vec3f& r) {
    const float a = v.gg * v.bb - v.gb * v.gb;
    const float b = v.rb * v.gb - v.rg * v.bb;
    const float c = v.rg * v.gb - v.rb * v.gg;
    const float d = v.rr * v.bb - v.rb * v.rb;
    const float e = v.rg * v.rb - v.rr * v.gb;
    const float f = v.rr * v.gg - v.rg * v.rg;
    const float determinant = std::max(v.rr * a + v.rg * b + v.rb * c, 1e-20F);
    const float squares = a * r[0] * r[0] + d * r[1] * r[1] + f * r[2] * r[2] +
                          2 * (b * r[0] * r[1] + c * r[0] * r[2] + e * r[1] * r[2]);
    return -.5F * (squares / determinant + std::log(determinant));
}

struct Cell {
    cv::Vec3f colour;
    const cv::Vec<float, 9>& child;
    cv::Vec3f backdrop;
    float backdropVariance;
    float prior;
};

float logLikelihood(const Cell& cell, float alpha) {
    const float beta = 1 - alpha;
    const auto& m = cell.child;
    const float diagonal = beta * beta * cell.backdropVariance + noiseVariance;
    const float a2 = alpha * alpha;
    const Symmetric variance{a2 * m[3] + diagonal, a2 * m[4], a2 * m[5],
                             a2 * m[6] + diagonal, a2 * m[7], a2 * m[8] + diagonal};
    const cv::Vec3f rest = cell.colour - alpha * cv::Vec3f(m[0], m[1], m[2]) - beta * cell.backdrop;
    const float off = (alpha - cell.prior) / priorSpread;
    return logDensity(variance, rest) - .5F * off * off;
}

/// Mean and variance of alpha.
cv::Vec2f posterior(const Cell& cell) {
    std::array<float, steps + 1> logs{};
    float best = -1e30F;
    for (std::size_t i = 0; i <= steps; ++i) {
        logs[i] = logLikelihood(cell, static_cast<float>(i) / steps);
        best = std::max(best, logs[i]);
    }
    float sum = 0;
    float first = 0;
    float second = 0;
    for (std::size_t i = 0; i <= steps; ++i) {
        const float alpha = static_cast<float>(i) / steps;
        const float weight = std::exp(logs[i] - best);
        sum += weight;
        first += weight * alpha;
        second += weight * alpha * alpha;
    }
    const float mean = first / sum;
    return {mean, std::max(0.0F, second / sum - mean * mean) + leastVariance};
}

cv::Mat floatsOf(const cv::Mat& flags) {
    cv::Mat result;
    flags.convertTo(result, CV_32F, 1.0 / 255);
    return result;
}

}  // namespace

ColourModel ColourModel::fitted(const cv::Mat& colours, const Trimap& trimap, double unit) {
    ColourModel model;
    const cv::Mat toBand = distanceTo(trimap.cells == Trimap::open, unit);
    const cv::Mat nearChild = (trimap.cells == Trimap::child) & (toBand <= childReach);
    model.child = WindowedColours::distribution(colours, floatsOf(nearChild), unit, colourFloor);
    model.refitBackdrop(colours, trimap.only(Trimap::backdrop), unit);
    return model;
}

void ColourModel::refitBackdrop(const cv::Mat& colours, const cv::Mat& backdropCells, double unit) {
    backdrop = WindowedColours::plane(colours, backdropCells, unit);
    const cv::Mat toBand = distanceTo(backdropCells == 0, unit);
    const cv::Mat fitCells = backdropCells.mul(floatsOf(toBand > fitGap));
    const cv::Mat test = WindowedColours::plane(colours, fitCells, unit);
    cv::Mat error(colours.size(), CV_32FC1);
    for (int y = 0; y < colours.rows; ++y) {
        for (int x = 0; x < colours.cols; ++x) {
            const cv::Vec3f off = colours.at<cv::Vec3f>(y, x) - test.at<cv::Vec3f>(y, x);
            error.at<float>(y, x) = off.dot(off) / 3;
        }
    }
    const cv::Mat errorCells = backdropCells.mul(floatsOf(toBand <= errorReach));
    backdropVariance = WindowedColours::mean(error, errorCells, unit);
}

ColourModel ColourModel::resized(cv::Size size) const {
    ColourModel result;
    cv::resize(child, result.child, size, 0, 0, cv::INTER_LINEAR);
    cv::resize(backdrop, result.backdrop, size, 0, 0, cv::INTER_LINEAR);
    cv::resize(backdropVariance, result.backdropVariance, size, 0, 0, cv::INTER_LINEAR);
    return result;
}

AlphaEstimate AlphaEstimate::of(const cv::Mat& colours, const Trimap& trimap,
                                const ColourModel& model, const cv::Mat& prior) {
    AlphaEstimate estimate{trimap.only(Trimap::child), cv::Mat::zeros(colours.size(), CV_32FC1)};
    for (int y = 0; y < colours.rows; ++y) {
        const auto* cell = trimap.cells.ptr(y);
        for (int x = 0; x < colours.cols; ++x) {
            if (cell[x] != Trimap::open) continue;
            const cv::Vec2f result =
                posterior({colours.at<cv::Vec3f>(y, x), model.child.at<cv::Vec<float, 9>>(y, x),
                           model.backdrop.at<cv::Vec3f>(y, x),
                           model.backdropVariance.at<float>(y, x), prior.at<float>(y, x)});
            estimate.mean.at<float>(y, x) = result[0];
            estimate.variance.at<float>(y, x) = result[1];
        }
    }
    return estimate;
}

}  // namespace morva
