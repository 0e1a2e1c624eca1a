// SPDX-License-Identifier: GPL-3.0-or-later
// The thin line between two regions.
#pragma once

#include <QPainter>
#include <QWidget>

#include "ui/widgets/theme.h"

namespace morva {

class Seam final : public QWidget {
public:
    explicit Seam(QWidget* parent = nullptr) : QWidget(parent) { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), Theme::current().seam);
    }
};

}  // namespace morva
