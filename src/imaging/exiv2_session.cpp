// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/exiv2_session.h"

#include <mutex>

#include <exiv2/exiv2.hpp>

namespace morva {

namespace {

/// The library asks for a lock around its table of XMP namespaces.
void lockNamespaces(void* mutex, bool lock) {
    auto& namespaces = *static_cast<std::recursive_mutex*>(mutex);
    if (lock) {
        namespaces.lock();
    } else {
        namespaces.unlock();
    }
}

bool start() {
    static std::recursive_mutex namespaces;
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    Exiv2::enableBMFF(true);  // HEIC
    return Exiv2::XmpParser::initialize(lockNamespaces, &namespaces);
}

}  // namespace

void startExiv2() { [[maybe_unused]] static const bool started = start(); }

}  // namespace morva
