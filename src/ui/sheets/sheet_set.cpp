// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/sheet_set.h"

#include <algorithm>
#include <utility>

#include <QWidget>

#include "app/app_state.h"
#include "app/backdrop_setup.h"
#include "app/export_flow.h"
#include "app/pose_flow.h"
#include "ui/sheets/about_sheet.h"
#include "ui/sheets/alert_sheet.h"
#include "ui/sheets/backdrop_sheet.h"
#include "ui/sheets/export_sheet.h"
#include "ui/sheets/guide_sheet.h"
#include "ui/sheets/key_sheet.h"
#include "ui/sheets/photo_keys.h"
#include "ui/sheets/pose_list.h"
#include "ui/sheets/pose_sheet.h"
#include "ui/sheets/rules_sheet.h"
#include "ui/widgets/words.h"

namespace morva {

SheetSet::SheetSet(AppState& state, QWidget* window)
    : SheetSet(state, window, FileDialogs::native(window)) {}

SheetSet::SheetSet(AppState& state, QWidget* window, FileDialogs dialogs)
    : QObject(window), state_(state), window_(window), dialogs_(std::move(dialogs)) {
    connect(&state_, &AppState::alertChanged, this, &SheetSet::followAlert);
    connect(&state_.exports(), &ExportFlow::changed, this, &SheetSet::followExport);
    connect(&state_.poses(), &PoseFlow::changed, this, &SheetSet::followPoses);
    connect(&state_.backdrops(), &BackdropSetup::changed, this, &SheetSet::followBackdrops);
    connect(&state_, &AppState::selectedJobChanged, this, &SheetSet::leaveJob);
    answerQuestions();
    followAlert();
    followExport();
    followPoses();
    followBackdrops();
}

SheetSet::~SheetSet() {
    // The window may outlive the state that they show, and so might those that are closed.
    qDeleteAll(window_->findChildren<Sheet*>(QString(), Qt::FindDirectChildrenOnly));
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
    // An alert lies on top of whatever is opened, and gives the focus back to that.
    Sheet* above = sheet == alert_ ? nullptr : alert_.data();
    if (above) above->close();
    sheet->open();
    if (above) above->open();
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

void SheetSet::followPoses() {
    if (!state_.poses().isShown()) return drop(poses_);
    if (poses_) return;
    auto* sheet = new PoseSheet(state_, window_);
    connect(sheet, &PoseSheet::addPackWanted, this, [this, sheet = QPointer(sheet)] {
        dialogs_.fileToOpen({.title = tr("Add a pose pack"), .filter = tr("Pose packs (*.json)")},
                            [this, sheet](const FileDialogs::Path& pack) {
                                state_.poses().addPack(pack);
                                if (sheet) sheet->taught().reload();
                            });
    });
    connect(sheet, &PoseSheet::savePackWanted, this, [this] {
        dialogs_.fileToSave(
            {.title = tr("Save a pose pack"),
             .proposed = PoseStore::packName,
             .filter = tr("Pose packs (*.json)")},
            [this](const FileDialogs::Path& pack) { state_.poses().savePack(pack, std::nullopt); });
    });
    poses_ = sheet;
    show(sheet);
}

void SheetSet::followBackdrops() {
    if (!state_.backdrops().isShown()) return drop(backdrops_);
    if (backdrops_) return;
    auto* sheet = new BackdropSheet(state_, window_);
    connect(sheet, &BackdropSheet::plateWanted, this, [this](const Uuid& preset) {
        dialogs_.fileToOpen({.title = tr("Choose a backdrop image"),
                             .filter = tr("Pictures (*.jpg *.jpeg *.png *.tif *.tiff *.heic)")},
                            [this, preset](const FileDialogs::Path& plate) {
                                state_.backdrops().addPlate(preset, plate);
                            });
    });
    backdrops_ = sheet;
    show(sheet);
}

void SheetSet::leaveJob() {
    // Opened from outside, another job comes to the front; what was begun for the last is not for
    // it.
    if (state_.exports().isShown()) state_.exports().dismiss();
    if (state_.poses().isShown()) state_.poses().dismiss();
    if (state_.backdrops().isShown()) state_.backdrops().dismiss();
    if (rules_) rules_->close();
}

bool SheetSet::mayShowOwn() const { return Sheet::openIn(window_) == nullptr; }

void SheetSet::showOwn(Sheet* sheet) {
    connect(sheet, &Sheet::closed, sheet, &QObject::deleteLater);
    show(sheet);
}

void SheetSet::showRules() {
    if (!state_.selectedJob() || !mayShowOwn()) return;
    rules_ = new RulesSheet(state_, window_);
    showOwn(rules_);
}

void SheetSet::showKeys() {
    if (!mayShowOwn()) return;
    std::vector<KeyRow> rows = photoKeyRows();
    rows.insert(rows.end(), windowKeys_.begin(), windowKeys_.end());
    showOwn(new KeySheet(window_, std::move(rows)));
}

void SheetSet::showGuide() {
    if (mayShowOwn()) showOwn(new GuideSheet(window_));
}

void SheetSet::showAbout() {
    if (mayShowOwn()) showOwn(new AboutSheet(window_));
}

}  // namespace morva
