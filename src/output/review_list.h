// SPDX-License-Identifier: GPL-3.0-or-later
// The list of every photo that waits on the user, with the canvas that each one lacks, as
// comma-separated text for whoever extends backdrops by hand. Built on request.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "analysis/record/canvas_shortfall.h"
#include "base/geometry.h"

namespace morva::ReviewList {

/// One photo that waits.
struct Item {
    std::filesystem::path file;
    std::string status;
    /// Titles of its review reasons.
    std::vector<std::string> issues;
    std::optional<CanvasShortfall> canvas;
    /// Absent without an analysis.
    std::optional<Size> size;
};

std::string csv(std::span<const Item> items);

}  // namespace morva::ReviewList
