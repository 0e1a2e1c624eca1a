// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/key_table.h"

#include <algorithm>
#include <array>

#include <QString>
#include <Qt>

namespace morva::KeyTable {

namespace {

constexpr double nudge = 0.005;
constexpr double largeNudge = 0.02;
// Tighter and looser are reciprocal, so that one undoes the other to the last bit of a pixel.
constexpr double zoom = 1.01;
constexpr double largeZoom = 1.05;
constexpr double turn = 0.25;
constexpr double largeTurn = 1;

using enum KeyAction;
constexpr auto grid = ViewMode::grid;
constexpr auto inspect = ViewMode::inspect;

constexpr std::array<KeyBinding, 28> table{{
    {nudgeLeft, Qt::Key_Left, "", inspect, nudge, largeNudge, "←", "Nudge left"},
    {nudgeRight, Qt::Key_Right, "", inspect, nudge, largeNudge, "→", "Nudge right"},
    {nudgeUp, Qt::Key_Up, "", inspect, nudge, largeNudge, "↑", "Nudge up"},
    {nudgeDown, Qt::Key_Down, "", inspect, nudge, largeNudge, "↓", "Nudge down"},
    {selectPrevious, Qt::Key_Left, "", grid, 0, 0, "←", "Previous photo"},
    {selectNext, Qt::Key_Right, "", grid, 0, 0, "→", "Next photo"},
    {selectPrevious, Qt::Key_Up, "", grid, 0, 0, "↑", "Previous photo"},
    {selectNext, Qt::Key_Down, "", grid, 0, 0, "↓", "Next photo"},
    {approveAndNext, Qt::Key_Return, "", {}, 0, 0, "Return", "Approve and go to the next photo"},
    {approveAndNext, Qt::Key_Enter, "", {}, 0, 0, "Enter", "Approve and go to the next photo"},
    {toggleApproval, Qt::Key_Space, "", {}, 0, 0, "Space", "Approve, or take it back"},
    {backToGrid, Qt::Key_Escape, "", inspect, 0, 0, "Esc", "Back to the grid"},
    {tighter, 0, "+", {}, 1 / zoom, 1 / largeZoom, "+", "Tighter crop"},
    {tighter, 0, "=", {}, 1 / zoom, 1 / largeZoom, "=", "Tighter crop"},
    {looser, 0, "-", {}, zoom, largeZoom, "-", "Looser crop"},
    {looser, 0, "_", {}, zoom, largeZoom, "_", "Looser crop"},
    {turnLeft, 0, ",", {}, -turn, -largeTurn, ",", "Turn left"},
    {turnLeft, 0, "<", {}, -turn, -largeTurn, "<", "Turn left"},
    {turnRight, 0, ".", {}, turn, largeTurn, ".", "Turn right"},
    {turnRight, 0, ">", {}, turn, largeTurn, ">", "Turn right"},
    {resetAdjustment, 0, "r", {}, 0, 0, "R", "Reset the hand adjustment"},
    {selectPrevious, 0, "[", {}, 0, 0, "[", "Previous photo"},
    {selectNext, 0, "]", {}, 0, 0, "]", "Next photo"},
    {toggleOverlay, 0, "o", {}, 0, 0, "O", "Show or hide the guides"},
    {clearOwnPreset, 0, "0", {}, 0, 0, "0", "Crop type of the job"},
    {useNthPreset, 0, "123456789", {}, 0, 0, "1 – 9", "Crop type by its place in the list"},
    {showGrid, 0, "g", {}, 0, 0, "G", "Grid"},
    {showInspector, 0, "e", {}, 0, 0, "E", "Inspector"},
}};

bool isFor(const KeyBinding& binding, const KeyPress& press, std::string_view typed) {
    if (binding.key != 0) return binding.key == press.key;
    return typed.size() == 1 && binding.characters.find(typed) != std::string_view::npos;
}

}  // namespace

std::span<const KeyBinding> bindings() { return table; }

const KeyBinding* find(const KeyPress& press, ViewMode view) {
    const std::string typed =
        QString::fromUtf8(press.characters.data(), static_cast<int>(press.characters.size()))
            .toLower()
            .toStdString();
    const auto found = std::ranges::find_if(table, [&](const KeyBinding& binding) {
        return binding.view.value_or(view) == view && isFor(binding, press, typed);
    });
    return found == table.end() ? nullptr : &*found;
}

}  // namespace morva::KeyTable
