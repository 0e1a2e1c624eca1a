// SPDX-License-Identifier: GPL-3.0-or-later
#include "matting/matting.h"

#include <algorithm>
#include <cmath>
#include <span>
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

struct HeadMaps {
    cv::Mat persons;
    cv::Mat hair;
};

/// The mask's child on the head's grid, sharpened by a look at the head alone.
Result<HeadMaps> headMaps(const Picture& picture, const PhotoGrid& grid, const Child& child,
                          const PersonSegmenter& segmenter) {
    HeadMaps maps{onGrid(grid, viewOf(child.mask), child.extent),
                  cv::Mat::zeros(grid.colours.size(), CV_32FC1)};
    cv::Mat others = cv::Mat::zeros(grid.colours.size(), CV_32FC1);
    if (child.others != nullptr) others = onGrid(grid, viewOf(*child.others), child.extent);
    const auto seen = segmenter.persons(
        picture, HeadMatte::mapWindow(child.head->eyeMidpoint, child.head->faceUnit));
    if (!seen) return tl::unexpected(seen.error());
    const cv::Mat near = onGrid(grid, viewOf(seen->values, seen->side), seen->extent);
    if (!seen->hair.empty()) maps.hair = onGrid(grid, viewOf(seen->hair, seen->side), seen->extent);
    const Rect& window = seen->extent;
    for (int y = 0; y < grid.height(); ++y) {
        for (int x = 0; x < grid.width(); ++x) {
            const Point at = grid.toPicture(x, y);
            const float across = seamShare(at.x, window.x, window.maxX(), picture.width(),
                                           HeadMatte::mapSeam * window.width);
            const float down = seamShare(at.y, window.y, window.maxY(), picture.height(),
                                         HeadMatte::mapSeam * window.height);
            const float alone = 1 - others.at<float>(y, x);
            float& value = maps.persons.at<float>(y, x);
            value += std::min(down, across) * (near.at<float>(y, x) * alone - value);
            maps.hair.at<float>(y, x) *= alone;
        }
    }
    return maps;
}

/// The refined layer around the head; nothing where there is no head to refine.
Result<std::optional<MatteLayer>> headLayer(const Picture& picture, const Child& child,
                                            const PersonSegmenter& segmenter,
                                            const Tuning& tuning) {
    if (!child.head || child.head->faceUnit <= 0) return std::nullopt;
    const Rect place =
        HeadMatte::region(child.head->eyeMidpoint, child.head->faceUnit, boundsOf(picture));
    if (std::min(place.width, place.height) <= smallestRegion) return std::nullopt;
    const PhotoGrid grid = PhotoGrid::reduced(picture, place, child.head->faceUnit,
                                              HeadMatte::gridUnit, longestHeadSide);
    const auto maps = headMaps(picture, grid, child, segmenter);
    if (!maps) return tl::unexpected(maps.error());
    return HeadMatte::layer(grid, maps->persons, maps->hair, tuning);
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
    // The mask is as soft as the photo is large, whatever the size of the face in it.
    const double bust = std::max(child.extent.width, child.extent.height) / unitsOfABust;
    const double unit = child.head && child.head->faceUnit > 0 ? child.head->faceUnit : bust;
    const PhotoGrid grid = PhotoGrid::reduced(picture, boundsOf(picture), std::max(unit, bust),
                                              BodyMatte::gridUnit, longestBodySide);
    const MatteLayer body =
        BodyMatte::layer(grid, BodyMatte::prior(onGrid(grid, viewOf(child.mask), child.extent)));
    const auto head = headLayer(picture, child, segmenter, tuning);
    if (!head) return tl::unexpected(head.error());
    Matte result;
    result.alpha = combined(picture, body, *head, unit);
    result.feetLine = child.extent.y + child.extent.height * (lowest + 1) / child.mask.height();
    result.colours = outlineColours(picture, result.alpha, unit);
    return result;
}

}  // namespace morva::Matting
