// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/matting.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "imaging/mat_view.h"
#include "matting/body_matte.h"
#include "matting/head_matte.h"
#include "matting/outline_colours.h"
#include "matting/photo_grid.h"

namespace morva::Matting {

namespace {

constexpr int person = 128;            // mask value from which a pixel shows the child
constexpr double unitsOfABust = 4;     // face units on the longer side of the photo of a bust
constexpr int longestBodySide = 1024;  // cells
constexpr int longestHeadSide = 1024;
constexpr double smallestRegion = 200;  // pixels; less has no strands to refine
constexpr double largestBlock = 16;     // pixels that reducing may leave out at the picture's edges
constexpr double layerSeam = .3;        // face units over which the two layers are blended

Rect boundsOf(const Picture& picture) {
    return {0, 0, static_cast<double>(picture.width()), static_cast<double>(picture.height())};
}

/// Lowest row of the mask that shows the child; -1 where none does.
int lowestRow(const Mask& mask) {
    for (int y = mask.height() - 1; y >= 0; --y) {
        const std::uint8_t* row = mask.row(y);
        if (std::any_of(row, row + mask.width(), [](std::uint8_t v) { return v >= person; }))
            return y;
    }
    return -1;
}

/// How far a place lies from the nearer end of a stretch, as a share of the seam, at most 1; an end
/// at the picture's edge has no seam.
float seamShare(double at, double begin, double end, double last, double seam) {
    double share = 1;
    if (begin > 0) share = std::min(share, (at - begin) / seam);
    if (end < last) share = std::min(share, (end - at) / seam);
    return static_cast<float>(std::max(0.0, share));
}

/// What is refined around the head, in pixels; nothing where there is no head to refine.
std::optional<Rect> headRegion(const Picture& picture, const Child& child) {
    if (!child.head || child.head->faceUnit <= 0) return std::nullopt;
    const Rect place =
        HeadMatte::region(child.head->eyeMidpoint, child.head->faceUnit, boundsOf(picture));
    if (std::min(place.width, place.height) <= smallestRegion) return std::nullopt;
    return place;
}

/// What a look at the head alone sees of the child, and where it is to be believed.
class HeadLook {
public:
    HeadLook(PersonMap seen, const Picture& picture, const Child& child)
        : seen_(std::move(seen)), picture_(picture), child_(child) {}

    /// Sharpens `persons`, the mask's child on `grid`.
    void blendInto(cv::Mat& persons, const PhotoGrid& grid) const {
        const cv::Rect cells = cellsOf(grid);
        if (cells.empty()) return;
        const double width = grid.place.width / grid.width();
        const double height = grid.place.height / grid.height();
        const PhotoGrid part{{grid.place.x + cells.x * width, grid.place.y + cells.y * height,
                              cells.width * width, cells.height * height},
                             {},
                             grid.colours(cells),
                             grid.unit};
        const cv::Mat near = alone(part, seen_.values);
        std::vector<float> across;
        for (int x = 0; x < cells.width; ++x)
            across.push_back(seam(part.toPicture(x, 0).x, seen_.extent.x, seen_.extent.maxX(),
                                  picture_.width(), seen_.extent.width));
        for (int y = 0; y < cells.height; ++y) {
            const float down = seam(part.toPicture(0, y).y, seen_.extent.y, seen_.extent.maxY(),
                                    picture_.height(), seen_.extent.height);
            const auto* value = near.ptr<float>(y);
            auto* out = persons.ptr<float>(cells.y + y) + cells.x;
            for (std::size_t x = 0; x < across.size(); ++x)
                out[x] += std::min(down, across[x]) * (value[x] - out[x]);
        }
    }

    cv::Mat hair(const PhotoGrid& grid) const {
        if (seen_.hair.empty()) return cv::Mat::zeros(grid.colours.size(), CV_32FC1);
        return alone(grid, seen_.hair);
    }

private:
    /// Those of the grid's cells that the look covers.
    cv::Rect cellsOf(const PhotoGrid& grid) const {
        const Rect& seen = seen_.extent;
        const double across = grid.width() / grid.place.width;
        const double down = grid.height() / grid.place.height;
        const auto left = static_cast<int>(std::floor((seen.x - grid.place.x) * across));
        const auto top = static_cast<int>(std::floor((seen.y - grid.place.y) * down));
        const auto right = static_cast<int>(std::ceil((seen.maxX() - grid.place.x) * across));
        const auto bottom = static_cast<int>(std::ceil((seen.maxY() - grid.place.y) * down));
        return cv::Rect(left, top, right - left, bottom - top) & cv::Rect({}, grid.colours.size());
    }

    /// Without everybody else.
    cv::Mat alone(const PhotoGrid& grid, const std::vector<float>& values) const {
        const cv::Mat all = onGrid(grid, viewOf(values, seen_.side), seen_.extent);
        if (child_.others == nullptr) return all;
        return all.mul(1 - onGrid(grid, viewOf(*child_.others), child_.extent));
    }

    static float seam(double at, double begin, double end, double last, double side) {
        return seamShare(at, begin, end, last, HeadMatte::mapSeam * side);
    }

    PersonMap seen_;
    const Picture& picture_;
    const Child& child_;
};

/// `filterUnit` is the one in which the guided filter measures, in pixels.
MatteLayer bodyLayer(const Picture& picture, const Child& child,
                     const std::optional<HeadLook>& look, double filterUnit) {
    const PhotoGrid grid = PhotoGrid::reduced(picture, boundsOf(picture), filterUnit,
                                              BodyMatte::gridUnit, longestBodySide);
    cv::Mat persons = onGrid(grid, viewOf(child.mask), child.extent);
    if (look) look->blendInto(persons, grid);
    return BodyMatte::layer(grid, BodyMatte::prior(persons));
}

/// The refined layer; nothing where the head's colours cannot be learned.
std::optional<MatteLayer> headLayer(const Picture& picture, const Child& child, const Rect& place,
                                    const HeadLook& look, double filterUnit, const Tuning& tuning) {
    const double unit = child.head->faceUnit;
    const PhotoGrid grid =
        PhotoGrid::reduced(picture, place, unit, HeadMatte::gridUnit, longestHeadSide);
    cv::Mat persons = onGrid(grid, viewOf(child.mask), child.extent);
    look.blendInto(persons, grid);
    return HeadMatte::layer(grid, persons, look.hair(grid), filterUnit * grid.unit / unit, tuning);
}

/// Lays the head's layer over a row of the body's, blended near the borders of its place.
class HeadOverlay {
public:
    HeadOverlay(const Picture& picture, const MatteLayer& layer, double unit)
        : picture_(picture),
          layer_(layer),
          place_(toEdges(layer.place, picture)),
          seam_(layerSeam * unit) {
        for (int x = 0; x < static_cast<int>(place_.width); ++x)
            across_.push_back(
                seamShare(place_.x + x + .5, place_.x, place_.maxX(), picture.width(), seam_));
        near_.resize(across_.size());
    }

    void onto(std::span<float> row, int y) {
        if (y < place_.y || y >= place_.maxY()) return;
        const auto left = static_cast<int>(place_.x);
        layer_.row(picture_, y, left, near_);
        const float down = seamShare(y + .5, place_.y, place_.maxY(), picture_.height(), seam_);
        const auto part = row.subspan(static_cast<std::size_t>(left), near_.size());
        for (std::size_t i = 0; i < part.size(); ++i)
            part[i] += std::min(down, across_[i]) * (near_[i] - part[i]);
    }

private:
    /// Reduced by whole blocks, the layer may end just before the picture does.
    static Rect toEdges(Rect place, const Picture& picture) {
        if (picture.width() - place.maxX() < largestBlock) place.width = picture.width() - place.x;
        if (picture.height() - place.maxY() < largestBlock)
            place.height = picture.height() - place.y;
        return place;
    }

    const Picture& picture_;
    const MatteLayer& layer_;
    Rect place_;
    double seam_;
    std::vector<float> across_;
    std::vector<float> near_;
};

/// Writes alpha row by row from the body's layer and, where there is one, the head's over it.
Mask combined(const Picture& picture, const MatteLayer& body, const std::optional<MatteLayer>& head,
              double unit) {
    Mask alpha(picture.width(), picture.height());
    std::vector<float> row(static_cast<std::size_t>(picture.width()));
    std::optional<HeadOverlay> overlay;
    if (head) overlay.emplace(picture, *head, unit);
    for (int y = 0; y < picture.height(); ++y) {
        body.row(picture, y, 0, row);
        if (overlay) overlay->onto(row, y);
        std::transform(row.begin(), row.end(), alpha.row(y),
                       [](float value) { return static_cast<std::uint8_t>(value * 255 + .5F); });
    }
    return alpha;
}

}  // namespace

Result<std::optional<Matte>> matte(const Picture& picture, const Child& child,
                                   const PersonSegmenter& segmenter, const Tuning& tuning) {
    const int lowest = lowestRow(child.mask);
    if (lowest < 0 || picture.isEmpty()) return std::nullopt;
    const std::optional<Rect> place = headRegion(picture, child);
    std::optional<HeadLook> look;
    if (place) {
        auto seen = segmenter.persons(
            picture, HeadMatte::mapWindow(child.head->eyeMidpoint, child.head->faceUnit));
        if (!seen) return tl::unexpected(seen.error());
        look.emplace(std::move(*seen), picture, child);
    }
    // The mask is as soft as the photo is large, whatever the size of the face in it.
    const double bust = std::max(child.extent.width, child.extent.height) / unitsOfABust;
    const double unit = child.head && child.head->faceUnit > 0 ? child.head->faceUnit : bust;
    const double filterUnit = std::max(unit, bust);
    const MatteLayer body = bodyLayer(picture, child, look, filterUnit);
    std::optional<MatteLayer> head;
    if (place) head = headLayer(picture, child, *place, *look, filterUnit, tuning);
    Matte result;
    result.alpha = combined(picture, body, head, unit);
    result.feetLine = child.extent.y + child.extent.height * (lowest + 1) / child.mask.height();
    result.colours = outlineColours(picture, result.alpha, unit);
    return result;
}

}  // namespace morva::Matting
