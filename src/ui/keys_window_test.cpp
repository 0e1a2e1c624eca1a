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

TEST_F(KeysOfTheWindow, aSheetKeepsAllKeys) {
    open();
    for (const Act act : {Act::exportPhotos}) {
        window->actions().action(act)->trigger();
        ASSERT_TRUE(Sheet::openIn(window.get())) << static_cast<int>(act);
        press(Qt::Key_O);
        EXPECT_TRUE(state->showOverlay());
        EXPECT_EQ(state->selectedItemID(), idAt(0));
        press(Qt::Key_Escape);
        EXPECT_FALSE(Sheet::openIn(window.get())) << static_cast<int>(act);
    }
    press(Qt::Key_O);
    EXPECT_FALSE(state->showOverlay());
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
