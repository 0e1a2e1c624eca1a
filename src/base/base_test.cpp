// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <unordered_set>

#include <gtest/gtest.h>

#include "base/files.h"
#include "base/json.h"
#include "base/leveling.h"
#include "base/natural_order.h"
#include "base/uuid.h"

namespace morva {
namespace {

TEST(Uuid, acceptsTheMarkerThatIsNotHexadecimalAndIgnoresCase) {
    const auto marker = Uuid::parse("00000000-auto-4000-8000-00000000AUTO");
    ASSERT_TRUE(marker);
    EXPECT_EQ(marker->text(), "00000000-AUTO-4000-8000-00000000AUTO");
    for (const char* bad :
         {"", "00000000-AUTO-4000-8000-00000000AUT", "00000000_AUTO-4000-8000-00000000AUTO",
          "00000000-AUTO-4000-8000-00000000AU O"}) {
        EXPECT_FALSE(Uuid::parse(bad)) << bad;
    }
}

TEST(Uuid, generatesDistinctIdentities) {
    std::unordered_set<Uuid> seen;
    for (int i = 0; i < 1000; ++i) seen.insert(Uuid::random());
    EXPECT_EQ(seen.size(), 1000u);
    EXPECT_TRUE(Uuid::parse(seen.begin()->text()));
}

TEST(Leveling, turnsBothWaysAndKeepsRollZeroBitForBit) {
    const Point center{500, 400};
    const Point point{812.3, 77.7};
    const Point back = Leveling::unlevel(Leveling::level(point, center, 7.3), center, 7.3);
    EXPECT_NEAR(back.distance(point), 0, 1e-9);
    EXPECT_EQ(Leveling::level(point, center, 0), point);
    // An eye to the right that sits lower (positive roll) comes level.
    EXPECT_NEAR(Leveling::level({600, 410}, center, 5.710593).y, 400, 1e-4);
}

TEST(Json, refusesMalformedPairsAndIdentities) {
    EXPECT_TRUE(decoded<Rect>("[[1,2],[3,4]]", "a rectangle"));
    for (const char* bad :
         {"[1,2]", "[[1,2],[3]]", "[[1,2],[3,4],[5,6]]", R"([["1",2],[3,4]])", "{}", "[[1,2]"}) {
        EXPECT_FALSE(decoded<Rect>(bad, "a rectangle")) << bad;
    }
    EXPECT_FALSE(decoded<Uuid>(R"("not-an-identity")", "an identity"));
}

TEST(Json, readsWholeNumbersAsWhatTheyAre) {
    const auto json = Json::parse(R"({"most": 9223372036854775807, "int": -2147483648,
        "beyond": 9223372036854775808, "beyondInt": 2147483648, "huge": 3e114, "fraction": 1.5,
        "round": 2.0, "yes": true, "text": "1", "list": [1, -2], "mixed": [1, 1e300]})");
    EXPECT_EQ(required<std::int64_t>(json, "most"), INT64_MAX);
    EXPECT_EQ(required<int>(json, "int"), INT32_MIN);
    EXPECT_EQ(required<std::vector<int>>(json, "list"), (std::vector{1, -2}));
    for (const char* key : {"beyond", "huge", "fraction", "round", "yes", "text", "list", "none"})
        EXPECT_THROW(required<std::int64_t>(json, key), Json::exception) << key;
    EXPECT_THROW(required<int>(json, "beyondInt"), Json::exception);
    for (const char* key : {"mixed", "int", "none"})
        EXPECT_THROW(required<std::vector<int>>(json, key), Json::exception) << key;
}

TEST(NaturalOrder, comparesNumbersByValueAcrossFolders) {
    std::vector<std::filesystem::path> paths{"/a/IMG_10.jpg", "/a/b 2/x.jpg", "/a/IMG_2.jpg",
                                             "/a/b 10/x.jpg"};
    sortNaturally(paths);
    EXPECT_EQ(paths, (std::vector<std::filesystem::path>{"/a/b 2/x.jpg", "/a/b 10/x.jpg",
                                                         "/a/IMG_2.jpg", "/a/IMG_10.jpg"}));
}

TEST(Files, replacesWholeAndNamesTheFileItCannotWrite) {
    const auto folder = std::filesystem::path(testing::TempDir()) / "morva-files";
    std::filesystem::create_directories(folder);
    ASSERT_TRUE(writeFileAtomically(folder / "a", "long first content"));
    ASSERT_TRUE(writeFileAtomically(folder / "a", "short"));
    EXPECT_EQ(*readFile(folder / "a"), "short");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
    const auto failed = writeFileAtomically(folder / "missing" / "b.json", "x");
    ASSERT_FALSE(failed);
    EXPECT_NE(failed.error().message.find("b.json"), std::string::npos);
    std::filesystem::remove_all(folder);
}

TEST(Files, keepLinksAndPermissionsWhenReplaced) {
    namespace fs = std::filesystem;
    const auto folder = fs::path(testing::TempDir()) / "morva-linked-files";
    fs::create_directories(folder / "elsewhere");
    ASSERT_TRUE(writeFileAtomically(folder / "elsewhere" / "a", "old"));
    const auto shared = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write;
    fs::permissions(folder / "elsewhere" / "a", shared);
    fs::create_symlink("elsewhere/a", folder / "a");
    fs::create_symlink("elsewhere/b", folder / "b");
    for (const char* name : {"a", "b"}) {
        ASSERT_TRUE(writeFileAtomically(folder / name, "new"));
        EXPECT_TRUE(fs::is_symlink(folder / name));
        EXPECT_EQ(*readFile(folder / "elsewhere" / name), "new");
    }
    EXPECT_EQ(fs::status(folder / "elsewhere" / "a").permissions(), shared);
    EXPECT_FALSE(writeFileAtomically(folder / "elsewhere", "in place of a folder"));
    // A folder that is handed on keeps to itself.
    for (const char* name : {"a", "b"}) {
        ASSERT_TRUE(replaceFile(folder / name, "newer"));
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder / name)));
        EXPECT_EQ(*readFile(folder / name), "newer");
        EXPECT_EQ(*readFile(folder / "elsewhere" / name), "new");
    }
    ASSERT_TRUE(replaceFile(folder / "c", ""));
    EXPECT_EQ(fs::status(folder / "a").permissions(), fs::status(folder / "c").permissions());
    fs::create_symlink("loop", folder / "loop");
    EXPECT_FALSE(writeFileAtomically(folder / "loop", "x"));
    fs::remove_all(folder);
}

}  // namespace
}  // namespace morva
