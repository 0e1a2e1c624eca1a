// SPDX-License-Identifier: GPL-3.0-or-later
// Every key of the grid and the inspector: what it does and how a person reads it. The key handler,
// the menus and the sheet of keys are made from this one table.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "app/app_types.h"

namespace morva {

enum class KeyAction {
    selectPrevious,
    selectNext,
    nudgeLeft,
    nudgeRight,
    nudgeUp,
    nudgeDown,
    approveAndNext,
    toggleApproval,
    backToGrid,
    tighter,
    looser,
    turnLeft,
    turnRight,
    resetAdjustment,
    toggleOverlay,
    clearOwnPreset,
    useNthPreset,
    showGrid,
    showInspector,
};

struct KeyBinding {
    KeyAction action;
    /// A named key as Qt numbers it; 0 where `characters` tell.
    int key = 0;
    /// Any of these characters, in lower case.
    std::string_view characters = {};
    /// Where it works; absent for both views.
    std::optional<ViewMode> view = {};
    /// How far one press goes, and with Shift; 0 where there is no far. Crop heights for a nudge,
    /// the factor of a zoom, degrees of a turn.
    double step = 0;
    double shiftStep = 0;
    /// As key caps show it, "←".
    std::string_view caps = {};
    /// What it does, "Nudge left"; the larger step with Shift goes without saying.
    std::string_view text = {};
};

/// A key that was pressed.
struct KeyPress {
    int key = 0;
    /// What it types, in any case of letters; empty for keys that type nothing.
    std::string_view characters = {};
    bool shift = false;
    /// Control, Alt or Meta is held: the key belongs to a menu.
    bool command = false;
    /// A field for text has the focus.
    bool isTyping = false;
};

namespace KeyTable {

std::span<const KeyBinding> bindings();

/// What the key does in a view; null when nothing. Looks at neither focus nor modifiers.
const KeyBinding* find(const KeyPress& press, ViewMode view);

}  // namespace KeyTable

}  // namespace morva
