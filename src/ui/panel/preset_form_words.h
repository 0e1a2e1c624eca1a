// SPDX-License-Identifier: GPL-3.0-or-later
// What the sections of the preset's form say: plain functions of a preset.
#pragma once

#include <QString>

#include "ui/panel/preset_form.h"

namespace morva::PresetFormWords {

/// The main value of a section, for its closed heading; "not used" where nothing in it has an
/// effect.
QString mainValue(PresetForm::Part part, const CropPreset& preset);

/// "2100 × 1400 is not 7 : 5."
QString wrongRatio(const CropPreset& preset);

}  // namespace morva::PresetFormWords
