// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/record/body_geometry.h"

#include <array>
#include <utility>

namespace morva {

namespace {

using Joint = std::optional<Point>;

/// The joints under their stored names, in the order of the format.
constexpr std::array<std::pair<const char*, Joint BodyGeometry::*>, 8> joints{
    {{"leftShoulder", &BodyGeometry::leftShoulder},
     {"rightShoulder", &BodyGeometry::rightShoulder},
     {"leftHip", &BodyGeometry::leftHip},
     {"rightHip", &BodyGeometry::rightHip},
     {"leftKnee", &BodyGeometry::leftKnee},
     {"rightKnee", &BodyGeometry::rightKnee},
     {"leftAnkle", &BodyGeometry::leftAnkle},
     {"rightAnkle", &BodyGeometry::rightAnkle}}};

}  // namespace

std::optional<double> BodyGeometry::avgX(const Joint& a, const Joint& b) {
    if (a && b) return (a->x + b->x) / 2;
    if (a) return a->x;
    if (b) return b->x;
    return std::nullopt;
}

std::optional<double> BodyGeometry::avgY(const Joint& a, const Joint& b) {
    if (a && b) return (a->y + b->y) / 2;
    if (a) return a->y;
    if (b) return b->y;
    return std::nullopt;
}

std::optional<double> BodyGeometry::shoulderY() const { return avgY(leftShoulder, rightShoulder); }

std::optional<double> BodyGeometry::hipY() const { return avgY(leftHip, rightHip); }

std::optional<double> BodyGeometry::kneeY() const { return avgY(leftKnee, rightKnee); }

std::optional<double> BodyGeometry::ankleY() const { return avgY(leftAnkle, rightAnkle); }

std::optional<double> BodyGeometry::torsoCenterX() const {
    double sum = 0;
    int present = 0;
    for (const Joint& joint : {leftShoulder, rightShoulder, leftHip, rightHip}) {
        if (!joint) continue;
        sum += joint->x;
        ++present;
    }
    if (present == 0) return std::nullopt;
    return sum / present;
}

BodyGeometry BodyGeometry::transformed(const PointMapping& by) const {
    BodyGeometry copy = *this;
    for (const auto& [name, joint] : joints)
        if (copy.*joint) copy.*joint = by(*(copy.*joint));
    return copy;
}

void to_json(Json& json, const BodyGeometry& body) {
    json = Json::object();
    for (const auto& [name, joint] : joints) putOptional(json, name, body.*joint);
}

void from_json(const Json& json, BodyGeometry& body) {
    if (!json.is_object()) throw Json::type_error::create(302, "joints are expected", &json);
    for (const auto& [name, joint] : joints) readIfPresent(json, name, body.*joint);
}

}  // namespace morva
