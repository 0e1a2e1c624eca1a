// SPDX-License-Identifier: GPL-3.0-or-later
// The inspector over a real state: pointer in, adjustments out.
#include "ui/inspector/inspector.h"

#include <gtest/gtest.h>

#include <thread>

#include <QAccessible>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include "app/state_test_support.h"
#include "ui/inspector/canvas_painter.h"
#include "ui/inspector/photo_canvas.h"
#include "ui/inspector/photo_words.h"
#include "ui/widgets/theme.h"

namespace morva {
namespace {

/// Three photos of 400 x 500 that can be looked at: cropped, without a face, not to be opened; and
/// an inspector over them.
class InspectorView : public StateTest {
protected:
    void SetUp() override {
        fs::create_directories(photos);
        for (const char* name : {"1.jpg", "2.jpg", "4.jpg"}) writePhoto(photos / name, 400, 500);
        writeFile("3.jpg", "no picture ");
        ImageAnalysis faceless = smallPortrait();
        faceless.faces.clear();
        faceless.error = "No face was found.";
        ImageAnalysis broken;
        broken.detectionFailed = true;
        broken.error = "Could not read this image.";
        scripted = {{"1.jpg", smallPortrait()}, {"2.jpg", faceless}, {"3.jpg", broken}};
        scripted["4.jpg"] = smallPortrait();
        state = started();
        import(*state);
        crop(*state);
        CropPreset preset = *state->preset(PresetLibrary::headshotID());
        preset.exportSettings.backdrop = BackdropMode::keep;
        state->updatePreset(preset);
        state->undoStack().clear();
        view = std::make_unique<Inspector>(*state);
        view->resize(900, 720);
        open("1.jpg");
    }

    void open(const std::string& id) {
        state->select(id);
        view->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(view.get()));
        QTest::qWait(50);
    }

    PhotoCanvas& canvas() const { return view->canvas(); }
    const CanvasGeometry& geometry() const { return canvas().geometry(); }
    const ManualAdjustment& adjustment() const { return item(*state, 0).adjustment; }
    QPoint inside() const { return geometry().frame().center().toPoint(); }

    void move(QPoint to) const {
        QMouseEvent event(QEvent::MouseMove, to, canvas().mapToGlobal(to), Qt::NoButton,
                          Qt::LeftButton, {});
        QApplication::sendEvent(&canvas(), &event);
    }
    void press(QPoint at, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mousePress(&canvas(), button, {}, at);
    }
    void release(QPoint at, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mouseRelease(&canvas(), button, {}, at);
    }
    void drag(QPoint from, QPoint by) const {
        press(from);
        move(from + by / 2);
        move(from + by);
        release(from + by);
    }
    void turnWheel(QPoint at, int by) const {
        QWheelEvent event(at, canvas().mapToGlobal(at), {}, {0, by}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&canvas(), &event);
    }
    QToolButton& button(const QString& name) const {
        for (auto* one : view->findChildren<QToolButton*>())
            if (one->accessibleName().startsWith(name)) return *one;
        throw std::runtime_error(name.toStdString());
    }
    QColor colorAt(QPointF place) const {
        return canvas().grab().toImage().pixelColor(place.toPoint());
    }
    QString spoken() const {
        return QAccessible::queryAccessibleInterface(&canvas())->text(QAccessible::Value);
    }

    std::unique_ptr<AppState> state;
    std::unique_ptr<Inspector> view;
};

TEST_F(InspectorView, aDragMovesTheFrameAndOneUndoTakesItBackHoweverSlowItWas) {
    const QRectF before = geometry().frame();
    press(inside());
    move(inside() + QPoint(20, 0));
    std::this_thread::sleep_for(undoBurst + std::chrono::milliseconds(20));
    const QPoint to = before.center().toPoint() + QPoint(40, -30);
    move(to);
    release(to);
    EXPECT_NEAR(geometry().frame().center().x(), before.center().x() + 40, 1);
    EXPECT_NEAR(geometry().frame().center().y(), before.center().y() - 30, 1);
    EXPECT_NEAR(adjustment().dx * item(*state, 0).solution->rect.height * geometry().scale(), 40,
                1);
    EXPECT_EQ(state->undoStack().count(), 1);
    drag(inside(), {10, 10});
    EXPECT_EQ(state->undoStack().count(), 2);
    state->undoStack().undo();
    state->undoStack().undo();
    EXPECT_TRUE(adjustment().isIdentity());
    EXPECT_EQ(geometry().frame(), before);
}

TEST_F(InspectorView, cornersZoomTheDiscTurnsAndAClickDoesNothing) {
    const QRectF before = geometry().frame();
    drag(before.bottomRight().toPoint(), {30, 38});
    EXPECT_GT(adjustment().scale, 1.02);
    EXPECT_EQ(adjustment().dx, 0);
    EXPECT_NEAR(geometry().frame().right(), before.right() + 30, 6);
    state->undoStack().undo();
    drag(geometry().turnHandle().toPoint(), {0, -40});
    EXPECT_LT(adjustment().rotation, -3);  // the photo follows the hand clockwise
    EXPECT_NEAR(geometry().frame().center().x(), before.center().x(), 1);
    state->undoStack().undo();
    drag(geometry().turnHandle().toPoint(), {0, 600});
    EXPECT_EQ(adjustment().rotation, 20);
    state->undoStack().undo();
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, inside());
    drag(inside(), {1, 1});
    drag(QPoint(10, 10), {30, 30});
    EXPECT_TRUE(adjustment().isIdentity());
}

TEST_F(InspectorView, showsWhatThePointerWouldDo) {
    const QRectF frame = geometry().frame();
    const auto shapeAt = [&](QPointF at) {
        move(at.toPoint());
        return canvas().cursor().shape();
    };
    EXPECT_EQ(shapeAt(frame.center()), Qt::SizeAllCursor);
    EXPECT_EQ(shapeAt(frame.topLeft()), Qt::SizeFDiagCursor);
    EXPECT_EQ(shapeAt(frame.topRight()), Qt::SizeBDiagCursor);
    EXPECT_EQ(shapeAt(geometry().turnHandle()), Qt::BitmapCursor);
    EXPECT_EQ(shapeAt({5, 5}), Qt::ArrowCursor);
    view->zoomIn();
    EXPECT_EQ(shapeAt({5, 5}), Qt::OpenHandCursor);
}

TEST_F(InspectorView, wheelZoomsAroundThePointerAndTheMiddleButtonPulls) {
    const QPoint pointer = inside() + QPoint(30, -40);
    const Point under = geometry().toLevel(pointer);
    turnWheel(pointer, 360);
    EXPECT_FALSE(canvas().isFitted());
    EXPECT_NEAR(geometry().toCanvas(under).x(), pointer.x(), 1e-6);
    EXPECT_TRUE(button("Zoom: ").text().endsWith('%'));
    const QPointF frame = geometry().frame().topLeft();
    press(pointer, Qt::MiddleButton);
    move(pointer + QPoint(25, 15));
    release(pointer + QPoint(25, 15), Qt::MiddleButton);
    EXPECT_NEAR(geometry().frame().left(), frame.x() + 25, 1e-6);
    EXPECT_TRUE(adjustment().isIdentity());
    button("Zoom: ").click();
    EXPECT_TRUE(canvas().isFitted());
    EXPECT_FALSE(button("Zoom out").isEnabled());
}

TEST_F(InspectorView, guidesAreDrawnWhereTheyWereMeasuredAndCanBeHidden) {
    const QRectF frame = geometry().frame();
    const double share = item(*state, 0).solution->metrics->eyeLine;
    const QPointF onLine(frame.left() + frame.width() / 4, frame.top() + share * frame.height());
    const auto looksLikeTheLine = [&] {
        const QColor c = colorAt(onLine);
        return c.blue() - c.red() > 60;
    };
    EXPECT_TRUE(looksLikeTheLine());
    button("Guides").click();
    EXPECT_FALSE(state->showOverlay());
    EXPECT_FALSE(looksLikeTheLine());
    state->setShowOverlay(true);
    EXPECT_TRUE(button("Guides").isChecked());
}

TEST_F(InspectorView, missingCanvasIsHatchedOrFilledAsTheExportFillsIt) {
    // The photo is dark at its left edge.
    state->nudge(-1, 0);
    const auto inTheGap = [&] {
        return colorAt(geometry().frame().topLeft() + QPointF(21, geometry().frame().height() / 4));
    };
    EXPECT_GE(inTheGap().red(), Theme::current().hatchDark.red());
    EXPECT_TRUE(spoken().contains("px missing left")) << spoken().toStdString();
    CropPreset preset = *state->preset(PresetLibrary::headshotID());
    preset.exportSettings.backdrop = BackdropMode::repeatEdges;
    state->updatePreset(preset);
    EXPECT_NEAR(inTheGap().red(), 40, 2);
}

TEST_F(InspectorView, saysWhyThereIsNoCrop) {
    EXPECT_TRUE(spoken().startsWith("Headshot")) << spoken().toStdString();
    for (const auto& [id, text] :
         {std::pair{"2.jpg", "No face: No face was found."},
          std::pair{"3.jpg", "Couldn't analyze: Could not read this image."}}) {
        open(id);
        EXPECT_EQ(spoken(), text);
        drag(canvas().rect().center(), {50, 50});
        EXPECT_EQ(state->undoStack().count(), 0);
    }
    state->select(std::nullopt);
    EXPECT_TRUE(spoken().startsWith("No photo selected"));
    EXPECT_FALSE(button("Guides").isEnabled());
}

TEST_F(InspectorView, tellsWhoDoesNotSeeItHowTheCropIsNow) {
    EXPECT_FALSE(spoken().contains("turned")) << spoken().toStdString();
    state->rotate(1.5);
    EXPECT_TRUE(spoken().contains("turned 1.5 degrees")) << spoken().toStdString();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&canvas())->role(), QAccessible::Graphic);
}

TEST_F(InspectorView, saysThatThePhotoIsGone) {
    fs::remove(photos / "4.jpg");
    open("4.jpg");
    const auto shown = InspectedPhoto::selected(*state);
    const Explanation why = explanationOf(&*shown, true);
    EXPECT_EQ(why.title, "The photo cannot be read");
    ASSERT_TRUE(
        waitFor([&] { return colorAt(canvas().rect().center()) != Theme::current().panel; }));
}

TEST_F(InspectorView, showsTheResultBesideThePhotoAndAloneWhereThereIsNoRoom) {
    state->nudge(-1, 0);
    button("Before / after").click();
    ASSERT_TRUE(view->showsResult());
    EXPECT_LT(geometry().place().area.right(), canvas().width() * 0.6);
    // What the export puts where nothing is: mid grey, not the hatching of the photo beside it.
    const QPointF gap(canvas().width() * 0.5 + 60, canvas().height() * 0.5);
    EXPECT_TRUE(waitFor([&] { return colorAt(gap) == QColor(128, 128, 128); }));
    drag(inside(), {20, 0});  // the frame can be moved all the while
    EXPECT_GT(adjustment().dx, -1);
    view->resize(500, 600);
    QTest::qWait(20);
    const ManualAdjustment before = adjustment();
    drag(canvas().rect().center(), {40, 40});
    EXPECT_EQ(adjustment(), before);
    view->setShowsResult(false);
    EXPECT_FALSE(button("Before / after").isChecked());
}

TEST_F(InspectorView, positionFollowsTheFilter) {
    EXPECT_EQ(positionText(*state).left(6), "1 of 4");
    state->setFilter(StatusFilter::failed);
    EXPECT_EQ(positionText(*state), "Not among the 2 in No face / errors");
    state->select("3.jpg");
    EXPECT_EQ(positionText(*state), "2 of 2 in No face / errors");
}

TEST_F(InspectorView, rightToLeftPutsHandleAndLabelsOnTheOtherSides) {
    EXPECT_LT(geometry().turnHandle().x(), geometry().frame().left());
    view->setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(geometry().turnHandle().x(), geometry().frame().right());
}

}  // namespace
}  // namespace morva
