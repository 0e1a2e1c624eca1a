// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/head_outline.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/head_protector.h"

namespace morva {

namespace {

constexpr double sideReach = 2.2;
constexpr double upReach = 2.6;
constexpr double seedReach = 0.35;
constexpr double shortestRun = 0.04;
constexpr double shortestRise = 0.03;

/// The search region and which of its pixels belong to the head.
struct Window {
    int left, top, right, bottom;  // inclusive
    std::vector<char> head;

    int width() const { return right - left + 1; }
    char& at(int x, int y) { return head[index(x, y)]; }
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y - top) * static_cast<std::size_t>(width()) +
               static_cast<std::size_t>(x - left);
    }
};

int clamped(double value, int limit) {
    return std::clamp(static_cast<int>(std::floor(value)), 0, limit - 1);
}

/// Marks what is connected with the face on the eye row: neighbours on all eight sides, and upward
/// also across a gap.
void flood(const Mask& mask, Window& window, Point eyes, double unitX, int gap) {
    std::vector<Point> open;
    const auto visit = [&](int x, int y) {
        if (x < window.left || x > window.right || y < window.top || y > window.bottom) return;
        if (window.at(x, y) != 0 || *mask.pixel(x, y) < HeadProtector::personThreshold) return;
        window.at(x, y) = 1;
        open.push_back({static_cast<double>(x), static_cast<double>(y)});
    };
    for (int x = clamped(eyes.x - seedReach * unitX, mask.width());
         x <= clamped(eyes.x + seedReach * unitX, mask.width()); ++x) {
        visit(x, window.bottom);
    }
    while (!open.empty()) {
        const int x = static_cast<int>(open.back().x);
        const int y = static_cast<int>(open.back().y);
        open.pop_back();
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) visit(x + dx, y + dy);
        }
        for (int step = 2; step <= gap + 1; ++step) visit(x, y - step);
    }
}

struct Run {
    int from = 0;
    int length = 0;
};

Run longestRun(Window& window, int y) {
    Run best;
    Run current;
    for (int x = window.left; x <= window.right; ++x) {
        if (window.at(x, y) == 0) {
            current.length = 0;
            continue;
        }
        if (current.length++ == 0) current.from = x;
        if (current.length > best.length) best = current;
    }
    return best;
}

/// Where the mask crosses the threshold between the row above `y` and `y`, at column `x`: finer
/// than a mask pixel.
double crossingAbove(const Mask& mask, int x, int y) {
    if (y == 0) return 0;
    const double outside = *mask.pixel(x, y - 1);
    const double inside = *mask.pixel(x, y);
    if (!(inside > outside)) return y;
    const double share =
        std::clamp((HeadProtector::personThreshold - outside) / (inside - outside), 0.0, 1.0);
    return y - 0.5 + share;
}

}  // namespace

HeadOutline headOutline(const Mask& mask, Point eyes, double unitX, double unitY) {
    const int eyeRow = clamped(eyes.y, mask.height());
    const double limit = eyes.y - upReach * unitY;
    Window window{clamped(eyes.x - sideReach * unitX, mask.width()),
                  clamped(limit, mask.height()),
                  clamped(eyes.x + sideReach * unitX, mask.width()),
                  eyeRow,
                  {}};
    window.head.resize(static_cast<std::size_t>(window.width()) *
                       static_cast<std::size_t>(eyeRow - window.top + 1));
    const int run = std::max(static_cast<int>(shortestRun * unitX), 2);
    const int rise = std::max(static_cast<int>(shortestRise * unitY), 2);
    flood(mask, window, eyes, unitX, rise);

    HeadOutline outline{eyes.y, eyes.x, eyes.x, eyes.x};
    for (int y = window.bottom; y >= window.top; --y) {
        const Run widest = longestRun(window, y);
        if (widest.length < run) continue;
        outline.topX = widest.from + widest.length / 2.0;
        outline.topY = crossingAbove(mask, widest.from + widest.length / 2, y);
        for (int x = window.left; x <= window.right; ++x) {
            if (window.at(x, y) == 0) continue;
            outline.leftX = std::min(outline.leftX, static_cast<double>(x));
            outline.rightX = std::max(outline.rightX, x + 1.0);
        }
    }
    outline.runaway = limit > 0 && longestRun(window, window.top).length >= run;
    return outline;
}

}  // namespace morva
