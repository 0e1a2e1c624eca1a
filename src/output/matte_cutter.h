// SPDX-License-Identifier: GPL-3.0-or-later
// The real `ChildCutter`: the main child of an analysed photo, by its mask and its matte. Made for
// one photo by the export flow; shares nothing but the detectors.
#pragma once

#include <filesystem>
#include <optional>
#include <stop_token>
#include <vector>

#include "analysis/record/image_analysis.h"
#include "output/cut_out.h"
#include "vision/vision_services.h"

namespace morva {

/// Where a backdrop's bright spot goes: the eyes of the main face, the middle of a head with its
/// hair. Nothing without a face.
std::optional<Point> headAnchorOf(const ImageAnalysis& analysis);

class MatteCutter final : public ChildCutter {
public:
    /// `faces` as the analysis of `photo` found them, the child's first; without any there is
    /// nobody to cut out. Once `stop` is requested, cutting out fails soon.
    MatteCutter(std::filesystem::path photo, std::vector<FaceGeometry> faces, VisionServices vision,
                std::stop_token stop = {});

    Result<std::optional<CutOut>> cutOut(DecodedRegion& photo) const override;

private:
    std::filesystem::path photo_;
    std::vector<FaceGeometry> faces_;
    VisionServices vision_;
    std::stop_token stop_;
};

}  // namespace morva
