// SPDX-License-Identifier: GPL-3.0-or-later
// Turns what a face detector reports into face geometry in source pixels. Holds the rules; the
// detector holds the models. The geometry is judged later, by the confidence scorer.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "analysis/record/face_geometry.h"
#include "base/result.h"
#include "imaging/raster.h"
#include "vision/face_detector.h"

namespace morva::FaceAnalyzer {

/// Every face of `image` that has complete landmarks, in source pixels, largest face unit first;
/// faces of equal size keep the detector's order. `sourceSize` is what the whole image covers.
/// Fails when the detector fails.
Result<std::vector<FaceGeometry>> detectFaces(const FaceDetector& detector, const Picture& image,
                                              Size sourceSize);

/// A larger picture of the photo from which only a part is ever made.
struct RefineSource {
    int width = 0;
    int height = 0;
    /// The pixels [x, x + width) x [y, y + height); always asked for inside the picture.
    std::function<Picture(int x, int y, int width, int height)> cut;
};

/// `face` averaged with a second detection around it in the larger picture, where that agrees with
/// the first; else `face` unchanged. Never fails.
FaceGeometry refine(const FaceDetector& detector, const FaceGeometry& face,
                    const RefineSource& source, Size sourceSize);

}  // namespace morva::FaceAnalyzer
