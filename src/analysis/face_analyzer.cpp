// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/face_analyzer.h"

#include <algorithm>
#include <cmath>
#include <ranges>

namespace morva::FaceAnalyzer {

namespace {

constexpr double smallestRefinedUnit = 8.0;   // source pixels; smaller faces gain nothing
constexpr double refineReach = 1.7;           // half side of the cut, face units
constexpr double finestUnit = 420;            // pixels; landmarks are measured on a quarter of it
constexpr int smallestCut = 96;               // pixels; a cut must be larger
constexpr double refineAgreement = 0.15;      // face units
constexpr double smallestEyeDistance = 1e-6;  // keeps the down direction finite for coincident eyes

Point centroid(const std::vector<Point>& points) {
    Point sum;
    for (const Point point : points) sum = sum + point;
    const double share = points.empty() ? 0 : 1.0 / static_cast<double>(points.size());
    return sum.scaled(share, share);
}

/// Unit vector from the eyes toward the chin: a right angle to the eye line, pointing down the
/// picture.
Point downDirection(Point leftEye, Point rightEye) {
    const Point along = rightEye - leftEye;
    const double length = std::max(leftEye.distance(rightEye), smallestEyeDistance);
    const Point down{-along.y / length, along.x / length};
    return down.y < 0 ? down.scaled(-1, -1) : down;
}

/// The point that lies furthest along `down`; the earlier one of equals.
Point lowest(const std::vector<Point>& points, Point down) {
    return *std::ranges::max_element(points, {},
                                     [&](Point p) { return down.x * p.x + down.y * p.y; });
}

bool isComplete(const FaceLandmarks& landmarks) {
    return !landmarks.leftEye.empty() && !landmarks.rightEye.empty() &&
           !landmarks.medianLine.empty() && !landmarks.contour.empty();
}

FaceGeometry geometry(const FaceObservation& seen, const FaceLandmarks& landmarks) {
    FaceGeometry face;
    face.leftEye = centroid(landmarks.leftEye);
    face.rightEye = centroid(landmarks.rightEye);
    const Point down = downDirection(face.leftEye, face.rightEye);
    face.chinFromMedianLine = lowest(landmarks.medianLine, down);
    face.chinFromContour = lowest(landmarks.contour, down);
    face.chin = face.chinFromMedianLine.midpoint(face.chinFromContour);
    if (!landmarks.nose.empty()) face.noseTip = centroid(landmarks.nose);
    face.faceBox = seen.box;
    face.landmarkConfidence = landmarks.confidence;
    face.detectionConfidence = seen.confidence;
    face.yawDegrees = seen.yawDegrees;
    face.pitchDegrees = seen.pitchDegrees;
    return face;
}

/// The square around the face, grown to whole pixels and clipped to the picture.
/// Longer side of the photo at which the close-up is made.
int refineSide(const FaceGeometry& face, int finest, Size source) {
    const double longer = std::max(source.width, source.height);
    return static_cast<int>(std::min<double>(finest, longer * finestUnit / face.faceUnit()));
}

Rect refineCut(const FaceGeometry& face, Size photo, double kx, double ky) {
    const double reach = refineReach * face.faceUnit();
    const Point center = face.faceCenter();
    const double left = std::max(0.0, std::floor(kx * (center.x - reach)));
    const double top = std::max(0.0, std::floor(ky * (center.y - reach)));
    const double right = std::min<double>(photo.width, std::ceil(kx * (center.x + reach)));
    const double bottom = std::min<double>(photo.height, std::ceil(ky * (center.y + reach)));
    return {left, top, right - left, bottom - top};
}

bool agrees(const FaceGeometry& refined, const FaceGeometry& face) {
    const double limit = refineAgreement * face.faceUnit();
    return refined.eyeMidpoint().distance(face.eyeMidpoint()) < limit &&
           std::abs(refined.faceUnit() - face.faceUnit()) < limit;
}

/// Half of the first measurement is kept, so that a refinement never moves the landmarks far.
FaceGeometry averaged(const FaceGeometry& face, const FaceGeometry& refined) {
    FaceGeometry result = face;
    result.leftEye = face.leftEye.midpoint(refined.leftEye);
    result.rightEye = face.rightEye.midpoint(refined.rightEye);
    result.chin = face.chin.midpoint(refined.chin);
    result.chinFromMedianLine = face.chinFromMedianLine.midpoint(refined.chinFromMedianLine);
    result.chinFromContour = face.chinFromContour.midpoint(refined.chinFromContour);
    if (face.noseTip && refined.noseTip) result.noseTip = face.noseTip->midpoint(*refined.noseTip);
    result.landmarkConfidence = (face.landmarkConfidence + refined.landmarkConfidence) / 2;
    result.yawDegrees = refined.yawDegrees;
    result.pitchDegrees = refined.pitchDegrees;
    return result;
}

}  // namespace

Result<std::vector<FaceGeometry>> detectFaces(const FaceDetector& detector, const Picture& image,
                                              Size sourceSize) {
    const auto seen = detector.faces(image);
    if (!seen) return tl::unexpected(seen.error());
    const double sx = sourceSize.width / image.width();
    const double sy = sourceSize.height / image.height();
    std::vector<FaceGeometry> faces;
    for (const FaceObservation& face : *seen) {
        if (!face.landmarks || !isComplete(*face.landmarks)) continue;
        // Pixels are square to within the rounding of the reduced size, so directions survive the
        // scaling.
        faces.push_back(
            geometry(face, *face.landmarks).transformed([&](Point p) { return p.scaled(sx, sy); }));
    }
    std::ranges::stable_sort(faces, std::ranges::greater{}, &FaceGeometry::faceUnit);
    return faces;
}

FaceGeometry refine(const FaceDetector& detector, const FaceGeometry& face,
                    const CloseUps& closeUps, int maxPixel, Size sourceSize) {
    if (!(face.faceUnit() > smallestRefinedUnit)) return face;
    const int side = refineSide(face, std::min(closeUps.finestSide, maxPixel), sourceSize);
    const Size photo = closeUps.size(side);
    const double kx = photo.width / sourceSize.width;
    const double ky = photo.height / sourceSize.height;
    if (!(kx > 0 && ky > 0)) return face;
    const Rect cut = refineCut(face, photo, kx, ky);
    if (!(cut.width > smallestCut && cut.height > smallestCut)) return face;

    const Picture part = closeUps.cut(side, static_cast<int>(cut.x), static_cast<int>(cut.y),
                                      static_cast<int>(cut.width), static_cast<int>(cut.height));
    const auto found = detectFaces(detector, part, {cut.width / kx, cut.height / ky});
    if (!found || found->empty()) return face;

    const Point origin{cut.x / kx, cut.y / ky};
    const auto inPhoto = [&](const FaceGeometry& f) {
        return f.transformed([&](Point p) { return p + origin; });
    };
    const Point expected = face.eyeMidpoint() - origin;
    const auto nearest = std::ranges::min_element(
        *found, {}, [&](const FaceGeometry& f) { return f.eyeMidpoint().distance(expected); });
    const FaceGeometry refined = inPhoto(*nearest);
    return agrees(refined, face) ? averaged(face, refined) : face;
}

}  // namespace morva::FaceAnalyzer
