// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/crop_rules.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "base/files.h"
#include "model/presets/preset_library.h"

namespace morva::CropRules {

namespace {

using Condition = RuleCondition;

bool hasStars(const ImageAnalysis* photo, int stars) {
    return photo && photo->rating.value_or(0) >= stars;
}

bool sameSize(const ImageAnalysis* a, const ImageAnalysis* b, double tolerance) {
    const FaceGeometry* one = a ? a->primary() : nullptr;
    const FaceGeometry* other = b ? b->primary() : nullptr;
    if (!one || !other) return false;
    const auto [smaller, larger] = std::minmax({one->faceUnit(), other->faceUnit()});
    return larger <= smaller * (1 + tolerance);
}

/// An identity that a default rule keeps from one start to the next, made from its condition.
Uuid identityOf(const Condition& condition) {
    const std::string digits = sha256("default rule " + Json(condition).dump());
    return Uuid::fixed(digits.substr(0, 8) + "-" + digits.substr(8, 4) + "-4" +
                       digits.substr(13, 3) + "-8" + digits.substr(17, 3) + "-" +
                       digits.substr(20, 12));
}

CropRule rule(Condition condition, const Uuid& preset) {
    CropRule made{
        .id = identityOf(condition), .condition = {}, .presetID = preset, .enabled = true};
    made.condition = std::move(condition);
    return made;
}

/// How deliberate a condition is, most deliberate first; more stars before fewer.
std::pair<int, int> rank(const RuleCondition& condition) {
    struct Rank {
        std::pair<int, int> operator()(Condition::Rating rating) const {
            return {0, -rating.stars};
        }
        std::pair<int, int> operator()(Condition::RatedSibling sibling) const {
            return {1, -sibling.stars};
        }
        std::pair<int, int> operator()(const Condition::Label&) const { return {2, 0}; }
        std::pair<int, int> operator()(const Condition::Tag&) const { return {3, 0}; }
        std::pair<int, int> operator()(Condition::CloseUp) const { return {4, 0}; }
        std::pair<int, int> operator()(Condition::Landscape) const { return {4, 0}; }
        std::pair<int, int> operator()(Condition::Sign) const { return {4, 0}; }
        std::pair<int, int> operator()(Condition::FeetVisible) const { return {4, 0}; }
        std::pair<int, int> operator()(Condition::Always) const { return {5, 0}; }
    };
    return std::visit(Rank{}, condition.when);
}

/// The first preset for each rating, most stars first.
std::map<int, Uuid, std::greater<>> presetsByStars(std::span<const CropPreset> library) {
    std::map<int, Uuid, std::greater<>> presets;
    for (const CropPreset& preset : library)
        if (preset.exportRating && *preset.exportRating > 0)
            presets.emplace(*preset.exportRating, preset.id);
    return presets;
}

}  // namespace

bool ratingsInUse(Analyses photos) {
    return std::ranges::any_of(
        photos, [](const ImageAnalysis* photo) { return hasStars(photo, leastDeliberateStars); });
}

std::set<std::size_t> ratedSiblings(Analyses photos, std::span<const std::string> cameras,
                                    int stars, double gapSeconds, double tolerance) {
    std::set<std::size_t> siblings;
    for (const auto& group : SubjectGrouping::groups(photos, cameras, gapSeconds)) {
        for (const std::size_t rated : group) {
            if (!hasStars(photos[rated], stars)) continue;
            siblings.insert(rated);
            for (const std::size_t other : group)
                if (sameSize(photos[rated], photos[other], tolerance)) siblings.insert(other);
        }
    }
    return siblings;
}

RuleContext context(Analyses photos, std::span<const std::string> cameras,
                    std::span<const CropRule> rules) {
    RuleContext context{.ratingsInUse = ratingsInUse(photos), .retakes = {}};
    for (const CropRule& rule : rules) {
        const auto* sibling = std::get_if<Condition::RatedSibling>(&rule.condition.when);
        if (!sibling || !rule.enabled || context.retakes.contains(sibling->stars)) continue;
        context.retakes[sibling->stars] =
            ratedSiblings(photos, cameras, sibling->stars, SubjectGrouping::defaultGapSeconds,
                          SubjectGrouping::steadyTolerance);
    }
    return context;
}

const CropRule* match(const ImageAnalysis& photo, std::size_t index,
                      std::span<const CropRule> rules, const RuleContext& context) {
    const auto isSibling = [&](const Condition& condition) {
        const auto* sibling = std::get_if<Condition::RatedSibling>(&condition.when);
        if (!sibling) return false;
        const auto found = context.retakes.find(sibling->stars);
        return found != context.retakes.end() && found->second.contains(index);
    };
    const auto found = std::ranges::find_if(rules, [&](const CropRule& rule) {
        return rule.enabled &&
               rule.condition.matches(photo, context.ratingsInUse, isSibling(rule.condition));
    });
    return found == rules.end() ? nullptr : &*found;
}

Uuid presetID(const ImageAnalysis& photo, std::size_t index, std::span<const CropRule> rules,
              const Uuid& fallback, const RuleContext& context) {
    const CropRule* first = match(photo, index, rules, context);
    return first ? first->presetID : fallback;
}

void put(std::vector<CropRule>& rules, const CropRule& rule) {
    if (const auto same = std::ranges::find(rules, rule.id, &CropRule::id); same != rules.end()) {
        *same = rule;
        return;
    }
    const auto place = std::ranges::find_if(
        rules, [&](const CropRule& other) { return rank(other.condition) > rank(rule.condition); });
    rules.insert(place, rule);
}

std::vector<CropRule> defaults(std::span<const CropPreset> library) {
    std::vector<CropRule> rules;
    const auto presets = presetsByStars(library);
    for (const auto& [stars, preset] : presets)
        rules.push_back(rule({Condition::Rating{stars}}, preset));
    for (const auto& [stars, preset] : presets)
        rules.push_back(rule({Condition::RatedSibling{stars}}, preset));

    // The camera was turned for a landscape frame, and feet were left in the frame, on purpose; a
    // sign that is held in a frame without feet needs more room than a headshot has.
    const auto add = [&](Condition condition, const Uuid& preset) {
        if (PresetLibrary::presetWith(preset, library))
            rules.push_back(rule(std::move(condition), preset));
    };
    add({Condition::Landscape{}}, PresetLibrary::landscapeID());
    add({Condition::FeetVisible{}}, PresetLibrary::fullLengthID());
    add({Condition::Sign{}}, PresetLibrary::threeQuarterID());
    add({Condition::CloseUp{defaultCloseUp}}, PresetLibrary::headshotID());
    return rules;
}

}  // namespace morva::CropRules
