// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysis needs of a person segmenter: how surely each place of a picture shows a person,
// and how surely the skin of a face.
#pragma once

#include <vector>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/raster.h"
#include "vision/picture_region.h"
#include "vision/region_map.h"

namespace morva {

/// Probability that a place shows a person with everything worn, and that it shows hair, on a
/// square grid stretched over `extent`.
struct PersonMap {
    /// Part of the picture that the grid covers, in pixels of the picture.
    Rect extent;
    int side = 0;
    /// `side` x `side` values from 0 to 1, rows from top to bottom.
    std::vector<float> values;
    /// Hair alone, in the same order; empty from a segmenter that does not tell hair apart.
    std::vector<float> hair{};
};

class PersonSegmenter {
public:
    virtual ~PersonSegmenter() = default;
    /// Looks at `region` (pixels of `picture`, clipped to it) alone. Fails only when the model
    /// cannot run. Safe to call from several threads at once.
    virtual Result<PersonMap> persons(const Picture& picture, const Rect& region) const = 0;
    /// How surely each place of `region` shows the skin of a face (lips, beard stubble and eyes
    /// included; neck, hair and clothes not). Looks at `region` alone; what lies outside the
    /// picture is black. Fails and may be called like `persons`.
    virtual Result<RegionMap> faceSkin(const Picture& picture,
                                       const PictureRegion& region) const = 0;
};

}  // namespace morva
