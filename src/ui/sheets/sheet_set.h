// SPDX-License-Identifier: GPL-3.0-or-later
// All sheets of a window: opens and closes each as the application state says, one over another
// only for an alert. Also asks for every folder and file that the state wants.
#pragma once

#include <vector>

#include <QObject>
#include <QPointer>

#include "ui/sheets/file_dialogs.h"
#include "ui/sheets/key_row.h"

class QWidget;

namespace morva {

class AlertSheet;
class AppState;
class Sheet;

class SheetSet final : public QObject {
    Q_OBJECT

public:
    SheetSet(AppState& state, QWidget* window);
    /// With dialogs of its own, for tests.
    SheetSet(AppState& state, QWidget* window, FileDialogs dialogs);
    /// Its sheets go with it.
    ~SheetSet() override;

    /// The acts of the window for the sheet of keys, which knows the keys of photos by itself.
    void setWindowKeys(std::vector<KeyRow> rows) { windowKeys_ = std::move(rows); }

    /// Sheets that the state knows nothing of.
    void showRules();
    void showKeys();
    void showGuide();
    void showAbout();

signals:
    /// "Show preset" in a warning about the ratio: the sheet is closed and the preset chosen; the
    /// panel is to show its export settings.
    void exportSettingsWanted();

private:
    void followAlert();
    void followExport();
    void followPoses();
    void followBackdrops();
    /// Closes what belongs to the job that was open.
    void leaveJob();
    void answerQuestions();
    void show(Sheet* sheet);
    /// One that the state knows nothing of and that goes when it is closed.
    void showOwn(Sheet* sheet);
    bool mayShowOwn() const;
    static void drop(QPointer<Sheet>& sheet);

    AppState& state_;
    QWidget* window_;
    FileDialogs dialogs_;
    std::vector<KeyRow> windowKeys_;
    QPointer<Sheet> alert_;
    QPointer<Sheet> export_;
    QPointer<Sheet> poses_;
    QPointer<Sheet> backdrops_;
    QPointer<Sheet> rules_;
};

}  // namespace morva
