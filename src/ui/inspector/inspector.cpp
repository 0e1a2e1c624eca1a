// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/inspector.h"

#include "app/app_state.h"

namespace morva {

Inspector::Inspector(AppState& state, QWidget* parent) : QWidget(parent), state_(state) {}

void Inspector::zoomToFit() {}
void Inspector::zoomIn() {}
void Inspector::zoomOut() {}
void Inspector::setShowsResult(bool shows) { showsResult_ = shows; }
bool Inspector::showsResult() const { return showsResult_; }

}  // namespace morva
