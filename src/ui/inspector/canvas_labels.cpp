// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/canvas_labels.h"

#include <algorithm>
#include <cmath>

#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

// Logical pixels.
constexpr double labelPadding = 6;
constexpr int labelIcon = 14;

}  // namespace

QSizeF labelSize(const QString& text, bool hasIcon) {
    const QFontMetricsF metrics(fontFor(TextRole::small));
    return {std::ceil(metrics.horizontalAdvance(text)) + 2 * labelPadding +
                (hasIcon ? labelIcon + labelPadding : 0),
            std::max(20.0, std::ceil(metrics.height()) + 4)};
}

void drawLabel(QPainter& painter, const QRectF& box, const QString& text, const QColor& ink,
               const QString& icon, const QColor& iconInk) {
    painter.setRenderHint(QPainter::Antialiasing);
    drawBox(painter, box, Theme::current().labelBox, QColor(), Metrics::badgeRadius);
    QRectF words = box.adjusted(labelPadding, 0, -labelPadding, 0);
    const bool mirrored = painter.layoutDirection() == Qt::RightToLeft;
    if (!icon.isEmpty()) {
        const qreal scale = painter.device()->devicePixelRatioF();
        const double x = mirrored ? words.right() - labelIcon : words.left();
        painter.drawPixmap(QPointF(x, std::round(box.center().y() - labelIcon / 2.0)),
                           iconPixmap(icon, iconInk, labelIcon, scale));
        if (mirrored)
            words.setRight(x - labelPadding);
        else
            words.setLeft(x + labelIcon + labelPadding);
    }
    painter.setFont(fontFor(TextRole::small));
    painter.setPen(ink);
    // As its own language runs, whatever the window's.
    const Qt::LayoutDirection direction = painter.layoutDirection();
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(words, Qt::AlignCenter | Qt::TextSingleLine, text);
    painter.setLayoutDirection(direction);
}

void drawExplanation(QPainter& painter, const QRectF& area, const Explanation& why,
                     bool overPhoto) {
    constexpr int iconSide = 20;
    constexpr double padding = 12;
    const QFont titleFont = fontFor(TextRole::title);
    const QFont sentenceFont = fontFor(TextRole::body);
    const double width = std::min(area.width() - 4 * padding, 1.0 * scaled(440));
    const auto sizeOf = [&](const QFont& font, const QString& text) {
        return QFontMetricsF(font).boundingRect(QRectF(0, 0, width, 1000),
                                                Qt::TextWordWrap | Qt::AlignHCenter, text);
    };
    const QRectF title = sizeOf(titleFont, why.title);
    const QRectF sentence = why.sentence.isEmpty() ? QRectF() : sizeOf(sentenceFont, why.sentence);
    const double height =
        iconSide + 8 + title.height() + (sentence.isEmpty() ? 0 : 4) + sentence.height();
    const double wide = std::max({title.width(), sentence.width(), 1.0 * iconSide});
    QRectF box(0, 0, wide + 2 * padding, height + 2 * padding);
    box.moveCenter(area.center());
    if (overPhoto) {
        box.moveBottom(area.bottom() - padding);
        painter.setRenderHint(QPainter::Antialiasing);
        drawBox(painter, box, Theme::current().labelBox, QColor(), Metrics::controlRadius);
    }
    double y = box.top() + padding;
    const qreal scale = painter.device()->devicePixelRatioF();
    painter.drawPixmap(QPointF(std::round(box.center().x() - iconSide / 2.0), std::round(y)),
                       iconPixmap(why.icon, why.color, iconSide, scale));
    y += iconSide + 8;
    const auto write = [&](const QFont& font, const QColor& ink, const QString& text,
                           const QRectF& size) {
        painter.setFont(font);
        painter.setPen(ink);
        painter.drawText(QRectF(box.left(), y, box.width(), size.height()),
                         Qt::TextWordWrap | Qt::AlignHCenter, text);
        y += size.height() + 4;
    };
    write(titleFont, Theme::current().text, why.title, title);
    if (!sentence.isEmpty()) write(sentenceFont, Theme::current().text2, why.sentence, sentence);
}

}  // namespace morva
