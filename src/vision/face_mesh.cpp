// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/face_mesh.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "vision/mesh_points.h"
#include "vision/picture_region.h"

namespace morva::FaceMesh {

namespace {

constexpr InputRange meshRange{0, 1};
/// Window side over the face's size. The model's chin moves with it by 1.5 % of the face unit for
/// every 0.1: it must be the same everywhere.
constexpr double windowScale = 1.5;
/// What the pass sees around the detector's box may grow by this before the next pass.
constexpr double patchScale = 1.6;
/// Pixels of the patch for one of the model's, at least; at most twice as many.
constexpr double patchPixels = 1.25;
constexpr double degrees = 180 / std::numbers::pi;
/// Reading of the mesh's nod for a level head, the median over frontal portraits.
constexpr double levelNod = 5;
/// The mesh's chin falls short of chins read by eye, by this share of the face unit (mean over 28
/// portraits, in windows of the scale above).
constexpr double chinShortfall = 0.024;
/// A disagreement of the two independent passes about the eyes that is only noise, in face units,
/// and how fast trust falls beyond it.
constexpr double eyeNoise = 0.02;
constexpr double eyeDistrust = 6;
/// A detector score from here on is full trust.
constexpr double fullScore = 0.7;

struct Vertex {
    Point at;
    double depth = 0;
};

struct Pass {
    std::vector<Vertex> inRegion;  // pixels of the model's input
    std::vector<Point> points;     // pixels of the picture
    double flag = 0;
};

Result<Pass> pass(const InferenceModel& model, const Patch& patch, const PictureRegion& region) {
    auto session = model.session();
    if (!session) return tl::unexpected(session.error());
    PictureRegion inPatch = region;
    inPatch.center = patch.fromPicture(region.center);
    inPatch.side = region.side / patch.scale;
    sample(patch.picture, inPatch, inputSide, meshRange, session->input());
    if (auto run = session->infer(); !run) return tl::unexpected(run.error());
    const auto mesh = session->output(MeshPoints::count * 3);
    const auto flag = session->output(1);
    if (mesh.empty() || flag.empty())
        return failure("The face mesh model's outputs have an unexpected size.");
    Pass result;
    result.flag = 1 / (1 + std::exp(-static_cast<double>(flag[0])));
    for (std::size_t i = 0; i < MeshPoints::count; ++i) {
        result.inRegion.push_back({{mesh[3 * i], mesh[3 * i + 1]}, mesh[3 * i + 2]});
        result.points.push_back(region.toPicture(result.inRegion.back().at, inputSide));
    }
    return result;
}

double tilt(Point left, Point right) { return std::atan2(right.y - left.y, right.x - left.x); }

PictureRegion regionOf(const FaceBox& face) {
    return {face.box.center(), windowScale * std::max(face.box.width, face.box.height),
            tilt(face.leftEye, face.rightEye)};
}

/// The window of the next pass: the tilted bounding square of all points, enlarged.
PictureRegion regionOf(const Pass& pass) {
    const double angle = tilt(pass.points[MeshPoints::leftEyeOuterCorner],
                              pass.points[MeshPoints::rightEyeOuterCorner]);
    double left = HUGE_VAL;
    double top = HUGE_VAL;
    double right = -HUGE_VAL;
    double bottom = -HUGE_VAL;
    for (const Point point : pass.points) {
        const Point upright = point.rotated({}, -angle * degrees);
        left = std::min(left, upright.x);
        right = std::max(right, upright.x);
        top = std::min(top, upright.y);
        bottom = std::max(bottom, upright.y);
    }
    const Point center = Point{(left + right) / 2, (top + bottom) / 2}.rotated({}, angle * degrees);
    return {center, windowScale * std::max(right - left, bottom - top), angle};
}

template <std::size_t n>
std::vector<Point> chosen(const std::vector<Point>& points,
                          const std::array<std::size_t, n>& indices) {
    std::vector<Point> some;
    for (const std::size_t i : indices) some.push_back(points[i]);
    return some;
}

Point eyeMiddle(const std::vector<Point>& points) {
    Point sum;
    for (const std::size_t i : MeshPoints::leftEye) sum = sum + points[i];
    for (const std::size_t i : MeshPoints::rightEye) sum = sum + points[i];
    constexpr double share = 1.0 / (MeshPoints::leftEye.size() + MeshPoints::rightEye.size());
    return sum.scaled(share, share);
}

/// Points stretched away from the eyes, down the face, so that the lowest lies on the chin.
std::vector<Point> stretchedDown(std::vector<Point> points, Point eyes, Point chin) {
    const double unit = std::max(eyes.distance(chin), 1e-6);
    const Point down = (chin - eyes).scaled(1 / unit, 1 / unit);
    for (Point& point : points) {
        const Point offset = point - eyes;
        const double below = std::max(0.0, offset.x * down.x + offset.y * down.y);
        point = point + down.scaled(chinShortfall * below, chinShortfall * below);
    }
    return points;
}

template <std::size_t n>
std::vector<Point> chinLine(const Pass& pass, const std::array<std::size_t, n>& indices) {
    return stretchedDown(chosen(pass.points, indices), eyeMiddle(pass.points),
                         pass.points[MeshPoints::chinTip]);
}

double confidence(const Pass& straight, const Pass& mirrored, double score) {
    const Point eyes = eyeMiddle(straight.points);
    const double unit = std::max(eyes.distance(straight.points[MeshPoints::chinTip]), 1.0);
    const double disagreement = eyes.distance(eyeMiddle(mirrored.points)) / unit;
    const double steady =
        std::clamp(1 - eyeDistrust * std::max(0.0, disagreement - eyeNoise), 0.0, 1.0);
    return straight.flag * steady * std::min(score / fullScore, 1.0);
}

Measured measuredBy(const Pass& straight, const Pass& mirrored, double score) {
    Measured face;
    face.flag = straight.flag;
    face.landmarks.confidence = confidence(straight, mirrored, score);
    face.landmarks.leftEye = chosen(straight.points, MeshPoints::leftEye);
    face.landmarks.rightEye = chosen(straight.points, MeshPoints::rightEye);
    face.landmarks.contour = chinLine(straight, MeshPoints::contour);
    face.landmarks.nose = chosen(straight.points, MeshPoints::nose);
    face.landmarks.medianLine = chinLine(mirrored, MeshPoints::medianLine);
    const auto& v = straight.inRegion;
    const Vertex& leftEar = v[MeshPoints::leftEar];
    const Vertex& rightEar = v[MeshPoints::rightEar];
    const Vertex& forehead = v[MeshPoints::foreheadTop];
    const Vertex& chin = v[MeshPoints::chinTip];
    face.yawDegrees =
        std::atan2(rightEar.depth - leftEar.depth, rightEar.at.x - leftEar.at.x) * degrees;
    face.pitchDegrees =
        std::atan2(chin.depth - forehead.depth, chin.at.y - forehead.at.y) * degrees - levelNod;
    return face;
}

/// The face's surroundings, reduced once for all passes.
Patch surroundings(const Picture& picture, const PictureRegion& first) {
    const double side = first.side * patchScale;
    const Rect window{first.center.x - side / 2, first.center.y - side / 2, side, side};
    return cutPatch(picture, window, static_cast<int>(patchPixels * inputSide * patchScale));
}

}  // namespace

Result<std::optional<Measured>> measured(const InferenceModel& model, const Picture& picture,
                                         const FaceBox& box) {
    const PictureRegion start = regionOf(box);
    const Patch patch = surroundings(picture, start);
    const auto first = pass(model, patch, start);
    if (!first) return tl::unexpected(first.error());
    const auto second = pass(model, patch, regionOf(*first));
    if (!second) return tl::unexpected(second.error());
    if (!(second->flag >= believed)) return std::nullopt;
    PictureRegion last = regionOf(*second);
    const auto third = pass(model, patch, last);
    if (!third) return tl::unexpected(third.error());
    last.mirrored = true;
    const auto mirrored = pass(model, patch, last);
    if (!mirrored) return tl::unexpected(mirrored.error());
    return measuredBy(*third, *mirrored, box.score);
}

}  // namespace morva::FaceMesh
