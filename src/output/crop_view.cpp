// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/crop_view.h"

#include "base/leveling.h"
#include "imaging/resample.h"

namespace morva {

Point CropView::source(double x, double y) const {
    return Leveling::unlevel({crop.cut.x + x / crop.scale, crop.cut.y + y / crop.scale},
                             {photo.width / 2, photo.height / 2}, crop.rotationDegrees);
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
