// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include "app/key_table.h"
#include "model/presets/preset_library.h"
#include "ui/sheets/photo_keys.h"
#include "ui/sheets/sheet_test_support.h"
#include "ui/sheets/stat_tile.h"
#include "ui/sheets/welcome_view.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

class Sheets : public SheetTest {
protected:
    void start(int count) {
        state = cropped(count);
        sheets = std::make_unique<SheetSet>(*state, &window, FileDialogs{});
    }
    void beginExport() {
        state->exports().begin();
        ASSERT_TRUE(waitFor([&] { return find<QPushButton>("Export 3") != nullptr; }));
    }

    std::unique_ptr<AppState> state;
    std::unique_ptr<SheetSet> sheets;
};

}  // namespace

TEST_F(Sheets, takeTheFocusAndGiveItBack) {
    start(3);
    bool heard = false;
    QShortcut below(QKeySequence("Ctrl+I"), &window);
    QObject::connect(&below, &QShortcut::activated, [&] { heard = true; });
    beginExport();
    EXPECT_TRUE(top()->isAncestorOf(focused()));
    for (int i = 0; i < 30; ++i) {
        press(i % 2 ? Qt::Key_Tab : Qt::Key_Backtab);
        press(Qt::Key_Tab);
        EXPECT_TRUE(top()->isAncestorOf(focused()));
    }
    // Neither a key, a click nor the program's own doing leads below the sheet.
    press(Qt::Key_I, Qt::ControlModifier);
    EXPECT_FALSE(heard);
    QTest::mouseClick(&window, Qt::LeftButton, {}, {5, 5});
    field.setFocus();
    EXPECT_TRUE(top()->isAncestorOf(focused()));

    press(Qt::Key_Escape);
    EXPECT_FALSE(top());
    EXPECT_FALSE(state->exports().isShown());
    EXPECT_EQ(focused(), &field);
}

TEST_F(Sheets, anAlertLiesOverASheetAndBothGiveTheFocusBack) {
    start(3);
    beginExport();
    Sheet* sheet = top();
    state->showAlert({.title = "Already cropped", .message = "Nothing to do."});
    state->showAlert({.title = "Nothing to import", .message = "3b has no photos."});
    ASSERT_NE(top(), sheet);
    EXPECT_TRUE(find<QPushButton>("OK")->hasFocus());
    shoot(window, "alert-over-export");
    press(Qt::Key_Return);
    EXPECT_EQ(state->alert()->title, "Nothing to import");
    // A sheet that goes meanwhile must not get the focus of the alert.
    state->exports().dismiss();
    EXPECT_TRUE(find<QPushButton>("OK")->hasFocus());
    press(Qt::Key_Escape);
    EXPECT_FALSE(top());
    EXPECT_EQ(focused(), &field);
}

TEST_F(Sheets, theExportShowsItsPlanAndRunsIt) {
    start(4);
    state->select(item(*state, 0).id);
    state->approveSelected(false);
    state->exports().begin();
    const auto tiles = [&] {
        std::vector<int> counts;
        for (const StatTile* tile : window.findChildren<StatTile*>())
            counts.push_back(tile->count());
        return counts;
    };
    ASSERT_TRUE(waitFor([&] { return find<QPushButton>("Export 4") != nullptr; }));
    EXPECT_EQ(tiles(), (std::vector{4, 0, 0, 0}));
    shoot(window, "export");

    auto* only = find<QCheckBox>("Approved photos only");
    ASSERT_TRUE(tabTo(only));
    press(Qt::Key_Space);
    EXPECT_TRUE(state->exports().includeApprovedOnly());
    EXPECT_EQ(tiles(), (std::vector{1, 0, 0, 0}));
    EXPECT_EQ(tiles().front(), static_cast<int>(state->exports().plan()->write.size()));
    press(Qt::Key_Return);
    EXPECT_FALSE(top());
    finish(*state);
    EXPECT_TRUE(state->job(*state->selectedJobID())->job().lastExportAt);
}

TEST_F(Sheets, theExportWarnsOfAFolderOfPhotosAndOfAWrongRatio) {
    start(3);
    CropPreset preset = *state->preset(state->selectedJob()->solvedWith(0).presetID);
    preset.exportSettings.pixelHeight += 100;
    state->updatePreset(preset);
    beginExport();
    auto* destination = find<QLineEdit>("Destination");
    ASSERT_TRUE(tabTo(destination));
    destination->selectAll();
    QTest::keyClicks(destination, QString::fromStdString((photos / "out").string()));
    press(Qt::Key_Tab);
    EXPECT_EQ(state->exports().destination(), photos / "out");
    ASSERT_TRUE(waitFor([&] { return isFaulty(destination); }));
    shoot(window, "export-warnings");

    bool isWanted = false;
    QObject::connect(sheets.get(), &SheetSet::exportSettingsWanted, [&] { isWanted = true; });
    ASSERT_TRUE(waitFor([&] { return find<QPushButton>("Show preset") != nullptr; }));
    auto* show = find<QPushButton>("Show preset");
    ASSERT_TRUE(tabTo(show));
    press(Qt::Key_Return);
    EXPECT_TRUE(isWanted);
    EXPECT_FALSE(top());
    EXPECT_EQ(state->selectedPresetID(), preset.id);
}

TEST_F(Sheets, aLowWindowKeepsTheFootOfASheetInView) {
    start(3);
    beginExport();
    // The plan is made when there is time for it.
    ASSERT_TRUE(waitFor([&] { return find<QPushButton>("Export 3") != nullptr; }));
    for (const QSize size : {QSize(1280, 720), QSize(700, 420)}) {
        window.resize(size);
        QTest::qWait(20);
        auto* button = find<QPushButton>("Export 3");
        const QRect place(button->mapTo(&window, QPoint()), button->size());
        EXPECT_TRUE(window.rect().contains(place));
    }
}

TEST_F(Sheets, theKeysListEveryActOfTheTableAndFindThem) {
    start(1);
    sheets->setWindowKeys({{"Job", "Import a folder", {"Ctrl", "I"}}});
    QStringList caps;
    for (const KeyRow& row : photoKeyRows()) caps << row.caps;
    for (const KeyBinding& binding : KeyTable::bindings()) {
        // "=" and "_" are "+" and "-" without Shift; Enter is the other Return.
        const bool isSecond = QString(" = _ < > Enter ").contains(' ' + said(binding.caps) + ' ');
        EXPECT_EQ(caps.contains(said(binding.caps)), !isSecond) << binding.caps;
    }
    sheets->showKeys();
    shoot(window, "keys");
    EXPECT_TRUE(find<QLabel>("Ctrl I: Import a folder"));
    EXPECT_TRUE(find<QLabel>("← → ↑ ↓: Move the crop by 0.5 % (Shift: 2 %)"));
    QTest::keyClicks(QApplication::focusWidget(), "turn");
    EXPECT_TRUE(waitFor([&] { return find<QLabel>(", .: Turn by 0.25° (Shift: 1°)") != nullptr; }));
    EXPECT_FALSE(find<QLabel>("Ctrl I: Import a folder"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(top());
    sheets->showAbout();
    shoot(window, "about");
    EXPECT_TRUE(top());
    press(Qt::Key_Escape);
    EXPECT_FALSE(top());
    EXPECT_EQ(focused(), &field);
}

TEST(Welcome, leadsToImportAndToFoldersOfBefore) {
    WelcomeView view;
    view.resize(1216, 800);
    const double now = secondsNow();
    view.setRecent({{"/p/Oak Hill Primary", 412, now}, {"/p/St Brigid’s, autumn", 238, now - 9e5}});
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    shoot(view, "welcome");
    int imports = 0;
    std::filesystem::path chosen;
    QObject::connect(&view, &WelcomeView::importWanted, [&] { ++imports; });
    QObject::connect(&view, &WelcomeView::folderChosen,
                     [&](const std::filesystem::path& folder) { chosen = folder; });
    view.setFocus();
    QTest::keyClick(view.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(imports, 1);
    QTest::keyClick(view.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(view.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(chosen, "/p/Oak Hill Primary");
    view.setDropName("Kita Sonnenhaus");
    shoot(view, "welcome-drop");
}

}  // namespace morva
