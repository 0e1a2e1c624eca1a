// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace morva {

Point Point::midpoint(Point other) const { return {(x + other.x) / 2, (y + other.y) / 2}; }

double Point::distance(Point other) const { return std::hypot(x - other.x, y - other.y); }

Point Point::rotated(Point center, double degrees) const {
    const double angle = degrees * std::numbers::pi / 180;
    const double dx = x - center.x;
    const double dy = y - center.y;
    return {center.x + dx * std::cos(angle) - dy * std::sin(angle),
            center.y + dy * std::cos(angle) + dx * std::sin(angle)};
}

Point Point::scaled(double byX, double byY) const { return {x * byX, y * byY}; }

Point Point::operator+(Point other) const { return {x + other.x, y + other.y}; }

Point Point::operator-(Point other) const { return {x - other.x, y - other.y}; }

double Rect::maxX() const { return x + width; }

double Rect::maxY() const { return y + height; }

Point Rect::center() const { return {x + width / 2, y + height / 2}; }

std::array<Point, 4> Rect::corners() const {
    return {{{x, y}, {maxX(), y}, {maxX(), maxY()}, {x, maxY()}}};
}

bool Rect::isEmpty() const { return !(width > 0 && height > 0); }

Rect Rect::intersection(const Rect& other) const {
    const double left = std::max(x, other.x);
    const double top = std::max(y, other.y);
    const Rect common{left, top, std::min(maxX(), other.maxX()) - left,
                      std::min(maxY(), other.maxY()) - top};
    return common.isEmpty() ? Rect{} : common;
}

Rect Rect::bounding(const std::array<Point, 4>& points) {
    const auto [left, right] = std::minmax({points[0].x, points[1].x, points[2].x, points[3].x});
    const auto [top, bottom] = std::minmax({points[0].y, points[1].y, points[2].y, points[3].y});
    return {left, top, right - left, bottom - top};
}

}  // namespace morva
