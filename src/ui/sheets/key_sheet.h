// SPDX-License-Identifier: GPL-3.0-or-later
// Every key of the window in two columns, with a field that narrows them down.
#pragma once

#include "ui/sheets/key_row.h"
#include "ui/widgets/sheet.h"

class QLabel;
class QLineEdit;

namespace morva {

class KeySheet final : public Sheet {
    Q_OBJECT

public:
    /// Rows of one heading need not follow each other.
    KeySheet(QWidget* window, std::vector<KeyRow> rows);

private:
    void refresh();

    std::vector<KeyRow> rows_;
    QLineEdit* search_;
    QWidget* columns_;
};

}  // namespace morva
