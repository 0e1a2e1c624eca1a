// SPDX-License-Identifier: GPL-3.0-or-later
// Decides whether the child of the main face holds a sign or a board: more than one line of text
// below the chin. Looks at where text lies, never at what it says. Called once a photo.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "analysis/analysis_image.h"
#include "analysis/close_ups.h"
#include "analysis/record/face_geometry.h"
#include "vision/text_detector.h"

namespace morva::SignDetector {

/// `faces` are all faces of the photo, the main one first, in source pixels; a line that belongs to
/// another face's child does not count. `closeUps` is asked where `image` is too coarse to show the
/// writing. False also when the detector fails.
bool detect(const TextDetector& detector, const AnalysisImage& image,
            const std::optional<CloseUps>& closeUps, std::span<const FaceGeometry> faces);

/// The lines that count, in source pixels, however many; a line may come in several words. Empty
/// also when the detector fails.
std::vector<TextLine> qualifyingLines(const TextDetector& detector, const AnalysisImage& image,
                                      const std::optional<CloseUps>& closeUps,
                                      std::span<const FaceGeometry> faces);

}  // namespace morva::SignDetector
