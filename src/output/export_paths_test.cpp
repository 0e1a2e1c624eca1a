// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <vector>

#include <gtest/gtest.h>

#include "output/export_paths.h"

namespace morva {
namespace {

namespace fs = std::filesystem;

TEST(ExportPaths, mirrorTheSourceFolders) {
    struct Case {
        const char* source;
        const char* expected;
    };
    for (const Case& c : {
             Case{"/Photos/b.jpg", "/Out/b.jpg"},
             Case{"/Photos/2024/b.TIFF", "/Out/2024/b.jpg"},
             Case{"/Photos/./2024/../x/b.c.png", "/Out/x/b.c.jpg"},
             Case{"/Elsewhere/y/b.heic", "/Out/Elsewhere/y/b.jpg"},
             Case{"/Photos", "/Out/Photos.jpg"},
         }) {
        EXPECT_EQ(Exporter::destinationURL(c.source, "/Photos/", "/Out"), fs::path(c.expected));
    }
}

TEST(ExportPaths, giveEveryPhotoAFileOfItsOwn) {
    const std::vector<fs::path> sources{
        "/P/a.JPG",     "/P/a.png", "/P/a-jpg.tif", "/P/A-JPG-2.heic", "/P/b.jpg",
        "/P/sub/a.jpg", "/P/Ü.jpg", "/P/ü.png",     "/P/SUB/a.jpg",    "/P/a.Jpg"};
    const auto urls = Exporter::destinationURLs(sources, "/P", "/O");
    const std::vector<fs::path> expected{"/O/a-jpg.jpg",     "/O/a-png.jpg", "/O/a-jpg-3.jpg",
                                         "/O/A-JPG-2-2.jpg", "/O/b.jpg",     "/O/sub/a-jpg.jpg",
                                         "/O/Ü-jpg.jpg",     "/O/ü-png.jpg", "/O/SUB/a-jpg-2.jpg",
                                         "/O/a-jpg-2.jpg"};
    ASSERT_EQ(urls.size(), sources.size());
    for (std::size_t i = 0; i < sources.size(); ++i)
        EXPECT_EQ(urls.at(sources[i]), expected[i]) << sources[i];
}

class ExportFolders : public testing::Test {
protected:
    void SetUp() override {
        fs::remove_all(root);
        fs::create_directories(root / "photos" / "2024");
        fs::create_directories(root / "photo");
        fs::create_directory_symlink(root / "photos", root / "link");
    }
    void TearDown() override { fs::remove_all(root); }

    const fs::path root = fs::canonical(testing::TempDir()) / "morva-export-folders";
};

TEST_F(ExportFolders, containment) {
    using Exporter::isContained;
    EXPECT_TRUE(isContained(root / "photos", root / "photos/"));
    EXPECT_TRUE(isContained(root / "photos/new/deeper", root / "photos"));
    EXPECT_TRUE(isContained(root / "link/2024/new", root / "photos"));
    EXPECT_TRUE(isContained(root / "photos/2024", root / "link"));
    EXPECT_TRUE(isContained(root / "photo/../photos/x", root / "photos"));
    EXPECT_TRUE(isContained("/usr", "/"));
    EXPECT_FALSE(isContained(root / "photos", root / "photo"));
    EXPECT_FALSE(isContained(root / "photos2", root / "photos"));
    EXPECT_FALSE(isContained(root, root / "photos"));
}

TEST_F(ExportFolders, aLinkThatLeadsOutOfThemIsFound) {
    using Exporter::folderOutside;
    const fs::path out = root / "photo";
    fs::create_directory_symlink(root / "photos", out / "2024");
    fs::create_directory_symlink("..", out / "up");
    fs::create_directories(out / "new");
    fs::create_directory_symlink("new", out / "inside");
    EXPECT_EQ(folderOutside(out, {{"a", out / "a.jpg"}, {"b", out / "2025/b.jpg"}}), std::nullopt);
    EXPECT_EQ(folderOutside(out, {{"a", out / "inside/a.jpg"}}), std::nullopt);
    EXPECT_EQ(folderOutside(out, {{"a", out / "a.jpg"}, {"b", out / "2024/new/b.jpg"}}),
              out / "2024/new");
    EXPECT_EQ(folderOutside(out, {{"a", out / "up/a.jpg"}}), out / "up");
    EXPECT_EQ(folderOutside(root / "link", {{"a", root / "link/a.jpg"}}), std::nullopt);
}

TEST_F(ExportFolders, canonicalPathKeepsTheOrderOfWhatDoesNotExist) {
    EXPECT_EQ(Exporter::canonicalPath(root / "link/x/y/z"), (root / "photos/x/y/z").string());
    EXPECT_EQ(Exporter::canonicalPath("/"), "/");
}

}  // namespace
}  // namespace morva
