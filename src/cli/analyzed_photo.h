// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "analysis/record/image_analysis.h"
#include "base/result.h"
#include "cli/arguments.h"
#include "vision/vision_services.h"

namespace morva {

/// The detectors for `AnalyzedPhoto::of`; from here on the poses taught in the data folder are
/// recognised. Fails with a sentence that says which model is missing.
Result<VisionServices> openDetectors(const Arguments& common);

/// What is kept of a photo between its analysis and its crop: numbers, never pixels.
struct AnalyzedPhoto {
    ImageAnalysis analysis;
    /// Which frames can belong together: the camera that the photo names, else what its file name
    /// says.
    std::string camera;

    /// What `camera` is for a photo.
    static std::string cameraOf(const std::filesystem::path& photo);

    /// What other photos of a batch can depend on without a look at its pixels: the camera, the
    /// stars and the time. Safe to call from several threads at once; never throws.
    static AnalyzedPhoto unmeasured(const std::filesystem::path& photo);

    /// Measures one photo. Its stars and its time count also where the picture cannot be read. Safe
    /// to call from several threads at once; never throws, what went wrong stands in the record.
    static AnalyzedPhoto of(const std::filesystem::path& photo, const VisionServices& vision);
};

}  // namespace morva
