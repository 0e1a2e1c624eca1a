// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/icon_text.h"

#include <algorithm>

#include <QPainter>
#include <QStyle>

#include "ui/widgets/icons.h"

namespace morva {

namespace {

constexpr int iconSide = 16;
constexpr int textStart = iconSide + 8;

}  // namespace

IconText::IconText(TextRole role, QWidget* parent) : QWidget(parent), role_(role) {
    setFont(fontFor(role));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void IconText::set(const QString& icon, Color iconColor, const QString& text, Color textColor) {
    if (icon == icon_ && text == text_ && iconColor == iconColor_ && textColor == textColor_)
        return;
    icon_ = icon;
    iconColor_ = iconColor;
    text_ = text;
    textColor_ = textColor;
    setAccessibleName(text);
    updateGeometry();
    update();
}

int IconText::lineHeight() const { return std::max(scaled(20), fontMetrics().height()); }

QSize IconText::sizeHint() const {
    return {textStart + fontMetrics().horizontalAdvance(text_) + 2, lineHeight()};
}

QSize IconText::minimumSizeHint() const {
    // The longest word must fit.
    int word = 0;
    for (const QString& part : text_.split(QLatin1Char(' ')))
        word = std::max(word, fontMetrics().horizontalAdvance(part));
    return {textStart + word, lineHeight()};
}

int IconText::heightForWidth(int width) const {
    const QRect room(0, 0, std::max(1, width - textStart), 1 << 16);
    const int text = fontMetrics().boundingRect(room, Qt::TextWordWrap, text_).height();
    return std::max(lineHeight(), text + lineHeight() - fontMetrics().height());
}

void IconText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::current();
    const auto placed = [&](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const int above = (lineHeight() - iconSide) / 2;
    painter.drawPixmap(placed(QRect(0, above, iconSide, iconSide)).topLeft(),
                       iconPixmap(icon_, theme.*iconColor_, iconSide, devicePixelRatioF()));
    painter.setPen(theme.*textColor_);
    const int textAbove = (lineHeight() - fontMetrics().height()) / 2;
    painter.drawText(placed(rect().adjusted(textStart, textAbove, 0, 0)),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) |
                         Qt::AlignTop | Qt::TextWordWrap,
                     text_);
}

}  // namespace morva
