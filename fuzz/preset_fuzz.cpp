// SPDX-License-Identifier: GPL-3.0-or-later
// Presets that photographers pass on to each other, one by one and as a library: they are read or
// refused, and what is read can be kept, checked and solved with.
#include "base/files.h"
#include "crop/crop_solver.h"
#include "crop/synthetic_portrait.h"
#include "json_round_trip.h"
#include "model/presets/preset_library.h"
#include "model/presets/preset_store.h"
#include "scratch_folder.h"

namespace {

using namespace morva;

void use(const CropPreset& preset) {
    expectRoundTrip(preset);
    RatioCheck::passes(preset);
    RatioCheck::fittingHeight(preset);
    RatioCheck::alertMessage(preset);
    RatioCheck::sheetWarning(preset);
    static const ImageAnalysis level = Synthetic::portrait();
    static const ImageAnalysis turned = Synthetic::turnedBy(level, 4);
    CropSolver::solve(level, preset);
    CropSolver::solve(turned, preset, 350);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = textOf(data, size);
    if (const auto preset = decoded<CropPreset>(text, "a preset")) {
        use(*preset);
        return 0;
    }
    const PresetStore store(scratchFolder());
    if (!writeFileAtomically(store.fileURL(), text)) std::abort();
    for (const CropPreset& preset : store.load({}, FolderAccess::looking).presets)
        if (!PresetLibrary::replacement(preset.id)) use(preset);
    return 0;
}
