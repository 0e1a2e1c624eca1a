// SPDX-License-Identifier: GPL-3.0-or-later
// A child of known alpha over a known backdrop, and a segmenter that sees it as blurred as a model
// would.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

#include "matting/matting.h"
#include "vision/picture_region.h"

namespace morva {

/// A head of radius one face unit with strands that stand off it on all sides, on shoulders.
class SyntheticChild {
public:
    static constexpr int width = 480;
    static constexpr int height = 520;
    static constexpr double unit = 80;
    Point head;

    explicit SyntheticChild(Point place = {240, 200}) : head(place) {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) alpha_.push_back(averaged(x, y));
    }

    /// Averaged over the pixel.
    double pixelAlpha(int x, int y) const {
        return alpha_[static_cast<std::size_t>(std::clamp(y, 0, height - 1) * width +
                                               std::clamp(x, 0, width - 1))];
    }
    /// As a person map shows it: strands left out, the outline a soft ramp.
    double mapValue(int x, int y) const {
        double sum = 0;
        for (int i = 0; i < 25; ++i) sum += pixelAlpha(x + 2 * (i % 5 - 2), y + 2 * (i / 5 - 2));
        return sum / 25;
    }

private:
    double alpha(double x, double y) const {
        const double dx = x - head.x;
        const double dy = y - head.y;
        const double r = std::hypot(dx, dy) / unit;
        if (r < 1) return 1;
        const double body = std::clamp((dy - unit - .1 * std::abs(dx)) / 2, 0.0, 1.0) *
                            std::clamp((1.9 * unit - std::abs(dx)) / 2, 0.0, 1.0);
        if (r > 1.15) return body;
        constexpr double strands = 40;
        const double apart = 2 * std::numbers::pi / strands;
        const double turn = std::atan2(dy, dx) / apart;
        const double off = std::abs(turn - std::round(turn)) * apart * r * unit;
        return std::max(body, std::clamp(2.2 - off, 0.0, 1.0));
    }
    float averaged(int x, int y) const {
        double sum = 0;
        for (int i = 0; i < 4; ++i) sum += alpha(x + (i % 2 + .5) / 2, y + (i / 2 + .5) / 2);
        return static_cast<float>(sum / 4);
    }

    std::vector<float> alpha_;
};

using Colour = std::array<double, 3>;

inline Picture painted(const SyntheticChild& child, const Colour& own,
                       const std::function<Colour(int, int)>& backdrop) {
    Picture picture(SyntheticChild::width, SyntheticChild::height);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const double a = child.pixelAlpha(x, y);
            const Colour behind = backdrop(x, y);
            for (std::size_t c = 0; c < 3; ++c)
                picture.pixel(x, y)[c] =
                    static_cast<std::uint8_t>(std::lround(a * own[c] + (1 - a) * behind[c]));
        }
    }
    return picture;
}

inline Mask mapOf(const SyntheticChild& child) {
    Mask mask(SyntheticChild::width / 2, SyntheticChild::height / 2);
    for (int y = 0; y < mask.height(); ++y)
        for (int x = 0; x < mask.width(); ++x)
            *mask.pixel(x, y) =
                static_cast<std::uint8_t>(std::lround(255 * child.mapValue(2 * x + 1, 2 * y + 1)));
    return mask;
}

/// Sees the child in the picture that it was painted into.
class SyntheticSegmenter final : public PersonSegmenter {
public:
    explicit SyntheticSegmenter(const SyntheticChild& child) : child_(child) {}

    Result<PersonMap> persons(const Picture& picture, const Rect& region) const override {
        if (fails) return failure("The model cannot run.");
        PersonMap map{wholePixelRect(region, picture), 256, {}, {}};
        for (int y = 0; y < map.side; ++y) {
            for (int x = 0; x < map.side; ++x) {
                const double atX = map.extent.x + (x + .5) * map.extent.width / map.side;
                const double atY = map.extent.y + (y + .5) * map.extent.height / map.side;
                map.values.push_back(static_cast<float>(
                    child_.mapValue(static_cast<int>(atX), static_cast<int>(atY))));
                map.hair.push_back(atY < child_.head.y ? map.values.back() : 0);
            }
        }
        return map;
    }
    Result<RegionMap> faceSkin(const Picture&, const PictureRegion&) const override {
        return failure("No face is asked for here.");
    }

    bool fails = false;

private:
    const SyntheticChild& child_;
};

}  // namespace morva
