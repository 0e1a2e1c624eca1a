// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/notice.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

struct Look {
    QString icon;
    QColor ink;
    QColor fill;
    QColor edge;
};

Look lookOf(Notice::Kind kind) {
    const Theme& theme = Theme::current();
    switch (kind) {
        case Notice::Kind::warning:
            return {QStringLiteral("warning"), theme.review, theme.reviewBox, theme.reviewBoxEdge};
        case Notice::Kind::failure:
            return {QStringLiteral("s-error"), theme.failed, theme.failedBox, theme.failedBoxEdge};
        case Notice::Kind::success:
            return {QStringLiteral("check"), theme.approved, theme.approvedBox,
                    theme.approvedBoxEdge};
        case Notice::Kind::info:
            return {QStringLiteral("info"), theme.accentBright, theme.panel, theme.sheetEdge};
    }
    return {};
}

}  // namespace

Notice::Notice(Kind kind, QWidget* parent)
    : QFrame(parent),
      kind_(kind),
      text_(makeWrappedLabel({}, TextRole::body)),
      action_(new QPushButton) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(36, 10, 12, 10);
    row->setSpacing(Metrics::gap);
    row->addWidget(text_, 1);
    row->addWidget(action_, 0, Qt::AlignTop);
    action_->setProperty("morvaSmall", true);
    action_->hide();
    connect(action_, &QPushButton::clicked, this, &Notice::actionTriggered);
}

void Notice::setText(const QString& text) {
    text_->setText(text);
    setAccessibleName(text);
}

void Notice::setAction(const QString& text) {
    action_->setText(text);
    action_->setVisible(!text.isEmpty());
}

void Notice::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Look look = lookOf(kind_);
    drawBox(painter, rect(), look.fill, look.edge, Metrics::controlRadius);
    const int side = 16;
    const int left = layoutDirection() == Qt::RightToLeft ? width() - 12 - side : 12;
    painter.drawPixmap(left, 12, iconPixmap(look.icon, look.ink, side, devicePixelRatioF()));
}

}  // namespace morva
