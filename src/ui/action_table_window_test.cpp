// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/action_table.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>

#include <QFile>
#include <QKeySequence>
#include <QString>

#include "ui/actions.h"
#include "ui/widgets/icons.h"

namespace morva {
namespace {

TEST(ActionTable, noTwoActsShareAKeyAndNoneTakesOneOfThePhotos) {
    std::map<QString, Act> taken;
    for (const ActEntry& entry : ActionTable::acts()) {
        if (!*entry.keys) continue;
        const QKeySequence keys(QString::fromLatin1(entry.keys));
        ASSERT_FALSE(keys.isEmpty()) << entry.keys;
        EXPECT_TRUE(taken.emplace(keys.toString(), entry.act).second) << entry.keys;
        // Plain keys belong to the photos, whatever has the focus.
        const auto combination = keys[0];
        const auto held = combination.keyboardModifiers() & ~Qt::ShiftModifier;
        const bool isFunctionKey =
            combination.key() >= Qt::Key_F1 && combination.key() <= Qt::Key_F35;
        EXPECT_TRUE(held || isFunctionKey) << entry.keys;
    }
}

TEST(ActionTable, everyActAndEveryKeyIsFoundOnceInAMenu) {
    std::map<Act, int> acts;
    std::map<KeyAction, int> keys;
    for (const MenuEntry& entry : ActionTable::menus()) {
        if (entry.kind == MenuEntry::Kind::act) ++acts[entry.act];
        if (entry.kind == MenuEntry::Kind::key) ++keys[entry.key];
    }
    for (const ActEntry& entry : ActionTable::acts()) EXPECT_EQ(acts[entry.act], 1) << entry.text;
    // Arrows and digits move and choose where one looks; a menu adds nothing to them.
    const std::set withoutMenu{KeyAction::nudgeLeft,   KeyAction::nudgeRight,
                               KeyAction::nudgeUp,     KeyAction::nudgeDown,
                               KeyAction::backToGrid,  KeyAction::clearOwnPreset,
                               KeyAction::useNthPreset};
    for (const KeyBinding& binding : KeyTable::bindings())
        EXPECT_EQ(keys[binding.action], withoutMenu.contains(binding.action) ? 0 : 1)
            << binding.text;
}

TEST(ActionTable, theSheetOfKeysShowsEachKeyByItself) {
    std::map<QString, QStringList> caps;
    for (const KeyRow& row : Actions::keyRows()) caps[row.text] = row.caps;
    EXPECT_EQ(caps.size(), std::ranges::count_if(ActionTable::acts(), [](const ActEntry& entry) {
                  return *entry.keys != 0;
              }));
    EXPECT_EQ(caps["Import"], QStringList({"Ctrl", "I"}));
    EXPECT_EQ(caps["Zoom In"], QStringList({"Ctrl", "+"}));
    EXPECT_EQ(caps["Larger Thumbnails"], QStringList({"Ctrl", "Shift", "+"}));
    EXPECT_EQ(caps["Right Panel"], QStringList({"F9"}));
}

TEST(ActionTable, everyPictureIsDrawn) {
    for (const ActEntry& entry : ActionTable::acts()) {
        if (!*entry.icon) continue;
        const QString file = QStringLiteral(":/icons/%1.svg").arg(QLatin1String(entry.icon));
        icon(QString::fromLatin1(entry.icon)).pixmap(16);  // loads the drawings
        EXPECT_TRUE(QFile::exists(file)) << entry.icon;
    }
}

}  // namespace
}  // namespace morva
