// SPDX-License-Identifier: GPL-3.0-or-later
// The real text detector: a model that maps how likely each pixel lies in the core of a line, from
// which the lines are read as turned rectangles.
#pragma once

#include <filesystem>
#include <memory>
#include <span>

#include "vision/inference_model.h"
#include "vision/text_detector.h"

namespace morva {

class MapTextDetector final : public TextDetector {
public:
    static Result<std::shared_ptr<const MapTextDetector>> load(InferenceEngine& engine,
                                                               const std::filesystem::path& models);

    Result<std::vector<TextLine>> lines(const Picture& picture) const override;
    int sharpestSide() const override;

    /// The lines in a map of `width` x `height` likelihoods, in the map's pixels.
    static std::vector<TextLine> linesInMap(std::span<const float> map, int width, int height);

private:
    MapTextDetector() = default;

    std::shared_ptr<const InferenceModel> square_;
    /// Half as high, for flat pictures.
    std::shared_ptr<const InferenceModel> flat_;
};

}  // namespace morva
