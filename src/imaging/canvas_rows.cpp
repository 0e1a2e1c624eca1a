// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/canvas_rows.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace morva {

namespace {

using Color = std::array<std::uint8_t, 3>;

/// Share of the pixel [index, index + 1) that lies between `from` and `to`, 0 to 1.
double cover(int index, double from, double to) {
    return std::clamp(std::min(index + 1.0, to) - std::max<double>(index, from), 0.0, 1.0);
}

void blend(std::uint8_t* pixels, int count, const Color& color, double photoShare) {
    if (photoShare >= 1) return;
    for (int i = 0; i < count; ++i) {
        for (std::size_t c = 0; c < 3; ++c, ++pixels) {
            const double mixed = color[c] + (*pixels - color[c]) * photoShare;
            *pixels = static_cast<std::uint8_t>(std::lround(mixed));
        }
    }
}

void repeat(const std::uint8_t* pixel, int count, std::uint8_t* out) {
    for (int i = 0; i < count; ++i, out += 3) std::memcpy(out, pixel, 3);
}

}  // namespace

CanvasRows::CanvasRows(const Picture& picture, const Surroundings& surroundings)
    : picture_(picture),
      surroundings_(surroundings),
      photo_(surroundings.photo.value_or(
          Rect{0, 0, static_cast<double>(picture.width()), static_cast<double>(picture.height())})),
      solidRight_(picture.width()) {
    if (!surroundings_.color) return;
    const double last = picture.width();
    solidLeft_ = static_cast<int>(std::clamp(std::ceil(photo_.x), 0.0, last));
    solidRight_ = static_cast<int>(std::clamp(std::floor(photo_.maxX()), 0.0, last));
}

double CanvasRows::rowCover(int y) const {
    return surroundings_.color ? cover(y, photo_.y, photo_.maxY()) : 1;
}

const std::uint8_t* CanvasRows::row(int y, int left, int right,
                                    std::vector<std::uint8_t>& scratch) const {
    const double share = rowCover(y);
    if (share >= 1 && left >= solidLeft_ && right <= solidRight_)
        return picture_.pixel(left, std::clamp(y, 0, picture_.height() - 1));
    const int count = right - left;
    scratch.resize(static_cast<std::size_t>(count) * 3);
    if (share <= 0) {
        repeat(surroundings_.color->data(), count, scratch.data());
        return scratch.data();
    }
    copyClamped(std::clamp(y, 0, picture_.height() - 1), left, right, scratch.data());
    if (surroundings_.color) {
        paintOutside(left, right, scratch.data());
        blend(scratch.data(), count, *surroundings_.color, share);
    }
    return scratch.data();
}

void CanvasRows::copyClamped(int y, int left, int right, std::uint8_t* out) const {
    const int width = picture_.width();
    const int from = std::clamp(left, 0, width);
    const int to = std::clamp(right, from, width);
    const int before = std::min(right, 0) - std::min(left, 0);
    repeat(picture_.pixel(0, y), before, out);
    out += static_cast<std::ptrdiff_t>(before) * 3;
    std::memcpy(out, picture_.pixel(from, y), static_cast<std::size_t>(to - from) * 3);
    out += static_cast<std::ptrdiff_t>(to - from) * 3;
    repeat(picture_.pixel(width - 1, y), right - left - before - (to - from), out);
}

void CanvasRows::paintOutside(int left, int right, std::uint8_t* out) const {
    const auto paint = [&](int from, int to) {
        for (int x = std::max(from, left); x < std::min(to, right); ++x) {
            std::uint8_t* pixel = out + static_cast<std::ptrdiff_t>(x - left) * 3;
            blend(pixel, 1, *surroundings_.color, cover(x, photo_.x, photo_.maxX()));
        }
    };
    paint(left, solidLeft_);
    paint(std::max(solidLeft_, solidRight_), right);
}

}  // namespace morva
