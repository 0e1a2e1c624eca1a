// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/lanczos.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace morva::Lanczos {

namespace {

/// No side of a region, and no output, is longer: keeps all sums far inside an int.
constexpr double longestSide = 1 << 20;

double sinc(double x) {
    if (x == 0) return 1;
    const double angle = std::numbers::pi * x;
    return std::sin(angle) / angle;
}

double kernel(double x) { return std::abs(x) < lobes ? sinc(x) * sinc(x / lobes) : 0; }

}  // namespace

int margin(double step) { return static_cast<int>((lobes + 1) * std::max(step, 1.0)) + lobes + 1; }

bool isFeasible(const Rect& region, int width, int height) {
    const auto inRange = [](double value) { return std::abs(value) <= longestSide; };
    return inRange(region.x) && inRange(region.y) && inRange(region.width) &&
           inRange(region.height) && !region.isEmpty() && width > 0 && height > 0 &&
           inRange(width) && inRange(height);
}

Table::Table(double step)
    : taps_(2 * static_cast<int>(std::ceil(lobes * std::max(step, 1.0)))),
      weights_(static_cast<std::size_t>(taps_) * phases) {
    const double widening = std::max(step, 1.0);
    const int before = taps_ / 2 - 1;
    for (std::size_t phase = 0; phase < phases; ++phase) {
        float* const row = weights_.data() + phase * static_cast<std::size_t>(taps_);
        double sum = 0;
        std::vector<double> values(static_cast<std::size_t>(taps_));
        for (int tap = 0; tap < taps_; ++tap) {
            const double distance = tap - before - static_cast<double>(phase) / phases;
            sum += values[static_cast<std::size_t>(tap)] = kernel(distance / widening);
        }
        std::ranges::transform(values, row, [&](double v) { return static_cast<float>(v / sum); });
    }
}

Table::Walk Table::walk(double position, double step) const {
    const double one = std::ldexp(1, fractionBits);
    // Pixel centres lie half a pixel inside; half a phase more makes cutting off rounding.
    const int before = taps_ / 2 - 1;
    const double first = position - 0.5 - before + 0.5 / phases;
    Walk walk;
    walk.place_ = std::llround(first * one);
    walk.step_ = std::llround(step * one);
    walk.weights_ = weights_.data();
    walk.taps_ = static_cast<std::size_t>(taps_);
    return walk;
}

}  // namespace morva::Lanczos
