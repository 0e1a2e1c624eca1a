// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/batch_planner.h"

#include <algorithm>
#include <cassert>

#include "crop/crop_rules.h"
#include "model/presets/preset_library.h"

namespace morva::BatchPlanner {

namespace {

using PresetLibrary::presetWith;

/// What a person chose for the photo, where it still exists.
const CropPreset* ownPreset(const PresetChoices& choices, std::size_t photo) {
    const auto own = choices.ownPreset ? choices.ownPreset(photo) : std::nullopt;
    return own ? presetWith(*own, choices.presets) : nullptr;
}

void choosePresets(std::vector<PhotoPlan>& plans, Analyses photos,
                   std::span<const std::string> cameras, const PresetChoices& choices) {
    const auto rules = rulesFor(photos, cameras, choices);
    const CropPreset* fallback = presetWith(choices.fallback, choices.presets);
    if (!fallback) fallback = &choices.presets.front();
    for (std::size_t i = 0; i < photos.size(); ++i) {
        PhotoPlan& plan = plans[i];
        plan.preset = ownPreset(choices, i);
        if (rules[i]) {
            const CropRule& rule = choices.rules[*rules[i]];
            plan.preset = presetWith(rule.presetID, choices.presets);
            plan.rule = rule.condition.title();
        }
        if (!plan.preset) plan.preset = fallback;
    }
}

}  // namespace

std::vector<std::optional<std::size_t>> rulesFor(Analyses photos,
                                                 std::span<const std::string> cameras,
                                                 const PresetChoices& choices) {
    // The rules that lead somewhere, in their order, and where they stood.
    std::vector<CropRule> usable;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < choices.rules.size(); ++i) {
        const CropRule& rule = choices.rules[i];
        if (!rule.enabled || !presetWith(rule.presetID, choices.presets)) continue;
        usable.push_back(rule);
        places.push_back(i);
    }
    RuleContext context = CropRules::context(photos, cameras, usable);
    if (choices.ratingsInUse) context.ratingsInUse = *choices.ratingsInUse;
    std::vector<std::optional<std::size_t>> found(photos.size());
    for (std::size_t i = 0; i < photos.size(); ++i) {
        if (!photos[i] || ownPreset(choices, i)) continue;
        if (const CropRule* rule = CropRules::match(*photos[i], i, usable, context))
            found[i] = places[static_cast<std::size_t>(rule - usable.data())];
    }
    return found;
}

std::vector<PhotoPlan> plan(Analyses photos, std::span<const std::string> cameras,
                            const PresetChoices& choices) {
    assert(!choices.presets.empty());
    std::vector<PhotoPlan> plans(photos.size());
    choosePresets(plans, photos, cameras, choices);
    if (!choices.sharesSizes) return plans;
    const auto shared = SubjectGrouping::steadyFaceUnits(
        photos, cameras, SubjectGrouping::defaultGapSeconds,
        [&](std::size_t i) { return plans[i].preset->steadyPerSubject; });
    for (const auto& [index, unit] : shared) plans[index].faceUnit = unit;
    return plans;
}

}  // namespace morva::BatchPlanner
