// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/crop_rule.h"

#include <algorithm>

#include "base/text_case.h"
#include "crop/whole_number_text.h"

namespace morva {

namespace {

using Condition = RuleCondition;

struct Title {
    std::string operator()(const Condition::Rating& rating) const {
        return std::to_string(rating.stars) + "-star rating";
    }
    std::string operator()(const Condition::RatedSibling& sibling) const {
        return "Same pose as a " + std::to_string(sibling.stars) + "-star frame";
    }
    std::string operator()(const Condition::CloseUp& closeUp) const {
        return "Shot close (face over " + wholeNumberText(closeUp.share * 100) + "% of the frame)";
    }
    std::string operator()(const Condition::Label& label) const { return label.text + " label"; }
    std::string operator()(const Condition::Tag& tag) const { return withCapitalWords(tag.text); }
    std::string operator()(Condition::Landscape) const { return "Landscape frame"; }
    std::string operator()(Condition::Sign) const { return "Sign or letter board"; }
    std::string operator()(Condition::FeetVisible) const { return "Feet in the frame"; }
    std::string operator()(Condition::Always) const { return "Everything else"; }
};

struct Match {
    const ImageAnalysis& photo;
    bool ratingsInUse;
    bool isRatedSibling;

    bool operator()(const Condition::Rating& rating) const {
        return photo.rating.value_or(0) >= rating.stars;
    }
    bool operator()(const Condition::RatedSibling&) const { return isRatedSibling; }
    bool operator()(const Condition::CloseUp& closeUp) const {
        const FaceGeometry* face = photo.primary();
        return !ratingsInUse && face && face->faceUnit() / photo.sourceHeight >= closeUp.share;
    }
    bool operator()(const Condition::Label& label) const {
        return photo.label && equalIgnoringCase(*photo.label, label.text);
    }
    bool operator()(const Condition::Tag& tag) const {
        return std::ranges::find(photo.tags, tag.text) != photo.tags.end();
    }
    bool operator()(Condition::Landscape) const { return photo.sourceHeight < photo.sourceWidth; }
    bool operator()(Condition::Sign) const { return photo.signDetected; }
    bool operator()(Condition::FeetVisible) const {
        if (!photo.body) return false;
        const std::optional<double> ankles = photo.body->ankleY();
        return ankles && *ankles < Condition::lowestAnkle * photo.sourceHeight;
    }
    bool operator()(Condition::Always) const { return true; }
};

}  // namespace

std::string RuleCondition::title() const { return std::visit(Title{}, when); }

bool RuleCondition::matches(const ImageAnalysis& photo, bool ratingsInUse,
                            bool isRatedSibling) const {
    return std::visit(Match{photo, ratingsInUse, isRatedSibling}, when);
}

}  // namespace morva
