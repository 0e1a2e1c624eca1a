// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/rules_command.h"

#include <cstdio>
#include <iostream>

#include "base/json.h"
#include "cli/preset_catalog.h"
#include "cli/rule_list.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace {

void printRow(const CropRule& rule, const PresetCatalog& catalog) {
    const CropPreset* preset = PresetLibrary::presetWith(rule.presetID, catalog.presets());
    const std::string name = preset ? preset->name : "no preset " + rule.presetID.text();
    std::printf("%-44s %s%s\n", rule.condition.title().c_str(), name.c_str(),
                rule.enabled ? "" : " (off)");
}

}  // namespace

ExitCode runRules(const RulesArguments& rules, const Arguments& common, Console& console) {
    const auto catalog = PresetCatalog::open(common.dataFolder);
    const auto list = catalog.and_then([&](const PresetCatalog& presets) {
        return RuleList::open(rules.rules, presets, common.dataFolder);
    });
    if (!list) {
        console.failure(list.error().message);
        return ExitCode::inputUnreadable;
    }
    if (rules.json) {
        std::cout << jsonText(list->rules, 2) << '\n';
    } else {
        for (const CropRule& rule : list->rules) printRow(rule, *catalog);
    }
    return ExitCode::done;
}

}  // namespace morva
