// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/mesh_face_detector.h"

#include <cmath>

#include "vision/face_box_search.h"
#include "vision/face_mesh.h"
#include "vision/picture_region.h"

namespace morva {

namespace {

/// Faces found only by looking closer or sideways must convince: dark blobs reach a flag of 0.76
/// there.
constexpr double secondLookBelieved = 0.9;
constexpr double secondLookConfidence = 0.7;

FaceObservation observation(const FaceBox& box, FaceMesh::Measured face) {
    return {box.box, box.score, face.yawDegrees, face.pitchDegrees, std::move(face.landmarks)};
}

Result<std::vector<FaceObservation>> meshed(const InferenceModel& mesh, const Picture& picture,
                                            const std::vector<FaceBox>& boxes, double flag,
                                            double confidence) {
    std::vector<FaceObservation> faces;
    for (const FaceBox& box : boxes) {
        auto face = FaceMesh::measured(mesh, picture, box);
        if (!face) return tl::unexpected(face.error());
        if (*face && (*face)->flag >= flag && (*face)->landmarks.confidence >= confidence)
            faces.push_back(observation(box, std::move(**face)));
    }
    return faces;
}

/// A point of the picture on its side, back in the picture's own pixels.
Point turnedBack(Point point, bool clockwise, const Picture& picture) {
    return clockwise ? Point{point.y, picture.height() - point.x}
                     : Point{picture.width() - point.y, point.x};
}

FaceBox turnedBack(FaceBox face, bool clockwise, const Picture& picture) {
    const Point center = turnedBack(face.box.center(), clockwise, picture);
    const double side = std::max(face.box.width, face.box.height);
    face.box = {center.x - side / 2, center.y - side / 2, side, side};
    face.leftEye = turnedBack(face.leftEye, clockwise, picture);
    face.rightEye = turnedBack(face.rightEye, clockwise, picture);
    return face;
}

}  // namespace

Result<std::shared_ptr<const MeshFaceDetector>> MeshFaceDetector::load(
    InferenceEngine& engine, const std::filesystem::path& models) {
    std::shared_ptr<MeshFaceDetector> detector(new MeshFaceDetector);
    auto boxes = InferenceModel::load(engine, models / "face_detection_full_range.tflite",
                                      {1, FaceBoxes::inputSide, FaceBoxes::inputSide, 3});
    if (!boxes) return tl::unexpected(boxes.error());
    auto mesh = InferenceModel::load(engine, models / "face_landmark.tflite",
                                     {1, FaceMesh::inputSide, FaceMesh::inputSide, 3});
    if (!mesh) return tl::unexpected(mesh.error());
    detector->boxes_ = *boxes;
    detector->mesh_ = *mesh;
    return detector;
}

Result<std::vector<FaceObservation>> MeshFaceDetector::faces(const Picture& picture) const {
    auto boxes = FaceBoxSearch::firstLook(*boxes_, picture);
    if (!boxes) return tl::unexpected(boxes.error());
    auto faces = meshed(*mesh_, picture, *boxes, FaceMesh::believed, 0);
    if (!faces || !faces->empty()) return faces;

    boxes = FaceBoxSearch::closerLook(*boxes_, picture);
    if (!boxes) return tl::unexpected(boxes.error());
    faces = meshed(*mesh_, picture, *boxes, secondLookBelieved, secondLookConfidence);
    if (!faces || !faces->empty()) return faces;

    // A photo without an orientation tag may lie on its side.
    for (const bool clockwise : {true, false}) {
        boxes = FaceBoxSearch::frameLook(*boxes_, onItsSide(picture, clockwise));
        if (!boxes) return tl::unexpected(boxes.error());
        for (FaceBox& box : *boxes) box = turnedBack(box, clockwise, picture);
        faces = meshed(*mesh_, picture, *boxes, secondLookBelieved, secondLookConfidence);
        if (!faces || !faces->empty()) return faces;
    }
    return faces;
}

}  // namespace morva
