// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/action_table.h"

#include <algorithm>
#include <array>

#include <QtGlobal>

namespace morva::ActionTable {

namespace {

constexpr std::array table{
    ActEntry{Act::importFolder, QT_TRANSLATE_NOOP("actions", "&Import…"), "import", "Ctrl+I"},
    ActEntry{Act::exportPhotos, QT_TRANSLATE_NOOP("actions", "&Export…"), "export", "Ctrl+E"},
    ActEntry{Act::saveReviewList, QT_TRANSLATE_NOOP("actions", "Save Re&view List…"), "list"},
    ActEntry{Act::openJobFolder, QT_TRANSLATE_NOOP("actions", "Open Folder of P&hotos"), "folder"},
    ActEntry{Act::openResultFolder, QT_TRANSLATE_NOOP("actions", "&Open Result Folder"), "folder",
             "Ctrl+Shift+O"},
    ActEntry{Act::renameJob, QT_TRANSLATE_NOOP("actions", "Re&name Job"), "", "F2"},
    ActEntry{Act::removeJob, QT_TRANSLATE_NOOP("actions", "Re&move Job"), "trash"},
    ActEntry{Act::quit, QT_TRANSLATE_NOOP("actions", "&Quit"), "", "Ctrl+Q"},
    ActEntry{Act::undo, QT_TRANSLATE_NOOP("actions", "&Undo"), "undo", "Ctrl+Z"},
    ActEntry{Act::redo, QT_TRANSLATE_NOOP("actions", "&Redo"), "redo", "Ctrl+Shift+Z"},
    ActEntry{Act::selectAll, QT_TRANSLATE_NOOP("actions", "Select &All"), "", "Ctrl+A"},
    ActEntry{Act::cropPhotos, QT_TRANSLATE_NOOP("actions", "&Crop Photos"), "crop", "Ctrl+R"},
    ActEntry{Act::reanalyze, QT_TRANSLATE_NOOP("actions", "Re-anal&yze"), "reset"},
    ActEntry{Act::cancelTask, QT_TRANSLATE_NOOP("actions", "Ca&ncel"), "close", "Ctrl+."},
    ActEntry{Act::review, QT_TRANSLATE_NOOP("actions", "Re&view"), "review", "Ctrl+D"},
    ActEntry{Act::approveAllReady, QT_TRANSLATE_NOOP("actions", "Approve All &Ready"), "s-approved",
             "Ctrl+Shift+A"},
    ActEntry{Act::unapprove, QT_TRANSLATE_NOOP("actions", "&Take Back Approval"), ""},
    ActEntry{Act::backdrops, QT_TRANSLATE_NOOP("actions", "&Backdrops…"), "image", "Ctrl+B"},
    ActEntry{Act::teachPose, QT_TRANSLATE_NOOP("actions", "Teach a &Pose…"), "person", "Ctrl+T"},
    ActEntry{Act::editRules, QT_TRANSLATE_NOOP("actions", "Edit R&ules…"), "rules", "Ctrl+L"},
    ActEntry{Act::beforeAfter, QT_TRANSLATE_NOOP("actions", "&Before / After"), "compare",
             "Ctrl+Space", true},
    ActEntry{Act::zoomIn, QT_TRANSLATE_NOOP("actions", "Zoom &In"), "plus", "Ctrl++"},
    ActEntry{Act::zoomOut, QT_TRANSLATE_NOOP("actions", "Zoom &Out"), "minus", "Ctrl+-"},
    ActEntry{Act::zoomToFit, QT_TRANSLATE_NOOP("actions", "&Fit"), "fit", "Ctrl+0"},
    ActEntry{Act::showSidebar, QT_TRANSLATE_NOOP("actions", "&Sidebar"), "sidebar", "F8", true},
    ActEntry{Act::showPanel, QT_TRANSLATE_NOOP("actions", "&Right Panel"), "panel", "F9", true},
    ActEntry{Act::presetPage, QT_TRANSLATE_NOOP("actions", "&Preset"), "", "Ctrl+1", true},
    ActEntry{Act::photoPage, QT_TRANSLATE_NOOP("actions", "P&hoto"), "", "Ctrl+2", true},
    ActEntry{Act::largerThumbnails, QT_TRANSLATE_NOOP("actions", "&Larger Thumbnails"), "large",
             "Ctrl+Shift++"},
    ActEntry{Act::smallerThumbnails, QT_TRANSLATE_NOOP("actions", "S&maller Thumbnails"), "small",
             "Ctrl+Shift+-"},
    ActEntry{Act::highContrast, QT_TRANSLATE_NOOP("actions", "High &Contrast"), "", "", true},
    ActEntry{Act::fullScreen, QT_TRANSLATE_NOOP("actions", "F&ull Screen"), "", "F11", true},
    ActEntry{Act::showGuide, QT_TRANSLATE_NOOP("actions", "&Guide"), "", "F1"},
    ActEntry{Act::showKeys, QT_TRANSLATE_NOOP("actions", "&Keyboard Shortcuts"), "keyboard",
             "Ctrl+/"},
    ActEntry{Act::about, QT_TRANSLATE_NOOP("actions", "&About Morva"), "info"},
};

constexpr MenuEntry act(Menu menu, Act which) {
    return {.menu = menu, .kind = MenuEntry::Kind::act, .act = which};
}
constexpr MenuEntry key(Menu menu, KeyAction which) {
    return {.menu = menu, .kind = MenuEntry::Kind::key, .key = which};
}
constexpr MenuEntry line(Menu menu) { return {.menu = menu, .kind = MenuEntry::Kind::separator}; }

constexpr std::array entries{
    act(Menu::file, Act::importFolder),
    MenuEntry{.menu = Menu::file, .kind = MenuEntry::Kind::recentFolders},
    line(Menu::file),
    act(Menu::file, Act::exportPhotos),
    act(Menu::file, Act::saveReviewList),
    act(Menu::file, Act::openResultFolder),
    act(Menu::file, Act::openJobFolder),
    line(Menu::file),
    act(Menu::file, Act::renameJob),
    act(Menu::file, Act::removeJob),
    line(Menu::file),
    act(Menu::file, Act::quit),

    act(Menu::edit, Act::undo),
    act(Menu::edit, Act::redo),
    line(Menu::edit),
    act(Menu::edit, Act::selectAll),
    line(Menu::edit),
    key(Menu::edit, KeyAction::tighter),
    key(Menu::edit, KeyAction::looser),
    key(Menu::edit, KeyAction::turnLeft),
    key(Menu::edit, KeyAction::turnRight),
    key(Menu::edit, KeyAction::resetAdjustment),

    act(Menu::photos, Act::cropPhotos),
    act(Menu::photos, Act::reanalyze),
    act(Menu::photos, Act::cancelTask),
    line(Menu::photos),
    act(Menu::photos, Act::review),
    key(Menu::photos, KeyAction::approveAndNext),
    key(Menu::photos, KeyAction::toggleApproval),
    act(Menu::photos, Act::unapprove),
    act(Menu::photos, Act::approveAllReady),
    line(Menu::photos),
    MenuEntry{.menu = Menu::photos, .kind = MenuEntry::Kind::cropTypes},
    act(Menu::photos, Act::editRules),
    act(Menu::photos, Act::backdrops),
    act(Menu::photos, Act::teachPose),

    key(Menu::view, KeyAction::showGrid),
    key(Menu::view, KeyAction::showInspector),
    key(Menu::view, KeyAction::selectPrevious),
    key(Menu::view, KeyAction::selectNext),
    line(Menu::view),
    MenuEntry{.menu = Menu::view, .kind = MenuEntry::Kind::filters},
    act(Menu::view, Act::largerThumbnails),
    act(Menu::view, Act::smallerThumbnails),
    line(Menu::view),
    key(Menu::view, KeyAction::toggleOverlay),
    act(Menu::view, Act::beforeAfter),
    act(Menu::view, Act::zoomIn),
    act(Menu::view, Act::zoomOut),
    act(Menu::view, Act::zoomToFit),
    line(Menu::view),
    act(Menu::view, Act::showSidebar),
    act(Menu::view, Act::showPanel),
    act(Menu::view, Act::presetPage),
    act(Menu::view, Act::photoPage),
    line(Menu::view),
    act(Menu::view, Act::highContrast),
    act(Menu::view, Act::fullScreen),

    act(Menu::help, Act::showGuide),
    act(Menu::help, Act::showKeys),
    act(Menu::help, Act::about),
};

}  // namespace

std::span<const ActEntry> acts() { return table; }

const ActEntry& entry(Act wanted) { return *std::ranges::find(table, wanted, &ActEntry::act); }

std::span<const MenuEntry> menus() { return entries; }

const char* title(Menu menu) {
    switch (menu) {
        case Menu::file:
            return QT_TRANSLATE_NOOP("actions", "&File");
        case Menu::edit:
            return QT_TRANSLATE_NOOP("actions", "&Edit");
        case Menu::photos:
            return QT_TRANSLATE_NOOP("actions", "&Photos");
        case Menu::view:
            return QT_TRANSLATE_NOOP("actions", "&View");
        case Menu::help:
            return QT_TRANSLATE_NOOP("actions", "&Help");
    }
    return "";
}

}  // namespace morva::ActionTable
