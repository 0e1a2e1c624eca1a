// SPDX-License-Identifier: GPL-3.0-or-later
// Pose packs from strangers: they are read or refused, and what is read can be scored, kept and
// read again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/files.h"
#include "poses/pose_store.h"
#include "scratch_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto pack = morva::scratchFolder() / "pack.json";
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (!morva::writeFileAtomically(pack, text)) std::abort();
    const auto models = morva::PoseStore::read(pack);
    if (!models) return 0;
    const morva::PoseStore store(morva::scratchFolder());
    for (const auto& model : *models) {
        const std::vector<float> print(model.weights.size(), 0.1F);
        morva::TagClassifier::probability(print, model);
    }
    if (!store.save(*models)) std::abort();
    if (store.load().size() != models->size()) std::abort();
    return 0;
}
