// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/stat_tile.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "ui/widgets/icon_label.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

StatTile::StatTile(const QString& icon, QColor Theme::*ink, QWidget* parent)
    : QFrame(parent),
      figure_(makeLabel({}, TextRole::figure)),
      caption_(makeWrappedLabel({}, TextRole::small, Ink::text2)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(Metrics::labelGap);
    auto* row = new QHBoxLayout;
    row->setSpacing(Metrics::gap);
    row->addWidget(new IconLabel(icon, ink));
    row->addWidget(figure_, 1);
    column->addLayout(row);
    column->addWidget(caption_);
    column->addStretch(1);
}

void StatTile::setCount(int count, const QString& caption) {
    count_ = count;
    figure_->setText(morva::count(count));
    caption_->setText(caption);
    setAccessibleName(figure_->text() + QLatin1Char(' ') + caption);
}

void StatTile::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::current();
    // In high contrast the surfaces are one black, and the box needs its edge.
    drawBox(painter, rect(), theme.strip, theme.strip == theme.sheet ? theme.edge : QColor(),
            Metrics::controlRadius);
}

}  // namespace morva
