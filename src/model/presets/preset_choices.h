// SPDX-License-Identifier: GPL-3.0-or-later
// The enumerated settings of a preset, each with the text that files store and the label that the
// window shows. Unknown stored texts are refused, never guessed.
#pragma once

#include <concepts>
#include <span>
#include <string_view>

#include "base/json.h"

namespace morva {

/// Which point of the subject is placed at the preset's horizontal position.
enum class HorizontalAnchor { faceCenter, eyes, headCenter, bodyCenter, subjectCenter };

/// What sets the size of the crop.
enum class Framing { face, threeQuarter, fullLength, frameBottom };

/// How a headshot is placed vertically.
enum class VerticalMode { topMargin, balanced, eyeLine };

/// How a crop is levelled.
enum class RotationMode { never, correctCameraRoll, levelEyes };

/// What fills crop area outside the photo.
enum class BackdropMode { keep, repeatEdges, replace };

/// True for the framings that are measured on the body rather than on the face.
constexpr bool isBody(Framing framing) { return framing != Framing::face; }

template <class T>
concept PresetChoice = std::same_as<T, HorizontalAnchor> || std::same_as<T, Framing> ||
    std::same_as<T, VerticalMode> || std::same_as<T, RotationMode> || std::same_as<T, BackdropMode>;

/// One case of an enumerated setting.
template <class T>
struct Choice {
    T value;
    /// The text in files.
    std::string_view key;
    std::string_view label;
    /// A second line below the label; empty for most.
    std::string_view detail = {};
};

/// All cases in the order in which menus list them.
template <PresetChoice T>
std::span<const Choice<T>> choices();

/// The texts of one case.
template <PresetChoice T>
const Choice<T>& choice(T value);

template <PresetChoice T>
void to_json(Json& json, T value);
template <PresetChoice T>
void from_json(const Json& json, T& value);

}  // namespace morva
