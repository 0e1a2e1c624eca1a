// SPDX-License-Identifier: GPL-3.0-or-later
// A count of the export's plan in a box of its own: picture, figure, what it counts.
#pragma once

#include <QFrame>

#include "ui/widgets/theme.h"

class QLabel;

namespace morva {

class StatTile final : public QFrame {
    Q_OBJECT

public:
    StatTile(const QString& icon, QColor Theme::*ink, QWidget* parent = nullptr);

    /// `caption`: "files to write".
    void setCount(int count, const QString& caption);
    int count() const { return count_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int count_ = 0;
    QLabel* figure_;
    QLabel* caption_;
};

}  // namespace morva
