// SPDX-License-Identifier: GPL-3.0-or-later
// Every act of the window: its name, picture, keys and menu, as data. Menus, toolbar and the sheet
// of keys are made from this one table; acts that are single keys stand in the table of keys and
// appear here by their place in a menu only.
#pragma once

#include <optional>
#include <span>

#include "app/app_types.h"
#include "app/key_table.h"

namespace morva {

enum class Act {
    importFolder,
    exportPhotos,
    saveReviewList,
    openJobFolder,
    openResultFolder,
    renameJob,
    removeJob,
    quit,
    undo,
    redo,
    selectAll,
    cropPhotos,
    reanalyze,
    cancelTask,
    review,
    approveAllReady,
    unapprove,
    backdrops,
    teachPose,
    editRules,
    beforeAfter,
    zoomIn,
    zoomOut,
    zoomToFit,
    showSidebar,
    showPanel,
    presetPage,
    photoPage,
    largerThumbnails,
    smallerThumbnails,
    highContrast,
    fullScreen,
    showGuide,
    showKeys,
    about,
};

enum class Menu { file, edit, photos, view, help };

/// What stands in a menu, from the top.
struct MenuEntry {
    enum class Kind { act, key, separator, recentFolders, cropTypes, filters };

    Menu menu;
    Kind kind;
    Act act = Act::quit;
    KeyAction key = KeyAction::selectNext;
};

struct ActEntry {
    Act act;
    /// In English; translated in the context "actions". An ampersand marks the menu's key.
    const char* text;
    /// Name of the drawing; empty for none.
    const char* icon = "";
    /// As QKeySequence reads it; empty for none.
    const char* keys = "";
    bool isCheckable = false;
};

namespace ActionTable {

std::span<const ActEntry> acts();
const ActEntry& entry(Act act);
std::span<const MenuEntry> menus();
/// "&File", in English, context "actions".
const char* title(Menu menu);

}  // namespace ActionTable

}  // namespace morva
