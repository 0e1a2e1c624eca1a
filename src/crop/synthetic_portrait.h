// SPDX-License-Identifier: GPL-3.0-or-later
// One plausible analysed school portrait with round numbers, for tests and benchmarks: they take it
// and change the one thing they are about.
#pragma once

#include "analysis/record/image_analysis.h"
#include "model/presets/crop_preset.h"

namespace morva::Synthetic {

/// A photo of 4000 x 5000 with the face (unit 400, level, straight) in its middle axis, the eyes at
/// y 1800, hair from y 1300 and from x 1640 to 2360, joints down to the knees.
inline ImageAnalysis portrait() {
    ImageAnalysis photo;
    photo.sourceWidth = 4000;
    photo.sourceHeight = 5000;
    FaceGeometry face;
    face.leftEye = {1894, 1800};
    face.rightEye = {2106, 1800};
    face.chin = face.chinFromMedianLine = face.chinFromContour = {2000, 2200};
    face.faceBox = {1700, 1550, 600, 700};
    face.landmarkConfidence = 0.95;
    face.detectionConfidence = 0.97;
    photo.faces = {face};
    photo.headContent = HeadContent{.topY = 1300,
                                    .topX = 2000,
                                    .leftX = 1640,
                                    .rightX = 2360,
                                    .reliable = true,
                                    .note = {},
                                    .bottomY = {}};
    photo.body = BodyGeometry{.leftShoulder = Point{1600, 2600},
                              .rightShoulder = Point{2400, 2600},
                              .leftHip = Point{1750, 3600},
                              .rightHip = Point{2250, 3600},
                              .leftKnee = Point{1800, 4500},
                              .rightKnee = Point{2200, 4500},
                              .leftAnkle = {},
                              .rightAnkle = {}};
    return photo;
}

/// Every measurement mapped; the sides of the hair at the height of the eyes. `by` must keep the
/// order of left and right.
inline ImageAnalysis transformed(ImageAnalysis photo, const PointMapping& by) {
    const double eyeY = photo.faces.front().eyeMidpoint().y;
    for (FaceGeometry& face : photo.faces) face = face.transformed(by);
    if (photo.headContent) {
        HeadContent& head = *photo.headContent;
        const Point top = by({head.topX, head.topY});
        head.leftX = by({head.leftX, eyeY}).x;
        head.rightX = by({head.rightX, eyeY}).x;
        head.topX = top.x;
        head.topY = top.y;
    }
    if (photo.body) photo.body = photo.body->transformed(by);
    if (photo.subject) {
        auto corners = photo.subject->bounds.corners();
        for (Point& corner : corners) corner = by(corner);
        photo.subject->bounds = Rect::bounding(corners);
    }
    return photo;
}

inline ImageAnalysis movedBy(const ImageAnalysis& photo, Point offset) {
    return transformed(photo, [&](Point point) { return point + offset; });
}

/// Turned about the photo's centre; positive degrees give the eyes a positive roll.
inline ImageAnalysis turnedBy(const ImageAnalysis& photo, double degrees) {
    const Point center{photo.sourceWidth / 2.0, photo.sourceHeight / 2.0};
    return transformed(photo, [&](Point point) { return point.rotated(center, degrees); });
}

/// The same child with a trusted outline of this extent.
inline ImageAnalysis holding(ImageAnalysis photo, const Rect& bounds) {
    photo.subject =
        SubjectContent{.bounds = bounds, .reliable = true, .propReach = 0, .note = {}, .edges = {}};
    return photo;
}

/// Crops of `portrait()` come out as (1200, 1100, 1600, 2000), with the eye line where it is
/// expected and nothing to review.
inline CropPreset preset() {
    CropPreset preset;
    preset.faceScale = 0.2;
    preset.topMargin = 0.1;
    preset.eyeLinePosition = 0.35;
    return preset;
}

}  // namespace morva::Synthetic
