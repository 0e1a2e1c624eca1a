// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/colour_matrix.h"

#include <array>
#include <cmath>

#include <opencv2/core/hal/intrin.hpp>

#include "imaging/icc_profile.h"

namespace morva {

namespace {

/// Steps from no light to full light. In the shadows five of them make one sRGB level.
constexpr int lightSteps = 1 << 14;
constexpr int fractionBits = 8;

/// sRGB primaries without its curve.
Profile linearSrgb() {
    const cmsCIExyY white{0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries{{0.64, 0.33, 1}, {0.30, 0.60, 1}, {0.15, 0.06, 1}};
    cmsToneCurve* line = cmsBuildGamma(nullptr, 1);
    std::array<cmsToneCurve*, 3> curves{line, line, line};
    Profile profile(cmsCreateRGBProfile(&white, &primaries, curves.data()));
    cmsFreeToneCurve(line);
    return profile;
}

bool isCurvesAndMatrix(cmsHPROFILE profile) {
    return cmsGetColorSpace(profile) == cmsSigRgbData && cmsIsMatrixShaper(profile) &&
           !cmsIsTag(profile, cmsSigAToB0Tag) && !cmsIsTag(profile, cmsSigAToB1Tag) &&
           !cmsIsTag(profile, cmsSigDToB0Tag) && !cmsIsTag(profile, cmsSigDToB1Tag);
}

/// The curve of IEC 61966-2-1.
double encoded(double light) {
    return light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

const std::vector<std::uint8_t>& srgbLevels() {
    static const std::vector<std::uint8_t> levels = [] {
        std::vector<std::uint8_t> made;
        for (int i = 0; i < lightSteps; ++i)
            made.push_back(static_cast<std::uint8_t>(
                std::lround(255 * encoded(static_cast<double>(i) / (lightSteps - 1)))));
        return made;
    }();
    return levels;
}

}  // namespace

std::optional<ColourMatrix> ColourMatrix::of(const std::string& profile) {
    const Profile from(
        cmsOpenProfileFromMem(profile.data(), static_cast<cmsUInt32Number>(profile.size())));
    if (!from || !isCurvesAndMatrix(from.get())) return std::nullopt;
    const Profile to = linearSrgb();
    cmsHTRANSFORM transform = cmsCreateTransform(from.get(), TYPE_RGB_FLT, to.get(), TYPE_RGB_FLT,
                                                 INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOOPTIMIZE);
    if (!transform) return std::nullopt;
    ColourMatrix matrix;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        for (int level = 0; level < 256; ++level) {
            std::array<float, 3> colour{};
            colour[channel] = static_cast<float>(level) / 255.0F;
            std::array<float, 3> light{};
            cmsDoTransform(transform, colour.data(), light.data(), 1);
            for (const float part : light)
                matrix.light_.push_back(
                    static_cast<int>(std::lround(part * (lightSteps - 1) * (1 << fractionBits))));
            matrix.light_.push_back(0);
        }
    }
    cmsDeleteTransform(transform);
    matrix.levels_ = srgbLevels();
    return matrix;
}

void ColourMatrix::convert(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels) const {
    // Kept outside the loop: the compiler must take a written byte for a change of anything else.
    const std::uint8_t* levels = levels_.data();
    const std::int32_t* red = light_.data();
    const std::int32_t* green = red + 256 * 4;
    const std::int32_t* blue = green + 256 * 4;
    const cv::v_int32x4 half = cv::v_setall_s32(1 << (fractionBits - 1));
    const cv::v_int32x4 none = cv::v_setzero_s32();
    const cv::v_int32x4 full = cv::v_setall_s32(lightSteps - 1);
    for (std::size_t i = 0; i < pixels; ++i, from += 3, to += 3) {
        const cv::v_int32x4 light = cv::v_load(red + from[0] * 4) +
                                    cv::v_load(green + from[1] * 4) +
                                    cv::v_load(blue + from[2] * 4) + half;
        std::array<int, 4> steps;
        cv::v_store(steps.data(), cv::v_min(cv::v_max(cv::v_shr<fractionBits>(light), none), full));
        for (std::size_t c = 0; c < 3; ++c) to[c] = levels[steps[c]];
    }
}

}  // namespace morva
