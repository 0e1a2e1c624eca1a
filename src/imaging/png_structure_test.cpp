// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/png_structure.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "imaging/jpeg_fixture.h"
#include "imaging/metadata.h"

namespace morva {
namespace {

std::string chunk(const std::string& type, const std::string& content, std::uint32_t length) {
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        bytes += static_cast<char>(length >> shift & 0xffU);
    return bytes + type + content + "sums";
}

TEST(PngStructure, aChunkThatReachesPastTheEndIsFound) {
    const std::string start = "\x89PNG\r\n\x1a\n" + chunk("IHDR", std::string(13, '\1'), 13);
    const std::string end = chunk("IEND", "", 0);
    struct Case {
        const char* what;
        std::string bytes;
        bool fits;
    };
    for (const Case& c : {
             Case{"whole", start + chunk("tEXt", "abc", 3) + end, true},
             {"two gigabytes in three bytes", start + chunk("tEXt", "abc", 0x7fffffff) + end,
              false},
             {"the largest length", start + chunk("zTXt", "", 0xffffffff), false},
             {"cut within the head of a chunk", start + end.substr(0, 6), false},
             {"more behind the end", start + end + std::string(9, '\xff'), true},
             {"no PNG", "\xff\xd8" + chunk("tEXt", "", 0x7fffffff), true},
             {"nothing", "", true},
         }) {
        SCOPED_TRACE(c.what);
        const TemporaryFile file("chunks.png", c.bytes);
        EXPECT_EQ(pngChunksFit(file.path()), c.fits);
        EXPECT_TRUE(c.fits || !readProperties(file.path()));
    }
    EXPECT_TRUE(pngChunksFit("/nowhere/to/be/found.png"));
}

TEST(PhotoProperties, aPipeIsRefusedWithoutWaitingForItsOtherEnd) {
    const TemporaryFile place("pipe.jpg", "");
    std::filesystem::remove(place.path());
    ASSERT_EQ(mkfifo(place.path().c_str(), 0600), 0);
    EXPECT_FALSE(readProperties(place.path()));
}

}  // namespace
}  // namespace morva
