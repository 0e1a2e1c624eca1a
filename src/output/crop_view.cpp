// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/crop_view.h"

#include <algorithm>
#include <cmath>

#include "base/leveling.h"
#include "imaging/resample.h"

namespace morva {

Point CropView::source(double x, double y) const {
    return Leveling::unlevel({crop.cut.x + x / crop.scale, crop.cut.y + y / crop.scale},
                             {photo.width / 2, photo.height / 2}, crop.rotationDegrees);
}

CropView CropView::part(const PixelBox& box) const {
    CropView result = *this;
    result.crop.width = box.right - box.left;
    result.crop.height = box.bottom - box.top;
    result.crop.cut = {crop.cut.x + box.left / crop.scale, crop.cut.y + box.top / crop.scale,
                       result.crop.width / crop.scale, result.crop.height / crop.scale};
    return result;
}

PixelBox CropView::showing(const Rect& place) const {
    auto corners = place.corners();
    std::ranges::transform(corners, corners.begin(), [&](Point corner) {
        const Point level =
            Leveling::level(corner, {photo.width / 2, photo.height / 2}, crop.rotationDegrees);
        return (level - Point{crop.cut.x, crop.cut.y}).scaled(crop.scale, crop.scale);
    });
    const Rect box = Rect::bounding(corners);
    const auto pixel = [](double at, int last) {
        return static_cast<int>(std::clamp<double>(at, 0, last));
    };
    return {pixel(std::floor(box.x), width()), pixel(std::floor(box.y), height()),
            pixel(std::ceil(box.maxX()), width()), pixel(std::ceil(box.maxY()), height())};
}

Result<Picture> CropView::of(const Picture& picture, const PicturePlace& place, const Rect& extent,
                             std::optional<std::array<std::uint8_t, 3>> color) const {
    const auto inPixels = [&](const Rect& rect) {
        return Rect{(rect.x - place.origin.x) * place.scale,
                    (rect.y - place.origin.y) * place.scale, rect.width * place.scale,
                    rect.height * place.scale};
    };
    const Point center = inPixels({0, 0, photo.width, photo.height}).center();
    return resampled(picture, inPixels(crop.cut), {center, crop.rotationDegrees},
                     {color, inPixels(extent)}, crop.width, crop.height);
}

}  // namespace morva
