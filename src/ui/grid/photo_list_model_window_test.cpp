// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/photo_list_model.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "app/state_test_support.h"
#include "ui/grid/cell_content.h"

namespace morva {
namespace {

class PhotoListModelTest : public StateTest {
protected:
    void open(int photoCount) {
        state = cropped(photoCount);
        model = std::make_unique<PhotoListModel>(*state);
        tester = std::make_unique<QAbstractItemModelTester>(model.get());
    }
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (int row = 0; row < model->rowCount(); ++row)
            names.push_back(model->index(row).data().toString().toStdString());
        return names;
    }

    std::unique_ptr<AppState> state;
    std::unique_ptr<PhotoListModel> model;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

TEST_F(PhotoListModelTest, tellsOnlyOfRowsThatChanged) {
    open(6);
    QSignalSpy resets(model.get(), &QAbstractItemModel::modelReset);
    QSignalSpy changes(model.get(), &QAbstractItemModel::dataChanged);
    state->selectMany({item(*state, 1).id, item(*state, 2).id, item(*state, 4).id},
                      item(*state, 1).id);
    state->approveSelected(false);
    ASSERT_EQ(changes.size(), 2) << "1 to 2, and 4";
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changes[0][1].toModelIndex().row(), 2);
    EXPECT_EQ(changes[1][0].toModelIndex().row(), 4);
    EXPECT_EQ(resets.size(), 0);
}

TEST_F(PhotoListModelTest, letsPhotosLeaveAndEnterAFilteredList) {
    open(6);
    state->setFilter(StatusFilter::ready);
    ASSERT_EQ(model->rowCount(), 6);
    QSignalSpy resets(model.get(), &QAbstractItemModel::modelReset);
    QSignalSpy gone(model.get(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy come(model.get(), &QAbstractItemModel::rowsInserted);
    state->selectMany({item(*state, 0).id, item(*state, 3).id, item(*state, 4).id},
                      item(*state, 0).id);
    state->approveSelected(false);
    EXPECT_EQ(names(), (std::vector<std::string>{"2", "3", "6"}));
    EXPECT_EQ(gone.size(), 2);
    EXPECT_EQ(model->rowOf(item(*state, 5).id), 2);
    EXPECT_EQ(model->rowOf(item(*state, 3).id), -1);
    state->undoStack().undo();
    EXPECT_EQ(names(), (std::vector<std::string>{"1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(come.size(), 2);
    EXPECT_EQ(resets.size(), 0);
}

TEST_F(PhotoListModelTest, followsTheJobAndTheFilter) {
    open(3);
    state->setFilter(StatusFilter::approved);
    EXPECT_EQ(model->rowCount(), 0);
    state->setFilter(StatusFilter::all);
    EXPECT_EQ(model->rowCount(), 3);
    state->removeJob();
    EXPECT_EQ(model->rowCount(), 0);
    state->undoStack().undo();
    EXPECT_EQ(model->rowCount(), 3);
}

TEST_F(PhotoListModelTest, tellsAllReasonsOfAPhotoAndTakesItsNameAsItIs) {
    ImageAnalysis doubtful = Synthetic::portrait();
    doubtful.faces.front().landmarkConfidence = 0.4;
    scripted["<b>x&y.jpg"] = doubtful;
    writeFile("<b>x&y.jpg");
    open(0);
    ASSERT_EQ(model->rowCount(), 1);
    const CellContent content = contentOf(*state, 0);
    EXPECT_EQ(content.name, "<b>x&y");
    ASSERT_EQ(state->selectedJob()->status(0), ItemStatus::review);
    const auto reasons = state->selectedJob()->reasons(0);
    ASSERT_GE(reasons.size(), 1U);
    EXPECT_EQ(content.line, QString::fromStdString(std::string(title(reasons.front()))));
    const QString tip = model->index(0).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(tip.contains("&lt;b&gt;x&amp;y.jpg")) << tip.toStdString();
    const QString spoken = model->index(0).data(Qt::AccessibleTextRole).toString();
    for (const ReviewReason reason : reasons) {
        const auto words = QString::fromStdString(std::string(title(reason)));
        EXPECT_TRUE(tip.contains(words.toHtmlEscaped()));
        EXPECT_TRUE(spoken.contains(words));
    }
    EXPECT_TRUE(spoken.startsWith("<b>x&y.jpg, "));
    state->approveSelected(false);
    state->select(item(*state, 0).id);
    state->approveSelected(false);
    EXPECT_EQ(contentOf(*state, 0).line, "Approved") << "reasons of an approved photo are settled";
}

TEST(ShortName, isTheNumberThatTheNameEndsIn) {
    for (const auto& [name, expected] : {std::pair{"OHP_0261", "0261"},
                                         {"2024", "2024"},
                                         {"anna-3", "anna-3"},
                                         {"Anna", "Anna"},
                                         {"", ""}})
        EXPECT_EQ(shortName(name), expected);
}

}  // namespace
}  // namespace morva
