// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/class_person_segmenter.h"

#include <cmath>
#include <span>

#include "vision/picture_region.h"

namespace morva {

namespace {

constexpr int inputSide = 256;
constexpr std::size_t classCount = 6;
constexpr std::size_t background = 0;
constexpr std::size_t faceSkinClass = 3;
constexpr InputRange inputRange{-1, 1};
/// The model's logits are shallow; doubled, they match reference mattes ten times better (mean
/// difference 0.008).
constexpr float sharpness = 2;

/// Probability of one class.
float probability(const float* logits, std::size_t wanted) {
    float sum = 0;
    for (std::size_t c = 0; c < classCount; ++c) {
        sum += std::exp(sharpness * (logits[c] - logits[wanted]));
    }
    return 1 / sum;
}

/// Runs the model on an input that `fill` writes and hands the logits of every cell to `read`.
template <class Fill, class Read>
Result<std::vector<float>> run(const InferenceModel& model, Fill fill, Read read) {
    auto session = model.session();
    if (!session) return tl::unexpected(session.error());
    fill(session->input());
    if (auto done = session->infer(); !done) return tl::unexpected(done.error());
    constexpr std::size_t cells = static_cast<std::size_t>(inputSide) * inputSide;
    const auto logits = session->output(cells * classCount);
    if (logits.empty()) return failure("The person model's output has an unexpected size.");
    std::vector<float> values(cells);
    for (std::size_t i = 0; i < cells; ++i) values[i] = read(logits.data() + i * classCount);
    return values;
}

}  // namespace

Result<std::shared_ptr<const ClassPersonSegmenter>> ClassPersonSegmenter::load(
    InferenceEngine& engine, const std::filesystem::path& models) {
    std::shared_ptr<ClassPersonSegmenter> segmenter(new ClassPersonSegmenter);
    auto model = InferenceModel::load(engine, models / "selfie_multiclass_256x256.tflite",
                                      {1, inputSide, inputSide, 3});
    if (!model) return tl::unexpected(model.error());
    segmenter->model_ = *model;
    return segmenter;
}

Result<PersonMap> ClassPersonSegmenter::persons(const Picture& picture, const Rect& region) const {
    const Rect extent = wholePixelRect(region, picture);
    auto values = run(
        *model_,
        [&](std::span<float> input) {
            sampleStretched(picture, extent, inputSide, inputRange, input);
        },
        [](const float* logits) { return 1 - probability(logits, background); });
    if (!values) return tl::unexpected(values.error());
    return PersonMap{extent, inputSide, std::move(*values)};
}

Result<FaceSkinMap> ClassPersonSegmenter::faceSkin(const Picture& picture,
                                                   const PictureRegion& region) const {
    auto values = run(
        *model_,
        [&](std::span<float> input) { sample(picture, region, inputSide, inputRange, input); },
        [](const float* logits) { return probability(logits, faceSkinClass); });
    if (!values) return tl::unexpected(values.error());
    return FaceSkinMap{region, inputSide, std::move(*values)};
}

}  // namespace morva
