// SPDX-License-Identifier: GPL-3.0-or-later
// The model of six classes that draws the person map and, from its inner layers, the feature print.
#pragma once

#include "vision/picture_region.h"

namespace morva::ClassModel {

inline constexpr const char* file = "selfie_multiclass_256x256.tflite";
/// Width and height of its square input.
inline constexpr int side = 256;
inline constexpr InputRange range{-1, 1};

}  // namespace morva::ClassModel
