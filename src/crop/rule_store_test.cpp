// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/rule_store.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include "base/files.h"
#include "model/presets/preset_library.h"

namespace morva {

namespace {

namespace fs = std::filesystem;
using Condition = RuleCondition;
using testing::HasSubstr;

class RulesOnDisk : public testing::Test {
protected:
    void TearDown() override { fs::remove_all(folder); }

    std::vector<std::string> titles() const {
        std::vector<std::string> all;
        for (const CropRule& rule : store.load().rules) all.push_back(rule.condition.title());
        return all;
    }

    const fs::path folder =
        fs::path(testing::TempDir()) / ("morva-rules-" + std::to_string(getpid()));
    const RuleStore store{folder / "not/made yet", PresetLibrary::standardLibrary()};
};

TEST_F(RulesOnDisk, beginWithTheDefaultsAndComeBackAsSaved) {
    EXPECT_EQ(store.load().rules, store.defaults());
    EXPECT_FALSE(fs::exists(folder)) << "reading writes nothing";
    const std::vector<CropRule> rules{{.condition = {Condition::Label{"Rouge"}},
                                       .presetID = PresetLibrary::headshotID(),
                                       .enabled = false}};
    ASSERT_TRUE(store.save(rules));
    EXPECT_EQ(store.load().rules, rules);
    ASSERT_TRUE(store.save({}));
    EXPECT_TRUE(store.load().rules.empty()) << "an empty list is a choice, too";
}

TEST_F(RulesOnDisk, takeInNewRulesWhereTheyCanWin) {
    const std::vector<Condition> added{{Condition::Always{}},        {Condition::Tag{"kneeling"}},
                                       {Condition::Label{"red"}},    {Condition::Rating{1}},
                                       {Condition::RatedSibling{6}}, {Condition::Rating{6}}};
    ASSERT_TRUE(store.save({{.condition = {Condition::Rating{3}}, .presetID = Uuid::random()},
                            {.condition = {Condition::Landscape{}}, .presetID = Uuid::random()}}));
    for (const Condition& condition : added)
        ASSERT_TRUE(store.put({.condition = condition, .presetID = Uuid::random()}));
    EXPECT_THAT(titles(), testing::ElementsAre("6-star rating", "3-star rating", "1-star rating",
                                               "Same pose as a 6-star frame", "red label",
                                               "Kneeling", "Landscape frame", "Everything else"));
}

TEST_F(RulesOnDisk, replaceARuleInItsPlaceAndDropByCondition) {
    CropRule edited = store.defaults()[1];
    edited.enabled = false;
    ASSERT_TRUE(store.put(edited));
    std::vector<CropRule> expected = store.defaults();
    expected[1] = edited;
    EXPECT_EQ(store.load().rules, expected);
    ASSERT_TRUE(store.remove(edited.condition));
    expected.erase(expected.begin() + 1);
    EXPECT_EQ(store.load().rules, expected);
}

TEST_F(RulesOnDisk, neverOverwriteAFileThatTheyCannotUnderstand) {
    const fs::path directory = store.fileURL().parent_path();
    fs::create_directories(directory);
    for (const char* kept : {"rules.unreadable.json", "rules.unreadable 2.json"}) {
        const std::string content = std::string(R"([{"condition":{"weather":{}}}] )") + kept;
        ASSERT_TRUE(writeFileAtomically(store.fileURL(), content));
        const RuleStore::Loaded loaded = store.load();
        EXPECT_EQ(loaded.rules, store.defaults());
        ASSERT_TRUE(loaded.problem);
        EXPECT_THAT(loaded.problem->message, HasSubstr("rules.json"));
        EXPECT_EQ(readFile(store.fileURL()), content) << "reading leaves it where it is";
        ASSERT_TRUE(store.remove({Condition::Landscape{}}));
        EXPECT_EQ(readFile(directory / kept), content);
        EXPECT_FALSE(store.load().problem);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(directory), {}), 3);
}

TEST_F(RulesOnDisk, sayWhenTheyCannotBeWritten) {
    fs::create_directories(folder);
    ASSERT_TRUE(writeFileAtomically(folder / "not", "a file where the folder should be"));
    const auto saved = store.save({});
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("made yet"));
}

}  // namespace

}  // namespace morva
