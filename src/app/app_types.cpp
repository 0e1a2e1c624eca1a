// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/app_types.h"

namespace morva {

double secondsNow() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

std::string_view label(StatusFilter filter) {
    switch (filter) {
        case StatusFilter::all:
            return "All photos";
        case StatusFilter::ready:
            return "Ready";
        case StatusFilter::review:
            return "Review";
        case StatusFilter::approved:
            return "Approved";
        case StatusFilter::failed:
            return "No face / errors";
        case StatusFilter::adjusted:
            return "Hand-adjusted";
    }
    return {};
}

bool matches(StatusFilter filter, ItemStatus status, bool hasAdjustment) {
    switch (filter) {
        case StatusFilter::all:
            return true;
        case StatusFilter::ready:
            return status == ItemStatus::ready;
        case StatusFilter::review:
            return status == ItemStatus::review;
        case StatusFilter::approved:
            return status == ItemStatus::approved;
        case StatusFilter::failed:
            return status == ItemStatus::failed || status == ItemStatus::error;
        case StatusFilter::adjusted:
            return hasAdjustment;
    }
    return false;
}

}  // namespace morva
