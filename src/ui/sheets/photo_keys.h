// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of the grid and the inspector as the sheet of keys lists them: keys that belong together
// in one line, made from the table of keys.
#pragma once

#include "ui/sheets/key_row.h"

namespace morva {

std::vector<KeyRow> photoKeyRows();

}  // namespace morva
