// SPDX-License-Identifier: GPL-3.0-or-later
// The one window of the program: regions, menus, toolbar; hands keys and acts to the application
// state and shows what that says. Holds no state of its own but where its splitters are.
#pragma once

#include <QMainWindow>

#include "app/app_state.h"

class QSplitter;
class QStackedWidget;

namespace morva {

class Inspector;
class PhotoGrid;
class RightPanel;
class SheetSet;
class WelcomeView;

class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(AppState& state);

private:
    void showMode();

    AppState& state_;
    QSplitter* regions_;
    QStackedWidget* centre_;
    WelcomeView* welcome_;
    PhotoGrid* grid_;
    Inspector* inspector_;
    RightPanel* panel_;
    SheetSet* sheets_;
};

}  // namespace morva
