// SPDX-License-Identifier: GPL-3.0-or-later
// A picture of the program's own that stands by itself, in a colour of the theme.
#pragma once

#include <QWidget>

#include "ui/widgets/theme.h"

namespace morva {

class IconLabel final : public QWidget {
    Q_OBJECT

public:
    /// `side` in logical pixels. Without a name it keeps its place empty.
    IconLabel(const QString& icon, QColor Theme::*ink, int side = 16, QWidget* parent = nullptr);

    void setLook(const QString& icon, QColor Theme::*ink);
    QSize sizeHint() const override { return {side_, side_}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString icon_;
    QColor Theme::*ink_;
    int side_;
};

}  // namespace morva
