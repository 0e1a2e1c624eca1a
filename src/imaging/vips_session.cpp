// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/vips_session.h"

#include <vips/vips.h>

namespace morva {

namespace {

void dropMessage(const char* /*domain*/, GLogLevelFlags /*level*/, const char* /*text*/,
                 void* /*data*/) {}

bool start() {
    if (vips_init("morva") != 0) return false;
    vips_concurrency_set(1);
    vips_cache_set_max(0);
    vips_block_untrusted_set(TRUE);
    g_log_set_handler("VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_WARNING | G_LOG_LEVEL_INFO),
                      dropMessage, nullptr);
    return true;
}

}  // namespace

bool startVips() {
    static const bool started = start();
    return started;
}

}  // namespace morva
