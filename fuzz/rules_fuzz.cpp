// SPDX-License-Identifier: GPL-3.0-or-later
// Rules files: they are read or refused, and what is read can be kept, told, put into a list and
// asked about a small shoot.
#include <array>

#include "crop/crop_rules.h"
#include "crop/synthetic_portrait.h"
#include "json_round_trip.h"
#include "model/presets/preset_library.h"

namespace {

using namespace morva;

/// Two frames of a child, one of them rated, and a photo of everything that a rule can ask for.
const std::array<ImageAnalysis, 3>& shoot() {
    static const std::array<ImageAnalysis, 3> photos = [] {
        std::array<ImageAnalysis, 3> made{Synthetic::portrait(), Synthetic::portrait(),
                                          Synthetic::portrait()};
        for (std::size_t i = 0; i < made.size(); ++i)
            made[i].captureTime = 1.7e9 + 5.0 * static_cast<double>(i);
        made[0].rating = 4;
        made[2].label = "Red";
        made[2].tags = {"sitting"};
        made[2].signDetected = true;
        made[2].sourceWidth = 9000;
        made[2].captureTime = 1.8e9;
        return made;
    }();
    return photos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto rules = decoded<std::vector<CropRule>>(textOf(data, size), "the rules");
    if (!rules) return 0;
    const std::array<const ImageAnalysis*, 3> photos{&shoot()[0], &shoot()[1], &shoot()[2]};
    const std::vector<std::string> cameras(photos.size(), "A");
    const RuleContext context = CropRules::context(photos, cameras, *rules);
    for (std::size_t i = 0; i < photos.size(); ++i)
        CropRules::match(*photos[i], i, *rules, context);
    auto list = CropRules::defaults(PresetLibrary::standardLibrary());
    for (const CropRule& rule : *rules) {
        if (rule.condition.title().empty()) std::abort();
        CropRules::put(list, rule);
    }
    // Rules without an identity of their own get a fresh one each time, but not once they are kept.
    expectRoundTrip(*rules);
    return 0;
}
