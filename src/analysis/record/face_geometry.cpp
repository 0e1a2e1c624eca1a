// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/record/face_geometry.h"

#include <cmath>
#include <numbers>

namespace morva {

Point FaceGeometry::eyeMidpoint() const { return leftEye.midpoint(rightEye); }

double FaceGeometry::faceUnit() const { return eyeMidpoint().distance(chin); }

Point FaceGeometry::faceCenter() const { return eyeMidpoint().midpoint(chin); }

double FaceGeometry::eyeSpacing() const { return leftEye.distance(rightEye); }

double FaceGeometry::eyeSpacingRatio() const {
    const double unit = faceUnit();
    return unit > 0 ? eyeSpacing() / unit : 0;
}

double FaceGeometry::chinAgreement() const {
    const double unit = faceUnit();
    return unit > 0 ? chinFromMedianLine.distance(chinFromContour) / unit : 1;
}

double FaceGeometry::rollDegrees() const {
    const bool swapped = rightEye.x < leftEye.x;
    const Point across = swapped ? leftEye - rightEye : rightEye - leftEye;
    return std::atan2(across.y, across.x) * 180 / std::numbers::pi;
}

FaceGeometry FaceGeometry::transformed(const PointMapping& by) const {
    FaceGeometry copy = *this;
    for (Point* point : {&copy.leftEye, &copy.rightEye, &copy.chin, &copy.chinFromMedianLine,
                         &copy.chinFromContour})
        *point = by(*point);
    if (noseTip) copy.noseTip = by(*noseTip);
    auto corners = faceBox.corners();
    for (Point& corner : corners) corner = by(corner);
    copy.faceBox = Rect::bounding(corners);
    return copy;
}

void to_json(Json& json, const FaceGeometry& face) {
    json = {{"leftEye", face.leftEye},
            {"rightEye", face.rightEye},
            {"chin", face.chin},
            {"chinFromMedianLine", face.chinFromMedianLine},
            {"chinFromContour", face.chinFromContour}};
    putOptional(json, "noseTip", face.noseTip);
    json["faceBox"] = face.faceBox;
    json["landmarkConfidence"] = face.landmarkConfidence;
    json["detectionConfidence"] = face.detectionConfidence;
    putOptional(json, "yawDegrees", face.yawDegrees);
    putOptional(json, "pitchDegrees", face.pitchDegrees);
}

void from_json(const Json& json, FaceGeometry& face) {
    face.leftEye = required<Point>(json, "leftEye");
    face.rightEye = required<Point>(json, "rightEye");
    face.chin = required<Point>(json, "chin");
    face.chinFromMedianLine = required<Point>(json, "chinFromMedianLine");
    face.chinFromContour = required<Point>(json, "chinFromContour");
    readIfPresent(json, "noseTip", face.noseTip);
    face.faceBox = required<Rect>(json, "faceBox");
    face.landmarkConfidence = required<double>(json, "landmarkConfidence");
    face.detectionConfidence = required<double>(json, "detectionConfidence");
    readIfPresent(json, "yawDegrees", face.yawDegrees);
    readIfPresent(json, "pitchDegrees", face.pitchDegrees);
}

}  // namespace morva
