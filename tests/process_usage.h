// SPDX-License-Identifier: GPL-3.0-or-later
// What this process has used, for benchmarks and for tests of bounds.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <vector>

namespace morva {

/// Seconds of processor time of all threads so far; other programs on the machine do not count.
inline double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// Bytes of memory resident now.
inline double residentBytes() {
    double pages = 0;
    double resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// The middle one of at least one value, the upper one of two.
inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

}  // namespace morva
