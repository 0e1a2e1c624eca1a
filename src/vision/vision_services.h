// SPDX-License-Identifier: GPL-3.0-or-later
// The detectors that the analysis uses, as one value that is passed in. Thread-safe; shared by all
// workers.
#pragma once

#include <filesystem>
#include <memory>

#include "base/result.h"
#include "vision/body_pose_detector.h"
#include "vision/face_detector.h"
#include "vision/feature_printer.h"
#include "vision/inference_model.h"
#include "vision/person_segmenter.h"
#include "vision/text_detector.h"

namespace morva {

struct VisionServices {
    std::shared_ptr<const FaceDetector> faces;
    std::shared_ptr<const PersonSegmenter> persons;
    std::shared_ptr<const BodyPoseDetector> bodies;
    std::shared_ptr<const TextDetector> text;
    /// Read only where poses were taught; photos get no tags without one.
    std::shared_ptr<const FeaturePrinter> prints;
    /// What the real detectors spend inside their models; null with scripted ones.
    std::shared_ptr<const InferenceTimer> timer;

    /// Loads the real detectors from `models`, keeping compiled models below `cache`. Takes about a
    /// second the first time on a machine. Fails with a sentence that says which model is missing
    /// or does not load.
    static Result<VisionServices> open(const std::filesystem::path& models,
                                       const std::filesystem::path& cache);

    /// Where the models are: "share/morva/models" of the installed program, else the folder of the
    /// build tree.
    static std::filesystem::path modelFolder();
};

}  // namespace morva
