// SPDX-License-Identifier: GPL-3.0-or-later
// The badge of a preset as the icon of a choice or a menu.
#pragma once

#include <QIcon>

#include "ui/widgets/badge.h"

namespace morva {

/// Null for a preset without a badge.
inline QIcon presetIcon(const CropPreset& preset) {
    constexpr qreal finest = 2;
    const QPixmap pixmap = badgePixmap(preset, finest);
    return pixmap.isNull() ? QIcon() : QIcon(pixmap);
}

}  // namespace morva
