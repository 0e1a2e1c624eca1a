// SPDX-License-Identifier: GPL-3.0-or-later
// Keys of the real window: who hears them, and what they do.
#include <gmock/gmock.h>

#include <QLineEdit>
#include <QSlider>
#include <QTest>

#include "app/state_test_support.h"
#include "ui/actions.h"
#include "ui/filter_bar.h"
#include "ui/job_sidebar.h"
#include "ui/main_window.h"
#include "ui/sheets/guide_sheet.h"
#include "ui/sheets/sheet_set.h"
#include "ui/widgets/sheet.h"
#include "ui/widgets/window_test_support.h"

namespace morva {
namespace {

class KeysOfTheWindow : public StateTest {
protected:
    /// A window over five cropped photos, the first of them selected.
    void open() {
        state = cropped(5);
        window = std::make_unique<MainWindow>(*state);
        bringUp(*window);
        state->select(idAt(0));
    }
    std::string idAt(std::size_t index) const { return item(*state, index).id; }
    void press(Qt::Key key, Qt::KeyboardModifiers held = {}) { pressKey(*window, key, held); }
    bool isApproved(std::size_t index) const { return item(*state, index).approved; }

    std::unique_ptr<AppState> state;
    std::unique_ptr<MainWindow> window;
};

TEST_F(KeysOfTheWindow, anEveningOfReviewNeedsNoMouse) {
    open();
    press(Qt::Key_Right);
    EXPECT_EQ(state->selectedItemID(), idAt(1));
    press(Qt::Key_E);
    EXPECT_EQ(state->mode(), ViewMode::inspect);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_DOUBLE_EQ(item(*state, 1).adjustment.dx, 0.02);
    press(Qt::Key_Plus);
    press(Qt::Key_Period);
    EXPECT_DOUBLE_EQ(item(*state, 1).adjustment.rotation, 0.25);
    press(Qt::Key_Return);
    EXPECT_TRUE(isApproved(1));
    EXPECT_EQ(state->selectedItemID(), idAt(2));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(isApproved(1));
    EXPECT_EQ(state->selectedItemID(), idAt(1)) << "what is undone is seen";
    press(Qt::Key_O);
    EXPECT_FALSE(state->showOverlay());
    press(Qt::Key_2);
    EXPECT_EQ(item(*state, 1).presetOverride, state->presets()[1].id);
    press(Qt::Key_Escape);
    EXPECT_EQ(state->mode(), ViewMode::grid);
    press(Qt::Key_Space);
    EXPECT_TRUE(isApproved(1));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(state->selection().size(), 5U);
}

TEST_F(KeysOfTheWindow, aFieldForTextKeepsItsKeys) {
    open();
    auto* sidebar = window->findChild<JobSidebar*>();
    ASSERT_TRUE(sidebar);
    window->actions().action(Act::renameJob)->trigger();
    auto* editor = sidebar->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    ASSERT_EQ(QApplication::focusWidget(), editor);
    editor->clear();
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_R, Qt::Key_2, Qt::Key_Space, Qt::Key_B})
        press(key);
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return state->selectedJob()->job().name == "or2 b"; }))
        << state->selectedJob()->job().name;
    EXPECT_TRUE(state->showOverlay());
    EXPECT_FALSE(isApproved(0));
    EXPECT_FALSE(item(*state, 0).presetOverride);
}

TEST_F(KeysOfTheWindow, f1OpensTheGuide) {
    open();
    press(Qt::Key_F1);
    ASSERT_TRUE(Sheet::openIn(window.get()));
    EXPECT_TRUE(qobject_cast<GuideSheet*>(Sheet::openIn(window.get())));
    press(Qt::Key_F1);
    press(Qt::Key_Escape);
    EXPECT_FALSE(Sheet::openIn(window.get())) << "one is enough";
}

TEST_F(KeysOfTheWindow, aSheetKeepsAllKeys) {
    open();
    QWidget* before = QApplication::focusWidget();
    for (const Act act : {Act::exportPhotos, Act::backdrops, Act::teachPose, Act::editRules,
                          Act::showGuide, Act::showKeys, Act::about}) {
        SCOPED_TRACE(static_cast<int>(act));
        window->actions().action(act)->trigger();
        const Sheet* sheet = Sheet::openIn(window.get());
        ASSERT_TRUE(sheet);
        for (const Qt::Key key :
             {Qt::Key_O, Qt::Key_E, Qt::Key_BracketRight, Qt::Key_2, Qt::Key_Plus, Qt::Key_Right})
            press(key);
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_F9);
        EXPECT_TRUE(state->showOverlay());
        EXPECT_EQ(state->mode(), ViewMode::grid);
        EXPECT_EQ(state->selection(), std::vector{idAt(0)});
        EXPECT_EQ(item(*state, 0).presetOverride, std::nullopt);
        EXPECT_TRUE(item(*state, 0).adjustment.isIdentity());
        EXPECT_TRUE(window->actions().action(Act::showPanel)->isChecked());
        for (int i = 0; i < 40; ++i) {
            press(i < 30 ? Qt::Key_Tab : Qt::Key_Backtab);
            ASSERT_TRUE(sheet->isAncestorOf(QApplication::focusWidget()));
        }
        press(Qt::Key_Escape);
        EXPECT_FALSE(Sheet::openIn(window.get()));
        EXPECT_EQ(QApplication::focusWidget(), before);
    }
    EXPECT_EQ(state->undoStack().count(), 0) << "what is cancelled changes nothing";
    press(Qt::Key_O);
    EXPECT_FALSE(state->showOverlay());
}

TEST_F(KeysOfTheWindow, returnDoesWhatASheetIsFor) {
    open();
    const auto answer = [&](Act act) {
        window->actions().action(act)->trigger();
        ASSERT_TRUE(Sheet::openIn(window.get()));
        press(Qt::Key_Return);
    };
    for (const Act act : {Act::editRules, Act::showGuide, Act::showKeys, Act::about}) {
        answer(act);
        EXPECT_FALSE(Sheet::openIn(window.get())) << static_cast<int>(act);
    }
    answer(Act::backdrops);
    EXPECT_FALSE(state->backdrops().isShown());
    answer(Act::teachPose);
    EXPECT_EQ(state->poses().error(), "Give the pose a name.");
    press(Qt::Key_Escape);
    EXPECT_FALSE(isApproved(0)) << "the key was not the photo's";
}

TEST_F(KeysOfTheWindow, sheetsOfAJobGoWithIt) {
    open();
    const fs::path other = home.path() / "4a";
    fs::create_directories(other);
    std::ofstream(other / "1.jpg") << "photo";
    const Uuid first = *state->selectedJobID();
    for (const Act act : {Act::exportPhotos, Act::backdrops, Act::teachPose, Act::editRules}) {
        state->selectJob(first);
        window->actions().action(act)->trigger();
        ASSERT_TRUE(Sheet::openIn(window.get()));
        window->comeToFront(other);  // a second start of the program
        finish(*state);
        EXPECT_NE(state->selectedJobID(), first);
        EXPECT_FALSE(Sheet::openIn(window.get())) << static_cast<int>(act);
    }
}

TEST_F(KeysOfTheWindow, aSliderIsWorkedByItsArrows) {
    open();
    auto* slider = window->findChild<FilterBar*>()->findChild<QSlider*>();
    ASSERT_TRUE(slider);
    slider->setFocus();
    const double before = state->thumbnailHeight();
    press(Qt::Key_Right);
    EXPECT_GT(state->thumbnailHeight(), before);
    EXPECT_EQ(state->selectedItemID(), idAt(0));
}

TEST_F(KeysOfTheWindow, theNextStartBeginsWhereThisOneWas) {
    open();
    state->setFilter(StatusFilter::ready);
    state->select(idAt(3));
    state->setMode(ViewMode::inspect);
    // Without closing: the program may be killed at any time.
    const auto isKept = [&] {
        return WindowMemory(services.folders.data).place().mode == ViewMode::inspect;
    };
    ASSERT_TRUE(QTest::qWaitFor(isKept));
    ASSERT_TRUE(state->flushSaves());
    window.reset();
    state.reset();

    state = started();
    MainWindow next(*state);
    next.restorePlace();
    EXPECT_EQ(state->selectedItemID(), idAt(3));
    EXPECT_EQ(state->mode(), ViewMode::inspect);
    EXPECT_EQ(state->filter(), StatusFilter::ready);
}

}  // namespace
}  // namespace morva
