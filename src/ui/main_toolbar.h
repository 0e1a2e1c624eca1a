// SPDX-License-Identifier: GPL-3.0-or-later
// The few acts of every evening as buttons: import, crop, review, export; undo, views, panel, keys.
#pragma once

#include <QToolBar>

#include "app/app_state.h"

class QToolButton;

namespace morva {

class Actions;

class MainToolbar final : public QToolBar {
    Q_OBJECT

public:
    MainToolbar(AppState& state, const Actions& actions, QWidget* parent = nullptr);

private:
    void refresh();

    AppState& state_;
    QToolButton* review_;
    QToolButton* grid_;
    QToolButton* inspector_;
};

}  // namespace morva
