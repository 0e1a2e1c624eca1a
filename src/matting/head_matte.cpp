// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/head_matte.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "matting/body_matte.h"
#include "matting/closed_form.h"
#include "matting/colour_model.h"
#include "matting/haze.h"
#include "matting/local_linear.h"
#include "matting/ramp.h"
#include "matting/trimap.h"
#include "matting/windowed_colours.h"

namespace morva::HeadMatte {

namespace {

// Chosen on seven photographs with known alpha and sixteen composites of them. Lengths in face
// units, colours and alphas from 0 to 1.
constexpr double regionWidth = 4.4;
constexpr double regionHeight = 3.9;
constexpr double eyesBelowTop = 2.0;
/// A window of 4.2 would show hair a little sharper, but with so little around it the model loses
/// parts of turned faces, and takes the backdrop under a chin for neck.
constexpr double mapSide = 5.5;
constexpr double modelUnit = 48;    // cells a face unit for colours, which change slowly
constexpr double leastShare = .05;  // of the region that must be surely backdrop, and child

constexpr float emptyMean = .10F;  // cells of less alpha than this are shown to the backdrop's fit

constexpr float plainError = .02F;     // error of the backdrop's fit up to which it is plain
constexpr float texturedError = .03F;  // and how much more makes it fully textured
constexpr double textureNear = .16;    // around a textured place what is hazy is doubted as well
constexpr float hairOutside = .18F;    // how far out strands are searched on a plain backdrop
constexpr float lessOutside = .10F;    // and how much less on a textured one
constexpr float surelyBackdrop = .05F;

constexpr float usualVariance = .01F;
constexpr float usualError = .03F * .03F;
constexpr float mapWeightTextured = .03F;
constexpr float mapWeightInside = .02F;
constexpr float insideBegin = .03F;
constexpr float insideRange = .06F;
constexpr float likeColours = .15F;  // difference from which the map begins to count for more
constexpr float likeColoursRange = .10F;

// Short hair lies wholly within the open band, and the child that is sure beside it is skin: the
// inner part of the band shows the hair's colours there.
constexpr float surelyHair = .5F;
constexpr float shortHair = .05F;  // from sure hair, beyond which there is no long one
constexpr float insideShortHair = .03F;

// Where the backdrop differs from its fit by more than this, its pattern is drawn into the outline:
// from here the guided filter's errors are the smaller ones, and the eye agrees on weaves, foliage
// and lights.
constexpr float patternBegin = .04F;
constexpr float patternRange = .025F;
constexpr float weaveBegin = .03F;  // the same for what varies from pixel to pixel
constexpr float weaveRange = .02F;
constexpr double patternReach = .15;  // from the outline, over which the pattern is measured
constexpr double patternBlur = .05;

constexpr double filterBegin = .05;  // from sure child, over which the filter takes over

constexpr double islandAlpha = .05;
constexpr double enlargeEpsilon = 1e-5;
constexpr float hazeNear = .03F;
constexpr float hazeFar = .10F;
constexpr float hazeBegin = .04F;
constexpr float hazeRange = .08F;
constexpr float fullAlpha = .97F;

/// All that the steps share, on one grid.
struct Scene {
    const PhotoGrid& grid;
    const Matting::Tuning& tuning;
    cv::Mat prior;
    Trimap trimap;
    ColourModel colours{};
    /// 0 where the backdrop is plain, 1 where it is textured; and the same with what is near.
    cv::Mat texture{};
    cv::Mat nearTexture{};
    /// How much of the guided filter is wanted in place of what is solved, for the pattern alone.
    cv::Mat pattern{};
    AlphaEstimate estimate{};
};

/// Settled cells of a smaller copy: those that hold nothing else.
cv::Mat settledCells(const cv::Mat& flags, cv::Size size) {
    cv::Mat shares;
    cv::resize(flags, shares, size, 0, 0, cv::INTER_AREA);
    cv::Mat result;
    cv::Mat(shares > 254).convertTo(result, CV_32F, 1.0 / 255);
    return result;
}

Trimap reducedTrimap(const Trimap& trimap, cv::Size size) {
    Trimap small;
    small.cells = cv::Mat(size, CV_8U, cv::Scalar(Trimap::open));
    small.cells.setTo(Trimap::child, settledCells(trimap.cells == Trimap::child, size) > 0);
    small.cells.setTo(Trimap::backdrop, settledCells(trimap.cells == Trimap::backdrop, size) > 0);
    return small;
}

cv::Mat rooted(const cv::Mat& squares) {
    cv::Mat result;
    cv::sqrt(cv::max(squares, 0.0), result);
    return result;
}

/// `reach` in cells around each, in which the largest error counts.
cv::Mat textureOf(const cv::Mat& variance, int reach, cv::Size size) {
    cv::Mat error;
    cv::dilate(variance, error, cv::Mat::ones(2 * reach + 1, 2 * reach + 1, CV_8U));
    cv::Mat texture = ramp(rooted(error), plainError, texturedError);
    cv::resize(texture, texture, size, 0, 0, cv::INTER_LINEAR);
    return texture;
}

/// Where the backdrop's error together with what varies inside the model's cells is large: cloth
/// of a fine weave is plain for the model and not for the matte.
cv::Mat patternOf(const Scene& scene, const cv::Mat& small, const cv::Mat& variance, double unit) {
    cv::Mat squares;
    cv::multiply(scene.grid.colours, scene.grid.colours, squares);
    cv::resize(squares, squares, small.size(), 0, 0, cv::INTER_AREA);
    const cv::Mat inside = squares - small.mul(small);
    cv::Mat mean;
    cv::transform(inside, mean, cv::Matx13f(1.0F / 3, 1.0F / 3, 1.0F / 3));
    const cv::Mat plain = settledCells(scene.trimap.cells == Trimap::backdrop, small.size());
    cv::Mat near;
    cv::Mat(distanceTo(plain == 0, unit) <= patternReach).convertTo(near, CV_32F, 1.0 / 255);
    const cv::Mat fine = WindowedColours::mean(mean, plain.mul(near), unit);
    cv::Mat share = cv::max(ramp(rooted(variance + fine), patternBegin, patternRange),
                            ramp(rooted(fine), weaveBegin, weaveRange));
    cv::GaussianBlur(share, share, {}, patternBlur * unit);
    cv::Mat pattern;
    cv::resize(share, pattern, scene.grid.colours.size(), 0, 0, cv::INTER_LINEAR);
    return pattern;
}

/// The trimap with the inside of short hair taken for sure, to learn colours from.
Trimap withShortHair(const Scene& scene, const cv::Mat& hair) {
    const cv::Mat likely = hair > surelyHair;
    const cv::Mat toHair =
        distanceTo(likely & (scene.trimap.cells == Trimap::child), scene.grid.unit);
    Trimap result = scene.trimap;
    result.cells = scene.trimap.cells.clone();
    result.cells.setTo(Trimap::child, likely & (toHair > shortHair) & (scene.prior >= 1) &
                                          (scene.trimap.depth > insideShortHair));
    return result;
}

/// Learns the colours, estimates alpha, and learns the backdrop again with what turned out empty.
void estimateColours(Scene& scene, const cv::Mat& hair) {
    const cv::Size size = scene.grid.colours.size();
    const double factor = std::min(1.0, modelUnit / scene.grid.unit);
    const double unit = scene.grid.unit * factor;
    cv::Mat small;
    cv::resize(scene.grid.colours, small, {}, factor, factor, cv::INTER_AREA);
    ColourModel model =
        ColourModel::fitted(small, reducedTrimap(withShortHair(scene, hair), small.size()), unit);
    const AlphaEstimate first =
        AlphaEstimate::of(scene.grid.colours, scene.trimap, model.resized(size), scene.prior);
    cv::Mat around;
    cv::boxFilter(first.mean, around, -1, {3, 3});
    const cv::Mat empty = (scene.trimap.cells == Trimap::backdrop) |
                          ((scene.trimap.cells == Trimap::open) & (around < emptyMean));
    model.refitBackdrop(small, settledCells(empty, small.size()), unit);
    scene.texture = textureOf(model.backdropVariance, 1, size);
    scene.nearTexture = textureOf(model.backdropVariance,
                                  1 + static_cast<int>(std::lround(textureNear * unit)), size);
    scene.pattern = patternOf(scene, small, model.backdropVariance, unit);
    scene.colours = model.resized(size);
    scene.estimate =
        AlphaEstimate::of(scene.grid.colours, scene.trimap, scene.colours, scene.prior);
}

/// On a textured backdrop far strands cannot be told from it.
void closeFarCells(Scene& scene, const cv::Mat& persons) {
    for (int y = 0; y < persons.rows; ++y) {
        for (int x = 0; x < persons.cols; ++x) {
            auto& cell = scene.trimap.cells.at<unsigned char>(y, x);
            const float limit = hairOutside - lessOutside * scene.texture.at<float>(y, x);
            if (cell != Trimap::open || persons.at<float>(y, x) >= surelyBackdrop ||
                scene.trimap.away.at<float>(y, x) <= limit)
                continue;
            cell = Trimap::backdrop;
            scene.estimate.mean.at<float>(y, x) = 0;
        }
    }
}

float weightOfEstimate(const Scene& scene, int y, int x) {
    const float spread = scene.estimate.variance.at<float>(y, x) / usualVariance;
    const float error = scene.colours.backdropVariance.at<float>(y, x) / usualError;
    return scene.tuning.dataWeight / ((spread + 1) * (1 + error * error));
}

float weightOfMap(const Scene& scene, int y, int x) {
    const auto& child = scene.colours.child.at<cv::Vec<float, 9>>(y, x);
    const auto& backdrop = scene.colours.backdrop.at<cv::Vec3f>(y, x);
    float contrast = 0;
    for (int c = 0; c < 3; ++c) contrast = std::max(contrast, std::abs(child[c] - backdrop[c]));
    const float inside = (scene.trimap.depth.at<float>(y, x) - insideBegin) / insideRange;
    const Matting::Tuning& tuning = scene.tuning;
    return tuning.mapWeight + mapWeightTextured * scene.texture.at<float>(y, x) +
           mapWeightInside * unitRange(inside) +
           tuning.mapWeightLikeColours * unitRange((likeColours - contrast) / likeColoursRange);
}

cv::Mat solvedAlpha(const Scene& scene) {
    const cv::Size size = scene.grid.colours.size();
    cv::Mat weight(size, CV_32FC1);
    cv::Mat pull(size, CV_32FC1);
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            const float data = weightOfEstimate(scene, y, x);
            const float map = weightOfMap(scene, y, x);
            weight.at<float>(y, x) = data + map;
            pull.at<float>(y, x) =
                data * scene.estimate.mean.at<float>(y, x) + map * scene.prior.at<float>(y, x);
        }
    }
    return ClosedForm::solved(scene.grid.colours, scene.trimap.cells != Trimap::open,
                              scene.estimate.mean, weight, pull);
}

/// Sets to 0 what hangs together with no cell that is surely the child.
void dropIslands(cv::Mat& alpha, const Trimap& trimap) {
    cv::Mat labels;
    const int count = cv::connectedComponents(alpha > islandAlpha, labels, 8, CV_32S);
    std::vector<bool> kept(static_cast<std::size_t>(count), false);
    for (int y = 0; y < labels.rows; ++y)
        for (int x = 0; x < labels.cols; ++x)
            if (trimap.cells.at<unsigned char>(y, x) == Trimap::child)
                kept[static_cast<std::size_t>(labels.at<int>(y, x))] = true;
    for (int y = 0; y < labels.rows; ++y)
        for (int x = 0; x < labels.cols; ++x)
            if (!kept[static_cast<std::size_t>(labels.at<int>(y, x))] && labels.at<int>(y, x) != 0)
                alpha.at<float>(y, x) = 0;
}

cv::Mat limitsOf(const Trimap& trimap) {
    cv::Mat limits(trimap.cells.size(), CV_32FC2);
    for (int y = 0; y < limits.rows; ++y) {
        for (int x = 0; x < limits.cols; ++x) {
            const float far = unitRange((trimap.away.at<float>(y, x) - hazeBegin) / hazeRange);
            limits.at<cv::Vec2f>(y, x) = {hazeNear + far * (hazeFar - hazeNear), fullAlpha};
        }
    }
    return limits;
}

/// Shares that begin where the child is sure: there the filter would only soften it.
cv::Mat awayFromChild(const cv::Mat& shares, const Trimap& trimap, double unit) {
    return shares.mul(cv::min(distanceTo(trimap.cells == Trimap::child, unit) / filterBegin, 1.0));
}

/// Puts the filter's layer in the place of the solved one, as far as `shares` wants it.
void blendIn(MatteLayer& layer, const MatteLayer& filter, const cv::Mat& shares) {
    for (int y = 0; y < shares.rows; ++y) {
        for (int x = 0; x < shares.cols; ++x) {
            const float share = shares.at<float>(y, x);
            if (share <= 0) continue;
            auto& fit = layer.coefficients.at<cv::Vec4f>(y, x);
            auto& limits = layer.limits.at<cv::Vec2f>(y, x);
            fit += share * (filter.coefficients.at<cv::Vec4f>(y, x) - fit);
            limits += share * (filter.limits.at<cv::Vec2f>(y, x) - limits);
            auto& certain = layer.certain.at<unsigned char>(y, x);
            if (certain == 0 && filter.certain.at<unsigned char>(y, x) != 0)
                certain = MatteLayer::uncertain;
        }
    }
}

/// How much of the filter is wanted in place of what is solved.
cv::Mat filterShares(const Scene& scene, const cv::Mat& alpha, const MatteLayer& filter) {
    const double unit = scene.grid.unit;
    const cv::Mat haze =
        Haze::shareOf(alpha, scene.prior, scene.nearTexture, unit, scene.tuning.strands);
    const cv::Mat shade =
        Haze::shareWithoutGaps(alpha, filter.alphaOf(scene.grid.colours), scene.prior, unit);
    return cv::max(awayFromChild(scene.pattern, scene.trimap, unit), cv::max(haze, shade));
}

bool canLearn(const Trimap& trimap) {
    const double least = leastShare * static_cast<double>(trimap.cells.total());
    return cv::countNonZero(trimap.cells == Trimap::child) >= least &&
           cv::countNonZero(trimap.cells == Trimap::backdrop) >= least;
}

}  // namespace

Rect region(Point eyeMidpoint, double faceUnit, const Rect& bounds) {
    const Rect whole{eyeMidpoint.x - regionWidth / 2 * faceUnit,
                     eyeMidpoint.y - eyesBelowTop * faceUnit, regionWidth * faceUnit,
                     regionHeight * faceUnit};
    return whole.intersection(bounds);
}

Rect mapWindow(Point eyeMidpoint, double faceUnit) {
    const double side = mapSide * faceUnit;
    return {eyeMidpoint.x - side / 2, eyeMidpoint.y - side / 2, side, side};
}

std::optional<MatteLayer> layer(const PhotoGrid& grid, const cv::Mat& persons, const cv::Mat& hair,
                                double filterUnit, const Matting::Tuning& tuning) {
    Scene scene{grid, tuning, BodyMatte::prior(persons), Trimap::around(persons, hair, grid.unit)};
    if (!canLearn(scene.trimap)) return std::nullopt;
    const cv::Mat sure = scene.trimap.only(Trimap::child) + .5 * scene.trimap.only(Trimap::open);
    estimateColours(scene, hair);
    closeFarCells(scene, persons);
    cv::Mat alpha = solvedAlpha(scene);
    dropIslands(alpha, scene.trimap);
    cv::min(cv::max(alpha, 0.0), 1.0, alpha);
    MatteLayer layer;
    layer.place = grid.place;
    layer.coefficients = LocalLinear::coefficients(grid.colours, alpha, 1, enlargeEpsilon);
    layer.limits = limitsOf(scene.trimap);
    layer.findCertain(sure, 1);
    const MatteLayer filter = BodyMatte::onFinerGrid(grid, scene.prior, filterUnit);
    blendIn(layer, filter, filterShares(scene, alpha, filter));
    return layer;
}

}  // namespace morva::HeadMatte
