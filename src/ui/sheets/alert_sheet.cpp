// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/alert_sheet.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/widgets/icon_label.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr int alertWidth = 480;
constexpr int iconSide = 32;

}  // namespace

AlertSheet::AlertSheet(QWidget* window, const QString& title, const QString& message,
                       const QString& other)
    : Sheet(window, alertWidth) {
    setAccessibleName(title);
    setAccessibleDescription(message);
    auto* row = new QHBoxLayout;
    row->setSpacing(Metrics::panelPadding);
    row->setContentsMargins(0, Metrics::sheetPadding - 4, 0, Metrics::panelPadding);
    row->addWidget(new IconLabel(QStringLiteral("warning"), &Theme::review, iconSide), 0,
                   Qt::AlignTop);
    auto* column = new QVBoxLayout;
    column->setSpacing(Metrics::gap);
    column->addWidget(makeWrappedLabel(title, TextRole::title));
    column->addWidget(makeWrappedLabel(message, TextRole::body, Ink::text2));
    column->addStretch(1);
    row->addLayout(column, 1);
    body()->addLayout(row);
    auto* ok = addPrimaryButton(tr("OK"));
    ok->setAccessibleDescription(title + QStringLiteral(". ") + message);
    setFirstControl(ok);
    connect(ok, &QPushButton::clicked, this, &AlertSheet::acknowledged);
    if (!other.isEmpty()) {
        auto* way = addSecondaryButton(other);
        connect(way, &QPushButton::clicked, this, &AlertSheet::otherChosen);
    }
}

}  // namespace morva
