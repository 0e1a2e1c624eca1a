// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysis needs of a face detector: every face with its box, its landmarks and how sure
// both are.
#pragma once

#include <optional>
#include <vector>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/raster.h"

namespace morva {

/// Landmarks of one face, in pixels of the picture searched.
struct FaceLandmarks {
    /// 0 to 1.
    double confidence = 0;
    /// Outline of the eye at the picture's left, and of the one at its right.
    std::vector<Point> leftEye;
    std::vector<Point> rightEye;
    /// From the forehead to the chin.
    std::vector<Point> medianLine;
    /// From one ear under the chin to the other. Measured independently of `medianLine`.
    std::vector<Point> contour;
    std::vector<Point> nose;
};

struct FaceObservation {
    /// From brow to chin, roughly square, in pixels of the picture searched.
    Rect box;
    /// 0 to 1.
    double confidence = 0;
    /// Turn of the head: negative toward the picture's left. Nod: positive downward. Degrees.
    std::optional<double> yawDegrees;
    std::optional<double> pitchDegrees;
    std::optional<FaceLandmarks> landmarks;
};

class FaceDetector {
public:
    virtual ~FaceDetector() = default;
    /// Every face in an upright picture, in no order that matters. Fails only when the detector
    /// cannot run. Safe to call from several threads at once.
    virtual Result<std::vector<FaceObservation>> faces(const Picture& picture) const = 0;
};

}  // namespace morva
