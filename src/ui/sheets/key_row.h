// SPDX-License-Identifier: GPL-3.0-or-later
// One line of the sheet of keys.
#pragma once

#include <vector>

#include <QString>
#include <QStringList>

namespace morva {

struct KeyRow {
    /// The heading it stands under, "Job".
    QString group;
    /// What the keys do, "Import a folder".
    QString text;
    /// As their caps show them: {"Ctrl", "I"}, or keys that go together, {"[", "]"}.
    QStringList caps;
};

}  // namespace morva
