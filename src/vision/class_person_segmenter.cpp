// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/class_person_segmenter.h"

#include <span>

#include <opencv2/core.hpp>

#include "vision/class_model.h"
#include "vision/picture_region.h"

namespace morva {

namespace {

constexpr int cellCount = ClassModel::side * ClassModel::side;
constexpr int classCount = 6;
constexpr int background = 0;
constexpr int hairClass = 1;
constexpr int faceSkinClass = 3;
/// The model's logits are shallow; doubled, they match reference mattes ten times better (mean
/// difference 0.008).
constexpr float sharpness = 2;

/// Runs the model on an input that `fill` writes. One row a cell, its classes' weights (not yet
/// shares of one) side by side.
template <class Fill>
Result<cv::Mat> classWeights(const InferenceModel& model, Fill fill) {
    auto session = model.session();
    if (!session) return tl::unexpected(session.error());
    fill(session->input());
    if (auto done = session->infer(); !done) return tl::unexpected(done.error());
    const auto logits = session->output(static_cast<std::size_t>(cellCount) * classCount);
    if (logits.empty()) return failure("The person model's output has an unexpected size.");
    const cv::Mat view(cellCount, classCount, CV_32FC1, const_cast<float*>(logits.data()));
    cv::Mat weights;
    view.convertTo(weights, CV_32F, sharpness);
    cv::exp(weights, weights);  // the logits stay within +-10, far from overflow
    return weights;
}

/// Share of class `wanted` in every cell.
std::vector<float> shares(const cv::Mat& weights, int wanted) {
    std::vector<float> result;
    result.reserve(cellCount);
    for (int cell = 0; cell < cellCount; ++cell) {
        const auto* weight = weights.ptr<float>(cell);
        float sum = 0;
        for (int c = 0; c < classCount; ++c) sum += weight[c];
        result.push_back(weight[wanted] / sum);
    }
    return result;
}

}  // namespace

Result<std::shared_ptr<const ClassPersonSegmenter>> ClassPersonSegmenter::load(
    InferenceEngine& engine, const std::filesystem::path& models) {
    std::shared_ptr<ClassPersonSegmenter> segmenter(new ClassPersonSegmenter);
    auto model = InferenceModel::load(engine, models / ClassModel::file,
                                      {1, ClassModel::side, ClassModel::side, 3});
    if (!model) return tl::unexpected(model.error());
    segmenter->model_ = *model;
    return segmenter;
}

Result<PersonMap> ClassPersonSegmenter::persons(const Picture& picture, const Rect& region) const {
    const Rect extent = wholePixelRect(region, picture);
    const auto weights = classWeights(*model_, [&](std::span<float> input) {
        sampleStretched(picture, extent, ClassModel::side, ClassModel::range, input);
    });
    if (!weights) return tl::unexpected(weights.error());
    PersonMap map{extent, ClassModel::side, shares(*weights, background),
                  shares(*weights, hairClass)};
    for (float& value : map.values) value = 1 - value;
    return map;
}

Result<RegionMap> ClassPersonSegmenter::faceSkin(const Picture& picture,
                                                 const PictureRegion& region) const {
    const auto weights = classWeights(*model_, [&](std::span<float> input) {
        sample(picture, region, ClassModel::side, ClassModel::range, input);
    });
    if (!weights) return tl::unexpected(weights.error());
    return RegionMap{region, ClassModel::side, shares(*weights, faceSkinClass)};
}

}  // namespace morva
