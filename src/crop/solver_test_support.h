// SPDX-License-Identifier: GPL-3.0-or-later
// What the solver's tests share: a portrait and a preset with one thing changed, and rectangles
// compared with a tolerance.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "crop/crop_solver.h"
#include "crop/synthetic_portrait.h"

namespace morva::SolverTest {

using Reasons = std::vector<ReviewReason>;
using Notes = std::vector<std::string>;
using ChangePhoto = std::function<void(ImageAnalysis&)>;
using ChangePreset = std::function<void(CropPreset&)>;

inline ImageAnalysis photoWith(const ChangePhoto& change) {
    ImageAnalysis photo = Synthetic::portrait();
    if (change) change(photo);
    return photo;
}

inline CropPreset presetWith(const ChangePreset& change) {
    CropPreset preset = Synthetic::preset();
    if (change) change(preset);
    return preset;
}

inline CropSolution solved(const ChangePhoto& photo, const ChangePreset& preset = {}) {
    return CropSolver::solve(photoWith(photo), presetWith(preset));
}

inline void expectRect(const Rect& rect, const Rect& expected, double tolerance = 1e-6) {
    EXPECT_NEAR(rect.x, expected.x, tolerance);
    EXPECT_NEAR(rect.y, expected.y, tolerance);
    EXPECT_NEAR(rect.width, expected.width, tolerance);
    EXPECT_NEAR(rect.height, expected.height, tolerance);
}

/// A child whose outline asks the plain crop for this zoom on one side. The crop's clearance is 32,
/// its pivot lies 800 from the sides and 1000 from top and bottom.
inline Rect askingFor(double zoom, char side) {
    Rect box{1500, 1400, 1000, 1400};
    const double sideways = 768 + 800 * (zoom - 1);
    const double upright = 968 + 1000 * (zoom - 1);
    if (side == 'l') box = {2000 - sideways, 1400, 400 + sideways, 1400};
    if (side == 'r') box.width = 500 + sideways;
    if (side == 't') box = {1500, 2100 - upright, 1000, upright};
    if (side == 'b') box.height = 700 + upright;
    return box;
}

}  // namespace morva::SolverTest
