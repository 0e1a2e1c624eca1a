// SPDX-License-Identifier: GPL-3.0-or-later
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "imaging/jpeg_fixture.h"
#include "output/backdrop_test_support.h"
#include "output/decoded_plates.h"

namespace morva {
namespace {

void expectSame(const DecodedRegion& found, const DecodedRegion& expected) {
    EXPECT_EQ(found.origin, expected.origin);
    EXPECT_EQ(found.scale, expected.scale);
    EXPECT_EQ(found.sourceWidth, expected.sourceWidth);
    EXPECT_EQ(found.sourceHeight, expected.sourceHeight);
    EXPECT_EQ(found.iccProfile, expected.iccProfile);
    ASSERT_EQ(found.pixels.width(), expected.pixels.width());
    EXPECT_TRUE(std::ranges::equal(found.pixels.bytes(), expected.pixels.bytes()));
}

class KeptPlates : public BackdropFiles {
protected:
    std::filesystem::path jpeg(const std::string& name, int width, int height,
                               int orientation = 1) const {
        const JpegFixture fixture{.width = width, .height = height, .orientation = orientation};
        EXPECT_TRUE(writeFileAtomically(folder / name, fixture.bytes()));
        return folder / name;
    }
};

TEST_F(KeptPlates, giveTheSamePixelsAsADecodeOfThePart) {
    std::vector<std::filesystem::path> files{folder / "plate.tif"};
    ASSERT_TRUE(writeFileAtomically(files[0], evenTiff(61, 75, {40, 90, 200}, 16)));
    for (int orientation = 1; orientation <= 8; ++orientation)
        files.push_back(jpeg(std::to_string(orientation) + ".jpg", 301, 203, orientation));
    DecodedPlates plates;
    for (const auto& file : files) {
        for (const double scale : {1.0, 0.4, 0.2, 0.01}) {
            for (const Rect& region : {Rect{20.5, 10.25, 90.5, 120.75}, Rect{-50, -9, 1000, 1000},
                                       Rect{199, 150, 2, 500}, Rect{900, 0, 10, 10}}) {
                SCOPED_TRACE(file.filename().string() + " at " + std::to_string(scale));
                const auto found = plates.region(file, region, scale);
                const auto expected = decodeRegion(file, region, scale);
                ASSERT_TRUE(found && expected);
                expectSame(*found, *expected);
            }
        }
        const auto size = plates.size(file);
        const auto expected = decodeRegion(file, Rect{}, 0);
        EXPECT_EQ(size->width, expected->sourceWidth);
        EXPECT_EQ(size->height, expected->sourceHeight);
    }
}

TEST_F(KeptPlates, areDecodedOnceForAllUntilTheFileChanges) {
    const auto file = jpeg("a.jpg", 300, 200);
    DecodedPlates plates;
    std::vector<std::thread> workers;
    workers.reserve(4);
    const Rect region{10, 20, 100, 100};
    for (int i = 0; i < 4; ++i)
        workers.emplace_back([&] { EXPECT_TRUE(plates.region(file, region, 1)); });
    for (std::thread& worker : workers) worker.join();

    // The same size and time: what is kept is taken for the file.
    const auto kept = decodeRegion(file, region, 1);
    const auto time = std::filesystem::last_write_time(file);
    const auto length = std::filesystem::file_size(file);
    ASSERT_TRUE(writeFileAtomically(file, std::string(length, 'x')));
    std::filesystem::last_write_time(file, time);
    const auto found = plates.region(file, region, 1);
    ASSERT_TRUE(found);
    expectSame(*found, *kept);

    jpeg("a.jpg", 100, 90);
    EXPECT_EQ(plates.region(file, region, 1)->sourceWidth, 100);
    std::filesystem::remove(file);
    EXPECT_FALSE(plates.region(file, region, 1));
    EXPECT_FALSE(plates.size(file));
}

TEST_F(KeptPlates, keepNoMoreThanTheyHaveRoomFor) {
    constexpr std::size_t bytes = 300 * 200 * 3;
    const auto isKept = [&](DecodedPlates& plates, const std::filesystem::path& file) {
        // Not kept, it is seen to be gone.
        const auto away = file.string() + ".away";
        const auto state = std::filesystem::last_write_time(file);
        std::filesystem::copy_file(file, away);
        EXPECT_TRUE(writeFileAtomically(file, std::string(std::filesystem::file_size(away), 'x')));
        std::filesystem::last_write_time(file, state);
        const bool kept = plates.region(file, {0, 0, 10, 10}, 1).has_value();
        std::filesystem::rename(away, file);
        std::filesystem::last_write_time(file, state);
        return kept;
    };
    const auto show = [](DecodedPlates& plates, const std::filesystem::path& file) {
        EXPECT_TRUE(plates.region(file, {0, 0, 10, 10}, 1));
    };
    const std::vector files{jpeg("a.jpg", 300, 200), jpeg("b.jpg", 300, 200),
                            jpeg("c.jpg", 300, 200)};
    DecodedPlates plates(2 * bytes);
    for (const int i : {0, 1, 0, 2}) show(plates, files[static_cast<std::size_t>(i)]);
    EXPECT_TRUE(isKept(plates, files[0]));
    EXPECT_TRUE(isKept(plates, files[2]));
    EXPECT_FALSE(isKept(plates, files[1])) << "not asked for since";

    DecodedPlates small(bytes - 1);
    show(small, files[0]);
    EXPECT_FALSE(isKept(small, files[0]));
}

}  // namespace
}  // namespace morva
