// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDesktopServices>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QTextEdit>
#include <QUrl>
#include <QVBoxLayout>

#include "app/alert_texts.h"
#include "app/backdrop_setup.h"
#include "app/export_flow.h"
#include "app/pose_flow.h"
#include "ui/actions.h"
#include "ui/filter_bar.h"
#include "ui/grid/photo_grid.h"
#include "ui/inspector/inspector.h"
#include "ui/job_list.h"
#include "ui/job_sidebar.h"
#include "ui/main_toolbar.h"
#include "ui/panel/right_panel.h"
#include "ui/sheets/sheet_set.h"
#include "ui/sheets/welcome_view.h"
#include "ui/status_strip.h"
#include "ui/widgets/sheet.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int sidebarWidth = 224;
constexpr int panelWidth = 336;
/// Below this the regions at the sides take their smaller widths.
constexpr int roomyWindow = 1360;
constexpr int smallSidebar = 200;
constexpr int smallPanel = 288;
constexpr QSize firstSize{1440, 900};
constexpr QSize smallestSize{960, 600};
constexpr int placeDelay = 300;  // milliseconds
constexpr double thumbnailStep = 1.2;

bool isTyping(const QWidget* focus) {
    if (!focus) return false;
    if (const auto* combo = qobject_cast<const QComboBox*>(focus)) return combo->isEditable();
    return qobject_cast<const QLineEdit*>(focus) || qobject_cast<const QTextEdit*>(focus) ||
           qobject_cast<const QPlainTextEdit*>(focus) ||
           qobject_cast<const QAbstractSpinBox*>(focus);
}

/// Whether the control that has the focus is itself worked by a key: buttons by Space, sliders and
/// tabs by arrows, lists of choices by typing.
bool isWorkedBy(const QWidget* focus, int key) {
    const bool isArrow =
        key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
    const bool leaves = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
    if (qobject_cast<const QAbstractButton*>(focus)) return key == Qt::Key_Space;
    if (qobject_cast<const QAbstractSlider*>(focus) || qobject_cast<const QTabBar*>(focus))
        return isArrow;
    if (qobject_cast<const QComboBox*>(focus)) return !leaves;
    if (const auto* list = qobject_cast<const QListView*>(focus))
        return qobject_cast<const JobList*>(list->model()) && !leaves;
    return false;
}

/// The first folder that is being dragged; a dragged photo stands for the folder it lies in.
std::optional<std::filesystem::path> folderIn(const QMimeData* data) {
    if (!data || !data->hasUrls()) return std::nullopt;
    for (const QUrl& url : data->urls()) {
        if (!url.isLocalFile()) continue;
        const std::filesystem::path path(QFile::encodeName(url.toLocalFile()).toStdString());
        std::error_code error;
        if (std::filesystem::is_directory(path, error)) return path;
        if (std::filesystem::is_regular_file(path, error)) return path.parent_path();
    }
    return std::nullopt;
}

}  // namespace

MainWindow::MainWindow(AppState& state)
    : state_(state),
      memory_(state.services().folders.data),
      actions_(new Actions(state, this)),
      regions_(new QSplitter),
      centre_(new QStackedWidget),
      gridPage_(new QWidget),
      sidebar_(new JobSidebar(state)),
      filterBar_(new FilterBar(state, actions_->filters())),
      welcome_(new WelcomeView),
      grid_(new PhotoGrid(state)),
      inspector_(new Inspector(state)),
      panel_(new RightPanel(state)),
      status_(new StatusStrip(state)),
      sheets_(new SheetSet(state, this)) {
    setAcceptDrops(true);
    setMinimumSize(smallestSize);
    actions_->fill(*menuBar());
    sheets_->setWindowKeys(Actions::keyRows());
    addToolBar(new MainToolbar(state, *actions_));
    buildRegions();
    connectViews();
    restoreLook();
    placeTimer_.setSingleShot(true);
    placeTimer_.setInterval(placeDelay);
    connect(&placeTimer_, &QTimer::timeout, this, &MainWindow::rememberPlace);
    qApp->installEventFilter(this);
    showMode();
    showRecent();
    showTitle();
}

MainWindow::~MainWindow() { qApp->removeEventFilter(this); }

void MainWindow::buildRegions() {
    auto* column = new QVBoxLayout(gridPage_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(filterBar_);
    column->addWidget(grid_, 1);
    for (QWidget* page :
         {static_cast<QWidget*>(welcome_), gridPage_, static_cast<QWidget*>(inspector_)})
        centre_->addWidget(page);
    centre_->setMinimumWidth(480);
    sidebar_->setMinimumWidth(180);
    sidebar_->setMaximumWidth(320);
    panel_->setMinimumWidth(288);
    panel_->setMaximumWidth(420);
    for (QWidget* region : {static_cast<QWidget*>(sidebar_), static_cast<QWidget*>(centre_),
                            static_cast<QWidget*>(panel_)}) {
        regions_->addWidget(region);
        regions_->setCollapsible(regions_->indexOf(region), false);
    }
    regions_->setStretchFactor(1, 1);
    regions_->setHandleWidth(1);
    auto* whole = new QWidget;
    auto* rows = new QVBoxLayout(whole);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(regions_, 1);
    rows->addWidget(status_);
    setCentralWidget(whole);
}

void MainWindow::connectViews() {
    connect(actions_, &Actions::triggered, this, &MainWindow::carryOut);
    connect(&state_, &AppState::modeChanged, this, &MainWindow::showMode);
    connect(&state_, &AppState::selectedJobChanged, this, [this] {
        showMode();
        showTitle();
    });
    connect(&state_, &AppState::jobsChanged, this, [this] {
        showMode();
        showRecent();
        showTitle();
    });
    connect(&state_, &AppState::jobChanged, this, &MainWindow::showTitle);
    connect(&state_, &AppState::itemsReset, this, &MainWindow::rememberFolder);
    connect(&state_, &AppState::selectedJobChanged, this, &MainWindow::rememberFolder);
    connect(&state_, &AppState::selectedJobChanged, &state_, &AppState::getReadyToCrop);
    for (const auto signal :
         {&AppState::selectedJobChanged, &AppState::selectionChanged, &AppState::modeChanged,
          &AppState::filterChanged, &AppState::rightTabChanged})
        connect(&state_, signal, &placeTimer_, qOverload<>(&QTimer::start));
    connect(&state_, &AppState::taskEnded, this, &MainWindow::offerAfterwards);

    connect(welcome_, &WelcomeView::importWanted, &state_, &AppState::importFolder);
    connect(welcome_, &WelcomeView::folderChosen, &state_, &AppState::openFolder);
    connect(sidebar_, &JobSidebar::importWanted, &state_, &AppState::importFolder);
    connect(sidebar_, &JobSidebar::contextMenuWanted, this, &MainWindow::showJobMenu);
    connect(grid_, &PhotoGrid::photoActivated, this, [this] { state_.setMode(ViewMode::inspect); });
    connect(grid_, &PhotoGrid::contextMenuWanted, this, &MainWindow::showPhotoMenu);
    connect(inspector_, &Inspector::contextMenuWanted, this, &MainWindow::showPhotoMenu);
    connect(panel_, &RightPanel::rulesWanted, sheets_, &SheetSet::showRules);
    connect(panel_, &RightPanel::backdropsWanted, this, [this] { carryOut(Act::backdrops); });
    connect(panel_, &RightPanel::posesWanted, this, [this] { carryOut(Act::teachPose); });
    connect(sheets_, &SheetSet::exportSettingsWanted, this, [this] {
        wantsPanel_ = true;
        showMode();
        panel_->revealExportSettings();
    });
}

void MainWindow::restoreLook() {
    const WindowMemory::Look look = memory_.look();
    if (!restoreGeometry(look.geometry)) resize(firstSize.boundedTo(screen()->availableSize()));
    const bool isRoomy = width() >= roomyWindow;
    const int left = scaled(isRoomy ? sidebarWidth : smallSidebar);
    const int right = scaled(isRoomy ? panelWidth : smallPanel);
    if (!regions_->restoreState(look.regions))
        regions_->setSizes({left, std::max(480, width() - left - right), right});
    wantsSidebar_ = look.showsSidebar;
    wantsPanel_ = look.showsPanel;
    contrast_ = look.contrast;
    state_.setThumbnailHeight(
        std::clamp<double>(look.thumbnailHeight, smallestThumbnail, largestThumbnail));
    state_.setShowOverlay(look.showsOverlay);
    actions_->action(Act::highContrast)->setChecked(contrast_ == Contrast::high);
}

void MainWindow::followContrast(Contrast desktop) {
    desktopContrast_ = desktop;
    if (contrast_) return;
    actions_->action(Act::highContrast)->setChecked(desktop == Contrast::high);
    applyTheme(*qApp, desktop);
}

void MainWindow::rememberLook() {
    memory_.remember(WindowMemory::Look{.geometry = saveGeometry(),
                                        .regions = regions_->saveState(),
                                        .showsSidebar = wantsSidebar_,
                                        .showsPanel = wantsPanel_,
                                        .thumbnailHeight = state_.thumbnailHeight(),
                                        .showsOverlay = state_.showOverlay(),
                                        .contrast = contrast_});
}

void MainWindow::rememberPlace() {
    memory_.remember(WindowMemory::Place{.job = state_.selectedJobID(),
                                         .item = state_.selectedItemID(),
                                         .mode = state_.mode(),
                                         .filter = state_.filter(),
                                         .tab = state_.rightTab()});
}

void MainWindow::rememberFolder() {
    const WorkingJob* job = state_.selectedJob();
    if (!job) return;
    memory_.used({job->job().folderURL, static_cast<int>(job->job().items.size()), secondsNow()});
    showRecent();
}

void MainWindow::restorePlace() {
    const WindowMemory::Place place = memory_.place();
    if (place.job && state_.job(*place.job)) {
        state_.selectJob(*place.job);
        state_.setFilter(place.filter);
        if (place.item && state_.selectedJob()->indexOf(*place.item)) {
            state_.select(place.item);
            state_.setMode(place.mode);
        }
        state_.setRightTab(place.tab);
    } else if (!state_.jobs().empty()) {
        state_.selectJob(state_.jobs().front()->id());
    }
}

void MainWindow::comeToFront(const std::optional<std::filesystem::path>& folder) {
    setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    show();
    raise();
    activateWindow();
    if (folder) state_.openFolder(*folder);
}

void MainWindow::showMode() {
    const bool hasJob = state_.selectedJob();
    // At the start nothing has it, and the photos are what keys are for.
    const bool hadFocus = !focusWidget() || centre_->isAncestorOf(focusWidget());
    QWidget* page = !hasJob                           ? static_cast<QWidget*>(welcome_)
                    : state_.mode() == ViewMode::grid ? gridPage_
                                                      : static_cast<QWidget*>(inspector_);
    centre_->setCurrentWidget(page);
    if (hadFocus) (page == gridPage_ ? static_cast<QWidget*>(grid_) : page)->setFocus();
    sidebar_->setVisible(wantsSidebar_);
    panel_->setVisible(wantsPanel_ && hasJob);
    actions_->action(Act::showSidebar)->setChecked(wantsSidebar_);
    actions_->action(Act::showPanel)->setChecked(wantsPanel_);
    actions_->action(Act::showPanel)->setEnabled(hasJob);
}

void MainWindow::showRecent() {
    QMenu* menu = actions_->recentFolders();
    menu->clear();
    std::vector<WelcomeView::Recent> shown;
    for (const WindowMemory::Recent& recent : memory_.recent()) {
        shown.push_back({recent.folder, recent.photos, recent.lastUsed});
        QString text = pathText(recent.folder);
        QAction* action = menu->addAction(text.replace(QLatin1Char('&'), QLatin1String("&&")));
        connect(action, &QAction::triggered, this,
                [this, folder = recent.folder] { state_.openFolder(folder); });
    }
    menu->setEnabled(!shown.empty());
    welcome_->setRecent(shown);
}

void MainWindow::showTitle() {
    const WorkingJob* job = state_.selectedJob();
    setWindowTitle(job ? tr("%1 – Morva").arg(asGiven(job->job().name)) : QStringLiteral("Morva"));
}

void MainWindow::carryOut(Act act) {
    const WorkingJob* job = state_.selectedJob();
    switch (act) {
        case Act::importFolder:
            return state_.importFolder();
        case Act::exportPhotos:
            return state_.exports().begin();
        case Act::saveReviewList:
            return state_.exports().chooseReviewList();
        case Act::openJobFolder:
            return openFolderOutside(job->job().folderURL);
        case Act::openResultFolder:
            if (job->job().exportFolder) openFolderOutside(*job->job().exportFolder);
            return;
        case Act::renameJob:
            return sidebar_->renameSelected();
        case Act::removeJob:
            state_.removeJob();
            return status_->offer(tr("Undo"), [this] { state_.undoStack().undo(); });
        case Act::quit:
            close();
            return;
        case Act::undo:
            return state_.undoStack().undo();
        case Act::redo:
            return state_.undoStack().redo();
        case Act::selectAll:
            return grid_->selectAllShown();
        case Act::cropPhotos:
            return state_.analyzeCurrentJob();
        case Act::reanalyze:
            return state_.analyzeCurrentJob(true);
        case Act::cancelTask:
            return state_.cancelProcessing();
        case Act::review:
            return state_.startReview();
        case Act::approveAllReady:
            state_.approveAllReady();
            return;
        case Act::unapprove:
            return state_.unapproveSelected();
        case Act::backdrops:
            return state_.backdrops().begin();
        case Act::teachPose:
            return state_.poses().begin();
        case Act::editRules:
            return sheets_->showRules();
        case Act::showGuide:
            return sheets_->showGuide();
        case Act::showKeys:
            return sheets_->showKeys();
        case Act::about:
            return sheets_->showAbout();
        default:
            return carryOutView(act);
    }
}

void MainWindow::carryOutView(Act act) {
    const bool isOn = actions_->action(act)->isChecked();
    switch (act) {
        case Act::beforeAfter:
            return inspector_->setShowsResult(isOn);
        case Act::zoomIn:
            return inspector_->zoomIn();
        case Act::zoomOut:
            return inspector_->zoomOut();
        case Act::zoomToFit:
            return inspector_->zoomToFit();
        case Act::showSidebar:
            wantsSidebar_ = isOn;
            return showMode();
        case Act::showPanel:
            wantsPanel_ = isOn;
            return showMode();
        case Act::presetPage:
        case Act::photoPage:
            wantsPanel_ = true;
            state_.setRightTab(act == Act::presetPage ? RightTab::preset : RightTab::photo);
            actions_->action(act)->setChecked(true);
            return showMode();
        case Act::largerThumbnails:
            return changeThumbnails(thumbnailStep);
        case Act::smallerThumbnails:
            return changeThumbnails(1 / thumbnailStep);
        case Act::highContrast:
            contrast_ = isOn ? Contrast::high : Contrast::ordinary;
            applyTheme(*qApp, *contrast_);
            // Who chooses what the desktop asks for wants to follow it again.
            if (contrast_ == desktopContrast_) contrast_.reset();
            return;
        case Act::fullScreen:
            setWindowState(isOn ? windowState() | Qt::WindowFullScreen
                                : windowState() & ~Qt::WindowFullScreen);
            return;
        default:
            return;
    }
}

void MainWindow::changeThumbnails(double factor) {
    state_.setThumbnailHeight(std::clamp<double>(std::round(state_.thumbnailHeight() * factor),
                                                 smallestThumbnail, largestThumbnail));
}

void MainWindow::openFolderOutside(const std::filesystem::path& folder) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(folder.c_str())));
}

void MainWindow::showPhotoMenu(const QPoint& place) {
    QMenu menu(this);
    actions_->fillPhotoMenu(menu);
    menu.exec(place);
}

void MainWindow::showJobMenu(const QPoint& place) {
    QMenu menu(this);
    for (const Act act : {Act::renameJob, Act::openJobFolder, Act::openResultFolder})
        menu.addAction(actions_->action(act));
    menu.addSeparator();
    menu.addAction(actions_->action(Act::removeJob));
    menu.exec(place);
}

void MainWindow::offerAfterwards() {
    const WorkingJob* job = state_.selectedJob();
    if (job && !state_.exports().lastRows().empty() && job->job().exportFolder)
        status_->offer(tr("Open Folder"), [this] { carryOut(Act::openResultFolder); });
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    // The first stop of a key is the window's own widget with the focus.
    if (event->type() == QEvent::KeyPress && watched->isWidgetType() &&
        static_cast<QWidget*>(watched)->window() == this &&
        (watched == QApplication::focusWidget() ||
         (!QApplication::focusWidget() && watched == this)))
        return handleKey(*static_cast<QKeyEvent*>(event));
    return QMainWindow::eventFilter(watched, event);
}

bool MainWindow::handleKey(QKeyEvent& event) {
    const QWidget* focus = QApplication::focusWidget();
    if (Sheet::openIn(this) || QApplication::activePopupWidget()) return false;
    if (isWorkedBy(focus, event.key())) return false;
    const std::string typed = event.text().toStdString();
    const auto held = event.modifiers() & ~Qt::KeypadModifier;
    const bool done = state_.handleKey(
        {.key = event.key(),
         .characters = typed,
         .shift = held.testFlag(Qt::ShiftModifier),
         .command = bool(held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)),
         .isTyping = isTyping(focus)});
    if (done) event.accept();
    return done;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    rememberLook();
    rememberPlace();
    const auto saved = state_.flushSaves();
    // Told once; whoever closes the window again means it.
    if (!saved && !std::exchange(wasToldOfLoss_, true)) {
        state_.showAlert(AlertTexts::notSaved(saved.error().message));
        event->ignore();
        return;
    }
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const auto folder = folderIn(event->mimeData());
    if (!folder || state_.isReadOnly() || Sheet::openIn(this)) return;
    welcome_->setDropName(pathText(folder->filename()));
    grid_->setDropName(pathText(folder->filename()));
    event->setDropAction(Qt::LinkAction);
    event->accept();
}

void MainWindow::dragLeaveEvent(QDragLeaveEvent*) {
    welcome_->setDropName({});
    grid_->setDropName({});
}

void MainWindow::dropEvent(QDropEvent* event) {
    const auto folder = folderIn(event->mimeData());
    welcome_->setDropName({});
    grid_->setDropName({});
    if (!folder) return;
    event->setDropAction(Qt::LinkAction);
    event->accept();
    state_.openFolder(*folder);
}

}  // namespace morva
