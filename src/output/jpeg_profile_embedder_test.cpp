// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "base/files.h"
#include "output/jpeg_profile_embedder.h"

namespace morva {
namespace {

using JPEGProfileEmbedder::embedded;

std::string bytes(std::initializer_list<int> values) {
    std::string text;
    for (const int value : values) text += static_cast<char>(value);
    return text;
}

std::string segment(int marker, const std::string& payload) {
    const auto length = static_cast<int>(payload.size()) + 2;
    return bytes({0xff, marker, length >> 8, length & 0xff}) + payload;
}

const std::string start = bytes({0xff, 0xd8});
const std::string jfif = segment(0xe0, std::string("JFIF\0\1\1\1\1\54\1\54\0\0", 14));
const std::string exif = segment(0xe1, std::string("Exif\0\0II*\0", 10));
const std::string xmp = segment(0xe1, std::string("http://ns.adobe.com/xap/1.0/\0<x/>", 33));
const std::string rest =
    segment(0xdb, std::string(65, 'q')) + bytes({0xff, 0xda, 0, 2, 7, 0xff, 0xd9});

std::string profileHeader(int length, int number, int count) {
    return bytes({0xff, 0xe2, length >> 8, length & 0xff}) + "ICC_PROFILE" +
           bytes({0, number, count});
}

TEST(JPEGProfileEmbedder, putsTheProfileBehindTheLeadingApplicationSegments) {
    const std::string profile(3144, 'p');
    const std::string expected = profileHeader(0x0c58, 1, 1) + profile;
    const auto expectBetween = [&](const std::string& before) {
        EXPECT_EQ(embedded(profile, before + rest), before + expected + rest);
    };
    expectBetween(start);
    expectBetween(start + jfif);
    expectBetween(start + jfif + exif + xmp);
    expectBetween(start + bytes({0xff, 0x01}) + exif);
    expectBetween(start + bytes({0xff, 0xd0, 0xff, 0xd7}) + jfif);
    const std::string otherApp2 = segment(0xe2, std::string("MPF\0 and what follows", 21));
    EXPECT_EQ(embedded(profile, start + exif + otherApp2 + rest),
              start + exif + expected + otherApp2 + rest);
}

TEST(JPEGProfileEmbedder, cutsAtTheChunkLimit) {
    const std::string profile(65506, 'p');
    EXPECT_EQ(embedded(profile.substr(1), start + rest),
              start + profileHeader(0xfff1, 1, 1) + profile.substr(1) + rest);
    EXPECT_EQ(embedded(profile, start + rest), start + profileHeader(0xfff1, 1, 2) +
                                                   profile.substr(1) + profileHeader(17, 2, 2) +
                                                   "p" + rest);
}

TEST(JPEGProfileEmbedder, leavesAloneWhatItMustNotTouch) {
    const std::string profiled = start + jfif + profileHeader(20, 1, 1) + "pppp" + rest;
    EXPECT_EQ(embedded("new", profiled), profiled);
    EXPECT_EQ(embedded("new", "\x89PNG and more"), "\x89PNG and more");
    EXPECT_EQ(embedded("new", start + "ab"), start + "ab");
    EXPECT_EQ(embedded("", start + jfif + rest), start + jfif + rest);
    const std::string tooLarge(255 * 65505 + 1, 'p');
    EXPECT_EQ(embedded(tooLarge, start + rest), start + rest);
}

TEST(JPEGProfileEmbedder, staysInsideFilesThatEndEarly) {
    // A segment that claims more than there is, and scans that run out of bytes.
    const std::string profile = profileHeader(17, 1, 1) + "p";
    const std::string lying = start + bytes({0xff, 0xe1, 0xff, 0xff, 1});
    EXPECT_EQ(embedded("p", lying), lying + profile);
    const std::string shortApp2 = start + bytes({0xff, 0xe2, 0, 20}) + "ICC_PRO";
    EXPECT_EQ(embedded("p", shortApp2), start + profile + shortApp2.substr(2));
    EXPECT_EQ(embedded("p", start + bytes({0xff, 0x01, 0xff, 0xe0})),
              start + bytes({0xff, 0x01}) + profile + bytes({0xff, 0xe0}));
}

TEST(JPEGProfileEmbedder, changesAFileInPlaceAndNamesOneItCannotRead) {
    const auto file = std::filesystem::path(testing::TempDir()) / "embedded.jpg";
    ASSERT_TRUE(writeFileAtomically(file, start + jfif + rest));
    ASSERT_TRUE(JPEGProfileEmbedder::embed("p", file));
    EXPECT_EQ(*readFile(file), start + jfif + profileHeader(17, 1, 1) + "p" + rest);
    std::filesystem::remove(file);
    const auto missing = JPEGProfileEmbedder::embed("p", file);
    ASSERT_FALSE(missing);
    EXPECT_NE(missing.error().message.find("embedded.jpg"), std::string::npos);
}

}  // namespace
}  // namespace morva
