// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/pose_features.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace morva::PoseFeatures {

namespace {

/// Of the image's width.
constexpr double stripStart = 0.2;
constexpr double stripWidth = 0.6;

// Where something was not found, the middle of what is usual stands in, so that its absence alone
// is no extreme. Lengths are in face units, from the eyes.
constexpr double usualFaceShare = 0.125;  // of the photo's height
constexpr double usualEyeHeight = 1.0 / 3;
constexpr std::array usualJointHeights{2.0, 6.0, 9.0, 12.0};  // shoulders, hips, knees, ankles
constexpr double usualShoulderWidth = 2.2;
constexpr Rect usualOutline{-1.5, -1, 3, 5};
constexpr double usualOutlineShare = 0.5;
/// Beyond, more makes no other pose.
constexpr double furthest = 12;
constexpr double longestProp = 3;
constexpr double furthestNeighbour = 8;

Picture centreStrip(const Picture& image) {
    const int left = static_cast<int>(stripStart * image.width());
    Picture strip(static_cast<int>(stripWidth * image.width()), image.height());
    if (strip.isEmpty()) return strip;
    for (int y = 0; y < strip.height(); ++y)
        std::memcpy(strip.row(y), image.pixel(left, y), strip.rowBytes());
    return strip;
}

/// Appends measurements in units of the main face.
class Measurements {
public:
    Measurements(const ImageAnalysis& record, std::vector<float>& values)
        : record_(record), values_(values), size_(record.sourceSize()) {
        const FaceGeometry* face = record.primary();
        unit_ = face ? face->faceUnit() : usualFaceShare * size_.height;
        eyes_ = face ? face->eyeMidpoint() : Point{size_.width / 2, usualEyeHeight * size_.height};
    }

    void add() {
        people();
        framing();
        body();
        outline();
    }

private:
    void put(double value) { values_.push_back(static_cast<float>(value)); }
    double units(double length) const {
        return std::clamp(length / std::max(unit_, 1.0), -furthest, furthest);
    }

    void people() {
        const auto& faces = record_.faces;
        put(static_cast<double>(faces.size()));
        put(std::log(std::max<double>(1, static_cast<double>(faces.size()))));
        put(faces.empty() ? 0 : 1);
        const bool several = faces.size() > 1;
        put(several ? 1 : 0);
        put(several ? faces[1].faceUnit() / std::max(unit_, 1.0) : 0);
        put(several ? std::min(furthestNeighbour, units(faces[1].eyeMidpoint().distance(eyes_)))
                    : furthestNeighbour);
        const FaceGeometry* face = record_.primary();
        put(face ? std::abs(face->yawDegrees.value_or(0)) : 0);
        put(face ? std::abs(face->rollDegrees()) : 0);
    }

    void framing() {
        put(std::log(std::max(unit_, 1.0) / size_.height));
        put(eyes_.x / size_.width);
        put(eyes_.y / size_.height);
        put(std::log(size_.width / size_.height));
        put(units(eyes_.y));
        put(units(size_.height - eyes_.y));
        put(units(eyes_.x));
        put(units(size_.width - eyes_.x));
    }

    void body() {
        const BodyGeometry body = record_.body.value_or(BodyGeometry{});
        for (const auto& joint :
             {body.leftShoulder, body.rightShoulder, body.leftHip, body.rightHip, body.leftKnee,
              body.rightKnee, body.leftAnkle, body.rightAnkle})
            put(joint ? 1 : 0);
        const std::array heights{body.shoulderY(), body.hipY(), body.kneeY(), body.ankleY()};
        for (std::size_t i = 0; i < heights.size(); ++i)
            put(heights[i] ? units(*heights[i] - eyes_.y) : usualJointHeights[i]);
        put(body.leftShoulder && body.rightShoulder
                ? units(std::abs(body.leftShoulder->x - body.rightShoulder->x))
                : usualShoulderWidth);
    }

    void outline() {
        put(record_.signDetected ? 1 : 0);
        const auto& subject = record_.subject;
        put(subject ? std::min(longestProp, subject->propReach) : 0);
        put(subject && subject->reliable ? 1 : 0);
        const Rect bounds =
            subject ? Rect{units(subject->bounds.x - eyes_.x), units(subject->bounds.y - eyes_.y),
                           units(subject->bounds.width), units(subject->bounds.height)}
                    : usualOutline;
        for (const double side : {-bounds.x, bounds.maxX(), -bounds.y, bounds.maxY()}) put(side);
        put(subject ? subject->bounds.width / size_.width : usualOutlineShare);
        put(subject ? subject->bounds.height / size_.height : usualOutlineShare);
        const EdgeContact edges = record_.edgeContact.value_or(EdgeContact{});
        for (const bool edge : {edges.top, edges.bottom, edges.left, edges.right}) put(edge);
    }

    const ImageAnalysis& record_;
    std::vector<float>& values_;
    Size size_;
    double unit_ = 0;
    Point eyes_;
};

}  // namespace

Result<std::vector<float>> print(const FeaturePrinter& printer, const Picture& image) {
    const Picture strip = centreStrip(image);
    if (strip.isEmpty()) return failure("The photo is too narrow for a feature print.");
    return printer.print(strip);
}

std::vector<float> of(std::vector<float> print, const ImageAnalysis& record) {
    Measurements(record, print).add();
    return print;
}

}  // namespace morva::PoseFeatures
