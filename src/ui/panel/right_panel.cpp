// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/right_panel.h"

#include "app/app_state.h"

namespace morva {

RightPanel::RightPanel(AppState& state, QWidget* parent) : QWidget(parent), state_(state) {}

void RightPanel::revealExportSettings() { state_.setRightTab(RightTab::preset); }

}  // namespace morva
