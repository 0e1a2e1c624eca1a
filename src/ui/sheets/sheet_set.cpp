// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/sheet_set.h"

#include <QWidget>

#include "app/app_state.h"

namespace morva {

SheetSet::SheetSet(AppState& state, QWidget* window)
    : QObject(window), state_(state), window_(window) {}

void SheetSet::showRules() {}
void SheetSet::showKeys() {}
void SheetSet::showAbout() {}

}  // namespace morva
