// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <map>
#include <set>

#include <QAction>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

#include "app/state_test_support.h"
#include "ui/panel/choice_box.h"
#include "ui/panel/color_button.h"
#include "ui/panel/preset_form.h"
#include "ui/panel/preset_page.h"
#include "ui/panel/reference_box.h"
#include "ui/panel/right_panel.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/slider_row.h"

namespace morva {
namespace {

/// Every value of a preset under its key in files, those of the export settings after "export.".
std::map<std::string, Json> valuesOf(CropPreset preset) {
    const Json json = preset;
    std::map<std::string, Json> values;
    for (const auto& [key, value] : json.items()) {
        if (key != "export") values[key] = value;
    }
    for (const auto& [key, value] : json["export"].items()) values["export." + key] = value;
    return values;
}

/// A preset that has every value there can be.
CropPreset fullPreset() {
    CropPreset preset = PresetLibrary::standardLibrary().front();
    preset.badge = "Head";
    preset.exportRating = 2;
    preset.exportSettings.starRating = 2;
    preset.exportSettings.plateURL = "/plates/gray.jpg";
    preset.exportSettings.backdropColor = Rgb{0.2, 0.4, 0.6};
    preset.reference.emplace().sourceName = "model.jpg";
    return preset;
}

/// The same where the control of `key` has an effect.
CropPreset whereItMatters(const std::string& key) {
    CropPreset preset = fullPreset();
    if (key.starts_with("body")) preset.framing = Framing::threeQuarter;
    if (key == "cameraRollDegrees") preset.rotationMode = RotationMode::correctCameraRoll;
    if (key == "protectPropsOverhead") preset.protectProps = true;
    if (key.starts_with("export.")) preset.exportSettings.backdrop = BackdropMode::replace;
    if (key == "export.backdropVignette" || key == "export.backdropColor")
        preset.exportSettings.plateURL.reset();
    return preset;
}

/// Name of the control; the same as the key but for what one control sets together.
std::string controlOf(const std::string& key) {
    return key == "export.starRating" ? "exportRating" : key;
}

class PresetPageTest : public StateTest {
protected:
    void SetUp() override {
        state = started();
        panel = std::make_unique<RightPanel>(*state);
        panel->resize(336, 900);
        panel->show();
        state->setRightTab(RightTab::preset);
    }

    PresetForm& form() { return *panel->presetPage()->form(); }
    void show(const CropPreset& preset) {
        CropPreset changed = preset;
        changed.id = shown().id;
        state->updatePreset(changed, "Test");
        QCoreApplication::processEvents();
    }
    const CropPreset& shown() { return *state->preset(state->selectedPresetID()); }
    QWidget* control(const std::string& name) {
        return form().findChild<QWidget*>(QString::fromStdString(name));
    }

    /// Sets another value as a person would.
    void change(QWidget& control) {
        if (auto* row = qobject_cast<SliderRow*>(&control)) {
            const double at = row->box()->value();
            row->box()->setValue(at + 2 <= row->box()->maximum() ? at + 2 : at - 2);
        } else if (auto* box = qobject_cast<ChoiceBox*>(&control)) {
            QTest::keyClick(box, box->currentIndex() > 0 ? Qt::Key_Up : Qt::Key_Down);
        } else if (auto* check = qobject_cast<QCheckBox*>(&control)) {
            check->click();
        } else if (auto* spin = qobject_cast<QAbstractSpinBox*>(&control)) {
            spin->stepUp();
        } else if (auto* color = qobject_cast<ColorButton*>(&control)) {
            color->hexField()->setText("#AA5511");
            QTest::keyClick(color->hexField(), Qt::Key_Return);
        } else if (control.objectName() == "export.plateURL") {
            form().askForPlate = [] { return std::filesystem::path("/plates/blue.jpg"); };
            form().findChild<QPushButton*>("choosePlate")->click();
        } else if (auto* line = qobject_cast<QLineEdit*>(&control)) {
            line->setText(line->text() + "x");
            QTest::keyClick(line, Qt::Key_Return);
        }
    }

    std::unique_ptr<AppState> state;
    std::unique_ptr<RightPanel> panel;
};

TEST_F(PresetPageTest, hasAControlForEveryValueThatChangesJustThatValue) {
    const std::set<std::string> elsewhere{"id", "reference"};
    for (const auto& [key, value] : valuesOf(fullPreset())) {
        SCOPED_TRACE(key);
        if (elsewhere.contains(key)) continue;
        show(whereItMatters(key));
        QWidget* found = control(controlOf(key));
        ASSERT_TRUE(found) << "no control edits it";
        EXPECT_TRUE(found->isEnabled());
        EXPECT_FALSE(key != "export.plateURL" && found->accessibleName().isEmpty() &&
                     !qobject_cast<SliderRow*>(found) && !qobject_cast<QCheckBox*>(found));
        const auto before = valuesOf(shown());
        change(*found);
        const auto after = valuesOf(shown());
        EXPECT_NE(before.at(key), after.at(key)) << "the edit did not arrive";
        for (const auto& [other, otherValue] : before)
            if (controlOf(other) != controlOf(key)) {
                EXPECT_EQ(otherValue, after.at(other)) << other << " changed with it";
            }
    }
    EXPECT_TRUE(control("reference"));
}

TEST_F(PresetPageTest, showsAgainWhatWasEdited) {
    // The other way round: what a control set, another preset shows, and back.
    for (const auto& [key, value] : valuesOf(fullPreset())) {
        auto* row = qobject_cast<SliderRow*>(control(controlOf(key)));
        if (!row) continue;
        SCOPED_TRACE(key);
        show(whereItMatters(key));
        change(*row);
        const double set = row->value();
        state->undoStack().undo();
        QCoreApplication::processEvents();
        EXPECT_NE(row->value(), set) << "undo is not seen";
        state->undoStack().redo();
        QCoreApplication::processEvents();
        EXPECT_EQ(row->value(), set);
        EXPECT_EQ(row->slider()->value(),
                  std::lround((row->box()->value() - row->scale().least) / row->scale().step));
    }
}

TEST_F(PresetPageTest, keepsValuesBeyondTheUsualRange) {
    CropPreset wide = fullPreset();
    wide.faceScale = 0.61;
    wide.topMargin = -0.04;
    wide.exportSettings.pixelWidth = 40;
    show(wide);
    EXPECT_NEAR(qobject_cast<SliderRow*>(control("faceScale"))->value(), 0.61, 1e-9);
    EXPECT_NEAR(qobject_cast<SliderRow*>(control("topMargin"))->value(), -0.04, 1e-9);
    EXPECT_EQ(qobject_cast<QSpinBox*>(control("export.pixelWidth"))->value(), 40);
    EXPECT_EQ(shown().faceScale, 0.61) << "showing a value must not change it";
}

TEST_F(PresetPageTest, aDragIsOneStepWithItsName) {
    auto* row = qobject_cast<SliderRow*>(control("faceScale"));
    const int steps = state->undoStack().count();
    for (int i = 1; i <= 5; ++i) row->slider()->setValue(row->slider()->value() + i);
    EXPECT_EQ(state->undoStack().count(), steps + 1);
    EXPECT_EQ(state->undoStack().undoText(), "Change Face Size");
    EXPECT_NEAR(shown().faceScale, row->value(), 1e-9);

    // Held by the hand, the next drag is another step, however quickly it follows.
    for (int drag = 1; drag <= 2; ++drag) {
        row->slider()->setSliderDown(true);
        for (int i = 0; i < 3; ++i) row->slider()->setSliderPosition(100 * drag + i);
        row->slider()->setSliderDown(false);
        EXPECT_EQ(state->undoStack().count(), steps + 1 + drag);
    }
}

TEST_F(PresetPageTest, disablesWhatHasNoEffect) {
    using Change = void (*)(CropPreset&);
    struct Case {
        const char* what;
        Change change;
        std::set<std::string> off;
        std::set<std::string> on;
    };
    for (const Case& c : {
             Case{"a headshot has no body framing",
                  [](CropPreset&) {},
                  {"bodyTopMargin", "bodyBottomAnchor", "bodyHipAnchor", "cameraRollDegrees"},
                  {"faceScale", "levelMaxDegrees"}},
             Case{"only three quarters are measured to the hips",
                  [](CropPreset& p) { p.framing = Framing::fullLength; },
                  {"bodyHipAnchor"},
                  {"bodyTopMargin", "bodyBottomAnchor"}},
             Case{"unprotected hair needs no gap",
                  [](CropPreset& p) { p.protectHair = false; },
                  {"protectAccessories", "minEdgeClearance", "protectPropsOverhead"},
                  {"protectHair", "protectProps"}},
             Case{"never rotate",
                  [](CropPreset& p) { p.rotationMode = RotationMode::never; },
                  {"levelMaxDegrees", "levelStrength", "cameraRollDegrees"},
                  {"rotationMode"}},
             Case{"a kept photo has no backdrop",
                  [](CropPreset& p) { p.exportSettings.backdrop = BackdropMode::keep; },
                  {"export.plateURL", "choosePlate", "export.backdropColor",
                   "export.backdropVignette", "export.plateZoom", "export.floorReflection"},
                  {"export.backdrop"}},
             Case{"a plate needs no vignette",
                  [](CropPreset& p) { p.exportSettings.backdrop = BackdropMode::replace; },
                  {"export.backdropVignette", "backdropColorChoice", "export.backdropColor"},
                  {"export.plateZoom", "export.floorReflection", "choosePlate", "clearPlate"}},
         }) {
        SCOPED_TRACE(c.what);
        CropPreset preset = fullPreset();
        c.change(preset);
        show(preset);
        for (const std::string& name : c.off) EXPECT_FALSE(control(name)->isEnabled()) << name;
        for (const std::string& name : c.on) EXPECT_TRUE(control(name)->isEnabled()) << name;
    }
}

TEST_F(PresetPageTest, closedHeadsShowTheMainValue) {
    using Part = PresetForm::Part;
    CropPreset preset = fullPreset();
    preset.exportSettings.backdrop = BackdropMode::keep;
    preset.exportSettings.pixelHeight = 1400;
    preset.exportSettings.pixelWidth = 2100;
    preset.aspectWidth = 7;
    show(preset);
    const std::map<Part, QString> values{
        {Part::cropType, "7 : 5"},        {Part::faceSize, "21.5 %"},
        {Part::body, "not used"},         {Part::keepInside, "Hair, head"},
        {Part::leveling, "at most 3.0°"}, {Part::review, "80 %"},
        {Part::reference, "model.jpg"},   {Part::exports, "2100 × 1400 is not 7 : 5."},
        {Part::backdrop, "not used"},     {Part::placement, "5.7 % above the head"}};
    for (const auto& [part, value] : values) EXPECT_EQ(form().section(part)->value(), value);
}

TEST_F(PresetPageTest, aWrongRatioIsToldAndMended) {
    auto* fix = form().findChild<QPushButton*>("fixHeight");
    EXPECT_TRUE(fix->parentWidget()->isHidden());
    CropPreset preset = fullPreset();
    preset.aspectWidth = 7;
    preset.exportSettings.pixelWidth = 2100;
    preset.exportSettings.pixelHeight = 1400;
    show(preset);
    EXPECT_FALSE(fix->parentWidget()->isHidden());
    EXPECT_TRUE(isFaulty(control("export.pixelHeight")));
    fix->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(shown().exportSettings.pixelHeight, 1500);
    EXPECT_TRUE(fix->parentWidget()->isHidden());
    EXPECT_FALSE(isFaulty(control("export.pixelHeight")));
}

TEST_F(PresetPageTest, aSizeFromTheListSetsBothSides) {
    auto* sizes = qobject_cast<ChoiceBox*>(control("export.size"));
    EXPECT_EQ(sizes->currentIndex(), 0);
    QTest::keyClick(sizes, Qt::Key_Down);
    EXPECT_EQ(shown().exportSettings.pixelWidth, 1200);
    EXPECT_EQ(shown().exportSettings.pixelHeight, 1500);
    qobject_cast<QSpinBox*>(control("export.pixelWidth"))->setValue(1300);
    QCoreApplication::processEvents();
    EXPECT_EQ(sizes->currentIndex(), -1) << "another size is none of the list";
}

TEST_F(PresetPageTest, aNameMayNotBeEmptyAndABadgeMay) {
    const std::string name = shown().name;
    auto* field = qobject_cast<QLineEdit*>(control("name"));
    field->setText("  ");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(shown().name, name);
    EXPECT_EQ(field->text().toStdString(), name);
    auto* badge = qobject_cast<QLineEdit*>(control("badge"));
    badge->setText("");
    QTest::keyClick(badge, Qt::Key_Return);
    EXPECT_EQ(shown().badge, "");
}

TEST_F(PresetPageTest, typingIsNotTakenAwayWhileOtherThingsChange) {
    auto* row = qobject_cast<SliderRow*>(control("faceScale"));
    row->box()->setFocus();
    row->box()->selectAll();
    QTest::keyClicks(row->box(), "1");
    CropPreset other = shown();
    other.topMargin = 0.08;
    state->updatePreset(other, "Test");
    QCoreApplication::processEvents();
    QTest::keyClicks(row->box(), "8");
    QTest::keyClick(row->box(), Qt::Key_Return);
    EXPECT_NEAR(shown().faceScale, 0.18, 1e-9);
}

TEST_F(PresetPageTest, theWheelScrollsPastAControlWithoutFocus) {
    auto* row = qobject_cast<SliderRow*>(control("topMargin"));
    const double before = row->value();
    QWheelEvent wheel(QPointF(4, 4), row->slider()->mapToGlobal(QPointF(4, 4)), {}, {0, 120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(row->slider(), &wheel);
    EXPECT_EQ(row->value(), before);
}

TEST_F(PresetPageTest, theChoiceIsTheJobsAndInAnAutomaticJobOnlyWhatIsShown) {
    writeFiles(3);
    import(*state);
    QCoreApplication::processEvents();
    auto* choice = panel->presetPage()->findChild<ChoiceBox*>();
    ASSERT_EQ(choice->count(), static_cast<int>(state->presets().size()) + 1);
    EXPECT_EQ(choice->itemText(0), "Automatic (rules)");
    const auto pick = [&](int place) {
        choice->setCurrentIndex(place);
        emit choice->activated(place);
        QCoreApplication::processEvents();
    };
    pick(2);
    EXPECT_EQ(state->selectedJob()->job().presetID, state->presets()[1].id);
    pick(0);
    EXPECT_TRUE(state->selectedJob()->job().autoAssign);
    EXPECT_FALSE(form().isVisible()) << "the rules have no values of their own";
    pick(2);
    EXPECT_TRUE(state->selectedJob()->job().autoAssign) << "the rules go on choosing";
    EXPECT_EQ(state->selectedPresetID(), state->presets()[1].id);
    EXPECT_TRUE(form().isVisible());
    for (auto* button : panel->presetPage()->findChildren<QPushButton*>())
        if (button->text() == "Use for all photos of this job") button->click();
    EXPECT_FALSE(state->selectedJob()->job().autoAssign);
    EXPECT_EQ(state->selectedJob()->job().presetID, state->presets()[1].id);
}

TEST_F(PresetPageTest, theMenuMakesResetsAndDeletesPresets) {
    auto* more = panel->presetPage()->findChild<QToolButton*>();
    const auto trigger = [&](const QString& text) {
        emit more->menu()->aboutToShow();
        for (QAction* action : more->menu()->findChildren<QAction*>())
            if (action->text() == text && action->isEnabled()) return action->trigger();
        FAIL() << text.toStdString() << " cannot be chosen";
    };
    const auto count = [&] { return state->presets().size(); };
    const std::size_t before = count();
    trigger("Duplicate");
    ASSERT_EQ(count(), before + 1);
    const Uuid copy = state->selectedPresetID();
    EXPECT_EQ(copy, state->presets()[1].id);
    emit more->menu()->aboutToShow();
    for (QAction* action : more->menu()->actions())
        if (action->text() == "Reset to Built-in Values") {
            EXPECT_FALSE(action->isEnabled());
        }
    trigger(QString::fromStdString(state->presets().back().name));
    EXPECT_EQ(count(), before);
    EXPECT_FALSE(state->preset(copy));
}

TEST_F(PresetPageTest, aReferenceGivesItsValuesAndIsCleared) {
    services.measureReference = [](const std::filesystem::path& file) -> Result<ReferenceGeometry> {
        return ReferenceGeometry{.sourceName = file.filename().string(),
                                 .faceScale = 0.3,
                                 .eyeY = 0.4,
                                 .headTopY = 0.1,
                                 .aspect = 0.8};
    };
    state.reset();
    panel.reset();
    SetUp();
    auto* box = form().findChild<ReferenceBox*>();
    box->askForImage = [] { return std::filesystem::path("/finished/model.jpg"); };
    const auto press = [&](const QString& text) {
        for (auto* button : box->findChildren<QPushButton*>())
            if (button->text() == text) button->click();
    };
    press("Choose…");
    ASSERT_TRUE(waitFor([&] { return !state->referenceBusy(); }));
    QCoreApplication::processEvents();
    EXPECT_NEAR(qobject_cast<SliderRow*>(control("faceScale"))->value(), 0.3, 1e-9);
    EXPECT_EQ(form().section(PresetForm::Part::reference)->value(), "model.jpg");
    press("Clear");
    QCoreApplication::processEvents();
    EXPECT_FALSE(shown().reference);
    EXPECT_EQ(form().section(PresetForm::Part::reference)->value(), "not used");
}

TEST_F(PresetPageTest, aReadOnlyProgramShowsEverythingAndEditsNothing) {
    AppState second(services);
    second.start();
    ASSERT_TRUE(second.isReadOnly());
    RightPanel other(second);
    other.show();
    QCoreApplication::processEvents();
    PresetForm& locked = *other.presetPage()->form();
    for (const char* name : {"faceScale", "name", "framing", "export.pixelWidth", "protectHair"})
        EXPECT_FALSE(locked.findChild<QWidget*>(QString::fromLatin1(name))->isEnabled()) << name;
    locked.section(PresetForm::Part::exports)->setOpen(true);
    EXPECT_TRUE(locked.findChild<QWidget*>("export.pixelWidth")->isVisible());
}

TEST_F(PresetPageTest, revealsTheExportSettingsFromAnywhere) {
    state->setRightTab(RightTab::photo);
    panel->resize(336, 400);
    panel->revealExportSettings();
    EXPECT_EQ(state->rightTab(), RightTab::preset);
    Section* exports = form().section(PresetForm::Part::exports);
    EXPECT_TRUE(exports->isOpen());
    auto* scroll = panel->presetPage()->findChild<QScrollArea*>();
    const int top = exports->mapTo(scroll->viewport(), QPoint()).y();
    EXPECT_GE(top, 0);
    EXPECT_LT(top, scroll->viewport()->height() / 2);
}

}  // namespace
}  // namespace morva
