// SPDX-License-Identifier: GPL-3.0-or-later
// What a person is told when a preset takes a reference portrait as its model. Used by the command
// line and the window, so that both say the same.
#pragma once

#include <string>
#include <vector>

#include "model/presets/crop_preset.h"

namespace morva::ReferenceNotes {

/// Ratios further apart than this share are worth a note.
inline constexpr double ratioTolerance = 0.01;

inline constexpr const char* failureTitle = "Could not use that reference";
inline constexpr const char* notesTitle = "Reference applied with notes";

/// What could not be adopted, one sentence each; none when everything was. The ratio of `preset` is
/// the same before and after the reference was applied.
std::vector<std::string> notes(const ReferenceGeometry& reference, const CropPreset& preset);

}  // namespace morva::ReferenceNotes
