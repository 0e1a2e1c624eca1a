// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/photo_canvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QAccessible>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QWheelEvent>

#include "app/app_state.h"
#include "ui/inspector/canvas_accessible.h"
#include "ui/inspector/canvas_labels.h"
#include "ui/inspector/canvas_painter.h"
#include "ui/inspector/photo_words.h"
#include "ui/inspector/turn_cursor.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr double zoomStep = 1.25;
/// One notch of a wheel (120) zooms by about a fifth.
constexpr double wheelStep = 1.0015;
/// Closest zoom: device pixels per source pixel.
constexpr double closestZoom = 2;
/// A hand that only clicks moves the pointer by less.
constexpr double clickSlack = 3;
/// Least width of a side where photo and result stand beside each other.
constexpr int leastSide = 320;

}  // namespace

PhotoCanvas::PhotoCanvas(AppState& state, QWidget* parent)
    : QWidget(parent), state_(state), images_(state), result_(state) {
    CanvasAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setContextMenuPolicy(Qt::DefaultContextMenu);
    connect(&images_, &PhotoImages::changed, this, [this] {
        layer_.setImage(images_.image());
        resultLayer_.setImage(images_.image());
        refresh();
    });
    connect(&result_, &ResultPicture::changed, this, qOverload<>(&QWidget::update));
    connect(&state_, &AppState::overlayChanged, this, qOverload<>(&QWidget::update));
    const auto refreshed = [this] { refresh(); };
    connect(&state_, &AppState::selectionChanged, this, refreshed);
    connect(&state_, &AppState::selectedJobChanged, this, refreshed);
    connect(&state_, &AppState::itemsChanged, this, refreshed);
    connect(&state_, &AppState::itemsReset, this, refreshed);
    connect(&state_, &AppState::presetsChanged, this, refreshed);
    refresh();
}

QSize PhotoCanvas::sizeHint() const { return {640, 480}; }

QSize PhotoCanvas::minimumSizeHint() const { return {240, 160}; }

void PhotoCanvas::refresh() {
    // A photo that nobody looks at is not fetched.
    if (!isVisible()) return;
    auto photo = InspectedPhoto::selected(state_);
    const bool same = photo && photo_ && photo->id == photo_->id && photo->file == photo_->file;
    if (!same) release();
    photo_ = std::move(photo);
    if (!photo_) {
        images_.wantNothing();
        layer_.setImage({});
        resultLayer_.setImage({});
    } else {
        if (!same) {
            layer_.setImage({});
            resultLayer_.setImage({});
        }
        images_.want(*photo_);
        if (layer_.isEmpty() && !images_.image().isNull()) {
            layer_.setImage(images_.image());
            resultLayer_.setImage(images_.image());
        }
        if (photo_->crop.photo == Size{}) photo_->crop.photo = images_.size();
        same ? geometry_.follow(photo_->crop) : geometry_.show(photo_->crop);
        if (!hold_) geometry_.keepInSight();
    }
    arrange();
    tell();
    update();
    emit zoomChanged();
}

void PhotoCanvas::tell() {
    const QString words = cropInWords(state_);
    const QString name = photo_ ? pathText(photo_->file.filename()) : QString();
    setAccessibleName(photo_ ? tr("Crop of %1").arg(name) : tr("Photo"));
    if (std::exchange(words_, words) == words) return;
    QAccessibleValueChangeEvent changed(this, words);
    QAccessible::updateAccessibility(&changed);
}

bool PhotoCanvas::hasCrop() const { return photo_ && photo_->crop.frame && !images_.isLost(); }

bool PhotoCanvas::isSplit() const { return showsResult_ && hasCrop() && width() >= 2 * leastSide; }

bool PhotoCanvas::showsPhoto() const {
    return photo_ && photo_->crop.photo != Size{} && !images_.isLost() &&
           (!showsResult_ || !hasCrop() || isSplit());
}

QRectF PhotoCanvas::resultArea() const {
    const QRectF all = rect();
    if (!isSplit()) return all;
    const double half = std::floor(all.width() / 2);
    return layoutDirection() == Qt::RightToLeft ? QRectF(0, 0, half, all.height())
                                                : all.adjusted(half, 0, 0, 0);
}

void PhotoCanvas::arrange() {
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    QRectF area = rect();
    if (isSplit()) {
        const QRectF other = resultArea();
        mirrored ? area.setLeft(other.right()) : area.setRight(other.left());
    }
    // Beside the result there is no room for words.
    const double labels = isSplit() ? 0 : CanvasPainter::labelRoom();
    geometry_.setPlace({area, labels, mirrored});
    if (!showsResult_ || !hasCrop()) return result_.wantNothing();
    resultGeometry_.setPlace({resultArea(), 0, mirrored});
    // The frame alone fills the area.
    const Rect frame = *photo_->crop.frame;
    resultGeometry_.showPart(photo_->crop, frame);
    const WorkingJob& job = *state_.selectedJob();
    const double height = resultGeometry_.frame().height() * devicePixelRatioF();
    result_.want(job, *job.indexOf(photo_->id), static_cast<int>(std::lround(height)));
}

void PhotoCanvas::setShowsResult(bool shows) {
    if (std::exchange(showsResult_, shows) == shows) return;
    release();
    arrange();
    update();
    emit zoomChanged();
}

void PhotoCanvas::zoomToFit() {
    geometry_.fit();
    update();
    emit zoomChanged();
}

double PhotoCanvas::zoomShare() const { return geometry_.scale() * devicePixelRatioF(); }

QPointF PhotoCanvas::zoomCenter() const {
    const QRectF seen = geometry_.frame().intersected(geometry_.place().area);
    return seen.isEmpty() ? geometry_.place().area.center() : seen.center();
}

void PhotoCanvas::zoomIn() { zoom(zoomStep, zoomCenter()); }

void PhotoCanvas::zoomOut() { zoom(1 / zoomStep, zoomCenter()); }

void PhotoCanvas::zoom(double by, QPointF around) {
    if (!photo_) return;
    geometry_.zoom(by, around, closestZoom / devicePixelRatioF());
    update();
    emit zoomChanged();
}

void PhotoCanvas::mousePressEvent(QMouseEvent* event) {
    if (hold_) return;
    const bool left = event->button() == Qt::LeftButton;
    if (!left && event->button() != Qt::MiddleButton) return QWidget::mousePressEvent(event);
    const QPointF at = event->position();
    if (!geometry_.place().area.contains(at) || !showsPhoto()) return;
    hold_ =
        Hold{.button = event->button(), .from = at, .last = at, .drag = {}, .geometry = geometry_};
    const CanvasPart part = geometry_.partAt(at);
    if (left && part != CanvasPart::outside)
        hold_->drag.emplace(part, photo_->solution, photo_->adjustment, photo_->crop.photo,
                            geometry_.toLevel(at));
}

void PhotoCanvas::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    if (!hold_) return showCursorFor(at);
    if (!hold_->isMoving) {
        const QPointF way = at - hold_->from;
        if (std::hypot(way.x(), way.y()) < clickSlack) return;
        hold_->isMoving = true;
        if (hold_->drag) state_.beginGesture();
        if (!hold_->drag && !geometry_.isFitted()) setCursor(Qt::ClosedHandCursor);
    }
    if (hold_->drag) return pull(at);
    geometry_.pan(at - std::exchange(hold_->last, at));
    update();
}

void PhotoCanvas::pull(const QPointF& pointer) {
    const FrameDrag drag = *hold_->drag;
    const ManualAdjustment wanted = drag.to(hold_->geometry.toLevel(pointer));
    const ManualAdjustment now = photo_->adjustment;
    if (drag.part() == CanvasPart::inside)
        state_.nudge(wanted.dx - now.dx, wanted.dy - now.dy);
    else if (drag.part() == CanvasPart::turn)
        state_.rotate(wanted.rotation - now.rotation);
    else
        state_.scale(wanted.scale / now.scale);
    // Something spoke up against it; the hand need not hear it again with every pixel.
    if (state_.alert()) release();
}

void PhotoCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (!hold_ || event->button() != hold_->button) return QWidget::mouseReleaseEvent(event);
    release();
    showCursorFor(event->position());
}

void PhotoCanvas::release() {
    if (!hold_) return;
    hold_.reset();
    state_.endGesture();
    geometry_.keepInSight();
    update();
    emit zoomChanged();
}

double PhotoCanvas::turnedByHand() const {
    if (!hold_ || !hold_->isMoving || !hold_->drag || hold_->drag->part() != CanvasPart::turn)
        return 0;
    return hold_->drag->before().rotation - photo_->adjustment.rotation;
}

void PhotoCanvas::showCursorFor(const QPointF& pointer) {
    const bool editable = showsPhoto() && geometry_.place().area.contains(pointer);
    const CanvasPart part = editable ? geometry_.partAt(pointer) : CanvasPart::outside;
    switch (part) {
        case CanvasPart::inside:
            return setCursor(Qt::SizeAllCursor);
        case CanvasPart::topLeft:
        case CanvasPart::bottomRight:
            return setCursor(Qt::SizeFDiagCursor);
        case CanvasPart::topRight:
        case CanvasPart::bottomLeft:
            return setCursor(Qt::SizeBDiagCursor);
        case CanvasPart::turn:
            return setCursor(turnCursor(devicePixelRatioF()));
        case CanvasPart::outside:
            return geometry_.isFitted() ? unsetCursor() : setCursor(Qt::OpenHandCursor);
    }
}

void PhotoCanvas::wheelEvent(QWheelEvent* event) {
    if (hold_ || !geometry_.place().area.contains(event->position())) return event->accept();
    const int turned = event->angleDelta().y();
    if (turned != 0) zoom(std::pow(wheelStep, turned), event->position());
    showCursorFor(event->position());
    event->accept();
}

bool PhotoCanvas::event(QEvent* event) {
    if (event->type() == QEvent::NativeGesture) {
        const auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture && !hold_) {
            zoom(1 + gesture->value(), gesture->position());
            return true;
        }
    }
    return QWidget::event(event);
}

void PhotoCanvas::contextMenuEvent(QContextMenuEvent* event) {
    if (!photo_) return;
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    emit contextMenuWanted(byKey ? mapToGlobal(zoomCenter().toPoint()) : event->globalPos());
}

void PhotoCanvas::resizeEvent(QResizeEvent*) {
    arrange();
    emit zoomChanged();
}

void PhotoCanvas::showEvent(QShowEvent*) { refresh(); }

void PhotoCanvas::hideEvent(QHideEvent*) { release(); }

void PhotoCanvas::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange)
        arrange();
    QWidget::changeEvent(event);
}

void PhotoCanvas::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.canvas);
    const Explanation why = explanationOf(photo_ ? &*photo_ : nullptr, images_.isLost());
    const bool hasPicture = photo_ && !layer_.isEmpty();
    if (showsPhoto()) paintPhoto(painter);
    if (showsResult_ && hasCrop()) paintResult(painter);
    if (!why.title.isEmpty()) drawExplanation(painter, rect(), why, hasPicture);
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        const double inset = theme.ring / 2.0;
        painter.setPen(
            QPen(theme.accentBright, theme.ring, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
    }
}

void PhotoCanvas::paintPhoto(QPainter& painter) {
    painter.save();
    painter.setClipRect(geometry_.place().area);
    CanvasPainter canvas(painter, geometry_, *photo_);
    canvas.drawPhoto(layer_, layer_.isEmpty() ? state_.thumbnails().cached(
                                                    ThumbnailStore::key(photo_->thumbnail))
                                              : QImage());
    if (photo_->crop.frame) {
        if (state_.showOverlay()) canvas.drawGuides();
        canvas.drawFrame(turnedByHand());
        if (state_.showOverlay() && !isSplit()) canvas.drawGuideLabels();
        canvas.drawMissing();
        if (turnedByHand() != 0) canvas.drawTurn(turnedByHand());
    }
    painter.restore();
    if (isSplit()) paintCaption(painter, geometry_.place().area, tr("Before"));
}

void PhotoCanvas::paintResult(QPainter& painter) {
    painter.save();
    painter.setClipRect(resultArea());
    CanvasPainter canvas(painter, resultGeometry_, *photo_);
    canvas.drawResult(resultLayer_, result_.picture());
    painter.restore();
    paintCaption(painter, resultArea(), tr("After"));
}

void PhotoCanvas::paintCaption(QPainter& painter, const QRectF& area, const QString& text) {
    const QSizeF size = labelSize(text);
    const double x =
        layoutDirection() == Qt::RightToLeft ? area.right() - 8 - size.width() : area.left() + 8;
    drawLabel(painter, QRectF(QPointF(x, area.top() + 8), size), text, Theme::current().text2);
}

}  // namespace morva
