// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/form_rows.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

namespace morva::FormRows {

QFormLayout* add(QVBoxLayout* body) {
    auto* rows = new QFormLayout;
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setHorizontalSpacing(12);
    rows->setVerticalSpacing(Metrics::gap);
    rows->setRowWrapPolicy(QFormLayout::WrapLongRows);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows->setLabelAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    body->addLayout(rows);
    return rows;
}

void addRow(QFormLayout* rows, const QString& label, QWidget* control, QWidget* buddy) {
    QLabel* words = makeLabel(label, TextRole::body, Ink::text2);
    words->setMinimumHeight(scaled(Metrics::fieldHeight));
    words->setBuddy(buddy ? buddy : control);
    rows->addRow(words, control);
}

QWidget* inOneLine(std::initializer_list<QWidget*> widgets, int stretched) {
    auto* line = new QWidget;
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gap);
    int place = 0;
    for (QWidget* widget : widgets) row->addWidget(widget, place++ == stretched ? 1 : 0);
    if (stretched < 0) row->addStretch(1);
    return line;
}

SliderRow::Scale inDegrees(double least, double most) {
    return {1, QStringLiteral("°"), 1, least, most, 0.1};
}

}  // namespace morva::FormRows
