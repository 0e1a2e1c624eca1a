// SPDX-License-Identifier: GPL-3.0-or-later
// Points, sizes and rectangles in doubles; origin top-left, x to the right, y downward.
// Everything that measures or places a crop speaks in these; pixels of the upright photo unless
// said otherwise.
#pragma once

#include <array>

namespace morva {

struct Point {
    double x = 0;
    double y = 0;

    Point midpoint(Point other) const;
    /// Euclidean distance.
    double distance(Point other) const;
    /// Turned about `center`; positive degrees turn clockwise as seen (y grows downward).
    Point rotated(Point center, double degrees) const;
    Point scaled(double byX, double byY) const;

    Point operator+(Point other) const;
    Point operator-(Point other) const;
    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;

    bool operator==(const Size&) const = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double maxX() const;
    double maxY() const;
    Point center() const;
    /// Top-left, top-right, bottom-right, bottom-left.
    std::array<Point, 4> corners() const;
    bool isEmpty() const;
    /// The common part; empty (all zero) when there is none.
    Rect intersection(const Rect& other) const;
    /// The smallest upright rectangle that holds all four points.
    static Rect bounding(const std::array<Point, 4>& points);

    bool operator==(const Rect&) const = default;
};

}  // namespace morva
