// SPDX-License-Identifier: GPL-3.0-or-later
// Decides whether the child of the main face holds a sign or a board: more than one line of text
// below the chin. Looks at where text lies, never at what it says. Called once a photo.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "analysis/analysis_image.h"
#include "analysis/record/face_geometry.h"
#include "vision/text_detector.h"

namespace morva::SignDetector {

/// The photo at any size up to that of its pixels, from which only a part is ever made.
struct CloseUps {
    /// Longer side of the photo at its finest, pixels.
    int finestSide = 0;
    /// Size of the whole photo when its longer side has `longestSide` pixels.
    std::function<Size(int longestSide)> size;
    /// The pixels [x, x + width) x [y, y + height) of that; always asked for inside it.
    std::function<Picture(int longestSide, int x, int y, int width, int height)> cut;
};

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
