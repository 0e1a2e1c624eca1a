// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/crop_rule.h"

namespace morva {

namespace {

using Condition = RuleCondition;

/// Under which key a case keeps its value.
constexpr const char* valueKey = "_0";

/// Calls `visit(key, an empty case)` for every case, and `visit(key, an empty case, its value)` for
/// those with a value; one list for both directions, so that reading and writing cannot differ.
template <class Visit>
void visitCases(Visit visit) {
    visit("landscape", Condition::Landscape{});
    visit("rating", Condition::Rating{}, &Condition::Rating::stars);
    visit("ratedSibling", Condition::RatedSibling{}, &Condition::RatedSibling::stars);
    visit("closeUp", Condition::CloseUp{}, &Condition::CloseUp::share);
    visit("label", Condition::Label{}, &Condition::Label::text);
    visit("sign", Condition::Sign{});
    visit("tag", Condition::Tag{}, &Condition::Tag::text);
    visit("feetVisible", Condition::FeetVisible{});
    visit("always", Condition::Always{});
}

struct Writer {
    Json& json;
    const Condition& condition;

    template <class Case, class... Value>
    void operator()(const char* key, Case, Value Case::*... value) const {
        const Case* held = std::get_if<Case>(&condition.when);
        if (!held) return;
        json[key] = Json::object();
        ((json[key][valueKey] = held->*value), ...);
    }
};

struct Reader {
    const Json& json;
    Condition& condition;
    bool& known;

    template <class Case, class... Value>
    void operator()(const char* key, Case read, Value Case::*... value) const {
        const auto found = json.find(key);
        if (found == json.end()) return;
        if (!found->is_object())
            throw Json::type_error::create(302, "a condition's value is expected", &json);
        ((read.*value = required<Value>(*found, valueKey)), ...);
        condition.when = std::move(read);
        known = true;
    }
};

}  // namespace

void to_json(Json& json, const RuleCondition& condition) {
    json = Json::object();
    visitCases(Writer{json, condition});
}

void from_json(const Json& json, RuleCondition& condition) {
    if (!json.is_object() || json.size() != 1)
        throw Json::type_error::create(302, "a condition with one key is expected", &json);
    bool known = false;
    visitCases(Reader{json, condition, known});
    if (!known) {
        throw Json::other_error::create(
            501, "\"" + json.begin().key() + "\" is not a condition of a rule", &json);
    }
}

void to_json(Json& json, const CropRule& rule) {
    json = {{"id", rule.id},
            {"condition", rule.condition},
            {"presetID", rule.presetID},
            {"enabled", rule.enabled}};
}

void from_json(const Json& json, CropRule& rule) {
    rule = {};
    readIfPresent(json, "id", rule.id);
    rule.condition = required<RuleCondition>(json, "condition");
    rule.presetID = required<Uuid>(json, "presetID");
    readIfPresent(json, "enabled", rule.enabled);
}

}  // namespace morva
