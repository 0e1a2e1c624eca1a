// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/metadata_reader.h"

#include <gtest/gtest.h>

namespace morva {
namespace {

TEST(MetadataReader, takesOnlyWholeNumbersForRatings) {
    struct Case {
        const char* text;
        std::optional<int> rating;
    };
    for (const Case& c : {Case{"3", 3},
                          {"+3", 3},
                          {"-1", -1},
                          {"05", 5},
                          {"three", {}},
                          {"", {}},
                          {"+", {}},
                          {"+-3", {}},
                          {"3.0", {}},
                          {" 3", {}},
                          {"3 ", {}},
                          {"99999999999", {}}}) {
        PhotoProperties properties;
        properties.xmpRating = c.text;
        EXPECT_EQ(MetadataReader::rating(properties), c.rating) << "'" << c.text << "'";
    }
}

TEST(MetadataReader, readsTheCamerasClockAsItStands) {
    struct Case {
        const char* time;
        const char* fraction;
        std::optional<double> seconds;
    };
    for (const Case& c : {Case{"2024:05:01 09:30:00", " 5", 1714555800.5},
                          {"2024:05:01 09:30:00", "42", 1714555800.42},
                          {"2024:05:01 09:30:00", "", 1714555800},
                          {"2024:05:01 09:30:00", "x", 1714555800},
                          {"2024:05:01 09:30:00", "-5", 1714555800},
                          {"2024:02:29 00:00:00", "", 1709164800},
                          {"1969:12:31 23:59:59", "5", -0.5},
                          {"2023:02:29 00:00:00", "", {}},
                          {"2024:13:01 00:00:00", "", {}},
                          {"2024:05:01 24:00:00", "", {}},
                          {"0000:00:00 00:00:00", "", {}},
                          {"2024-05-01 09:30:00", "", {}},
                          {"2024:05:01", "", {}},
                          {"2024:05:01 09:30:00Z", "", {}},
                          {"2024:+5:01 09:30:00", "", {}}}) {
        PhotoProperties properties;
        properties.dateTimeOriginal = c.time;
        properties.subsecTimeOriginal = c.fraction;
        const std::optional<double> seconds = MetadataReader::captureTime(properties);
        ASSERT_EQ(seconds.has_value(), c.seconds.has_value()) << c.time;
        if (seconds) {
            EXPECT_DOUBLE_EQ(*seconds, *c.seconds) << c.time << " " << c.fraction;
        }
    }
}

TEST(MetadataReader, namesACameraOnlyWhenItIsTheOneBody) {
    PhotoProperties properties;
    properties.cameraMake = "Maker";
    properties.cameraModel = "M 1";
    EXPECT_FALSE(MetadataReader::camera(properties));
    properties.cameraSerial = "0042";
    EXPECT_EQ(MetadataReader::camera(properties), "Maker M 1 0042");
}

}  // namespace
}  // namespace morva
