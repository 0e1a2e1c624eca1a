// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include <lcms2.h>

namespace morva {

struct CloseProfile {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};

/// An ICC profile that lcms has opened or made (a cmsHPROFILE); closed with its owner.
using Profile = std::unique_ptr<void, CloseProfile>;

}  // namespace morva
