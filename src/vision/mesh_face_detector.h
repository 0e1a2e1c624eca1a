// SPDX-License-Identifier: GPL-3.0-or-later
// The real face detector: boxes from a whole-range model on the frame and on tiles, then a face
// mesh in three passes and a fourth on the mirrored window. A box whose mesh does not believe in
// itself is no face.
#pragma once

#include <filesystem>
#include <memory>

#include "vision/face_detector.h"
#include "vision/inference_model.h"

namespace morva {

class MeshFaceDetector final : public FaceDetector {
public:
    /// Loads its two models from `models`. Fails with a sentence that names the missing file.
    static Result<std::shared_ptr<const MeshFaceDetector>> load(
        InferenceEngine& engine, const std::filesystem::path& models);

    Result<std::vector<FaceObservation>> faces(const Picture& picture) const override;

private:
    MeshFaceDetector() = default;

    std::shared_ptr<const InferenceModel> boxes_;
    std::shared_ptr<const InferenceModel> mesh_;
};

}  // namespace morva
