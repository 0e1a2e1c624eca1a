// SPDX-License-Identifier: GPL-3.0-or-later
// The jobs at the left of the window: chosen, renamed, found by typing, begun by a button.
#pragma once

#include <QWidget>

#include "app/app_state.h"

class QLabel;
class QListView;

namespace morva {

class JobList;

class JobSidebar final : public QWidget {
    Q_OBJECT

public:
    explicit JobSidebar(AppState& state, QWidget* parent = nullptr);

    /// Lets the name of the selected job be edited in its row.
    void renameSelected();

signals:
    void importWanted();
    /// For the selected job; in global coordinates.
    void contextMenuWanted(const QPoint& place);

private:
    void follow();

    AppState& state_;
    JobList* model_;
    QListView* list_;
    QLabel* hint_;
};

}  // namespace morva
