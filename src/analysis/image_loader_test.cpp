// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/image_loader.h"

#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

namespace morva {
namespace {

namespace fs = std::filesystem;

class ImageListing : public testing::Test {
protected:
    ImageListing() : root_(fs::temp_directory_path() / ("morva-list-" + std::to_string(getpid()))) {
        fs::create_directories(root_);
    }
    ~ImageListing() override { fs::remove_all(root_); }

    void touch(const std::string& name) const {
        fs::create_directories((root_ / name).parent_path());
        std::ofstream(root_ / name) << name;
    }
    std::vector<std::string> listed() const {
        std::vector<std::string> names;
        const auto photos = ImageLoader::listImages(root_);
        EXPECT_TRUE(photos);
        for (const fs::path& photo : photos.value_or(std::vector<fs::path>()))
            names.push_back(photo.lexically_relative(root_).string());
        return names;
    }

    fs::path root_;
};

TEST_F(ImageListing, findsPhotosAtAnyDepthInNaturalOrder) {
    for (const char* name : {"IMG_10.jpg", "IMG_2.JPG", "b/IMG_1.heic", "a/deep/er/x.TIFF",
                             "a/9.png", "a/10.jpeg", "c.gif", "notes.txt", "jpg", "d.jpg.bak"})
        touch(name);
    EXPECT_EQ(listed(), (std::vector<std::string>{"a/9.png", "a/10.jpeg", "a/deep/er/x.TIFF",
                                                  "b/IMG_1.heic", "IMG_2.JPG", "IMG_10.jpg"}));
}

TEST_F(ImageListing, leavesOutHiddenThingsExportsAndLinksToFolders) {
    for (const char* name : {"a.jpg", "._a.jpg", ".trash/b.jpg", "Crops/.morva-export",
                             "Crops/c.jpg", "Crops/in/d.jpg"})
        touch(name);
    fs::create_directories(root_ / "folder.jpg");
    fs::create_directory_symlink(root_, root_ / "loop");
    fs::create_symlink(root_ / "a.jpg", root_ / "link.jpg");
    fs::create_symlink(root_ / "nothing.jpg", root_ / "broken.jpg");
    EXPECT_EQ(listed(), (std::vector<std::string>{"a.jpg", "link.jpg"}));
    touch(".morva-export");
    EXPECT_TRUE(listed().empty());
}

TEST_F(ImageListing, failsOnlyWhenTheFolderItselfCannotBeRead) {
    touch("a.jpg");
    touch("closed/b.jpg");
    fs::permissions(root_ / "closed", fs::perms::none);
    if (geteuid() != 0) {
        EXPECT_EQ(listed(), (std::vector<std::string>{"a.jpg"}));
    }
    fs::permissions(root_ / "closed", fs::perms::owner_all);
    EXPECT_FALSE(ImageLoader::listImages(root_ / "missing"));
    EXPECT_FALSE(ImageLoader::listImages(root_ / "a.jpg"));
}

TEST_F(ImageListing, aSignatureChangesWithTimeAndSize) {
    touch("a.jpg");
    const auto before = ImageLoader::fileSignature(root_ / "a.jpg");
    ASSERT_TRUE(before);
    EXPECT_EQ(before->size, 5);
    EXPECT_EQ(ImageLoader::fileSignature(root_ / "a.jpg"), before);
    fs::last_write_time(root_ / "a.jpg",
                        fs::last_write_time(root_ / "a.jpg") + std::chrono::milliseconds(1500));
    EXPECT_NEAR(ImageLoader::fileSignature(root_ / "a.jpg")->modified - before->modified, 1.5,
                1e-5);
    EXPECT_FALSE(ImageLoader::fileSignature(root_ / "missing.jpg"));
}

}  // namespace
}  // namespace morva
