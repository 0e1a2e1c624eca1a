// SPDX-License-Identifier: GPL-3.0-or-later
// Measures a finished portrait that a preset is to be modelled on. Called when the user picks a
// reference; changes no preset itself.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include <tl/expected.hpp>

#include "analysis/record/image_analysis.h"
#include "model/presets/reference_geometry.h"
#include "vision/vision_services.h"

namespace morva::ReferenceAnalyzer {

enum class Failure { noFace, unreadable };

/// One sentence for a person.
std::string message(Failure failure);

struct Measured {
    ReferenceGeometry reference;
    ImageAnalysis analysis;
};

/// Analyses the image like any photo and measures its main face and head.
tl::expected<Measured, Failure> measure(const std::filesystem::path& file,
                                        const VisionServices& vision);

/// The measurement of an analysed image, as shares of its size. `imageSize` in pixels, above zero;
/// `date` in seconds since 1970. The head top is left out where the outline is not reliable.
ReferenceGeometry measure(const FaceGeometry& face, const std::optional<HeadContent>& head,
                          Size imageSize, const std::string& name, double date);

}  // namespace morva::ReferenceAnalyzer
