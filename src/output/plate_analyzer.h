// SPDX-License-Identifier: GPL-3.0-or-later
// Looks once at each backdrop photograph: where it is brightest and where its floor begins. Called
// by `BackdropReplacer` from several threads and by the backdrop set-up. Remembers for the life of
// the process; a plate that cannot be read is looked at again the next time.
#pragma once

#include <filesystem>
#include <optional>

#include "base/geometry.h"
#include "imaging/raster.h"
#include "output/plate_placement.h"

namespace morva::PlateAnalyzer {

/// The middle of the brightest area above the floor, as fractions of width and height. Nothing for
/// a plate that is lit evenly or cannot be read.
std::optional<Point> hotSpot(const std::filesystem::path& url);

/// The height where the floor begins, as a fraction from the top. Nothing where no edge runs across
/// the plate, as on seamless paper, or where it cannot be read.
std::optional<double> floorLine(const std::filesystem::path& url);

/// Both, measured on the plate's pixels, of any size.
PlateMarks measure(const Picture& plate);

}  // namespace morva::PlateAnalyzer
