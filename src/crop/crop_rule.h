// SPDX-License-Identifier: GPL-3.0-or-later
// One line of the list that picks a preset per photo: a condition on what was measured, and the
// preset that it selects. Values only; `CropRules` walks the list.
#pragma once

#include <string>
#include <variant>

#include "analysis/record/image_analysis.h"
#include "base/json.h"
#include "base/uuid.h"

namespace morva {

/// When a rule applies.
struct RuleCondition {
    /// The photo has at least this many stars; without a rating it has none.
    struct Rating {
        int stars = 0;
        bool operator==(const Rating&) const = default;
    };
    /// The photo was taken along with one of at least this many stars.
    struct RatedSibling {
        int stars = 0;
        bool operator==(const RatedSibling&) const = default;
    };
    /// The face unit is at least this share of the photo's height; never while ratings are in use,
    /// for the stars are set deliberately.
    struct CloseUp {
        double share = 0;
        bool operator==(const CloseUp&) const = default;
    };
    /// The photo has this colour label, in any case of letters.
    struct Label {
        std::string text;
        bool operator==(const Label&) const = default;
    };
    /// This learned pose applies to the photo.
    struct Tag {
        std::string text;
        bool operator==(const Tag&) const = default;
    };
    /// Wider than high.
    struct Landscape {
        bool operator==(const Landscape&) const = default;
    };
    struct Sign {
        bool operator==(const Sign&) const = default;
    };
    struct FeetVisible {
        bool operator==(const FeetVisible&) const = default;
    };
    struct Always {
        bool operator==(const Always&) const = default;
    };

    /// Ankles below this share of the photo's height lie at its very edge: the feet are cut off.
    static constexpr double lowestAnkle = 0.99;

    std::variant<Always, Rating, RatedSibling, CloseUp, Label, Tag, Landscape, Sign, FeetVisible>
        when;

    /// As the list of rules shows it, "3-star rating".
    std::string title() const;
    /// `isRatedSibling`: what the caller found about this photo for the stars of this condition.
    bool matches(const ImageAnalysis& photo, bool ratingsInUse, bool isRatedSibling) const;

    bool operator==(const RuleCondition&) const = default;
};

struct CropRule {
    Uuid id = Uuid::random();
    RuleCondition condition;
    /// The preset that the rule selects.
    Uuid presetID;
    /// A rule that is switched off is skipped.
    bool enabled = true;

    bool operator==(const CropRule&) const = default;
};

/// An object whose one key names the case: {"rating": {"_0": 3}}, {"sign": {}}. Reading refuses
/// unknown cases.
void to_json(Json& json, const RuleCondition& condition);
void from_json(const Json& json, RuleCondition& condition);
/// Reading requires condition and preset; a missing identity becomes a fresh one.
void to_json(Json& json, const CropRule& rule);
void from_json(const Json& json, CropRule& rule);

}  // namespace morva
