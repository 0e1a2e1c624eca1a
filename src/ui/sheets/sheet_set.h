// SPDX-License-Identifier: GPL-3.0-or-later
// All sheets of a window: opens and closes each as the application state says, one over another
// only for an alert.
#pragma once

#include <QObject>

class QWidget;

namespace morva {

class AppState;

class SheetSet final : public QObject {
    Q_OBJECT

public:
    SheetSet(AppState& state, QWidget* window);

    /// Sheets that the state knows nothing of.
    void showRules();
    void showKeys();
    void showAbout();

signals:
    /// "Show preset" in the export sheet's warning: the sheet is closed and the preset shown.
    void exportSettingsWanted();

private:
    AppState& state_;
    QWidget* window_;
};

}  // namespace morva
