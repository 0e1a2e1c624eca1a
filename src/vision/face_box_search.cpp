// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/face_box_search.h"

#include <algorithm>

#include "vision/picture_region.h"

namespace morva::FaceBoxSearch {

namespace {

constexpr double scoreThreshold = 0.5;
constexpr InputRange boxRange{-1, 1};
/// Tiles are cut from a copy with at least this many pixels on its longer side: the model sees 192
/// of each tile's.
constexpr int searchSide = 768;
/// A face box of this share of the longer side leaves no second face that matters to tiles: others
/// of a third of its size are still 15 pixels of the model's frame.
constexpr double largeFaceShare = 0.25;

struct Tiling {
    int perAxis;
    double sideShare;  // of the longer side
};
constexpr Tiling coarseTiles{2, 0.6};
constexpr Tiling fineTiles{4, 0.35};

Result<void> look(const InferenceModel& model, const Picture& picture, const PictureRegion& window,
                  std::vector<FaceBox>& found) {
    auto session = model.session();
    if (!session) return tl::unexpected(session.error());
    sample(picture, window, FaceBoxes::inputSide, boxRange, session->input());
    if (auto run = session->infer(); !run) return run;
    const auto values = session->output(FaceBoxes::anchorCount * FaceBoxes::valuesPerAnchor);
    const auto logits = session->output(FaceBoxes::anchorCount);
    if (values.empty() || logits.empty())
        return failure("The face model's outputs have an unexpected size.");
    const double scale = window.side / FaceBoxes::inputSide;
    const auto place = [&](Point point) { return window.toPicture(point, FaceBoxes::inputSide); };
    for (const FaceBox& face : FaceBoxes::decoded(values, logits, scoreThreshold)) {
        const Point corner = place({face.box.x, face.box.y});
        found.push_back({{corner.x, corner.y, face.box.width * scale, face.box.height * scale},
                         place(face.leftEye),
                         place(face.rightEye),
                         face.score});
    }
    return {};
}

PictureRegion wholeFrame(const Picture& picture) {
    const double longest = std::max(picture.width(), picture.height());
    return {{picture.width() / 2.0, picture.height() / 2.0}, longest};
}

/// Centres along one axis: tiles touch both ends and are spread evenly; one is enough for a short
/// axis.
std::vector<double> tileCenters(double length, double tile, int count) {
    if (length <= tile) return {length / 2};
    std::vector<double> centers;
    for (int i = 0; i < count; ++i) centers.push_back(tile / 2 + (length - tile) * i / (count - 1));
    return centers;
}

Result<void> lookAtTiles(const InferenceModel& model, const Picture& picture, Tiling tiling,
                         std::vector<FaceBox>& found) {
    const double side = tiling.sideShare * std::max(picture.width(), picture.height());
    for (const double y : tileCenters(picture.height(), side, tiling.perAxis)) {
        for (const double x : tileCenters(picture.width(), side, tiling.perAxis)) {
            if (auto done = look(model, picture, {{x, y}, side}, found); !done) return done;
        }
    }
    return {};
}

/// Runs `search` on a small copy and brings what it found back to the picture's own pixels.
template <class Search>
Result<std::vector<FaceBox>> onSmallCopy(const Picture& picture, Search search) {
    const Rect frame{0, 0, static_cast<double>(picture.width()),
                     static_cast<double>(picture.height())};
    const Patch small = cutPatch(picture, frame, searchSide);
    std::vector<FaceBox> found;
    if (auto done = search(small.picture, found); !done) return tl::unexpected(done.error());
    found = FaceBoxes::merged(std::move(found));
    for (FaceBox& face : found) {
        const Point corner = small.toPicture({face.box.x, face.box.y});
        face.box = {corner.x, corner.y, face.box.width * small.scale,
                    face.box.height * small.scale};
        face.leftEye = small.toPicture(face.leftEye);
        face.rightEye = small.toPicture(face.rightEye);
    }
    return found;
}

bool hasLargeFace(const std::vector<FaceBox>& faces, const Picture& picture) {
    const double large = largeFaceShare * std::max(picture.width(), picture.height());
    return std::ranges::any_of(faces,
                               [&](const FaceBox& face) { return face.box.height >= large; });
}

}  // namespace

Result<std::vector<FaceBox>> firstLook(const InferenceModel& model, const Picture& picture) {
    return onSmallCopy(picture,
                       [&](const Picture& small, std::vector<FaceBox>& found) -> Result<void> {
                           if (auto done = look(model, small, wholeFrame(small), found); !done)
                               return done;
                           if (hasLargeFace(found, small)) return {};
                           return lookAtTiles(model, small, coarseTiles, found);
                       });
}

Result<std::vector<FaceBox>> closerLook(const InferenceModel& model, const Picture& picture) {
    return onSmallCopy(picture, [&](const Picture& small, std::vector<FaceBox>& found) {
        return lookAtTiles(model, small, fineTiles, found);
    });
}

Result<std::vector<FaceBox>> frameLook(const InferenceModel& model, const Picture& picture) {
    return onSmallCopy(picture, [&](const Picture& small, std::vector<FaceBox>& found) {
        return look(model, small, wholeFrame(small), found);
    });
}

}  // namespace morva::FaceBoxSearch
