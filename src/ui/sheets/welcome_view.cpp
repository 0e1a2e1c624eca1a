// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/welcome_view.h"

namespace morva {

WelcomeView::WelcomeView(QWidget* parent) : QWidget(parent) {}

void WelcomeView::setRecent(const std::vector<Recent>&) {}
void WelcomeView::setDropName(const QString&) {}

}  // namespace morva
