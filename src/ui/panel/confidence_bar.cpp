// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/confidence_bar.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QStyle>

#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int barHeight = 8;
constexpr int markHeight = 16;
constexpr int markWidth = 2;

}  // namespace

ConfidenceBar::ConfidenceBar(QWidget* parent) : QWidget(parent) {
    setFixedHeight(markHeight);
    setAccessibleName(tr("Confidence"));
}

void ConfidenceBar::set(double confidence, double threshold) {
    confidence_ = std::clamp(confidence, 0.0, 1.0);
    threshold_ = std::clamp(threshold, 0.0, 1.0);
    setAccessibleDescription(
        tr("%1, approves itself at %2").arg(percent(confidence_), percent(threshold_)));
    update();
}

void ConfidenceBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::current();
    const auto placed = [&](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const int y = (height() - barHeight) / 2;
    drawBox(painter, placed(QRect(0, y, width(), barHeight)), theme.groove, QColor(),
            Metrics::badgeRadius);
    const int filled = static_cast<int>(std::lround(confidence_ * width()));
    if (filled > 0)
        drawBox(painter, placed(QRect(0, y, filled, barHeight)), theme.text, QColor(),
                Metrics::badgeRadius);
    // The mark is cut free of the bar, so that it is seen on the filled part as well.
    const int mark = std::clamp(static_cast<int>(std::lround(threshold_ * width())), markWidth,
                                width() - markWidth);
    painter.fillRect(placed(QRect(mark - markWidth, 0, 2 * markWidth, height())), theme.panel);
    painter.fillRect(placed(QRect(mark - markWidth / 2, 0, markWidth, height())),
                     theme.accentBright);
}

}  // namespace morva
