// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own icons, painted as masks in a colour of the theme at any size and scale.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

namespace morva {

/// Follows the state of its button: text colour, dimmed when disabled. `name` as the drawing is
/// called, "crop"; an unknown name is a programmer's mistake.
QIcon icon(const QString& name);
/// In one colour whatever the state.
QIcon icon(const QString& name, const QColor& color);

/// For painting: `side` in logical pixels, `scale` the device's pixels for each of them. Kept, so
/// that a delegate may ask for it in every paint.
QPixmap iconPixmap(const QString& name, const QColor& color, int side, qreal scale);

/// The crop mark with the eye line in the accent colour: the program's icon.
QIcon applicationIcon();

}  // namespace morva
