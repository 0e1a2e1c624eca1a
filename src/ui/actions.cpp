// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/actions.h"

#include <algorithm>
#include <array>

#include <QCoreApplication>
#include <QKeySequence>
#include <QMenuBar>

#include "app/export_flow.h"
#include "ui/widgets/badge.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/status_look.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

QString translated(const char* text) { return QCoreApplication::translate("actions", text); }

/// A text of a menu where it is no menu's: without its key and without the dots of a question.
QString plain(const char* menuText) {
    return translated(menuText).remove(QLatin1Char('&')).remove(QChar(0x2026));
}

/// The heading in the sheet of keys, which has one for the keys of the view already.
QString groupOf(Menu menu) {
    const bool isOfWindow = menu == Menu::view || menu == Menu::help;
    return isOfWindow ? Actions::tr("Window") : plain(ActionTable::title(menu));
}

/// {"Ctrl", "Shift", "+"}: a plus sign may be a key, so the text cannot be cut at them.
QStringList capsOf(const char* keys) {
    const QKeyCombination combination = QKeySequence(QString::fromLatin1(keys))[0];
    const QString key = QKeySequence(combination.key()).toString(QKeySequence::NativeText);
    QString held = QKeySequence(combination).toString(QKeySequence::NativeText);
    held.chop(key.size());
    return held.split(QLatin1Char('+'), Qt::SkipEmptyParts) << key;
}

/// As if the key of the binding had been pressed.
KeyPress pressOf(const KeyBinding& binding) {
    return {.key = binding.key,
            .characters = binding.key == 0 ? binding.characters.substr(0, 1) : std::string_view()};
}

bool isEnabled(Act act, const AppState& state) {
    const WorkingJob* job = state.selectedJob();
    const bool hasJob = job != nullptr;
    const bool mayChange = !state.isReadOnly();
    const bool hasPhotos = hasJob && !job->job().items.empty();
    const bool inspects = hasJob && state.mode() == ViewMode::inspect;
    const bool isIdle = !state.progress().has_value();
    switch (act) {
        case Act::importFolder:
            return mayChange && isIdle;
        case Act::exportPhotos:
        case Act::cropPhotos:
        case Act::reanalyze:
            return hasPhotos && mayChange && isIdle;
        case Act::saveReviewList:
            return hasPhotos;
        case Act::openJobFolder:
            return hasJob;
        case Act::openResultFolder:
            return hasJob && job->job().exportFolder.has_value();
        case Act::renameJob:
            return hasJob && mayChange;
        case Act::removeJob:
            return hasJob && mayChange && isIdle;
        case Act::selectAll:
            return hasPhotos;
        case Act::cancelTask:
            return !isIdle;
        case Act::review:
            return hasJob && job->count(ItemStatus::review) > 0;
        case Act::approveAllReady:
            return hasJob && mayChange && job->count(ItemStatus::ready) > 0;
        case Act::unapprove:
            return hasJob && mayChange && !state.selection().empty();
        case Act::backdrops:
        case Act::teachPose:
        case Act::editRules:
            return hasPhotos && mayChange;
        case Act::beforeAfter:
        case Act::zoomIn:
        case Act::zoomOut:
        case Act::zoomToFit:
            return inspects;
        case Act::largerThumbnails:
        case Act::smallerThumbnails:
            return hasJob;
        case Act::undo:
        case Act::redo:
            return true;  // follow the undo stack
        default:
            return true;
    }
}

bool needsSelection(KeyAction key) {
    switch (key) {
        case KeyAction::showGrid:
        case KeyAction::showInspector:
        case KeyAction::selectNext:
        case KeyAction::selectPrevious:
        case KeyAction::toggleOverlay:
            return false;
        default:
            return true;
    }
}

constexpr std::array allFilters{StatusFilter::all,    StatusFilter::ready,
                                StatusFilter::review, StatusFilter::approved,
                                StatusFilter::failed, StatusFilter::adjusted};

}  // namespace

Actions::Actions(AppState& state, QWidget* window)
    : QObject(window),
      state_(state),
      window_(window),
      filters_(new QActionGroup(this)),
      cropTypes_(new QMenu(tr("Crop &Type"), window)),
      recentFolders_(new QMenu(tr("Recent &Folders"), window)),
      filterMenu_(new QMenu(tr("S&how"), window)) {
    for (const ActEntry& entry : ActionTable::acts()) {
        auto* action = new QAction(translated(entry.text), this);
        if (*entry.icon) action->setIcon(icon(QString::fromLatin1(entry.icon)));
        if (*entry.keys) action->setShortcut(QKeySequence(QString::fromLatin1(entry.keys)));
        action->setCheckable(entry.isCheckable);
        action->setIconVisibleInMenu(false);
        connect(action, &QAction::triggered, this,
                [this, act = entry.act] { emit triggered(act); });
        window->addAction(action);
        actions_.emplace(entry.act, action);
    }
    makeKeyActions();
    makeFilters();

    for (const auto signal :
         {&AppState::jobsChanged, &AppState::selectedJobChanged, &AppState::selectionChanged,
          &AppState::modeChanged, &AppState::progressChanged, &AppState::overlayChanged,
          &AppState::rightTabChanged})
        connect(&state, signal, this, &Actions::refresh);
    connect(&state, &AppState::jobChanged, this, &Actions::refresh);
    connect(&state, &AppState::itemsChanged, this, &Actions::refresh);
    connect(&state, &AppState::itemsReset, this, &Actions::refresh);
    connect(cropTypes_, &QMenu::aboutToShow, this, &Actions::refreshCropTypes);
    connect(&state, &AppState::filterChanged, this, [this] {
        const auto place = std::ranges::find(allFilters, state_.filter()) - allFilters.begin();
        filters_->actions().at(place)->setChecked(true);
    });
    QUndoStack& undo = state.undoStack();
    for (const auto signal : {&QUndoStack::undoTextChanged, &QUndoStack::redoTextChanged})
        connect(&undo, signal, this, &Actions::refreshUndoTexts);
    for (const auto signal : {&QUndoStack::canUndoChanged, &QUndoStack::canRedoChanged})
        connect(&undo, signal, this, &Actions::refreshUndoTexts);
    refresh();
    refreshCropTypes();
    refreshUndoTexts();
}

void Actions::makeKeyActions() {
    for (const KeyBinding& binding : KeyTable::bindings()) {
        if (keys_.contains(binding.action) || binding.action == KeyAction::useNthPreset) continue;
        // The key is handled by the window, where a field for text may want it; here it is told.
        auto* action =
            new QAction(said(binding.text) + QLatin1Char('\t') + said(binding.caps), this);
        action->setCheckable(binding.action == KeyAction::toggleOverlay);
        connect(action, &QAction::triggered, this,
                [this, &binding] { state_.handleKey(pressOf(binding)); });
        keys_.emplace(binding.action, action);
    }
}

void Actions::makeFilters() {
    for (const StatusFilter filter : allFilters) {
        const StatusLook look = lookOf(filter);
        auto* action = new QAction(look.word, filters_);
        action->setCheckable(true);
        action->setChecked(filter == state_.filter());
        if (!look.icon.isEmpty()) action->setIcon(icon(look.icon, look.color));
        connect(action, &QAction::triggered, this, [this, filter] { state_.setFilter(filter); });
        filterMenu_->addAction(action);
    }
}

void Actions::refresh() {
    for (const auto& [act, action] : actions_)
        if (act != Act::undo && act != Act::redo) action->setEnabled(isEnabled(act, state_));
    actions_.at(Act::presetPage)->setChecked(state_.rightTab() == RightTab::preset);
    actions_.at(Act::photoPage)->setChecked(state_.rightTab() == RightTab::photo);
    const bool hasSelection = state_.selectedJob() && !state_.selection().empty();
    for (const auto& [key, action] : keys_)
        action->setEnabled(needsSelection(key) ? hasSelection && !state_.isReadOnly()
                                               : state_.selectedJob() != nullptr);
    keys_.at(KeyAction::toggleOverlay)->setChecked(state_.showOverlay());
    cropTypes_->setEnabled(hasSelection && !state_.isReadOnly());
}

void Actions::refreshCropTypes() {
    const WorkingJob* job = state_.selectedJob();
    std::optional<std::size_t> current;
    if (job && state_.selectedItemID()) current = job->indexOf(*state_.selectedItemID());
    cropTypes_->clear();
    const auto add = [&](const QString& text, const QString& caps, std::optional<Uuid> preset) {
        QAction* action = cropTypes_->addAction(text + QLatin1Char('\t') + caps);
        action->setCheckable(true);
        action->setChecked(current && job->item(*current).presetOverride == preset);
        connect(action, &QAction::triggered, this, [this, preset] { state_.setOverride(preset); });
    };
    add(tr("The Job's"), QStringLiteral("0"), std::nullopt);
    cropTypes_->addSeparator();
    constexpr std::size_t mostKeys = 9;
    for (std::size_t i = 0; i < state_.presets().size(); ++i) {
        const CropPreset& preset = state_.presets()[i];
        // An ampersand of the name is no menu key.
        const QString shown = asGiven(preset.name).replace(QLatin1Char('&'), QLatin1String("&&"));
        add(shown, i < mostKeys ? QString::number(i + 1) : QString(), preset.id);
    }
}

void Actions::refreshUndoTexts() {
    const QUndoStack& undo = state_.undoStack();
    const auto show = [](QAction& action, bool can, const QString& with, const QString& without,
                         const QString& what) {
        action.setEnabled(can);
        action.setText(can && !what.isEmpty() ? with.arg(said(what.toStdString())) : without);
    };
    show(*actions_.at(Act::undo), undo.canUndo(), tr("&Undo %1"), tr("&Undo"), undo.undoText());
    show(*actions_.at(Act::redo), undo.canRedo(), tr("&Redo %1"), tr("&Redo"), undo.redoText());
}

void Actions::addEntry(QMenu& menu, const MenuEntry& entry) const {
    switch (entry.kind) {
        case MenuEntry::Kind::act:
            menu.addAction(actions_.at(entry.act));
            return;
        case MenuEntry::Kind::key:
            menu.addAction(keys_.at(entry.key));
            return;
        case MenuEntry::Kind::separator:
            menu.addSeparator();
            return;
        case MenuEntry::Kind::recentFolders:
            menu.addMenu(recentFolders_);
            return;
        case MenuEntry::Kind::cropTypes:
            menu.addMenu(cropTypes_);
            return;
        case MenuEntry::Kind::filters:
            menu.addMenu(filterMenu_);
            return;
    }
}

void Actions::fill(QMenuBar& bar) const {
    std::map<Menu, QMenu*> menus;
    for (const MenuEntry& entry : ActionTable::menus()) {
        auto& menu = menus[entry.menu];
        if (!menu) menu = bar.addMenu(translated(ActionTable::title(entry.menu)));
        addEntry(*menu, entry);
    }
}

void Actions::fillPhotoMenu(QMenu& menu) const {
    for (const KeyAction key : {KeyAction::approveAndNext, KeyAction::toggleApproval})
        menu.addAction(keys_.at(key));
    menu.addAction(actions_.at(Act::unapprove));
    menu.addSeparator();
    menu.addMenu(cropTypes_);
    menu.addAction(keys_.at(KeyAction::resetAdjustment));
    menu.addSeparator();
    menu.addAction(
        keys_.at(state_.mode() == ViewMode::grid ? KeyAction::showInspector : KeyAction::showGrid));
    menu.addAction(actions_.at(Act::openJobFolder));
}

std::vector<KeyRow> Actions::keyRows() {
    std::vector<KeyRow> rows;
    for (const MenuEntry& entry : ActionTable::menus()) {
        if (entry.kind != MenuEntry::Kind::act) continue;
        const ActEntry& act = ActionTable::entry(entry.act);
        if (*act.keys) rows.push_back({groupOf(entry.menu), plain(act.text), capsOf(act.keys)});
    }
    return rows;
}

QString Actions::tip(const QAction& action) {
    QString text = action.text().section(QLatin1Char('\t'), 0, 0);
    text.remove(QLatin1Char('&'));
    const QString keys = action.shortcut().toString(QKeySequence::NativeText);
    return keys.isEmpty() ? text : tr("%1, %2").arg(text, keys);
}

}  // namespace morva
