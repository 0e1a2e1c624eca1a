// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps labels beside lines from covering each other. Pure numbers.
#pragma once

#include <vector>

namespace morva {

/// Places of labels of `height`, as near to the wanted ones (their middles) as they can be without
/// touching each other, in the same order from the top, within `from` and `to` as far as all fit.
std::vector<double> spread(const std::vector<double>& wanted, double height, double gap,
                           double from, double to);

}  // namespace morva
