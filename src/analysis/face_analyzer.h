// SPDX-License-Identifier: GPL-3.0-or-later
// Turns what a face detector reports into face geometry in source pixels. Holds the rules; the
// detector holds the models. The geometry is judged later, by the confidence scorer.
#pragma once

#include <vector>

#include "analysis/close_ups.h"
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

/// `face` averaged with a second detection around it in a close-up, where that agrees with the
/// first; else `face` unchanged. The close-up is taken from the photo at `maxPixel` along its
/// longer side, or less where the face is finer there than landmarks are measured. Never fails.
FaceGeometry refine(const FaceDetector& detector, const FaceGeometry& face,
                    const CloseUps& closeUps, int maxPixel, Size sourceSize);

}  // namespace morva::FaceAnalyzer
