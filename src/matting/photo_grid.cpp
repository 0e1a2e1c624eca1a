// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/photo_grid.h"

#include <algorithm>
#include <cmath>

#include <opencv2/imgproc.hpp>

#include "imaging/mat_view.h"
#include "vision/picture_region.h"

namespace morva {

namespace {

int cells(double pixels, double factor) {
    return std::max(1, static_cast<int>(std::lround(pixels * factor)));
}

}  // namespace

Point PhotoGrid::toPicture(int x, int y) const {
    return {place.x + (x + .5) * place.width / width(),
            place.y + (y + .5) * place.height / height()};
}

PhotoGrid PhotoGrid::reduced(const Picture& picture, const Rect& place, double unit,
                             double wantedUnit, int longestSide) {
    const Rect whole = wholePixelRect(place, picture);
    const double longest = std::max(whole.width, whole.height);
    const double factor = std::min({1.0, wantedUnit / unit, longestSide / longest});
    const Patch patch = cutPatch(picture, whole, static_cast<int>(std::ceil(longest * factor)));
    PhotoGrid grid;
    grid.place = {patch.origin.x, patch.origin.y, patch.picture.width() * patch.scale,
                  patch.picture.height() * patch.scale};
    grid.unit = unit * factor;
    grid.picture = Picture(cells(grid.place.width, factor), cells(grid.place.height, factor));
    cv::Mat target = viewOf(grid.picture);
    cv::resize(viewOf(patch.picture), target, target.size(), 0, 0, cv::INTER_AREA);
    target.convertTo(grid.colours, CV_32F, 1.0 / 255);
    return grid;
}

cv::Mat onGrid(const PhotoGrid& grid, const cv::Mat& values, const Rect& extent) {
    // Centres of cells lie at whole numbers plus a half on both sides.
    const Point step = {grid.place.width / grid.width(), grid.place.height / grid.height()};
    const double kx = values.cols / extent.width;
    const double ky = values.rows / extent.height;
    const cv::Matx23d map(step.x * kx, 0, (grid.place.x + step.x / 2 - extent.x) * kx - 0.5, 0,
                          step.y * ky, (grid.place.y + step.y / 2 - extent.y) * ky - 0.5);
    cv::Mat floats;
    values.convertTo(floats, CV_32F, values.depth() == CV_8U ? 1.0 / 255 : 1.0);
    cv::Mat result;
    cv::warpAffine(floats, result, map, grid.colours.size(),
                   cv::INTER_LINEAR | cv::WARP_INVERSE_MAP, cv::BORDER_REPLICATE);
    return result;
}

}  // namespace morva
