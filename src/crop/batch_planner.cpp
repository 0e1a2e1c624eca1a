// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/batch_planner.h"

#include <algorithm>
#include <cassert>

#include "crop/crop_rules.h"
#include "model/presets/preset_library.h"

namespace morva::BatchPlanner {

namespace {

using PresetLibrary::presetWith;

/// The rules that lead somewhere, in their order.
std::vector<CropRule> usableRules(const PresetChoices& choices) {
    std::vector<CropRule> usable;
    std::ranges::copy_if(choices.rules, std::back_inserter(usable), [&](const CropRule& rule) {
        return rule.enabled && presetWith(rule.presetID, choices.presets);
    });
    return usable;
}

void choosePresets(std::vector<PhotoPlan>& plans, Analyses photos,
                   std::span<const std::string> cameras, const PresetChoices& choices) {
    const std::vector<CropRule> rules = usableRules(choices);
    const RuleContext context = CropRules::context(photos, cameras, rules);
    const CropPreset* fallback = presetWith(choices.fallback, choices.presets);
    if (!fallback) fallback = &choices.presets.front();
    for (std::size_t i = 0; i < photos.size(); ++i) {
        PhotoPlan& plan = plans[i];
        const auto own = choices.ownPreset ? choices.ownPreset(i) : std::nullopt;
        if (own) plan.preset = presetWith(*own, choices.presets);
        const CropRule* rule =
            plan.preset || !photos[i] ? nullptr : CropRules::match(*photos[i], i, rules, context);
        if (rule) {
            plan.preset = presetWith(rule->presetID, choices.presets);
            plan.rule = rule->condition.title();
        }
        if (!plan.preset) plan.preset = fallback;
    }
}

}  // namespace

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
