// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QSpinBox>

#include "crop/crop_rules.h"
#include "model/presets/preset_library.h"
#include "ui/sheets/condition_editor.h"
#include "ui/sheets/preset_box.h"
#include "ui/sheets/rule_list.h"
#include "ui/sheets/rule_row.h"
#include "ui/sheets/sheet_test_support.h"

namespace morva {

namespace {

/// A job of six photos with 5, 5, 3, 3, 2 and no stars, whose rules ask for stars.
class Rules : public SheetTest {
protected:
    Rules() {
        const int stars[] = {5, 5, 3, 3, 2, 0};
        for (int i = 0; i < 6; ++i) {
            ImageAnalysis photo = Synthetic::portrait();
            photo.rating = stars[i];
            scripted[std::to_string(i + 1) + ".jpg"] = photo;
        }
        state = cropped(6);
        state->setRules({rating(5, PresetLibrary::headshotID()),
                         rating(3, PresetLibrary::threeQuarterID()),
                         rating(2, PresetLibrary::fullLengthID())});
        sheets = std::make_unique<SheetSet>(*state, &window, FileDialogs{});
        sheets->showRules();
    }

    static CropRule rating(int stars, const Uuid& preset) {
        return {.id = Uuid::random(),
                .condition = {RuleCondition::Rating{stars}},
                .presetID = preset,
                .enabled = true};
    }
    RuleList& list() const { return *window.findChild<RuleList*>(); }
    RuleRow* row(std::size_t place) const { return list().rows()[place]; }
    QWidget* control(std::size_t place, int index) const { return row(place)->controls()[index]; }
    std::vector<int> counts() const {
        std::vector<int> all;
        for (const RuleRow* one : list().rows()) all.push_back(one->count());
        return all;
    }
    std::vector<int> stars() const {
        std::vector<int> all;
        for (const CropRule& rule : list().rules())
            all.push_back(std::get<RuleCondition::Rating>(rule.condition.when).stars);
        return all;
    }
    /// The counts that the job has with these rules.
    std::vector<int> picked() const {
        const WorkingJob& job = *state->selectedJob();
        std::vector<int> all;
        for (const CropRule& rule : job.job().rules) {
            int count = 0;
            for (std::size_t i = 0; i < job.job().items.size(); ++i)
                count += job.solvedWith(i).rule == rule.condition.title() ? 1 : 0;
            all.push_back(count);
        }
        return all;
    }
    static void drag(QWidget* grip, RuleList& list, int by) {
        const QPoint from = grip->mapTo(&list, grip->rect().center());
        QTest::mousePress(grip, Qt::LeftButton, {}, grip->rect().center());
        const auto send = [&](QEvent::Type type, const QPoint& at) {
            QMouseEvent event(type, at, list.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
            QApplication::sendEvent(&list, &event);
        };
        send(QEvent::MouseMove, from + QPoint(0, by / 2));
        send(QEvent::MouseMove, from + QPoint(0, by));
        shoot(*list.window(), "rules-drag");
        send(QEvent::MouseButtonRelease, from + QPoint(0, by));
    }
    QWidget* grip(std::size_t place) const {
        for (QWidget* child : row(place)->findChildren<QWidget*>())
            if (child->cursor().shape() == Qt::OpenHandCursor) return child;
        return nullptr;
    }

    std::unique_ptr<AppState> state;
    std::unique_ptr<SheetSet> sheets;
};

}  // namespace

TEST_F(Rules, countThePhotosThatTheJobWillGiveThem) {
    EXPECT_EQ(counts(), (std::vector{2, 2, 1}));
    // The first match wins: moved up, the lower bar takes all.
    ASSERT_TRUE(tabTo(control(1, 0)));
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(stars(), (std::vector{3, 5, 2}));
    EXPECT_EQ(counts(), (std::vector{4, 0, 1}));
    EXPECT_TRUE(find<QLabel>("Every such photo matches a rule above"));
    EXPECT_EQ(QApplication::focusWidget(), control(0, 0));
    press(Qt::Key_Up, Qt::AltModifier);  // it is the first already
    EXPECT_EQ(stars(), (std::vector{3, 5, 2}));

    // What a rule that is off would pick is left to the next.
    press(Qt::Key_Space);
    EXPECT_EQ(counts(), (std::vector{0, 2, 3}));
    EXPECT_TRUE(find<QLabel>("Switched off"));
    press(Qt::Key_Space);
    auto* automatic = find<QCheckBox>("Automatic (rules)");
    ASSERT_TRUE(tabTo(automatic));
    press(Qt::Key_Space);
    EXPECT_TRUE(automatic->isChecked());
    press(Qt::Key_Return);
    EXPECT_FALSE(top());
    EXPECT_TRUE(state->selectedJob()->job().autoAssign);
    EXPECT_EQ(picked(), (std::vector{4, 0, 1}));
    state->undoStack().undo();
    EXPECT_FALSE(state->selectedJob()->job().autoAssign);
    EXPECT_EQ(
        std::get<RuleCondition::Rating>(state->selectedJob()->job().rules[0].condition.when).stars,
        5);
}

TEST_F(Rules, moveWhereTheyAreDropped) {
    const int height = row(0)->height();
    struct Case {
        std::size_t from;
        int rows;
        std::vector<int> expected;
    };
    for (const Case& one : {Case{2, -2, {2, 5, 3}}, Case{0, 2, {5, 3, 2}}, Case{0, 0, {5, 3, 2}},
                            Case{1, 1, {5, 2, 3}}, Case{0, -9, {5, 2, 3}}}) {
        // A little beyond the middle of the row it is dropped on.
        const int beyond = one.rows > 0 ? 2 : one.rows < 0 ? -2 : 0;
        drag(grip(one.from), list(), one.rows * height + beyond);
        EXPECT_EQ(stars(), one.expected);
    }
    // Escape lets go of the row and leaves the sheet.
    QTest::mousePress(grip(0), Qt::LeftButton);
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_TRUE(top());
    QTest::mouseRelease(&list(), Qt::LeftButton, {}, {10, list().height() - 1});
    EXPECT_EQ(stars(), (std::vector{5, 2, 3}));
}

TEST_F(Rules, areAddedEditedAndRemoved) {
    auto* add = find<QPushButton>("Add Rule");
    ASSERT_TRUE(tabTo(add));
    press(Qt::Key_Space);
    ASSERT_EQ(list().rows().size(), 4U);
    auto* editor = row(3)->findChild<ConditionEditor*>();
    EXPECT_TRUE(editor->isAncestorOf(QApplication::focusWidget()));
    press(Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), "1");
    EXPECT_EQ(counts(), (std::vector{2, 2, 1, 0}));
    EXPECT_EQ(stars().back(), 1);
    shoot(window, "rules-edit");

    ASSERT_TRUE(tabTo(control(0, 0)));
    press(Qt::Key_Delete);
    EXPECT_EQ(stars(), (std::vector{3, 2, 1}));
    EXPECT_EQ(counts(), (std::vector{4, 1, 0}));
    EXPECT_EQ(QApplication::focusWidget(), control(0, 0));
    press(Qt::Key_Escape);
    EXPECT_FALSE(top());
    EXPECT_EQ(state->selectedJob()->job().rules.size(), 3U);
    EXPECT_EQ(focused(), &field);
}

TEST_F(Rules, leaveTheOneForEverythingElseAtTheEnd) {
    list().setRules({rating(5, PresetLibrary::headshotID()),
                     rating(3, PresetLibrary::headshotID()),
                     {.id = Uuid::random(),
                      .condition = {RuleCondition::Always{}},
                      .presetID = PresetLibrary::headshotID(),
                      .enabled = true}});
    QTest::keyClick(control(1, 0), Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(control(2, 0), Qt::Key_Up, Qt::AltModifier);
    drag(grip(0), list(), 9 * row(0)->height());
    const auto rules = list().rules();
    EXPECT_TRUE(std::holds_alternative<RuleCondition::Always>(rules.back().condition.when));
    EXPECT_EQ(std::get<RuleCondition::Rating>(rules.front().condition.when).stars, 3);
}

}  // namespace morva
