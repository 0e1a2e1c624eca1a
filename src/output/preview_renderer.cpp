// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/preview_renderer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "imaging/decode.h"
#include "imaging/resample.h"

namespace morva::PreviewRenderer {

namespace {

/// The canvas where no fill colour is given.
constexpr double defaultGrey = 0.45;

std::array<std::uint8_t, 3> canvasColor(std::span<const double> fill) {
    std::array<std::uint8_t, 3> color;
    for (std::size_t i = 0; i < color.size(); ++i) {
        const double value = fill.size() == color.size() ? fill[i] : defaultGrey;
        color[i] = static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
    }
    return color;
}

}  // namespace

std::optional<Picture> cropPreview(const Picture& image, const Rect& rect, double rotationDegrees,
                                   Size sourceSize, int outputHeight,
                                   std::span<const double> fill) {
    if (image.isEmpty() || rect.isEmpty() || !(sourceSize.width > 0 && sourceSize.height > 0))
        return std::nullopt;
    const double byX = image.width() / sourceSize.width;
    const double byY = image.height() / sourceSize.height;
    const Rect reduced{rect.x * byX, rect.y * byY, rect.width * byX, rect.height * byY};
    const double width = std::round(rect.width * outputHeight / rect.height);
    if (!(width >= 1 && width <= 1 << 16)) return std::nullopt;
    const Turn turn{{image.width() / 2.0, image.height() / 2.0}, rotationDegrees};
    auto preview = resampled(image, reduced, turn, {canvasColor(fill), {}}, static_cast<int>(width),
                             outputHeight);
    if (!preview) return std::nullopt;
    return std::move(*preview);
}

std::optional<Picture> cropPreview(const std::filesystem::path& file, const Rect& rect,
                                   double rotationDegrees, Size sourceSize, int outputHeight,
                                   int decodeMaxPixel, std::span<const double> fill) {
    if (rect.isEmpty()) return std::nullopt;
    const auto photo = PhotoDecode::open(file, decodeMaxPixel);
    if (!photo) return std::nullopt;
    return cropPreview(photo->whole(decodeMaxPixel), rect, rotationDegrees, sourceSize,
                       outputHeight, fill);
}

}  // namespace morva::PreviewRenderer
