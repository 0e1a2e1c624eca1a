// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps two photos that need much memory from being decoded at the same time.
#pragma once

#include <mutex>

namespace morva {

/// Held while a photo decodes; waits for its turn when `heavy`, else does nothing.
class HeavyDecode {
public:
    explicit HeavyDecode(bool heavy) {
        static std::mutex turn;
        if (heavy) admitted_ = std::unique_lock(turn);
    }

private:
    std::unique_lock<std::mutex> admitted_;
};

}  // namespace morva
