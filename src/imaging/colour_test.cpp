// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/colour.h"
#include "imaging/colour_transfer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>
#include <lcms2.h>

namespace morva {
namespace {

std::string saved(cmsHPROFILE profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    std::string bytes(size, '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

std::string rgbProfile(cmsCIExyY white, const cmsCIExyYTRIPLE& primaries, double gamma) {
    cmsToneCurve* curve = cmsBuildGamma(nullptr, gamma);
    std::array<cmsToneCurve*, 3> curves{curve, curve, curve};
    std::string bytes = saved(cmsCreateRGBProfile(&white, &primaries, curves.data()));
    cmsFreeToneCurve(curve);
    return bytes;
}

const cmsCIExyY daylight{0.3127, 0.3290, 1};
const std::string adobe =
    rgbProfile(daylight, {{0.64, 0.33, 1}, {0.21, 0.71, 1}, {0.15, 0.06, 1}}, 2.2);
const std::string displayP3 =
    rgbProfile(daylight, {{0.68, 0.32, 1}, {0.265, 0.69, 1}, {0.15, 0.06, 1}}, 2.2);
const std::string proPhoto = rgbProfile(
    {0.3457, 0.3585, 1}, {{0.7347, 0.2653, 1}, {0.1596, 0.8404, 1}, {0.0366, 0.0001, 1}}, 1.8);

std::vector<std::uint8_t> grid() {
    std::vector<std::uint8_t> colours;
    for (int r = 0; r < 256; r += 15)
        for (int g = 0; g < 256; g += 15)
            for (int b = 0; b < 256; b += 15)
                for (const int level : {r, g, b})
                    colours.push_back(static_cast<std::uint8_t>(level));
    return colours;
}

TEST(ToSrgb, agreesWithTheColourLibraryToOneLevel) {
    for (const std::string& profile : {adobe, displayP3, proPhoto}) {
        const std::vector<std::uint8_t> colours = grid();
        std::vector<std::uint8_t> expected(colours.size());
        std::vector<std::uint8_t> converted = colours;
        const auto count = static_cast<cmsUInt32Number>(colours.size() / 3);
        cmsHPROFILE from =
            cmsOpenProfileFromMem(profile.data(), static_cast<cmsUInt32Number>(profile.size()));
        cmsHPROFILE to = cmsCreate_sRGBProfile();
        // Unoptimised, since the library's own shortcut is coarse in the shadows.
        cmsHTRANSFORM transform = cmsCreateTransform(
            from, TYPE_RGB_8, to, TYPE_RGB_8, INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOOPTIMIZE);
        cmsDoTransform(transform, colours.data(), expected.data(), count);
        cmsDeleteTransform(transform);
        cmsCloseProfile(from);
        cmsCloseProfile(to);

        const ToSrgb toSrgb(ColourModel::rgb, profile);
        EXPECT_FALSE(toSrgb.isIdentity());
        toSrgb.convert(converted.data(), converted.data(), static_cast<int>(count));
        int largest = 0;
        for (std::size_t i = 0; i < colours.size(); ++i)
            largest = std::max(largest, std::abs(converted[i] - expected[i]));
        EXPECT_LE(largest, 1);
    }
}

TEST(ToSrgb, leavesAloneWhatIsSrgbOrCountsAsIt) {
    EXPECT_TRUE(ToSrgb(ColourModel::rgb, srgbProfile()).isIdentity());
    EXPECT_TRUE(ToSrgb(ColourModel::rgb, "").isIdentity());
    cmsToneCurve* curve = cmsBuildGamma(nullptr, 2.2);
    const std::string grey = saved(cmsCreateGrayProfile(&daylight, curve));
    cmsFreeToneCurve(curve);
    EXPECT_TRUE(ToSrgb(ColourModel::rgb, grey).isIdentity());
    for (const std::size_t length : {std::size_t{3}, adobe.size() / 2, adobe.size() - 90})
        EXPECT_TRUE(ToSrgb(ColourModel::rgb, adobe.substr(0, length)).isIdentity()) << length;
}

TEST(ToSrgb, keepsPaperWhiteAndFullInkDarkInBothSensesOfCmyk) {
    const std::array<std::uint8_t, 8> inks{0, 0, 0, 0, 0, 0, 0, 255};
    std::array<std::uint8_t, 8> inverted{};
    std::ranges::transform(inks, inverted.begin(),
                           [](std::uint8_t ink) { return static_cast<std::uint8_t>(255 - ink); });
    for (const auto& [model, pixels] :
         {std::pair{ColourModel::cmyk, inks}, {ColourModel::cmykInverted, inverted}}) {
        std::array<std::uint8_t, 6> rgb{};
        ToSrgb(model, "").convert(pixels.data(), rgb.data(), 2);
        EXPECT_GE(*std::min_element(rgb.begin(), rgb.begin() + 3), 250);
        EXPECT_LE(*std::max_element(rgb.begin() + 3, rgb.end()), 60);
    }
}

TEST(ColourTransfer, givesColoursBackAfterAWayThroughAWiderSpace) {
    for (const std::string& profile : {adobe, displayP3}) {
        const std::vector<std::uint8_t> colours = grid();
        const int count = static_cast<int>(colours.size() / 3);
        std::vector<std::uint8_t> moved = colours;
        ColourTransfer(srgbProfile(), profile).convert(moved.data(), count);
        EXPECT_NE(moved, colours);
        ColourTransfer(profile, srgbProfile()).convert(moved.data(), count);
        // Near black a plain gamma has fewer levels than sRGB.
        for (std::size_t i = 0; i < colours.size(); i += 3) {
            if (std::min({colours[i], colours[i + 1], colours[i + 2]}) < 45) continue;
            for (std::size_t c = i; c < i + 3; ++c) EXPECT_NEAR(moved[c], colours[c], 3);
        }
        for (const auto& [from, to] : {std::pair(profile, profile), {profile, "no profile"}}) {
            std::vector<std::uint8_t> same = colours;
            ColourTransfer(from, to).convert(same.data(), count);
            EXPECT_EQ(same, colours);
        }
    }
}

TEST(Profiles, fitOnlyPixelsOfTheirKind) {
    EXPECT_TRUE(profileFits(adobe, ColourModel::rgb));
    EXPECT_TRUE(profileFits(srgbProfile(), ColourModel::rgb));
    EXPECT_FALSE(profileFits(adobe, ColourModel::grey));
    EXPECT_FALSE(profileFits(adobe, ColourModel::cmyk));
    EXPECT_FALSE(profileFits("", ColourModel::rgb));
    EXPECT_FALSE(profileFits("not a profile", ColourModel::rgb));
}

}  // namespace
}  // namespace morva
