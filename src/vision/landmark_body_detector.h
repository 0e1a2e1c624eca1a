// SPDX-License-Identifier: GPL-3.0-or-later
// The real body detector: a person detector on the whole frame says where each body is, a landmark
// model measures one body at a time in a window at its own scale.
#pragma once

#include <filesystem>
#include <memory>

#include "vision/body_pose_detector.h"
#include "vision/inference_model.h"

namespace morva {

class LandmarkBodyDetector final : public BodyPoseDetector {
public:
    static Result<std::shared_ptr<const LandmarkBodyDetector>> load(
        InferenceEngine& engine, const std::filesystem::path& models);

    Result<std::vector<BodyObservation>> bodies(const Picture& picture,
                                                std::span<const Rect> faces) const override;

private:
    LandmarkBodyDetector() = default;

    std::shared_ptr<const InferenceModel> persons_;
    std::shared_ptr<const InferenceModel> landmarks_;
};

}  // namespace morva
