// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/elided_label.h"

#include "ui/widgets/theme.h"

namespace morva {

namespace {

QColor inkColor(Ink ink) {
    const Theme& theme = Theme::current();
    return ink == Ink::text ? theme.text : ink == Ink::text2 ? theme.text2 : theme.text3;
}

}  // namespace

ElidedLabel::ElidedLabel(TextRole role, Ink ink, Qt::TextElideMode mode, QWidget* parent)
    : QLabel(parent), mode_(mode) {
    setTextFormat(Qt::PlainText);
    setFont(fontFor(role));
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, inkColor(ink));
    setPalette(colors);
}

void ElidedLabel::setFullText(const QString& text) {
    if (text == text_) return;
    text_ = text;
    setAccessibleName(text);
    elide();
    updateGeometry();
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(QStringLiteral("…")), fontMetrics().height()};
}

QSize ElidedLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text_) + 1, fontMetrics().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide() {
    const QString shown = fontMetrics().elidedText(text_, mode_, width());
    setText(shown);
    setToolTip(shown == text_ ? QString() : text_);
}

}  // namespace morva
