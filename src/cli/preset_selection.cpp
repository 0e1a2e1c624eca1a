// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/preset_selection.h"

#include <algorithm>

#include "cli/preset_catalog.h"
#include "cli/rule_list.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

Result<void> withoutStretching(const CropPreset& preset) {
    if (RatioCheck::passes(preset)) return {};
    return failure(preset.name + ": " + RatioCheck::alertTitle + ": " +
                   RatioCheck::alertMessage(preset));
}

}  // namespace

Result<PresetSelection> PresetSelection::open(const SelectionArguments& wanted,
                                              const fs::path& dataFolder) {
    const auto catalog = PresetCatalog::open(dataFolder);
    if (!catalog) return tl::unexpected(catalog.error());
    const auto batch = catalog->find(wanted.preset);
    if (!batch) return tl::unexpected(batch.error());
    PresetSelection selection;
    selection.group_ = wanted.group;
    selection.presets_ = catalog->presets();
    selection.presets_.insert(selection.presets_.begin(), *batch);

    std::string source;
    if (wanted.rules) {
        const auto list = RuleList::open(*wanted.rules, *catalog, dataFolder);
        if (!list) return tl::unexpected(list.error());
        source = list->source;
        std::ranges::copy_if(list->rules, std::back_inserter(selection.rules_), &CropRule::enabled);
    }
    return selection.check(source).map([&] { return std::move(selection); });
}

Result<void> PresetSelection::check(const std::string& rulesFile) const {
    if (auto fits = withoutStretching(presets_.front()); !fits) return fits;
    for (const CropRule& rule : rules_) {
        const CropPreset* selected = preset(rule.presetID);
        if (!selected) {
            return failure("The rule \"" + rule.condition.title() + "\" in " + rulesFile +
                           " selects a preset that does not exist (" + rule.presetID.text() +
                           "). Choose one of those that \"presets list --json\" shows.");
        }
        if (auto fits = withoutStretching(*selected); !fits) return fits;
    }
    return {};
}

const CropPreset* PresetSelection::preset(const Uuid& id) const {
    return PresetLibrary::presetWith(id, presets_);
}

std::vector<const CropPreset*> PresetSelection::inUse() const {
    std::vector<const CropPreset*> used{&presets_.front()};
    for (const CropRule& rule : rules_) {
        const CropPreset* selected = preset(rule.presetID);
        if (std::ranges::find(used, selected) == used.end()) used.push_back(selected);
    }
    return used;
}

void PresetSelection::changeThoseInUse(const std::function<void(CropPreset&)>& change) {
    const auto used = inUse();
    for (CropPreset& preset : presets_)
        if (std::ranges::find(used, &preset) != used.end()) change(preset);
}

bool PresetSelection::looksAtGroups() const {
    return (group_ && std::ranges::any_of(inUse(), &CropPreset::steadyPerSubject)) ||
           std::ranges::any_of(rules_, [](const CropRule& rule) {
               return std::holds_alternative<RuleCondition::RatedSibling>(rule.condition.when);
           });
}

std::string PresetSelection::description() const {
    Json json{{"rules", rules_}, {"group", group_}};
    for (const CropPreset* preset : inUse()) json["presets"].push_back(*preset);
    return jsonText(json);
}

std::vector<PhotoPlan> PresetSelection::plan(Analyses photos,
                                             std::span<const std::string> cameras) const {
    return BatchPlanner::plan(photos, cameras,
                              {.presets = presets_,
                               .fallback = presets_.front().id,
                               .rules = rules_,
                               .ownPreset = {},
                               .sharesSizes = group_});
}

}  // namespace morva
