// SPDX-License-Identifier: GPL-3.0-or-later
// Which of the 468 points of the face mesh lie on what. "Left" and "right" are the picture's.
// Order and numbering: the published canonical face model of the mesh (MediaPipe, Apache-2.0).
#pragma once

#include <array>
#include <cstddef>

namespace morva::MeshPoints {

inline constexpr std::size_t count = 468;

inline constexpr std::size_t leftEyeOuterCorner = 33;
inline constexpr std::size_t rightEyeOuterCorner = 263;
inline constexpr std::size_t foreheadTop = 10;
inline constexpr std::size_t chinTip = 152;
inline constexpr std::size_t leftEar = 234;
inline constexpr std::size_t rightEar = 454;

/// From ear to ear under the chin.
inline constexpr std::array<std::size_t, 21> contour{234, 93,  132, 58,  172, 136, 150,
                                                     149, 176, 148, 152, 377, 400, 378,
                                                     379, 365, 397, 288, 361, 323, 454};
/// From the forehead to the chin.
inline constexpr std::array<std::size_t, 22> medianLine{
    10, 151, 9, 8, 168, 6, 197, 195, 5, 4, 1, 2, 164, 0, 13, 14, 17, 18, 200, 199, 175, 152};
inline constexpr std::array<std::size_t, 16> leftEye{33,  7,   163, 144, 145, 153, 154, 155,
                                                     133, 173, 157, 158, 159, 160, 161, 246};
inline constexpr std::array<std::size_t, 16> rightEye{263, 249, 390, 373, 374, 380, 381, 382,
                                                      362, 398, 384, 385, 386, 387, 388, 466};
inline constexpr std::array<std::size_t, 14> nose{1,  2,  4,   5,  98,  327, 94,
                                                  19, 97, 326, 45, 275, 220, 440};

}  // namespace morva::MeshPoints
