// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCursor>

namespace morva {

/// The pointer over the handle that turns the photo; desktops bring none for it. `scale`: device
/// pixels for each logical one.
QCursor turnCursor(qreal scale);

}  // namespace morva
