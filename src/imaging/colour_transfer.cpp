// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/colour_transfer.h"

#include <lcms2.h>

namespace morva {

namespace {

std::shared_ptr<void> profileOf(const std::string& bytes) {
    const cmsHPROFILE profile =
        cmsOpenProfileFromMem(bytes.data(), static_cast<cmsUInt32Number>(bytes.size()));
    return {profile, [](void* opened) {
                if (opened) cmsCloseProfile(opened);
            }};
}

}  // namespace

ColourTransfer::ColourTransfer(const std::string& from, const std::string& to) {
    if (from == to) return;
    const auto source = profileOf(from);
    const auto target = profileOf(to);
    if (!source || !target) return;
    const cmsHTRANSFORM transform =
        cmsCreateTransform(source.get(), TYPE_RGB_8, target.get(), TYPE_RGB_8,
                           INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_BLACKPOINTCOMPENSATION);
    if (transform) transform_ = {transform, [](void* made) { cmsDeleteTransform(made); }};
}

void ColourTransfer::convert(std::uint8_t* pixels, int count) const {
    if (transform_)
        cmsDoTransform(transform_.get(), pixels, pixels, static_cast<cmsUInt32Number>(count));
}

void ColourTransfer::convert(Picture& picture) const {
    for (int y = 0; y < picture.height(); ++y) convert(picture.row(y), picture.width());
}

}  // namespace morva
