// SPDX-License-Identifier: GPL-3.0-or-later
// Which of the bodies that a detector sees belongs to the main face, and which of its joints are
// believed. The pipeline calls it once a photo; it never guesses a joint.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "analysis/analysis_image.h"
#include "analysis/record/body_geometry.h"
#include "analysis/record/face_geometry.h"
#include "base/result.h"
#include "vision/body_pose_detector.h"

namespace morva::BodyAnalyzer {

/// A joint is kept only when its confidence is greater.
inline constexpr float minimumJointConfidence = 0.3F;

/// The bodies of the main face (the first of `faces`, which must not be empty) and of those near
/// enough for their bodies to touch or cover the main one's, in pixels of `image`. Fails when the
/// detector fails.
Result<std::vector<BodyObservation>> observe(const BodyPoseDetector& detector,
                                             const AnalysisImage& image,
                                             std::span<const FaceGeometry> faces);

/// The joints of the body below the main face (the first of `faces`, which must not be empty), in
/// source pixels; nothing when no body hangs below it, or when the one that does hangs rather
/// below another face.
std::optional<BodyGeometry> detect(std::span<const BodyObservation> bodies,
                                   const AnalysisImage& image, std::span<const FaceGeometry> faces);

/// Whether the eyes of `body` are those of `face`.
bool isSamePerson(const BodyObservation& body, const AnalysisImage& image,
                  const FaceGeometry& face);

}  // namespace morva::BodyAnalyzer
