// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/plane_reduce.h"

#include <algorithm>
#include <cmath>

namespace morva {

namespace {

/// Weights down a column add up to this, so that 255 times it still fits 16 bits.
constexpr int downTotal = 256;
/// Weights along a row add up to this: downTotal * acrossTotal * 255 fits 32 bits.
constexpr int acrossTotal = 1 << 15;
constexpr int sumShift = 8 + 15;

struct Span {
    int first = 0;
    std::vector<std::uint16_t> weights;
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
        span.weights.push_back(static_cast<std::uint16_t>(upTo - before));
        before = upTo;
    }
    return span;
}

Span linearSpan(double center, int count, int total) {
    const double position = std::clamp(center - 0.5, 0.0, count - 1.0);
    const int first = static_cast<int>(position);
    const int second = static_cast<int>(std::lround((position - first) * total));
    Span span{first, {static_cast<std::uint16_t>(total - second)}};
    if (second > 0) span.weights.push_back(static_cast<std::uint16_t>(second));
    return span;
}

void addRow(const std::uint8_t* row, std::uint16_t weight, std::uint16_t* sums, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        sums[i] = static_cast<std::uint16_t>(sums[i] + row[i] * weight);
}

void startRow(const std::uint8_t* row, std::uint16_t weight, std::uint16_t* sums,
              std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) sums[i] = static_cast<std::uint16_t>(row[i] * weight);
}

/// `taps` is known to the compiler for the counts that matter, so that it unrolls the sum.
template <int taps>
void sumAcross(const std::uint16_t* sums, const ReduceTaps& across, std::uint8_t* out) {
    const std::uint16_t* weights = across.weights.data();
    const int count = taps > 0 ? taps : across.taps;
    for (const int first : across.first) {
        std::uint32_t sum = 1U << (sumShift - 1);
        for (int t = 0; t < count; ++t)
            sum += static_cast<std::uint32_t>(sums[first + t]) * weights[t];
        *out++ = static_cast<std::uint8_t>(sum >> sumShift);
        weights += count;
    }
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
        result.taps = std::max(result.taps, static_cast<int>(spans.back().weights.size()));
    }
    for (const Span& span : spans) {
        const int first = std::min(span.first, count - result.taps);
        const std::size_t start =
            result.weights.size() + static_cast<std::size_t>(span.first - first);
        result.first.push_back(first);
        result.weights.resize(result.weights.size() + static_cast<std::size_t>(result.taps));
        std::ranges::copy(span.weights,
                          result.weights.begin() + static_cast<std::ptrdiff_t>(start));
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
    const int columns = across_.first.back() + across_.taps - firstColumn_;
    for (int& first : across_.first) first -= firstColumn_;
    sums_.resize(static_cast<std::size_t>(columns));
}

void PlaneReducer::row(int y, std::uint8_t* out) {
    const auto index = static_cast<std::size_t>(y);
    const std::uint16_t* weights =
        down_.weights.data() + index * static_cast<std::size_t>(down_.taps);
    bool started = false;
    for (int t = 0; t < down_.taps; ++t) {
        if (weights[t] == 0) continue;
        const std::uint8_t* row = plane_.row(down_.first[index] + t) + firstColumn_;
        (started ? addRow : startRow)(row, weights[t], sums_.data(), sums_.size());
        started = true;
    }
    switch (across_.taps) {
        case 1:
            return sumAcross<1>(sums_.data(), across_, out);
        case 2:
            return sumAcross<2>(sums_.data(), across_, out);
        case 3:
            return sumAcross<3>(sums_.data(), across_, out);
        case 4:
            return sumAcross<4>(sums_.data(), across_, out);
        case 5:
            return sumAcross<5>(sums_.data(), across_, out);
        default:
            return sumAcross<0>(sums_.data(), across_, out);
    }
}

}  // namespace morva
