// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "output/backdrop_library.h"
#include "output/backdrop_test_support.h"

namespace morva {
namespace {

using BackdropFolders = BackdropFiles;

TEST_F(BackdropFolders, offerWhatLiesLikeTheCrop) {
    saved(even(40, 30, {1, 2, 3}), "one/b 10.png");
    saved(even(30, 40, {1, 2, 3}), "one/b 9.png");
    saved(even(50, 50, {1, 2, 3}), "two/square.png");
    ASSERT_TRUE(writeFileAtomically(folder / "one/broken.jpg", "no picture"));
    const std::vector<std::filesystem::path> folders{folder / "one", folder / "gone",
                                                     folder / "two"};
    const auto all = BackdropLibrary::plates(folders);
    const std::vector<Backdrop> expected{{folder / "one/b 9.png", 30, 40},
                                         {folder / "one/b 10.png", 40, 30},
                                         {folder / "two/square.png", 50, 50}};
    EXPECT_EQ(all, expected);
    EXPECT_EQ(BackdropLibrary::suggestions(all, 1.25), std::vector{expected[1]});
    EXPECT_EQ(BackdropLibrary::suggestions(all, 0.8), (std::vector{expected[0], expected[2]}));
    EXPECT_EQ(BackdropLibrary::suggestions({expected[0]}, 1.25), std::vector{expected[0]})
        << "rather one that lies wrong than none";
}

TEST_F(BackdropFolders, rememberAPlateForEachCropType) {
    const auto first = saved(even(4, 4, {1, 2, 3}), "first.png");
    const auto second = saved(even(4, 4, {1, 2, 3}), "second.png");
    const Uuid headshot = Uuid::random();
    const Uuid landscape = Uuid::random();
    const BackdropMemory memory(folder / "data");
    EXPECT_FALSE(memory.plate(headshot));
    ASSERT_TRUE(memory.remember(headshot, first));
    ASSERT_TRUE(memory.remember(landscape, first));
    ASSERT_TRUE(memory.remember(headshot, second));
    EXPECT_EQ(memory.plate(headshot), second);
    EXPECT_EQ(memory.plate(landscape), first);
    std::filesystem::remove(second);
    EXPECT_FALSE(memory.plate(headshot)) << "a plate that is gone is not offered";

    ASSERT_TRUE(writeFileAtomically(memory.fileURL(), "[1, 2"));
    EXPECT_FALSE(memory.plate(landscape));
    ASSERT_TRUE(memory.remember(landscape, first));
    EXPECT_EQ(memory.plate(landscape), first);
    EXPECT_TRUE(std::filesystem::exists(folder / "data/backdrops.unreadable.json"));
}

}  // namespace
}  // namespace morva
