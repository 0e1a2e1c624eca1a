// SPDX-License-Identifier: GPL-3.0-or-later
// Lets the mouse wheel scroll the page over a control that has not the focus: a value must not
// change because a person scrolled past it.
#pragma once

class QWidget;

namespace morva {

void calmWheel(QWidget& control);

}  // namespace morva
