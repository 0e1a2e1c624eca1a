// SPDX-License-Identifier: GPL-3.0-or-later
// The one window of the program: regions, menus, toolbar; hands keys and acts to the application
// state and shows what that says. Holds no state of its own but where its splitters are.
#pragma once

#include <QMainWindow>
#include <QTimer>

#include "app/app_state.h"
#include "ui/action_table.h"
#include "ui/window_memory.h"

class QSplitter;
class QStackedWidget;

namespace morva {

class Actions;
class FilterBar;
class Inspector;
class JobSidebar;
class PhotoGrid;
class RightPanel;
class SheetSet;
class StatusStrip;
class WelcomeView;

class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(AppState& state);
    ~MainWindow() override;

    /// Where the user was when the program ended last; call it when the state is started.
    void restorePlace();
    /// In front of the other windows, with a folder where one is given.
    void comeToFront(const std::optional<std::filesystem::path>& folder);
    /// What the desktop asks for, which counts unless the user has chosen otherwise.
    void followContrast(Contrast desktop);
    const Actions& actions() const { return *actions_; }
    Inspector& inspector() { return *inspector_; }
    SheetSet& sheets() { return *sheets_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildRegions();
    void connectViews();
    void restoreLook();
    void rememberLook();
    void rememberPlace();
    void rememberFolder();
    void showMode();
    void showPanel(bool shows);
    void showRecent();
    void showTitle();
    void carryOut(Act act);
    void carryOutView(Act act);
    void changeThumbnails(double factor);
    void openFolderOutside(const std::filesystem::path& folder);
    void showPhotoMenu(const QPoint& place);
    void showJobMenu(const QPoint& place);
    void offerAfterwards();
    bool handleKey(class QKeyEvent& event);

    AppState& state_;
    WindowMemory memory_;
    Actions* actions_;
    QSplitter* regions_;
    QStackedWidget* centre_;
    QWidget* gridPage_;
    JobSidebar* sidebar_;
    FilterBar* filterBar_;
    WelcomeView* welcome_;
    PhotoGrid* grid_;
    Inspector* inspector_;
    RightPanel* panel_;
    StatusStrip* status_;
    SheetSet* sheets_;
    QTimer placeTimer_;
    bool wantsSidebar_ = true;
    bool wantsPanel_ = true;
    /// The user's own choice; without one the desktop's counts.
    std::optional<Contrast> contrast_;
    Contrast desktopContrast_ = Contrast::ordinary;
    bool wasToldOfLoss_ = false;
};

}  // namespace morva
