// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <new>
#include <vector>

#include <opencv2/core.hpp>
#include <opencv2/core/hal/intrin.hpp>

#include "base/leveling.h"
#include "imaging/canvas_rows.h"
#include "imaging/lanczos.h"
#include "imaging/mat_view.h"
#include "imaging/resample.h"

// A turn by at most half a right angle is two one-dimensional filters: along the rows of the source
// to the output's columns, then down these columns to the output's rows. The columns lean, so the
// filter's phase differs from row to row and from column to column. Work goes in narrow blocks of
// output columns, whose intermediate values stay in the cache and are never rounded.

namespace morva {

namespace {

constexpr int blockWidth = 128;

/// Floats a pixel, the last one unused: one vector register.
constexpr int lanes = 4;

/// Where a point (u, v) of the output lies in the picture; both count from the corner in pixels.
struct Placement {
    Point origin;
    Point alongRow;
    Point alongColumn;

    Placement(const Rect& region, const Turn& turn, int width, int height) {
        const auto at = [&](double x, double y) {
            return Leveling::unlevel({x, y}, turn.center, turn.degrees);
        };
        origin = at(region.x, region.y);
        alongRow = (at(region.maxX(), region.y) - origin).scaled(1.0 / width, 1.0 / width);
        alongColumn = (at(region.x, region.maxY()) - origin).scaled(1.0 / height, 1.0 / height);
    }

    double y(double u, double v) const { return origin.y + alongRow.y * u + alongColumn.y * v; }
    /// The x at which the output's line u = constant crosses the picture's line y = constant.
    double xWhere(double u, double y) const {
        const double v = (y - origin.y - alongRow.y * u) / alongColumn.y;
        return origin.x + alongRow.x * u + alongColumn.x * v;
    }
    /// Picture pixels along a row from one output column to the next.
    double stepAlongRow() const { return xWhere(1, 0) - xWhere(0, 0); }
};

/// The values of one block between the two filters.
struct Block {
    int firstRow = 0;
    int rowCount = 0;
    std::vector<float> values;

    /// The rows that the block's output needs.
    void cover(const Placement& place, double left, double right, int height, int taps) {
        const auto [top, bottom] = std::minmax(
            {place.y(left, 0), place.y(right, 0), place.y(left, height), place.y(right, height)});
        firstRow = static_cast<int>(std::floor(top)) - taps;
        rowCount = static_cast<int>(std::ceil(bottom)) + taps - firstRow;
        values.resize(static_cast<std::size_t>(rowCount) * blockWidth * lanes);
    }
    float* at(int row, int column) {
        return values.data() +
               (static_cast<std::ptrdiff_t>(row - firstRow) * blockWidth + column) * lanes;
    }
};

/// Sum of `taps` pixels of four floats, `stride` floats apart, each times its weight.
cv::v_float32x4 weighted(const float* pixels, std::ptrdiff_t stride, const float* weights,
                         int taps) {
    // Two sums, for one would wait for itself; the number of taps is even.
    cv::v_float32x4 even = cv::v_setzero_f32();
    cv::v_float32x4 odd = cv::v_setzero_f32();
    for (int tap = 0; tap < taps; tap += 2, pixels += 2 * stride) {
        even = cv::v_muladd(cv::v_load(pixels), cv::v_setall_f32(weights[tap]), even);
        odd = cv::v_muladd(cv::v_load(pixels + stride), cv::v_setall_f32(weights[tap + 1]), odd);
    }
    return even + odd;
}

/// The four bytes at `bytes`, which need not be aligned.
cv::v_float32x4 fourFloats(const std::uint8_t* bytes) {
    unsigned four = 0;
    std::memcpy(&four, bytes, sizeof four);
    cv::v_uint16x8 words, unusedWords;
    cv::v_expand(cv::v_reinterpret_as_u8(cv::v_setall_u32(four)), words, unusedWords);
    cv::v_uint32x4 values, unusedValues;
    cv::v_expand(words, values, unusedValues);
    return cv::v_cvt_f32(cv::v_reinterpret_as_s32(values));
}

class TurnedResampler {
public:
    TurnedResampler(const Picture& picture, const Surroundings& surroundings,
                    const Placement& place, Picture& output)
        : canvas_(picture, surroundings),
          place_(place),
          output_(output),
          alongRows_(place.stepAlongRow()),
          downColumns_(place.alongColumn.y) {}

    void run() {
        for (int left = 0; left < output_.width(); left += blockWidth) {
            const int columns = std::min(blockWidth, output_.width() - left);
            block_.cover(place_, left, left + columns, output_.height(), downColumns_.taps());
            for (int i = 0; i < block_.rowCount; ++i) filterRow(block_.firstRow + i, left, columns);
            for (int v = 0; v < output_.height(); ++v) filterColumns(v, left, columns);
        }
    }

private:
    void filterRow(int row, int left, int columns) {
        const double start = place_.xWhere(left + 0.5, row + 0.5);
        const int from = alongRows_.walk(start, 0).next().first;
        const int to =
            from + static_cast<int>(place_.stepAlongRow() * columns) + alongRows_.taps() + 2;
        expand(row, from, to);
        auto walk = alongRows_.walk(start, place_.stepAlongRow());
        for (int i = 0; i < columns; ++i) {
            const auto tap = walk.next();
            const float* pixels =
                row_.data() + static_cast<std::ptrdiff_t>(tap.first - from) * lanes;
            cv::v_store(block_.at(row, i), weighted(pixels, lanes, tap.weights, alongRows_.taps()));
        }
    }

    /// The pixels [from, to) of a canvas row as floats in `row_`.
    void expand(int row, int from, int to) {
        const std::uint8_t* pixel = canvas_.row(row, from, to, bytes_);
        row_.resize(static_cast<std::size_t>(to - from) * lanes);
        float* out = row_.data();
        // Four bytes at once take a neighbour's along into the unused lane; the last pixel has
        // none.
        for (int x = from; x < to - 1; ++x, pixel += 3, out += lanes)
            cv::v_store(out, fourFloats(pixel));
        std::copy_n(pixel, 3, out);
    }

    void filterColumns(int v, int left, int columns) {
        constexpr std::ptrdiff_t stride = std::ptrdiff_t{blockWidth} * lanes;
        std::uint8_t* out = output_.pixel(left, v);
        auto walk = downColumns_.walk(place_.y(left + 0.5, v + 0.5), place_.alongRow.y);
        for (int i = 0; i < columns; ++i, out += 3) {
            const auto tap = walk.next();
            const cv::v_int32x4 sum = cv::v_round(
                weighted(block_.at(tap.first, i), stride, tap.weights, downColumns_.taps()));
            const cv::v_int16x8 words = cv::v_pack(sum, sum);
            std::array<std::uint8_t, cv::v_uint8x16::nlanes> bytes;
            cv::v_store(bytes.data(), cv::v_pack_u(words, words));
            std::copy_n(bytes.data(), 3, out);
        }
    }

    CanvasRows canvas_;
    const Placement& place_;
    Picture& output_;
    Lanczos::Table alongRows_;
    Lanczos::Table downColumns_;
    Block block_;
    std::vector<std::uint8_t> bytes_;
    std::vector<float> row_;
};

/// A picture turned by whole right angles, with everything that is measured in its pixels.
struct QuarterTurned {
    Picture picture;
    Surroundings surroundings;
    Point center;
};

/// Turns `picture` back by `quarters` right angles, so that only the rest of the turn is left.
QuarterTurned turnedBack(const Picture& picture, const Surroundings& surroundings, Point center,
                         int quarters) {
    const double width = picture.width();
    const double height = picture.height();
    const Rect bounds{0, 0, width, height};
    const auto turned = [&](Point p) {
        return Leveling::level(p, bounds.center(), quarters * 90.0);
    };
    const auto box = [&](const Rect& rect) {
        auto corners = rect.corners();
        std::ranges::transform(corners, corners.begin(), turned);
        return Rect::bounding(corners);
    };
    const Rect landed = box(bounds);
    const auto moved = [&](Rect rect) {
        return Rect{rect.x - landed.x, rect.y - landed.y, rect.width, rect.height};
    };
    const bool swaps = quarters % 2 != 0;
    QuarterTurned result{swaps ? Picture(picture.height(), picture.width())
                               : Picture(picture.width(), picture.height()),
                         surroundings, turned(center) - Point{landed.x, landed.y}};
    if (surroundings.photo) result.surroundings.photo = moved(box(*surroundings.photo));
    const cv::Mat source = viewOf(picture);
    cv::Mat target = viewOf(result.picture);
    constexpr std::array codes{cv::ROTATE_90_COUNTERCLOCKWISE, cv::ROTATE_180,
                               cv::ROTATE_90_CLOCKWISE};
    cv::rotate(source, target, codes[static_cast<std::size_t>(quarters - 1)]);
    return result;
}

}  // namespace

Result<Picture> resampled(const Picture& picture, const Rect& region, const Turn& turn,
                          const Surroundings& surroundings, int width, int height) try {
    const double degrees = std::remainder(turn.degrees, 360);
    if (degrees == 0) return resampled(picture, region, surroundings, width, height);
    if (picture.isEmpty() || !Lanczos::isFeasible(region, width, height) ||
        !std::isfinite(degrees + turn.center.x + turn.center.y))
        return failure("Could not turn the picture: the region or the size is out of range.");
    const int quarters = (static_cast<int>(std::lround(degrees / 90)) + 4) % 4;
    if (quarters != 0) {
        const QuarterTurned back = turnedBack(picture, surroundings, turn.center, quarters);
        const Rect moved{region.x + back.center.x - turn.center.x,
                         region.y + back.center.y - turn.center.y, region.width, region.height};
        return resampled(back.picture, moved, {back.center, degrees - quarters * 90.0},
                         back.surroundings, width, height);
    }
    const Placement place(region, {turn.center, degrees}, width, height);
    Picture output(width, height);
    TurnedResampler(picture, surroundings, place, output).run();
    return output;
} catch (const std::bad_alloc&) {
    return failure("Could not turn the picture: not enough memory.");
}

}  // namespace morva
