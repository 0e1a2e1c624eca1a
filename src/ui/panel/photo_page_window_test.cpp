// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <functional>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "app/state_test_support.h"
#include "crop/confidence_scorer.h"
#include "ui/panel/choice_box.h"
#include "ui/panel/figure_table.h"
#include "ui/panel/icon_text.h"
#include "ui/panel/photo_page.h"
#include "ui/panel/photo_report.h"
#include "ui/panel/reason_words.h"
#include "ui/panel/right_panel.h"
#include "ui/widgets/key_button.h"
#include "ui/widgets/words.h"

namespace morva {
namespace {

using Change = std::function<void(ImageAnalysis&)>;

ImageAnalysis photoWith(const Change& change) {
    ImageAnalysis photo = Synthetic::portrait();
    change(photo);
    return photo;
}

/// The texts of a row's figures; empty when there is no such row.
QStringList figuresOf(const PhotoReport::Rows& rows, const QString& label) {
    QStringList texts;
    for (const FigureTable::Row& row : rows)
        if (row.label == label)
            for (const auto& figure : row.figures) texts << figure.text;
    return texts;
}

bool warns(const PhotoReport::Rows& rows, const QString& label) {
    for (const FigureTable::Row& row : rows)
        if (row.label == label) return row.figures.front().isWarning;
    return false;
}

class PhotoPageTest : public StateTest {
protected:
    /// Crops these photos, "1.jpg" first, and shows the page.
    void open(const std::vector<ImageAnalysis>& measured) {
        for (std::size_t i = 0; i < measured.size(); ++i)
            scripted[std::to_string(i + 1) + ".jpg"] = measured[i];
        state = cropped(static_cast<int>(measured.size()));
        panel = std::make_unique<RightPanel>(*state);
        panel->resize(336, 900);
        panel->show();
        state->setRightTab(RightTab::photo);
        if (!measured.empty()) select({0});
    }
    void select(const std::vector<std::size_t>& indices) {
        std::vector<std::string> ids;
        for (const std::size_t index : indices) ids.push_back(item(*state, index).id);
        state->selectMany(ids, ids.empty() ? std::nullopt : std::optional(ids.front()));
        QCoreApplication::processEvents();
    }
    PhotoReport report(const std::vector<std::size_t>& indices) const {
        return photoReport(*state->selectedJob(), indices, state->presets());
    }
    template <class Widget>
    Widget* find() const {
        return panel->photoPage()->template findChild<Widget*>();
    }
    bool shows(const QString& text) const {
        for (auto* label : panel->photoPage()->findChildren<QLabel*>())
            if (label->isVisible() && label->text() == text) return true;
        for (auto* words : panel->photoPage()->findChildren<IconText*>())
            if (words->isVisible() && words->text() == text) return true;
        return false;
    }
    QPushButton* button(const QString& text) const {
        for (auto* one : panel->photoPage()->findChildren<QPushButton*>())
            if (one->text() == text && one->isVisible()) return one;
        return nullptr;
    }

    std::unique_ptr<AppState> state;
    std::unique_ptr<RightPanel> panel;
};

TEST_F(PhotoPageTest, figuresAreThoseOfTheSolution) {
    open({photoWith([](ImageAnalysis& photo) { photo.faces.front().yawDegrees = 30; })});
    const ImageItem& photo = item(*state, 0);
    const PhotoReport told = report({0});
    const CropMetrics& metrics = *photo.solution->metrics;
    EXPECT_EQ(figuresOf(told.measurements, "Face size").value(0), percent(metrics.faceScale, 1));
    EXPECT_EQ(figuresOf(told.measurements, "Eye line").value(0), percent(metrics.eyeLine, 1));
    EXPECT_EQ(figuresOf(told.measurements, "Eye line").value(1), "31.6 % ± 12");
    EXPECT_EQ(figuresOf(told.measurements, "Headroom"), QStringList({"5.7 %", "5.7 %"}));
    EXPECT_EQ(figuresOf(told.measurements, "Clearance left").value(1), "≥ 2.0 %");
    ASSERT_TRUE(told.confidence);
    EXPECT_EQ(told.confidence->score, photo.solution->confidence);
    EXPECT_EQ(told.confidence->threshold, 0.8);
    EXPECT_EQ(figuresOf(told.confidence->factors, "Head turned"), QStringList({"30°", "× 0.80"}));
    EXPECT_EQ(figuresOf(told.confidence->factors, "Landmarks"),
              QStringList({"95 % sure", "100 %"}));
    EXPECT_EQ(figuresOf(told.details, "Photo"), QStringList({"4000 × 5000 px"}));
    EXPECT_FALSE(find<FigureTable>()->rows().empty());
}

TEST_F(PhotoPageTest, whatIsOutOfToleranceIsMarkedAndExplained) {
    struct Case {
        const char* what;
        Change change;
        QString row;
        QString reason;
        QString sentence;
    };
    for (const Case& c : {
             Case{"a bun", [](ImageAnalysis& photo) { photo.headContent->topY = 1000; }, "Eye line",
                  "Face sits low (tall hair or bow)",
                  "The eye line is at 48.7 %, 17.1 % lower than the preset asks for; tall hair or "
                  "a bow pushes the face down."},
             Case{"wide hair", [](ImageAnalysis& photo) { photo.headContent->leftX = 1200; },
                  "Clearance left", "Hair clipped at the side",
                  "The hair passes the left edge of the crop by"},
             Case{"a tower of hair", [](ImageAnalysis& photo) { photo.headContent->topY = 800; },
                  "Hair height", "Something tall above the head",
                  "The head reaches 2.50 face heights above the eyes; up to 2.40 is usual."},
         }) {
        SCOPED_TRACE(c.what);
        panel.reset();
        state.reset();
        std::filesystem::remove_all(services.folders.data);
        std::filesystem::remove_all(services.folders.cache);
        open({photoWith(c.change)});
        const PhotoReport told = report({0});
        EXPECT_TRUE(warns(told.measurements, c.row));
        EXPECT_FALSE(warns(told.measurements, "Chin line"));
        const auto reason = std::ranges::find(told.reasons, c.reason, &ReasonReport::title);
        ASSERT_NE(reason, told.reasons.end());
        EXPECT_TRUE(reason->explanation.startsWith(c.sentence))
            << reason->explanation.toStdString();
        EXPECT_TRUE(shows(c.reason));
    }
}

TEST_F(PhotoPageTest, everyReasonHasASentenceWithItsFigures) {
    open({photoWith([](ImageAnalysis& photo) {
        photo.faces.push_back(photo.faces.front());
        photo.faces.front().landmarkConfidence = 0.5;
    })});
    const ImageItem& photo = item(*state, 0);
    const CropPreset& preset = state->presets().front();
    ReasonWords::Subject subject{photo, preset};
    subject.crop = CropSolver::adjusted(*photo.analysis, preset, *photo.solution, {});
    subject.lacking = CanvasShortfall{.bottom = 425};
    for (const ReviewReason reason : allReviewReasons()) {
        const QString sentence = ReasonWords::explanation(reason, subject);
        EXPECT_TRUE(sentence.endsWith('.')) << key(reason);
        for (const char* unfilled : {"%1", "%2", "%3", "%4", "%n", "nan"})
            EXPECT_FALSE(sentence.contains(QLatin1String(unfilled))) << sentence.toStdString();
    }
    EXPECT_EQ(ReasonWords::explanation(ReviewReason::needsMoreCanvas, subject),
              "The photo ends inside the frame (425 px missing below) and cuts the child off "
              "there, so nothing is added.");
    EXPECT_EQ(ReasonWords::compared(0.796, 0.8).one, "79.6 %")
        << "80 % below 80 % would be a riddle";
}

TEST_F(PhotoPageTest, aHandAdjustmentIsMeasuredShownAndReset) {
    open({Synthetic::portrait()});
    const QString before = figuresOf(report({0}).measurements, "Eye line").value(0);
    state->nudge(0.02, -0.15);
    state->scale(1.1);
    QCoreApplication::processEvents();
    const PhotoReport told = report({0});
    EXPECT_EQ(figuresOf(told.adjustment, "Moved right"), QStringList("2.0 %"));
    EXPECT_EQ(figuresOf(told.adjustment, "Moved up"), QStringList("15.0 %"));
    EXPECT_EQ(figuresOf(told.adjustment, "Crop size"), QStringList("× 1.10"));
    EXPECT_NE(figuresOf(told.measurements, "Eye line").value(0), before);
    EXPECT_TRUE(warns(told.measurements, "Eye line")) << "moved out of tolerance by hand";
    button("Reset")->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(figuresOf(report({0}).measurements, "Eye line").value(0), before);
    EXPECT_FALSE(button("Reset"));
}

TEST_F(PhotoPageTest, saysWhoChoseTheCropType) {
    open({Synthetic::portrait(), Synthetic::portrait()});
    auto* choice = find<ChoiceBox>();
    EXPECT_EQ(choice->itemText(0), "As the job: Headshot 4x5");
    EXPECT_TRUE(shows("The crop type of the job."));
    state->setOverride(state->presets()[3].id);
    QCoreApplication::processEvents();
    EXPECT_EQ(choice->currentIndex(), 4);
    EXPECT_TRUE(shows("This photo's own. The job uses Headshot 4x5."));
    state->choosePreset(PresetLibrary::autoPresetID());
    QCoreApplication::processEvents();
    EXPECT_TRUE(shows("This photo's own. The rules pick Headshot 4x5."));
    CropRule always{.condition = {}, .presetID = state->presets()[1].id};
    state->setRules({always});
    select({1});
    EXPECT_EQ(choice->itemText(0), "Automatic: Three-quarter 4x5");
    EXPECT_TRUE(shows(QString("Picked by the rule “%1”").arg(said(always.condition.title()))));
    select({0});
    emit choice->activated(0);
    QCoreApplication::processEvents();
    EXPECT_FALSE(item(*state, 0).presetOverride) << "the first entry gives the choice back";
}

TEST_F(PhotoPageTest, theFootOffersTheNextSensibleStep) {
    ImageAnalysis empty;
    empty.sourceWidth = 4000;
    empty.sourceHeight = 5000;
    open({Synthetic::portrait(), empty, Synthetic::portrait()});
    auto* primary = find<KeyButton>();
    EXPECT_EQ(primary->text(), "Approve and next");
    primary->click();
    EXPECT_TRUE(item(*state, 0).approved);
    EXPECT_EQ(state->selectedItemID(), item(*state, 1).id);
    QCoreApplication::processEvents();
    EXPECT_EQ(primary->text(), "Next photo") << "there is nothing to approve without a face";
    EXPECT_TRUE(shows("No face found"));
    primary->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(state->selectedItemID(), item(*state, 2).id);
    select({0});
    EXPECT_EQ(primary->text(), "Next photo");
    button("Take back")->click();
    EXPECT_FALSE(item(*state, 0).approved);
}

TEST_F(PhotoPageTest, severalPhotosAreActedOnTogether) {
    open({Synthetic::portrait(),
          photoWith([](ImageAnalysis& photo) { photo.headContent->topY = 1000; }),
          Synthetic::portrait()});
    select({2});
    state->nudge(0.01, 0);
    select({0, 1, 2});
    EXPECT_TRUE(shows("3 photos selected"));
    EXPECT_TRUE(shows("2 ready, 1 in review"));
    EXPECT_TRUE(shows("1 of 3 photos"));
    auto* choice = find<ChoiceBox>();
    EXPECT_EQ(choice->currentIndex(), 0);
    auto* primary = find<KeyButton>();
    EXPECT_EQ(primary->text(), "Approve 3 Photos");
    button("Reset")->click();
    EXPECT_FALSE(item(*state, 2).hasAdjustment());
    primary->click();
    for (std::size_t i = 0; i < 3; ++i) EXPECT_TRUE(item(*state, i).approved) << i;
    QCoreApplication::processEvents();
    EXPECT_FALSE(primary->isEnabled());
    button("Take back")->click();
    EXPECT_FALSE(item(*state, 1).approved);

    select({0});
    state->setOverride(state->presets()[1].id);
    select({0, 1, 2});
    EXPECT_EQ(choice->currentIndex(), -1);
    EXPECT_EQ(choice->placeholderText(), "Mixed (2 crop types)");
    emit choice->activated(4);
    QCoreApplication::processEvents();
    EXPECT_EQ(choice->currentIndex(), 4);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(item(*state, i).presetOverride, state->presets()[3].id);
}

TEST_F(PhotoPageTest, hintsWhereNothingIsSelectedAndWhereNothingIsMeasured) {
    writeFiles(1);
    state = started();
    panel = std::make_unique<RightPanel>(*state);
    panel->show();
    state->setRightTab(RightTab::photo);
    QCoreApplication::processEvents();
    EXPECT_TRUE(shows("No job is open."));
    import(*state);
    QCoreApplication::processEvents();
    EXPECT_TRUE(shows("Select a photo to see how it was measured."));
    select({0});
    EXPECT_TRUE(shows("This photo has not been measured. Crop Photos does that."));
    EXPECT_TRUE(shows("Not cropped yet"));
    EXPECT_FALSE(find<KeyButton>()->isEnabled());
}

TEST_F(PhotoPageTest, aReadOnlyProgramDecidesNothing) {
    open({Synthetic::portrait()});
    ASSERT_TRUE(state->flushSaves());
    AppState second(services);
    second.start();
    ASSERT_TRUE(second.isReadOnly());
    second.selectJob(second.jobs().front()->id());
    second.select(item(second, 0).id);
    RightPanel other(second);
    other.show();
    second.setRightTab(RightTab::photo);
    QCoreApplication::processEvents();
    PhotoPage& page = *other.photoPage();
    EXPECT_FALSE(page.findChild<ChoiceBox*>()->isEnabled());
    EXPECT_FALSE(page.findChild<KeyButton*>()->isEnabled());
    EXPECT_FALSE(page.findChildren<FigureTable*>().isEmpty());
}

TEST_F(PhotoPageTest, heightsFollowTheTextsAtOnce) {
    // Photo after photo with more and fewer reasons: no row may keep the height of another photo.
    open({photoWith([](ImageAnalysis& photo) {
              photo.headContent->topY = 700;
              photo.headContent->reliable = false;
              photo.faces.front().landmarkConfidence = 0.5;
              photo.faces.front().yawDegrees = 50;
          }),
          Synthetic::portrait()});
    for (const std::size_t index : {0U, 1U, 0U}) {
        select({index});
        for (auto* table : panel->photoPage()->findChildren<FigureTable*>())
            if (table->isVisible() && !table->rows().empty()) {
                EXPECT_EQ(table->height(), table->heightForWidth(table->width()));
            }
        for (auto* words : panel->photoPage()->findChildren<IconText*>())
            if (words->isVisible()) {
                EXPECT_GE(words->height(), words->heightForWidth(words->width()));
            }
    }
}

TEST_F(PhotoPageTest, oneLongFigureDoesNotBreakTheOtherRows) {
    FigureTable table;
    const auto heightWith = [&](const QString& figure) {
        table.setRows({{"Face size", {{"21.5 %"}, {"21.5 %"}}},
                       {"Hair", {{figure}, {"2.4"}}},
                       {"Turned", {{"3.0"}, {"at most 3.0"}}}});
        return table.heightForWidth(220);
    };
    const int lines = heightWith("1.4");
    EXPECT_LE(heightWith("1.38 units of a face"), lines * 4 / 3);
}

}  // namespace
}  // namespace morva
