// SPDX-License-Identifier: GPL-3.0-or-later
// The acts of the table as the toolkit knows them: one object for each, with its text, picture and
// keys, enabled while the application state allows it. Says that an act is wanted; the window
// carries it out.
#pragma once

#include <map>
#include <vector>

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QObject>

#include "app/app_state.h"
#include "ui/action_table.h"
#include "ui/sheets/key_row.h"

class QMenuBar;

namespace morva {

class Actions final : public QObject {
    Q_OBJECT

public:
    /// The actions work while `window` has the focus.
    Actions(AppState& state, QWidget* window);

    QAction* action(Act act) const { return actions_.at(act); }
    QActionGroup* filters() const { return filters_; }
    /// The crop types of the library, and the one that the job chooses, for the selected photos.
    QMenu* cropTypes() const { return cropTypes_; }
    /// Filled by the window.
    QMenu* recentFolders() const { return recentFolders_; }

    void fill(QMenuBar& bar) const;
    /// What can be done with the selected photos.
    void fillPhotoMenu(QMenu& menu) const;

    /// The acts that have keys, under their headings, for the sheet of keys.
    static std::vector<KeyRow> keyRows();

    /// A tooltip for a button: what it does and its key.
    static QString tip(const QAction& action);

signals:
    void triggered(morva::Act act);

private:
    void addEntry(QMenu& menu, const MenuEntry& entry) const;
    void makeKeyActions();
    void makeFilters();
    void refresh();
    void refreshCropTypes();
    void refreshUndoTexts();

    AppState& state_;
    QWidget* window_;
    std::map<Act, QAction*> actions_;
    std::map<KeyAction, QAction*> keys_;
    QActionGroup* filters_;
    QMenu* cropTypes_;
    QMenu* recentFolders_;
    QMenu* filterMenu_;
};

}  // namespace morva
