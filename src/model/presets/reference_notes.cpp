// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/presets/reference_notes.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace morva::ReferenceNotes {

namespace {

std::string threeDecimals(double ratio) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.3f", ratio);
    return text.data();
}

}  // namespace

std::vector<std::string> notes(const ReferenceGeometry& reference, const CropPreset& preset) {
    std::vector<std::string> notes;
    if (std::abs(reference.aspect / preset.aspectRatio() - 1) > ratioTolerance) {
        notes.push_back("The reference is " + threeDecimals(reference.aspect) +
                        ":1 but the preset ratio is " + threeDecimals(preset.aspectRatio()) +
                        ". The face measurements were adopted; the ratio was kept.");
    }
    if (!reference.headTopY) {
        notes.emplace_back(
            "The hair outline could not be measured on the reference, so the top margin was left "
            "unchanged.");
    }
    return notes;
}

}  // namespace morva::ReferenceNotes
