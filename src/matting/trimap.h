// SPDX-License-Identifier: GPL-3.0-or-later
// Which cells of a head's surroundings are surely child, surely backdrop, or open.
// Used inside this room only.
#pragma once

#include <opencv2/core.hpp>

namespace morva {

struct Trimap {
    static constexpr unsigned char backdrop = 0;
    static constexpr unsigned char open = 128;
    static constexpr unsigned char child = 255;

    /// One of the three values a cell.
    cv::Mat cells;
    /// Distance of each cell to the nearest one outside the person's outline, and to the nearest
    /// inside, in face units; 0 on the other side.
    cv::Mat depth;
    cv::Mat away;

    /// From the probability of the child and of hair (floats), on a grid of `unit` cells a face
    /// unit. The open band is wider near hair.
    static Trimap around(const cv::Mat& persons, const cv::Mat& hair, double unit);

    /// 1 where a cell has this value, else 0; floats.
    cv::Mat only(unsigned char value) const;
};

/// Distance of each cell to the nearest where `mask` is set, in units of `unit` cells; very far
/// where none is.
cv::Mat distanceTo(const cv::Mat& mask, double unit);

}  // namespace morva
