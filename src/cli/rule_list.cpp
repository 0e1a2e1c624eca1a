// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/rule_list.h"

#include "crop/rule_store.h"

namespace morva {

Result<RuleList> RuleList::open(const std::string& wanted, const PresetCatalog& catalog,
                                const std::filesystem::path& dataFolder) {
    const RuleStore store(dataFolder, catalog.presets());
    const std::filesystem::path file =
        wanted == "auto" ? store.fileURL() : std::filesystem::path(wanted);
    std::error_code none;
    if (wanted == "auto" && !std::filesystem::exists(file, none))
        return RuleList{store.defaults(), "the starting rules"};
    return RuleStore::read(file).map([&](std::vector<CropRule> rules) {
        return RuleList{std::move(rules), file.string()};
    });
}

}  // namespace morva
