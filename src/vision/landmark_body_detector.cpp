// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/landmark_body_detector.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "vision/person_regions.h"

namespace morva {

namespace {

/// Pixels of the reduced frame along its longer side, at least.
constexpr int frameSide = 512;
/// Pixels of it for one of a model's, below which a window is cut from the picture itself.
constexpr double enoughPixels = 1.25;
constexpr double personThreshold = 0.4;
constexpr InputRange personRange{-1, 1};
constexpr int bodySide = 256;
constexpr InputRange bodyRange{0, 1};
constexpr std::size_t landmarkCount = 39;
constexpr std::size_t valuesPerLandmark = 5;  // x, y, z, visibility, presence
constexpr std::size_t outlineCells = static_cast<std::size_t>(bodySide) * bodySide;
constexpr double bodyBelieved = 0.5;
constexpr double sameEyesDistance = 0.5;  // face widths
/// Landmarks of the joints, in the order of `BodyJoint`.
constexpr std::array<std::size_t, bodyJointCount> jointLandmarks{11, 12, 23, 24, 25, 26, 27, 28};
constexpr std::size_t oneEye = 2;
constexpr std::size_t otherEye = 5;
constexpr std::size_t shoulderCount = 2;
// Sides of the windows made from the face, in face units. Against points read by eye on 30 photos
// the shoulders are best in the near one; in it a body that goes on below the photo is squeezed
// into what is seen, and hips appear where there are none: those are looked for in the far one.
constexpr double nearSide = 12;
constexpr double farSide = 18;
// The model's shoulders and hips lie further inward than the joints read by eye (median of the
// width ratios on the same photos).
constexpr double shoulderWidening = 1.1;
constexpr double hipWidening = 1.25;

float share(float logit) { return 1 / (1 + std::exp(-std::clamp(logit, -60.0F, 60.0F))); }

bool isInside(Point point, const Picture& picture) {
    return point.x >= 0 && point.y >= 0 && point.x < picture.width() && point.y < picture.height();
}

Point landmark(std::span<const float> values, std::size_t index, const PictureRegion& region) {
    const auto v = values.subspan(index * valuesPerLandmark, valuesPerLandmark);
    return region.toPicture({v[0], v[1]}, bodySide);
}

/// The picture and a reduction of it, made once for all windows that are too coarse to need more.
struct View {
    const Picture& picture;
    Patch reduced;

    explicit View(const Picture& whole)
        : picture(whole),
          reduced(cutPatch(
              whole,
              {0, 0, static_cast<double>(whole.width()), static_cast<double>(whole.height())},
              frameSide)) {}

    void fill(const PictureRegion& region, int n, InputRange range, std::span<float> input) const {
        if (region.side / reduced.scale < enoughPixels * n)
            return sample(picture, region, n, range, input);
        PictureRegion small = region;
        small.center = reduced.fromPicture(region.center);
        small.side = region.side / reduced.scale;
        sample(reduced.picture, small, n, range, input);
    }
};

Result<std::vector<PersonRegions::Person>> personsIn(const InferenceModel& model,
                                                     const View& view) {
    const Picture& picture = view.picture;
    const double longest = std::max(picture.width(), picture.height());
    const PictureRegion frame{{picture.width() / 2.0, picture.height() / 2.0}, longest};
    auto session = model.session();
    if (!session) return tl::unexpected(session.error());
    view.fill(frame, PersonRegions::inputSide, personRange, session->input());
    if (auto run = session->infer(); !run) return tl::unexpected(run.error());
    const auto values =
        session->output(PersonRegions::anchorCount * PersonRegions::valuesPerAnchor);
    const auto logits = session->output(PersonRegions::anchorCount);
    if (values.empty() || logits.empty())
        return failure("The person detector's outputs have an unexpected size.");
    return PersonRegions::decoded(values, logits, personThreshold, frame);
}

Result<std::optional<BodyObservation>> bodyIn(const InferenceModel& model, const View& view,
                                              const PictureRegion& region) {
    auto session = model.session();
    if (!session) return tl::unexpected(session.error());
    view.fill(region, bodySide, bodyRange, session->input());
    if (auto run = session->infer(); !run) return tl::unexpected(run.error());
    const auto values = session->output(landmarkCount * valuesPerLandmark);
    const auto flag = session->output(1);
    const auto outline = session->output(outlineCells);
    if (values.empty() || flag.empty() || outline.empty())
        return failure("The body model's outputs have an unexpected size.");
    if (!(flag[0] > bodyBelieved)) return std::nullopt;

    BodyObservation body;
    for (std::size_t i = 0; i < bodyJointCount; ++i) {
        const auto v = values.subspan(jointLandmarks[i] * valuesPerLandmark, valuesPerLandmark);
        const Point place = landmark(values, jointLandmarks[i], region);
        const float confidence = std::min(share(v[3]), share(v[4]));
        body.joints[i] = {place, isInside(place, view.picture) ? confidence : 0};
    }
    body.eyes = landmark(values, oneEye, region).midpoint(landmark(values, otherEye, region));
    body.outline = {region, bodySide, {}};
    body.outline.values.reserve(outlineCells);
    for (const float logit : outline) body.outline.values.push_back(share(logit));
    return body;
}

/// The body in `window`, if its eyes are those of `face`.
Result<std::optional<BodyObservation>> ownBodyIn(const InferenceModel& model, const View& view,
                                                 const Rect& face, const PictureRegion& window) {
    auto body = bodyIn(model, view, window);
    if (body && *body &&
        (*body)->eyes.distance(PersonRegions::eyesIn(face)) > sameEyesDistance * face.width)
        body->reset();
    return body;
}

/// Joint by joint the middle of both and the lesser confidence.
void blend(JointObservation& joint, const JointObservation& other) {
    joint = {joint.place.midpoint(other.place), std::min(joint.confidence, other.confidence)};
}

void widen(JointObservation& left, JointObservation& right, double factor) {
    const Point middle = left.place.midpoint(right.place);
    for (JointObservation* joint : {&left, &right})
        joint->place = middle + (joint->place - middle).scaled(factor, factor);
}

/// Shoulders of the near window and lower joints of the far one; the person detector's own window,
/// where there is one, has an equal say in both.
BodyObservation together(BodyObservation near, const std::optional<BodyObservation>& far,
                         const std::optional<BodyObservation>& detected) {
    for (std::size_t i = 0; i < bodyJointCount; ++i) {
        JointObservation& joint = near.joints[i];
        if (i >= shoulderCount) joint = far ? far->joints[i] : JointObservation{};
        if (detected) blend(joint, detected->joints[i]);
    }
    widen(near.joints[0], near.joints[1], shoulderWidening);
    widen(near.joints[2], near.joints[3], hipWidening);
    return near;
}

Result<std::optional<BodyObservation>> bodyOf(const InferenceModel& model, const View& view,
                                              const Rect& face,
                                              std::span<const PersonRegions::Person> persons) {
    auto near = ownBodyIn(model, view, face, PersonRegions::bodyBelow(face, nearSide));
    if (!near) return near;
    auto far = ownBodyIn(model, view, face, PersonRegions::bodyBelow(face, farSide));
    if (!far) return far;
    std::optional<BodyObservation> detected;
    if (const auto* person = PersonRegions::personOf(face, persons)) {
        auto own = ownBodyIn(model, view, face, person->body);
        if (!own) return own;
        detected = std::move(*own);
    }
    if (!*near) return detected ? std::move(detected) : std::move(*far);
    return together(std::move(**near), *far, detected);
}

}  // namespace

Result<std::shared_ptr<const LandmarkBodyDetector>> LandmarkBodyDetector::load(
    InferenceEngine& engine, const std::filesystem::path& models) {
    std::shared_ptr<LandmarkBodyDetector> detector(new LandmarkBodyDetector);
    auto persons = InferenceModel::load(engine, models / "pose_detection.tflite",
                                        {1, PersonRegions::inputSide, PersonRegions::inputSide, 3});
    if (!persons) return tl::unexpected(persons.error());
    auto landmarks = InferenceModel::load(engine, models / "pose_landmark_full.tflite",
                                          {1, bodySide, bodySide, 3});
    if (!landmarks) return tl::unexpected(landmarks.error());
    detector->persons_ = *persons;
    detector->landmarks_ = *landmarks;
    return detector;
}

Result<std::vector<BodyObservation>> LandmarkBodyDetector::bodies(
    const Picture& picture, std::span<const Rect> faces) const {
    const View view(picture);
    const auto persons = personsIn(*persons_, view);
    if (!persons) return tl::unexpected(persons.error());
    std::vector<BodyObservation> found;
    for (const Rect& face : faces) {
        auto body = bodyOf(*landmarks_, view, face, *persons);
        if (!body) return tl::unexpected(body.error());
        if (*body) found.push_back(std::move(**body));
    }
    return found;
}

}  // namespace morva
