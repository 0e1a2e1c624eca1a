// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/body_analyzer.h"

#include <algorithm>

namespace morva::BodyAnalyzer {

namespace {

constexpr double expectedDrop = 1.5;      // face units from the eyes to the shoulders
constexpr double farthestBody = 4.0;      // face units from there
constexpr double sameEyesDistance = 0.7;  // face units; half the width of a face
constexpr double touchingDistance = 8.0;  // face units between the eyes of two who may touch
constexpr std::size_t mostNeighbours = 4;

std::optional<Point> kept(const BodyObservation& body, BodyJoint which, Point toSource) {
    const JointObservation& joint = body.joint(which);
    if (!(joint.confidence > minimumJointConfidence)) return std::nullopt;
    return joint.place.scaled(toSource.x, toSource.y);
}

BodyGeometry geometry(const BodyObservation& body, Point toSource) {
    const auto joint = [&](BodyJoint which) { return kept(body, which, toSource); };
    return {joint(BodyJoint::leftShoulder), joint(BodyJoint::rightShoulder),
            joint(BodyJoint::leftHip),      joint(BodyJoint::rightHip),
            joint(BodyJoint::leftKnee),     joint(BodyJoint::rightKnee),
            joint(BodyJoint::leftAnkle),    joint(BodyJoint::rightAnkle)};
}

/// Middle of the torso at the height of the shoulders, or of the hips where no shoulder is seen.
std::optional<Point> reference(const BodyGeometry& body) {
    const auto x = body.torsoCenterX();
    const auto y = body.shoulderY() ? body.shoulderY() : body.hipY();
    if (!x || !y) return std::nullopt;
    return Point{*x, *y};
}

/// Where the torso of a face's body is expected.
Point expectedReference(const FaceGeometry& face) {
    return face.eyeMidpoint() + Point{0, expectedDrop * face.faceUnit()};
}

Rect inImage(const Rect& box, Point toSource) {
    return {box.x / toSource.x, box.y / toSource.y, box.width / toSource.x,
            box.height / toSource.y};
}

}  // namespace

Result<std::vector<BodyObservation>> observe(const BodyPoseDetector& detector,
                                             const AnalysisImage& image,
                                             std::span<const FaceGeometry> faces) {
    const FaceGeometry& main = faces.front();
    const Point eyes = main.eyeMidpoint();
    std::vector<const FaceGeometry*> near;
    for (const FaceGeometry& face : faces.subspan(1)) {
        if (face.eyeMidpoint().distance(eyes) < touchingDistance * main.faceUnit())
            near.push_back(&face);
    }
    std::ranges::stable_sort(near, [&](const FaceGeometry* a, const FaceGeometry* b) {
        return a->eyeMidpoint().distance(eyes) < b->eyeMidpoint().distance(eyes);
    });
    near.resize(std::min(near.size(), mostNeighbours));

    const Point toSource = image.scaleToSource();
    std::vector<Rect> boxes{inImage(main.faceBox, toSource)};
    for (const FaceGeometry* face : near) boxes.push_back(inImage(face->faceBox, toSource));
    return detector.bodies(image.image, boxes);
}

std::optional<BodyGeometry> detect(std::span<const BodyObservation> bodies,
                                   const AnalysisImage& image,
                                   std::span<const FaceGeometry> faces) {
    const FaceGeometry& main = faces.front();
    std::optional<BodyGeometry> nearest;
    double least = farthestBody * main.faceUnit();
    for (const BodyObservation& body : bodies) {
        if (!isSamePerson(body, image, main)) continue;
        const BodyGeometry candidate = geometry(body, image.scaleToSource());
        const auto place = reference(candidate);
        if (!place) continue;
        const double distance = place->distance(expectedReference(main));
        const bool nearerToAnother =
            std::ranges::any_of(faces.subspan(1), [&](const FaceGeometry& other) {
                return place->distance(expectedReference(other)) < distance;
            });
        if (nearerToAnother || !(distance < least)) continue;
        least = distance;
        nearest = candidate;
    }
    return nearest;
}

bool isSamePerson(const BodyObservation& body, const AnalysisImage& image,
                  const FaceGeometry& face) {
    const Point toSource = image.scaleToSource();
    return body.eyes.scaled(toSource.x, toSource.y).distance(face.eyeMidpoint()) <
           sameEyesDistance * face.faceUnit();
}

}  // namespace morva::BodyAnalyzer
