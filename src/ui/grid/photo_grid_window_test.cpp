// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/photo_grid.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

#include "app/state_test_support.h"
#include "ui/grid/filmstrip.h"
#include "ui/widgets/window_test_support.h"

namespace morva {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Photos named 1 to so many; those of the selection are told by their numbers.
class PhotoViewTest : public StateTest {
protected:
    std::vector<int> selected() const {
        std::vector<int> numbers;
        for (const std::string& id : state->selection()) numbers.push_back(numberOf(id));
        return numbers;
    }
    int current() const { return state->selectedItemID() ? numberOf(*state->selectedItemID()) : 0; }
    int numberOf(const std::string& id) const {
        return static_cast<int>(*state->selectedJob()->indexOf(id)) + 1;
    }
    void select(int number) {
        state->select(item(*state, static_cast<std::size_t>(number - 1)).id);
    }
    static QRect placeOf(const PhotoView& view, int number) {
        return view.visualRect(view.photos().index(number - 1));
    }
    static void click(PhotoView& view, int number, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, held, placeOf(view, number).center());
    }
    static bool shows(const PhotoView& view, int number) {
        return view.viewport()->rect().contains(placeOf(view, number));
    }

    std::unique_ptr<AppState> state;
};

class PhotoGridTest : public PhotoViewTest {
protected:
    /// Five in a row, three rows on screen.
    void open(int count) {
        state = cropped(count);
        grid = std::make_unique<PhotoGrid>(*state);
        grid->resize(880, 760);
        bringUp(*grid);
        grid->setFocus();
    }

    std::unique_ptr<PhotoGrid> grid;
};

TEST_F(PhotoGridTest, selectsByPointerAsListsDo) {
    open(15);
    click(*grid, 3);
    EXPECT_THAT(selected(), ElementsAre(3));
    click(*grid, 6, Qt::ShiftModifier);
    EXPECT_THAT(selected(), ElementsAre(3, 4, 5, 6));
    EXPECT_EQ(current(), 6);
    click(*grid, 2, Qt::ShiftModifier);
    EXPECT_THAT(selected(), ElementsAre(2, 3)) << "a range begins where it began";
    click(*grid, 9, Qt::ControlModifier);
    EXPECT_THAT(selected(), UnorderedElementsAre(2, 3, 9));
    EXPECT_EQ(current(), 9);
    click(*grid, 9, Qt::ControlModifier);
    EXPECT_THAT(selected(), UnorderedElementsAre(2, 3));
    EXPECT_THAT(selected(), testing::Contains(current())) << "the current one is a selected one";
    click(*grid, 3);
    EXPECT_THAT(selected(), ElementsAre(3));
    const QPoint gap(placeOf(*grid, 1).right() + 4, placeOf(*grid, 1).center().y());
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::ControlModifier, gap);
    EXPECT_THAT(selected(), ElementsAre(3));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, gap);
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_FALSE(state->selectedItemID());
}

TEST_F(PhotoGridTest, selectsWhatABandTouches) {
    open(15);
    click(*grid, 15);
    const QPoint from(placeOf(*grid, 2).left() - 4, placeOf(*grid, 2).center().y());
    const QPoint to = placeOf(*grid, 8).center();
    QTest::mousePress(grid->viewport(), Qt::LeftButton, Qt::ControlModifier, from);
    for (const QPoint& place : {from + QPoint(2, 2), to + QPoint(150, 0), to}) {
        QMouseEvent move(QEvent::MouseMove, place, grid->viewport()->mapToGlobal(place),
                         Qt::NoButton, Qt::LeftButton, Qt::ControlModifier);
        QApplication::sendEvent(grid->viewport(), &move);
    }
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, Qt::ControlModifier, to);
    EXPECT_THAT(selected(), ElementsAre(2, 3, 7, 8, 15)) << "what it no longer touches is let go";
}

TEST_F(PhotoGridTest, goesPagewiseByKeysAndLeavesTheOthersToTheWindow) {
    open(100);
    select(7);
    pressKey(*grid, Qt::Key_PageDown);
    EXPECT_EQ(current() % 5, 2) << "in the same column";
    EXPECT_GT(current(), 12);
    EXPECT_TRUE(shows(*grid, current()));
    pressKey(*grid, Qt::Key_PageUp);
    EXPECT_EQ(current(), 7);
    pressKey(*grid, Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(selected().size(), 94U);
    EXPECT_TRUE(shows(*grid, 100));
    pressKey(*grid, Qt::Key_PageDown);
    EXPECT_THAT(selected(), ElementsAre(100));
    pressKey(*grid, Qt::Key_Home);
    EXPECT_THAT(selected(), ElementsAre(1));
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_Space, Qt::Key_R, Qt::Key_5}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QStringLiteral("x"));
        QApplication::sendEvent(grid.get(), &press);
        EXPECT_FALSE(press.isAccepted()) << key;
    }
    EXPECT_THAT(selected(), ElementsAre(1));
}

TEST_F(PhotoGridTest, keepsTheCurrentPhotoInView) {
    open(100);
    select(58);
    EXPECT_TRUE(shows(*grid, 58));
    for (int i = 0; i < 20; ++i) state->selectNext();
    EXPECT_EQ(current(), 78);
    EXPECT_TRUE(shows(*grid, 78));
    state->setThumbnailHeight(320);
    EXPECT_TRUE(shows(*grid, 78)) << "larger thumbnails";
    grid->resize(500, 700);
    QCoreApplication::processEvents();
    EXPECT_TRUE(shows(*grid, 78)) << "a narrower window";
    grid->hide();
    select(3);
    grid->show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(shows(*grid, 3)) << "chosen while another view was shown";
    // What a person scrolled to stays, too.
    grid->verticalScrollBar()->setValue(4000);
    const QModelIndex looked = grid->indexAt(grid->viewport()->rect().center());
    state->setThumbnailHeight(300);
    EXPECT_TRUE(grid->visualRect(looked).intersects(grid->viewport()->rect()));
}

TEST_F(PhotoGridTest, followsTheSelectionThroughAFilter) {
    open(12);
    state->setFilter(StatusFilter::ready);
    select(4);
    state->approveSelected(true);
    EXPECT_EQ(current(), 5);
    EXPECT_THAT(selected(), ElementsAre(5)) << "rows that go are nobody's choice";
    EXPECT_EQ(grid->currentIndex().row(), 3);
    EXPECT_TRUE(grid->selectionModel()->isRowSelected(3));
    grid->selectAllShown();
    EXPECT_EQ(selected().size(), 11U);
    EXPECT_EQ(current(), 5);
    state->setFilter(StatusFilter::all);
    EXPECT_EQ(selected().size(), 11U);
    EXPECT_FALSE(grid->selectionModel()->isRowSelected(3));
}

TEST_F(PhotoGridTest, opensPhotosAndMenus) {
    open(12);
    QSignalSpy opened(grid.get(), &PhotoGrid::photoActivated);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, placeOf(*grid, 4).center());
    EXPECT_EQ(opened.size(), 1);
    EXPECT_THAT(selected(), ElementsAre(4));
    state->selectMany({item(*state, 3).id, item(*state, 4).id}, item(*state, 3).id);
    QSignalSpy menus(grid.get(), &PhotoGrid::contextMenuWanted);
    const auto askAt = [&](int number) {
        const QPoint place = placeOf(*grid, number).center();
        QTest::mousePress(grid->viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent ask(QContextMenuEvent::Mouse, place,
                              grid->viewport()->mapToGlobal(place));
        QApplication::sendEvent(grid->viewport(), &ask);
    };
    askAt(5);
    EXPECT_THAT(selected(), ElementsAre(4, 5)) << "a menu for all that are selected";
    askAt(8);
    EXPECT_THAT(selected(), ElementsAre(8));
    EXPECT_EQ(menus.size(), 2);
}

TEST_F(PhotoGridTest, isReadOutAsAListOfPhotos) {
    open(8);
    select(2);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(grid.get());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->childCount(), 8);
    QAccessibleInterface* cell = list->child(1);
    ASSERT_TRUE(cell);
    EXPECT_TRUE(cell->text(QAccessible::Name).startsWith("2.jpg, "))
        << cell->text(QAccessible::Name).toStdString();
    EXPECT_TRUE(cell->state().selected);
    EXPECT_EQ(cell->rect().topLeft(), grid->viewport()->mapToGlobal(placeOf(*grid, 2).topLeft()));
}

TEST_F(PhotoGridTest, mirrorsForScriptsFromTheRight) {
    open(40);
    grid->setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    EXPECT_GT(placeOf(*grid, 1).left(), placeOf(*grid, 2).right());
    click(*grid, 2);
    EXPECT_THAT(selected(), ElementsAre(2));
    const QRect first = placeOf(*grid, 1).translated(grid->viewport()->pos());
    EXPECT_EQ(grid->width() - 1 - first.right(), GridGeometry::sideMargin);
}

TEST_F(PhotoGridTest, doesNotDecodeWhatIsScrolledPast) {
    for (int i = 1; i <= 400; ++i) writePhoto(photos / (std::to_string(i) + ".jpg"), 40, 50);
    state = started();
    import(*state);
    grid = std::make_unique<PhotoGrid>(*state);
    grid->resize(880, 760);
    bringUp(*grid);
    QScrollBar* bar = grid->verticalScrollBar();
    while (bar->value() < bar->maximum()) {
        bar->setValue(bar->value() + bar->pageStep());
        QCoreApplication::processEvents();
    }
    EXPECT_LE(grid->pictures().waiting(), 50) << "two screens and what is cut";
    ASSERT_TRUE(waitFor([&] { return grid->pictures().waiting() == 0; }));
    const auto isThere = [&](int number) {
        const auto at = static_cast<std::size_t>(number - 1);
        return !grid->pictures().picture(at).exact.isNull();
    };
    ASSERT_TRUE(waitFor([&] { return isThere(400) && isThere(386) && isThere(375); }))
        << "what is on screen and a screen before";
    const auto made = std::distance(fs::directory_iterator(state->thumbnails().directory()), {});
    EXPECT_LT(made, 200);
    grid->hide();
    EXPECT_EQ(grid->pictures().waiting(), 0);
}

class FilmstripTest : public PhotoViewTest {
protected:
    void open(int count) {
        state = cropped(count);
        strip = std::make_unique<Filmstrip>(*state);
        strip->resize(800, strip->height());
        bringUp(*strip);
    }

    std::unique_ptr<Filmstrip> strip;
};

TEST_F(FilmstripTest, keepsTheCurrentPhotoAndANeighbourInView) {
    open(60);
    for (const int number : {30, 31, 10, 60, 1}) {
        select(number);
        for (const int seen : {std::max(1, number - 1), number, std::min(60, number + 1)})
            EXPECT_TRUE(shows(*strip, seen)) << number << " " << seen;
    }
}

TEST_F(FilmstripTest, isMovedByAnyWheelAndSelectsOnePhoto) {
    open(60);
    const QPointF place(100, 50);
    QWheelEvent down(place, strip->mapToGlobal(place), {}, {0, -240}, {}, {}, Qt::NoScrollPhase,
                     false);
    QApplication::sendEvent(strip->viewport(), &down);
    EXPECT_GT(strip->horizontalScrollBar()->value(), 0);
    select(8);
    click(*strip, 9, Qt::ControlModifier);
    EXPECT_THAT(selected(), ElementsAre(9));
}

}  // namespace
}  // namespace morva
