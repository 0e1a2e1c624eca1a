// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main_window.h"

#include <QSplitter>
#include <QStackedWidget>

#include "ui/grid/photo_grid.h"
#include "ui/inspector/inspector.h"
#include "ui/panel/right_panel.h"
#include "ui/sheets/sheet_set.h"
#include "ui/sheets/welcome_view.h"

namespace morva {

MainWindow::MainWindow(AppState& state)
    : state_(state),
      regions_(new QSplitter),
      centre_(new QStackedWidget),
      welcome_(new WelcomeView),
      grid_(new PhotoGrid(state)),
      inspector_(new Inspector(state)),
      panel_(new RightPanel(state)),
      sheets_(new SheetSet(state, this)) {
    for (QWidget* view : {static_cast<QWidget*>(welcome_), static_cast<QWidget*>(grid_),
                          static_cast<QWidget*>(inspector_)})
        centre_->addWidget(view);
    regions_->addWidget(centre_);
    regions_->addWidget(panel_);
    regions_->setStretchFactor(0, 1);
    setCentralWidget(regions_);
    connect(&state_, &AppState::modeChanged, this, &MainWindow::showMode);
    connect(&state_, &AppState::selectedJobChanged, this, &MainWindow::showMode);
    showMode();
}

void MainWindow::showMode() {
    centre_->setCurrentWidget(!state_.selectedJob()             ? static_cast<QWidget*>(welcome_)
                              : state_.mode() == ViewMode::grid ? static_cast<QWidget*>(grid_)
                                                                : inspector_);
}

}  // namespace morva
