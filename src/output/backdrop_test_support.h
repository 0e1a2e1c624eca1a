// SPDX-License-Identifier: GPL-3.0-or-later
// Photos with a child that is known to the pixel, plates with known marks, and the one who cuts the
// child out. For tests only.
#pragma once

#include <unistd.h>
#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/files.h"
#include "imaging/colour.h"
#include "imaging/decode.h"
#include "imaging/encode.h"
#include "output/crop_view.h"
#include "output/cut_out.h"

namespace morva {

using Levels = std::array<int, 3>;

/// A picture of one colour.
inline Picture even(int width, int height, const Levels& color) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (std::size_t c = 0; c < 3; ++c)
                picture.pixel(x, y)[c] = static_cast<std::uint8_t>(color[c]);
    return picture;
}

inline Levels levels(const Picture& picture, int x, int y) {
    const std::uint8_t* pixel = picture.pixel(x, y);
    return {pixel[0], pixel[1], pixel[2]};
}

/// Mean of a square of 2 x `reach` + 1 pixels: what the eye sees through dither and mottling.
inline double meanAround(const Picture& picture, int x, int y, int reach, std::size_t channel = 0) {
    double sum = 0;
    int count = 0;
    for (int v = std::max(0, y - reach); v <= std::min(picture.height() - 1, y + reach); ++v)
        for (int u = std::max(0, x - reach); u <= std::min(picture.width() - 1, x + reach); ++u) {
            sum += picture.pixel(u, v)[channel];
            ++count;
        }
    return sum / count;
}

/// An uncompressed TIFF file of one colour; `pixel` holds its 1, 3 or 4 channels (the fourth is
/// opacity) from 0 to 255, written with 8 or 16 bits each.
inline std::string evenTiff(int width, int height, const std::vector<int>& pixel, int bits) {
    std::string file("II*\0", 4);
    const auto put = [&](std::size_t value, int bytes) {
        for (int i = 0; i < bytes; ++i) file.push_back(static_cast<char>(value >> (8 * i) & 255));
    };
    const std::size_t channels = pixel.size();
    const std::size_t bitsAt = 8;
    const std::size_t pixelsAt = bitsAt + 8;
    const std::size_t pixelBytes = static_cast<std::size_t>(width) *
                                   static_cast<std::size_t>(height) * channels *
                                   static_cast<std::size_t>(bits / 8);
    put(pixelsAt + pixelBytes, 4);
    for (int i = 0; i < 4; ++i) put(static_cast<std::size_t>(bits), 2);
    for (int i = 0; i < width * height; ++i)
        for (const int value : pixel)
            put(static_cast<std::size_t>(bits == 16 ? value * 257 : value), bits / 8);
    const std::size_t depth = channels > 2 ? bitsAt : static_cast<std::size_t>(bits);
    std::vector<std::array<std::size_t, 4>> entries{
        {256, 4, 1, static_cast<std::size_t>(width)},
        {257, 4, 1, static_cast<std::size_t>(height)},
        {258, 3, channels, depth},
        {259, 3, 1, 1},
        {262, 3, 1, channels > 2 ? std::size_t{2} : std::size_t{1}},
        {273, 4, 1, pixelsAt},
        {277, 3, 1, channels},
        {278, 4, 1, static_cast<std::size_t>(height)},
        {279, 4, 1, pixelBytes}};
    if (channels == 4) entries.push_back({338, 3, 1, 2});
    put(entries.size(), 2);
    for (const auto& [tag, type, count, value] : entries) {
        put(tag, 2);
        put(type, 2);
        put(count, 4);
        put(value, 4);
    }
    put(0, 4);
    return file;
}

/// A photo of `backdrop` with a rectangular child of `child` in it, whole pixels.
struct BlockPortrait {
    int width = 800;
    int height = 1000;
    Rect child{300, 200, 200, 600};
    Levels backdrop{90, 140, 60};
    Levels skin{200, 40, 40};

    DecodedRegion decoded() const {
        Picture picture = even(width, height, backdrop);
        for (int y = static_cast<int>(child.y); y < static_cast<int>(child.maxY()); ++y)
            for (int x = static_cast<int>(child.x); x < static_cast<int>(child.maxX()); ++x)
                for (std::size_t c = 0; c < 3; ++c)
                    picture.pixel(x, y)[c] = static_cast<std::uint8_t>(skin[c]);
        return {std::move(picture), {}, 1, width, height, srgbProfile()};
    }
    CropView view(const Rect& crop, int outputWidth, double degrees = 0) const {
        const int outputHeight = static_cast<int>(crop.height * outputWidth / crop.width);
        return {*CropGeometry::of(crop, degrees, outputWidth, outputHeight),
                {static_cast<double>(width), static_cast<double>(height)}};
    }
};

/// Cuts out a known rectangle at whatever scale the photo was decoded.
class BlockCutter final : public ChildCutter {
public:
    BlockCutter(const Rect& child, std::optional<double> feetLine)
        : child_(child), feetLine_(feetLine) {}

    Result<std::optional<CutOut>> cutOut(DecodedRegion& photo) const override {
        CutOut cut{Mask(photo.pixels.width(), photo.pixels.height()), feetLine_};
        for (int y = 0; y < cut.alpha.height(); ++y) {
            for (int x = 0; x < cut.alpha.width(); ++x) {
                const Point at{photo.origin.x + (x + 0.5) / photo.scale,
                               photo.origin.y + (y + 0.5) / photo.scale};
                const bool inside = at.x > child_.x && at.x < child_.maxX() && at.y > child_.y &&
                                    at.y < child_.maxY();
                *cut.alpha.pixel(x, y) = inside ? 255 : 0;
            }
        }
        return cut;
    }

private:
    Rect child_;
    std::optional<double> feetLine_;
};

/// Finds nobody, or fails.
class EmptyHandedCutter final : public ChildCutter {
public:
    explicit EmptyHandedCutter(bool fails) : fails_(fails) {}
    Result<std::optional<CutOut>> cutOut(DecodedRegion&) const override {
        if (fails_) return failure("The model did not run.");
        return std::nullopt;
    }

private:
    bool fails_;
};

/// A folder of its own for the files of one test.
class BackdropFiles : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    std::filesystem::path saved(const Picture& picture, const std::string& name) const {
        auto file = folder / name;
        std::filesystem::create_directories(file.parent_path());
        const auto bytes = encodePng(picture);
        EXPECT_TRUE(bytes && writeFileAtomically(file, *bytes));
        return file;
    }

    const std::filesystem::path folder =
        std::filesystem::path(testing::TempDir()) / ("morva-backdrops-" + std::to_string(getpid()));
};

}  // namespace morva
