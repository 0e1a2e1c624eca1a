// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/filmstrip.h"

#include "app/app_state.h"

namespace morva {

Filmstrip::Filmstrip(AppState& state, QWidget* parent) : QWidget(parent), state_(state) {
    setFixedHeight(112);
}

}  // namespace morva
