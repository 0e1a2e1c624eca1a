// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/colour.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include <vips/vips.h>

#include "imaging/colour_matrix.h"
#include "imaging/icc_profile.h"
#include "imaging/vips_session.h"

namespace morva {

namespace {

/// Steps an axis of the colour grid on which a profile is compared with sRGB.
constexpr int gridSteps = 9;
/// Levels of 255 that count as the same colour: two roundings of the same curve differ by one.
constexpr int sameColour = 1;

Profile opened(const std::string& bytes) {
    return Profile(cmsOpenProfileFromMem(bytes.data(), static_cast<cmsUInt32Number>(bytes.size())));
}

cmsColorSpaceSignature signature(ColourModel model) {
    switch (model) {
        case ColourModel::grey:
            return cmsSigGrayData;
        case ColourModel::rgb:
            return cmsSigRgbData;
        case ColourModel::cmyk:
        case ColourModel::cmykInverted:
            return cmsSigCmykData;
    }
    return cmsSigRgbData;
}

cmsUInt32Number pixelFormat(ColourModel model) {
    switch (model) {
        case ColourModel::grey:
            return TYPE_GRAY_8;
        case ColourModel::rgb:
            return TYPE_RGB_8;
        case ColourModel::cmyk:
            return TYPE_CMYK_8;
        case ColourModel::cmykInverted:
            return TYPE_CMYK_8_REV;
    }
    return TYPE_RGB_8;
}

/// Null when the profile is broken, of another colour model or of a class that describes no pixels,
/// such as a link between two devices.
cmsHTRANSFORM transformToSrgb(const std::string& bytes, ColourModel model) {
    const Profile from = opened(bytes);
    if (!from || cmsGetColorSpace(from.get()) != signature(model)) return nullptr;
    const cmsProfileClassSignature use = cmsGetDeviceClass(from.get());
    if (use == cmsSigLinkClass || use == cmsSigNamedColorClass || use == cmsSigAbstractClass)
        return nullptr;
    const Profile to(cmsCreate_sRGBProfile());
    return cmsCreateTransform(from.get(), pixelFormat(model), to.get(), TYPE_RGB_8,
                              INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_BLACKPOINTCOMPENSATION);
}

/// Ink on common coated paper, which the image library carries; empty when it cannot be had.
std::string loadOffsetPrintingProfile() {
    if (!startVips()) return {};
    VipsBlob* blob = nullptr;
    if (vips_profile_load("cmyk", &blob, nullptr) != 0 || !blob) {
        vips_error_clear();
        return {};
    }
    std::size_t size = 0;
    const void* data = vips_blob_get(blob, &size);
    std::string bytes(static_cast<const char*>(data), size);
    vips_area_unref(VIPS_AREA(blob));
    return bytes;
}

}  // namespace

int channelCount(ColourModel model) {
    return model == ColourModel::grey ? 1 : model == ColourModel::rgb ? 3 : 4;
}

const std::string& srgbProfile() {
    static const std::string bytes = [] {
        const Profile profile(cmsCreate_sRGBProfile());
        cmsUInt32Number size = 0;
        cmsSaveProfileToMem(profile.get(), nullptr, &size);
        std::string saved(size, '\0');
        cmsSaveProfileToMem(profile.get(), saved.data(), &size);
        // Its date of creation is that of this process, and the same crop is to be the same file.
        constexpr std::size_t dateAt = 24;
        constexpr std::array<char, 12> newYear2000{7, '\xd0', 0, 1, 0, 1};
        if (saved.size() > dateAt + newYear2000.size())
            std::ranges::copy(newYear2000, saved.begin() + dateAt);
        return saved;
    }();
    return bytes;
}

/// The way from one profile to sRGB; never changes once made, so any thread may use it.
class ColourConversion {
public:
    /// Null where the profile does not fit.
    static std::shared_ptr<const ColourConversion> made(const std::string& profile,
                                                        ColourModel model) {
        auto conversion = std::make_shared<ColourConversion>();
        if (model == ColourModel::rgb) conversion->shortcut_ = ColourMatrix::of(profile);
        if (!conversion->shortcut_) {
            conversion->transform_.reset(transformToSrgb(profile, model));
            if (!conversion->transform_) return nullptr;
        }
        conversion->isIdentity_ = model == ColourModel::rgb && conversion->leavesColoursAlone();
        return conversion;
    }

    bool isIdentity() const { return isIdentity_; }

    void convert(const std::uint8_t* from, std::uint8_t* to, int pixels) const {
        if (shortcut_) return shortcut_->convert(from, to, static_cast<std::size_t>(pixels));
        cmsDoTransform(transform_.get(), from, to, static_cast<cmsUInt32Number>(pixels));
    }

private:
    struct DeleteTransform {
        void operator()(void* transform) const { cmsDeleteTransform(transform); }
    };

    bool leavesColoursAlone() const {
        std::vector<std::uint8_t> grid;
        for (int i = 0; i < gridSteps * gridSteps * gridSteps; ++i) {
            for (const int step :
                 {i / (gridSteps * gridSteps), i / gridSteps % gridSteps, i % gridSteps})
                grid.push_back(static_cast<std::uint8_t>(step * 255 / (gridSteps - 1)));
        }
        std::vector<std::uint8_t> converted(grid.size());
        convert(grid.data(), converted.data(), static_cast<int>(grid.size() / 3));
        return std::ranges::equal(grid, converted,
                                  [](int a, int b) { return std::abs(a - b) <= sameColour; });
    }

    std::optional<ColourMatrix> shortcut_;
    std::unique_ptr<void, DeleteTransform> transform_;
    bool isIdentity_ = false;
};

namespace {

/// The photos of a shoot share a profile, and finding the way from it to sRGB takes longer than
/// going it for a small photo: the last ones found are kept.
std::shared_ptr<const ColourConversion> conversionFrom(const std::string& profile,
                                                       ColourModel model) {
    constexpr std::size_t kept = 16;
    static std::mutex one;
    static std::map<std::pair<ColourModel, std::string>, std::shared_ptr<const ColourConversion>>
        known;
    if (profile.empty()) return nullptr;
    const std::lock_guard lock(one);
    if (const auto found = known.find({model, profile}); found != known.end()) return found->second;
    if (known.size() >= kept) known.clear();
    return known[{model, profile}] = ColourConversion::made(profile, model);
}

}  // namespace

bool profileFits(const std::string& profile, ColourModel model) {
    return conversionFrom(profile, model) != nullptr;
}

ToSrgb::ToSrgb(ColourModel model, const std::string& profile)
    : model_(model), conversion_(conversionFrom(profile, model)) {
    if (!conversion_ && channelCount(model) == 4) {
        static const std::string offsetPrinting = loadOffsetPrintingProfile();
        conversion_ = conversionFrom(offsetPrinting, model);
    }
    if (conversion_ && conversion_->isIdentity()) conversion_.reset();
}

bool ToSrgb::isIdentity() const { return model_ == ColourModel::rgb && !conversion_; }

void ToSrgb::convert(const std::uint8_t* from, std::uint8_t* to, int pixels) const {
    if (conversion_) return conversion_->convert(from, to, pixels);
    switch (model_) {
        case ColourModel::rgb:
            if (from != to) std::memcpy(to, from, static_cast<std::size_t>(pixels) * 3);
            return;
        case ColourModel::grey:
            for (int i = 0; i < pixels; ++i) std::memset(to + i * 3, from[i], 3);
            return;
        case ColourModel::cmyk:
        case ColourModel::cmykInverted: {
            // Only where the library came without its printing profile: ink as plain subtraction.
            const int flip = model_ == ColourModel::cmyk ? 255 : 0;
            for (int i = 0; i < pixels; ++i) {
                const int light = from[i * 4 + 3] ^ flip;
                for (int c = 0; c < 3; ++c)
                    to[i * 3 + c] =
                        static_cast<std::uint8_t>(((from[i * 4 + c] ^ flip) * light + 127) / 255);
            }
            return;
        }
    }
}

RegionColours::RegionColours(ColourModel model, std::string found)
    : conversion(model, model == ColourModel::rgb ? std::string() : found),
      profile(model == ColourModel::rgb && profileFits(found, model) ? std::move(found)
                                                                     : srgbProfile()) {}

}  // namespace morva
