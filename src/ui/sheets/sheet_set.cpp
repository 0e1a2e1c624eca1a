// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/sheet_set.h"

#include <algorithm>
#include <utility>

#include <QWidget>

#include "app/app_state.h"
#include "app/export_flow.h"
#include "ui/sheets/alert_sheet.h"
#include "ui/sheets/export_sheet.h"
#include "ui/widgets/words.h"

namespace morva {

SheetSet::SheetSet(AppState& state, QWidget* window)
    : SheetSet(state, window, FileDialogs::native(window)) {}

SheetSet::SheetSet(AppState& state, QWidget* window, FileDialogs dialogs)
    : QObject(window), state_(state), window_(window), dialogs_(std::move(dialogs)) {
    connect(&state_, &AppState::alertChanged, this, &SheetSet::followAlert);
    connect(&state_.exports(), &ExportFlow::changed, this, &SheetSet::followExport);
    answerQuestions();
    followAlert();
    followExport();
}

void SheetSet::answerQuestions() {
    connect(&state_, &AppState::folderWanted, this,
            [this](const std::string& title, const std::string& prompt) {
                dialogs_.folder(
                    {.title = said(title), .accept = said(prompt)},
                    [this](const FileDialogs::Path& folder) { state_.openFolder(folder); });
            });
    connect(&state_.exports(), &ExportFlow::folderWanted, this,
            [this](const FileDialogs::Path& proposed) {
                dialogs_.folder({.title = tr("Choose a folder for the crops"),
                                 .accept = tr("Choose"),
                                 .proposed = proposed},
                                [this](const FileDialogs::Path& folder) {
                                    state_.exports().setDestination(folder);
                                });
            });
    connect(
        &state_.exports(), &ExportFlow::reviewListWanted, this,
        [this](const std::string& title, const std::string& name) {
            dialogs_.fileToSave(
                {.title = said(title), .proposed = name, .filter = tr("Tables (*.csv)")},
                [this](const FileDialogs::Path& file) { state_.exports().saveReviewList(file); });
        });
}

void SheetSet::show(Sheet* sheet) {
    sheet->open();
    // An alert lies on top of whatever is opened.
    if (alert_ && sheet != alert_) alert_->open();
}

void SheetSet::drop(QPointer<Sheet>& sheet) {
    if (!sheet) return;
    Sheet* gone = std::exchange(sheet, nullptr);
    gone->close();
    gone->deleteLater();
}

void SheetSet::followAlert() {
    drop(alert_);
    const auto& alert = state_.alert();
    if (!alert) return;
    // The one alert with a way out leads to the preset that it is about.
    const bool isAboutRatio = alert->title == RatioCheck::alertTitle;
    auto* sheet = new AlertSheet(window_, said(alert->title), said(alert->message),
                                 isAboutRatio ? tr("Show in Preset") : QString());
    connect(sheet, &AlertSheet::acknowledged, &state_, &AppState::dismissAlert);
    connect(sheet, &AlertSheet::otherChosen, this, [this] {
        const auto wrong = state_.exports().presetsOfWrongRatio();
        state_.dismissAlert();
        state_.exports().dismiss();
        if (!wrong.empty()) state_.showPreset(wrong.front()->id);
        emit exportSettingsWanted();
    });
    alert_ = sheet;
    show(sheet);
}

void SheetSet::followExport() {
    const bool isWanted = state_.exports().isShown();
    if (!isWanted) return drop(export_);
    if (export_) return;
    auto* sheet = new ExportSheet(state_, window_);
    connect(sheet, &ExportSheet::presetWanted, this, &SheetSet::exportSettingsWanted);
    export_ = sheet;
    show(sheet);
}

void SheetSet::showRules() {}
void SheetSet::showKeys() {}
void SheetSet::showAbout() {}

}  // namespace morva
