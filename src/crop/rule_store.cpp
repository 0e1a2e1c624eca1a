// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/rule_store.h"

#include <algorithm>
#include <system_error>

#include "base/files.h"
#include "crop/crop_rules.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

}  // namespace

RuleStore::RuleStore(fs::path directory, std::vector<CropPreset> library)
    : directory_(std::move(directory)), library_(std::move(library)) {}

fs::path RuleStore::fileURL() const { return directory_ / "rules.json"; }

Result<std::vector<CropRule>> RuleStore::read(const fs::path& file) {
    return readFile(file).and_then([&](const std::string& text) {
        return decoded<std::vector<CropRule>>(text, "the rules in " + file.string());
    });
}

std::vector<CropRule> RuleStore::defaults() const { return CropRules::defaults(library_); }

RuleStore::Loaded RuleStore::load() const {
    if (!isThere(fileURL())) return {defaults(), {}};
    auto rules = read(fileURL());
    if (!rules) return {defaults(), rules.error()};
    return {std::move(*rules), {}};
}

/// The rules that a change starts from. What the disk does not give now it may give later, so that
/// is never taken for a file that cannot be understood.
Result<std::vector<CropRule>> RuleStore::forChange() const {
    if (!isThere(fileURL())) return defaults();
    const auto text = readFile(fileURL());
    if (!text) return tl::unexpected(text.error());
    if (auto rules = decoded<std::vector<CropRule>>(*text, "the rules")) return rules;
    if (const auto safe = setAside(fileURL()); !safe) return tl::unexpected(safe.error());
    return defaults();
}

Result<void> RuleStore::save(const std::vector<CropRule>& rules) const {
    if (const auto safe = forChange(); !safe) return tl::unexpected(safe.error());
    return write(rules);
}

Result<void> RuleStore::write(const std::vector<CropRule>& rules) const {
    if (auto made = makeFolder(directory_); !made) return made;
    return writeFileAtomically(fileURL(), jsonText(rules, 2) + "\n");
}

Result<void> RuleStore::put(const CropRule& rule) const {
    auto rules = forChange();
    if (!rules) return tl::unexpected(rules.error());
    CropRules::put(*rules, rule);
    return write(*rules);
}

Result<void> RuleStore::remove(const RuleCondition& condition) const {
    auto rules = forChange();
    if (!rules) return tl::unexpected(rules.error());
    std::erase_if(*rules, [&](const CropRule& rule) { return rule.condition == condition; });
    return write(*rules);
}

}  // namespace morva
