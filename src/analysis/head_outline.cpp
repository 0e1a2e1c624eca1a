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
    char* row(int y) {
        return head.data() + static_cast<std::size_t>(y - top) * static_cast<std::size_t>(width());
    }
};

int clamped(double value, int limit) {
    return std::clamp(static_cast<int>(std::floor(value)), 0, limit - 1);
}

/// Marks what is connected with the face on the eye row: neighbours on all eight sides, and upward
/// also across a gap. Goes by runs of a row, since a head is a few hundred of them and a hundred
/// thousand pixels.
class Flood {
public:
    Flood(const Mask& mask, Window& window, int gap) : mask_(mask), window_(window), gap_(gap) {}

    void from(int left, int right) {
        visit(left, right, window_.bottom);
        while (!open_.empty()) {
            const Span span = open_.back();
            open_.pop_back();
            visit(span.left - 1, span.right + 1, span.y + 1);
            visit(span.left - 1, span.right + 1, span.y - 1);
            for (int step = 2; step <= gap_ + 1; ++step)
                visit(span.left, span.right, span.y - step);
        }
    }

private:
    struct Span {
        int left, right, y;  // inclusive
    };

    bool isFree(const std::uint8_t* person, const char* head, int x) const {
        return head[x - window_.left] == 0 && person[x] >= HeadProtector::personThreshold;
    }

    /// Marks every run of the row that reaches into [left, right].
    void visit(int left, int right, int y) {
        if (y < window_.top || y > window_.bottom) return;
        const std::uint8_t* person = mask_.pixel(0, y);
        char* head = window_.row(y);
        const int end = std::min(right, window_.right);
        for (int x = std::max(left, window_.left); x <= end; ++x) {
            if (!isFree(person, head, x)) continue;
            Span span{x, x, y};
            while (span.left > window_.left && isFree(person, head, span.left - 1)) --span.left;
            while (span.right < window_.right && isFree(person, head, span.right + 1)) ++span.right;
            std::fill(head + span.left - window_.left, head + span.right + 1 - window_.left, 1);
            open_.push_back(span);
            x = span.right;
        }
    }

    const Mask& mask_;
    Window& window_;
    int gap_;
    std::vector<Span> open_;
};

struct Run {
    int from = 0;
    int length = 0;
};

Run longestRun(Window& window, int y) {
    Run best;
    Run current;
    const char* head = window.row(y);
    for (int x = window.left; x <= window.right; ++x) {
        if (head[x - window.left] == 0) {
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
    Flood(mask, window, rise)
        .from(clamped(eyes.x - seedReach * unitX, mask.width()),
              clamped(eyes.x + seedReach * unitX, mask.width()));

    HeadOutline outline{eyes.y, eyes.x, eyes.x, eyes.x};
    for (int y = window.bottom; y >= window.top; --y) {
        const Run widest = longestRun(window, y);
        if (widest.length < run) continue;
        outline.topX = widest.from + widest.length / 2.0;
        outline.topY = crossingAbove(mask, widest.from + widest.length / 2, y);
        const char* head = window.row(y);
        const char* end = head + window.width();
        const auto first = std::find(head, end, 1) - head;
        const auto last =
            end - std::find(std::reverse_iterator(end), std::reverse_iterator(head), 1).base();
        outline.leftX = std::min<double>(outline.leftX, window.left + static_cast<int>(first));
        outline.rightX =
            std::max<double>(outline.rightX, window.right + 1 - static_cast<int>(last));
    }
    outline.runaway = limit > 0 && longestRun(window, window.top).length >= run;
    return outline;
}

}  // namespace morva
