// SPDX-License-Identifier: GPL-3.0-or-later
// Something that a person must be told: title, sentences, OK, and at most one way out.
#pragma once

#include "ui/widgets/sheet.h"

namespace morva {

class AlertSheet final : public Sheet {
    Q_OBJECT

public:
    /// Without a text for it there is no other button.
    AlertSheet(QWidget* window, const QString& title, const QString& message,
               const QString& other = {});

signals:
    void acknowledged();
    void otherChosen();
};

}  // namespace morva
