// SPDX-License-Identifier: GPL-3.0-or-later
// The chin as the lower end of the face's skin: a measurement that owes nothing to the landmarks'
// idea of a face. Used for the main face only, in place of the landmarks' own median line.
#pragma once

#include "analysis/analysis_image.h"
#include "analysis/record/face_geometry.h"
#include "vision/person_segmenter.h"

namespace morva {

/// `face` with `chinFromMedianLine` where the face's skin ends on the median line below the mouth,
/// and `chin` halfway between that and the contour's estimate. `face` unchanged when no border is
/// seen (a long beard, a hidden chin) or the segmenter cannot run. All in source pixels.
FaceGeometry withSkinChin(const PersonSegmenter& segmenter, const AnalysisImage& image,
                          const FaceGeometry& face);

}  // namespace morva
