// SPDX-License-Identifier: GPL-3.0-or-later
// Batches of analysed photos for the tests of grouping and rules.
#pragma once

#include <optional>
#include <vector>

#include "crop/subject_grouping.h"
#include "crop/synthetic_portrait.h"

namespace morva::BatchTest {

/// The synthetic portrait taken at `time` seconds with a face of `unit` pixels.
inline ImageAnalysis frame(std::optional<double> time, double unit,
                           std::optional<int> rating = {}) {
    ImageAnalysis photo = Synthetic::portrait();
    FaceGeometry& face = photo.faces.front();
    face.chin = {face.eyeMidpoint().x, face.eyeMidpoint().y + unit};
    photo.captureTime = time;
    photo.rating = rating;
    return photo;
}

/// The batch as the operations take it; `photos` must outlive it.
inline std::vector<const ImageAnalysis*> pointers(const std::vector<ImageAnalysis>& photos) {
    std::vector<const ImageAnalysis*> batch;
    for (const ImageAnalysis& photo : photos) batch.push_back(&photo);
    return batch;
}

}  // namespace morva::BatchTest
