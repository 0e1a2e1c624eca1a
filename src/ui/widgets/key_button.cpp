// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/key_button.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "ui/widgets/key_cap.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"

namespace morva {

namespace {

/// At either side of a button's text.
constexpr int padding = 12;

}  // namespace

KeyButton::KeyButton(const QString& text, const QStringList& caps, QWidget* parent)
    : QPushButton(parent) {
    set(text, caps);
}

void KeyButton::set(const QString& text, const QStringList& caps) {
    if (text == this->text() && caps == caps_) return;
    caps_ = caps;
    setText(text);
    setAccessibleDescription(caps.isEmpty() ? QString()
                                            : tr("Key %1").arg(caps.join(QLatin1Char('+'))));
    updateGeometry();
    update();
}

int KeyButton::capsWidth() const {
    int width = 0;
    for (const QString& cap : caps_) width += Metrics::gap + keyCapSize(cap).width();
    return width;
}

QSize KeyButton::sizeHint() const { return QPushButton::sizeHint() + QSize(capsWidth(), 0); }

void KeyButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    // The text has the space before the caps.
    QStyleOptionButton label = option;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const bool showsCaps = width() >= sizeHint().width();
    const int taken = showsCaps ? capsWidth() : 0;
    label.rect.adjust(mirrored ? taken : 0, 0, mirrored ? 0 : -taken, 0);
    painter.drawControl(QStyle::CE_PushButtonLabel, label);
    if (!showsCaps) return;
    const QSize base = QPushButton::sizeHint();
    const int textEnd = base.width() / 2 - padding + Metrics::gap;
    int x = label.rect.center().x() + (mirrored ? -textEnd : textEnd);
    const Theme& theme = Theme::current();
    const QColor ink = !isEnabled()                          ? theme.off
                       : lookOf(this) == ButtonLook::primary ? theme.onAccent
                                                             : theme.text2;
    for (const QString& cap : caps_) {
        const QSize size = keyCapSize(cap);
        const int left = mirrored ? x - size.width() : x;
        drawKeyCap(painter, cap, {left, (height() - size.height()) / 2}, ink);
        x += (mirrored ? -1 : 1) * (size.width() + Metrics::gap);
    }
}

}  // namespace morva
