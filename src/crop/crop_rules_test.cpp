// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/crop_rules.h"

#include <gmock/gmock.h>

#include "crop/batch_test_support.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace {

using BatchTest::frame;
using BatchTest::pointers;
using Condition = RuleCondition;
using testing::ElementsAre;

const Uuid fallback = Uuid::fixed("00000000-0000-4000-8000-00000000000F");
const Uuid chosen = Uuid::fixed("00000000-0000-4000-8000-00000000000A");

/// A photo 4000 high with a face of 400, nobody's feet and no stars.
ImageAnalysis plain() {
    ImageAnalysis photo = Synthetic::portrait();
    photo.sourceWidth = 3200;
    photo.sourceHeight = 4000;
    return photo;
}

ImageAnalysis withAnkles(double y) {
    ImageAnalysis photo = plain();
    photo.body->leftAnkle = photo.body->rightAnkle = Point{1600, y};
    return photo;
}

TEST(RuleCondition, saysWhenItMatches) {
    ImageAnalysis photo = plain();
    photo.rating = 2;
    photo.label = "Édité";
    photo.tags = {"hands on hips"};
    ImageAnalysis wide = plain();
    std::swap(wide.sourceWidth, wide.sourceHeight);
    wide.signDetected = true;
    ImageAnalysis empty = plain();
    empty.faces.clear();
    empty.body.reset();
    struct Case {
        Condition condition;
        const ImageAnalysis& photo;
        bool matches;
    };
    for (const Case& c : {
             Case{{Condition::Rating{2}}, photo, true},
             Case{{Condition::Rating{3}}, photo, false},
             Case{{Condition::Rating{1}}, empty, false},
             Case{{Condition::Rating{0}}, empty, true},
             Case{{Condition::CloseUp{0.1}}, photo, true},
             Case{{Condition::CloseUp{0.1001}}, photo, false},
             Case{{Condition::CloseUp{0}}, empty, false},
             Case{{Condition::Label{"éDITÉ"}}, photo, true},
             Case{{Condition::Label{"Edite"}}, photo, false},
             Case{{Condition::Label{""}}, empty, false},
             Case{{Condition::Tag{"hands on hips"}}, photo, true},
             Case{{Condition::Tag{"Hands on hips"}}, photo, false},
             Case{{Condition::Landscape{}}, wide, true},
             Case{{Condition::Landscape{}}, photo, false},
             Case{{Condition::Sign{}}, wide, true},
             Case{{Condition::Sign{}}, photo, false},
             Case{{Condition::FeetVisible{}}, withAnkles(3900), true},
             Case{{Condition::FeetVisible{}}, withAnkles(3960), false},
             Case{{Condition::FeetVisible{}}, withAnkles(3970), false},
             Case{{Condition::FeetVisible{}}, photo, false},
             Case{{Condition::FeetVisible{}}, empty, false},
             Case{{Condition::Always{}}, empty, true},
         })
        EXPECT_EQ(c.condition.matches(c.photo, false, false), c.matches) << c.condition.title();
    EXPECT_FALSE(Condition{Condition::CloseUp{0.1}}.matches(photo, true, false));
    EXPECT_TRUE(Condition{Condition::RatedSibling{4}}.matches(empty, true, true));
    EXPECT_FALSE(Condition{Condition::RatedSibling{4}}.matches(empty, true, false));
}

TEST(RuleCondition, hasATitleAndAStoredForm) {
    struct Case {
        Condition condition;
        const char* title;
        const char* json;
    };
    for (const Case& c : {
             Case{{Condition::Rating{3}}, "3-star rating", R"({"rating":{"_0":3}})"},
             Case{{Condition::RatedSibling{5}},
                  "Same pose as a 5-star frame",
                  R"({"ratedSibling":{"_0":5}})"},
             Case{{Condition::CloseUp{0.29}},
                  "Shot close (face over 29% of the frame)",
                  R"({"closeUp":{"_0":0.29}})"},
             Case{{Condition::Label{"Red"}}, "Red label", R"({"label":{"_0":"Red"}})"},
             Case{{Condition::Tag{"élan on a  stool"}},
                  "Élan On A  Stool",
                  R"({"tag":{"_0":"élan on a  stool"}})"},
             Case{{Condition::Landscape{}}, "Landscape frame", R"({"landscape":{}})"},
             Case{{Condition::Sign{}}, "Sign or letter board", R"({"sign":{}})"},
             Case{{Condition::FeetVisible{}}, "Feet in the frame", R"({"feetVisible":{}})"},
             Case{{Condition::Always{}}, "Everything else", R"({"always":{}})"},
         }) {
        EXPECT_EQ(c.condition.title(), c.title);
        EXPECT_EQ(Json(c.condition).dump(), c.json);
        EXPECT_EQ(decoded<Condition>(c.json, "it"), c.condition);
    }
    for (const char* bad :
         {"{}", R"({"stars":{"_0":3}})", R"({"rating":{}})", R"({"rating":{"_0":2.5}})",
          R"({"rating":3})", R"({"sign":{},"landscape":{}})", R"("sign")", R"({"sign":null})"})
        EXPECT_FALSE(decoded<Condition>(bad, "it")) << bad;
}

TEST(CropRule, isStoredUnderItsFourKeys) {
    const CropRule rule{
        .id = chosen, .condition = {Condition::Sign{}}, .presetID = fallback, .enabled = false};
    EXPECT_EQ(Json(rule).dump(), R"({"id":"00000000-0000-4000-8000-00000000000A",)"
                                 R"("condition":{"sign":{}},)"
                                 R"("presetID":"00000000-0000-4000-8000-00000000000F",)"
                                 R"("enabled":false})");
    EXPECT_EQ(decoded<CropRule>(Json(rule).dump(), "it"), rule);
    EXPECT_FALSE(decoded<CropRule>(R"({"condition":{"sign":{}}})", "it"));
}

TEST(CropRules, takeTheFirstEnabledRuleThatMatchesElseTheFallback) {
    const CropRule never{.condition = {Condition::Sign{}}, .presetID = Uuid::random()};
    const CropRule off{
        .condition = {Condition::Always{}}, .presetID = Uuid::random(), .enabled = false};
    const CropRule first{.condition = {Condition::Rating{0}}, .presetID = chosen};
    const CropRule second{.condition = {Condition::Always{}}, .presetID = Uuid::random()};
    struct Case {
        std::vector<CropRule> rules;
        Uuid expected;
    };
    for (const Case& c : {Case{{}, fallback}, Case{{off}, fallback}, Case{{never}, fallback},
                          Case{{off, never, first, second}, chosen}})
        EXPECT_EQ(CropRules::presetID(plain(), 0, c.rules, fallback, {}), c.expected);
}

TEST(RatedSiblings, areFramesOfTheSameSizeInTheGroupOfARatedOne) {
    const std::vector<ImageAnalysis> photos{frame(0, 100),     frame(5, 104, 5), frame(9, 130),
                                            frame(14, 131, 3), frame(40, 104),   frame({}, 104)};
    auto batch = pointers(photos);
    batch.push_back(nullptr);
    const auto siblings = [&](int stars, std::span<const std::string> cameras = {}) {
        return CropRules::ratedSiblings(batch, cameras, stars, 12, 0.08);
    };
    EXPECT_THAT(siblings(5), ElementsAre(0, 1)) << "the closer pose of the same child is another";
    EXPECT_THAT(siblings(3), ElementsAre(0, 1, 2, 3));
    const std::vector<std::string> cameras{"b", "a", "b", "b", "a", "a", "a"};
    EXPECT_THAT(siblings(3, cameras), ElementsAre(1, 2, 3));
}

TEST(RatedSiblings, followTheFrameThatTheirRuleAsksFor) {
    const std::vector<ImageAnalysis> photos{frame(0, 100, 5), frame(1, 101), frame(60, 100, 3),
                                            frame(61, 101), frame(99, 100)};
    const auto batch = pointers(photos);
    const std::vector<CropRule> rules{
        {.condition = {Condition::RatedSibling{5}}, .presetID = chosen},
        {.condition = {Condition::RatedSibling{3}}, .presetID = PresetLibrary::threeQuarterID()}};
    const RuleContext context = CropRules::context(batch, {}, rules);
    const auto preset = [&](std::size_t i) {
        return CropRules::presetID(photos[i], i, rules, fallback, context);
    };
    EXPECT_EQ(preset(1), chosen);
    EXPECT_EQ(preset(3), PresetLibrary::threeQuarterID());
    EXPECT_EQ(preset(4), fallback);
}

TEST(RatingsInUse, beginWithThreeStarsAnywhere) {
    std::vector<ImageAnalysis> photos{plain(), frame(0, 100, 2), frame(0, 100, -1)};
    EXPECT_FALSE(CropRules::ratingsInUse(pointers(photos)));
    photos[0].rating = 3;
    auto batch = pointers(photos);
    batch.push_back(nullptr);
    EXPECT_TRUE(CropRules::ratingsInUse(batch));
}

/// What the default rules choose for the last photo of a batch, by preset name.
std::string choice(const std::vector<ImageAnalysis>& photos) {
    const auto& library = PresetLibrary::standardLibrary();
    const std::vector<CropRule> rules = CropRules::defaults(library);
    const auto batch = pointers(photos);
    const RuleContext context = CropRules::context(batch, {}, rules);
    const Uuid id = CropRules::presetID(photos.back(), photos.size() - 1, rules, fallback, context);
    const auto preset = PresetLibrary::replacement(id);
    return preset ? preset->badge : "fallback";
}

TEST(DefaultRules, readBackTheStarsThatThePresetsWrite) {
    for (const CropPreset& preset : PresetLibrary::standardLibrary()) {
        // Feet, a sign and a wide frame speak for other presets; the stars are louder.
        ImageAnalysis photo = withAnkles(2000);
        photo.sourceWidth = 6000;
        photo.signDetected = true;
        photo.rating = preset.exportRating;
        EXPECT_EQ(choice({photo}), preset.badge);
    }
}

TEST(DefaultRules, chooseByWhatIsSeenWhereThereAreNoStars) {
    ImageAnalysis close = plain();
    close.sourceHeight = 3300;
    close.sourceWidth = 2600;
    ImageAnalysis sign = close;
    sign.signDetected = true;
    ImageAnalysis feet = withAnkles(3900);
    feet.signDetected = true;
    ImageAnalysis wide = feet;
    wide.sourceWidth = 6000;
    ImageAnalysis sortedOut = close;
    sortedOut.rating = 1;
    EXPECT_EQ(choice({plain()}), "fallback");
    EXPECT_EQ(choice({close}), "Head");
    EXPECT_EQ(choice({sortedOut}), "Head");
    EXPECT_EQ(choice({sign}), "3/4") << "a headshot would cut the sign";
    EXPECT_EQ(choice({feet}), "Full") << "a full-length frame keeps its sign";
    EXPECT_EQ(choice({wide}), "Top");

    ImageAnalysis starred = frame(500, 400, 5);
    EXPECT_EQ(choice({starred, close}), "fallback") << "stars elsewhere switch close-ups off";
    EXPECT_EQ(choice({starred, frame(505, 410)}), "Head") << "retaken within seconds";
    EXPECT_EQ(choice({starred, frame(505, 410, 2)}), "Full") << "its own stars come first";
}

TEST(DefaultRules, fitTheLibraryAndStayTheSame) {
    const auto& library = PresetLibrary::standardLibrary();
    EXPECT_EQ(CropRules::defaults(library), CropRules::defaults(library));
    std::set<Uuid> identities;
    for (const CropRule& rule : CropRules::defaults(library)) identities.insert(rule.id);
    EXPECT_EQ(identities.size(), CropRules::defaults(library).size());
    EXPECT_TRUE(CropRules::defaults({}).empty());

    std::vector<CropPreset> users(3);
    users[0].id = chosen;
    users[0].exportRating = users[1].exportRating = 4;
    const std::vector<CropRule> own = CropRules::defaults(users);
    ASSERT_EQ(own.size(), 2u);
    EXPECT_EQ(own[0].presetID, chosen);
}

}  // namespace

}  // namespace morva
