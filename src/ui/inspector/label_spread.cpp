// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/label_spread.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace morva {

namespace {

/// Labels that touch, with the middle that suits their members best.
struct Block {
    double wantedSum = 0;  // of the members' wanted middles, each brought to the first member
    int size = 0;

    double first() const { return wantedSum / size; }
};

}  // namespace

std::vector<double> spread(const std::vector<double>& wanted, double height, double gap,
                           double from, double to) {
    std::vector<std::size_t> order(wanted.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return wanted[i]; });
    const double step = height + gap;
    const auto placed = [&](const Block& block) {
        const double last = to - height / 2 - (block.size - 1) * step;
        return std::max(from + height / 2, std::min(block.first(), last));
    };
    std::vector<Block> blocks;
    for (const std::size_t i : order) {
        blocks.push_back({wanted[i], 1});
        while (blocks.size() > 1) {
            Block& above = blocks[blocks.size() - 2];
            const Block& below = blocks.back();
            if (placed(above) + above.size * step <= placed(below)) break;
            above.wantedSum += below.wantedSum - below.size * above.size * step;
            above.size += below.size;
            blocks.pop_back();
        }
    }
    std::vector<double> places(wanted.size());
    auto next = order.begin();
    for (const Block& block : blocks)
        for (int i = 0; i < block.size; ++i) places[*next++] = placed(block) + i * step;
    return places;
}

}  // namespace morva
