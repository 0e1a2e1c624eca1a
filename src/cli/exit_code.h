// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace morva {

/// What the program ends with; a promise to scripts, so a number never changes its meaning.
enum class ExitCode : int {
    done = 0,
    /// Some photos failed, or need a look where the caller asked to be strict.
    photosFailed = 1,
    usage = 2,
    /// An input, a preset or a model could not be read; nothing was begun.
    inputUnreadable = 3,
    /// The output folder is refused or cannot be written, and nothing was begun; or only the report
    /// could not be written in the end.
    outputUnwritable = 4,
    /// Ctrl-C: the photos in hand were finished, the others not begun.
    interrupted = 130,
};

}  // namespace morva
