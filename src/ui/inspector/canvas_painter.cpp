// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/canvas_painter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include <QPainterPath>

#include "base/leveling.h"
#include "ui/inspector/canvas_labels.h"
#include "ui/inspector/inspector.h"
#include "ui/inspector/label_spread.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

// Logical pixels.
constexpr double hatchPeriod = 12;
constexpr double hatchBar = 5;
constexpr double guideWidth = 1.5;
constexpr double haloWidth = 3;
constexpr double frameWidth = 2;
constexpr double frameHaloWidth = 4;
constexpr double handleSide = 10;
constexpr double pointRadius = 4;
constexpr int turnIconSide = 14;

constexpr double dimming = 0.66;
/// Lines of a frame that moves a pixel at a time keep their place between the pixels.
constexpr double guideHalo = 0.55;
constexpr double frameHalo = 0.6;
constexpr double marginInk = 0.75;

// Of labels.
constexpr double labelGap = 8;
constexpr double betweenLabels = 4;

QColor withAlpha(QColor color, double alpha) {
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

QColor inkOf(GuideKind kind) {
    const Theme& theme = Theme::current();
    switch (kind) {
        case GuideKind::headTop:
            return theme.headTop;
        case GuideKind::eyeLine:
            return theme.eyeLine;
        case GuideKind::chinLine:
            return theme.chinLine;
    }
    return theme.text;
}

QString textOf(const Guide& guide) {
    return Inspector::tr("%1 %2").arg(nameOf(guide.kind), percent(guide.share, 1));
}

/// What of `area` lies around `inside`, which lies in it.
std::array<QRectF, 4> around(const QRectF& area, const QRectF& inside) {
    if (inside.isEmpty()) return {area};
    return {QRectF(area.topLeft(), QPointF(area.right(), inside.top())),
            QRectF(QPointF(area.left(), inside.top()), inside.bottomLeft()),
            QRectF(inside.topRight(), QPointF(area.right(), inside.bottom())),
            QRectF(QPointF(area.left(), inside.bottom()), area.bottomRight())};
}

/// The part of the frame beyond one edge of the photo, on the canvas. `inside` is positive on the
/// photo's side, in source pixels.
template <class Inside>
QPolygonF beyond(const CanvasGeometry& geometry, const Inside& inside) {
    const CropOnPhoto& shown = geometry.shown();
    auto corners = shown.frame->corners();
    for (Point& corner : corners)
        corner = Leveling::unlevel(corner, {shown.photo.width / 2, shown.photo.height / 2},
                                   shown.rotation);
    QPolygonF part;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point a = corners[i];
        const Point b = corners[(i + 1) % corners.size()];
        const double da = inside(a);
        const double db = inside(b);
        if (da < 0) part << geometry.photoToCanvas(a);
        if ((da < 0) != (db < 0)) {
            const double t = da / (da - db);
            part << geometry.photoToCanvas(a + (b - a).scaled(t, t));
        }
    }
    return part;
}

}  // namespace

CanvasPainter::CanvasPainter(QPainter& painter, const CanvasGeometry& geometry,
                             const InspectedPhoto& photo)
    : painter_(painter), geometry_(geometry), photo_(photo), frame_(onPixels(geometry.frame())) {}

double CanvasPainter::onPixel(double at) const {
    const qreal scale = painter_.device()->devicePixelRatioF();
    return (std::floor(at * scale) + 0.5) / scale;
}

QRectF CanvasPainter::onPixels(const QRectF& rect) const {
    const qreal scale = painter_.device()->devicePixelRatioF();
    const auto edge = [&](double at) { return std::round(at * scale) / scale; };
    return {QPointF(edge(rect.left()), edge(rect.top())),
            QPointF(edge(rect.right()), edge(rect.bottom()))};
}

void CanvasPainter::drawPhoto(PhotoLayer& layer, const QImage& thumbnail) {
    if (layer.isEmpty()) return drawSlot(thumbnail);
    const QTransform place = geometry_.photoTransform();
    const Size size = photo_.crop.photo;
    const QRectF& area = geometry_.place().area;
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, false);
    if (!photo_.crop.frame) return layer.draw(painter_, place, size, area, area);
    if (photo_.missing) drawFilling(layer);
    const QRectF inside = frame_.intersected(area);
    layer.draw(painter_, place, size, area, inside);
    // A photo that lets the canvas through is the canvas laid over the photo, in one go.
    painter_.setOpacity(1 - dimming);
    for (const QRectF& part : around(area, inside)) layer.draw(painter_, place, size, area, part);
    painter_.setOpacity(1);
}

void CanvasPainter::drawSlot(const QImage& thumbnail) {
    const QRectF whole(0, 0, photo_.crop.photo.width, photo_.crop.photo.height);
    const QPolygonF place = geometry_.photoTransform().map(QPolygonF(whole));
    if (photo_.missing && photo_.filling == Filling::none) hatch(frame_);
    painter_.save();
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(Theme::current().panel);
    painter_.drawPolygon(place);
    if (photo_.crop.frame) {
        // Where the photo ends the thumbnail is grey.
        QPainterPath photo;
        photo.addPolygon(place);
        if (photo_.filling == Filling::none) painter_.setClipPath(photo, Qt::IntersectClip);
        painter_.drawImage(frame_, thumbnail);
    } else {
        painter_.setTransform(geometry_.photoTransform(), true);
        painter_.drawImage(whole, thumbnail);
    }
    painter_.restore();
}

void CanvasPainter::drawFilling(const PhotoLayer& layer) {
    switch (photo_.filling) {
        case Filling::none:
            return hatch(frame_);
        case Filling::color:
            return painter_.fillRect(frame_, photo_.fillColor);
        case Filling::repeatedEdges:
            return layer.drawRepeatedEdges(painter_, geometry_.photoTransform(), photo_.crop.photo,
                                           frame_);
    }
}

void CanvasPainter::hatch(const QRectF& rect) {
    const Theme& theme = Theme::current();
    painter_.save();
    painter_.setClipRect(rect, Qt::IntersectClip);
    painter_.fillRect(rect, theme.hatchDark);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(QPen(theme.hatchLight, hatchBar, Qt::SolidLine, Qt::FlatCap));
    const double step = hatchPeriod * std::numbers::sqrt2;
    const double side = hatchBar;
    for (double x = rect.left(); x < rect.right() + rect.height() + step; x += step)
        painter_.drawLine(QPointF(x + side, rect.top() - side),
                          QPointF(x - rect.height() - side, rect.bottom() + side));
    painter_.restore();
}

void CanvasPainter::line(double y) {
    painter_.drawLine(QPointF(frame_.left(), y), QPointF(frame_.right(), y));
}

void CanvasPainter::drawGuides() {
    const Theme& theme = Theme::current();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setBrush(Qt::NoBrush);
    if (photo_.sideMargin > 0) {
        QPen dashes(withAlpha(theme.margins, marginInk), 1, Qt::CustomDashLine, Qt::FlatCap);
        dashes.setDashPattern({4, 4});
        painter_.setPen(dashes);
        const double gap = photo_.sideMargin * frame_.width();
        for (const double x : {frame_.left() + gap, frame_.right() - gap})
            painter_.drawLine(QPointF(onPixel(x), frame_.top()),
                              QPointF(onPixel(x), frame_.bottom()));
    }
    const QColor halo = withAlpha(Qt::black, guideHalo);
    for (const Guide& guide : photo_.guides) {
        const double y = onPixel(frame_.top() + guide.share * frame_.height());
        painter_.setPen(QPen(halo, haloWidth, Qt::SolidLine, Qt::FlatCap));
        line(y);
        painter_.setPen(QPen(inkOf(guide.kind), guideWidth, Qt::SolidLine, Qt::FlatCap));
        line(y);
    }
    for (const MeasuredPoint& point : photo_.points) {
        const QPointF place = geometry_.photoToCanvas(point.place);
        painter_.setPen(QPen(halo, guideWidth + 2));
        painter_.drawEllipse(place, pointRadius, pointRadius);
        painter_.setPen(QPen(inkOf(point.kind), guideWidth));
        painter_.drawEllipse(place, pointRadius, pointRadius);
    }
}

void CanvasPainter::drawFrame(double turnedBy) {
    const QColor halo = withAlpha(Qt::black, frameHalo);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setBrush(Qt::NoBrush);
    for (const auto& [ink, width] :
         {std::pair{halo, frameHaloWidth}, std::pair{QColor(Qt::white), frameWidth}}) {
        painter_.setPen(QPen(ink, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter_.drawRect(frame_);
    }
    for (const QPointF corner :
         {frame_.topLeft(), frame_.topRight(), frame_.bottomRight(), frame_.bottomLeft()}) {
        const QRectF handle(corner.x() - handleSide / 2, corner.y() - handleSide / 2, handleSide,
                            handleSide);
        painter_.fillRect(handle.adjusted(-1, -1, 1, 1), halo);
        painter_.fillRect(handle, Qt::white);
    }
    const QPointF disc = geometry_.turnHandle(turnedBy);
    const bool isLeft = disc.x() < frame_.center().x();
    const double stalk = CanvasGeometry::turnRadius;
    const double reach = CanvasGeometry::turnDistance - 8;
    if (turnedBy == 0) {
        const QPointF from = disc + QPointF(isLeft ? stalk : -stalk, 0);
        const QPointF to = disc + QPointF(isLeft ? reach : -reach, 0);
        painter_.setPen(QPen(halo, 3, Qt::SolidLine, Qt::FlatCap));
        painter_.drawLine(from, to);
        painter_.setPen(QPen(Qt::white, 1.5, Qt::SolidLine, Qt::FlatCap));
        painter_.drawLine(from, to);
    }
    painter_.setPen(QPen(Qt::white, 1.5));
    painter_.setBrush(Theme::current().labelBox);
    painter_.drawEllipse(disc, CanvasGeometry::turnRadius - 0.75,
                         CanvasGeometry::turnRadius - 0.75);
    const qreal scale = painter_.device()->devicePixelRatioF();
    painter_.drawPixmap(disc - QPointF(turnIconSide / 2.0, turnIconSide / 2.0),
                        iconPixmap(QStringLiteral("turn"), Qt::white, turnIconSide, scale));
}

double CanvasPainter::labelRoom() {
    double widest = 0;
    for (const GuideKind kind : {GuideKind::headTop, GuideKind::eyeLine, GuideKind::chinLine})
        widest = std::max(widest, labelSize(textOf({kind, 0.888})).width());
    return labelGap + widest + labelGap;
}

void CanvasPainter::drawGuideLabels() {
    struct Label {
        QString text;
        QColor ink;
        double y;
    };
    const QRectF area = geometry_.place().area.adjusted(4, 4, -4, -4);
    std::vector<Label> labels;
    for (const Guide& guide : photo_.guides)
        labels.push_back(
            {textOf(guide), inkOf(guide.kind), frame_.top() + guide.share * frame_.height()});
    if (photo_.sideMargin > 0) {
        const QString text = Inspector::tr("Margin %1").arg(percent(photo_.sideMargin, 1));
        labels.push_back({text, Theme::current().margins, frame_.bottom()});
    }
    std::erase_if(labels, [&](const Label& label) {
        return label.y < area.top() || label.y > area.bottom();
    });
    std::vector<double> wanted;
    for (const Label& label : labels) wanted.push_back(label.y);
    const double height = labelSize({}).height();
    const auto places = spread(wanted, height, betweenLabels, area.top(), area.bottom());
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const double width = labelSize(labels[i].text).width();
        const double x = geometry_.place().mirrored
                             ? std::max(area.left(), frame_.left() - labelGap - width)
                             : std::min(area.right() - width, frame_.right() + labelGap);
        drawLabel(painter_, QRectF(x, std::round(places[i] - height / 2), width, height),
                  labels[i].text, labels[i].ink);
    }
}

QRectF CanvasPainter::missingLabel(const QPolygonF& part, QSizeF size) const {
    const QRectF seen = part.boundingRect().intersected(geometry_.place().area);
    QRectF box(QPointF(), size);
    box.moveCenter(seen.center());
    // A strip too thin for its words has them at an end, where they hide no face.
    const double gap = labelGap;
    if (size.width() + 2 * gap > seen.width() && seen.height() > seen.width())
        box.moveBottom(seen.bottom() - 3 * gap);
    else if (size.height() + 2 * gap > seen.height())
        box.moveLeft(seen.left() + 3 * gap);
    const QRectF inner = frame_.adjusted(gap, gap, -gap, -gap);
    box.moveLeft(
        std::clamp(box.left(), inner.left(), std::max(inner.left(), inner.right() - box.width())));
    box.moveTop(
        std::clamp(box.top(), inner.top(), std::max(inner.top(), inner.bottom() - box.height())));
    return box;
}

void CanvasPainter::drawMissing() {
    if (!photo_.missing || photo_.filling != Filling::none) return;
    const Theme& theme = Theme::current();
    const Size size = photo_.crop.photo;
    std::vector<QRectF> taken;
    const auto tell = [&](double pixels, const QPolygonF& part) {
        if (pixels <= CanvasShortfall::tolerance || part.isEmpty()) return;
        const QString text = missingText(pixels);
        QRectF box = missingLabel(part, labelSize(text, true));
        for (const QRectF& other : taken)
            if (box.intersects(other)) box.moveBottom(other.top() - betweenLabels);
        taken.push_back(box);
        drawLabel(painter_, box, text, theme.text, QStringLiteral("s-review"), theme.review);
    };
    const CanvasShortfall& missing = *photo_.missing;
    tell(missing.bottom, beyond(geometry_, [&](Point p) { return size.height - p.y; }));
    tell(missing.top, beyond(geometry_, [](Point p) { return p.y; }));
    tell(missing.left, beyond(geometry_, [](Point p) { return p.x; }));
    tell(missing.right, beyond(geometry_, [&](Point p) { return size.width - p.x; }));
}

void CanvasPainter::drawTurn(double turnedBy) {
    const QString text = Inspector::tr("%1°").arg(number(photo_.adjustment.rotation, 2));
    QRectF box(QPointF(), labelSize(text));
    box.moveCenter(geometry_.turnHandle(turnedBy) +
                   QPointF(0, CanvasGeometry::turnRadius + 4 + box.height() / 2));
    drawLabel(painter_, box, text, Theme::current().text);
}

void CanvasPainter::drawResult(PhotoLayer& layer, const QImage& picture) {
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!picture.isNull()) return painter_.drawImage(frame_, picture);
    painter_.save();
    painter_.setClipRect(frame_, Qt::IntersectClip);
    // The canvas of a crop whose backdrop is kept.
    painter_.fillRect(frame_,
                      photo_.filling == Filling::color ? photo_.fillColor : QColor(128, 128, 128));
    if (photo_.filling == Filling::repeatedEdges)
        layer.drawRepeatedEdges(painter_, geometry_.photoTransform(), photo_.crop.photo, frame_);
    layer.draw(painter_, geometry_.photoTransform(), photo_.crop.photo, frame_, frame_);
    painter_.restore();
}

}  // namespace morva
