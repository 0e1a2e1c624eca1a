// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/canvas_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/leveling.h"

namespace morva {

namespace {

/// Closest zoom in fits.
constexpr double closestFits = 4;
/// A zoom that ends this close to the whole shows the whole.
constexpr double nearlyFitted = 1.005;
/// Corners of a tiny frame leave a third of it for moving.
constexpr double cornerShare = 1.0 / 3;

Point centerOf(Size photo) { return {photo.width / 2, photo.height / 2}; }

Rect united(const Rect& a, const Rect& b) {
    const double left = std::min(a.x, b.x);
    const double top = std::min(a.y, b.y);
    return {left, top, std::max(a.maxX(), b.maxX()) - left, std::max(a.maxY(), b.maxY()) - top};
}

/// One axis of the fit: what has to lie between which ends.
struct Span {
    double from, to;       // level
    double before, after;  // what has to stay free of the area on either side
};

/// The largest scale at which all spans find room in `length`.
double fittingScale(const std::array<Span, 2>& spans, double length) {
    double scale = 1e9;
    for (const Span& a : spans) {
        for (const Span& b : spans) {
            const double extent = b.to - a.from;
            if (extent > 0) scale = std::min(scale, (length - a.before - b.after) / extent);
        }
    }
    return scale;
}

/// Where level 0 comes to lie: the first span in the middle as far as both keep their room.
double fittingOffset(const std::array<Span, 2>& spans, double start, double length, double scale) {
    double least = -1e12;
    double most = 1e12;
    for (const Span& span : spans) {
        least = std::max(least, start + span.before - span.from * scale);
        most = std::min(most, start + length - span.after - span.to * scale);
    }
    const double middle = start + length / 2 - (spans[0].from + spans[0].to) / 2 * scale;
    return std::clamp(middle, std::min(least, most), std::max(least, most));
}

std::pair<std::array<Span, 2>, std::array<Span, 2>> spansOf(const Rect& content, const Rect& frame,
                                                            const CanvasGeometry::Place& place) {
    using G = CanvasGeometry;
    const double handle = G::turnDistance + G::turnRadius + 8;
    const double labels = std::max(G::margin, place.labels);
    const double left = place.mirrored ? labels : handle;
    const double right = place.mirrored ? handle : labels;
    return {
        {{{content.x, content.maxX(), G::margin, G::margin}, {frame.x, frame.maxX(), left, right}}},
        {{{content.y, content.maxY(), G::margin, G::margin},
          {frame.y, frame.maxY(), G::margin, G::margin}}}};
}

}  // namespace

bool isCorner(CanvasPart part) {
    return part == CanvasPart::topLeft || part == CanvasPart::topRight ||
           part == CanvasPart::bottomRight || part == CanvasPart::bottomLeft;
}

void CanvasGeometry::setPlace(const Place& place) {
    if (place == place_) return;
    const Point middle = toLevel(place_.area.center());
    place_ = place;
    if (isFitted_) return fit();
    offset_ += place_.area.center() - toCanvas(middle);
    keepInMiddle();
}

void CanvasGeometry::show(const CropOnPhoto& shown) {
    shown_ = shown;
    fit();
}

void CanvasGeometry::follow(const CropOnPhoto& shown) {
    const CropOnPhoto before = std::exchange(shown_, shown);
    if (before.photo != shown.photo || before.frame.has_value() != shown.frame.has_value())
        return fit();
    if (before.rotation != shown.rotation && before.frame) {
        const QPointF middle = toCanvas(before.frame->center());
        offset_ += middle - toCanvas(shown.frame->center());
    }
}

void CanvasGeometry::keepInSight() {
    if (isFitted_ && shown_.frame && !place_.area.contains(frame())) fit();
}

void CanvasGeometry::showPart(const CropOnPhoto& shown, const Rect& level) {
    shown_ = shown;
    const QRectF& area = place_.area;
    scale_ = std::max(1.0 / 1024, std::min((area.width() - 2 * margin) / level.width,
                                           (area.height() - 2 * margin) / level.height));
    offset_ = {};
    offset_ = area.center() - toCanvas(level).center();
}

Rect CanvasGeometry::content() const {
    auto corners = Rect{0, 0, shown_.photo.width, shown_.photo.height}.corners();
    for (Point& corner : corners)
        corner = Leveling::level(corner, centerOf(shown_.photo), shown_.rotation);
    const Rect photo = Rect::bounding(corners);
    return shown_.frame ? united(photo, *shown_.frame) : photo;
}

double CanvasGeometry::fittingScale() const {
    const Rect all = content();
    if (all.isEmpty() || place_.area.isEmpty()) return 1;
    const auto [across, down] = spansOf(all, shown_.frame.value_or(all), place_);
    const std::array whole{across[0], across[0]};
    const double scale =
        std::min(morva::fittingScale(shown_.frame ? across : whole, place_.area.width()),
                 morva::fittingScale(down, place_.area.height()));
    // In a tiny window the margins go first.
    const double least =
        0.25 * std::min(place_.area.width() / all.width, place_.area.height() / all.height);
    return std::max(scale, least);
}

void CanvasGeometry::fit() {
    isFitted_ = true;
    const Rect all = content();
    if (all.isEmpty() || place_.area.isEmpty()) return;
    scale_ = fittingScale();
    const auto [across, down] = spansOf(all, shown_.frame.value_or(all), place_);
    const std::array whole{across[0], across[0]};
    offset_ = {
        fittingOffset(shown_.frame ? across : whole, place_.area.x(), place_.area.width(), scale_),
        fittingOffset(down, place_.area.y(), place_.area.height(), scale_)};
}

void CanvasGeometry::zoom(double by, QPointF around, double closest) {
    const double whole = fittingScale();
    const double wanted = std::clamp(scale_ * by, whole, std::max(closest, whole * closestFits));
    if (wanted <= whole * nearlyFitted) return fit();
    const Point fixed = toLevel(around);
    scale_ = wanted;
    isFitted_ = false;
    offset_ += around - toCanvas(fixed);
    keepInMiddle();
}

void CanvasGeometry::pan(QPointF by) {
    if (isFitted_) return;
    offset_ += by;
    keepInMiddle();
}

void CanvasGeometry::keepInMiddle() {
    const QRectF all = toCanvas(content());
    const QPointF middle = place_.area.center();
    offset_ += {std::max(0.0, middle.x() - all.right()) + std::min(0.0, middle.x() - all.left()),
                std::max(0.0, middle.y() - all.bottom()) + std::min(0.0, middle.y() - all.top())};
}

QPointF CanvasGeometry::toCanvas(Point level) const {
    return {offset_.x() + level.x * scale_, offset_.y() + level.y * scale_};
}

Point CanvasGeometry::toLevel(QPointF canvas) const {
    return {(canvas.x() - offset_.x()) / scale_, (canvas.y() - offset_.y()) / scale_};
}

QPointF CanvasGeometry::photoToCanvas(Point photo) const {
    return toCanvas(Leveling::level(photo, centerOf(shown_.photo), shown_.rotation));
}

QTransform CanvasGeometry::photoTransform() const {
    const QPointF origin = photoToCanvas({0, 0});
    const QPointF right = photoToCanvas({1, 0}) - origin;
    const QPointF down = photoToCanvas({0, 1}) - origin;
    return {right.x(), right.y(), down.x(), down.y(), origin.x(), origin.y()};
}

QRectF CanvasGeometry::toCanvas(const Rect& level) const {
    return {toCanvas(Point{level.x, level.y}), toCanvas(Point{level.maxX(), level.maxY()})};
}

QRectF CanvasGeometry::frame() const { return shown_.frame ? toCanvas(*shown_.frame) : QRectF(); }

QPointF CanvasGeometry::turnHandle(double turnedBy) const {
    const QRectF box = frame();
    const double side = box.width() / 2 + turnDistance;
    const Point middle{box.center().x(), box.center().y()};
    const Point resting{middle.x + (place_.mirrored ? side : -side), middle.y};
    const Point at = resting.rotated(middle, turnedBy);
    // Also where the frame is larger than what is seen of it.
    const double border = turnRadius + 4;
    const QRectF inner = place_.area.adjusted(border, border, -border, -border);
    if (inner.isEmpty()) return {at.x, at.y};
    return {std::clamp(at.x, inner.left(), inner.right()),
            std::clamp(at.y, inner.top(), inner.bottom())};
}

CanvasPart CanvasGeometry::partAt(QPointF canvas) const {
    const QRectF box = frame();
    if (box.isEmpty()) return CanvasPart::outside;
    // To the outside of the frame there is nothing else to take hold of.
    const double reach =
        box.contains(canvas)
            ? std::min({hitRadius, box.width() * cornerShare, box.height() * cornerShare})
            : hitRadius;
    const std::array corners{std::pair{box.topLeft(), CanvasPart::topLeft},
                             std::pair{box.topRight(), CanvasPart::topRight},
                             std::pair{box.bottomRight(), CanvasPart::bottomRight},
                             std::pair{box.bottomLeft(), CanvasPart::bottomLeft}};
    for (const auto& [corner, part] : corners) {
        const QPointF away = canvas - corner;
        if (std::max(std::abs(away.x()), std::abs(away.y())) <= reach) return part;
    }
    const QPointF toTurn = canvas - turnHandle();
    if (std::hypot(toTurn.x(), toTurn.y()) <= hitRadius) return CanvasPart::turn;
    return box.contains(canvas) ? CanvasPart::inside : CanvasPart::outside;
}

}  // namespace morva
