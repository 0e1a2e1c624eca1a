// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/wrapped_check_box.h"

#include <algorithm>

#include <QStyleOptionButton>
#include <QStylePainter>

#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr int textStart = 16 + 8;

}  // namespace

WrappedCheckBox::WrappedCheckBox(const QString& text, QWidget* parent) : QCheckBox(text, parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setAttribute(Qt::WA_Hover);
}

QSize WrappedCheckBox::sizeHint() const {
    return {textStart + fontMetrics().horizontalAdvance(text()) + 2, scaled(20)};
}

QSize WrappedCheckBox::minimumSizeHint() const { return {scaled(80), scaled(20)}; }

int WrappedCheckBox::heightForWidth(int width) const {
    const QRect room(0, 0, std::max(1, width - textStart), 1 << 16);
    const int line = scaled(20);
    const int text_ = fontMetrics().boundingRect(room, Qt::TextWordWrap, text()).height();
    return std::max(line, text_ + std::max(0, line - fontMetrics().height()));
}

void WrappedCheckBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const Theme& theme = Theme::current();
    const auto placed = [&](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const QRect whole = rect();
    const int line = std::min(height(), scaled(20));
    option.rect = placed(QRect(0, (line - 16) / 2, 16, 16));
    painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, option);
    painter.setPen(isEnabled() ? theme.text : theme.off);
    const int lineSpace = std::max(0, line - fontMetrics().height()) / 2;
    painter.drawText(placed(whole.adjusted(textStart, lineSpace, 0, 0)),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) |
                         Qt::AlignTop | Qt::TextWordWrap,
                     text());
    if ((option.state & QStyle::State_HasFocus) &&
        (option.state & QStyle::State_KeyboardFocusChange))
        drawBox(painter, QRectF(whole), QColor(), theme.accentBright, Metrics::controlRadius,
                theme.ring);
}

}  // namespace morva
