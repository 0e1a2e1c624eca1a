// SPDX-License-Identifier: GPL-3.0-or-later
// The presets that the program ships, under fixed identities. They improve from version to
// version; the store brings a user's library up to date from here and never edits them.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "base/uuid.h"
#include "model/presets/crop_preset.h"

namespace morva::PresetLibrary {

/// Rises with every change of the built-in presets.
inline constexpr int version = 23;

const Uuid& yearbookID();
const Uuid& headshotID();
const Uuid& threeQuarterID();
const Uuid& fullLengthID();
const Uuid& landscapeID();
/// Not a preset: stands for an automatic choice by the crop-type rules. Not hexadecimal.
const Uuid& autoPresetID();

/// Headshot, three-quarter, full length and top-down, in this order.
const std::vector<CropPreset>& standardLibrary();

/// The yearbook preset under the identity given; not in the built-in list.
CropPreset yearbook4x5(const Uuid& id = yearbookID());

/// The current version of the built-in preset with this identity; nothing for any other identity,
/// the yearbook's included.
std::optional<CropPreset> replacement(const Uuid& id);

/// What "reset to its defaults" restores: the built-in preset with this identity, else the
/// headshot under its own identity.
CropPreset standardPreset(const Uuid& id);

/// The preset of any list with this identity, in that list; null when there is none.
const CropPreset* presetWith(const Uuid& id, std::span<const CropPreset> presets);

}  // namespace morva::PresetLibrary
