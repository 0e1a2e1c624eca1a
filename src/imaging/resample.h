// SPDX-License-Identifier: GPL-3.0-or-later
// Scaling and turning with Lanczos filters on regions that do not lie on whole pixels. Called by
// the exporter, the previews and the analysers. Thread-safe; each call stays on its own thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/raster.h"

namespace morva {

/// What lies around a photo, without end.
struct Surroundings {
    /// Red, green, blue outside the photo; absent: the border pixels repeat outward.
    std::optional<std::array<std::uint8_t, 3>> color;
    /// Where the photo ends, in pixels of the picture; absent: where the picture ends. An edge
    /// inside a pixel shares that pixel between photo and colour.
    std::optional<Rect> photo;
};

/// A turn of the photo, as in `Leveling`.
struct Turn {
    /// In pixels of the picture; may lie outside it.
    Point center;
    double degrees = 0;
};

/// Cuts `region` (in pixels of `picture`, fractions allowed; it may reach outside, where the border
/// pixels repeat) and scales it to width x height with a Lanczos filter of three lobes in one pass,
/// as wide as reducing needs. The filter reads the picture's pixels beyond the region's border.
/// Fails on an empty or monstrous region or size.
Result<Picture> resampled(const Picture& picture, const Rect& region, int width, int height);

/// The same with other surroundings.
Result<Picture> resampled(const Picture& picture, const Rect& region,
                          const Surroundings& surroundings, int width, int height);

/// The same for a region of the levelled frame: a photo point p appears at
/// `Leveling::level(p, turn.center, turn.degrees)`. Every output pixel is filtered once per axis
/// straight from the source pixels, at its exact place.
Result<Picture> resampled(const Picture& picture, const Rect& region, const Turn& turn,
                          const Surroundings& surroundings, int width, int height);

}  // namespace morva
