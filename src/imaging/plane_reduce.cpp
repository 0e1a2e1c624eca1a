// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/plane_reduce.h"

#include <algorithm>
#include <cmath>

namespace morva {

namespace {

struct Span {
    int first = 0;
    std::vector<std::int16_t> weights;
};

/// The mean of [low, high). Each pixel gets the difference of two rounded positions, so that the
/// weights add up exactly and their errors do not.
Span areaSpan(double low, double high, int count, int total) {
    Span span;
    span.first = std::min(static_cast<int>(low), count - 1);
    const int end = std::clamp(static_cast<int>(std::ceil(high)), span.first + 1, count);
    double before = 0;
    for (int i = span.first; i < end; ++i) {
        const double position = i + 1 == end ? high : i + 1;
        const double upTo = std::round((position - low) / (high - low) * total);
        span.weights.push_back(static_cast<std::int16_t>(upTo - before));
        before = upTo;
    }
    return span;
}

Span linearSpan(double center, int count, int total) {
    const double position = std::clamp(center - 0.5, 0.0, count - 1.0);
    const int first = static_cast<int>(position);
    const int second = static_cast<int>(std::lround((position - first) * total));
    Span span{first, {static_cast<std::int16_t>(total - second)}};
    if (second > 0) span.weights.push_back(static_cast<std::int16_t>(second));
    return span;
}

}  // namespace

ReduceTaps reduceTaps(int count, double cover, int target, int begin, int end, int total) {
    const double step = cover / target;
    std::vector<Span> spans;
    ReduceTaps result;
    for (int i = begin; i < end; ++i) {
        spans.push_back(step >= 1
                            ? areaSpan(i * step, std::min((i + 1) * step, cover), count, total)
                            : linearSpan((i + 0.5) * step, count, total));
        result.taps = std::max(result.taps, (spans.back().weights.size() + 3) / 4 * 4);
    }
    while (spans.size() % 4 != 0) spans.push_back({spans.back().first, {}});
    result.weights.resize(spans.size() * result.taps);
    auto weights = result.weights.begin();
    for (const Span& span : spans) {
        result.first.push_back(span.first);
        std::ranges::copy(span.weights, weights);
        weights += static_cast<std::ptrdiff_t>(result.taps);
    }
    return result;
}

PlaneReducer::PlaneReducer(const Plane& plane, int targetWidth, int targetHeight,
                           const PixelRect& part)
    : plane_(plane),
      across_(reduceTaps(plane.width, plane.coverWidth, targetWidth, part.x, part.x + part.width,
                         acrossTotal)),
      down_(reduceTaps(plane.height, plane.coverHeight, targetHeight, part.y, part.y + part.height,
                       downTotal)) {
    firstColumn_ = across_.first.front();
    const auto needed =
        static_cast<std::size_t>(across_.first.back() - firstColumn_) + across_.taps;
    columns_ = std::min(needed, static_cast<std::size_t>(plane.width - firstColumn_));
    for (int& first : across_.first) first -= firstColumn_;
    sums_.resize(needed);
}

void PlaneReducer::row(int y, std::uint8_t* out) {
    const auto index = static_cast<std::size_t>(y);
    const std::int16_t* weights = &down_.weights[index * down_.taps];
    rows_.clear();
    rowWeights_.clear();
    for (std::size_t t = 0; t < down_.taps; ++t) {
        if (weights[t] == 0) continue;
        rows_.push_back(plane_.row(down_.first[index] + static_cast<int>(t)) + firstColumn_);
        rowWeights_.push_back(weights[t]);
    }
    sumDown(rows_, rowWeights_, sums_.data(), columns_);
    sumAcross(sums_.data(), across_, out);
}

}  // namespace morva
