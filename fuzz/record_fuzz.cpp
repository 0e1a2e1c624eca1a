// SPDX-License-Identifier: GPL-3.0-or-later
// Records and presets from files that anybody may have written: they are read or refused, and what
// is read can be solved.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "analysis/record/image_analysis.h"
#include "crop/crop_solver.h"
#include "model/presets/preset_library.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto preset = morva::decoded<morva::CropPreset>(text, "a preset");
    const auto record = morva::decoded<morva::ImageAnalysis>(text, "a record");
    if (record) {
        morva::CropSolver::solve(*record,
                                 preset.value_or(morva::PresetLibrary::standardLibrary().front()));
    }
    return 0;
}
