// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/photo_grid.h"

#include "app/app_state.h"

namespace morva {

PhotoGrid::PhotoGrid(AppState& state, QWidget* parent) : QWidget(parent), state_(state) {}

void PhotoGrid::selectAllShown() {}
void PhotoGrid::setDropName(const QString&) {}

}  // namespace morva
