// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/interruption.h"

#include <csignal>

namespace morva::Interruption {

namespace {

std::atomic<bool> wanted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may set nothing else");

extern "C" void askToStop(int) { wanted.store(true); }

}  // namespace

void watch() {
    struct sigaction action = {};
    action.sa_handler = askToStop;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

const std::atomic<bool>& requested() { return wanted; }

}  // namespace morva::Interruption
