// SPDX-License-Identifier: GPL-3.0-or-later
// Deals photos to the folds of a cross-validation, all photos of one child to the same fold. Used
// by the trainer.
#pragma once

#include <optional>
#include <vector>

namespace morva {

struct PoseFolds {
    int count = 0;
    /// Fold of every photo, 0 to count - 1: the examples first, then the other photos.
    std::vector<int> foldOf;

    /// As many folds as groups, but at least 2 and at most 5. Where a list of groups is absent or
    /// too short, the photo is a group of its own. Groups with examples are dealt first, those with
    /// most examples before those with fewer, each to the fold with the fewest examples, so that
    /// every fold is taught and tested by some; the others follow, the largest first, to the fold
    /// with the fewest photos. Whoever comes first in the lists wins a tie: the deal depends on
    /// nothing but its input.
    static PoseFolds dealt(int examples, int others,
                           const std::optional<std::vector<int>>& exampleGroups,
                           const std::optional<std::vector<int>>& otherGroups);
};

}  // namespace morva
