// SPDX-License-Identifier: GPL-3.0-or-later
// How the status of a photo looks: icon and word first, colour third. One place for the grid, the
// filmstrip, the panel and the sidebar.
#pragma once

#include <QColor>
#include <QString>

#include "app/app_types.h"
#include "model/jobs/image_item.h"

namespace morva {

struct StatusLook {
    QString icon;
    QColor color;
    QString word;
};

StatusLook lookOf(ItemStatus status);

/// "All photos" has no icon.
StatusLook lookOf(StatusFilter filter);

}  // namespace morva
