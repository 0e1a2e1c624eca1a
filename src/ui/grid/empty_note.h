// SPDX-License-Identifier: GPL-3.0-or-later
// What the grid says where the filter shows no photo: what there is none of, and the next step.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>
#include <QString>

#include "app/app_state.h"

namespace morva::EmptyNote {

struct Text {
    QString icon;
    QColor color;
    QString title;
    QString next;

    QString spoken() const { return title + QStringLiteral(". ") + next; }
};

/// For the selected job, which there must be, under the filter in use.
Text of(const AppState& state);

/// In the middle of `room`.
void draw(QPainter& painter, const QRect& room, const Text& text);

}  // namespace morva::EmptyNote
