// SPDX-License-Identifier: GPL-3.0-or-later
// One of several processes, on one machine or many, that share the photos of a run and its output
// folder. Used by "crop"; they never speak with each other, so each finds its photos by itself.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morva {

struct Shard {
    /// From 1 to `count`.
    int number = 1;
    int count = 1;

    /// "2/4". Nothing for any other text, a number above the count, or more than 9999 shards.
    static std::optional<Shard> parse(std::string_view text);

    /// The photos of this shard by their place in `paths`, rising. `paths`: all photos of the run,
    /// below the folder that holds them. Photos of one group of `groups`, places too, go together.
    /// Every photo belongs to exactly one of the shards, whatever the order of the paths, and a new
    /// photo moves no other unless it joins their group.
    std::vector<std::size_t> photosOf(const std::vector<std::filesystem::path>& paths,
                                      const std::vector<std::vector<std::size_t>>& groups) const;

    /// "2 of 4".
    std::string text() const;

    bool operator==(const Shard&) const = default;
};

}  // namespace morva
