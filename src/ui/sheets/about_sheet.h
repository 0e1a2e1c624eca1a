// SPDX-License-Identifier: GPL-3.0-or-later
// What the program is, its version, its licence and the work of others in it.
#pragma once

#include "ui/widgets/sheet.h"

namespace morva {

class AboutSheet final : public Sheet {
    Q_OBJECT

public:
    explicit AboutSheet(QWidget* window);
};

}  // namespace morva
