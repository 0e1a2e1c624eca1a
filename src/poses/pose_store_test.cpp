// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/pose_store.h"

#include <gtest/gtest.h>

#include "poses/pose_test_support.h"

namespace morva {
namespace {

std::vector<std::string> tagsOf(const PoseStore::Models& models) {
    std::vector<std::string> tags;
    for (const auto& model : models) tags.push_back(model.tag);
    return tags;
}

using Tags = std::vector<std::string>;

TEST(PoseStore, keepsOnePoseATagTheNewestLast) {
    const PoseFolder folder;
    const PoseStore store(folder.path / "made" / "when saved");
    EXPECT_EQ(store.load(), PoseStore::Models{});
    for (const char* tag : {"sitting", "sign", "sitting"})
        ASSERT_TRUE(store.put(constantModel(tag, 2, tag[1] == 'i' ? 0.5 : 0)));
    EXPECT_EQ(tagsOf(store.load()), (Tags{"sign", "sitting"}));
    ASSERT_TRUE(store.remove("sign"));
    ASSERT_TRUE(store.remove("never taught"));
    EXPECT_EQ(tagsOf(store.load()), Tags{"sitting"});
    EXPECT_EQ(tagsOf(TagClassifier::loadAll(std::vector{store.file()})->models()), Tags{"sitting"});
    TagClassifier::Model older = constantModel("older", 2);
    --older.revision;
    EXPECT_FALSE(store.put(older));
}

TEST(PoseStore, writesSortedKeysOnLinesOfTheirOwn) {
    const PoseFolder folder;
    const PoseStore store(folder.path);
    ASSERT_TRUE(store.save({constantModel("a", 1)}));
    EXPECT_EQ(readFile(store.file()),
              "[\n  {\n    \"bias\": 0.0,\n    \"kind\": \"featureprint-logistic\",\n"
              "    \"mean\": [\n      0.0\n    ],\n    \"revision\": 4,\n"
              "    \"std\": [\n      1.0\n    ],\n    \"tag\": \"a\",\n"
              "    \"threshold\": 0.5,\n    \"weights\": [\n      0.0\n    ]\n  }\n]\n");
}

TEST(PoseStore, setsAsideWhatItCannotUnderstandInsteadOfOverwritingIt) {
    const PoseFolder folder;
    const PoseStore store(folder.path);
    for (const char* kept : {"poses.unreadable.json", "poses.unreadable 2.json"}) {
        folder.write("poses.json", "[{\"tag\":");
        EXPECT_EQ(store.load(), PoseStore::Models{});
        ASSERT_TRUE(store.put(constantModel("a", 1)));
        EXPECT_EQ(readFile(folder.path / kept), "[{\"tag\":");
        EXPECT_EQ(tagsOf(store.load()), Tags{"a"});
    }
}

TEST(PoseStore, keepsTheOldFileWhenWritingFails) {
    const PoseFolder folder;
    const auto file = folder.write("a file", "");
    const auto saved = PoseStore(file / "below").save({constantModel("a", 1)});
    ASSERT_FALSE(saved);
    EXPECT_NE(saved.error().message.find("below"), std::string::npos);
}

TEST(PosePacks, carryTheChosenPoses) {
    const PoseFolder folder;
    const PoseStore store(folder.path / "mine");
    ASSERT_TRUE(store.save({constantModel("a", 2), constantModel("b", 2), constantModel("c", 2)}));
    const auto pack = folder.path / PoseStore::packName;
    ASSERT_TRUE(store.write(pack, Tags{"c", "a", "unknown"}));
    EXPECT_EQ(tagsOf(PoseStore::read(pack).value()), (Tags{"a", "c"}));
    ASSERT_TRUE(store.write(pack, std::nullopt));
    EXPECT_EQ(PoseStore::read(pack), store.load());
}

TEST(PosePacks, fromStrangersGiveOnlyPosesThatCanBeUsed) {
    const PoseFolder folder;
    const auto read = [&](const std::vector<TagClassifier::Model>& models) {
        return PoseStore::read(folder.write("pack.json", Json(models).dump()));
    };
    TagClassifier::Model crooked = constantModel("crooked", 3);
    crooked.mean.pop_back();
    TagClassifier::Model older = constantModel("older", 3);
    older.revision = 1;
    const auto longNamed = constantModel(std::string(201, 'x'), 3);
    const auto tooLong = constantModel("long", 16385);
    const auto first = constantModel("a", 3, -1);
    const auto last = constantModel("a", 3, 1);
    EXPECT_EQ(read({crooked, first, older, longNamed, tooLong, last}), PoseStore::Models{last});
    const auto none = read({crooked, older});
    ASSERT_FALSE(none);
    EXPECT_EQ(none.error().message, "pack.json holds no poses that this version of Morva can use.");
    EXPECT_EQ(PoseStore::read(folder.write("single.json", Json(first).dump())),
              PoseStore::Models{first});
    EXPECT_EQ(read({}), PoseStore::Models{});
    EXPECT_FALSE(PoseStore::read(folder.write("text.json", "poses")));
    EXPECT_FALSE(PoseStore::read(folder.path / "missing.json"));
    std::filesystem::resize_file(folder.path / "text.json", 33U << 20U);
    EXPECT_FALSE(PoseStore::read(folder.path / "text.json"));
    EXPECT_FALSE(PoseStore::read("/dev/zero"));
}

}  // namespace
}  // namespace morva
