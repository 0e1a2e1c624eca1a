// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/presets/preset_choices.h"

#include <array>
#include <string>

#include "base/case_names.h"

namespace morva {

namespace {

constexpr std::array<Choice<HorizontalAnchor>, 5> horizontalAnchors{
    {{HorizontalAnchor::faceCenter, "faceCenter", "Face center (between eyes and chin)"},
     {HorizontalAnchor::eyes, "eyes", "Eyes"},
     {HorizontalAnchor::headCenter, "headCenter", "Head (face and hair outline balanced)"},
     {HorizontalAnchor::bodyCenter, "bodyCenter", "Body center (shoulders and hips)"},
     {HorizontalAnchor::subjectCenter, "subjectCenter",
      "Whole subject, including what they hold"}}};

constexpr std::array<Choice<Framing>, 4> framings{
    {{Framing::face, "face", "Headshot (eyes → chin sets the size)"},
     {Framing::threeQuarter, "threeQuarter", "Three-quarter (head top → knees)"},
     {Framing::fullLength, "fullLength", "Full length (head top → feet)"},
     {Framing::frameBottom, "frameBottom", "Down to the photo's bottom edge"}}};

constexpr std::array<Choice<VerticalMode>, 3> verticalModes{
    {{VerticalMode::topMargin, "topMargin", "Top margin above head"},
     {VerticalMode::balanced, "balanced", "Balanced (trade headroom for eye line)"},
     {VerticalMode::eyeLine, "eyeLine", "Eye line position"}}};

constexpr std::array<Choice<RotationMode>, 3> rotationModes{
    {{RotationMode::never, "never", "Never rotate",
      "The crop stays square to the photo. A tilted head stays tilted."},
     {RotationMode::correctCameraRoll, "correctCameraRoll", "Correct camera roll only",
      "Rotates every photo by the same fixed angle, for a camera that sat crooked."},
     {RotationMode::levelEyes, "levelEyes", "Straighten the eye line",
      "Turns each crop toward level eyes, by at most the limit below. A bigger tilt is a pose, and "
      "the rest of it stays."}}};

constexpr std::array<Choice<BackdropMode>, 3> backdropModes{
    {{BackdropMode::keep, "keep", "Keep the photo (gray outside the frame)"},
     {BackdropMode::repeatEdges, "repeatEdges", "Repeat the edges (seamless paper)"},
     {BackdropMode::replace, "replace", "Replace with a studio backdrop"}}};

}  // namespace

template <PresetChoice T>
std::span<const Choice<T>> choices() {
    if constexpr (std::same_as<T, HorizontalAnchor>)
        return horizontalAnchors;
    else if constexpr (std::same_as<T, Framing>)
        return framings;
    else if constexpr (std::same_as<T, VerticalMode>)
        return verticalModes;
    else if constexpr (std::same_as<T, RotationMode>)
        return rotationModes;
    else
        return backdropModes;
}

template <PresetChoice T>
const Choice<T>& choice(T value) {
    return entryOf(choices<T>(), value);
}

template <PresetChoice T>
void to_json(Json& json, T value) {
    json = std::string(choice(value).key);
}

template <PresetChoice T>
void from_json(const Json& json, T& value) {
    value = caseNamed(choices<T>(), json, "preset setting");
}

template std::span<const Choice<HorizontalAnchor>> choices();
template std::span<const Choice<Framing>> choices();
template std::span<const Choice<VerticalMode>> choices();
template std::span<const Choice<RotationMode>> choices();
template std::span<const Choice<BackdropMode>> choices();
template const Choice<HorizontalAnchor>& choice(HorizontalAnchor);
template const Choice<Framing>& choice(Framing);
template const Choice<VerticalMode>& choice(VerticalMode);
template const Choice<RotationMode>& choice(RotationMode);
template const Choice<BackdropMode>& choice(BackdropMode);
template void to_json(Json&, HorizontalAnchor);
template void to_json(Json&, Framing);
template void to_json(Json&, VerticalMode);
template void to_json(Json&, RotationMode);
template void to_json(Json&, BackdropMode);
template void from_json(const Json&, HorizontalAnchor&);
template void from_json(const Json&, Framing&);
template void from_json(const Json&, VerticalMode&);
template void from_json(const Json&, RotationMode&);
template void from_json(const Json&, BackdropMode&);

}  // namespace morva
