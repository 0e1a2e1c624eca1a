// SPDX-License-Identifier: GPL-3.0-or-later
// The face mesh of one face: where its window lies, how the passes follow one another, what they
// yield.
#pragma once

#include <optional>
#include <vector>

#include "base/result.h"
#include "imaging/raster.h"
#include "vision/face_boxes.h"
#include "vision/face_detector.h"
#include "vision/inference_model.h"

namespace morva::FaceMesh {

/// Side of the model's square input, pixels.
inline constexpr int inputSide = 192;
/// Below this the mesh does not believe that it looks at a face.
inline constexpr double believed = 0.5;

struct Measured {
    FaceLandmarks landmarks;
    double yawDegrees = 0;
    double pitchDegrees = 0;
    /// What the mesh says of itself, 0 to 1.
    double flag = 0;
};

/// Three passes from `box`, each in the window that the one before it found, and a fourth on the
/// mirrored window, from which the median line is taken. Nothing when the second pass does not
/// believe in the face. Points in pixels of `picture`.
Result<std::optional<Measured>> measured(const InferenceModel& model, const Picture& picture,
                                         const FaceBox& box);

}  // namespace morva::FaceMesh
