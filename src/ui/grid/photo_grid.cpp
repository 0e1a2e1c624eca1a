// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/photo_grid.h"

#include <algorithm>
#include <cmath>

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>

#include "ui/grid/empty_note.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

/// The window gives it no less.
constexpr int smallestWidth = 480;

/// Of what lies over the photos while a folder is held over them.
constexpr float veilStrength = 0.8F;
constexpr int dropMargin = 32;

}  // namespace

PhotoGrid::PhotoGrid(AppState& state, QWidget* parent) : PhotoView(state, parent) {
    setMinimumWidth(smallestWidth);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Photos"));
    begin();
    connect(&state, &AppState::thumbnailHeightChanged, this, [this] { rearrange(); });
    connect(&photos(), &PhotoListModel::rowsSettled, this, &PhotoGrid::describe);
    describe();
}

void PhotoGrid::arrange() {
    geometry_ = GridGeometry(width(), static_cast<int>(std::lround(state().thumbnailHeight())),
                             CellPainter::gridTextHeight(), photos().rowCount());
}

RowRange PhotoGrid::rowsIn(const QRect& content) const {
    return geometry_.rowsBetween(content.top(), content.bottom());
}

QMargins PhotoGrid::surroundings() const {
    return {0, GridGeometry::endMargin, 0, GridGeometry::endMargin};
}

void PhotoGrid::drawCell(CellPainter& painter, const QRect& place, const CellContent& content,
                         const CellPicture& picture, const CellState& state) const {
    painter.drawGridCell(place, slot(), content, picture, state);
}

QColor PhotoGrid::background() const { return Theme::current().canvas; }

void PhotoGrid::paintEvent(QPaintEvent* event) {
    PhotoView::paintEvent(event);
    QPainter painter(viewport());
    if (photos().rowCount() == 0 && state().selectedJob())
        EmptyNote::draw(painter, viewport()->rect(), EmptyNote::of(state()));
    // Without a current photo nothing else shows where keys go.
    if (hasFocus() && currentRow() < 0 && window()->testAttribute(Qt::WA_KeyboardFocusChange))
        drawFocusRing(painter);
    if (!dropName_.isEmpty()) drawDropOffer(painter);
}

void PhotoGrid::drawFocusRing(QPainter& painter) const {
    const int ring = Theme::current().ring;
    painter.setPen(
        QPen(Theme::current().accentBright, 2 * ring, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(viewport()->rect());
}

void PhotoGrid::drawDropOffer(QPainter& painter) const {
    const Theme& theme = Theme::current();
    const QRect room = viewport()->rect();
    QColor veil = theme.canvas;
    veil.setAlphaF(veilStrength);
    painter.fillRect(room, veil);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.accentBright, theme.ring, Qt::DashLine));
    painter.drawRoundedRect(QRectF(room).adjusted(4, 4, -4, -4), Metrics::sheetRadius,
                            Metrics::sheetRadius);
    const QFont font = fontFor(TextRole::title);
    const QString text = QFontMetrics(font).elidedText(
        tr("Drop to import %1").arg(dropName_), Qt::ElideMiddle, room.width() - 2 * dropMargin);
    constexpr int iconSide = 20;
    QRect line(0, 0, iconSide + 8 + QFontMetrics(font).horizontalAdvance(text), iconSide);
    line.moveCenter(room.center());
    const QRect icon =
        QStyle::visualRect(layoutDirection(), line, {line.topLeft(), QSize(iconSide, iconSide)});
    painter.drawPixmap(icon.topLeft(), iconPixmap(QStringLiteral("import"), theme.accentBright,
                                                  iconSide, devicePixelRatioF()));
    painter.setFont(font);
    painter.drawText(line.adjusted(0, -8, 0, 8), Qt::AlignVCenter | Qt::AlignTrailing, text);
}

void PhotoGrid::setDropName(const QString& name) {
    dropName_ = name;
    viewport()->update();
}

void PhotoGrid::describe() {
    const bool isEmpty = photos().rowCount() == 0 && state().selectedJob();
    setAccessibleDescription(isEmpty ? EmptyNote::of(state()).spoken() : QString());
}

void PhotoGrid::selectAllShown() {
    std::vector<std::string> ids;
    for (int row = 0; row < photos().rowCount(); ++row)
        if (auto id = photos().idAt(row)) ids.push_back(std::move(*id));
    if (ids.empty()) return;
    const int current = currentRow();
    const std::string chosen = current >= 0 ? *state().selectedItemID() : ids.front();
    state().selectMany(std::move(ids), chosen);
}

void PhotoGrid::keyPressEvent(QKeyEvent* event) {
    // All other keys are the window's.
    event->ignore();
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return;
    const int page = geometry_.columns() * std::max(1, viewport()->height() / geometry_.pitch());
    const int last = photos().rowCount() - 1;
    const int current = std::max(0, currentRow());
    int row = 0;
    switch (event->key()) {
        case Qt::Key_Home:
            break;
        case Qt::Key_End:
            row = last;
            break;
        case Qt::Key_PageUp:
            row = std::max(0, current - page);
            break;
        case Qt::Key_PageDown:
            row = std::min(last, current + page);
            break;
        default:
            return;
    }
    event->accept();
    takeAnchor();
    choose(row, event->modifiers().testFlag(Qt::ShiftModifier));
}

void PhotoGrid::contextMenuEvent(QContextMenuEvent* event) {
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!isByKey && !indexAt(event->pos()).isValid()) return;
    if (isByKey && currentRow() < 0) return;
    const QPoint place = isByKey ? visualRect(photos().index(currentRow())).center() : event->pos();
    emit contextMenuWanted(viewport()->mapToGlobal(place));
}

}  // namespace morva
