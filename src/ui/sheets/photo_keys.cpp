// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/photo_keys.h"

#include <algorithm>
#include <array>
#include <optional>

#include <QCoreApplication>

#include "app/key_table.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

/// For texts of this table.
struct Keys {
    Q_DECLARE_TR_FUNCTIONS(Keys)
};

/// Acts that are told in one line.
struct Line {
    const char* group;
    const char* text;
    std::vector<KeyAction> actions;
    /// The view whose keys are meant; absent where it does not matter.
    std::optional<ViewMode> view = {};
    /// Keys beside the arrows, for acts that have both.
    bool takesNamedKeys = true;
};

const std::vector<Line>& lines() {
    using enum KeyAction;
    static const char* const review = QT_TRANSLATE_NOOP("morva::Keys", "Review");
    static const char* const byHand = QT_TRANSLATE_NOOP("morva::Keys", "Crop by hand");
    static const char* const type = QT_TRANSLATE_NOOP("morva::Keys", "Crop type");
    static const char* const view = QT_TRANSLATE_NOOP("morva::Keys", "View");
    static const std::vector<Line> all{
        {review,
         QT_TRANSLATE_NOOP("morva::Keys", "Approve and go to the next photo"),
         {approveAndNext}},
        {review,
         QT_TRANSLATE_NOOP("morva::Keys", "Approve or take approval back"),
         {toggleApproval}},
        {review,
         QT_TRANSLATE_NOOP("morva::Keys", "Previous or next photo"),
         {selectPrevious, selectNext},
         {},
         false},
        {byHand,
         QT_TRANSLATE_NOOP("morva::Keys", "Move the crop by %1 (Shift: %2)"),
         {nudgeLeft, nudgeRight, nudgeUp, nudgeDown}},
        {byHand,
         QT_TRANSLATE_NOOP("morva::Keys", "Tighter or looser by %1 (Shift: %2)"),
         {tighter, looser}},
        {byHand, QT_TRANSLATE_NOOP("morva::Keys", "Turn by %1 (Shift: %2)"), {turnLeft, turnRight}},
        {byHand, QT_TRANSLATE_NOOP("morva::Keys", "Reset the hand adjustment"), {resetAdjustment}},
        {type, QT_TRANSLATE_NOOP("morva::Keys", "Give the photo the n-th preset"), {useNthPreset}},
        {type, QT_TRANSLATE_NOOP("morva::Keys", "Back to the job’s preset"), {clearOwnPreset}},
        {view, QT_TRANSLATE_NOOP("morva::Keys", "Open in the inspector"), {showInspector}},
        {view, QT_TRANSLATE_NOOP("morva::Keys", "Back to the grid"), {showGrid}},
        {view, QT_TRANSLATE_NOOP("morva::Keys", "Leave the inspector"), {backToGrid}},
        {view, QT_TRANSLATE_NOOP("morva::Keys", "Guides and measured points"), {toggleOverlay}},
        {view,
         QT_TRANSLATE_NOOP("morva::Keys", "Select photos, in the grid"),
         {selectPrevious, selectNext},
         ViewMode::grid},
    };
    return all;
}

/// Of a binding of the line: the first for each act, all arrows, no second key for the same.
std::vector<const KeyBinding*> bindingsOf(const Line& line) {
    std::vector<const KeyBinding*> found;
    for (const KeyAction action : line.actions) {
        bool isFirst = true;
        for (const KeyBinding& binding : KeyTable::bindings()) {
            if (binding.action != action || (line.view && binding.view != line.view)) continue;
            if (!line.takesNamedKeys && binding.key != 0) continue;
            if (isFirst || line.view) found.push_back(&binding);
            isFirst = false;
        }
    }
    return found;
}

/// "0.5 %", "1 %" or "0.25°".
QString stepText(KeyAction action, double step) {
    using enum KeyAction;
    if (action == turnLeft || action == turnRight)
        return Keys::tr("%1°").arg(number(std::abs(step), std::abs(step) < 1 ? 2 : 0));
    if (action == tighter || action == looser) return percent(step < 1 ? 1 / step - 1 : step - 1);
    return percent(step, step < 0.01 ? 1 : 0);
}

}  // namespace

std::vector<KeyRow> photoKeyRows() {
    std::vector<KeyRow> rows;
    for (const Line& line : lines()) {
        KeyRow row{Keys::tr(line.group), Keys::tr(line.text), {}};
        const auto bindings = bindingsOf(line);
        for (const KeyBinding* binding : bindings) row.caps << said(binding->caps);
        const KeyBinding& first = *bindings.front();
        if (first.step != 0)
            row.text = row.text.arg(stepText(first.action, first.step),
                                    stepText(first.action, first.shiftStep));
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace morva
