// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that the program says to a person, on standard error. Results go to standard output
// and never pass here. Used from the main thread only.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "cli/arguments.h"

namespace morva {

/// "Cropping [#####.....] 12 of 28  3.4 a second  0:05 left"; the rate appears with the first photo
/// done.
std::string progressText(std::string_view what, std::size_t done, std::size_t total,
                         double seconds);

/// "0:05", "12:30", "1:02:03".
std::string clockText(double seconds);

class Console {
public:
    explicit Console(Verbosity verbosity);
    /// Wipes the progress bar.
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Always shown: why something failed.
    void failure(std::string_view text);
    /// Not with --quiet.
    void say(std::string_view text);
    /// Only with --verbose.
    void detail(std::string_view text);
    /// A line that stands out on a terminal; bold unless NO_COLOR is set. Not with --quiet.
    void heading(std::string_view text);

    /// A progress bar for what begins now; only on a terminal, not with --quiet.
    void beginProgress(std::string_view what, std::size_t total);
    void progress(std::size_t done);
    /// Makes room for a line on standard output; the next `progress` draws the bar again.
    void wipeProgress();

private:
    void line(std::string_view text);

    Verbosity verbosity_;
    bool terminal_;
    bool color_;
    std::string bar_;
    std::string what_;
    std::size_t total_ = 0;
    std::chrono::steady_clock::time_point begun_;
};

}  // namespace morva
