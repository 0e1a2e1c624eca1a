// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/preset_selection.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include "base/files.h"
#include "crop/batch_test_support.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace {

namespace fs = std::filesystem;
using BatchTest::frame;
using BatchTest::pointers;
using testing::HasSubstr;

class Selection : public testing::Test {
protected:
    void SetUp() override { fs::create_directories(folder); }
    void TearDown() override { fs::remove_all(folder); }

    static std::string ruleFor(const std::string& condition, const Uuid& preset,
                               const std::string& more = "") {
        return R"({"condition": )" + condition + R"(, "presetID": ")" + preset.text() + "\"" +
               more + "}";
    }

    Result<PresetSelection> opened(const SelectionArguments& wanted) const {
        return PresetSelection::open(wanted, folder);
    }

    const fs::path folder =
        fs::path(testing::TempDir()) / ("morva-selection-" + std::to_string(getpid()));
    const std::string rules = folder / "rules.json";
    /// Two frames of a child in stars, one without, and somebody else an hour later.
    const std::vector<ImageAnalysis> photos{frame(0, 400, 5), frame(3, 408), frame(6, 500, 2),
                                            frame(3600, 404)};
    const std::vector<std::string> cameras{4, "A"};
};

TEST_F(Selection, givesEveryPhotoOnePresetAndTheChildOneSize) {
    const auto selection = opened({.preset = "yearbook", .rules = {}});
    ASSERT_TRUE(selection) << selection.error().message;
    EXPECT_FALSE(selection->hasRules());
    const auto plans = selection->plan(pointers(photos), cameras);
    for (const PhotoPlan& plan : plans) {
        EXPECT_EQ(plan.preset->name, "Yearbook 4x5");
        EXPECT_FALSE(plan.rule);
    }
    EXPECT_EQ(plans[0].faceUnit, 404);
    EXPECT_EQ(plans[1].faceUnit, 404);
    EXPECT_FALSE(plans[2].faceUnit || plans[3].faceUnit);

    const auto apart = opened({.preset = "yearbook", .rules = {}, .group = false});
    EXPECT_FALSE(apart->plan(pointers(photos), cameras)[0].faceUnit);
    const auto otherCamera =
        selection->plan(pointers(photos), std::vector<std::string>{"A", "B", "A", "A"});
    EXPECT_FALSE(otherCamera[0].faceUnit);
}

TEST_F(Selection, startsWithTheDefaultRulesAndThenFollowsTheUsersOwn) {
    const auto names = [&] {
        const auto selection = opened({.preset = "yearbook", .rules = "auto"});
        std::vector<std::string> all;
        for (const PhotoPlan& plan : selection->plan(pointers(photos), cameras))
            all.push_back(plan.preset->badge + ": " + plan.rule.value_or("-"));
        return all;
    };
    EXPECT_THAT(names(),
                testing::ElementsAre("Head: 5-star rating", "Head: Same pose as a 5-star frame",
                                     "Full: 2-star rating", "Year: -"));
    ASSERT_TRUE(writeFileAtomically(
        rules, "[" +
                   ruleFor(R"({"rating": {"_0": 5}})", PresetLibrary::headshotID(),
                           R"(, "enabled": false)") +
                   "," + ruleFor(R"({"rating": {"_0": 1}})", PresetLibrary::threeQuarterID()) +
                   "]"));
    EXPECT_THAT(names(), testing::ElementsAre("3/4: 1-star rating", "Year: -", "3/4: 1-star rating",
                                              "Year: -"));
}

TEST_F(Selection, sharesSizesOnlyWhereThePresetOfThePhotoWantsIt) {
    CropPreset loose = *PresetLibrary::replacement(PresetLibrary::headshotID());
    loose.steadyPerSubject = false;
    ASSERT_TRUE(writeFileAtomically(folder / "presets.json", Json{loose}.dump()));
    ASSERT_TRUE(writeFileAtomically(
        rules, "[" + ruleFor(R"({"rating": {"_0": 5}})", PresetLibrary::headshotID()) + "]"));
    const auto selection = opened({.preset = "yearbook", .rules = rules});
    ASSERT_TRUE(selection) << selection.error().message;
    std::vector<ImageAnalysis> three = photos;
    three.push_back(frame(4, 410));
    const auto plans = selection->plan(pointers(three), std::vector<std::string>(5, "A"));
    EXPECT_FALSE(plans[0].faceUnit) << "its preset is not steady";
    EXPECT_EQ(plans[1].faceUnit, 409);
    EXPECT_EQ(plans[4].faceUnit, 409);
}

TEST_F(Selection, prefersThePresetGivenToTheStoredOneOfItsIdentity) {
    CropPreset mine = *PresetLibrary::replacement(PresetLibrary::headshotID());
    mine.name = "Modelled";
    ASSERT_TRUE(writeFileAtomically(folder / "mine.json", Json(mine).dump()));
    const auto selection = opened({.preset = folder / "mine.json", .rules = "auto"});
    EXPECT_EQ(selection->plan(pointers(photos), cameras)[0].preset->name, "Modelled");
}

TEST_F(Selection, refusesWhatItCannotFollow) {
    CropPreset stretched;
    stretched.id = Uuid::fixed("00000000-0000-4000-8000-00000000000A");
    stretched.name = "Square";
    stretched.aspectHeight = 4;
    ASSERT_TRUE(writeFileAtomically(folder / "presets.json", Json{stretched}.dump()));
    struct Case {
        std::string content;
        std::vector<std::string> says;
    };
    for (const Case& c : {
             Case{"[", {"rules.json"}},
             Case{"[" + ruleFor(R"({"weather": {}})", stretched.id) + "]",
                  {"rules.json", "weather"}},
             Case{"[" + ruleFor(R"({"sign": {}})", Uuid::random()) + "]",
                  {"rules.json", "\"Sign or letter board\"", "does not exist"}},
             Case{"[" + ruleFor(R"({"sign": {}})", stretched.id) + "]",
                  {"Square", "Morva will not stretch faces."}},
         }) {
        ASSERT_TRUE(writeFileAtomically(rules, c.content));
        for (const std::string& given : {rules, std::string("auto")}) {
            const auto selection = opened({.preset = "headshot", .rules = given});
            ASSERT_FALSE(selection) << c.content;
            for (const std::string& part : c.says)
                EXPECT_THAT(selection.error().message, HasSubstr(part));
        }
    }
    const auto unused =
        "[" + ruleFor(R"({"sign": {}})", Uuid::random(), R"(, "enabled": false)") + "]";
    ASSERT_TRUE(writeFileAtomically(rules, unused));
    EXPECT_TRUE(opened({.preset = "headshot", .rules = "auto"}));
    EXPECT_THAT(opened({.preset = "headshot", .rules = "none.json"}).error().message,
                HasSubstr("none.json"));
    EXPECT_THAT(opened({.preset = "square", .rules = {}}).error().message, HasSubstr("Square"));
}

}  // namespace

}  // namespace morva
