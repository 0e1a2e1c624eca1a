// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <vector>

namespace morva {

/// Sorts by full path, ascending, as a person would: numbers by value (IMG_2 before IMG_10),
/// letters by the user's locale. Paths that compare equal keep a fixed byte order.
void sortNaturally(std::vector<std::filesystem::path>& paths);

}  // namespace morva
