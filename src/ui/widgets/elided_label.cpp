// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/elided_label.h"

namespace morva {

ElidedLabel::ElidedLabel(TextRole role, Ink ink, Qt::TextElideMode mode, QWidget* parent)
    : InkLabel(role, ink, parent), mode_(mode) {}

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
