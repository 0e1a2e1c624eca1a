// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/section.h"

#include <algorithm>

#include <QAbstractButton>
#include <QPainter>
#include <QStyleOption>
#include <QVBoxLayout>

#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr int arrowSide = 12;
/// From the panel's edge to the arrow, and from the arrow to the heading.
constexpr int arrowGap = 6;

}  // namespace

class SectionHead final : public QAbstractButton {
public:
    SectionHead(const QString& title, Section::Kind kind, QWidget* parent)
        : QAbstractButton(parent), collapsible_(kind == Section::Kind::collapsible) {
        setText(title);
        setAccessibleName(title);
        setCheckable(collapsible_);
        setFocusPolicy(collapsible_ ? Qt::StrongFocus : Qt::NoFocus);
        setAttribute(Qt::WA_Hover, collapsible_);
        QSizePolicy policy(QSizePolicy::Expanding,
                           collapsible_ ? QSizePolicy::Fixed : QSizePolicy::Minimum);
        policy.setHeightForWidth(!collapsible_);
        setSizePolicy(policy);
    }

    const QString& value() const { return value_; }
    void setValue(const QString& value) {
        if (value == value_) return;
        value_ = value;
        setAccessibleDescription(value);
        if (!collapsible_) updateGeometry();
        update();
    }
    bool isCollapsible() const { return collapsible_; }

    QSize sizeHint() const override {
        return {titleWidth() + 2 * Metrics::panelPadding + textStart(), lineHeight()};
    }
    bool hasHeightForWidth() const override { return !collapsible_; }
    int heightForWidth(int width) const override {
        return lineHeight() + (valueIsBelow(width) ? scaled(20) : 0);
    }
    QSize minimumSizeHint() const override { return {scaled(40), sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Theme& theme = Theme::current();
        QStyleOption option;
        option.initFrom(this);
        const QRect inner = rect().adjusted(Metrics::panelPadding, 0, -Metrics::panelPadding, 0);
        if (collapsible_) {
            if (underMouse()) painter.fillRect(rect(), theme.cellHover);
            const QRect arrow =
                visual(QRect(inner.x() - 2, (height() - arrowSide) / 2, arrowSide, arrowSide));
            painter.drawPixmap(
                arrow.topLeft(),
                iconPixmap(isChecked() ? QStringLiteral("down") : QStringLiteral("right"),
                           theme.text2, arrowSide, devicePixelRatioF()));
        }
        QRect line = inner.adjusted(textStart(), 0, 0, 0);
        line.setHeight(lineHeight());
        painter.setFont(fontFor(TextRole::section));
        painter.setPen(theme.text);
        const QString title =
            painter.fontMetrics().elidedText(text(), Qt::ElideRight, line.width());
        const int used = painter.fontMetrics().horizontalAdvance(title);
        painter.drawText(visual(line), leading() | Qt::AlignVCenter, title);
        if (!collapsible_ && valueIsBelow(width()))
            drawValue(painter, inner.adjusted(0, lineHeight(), 0, 0), Qt::AlignLeft);
        else if (!isChecked())
            drawValue(painter, line.adjusted(used + Metrics::gap, 0, 0, 0), Qt::AlignRight);
        const bool focused = (option.state & QStyle::State_HasFocus) &&
                             (option.state & QStyle::State_KeyboardFocusChange);
        if (focused)
            drawBox(painter, QRectF(rect()).adjusted(2, 2, -2, -2), QColor(), theme.accentBright,
                    Metrics::controlRadius, theme.ring);
    }

private:
    int titleWidth() const {
        return QFontMetrics(fontFor(TextRole::section)).horizontalAdvance(text());
    }
    int lineHeight() const { return scaled(collapsible_ ? Metrics::sectionHeight : 28); }
    /// Beside the title there is no room for the whole value.
    bool valueIsBelow(int width) const {
        const int value = QFontMetrics(fontFor(TextRole::small)).horizontalAdvance(value_);
        return titleWidth() + Metrics::gap + value > width - 2 * Metrics::panelPadding;
    }
    int textStart() const { return collapsible_ ? arrowSide + arrowGap - 2 : 0; }
    Qt::Alignment leading() const {
        return QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    }
    QRect visual(const QRect& logical) const {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    }
    void drawValue(QPainter& painter, const QRect& room, Qt::Alignment side) {
        painter.setFont(fontFor(TextRole::small));
        painter.setPen(Theme::current().text2);
        const QString shown =
            painter.fontMetrics().elidedText(value_, Qt::ElideMiddle, room.width());
        painter.drawText(visual(room),
                         QStyle::visualAlignment(layoutDirection(), side) | Qt::AlignVCenter,
                         shown);
    }

    bool collapsible_;
    QString value_;
};

Section::Section(const QString& title, Kind kind, QWidget* parent)
    : QWidget(parent),
      head_(new SectionHead(title, kind, this)),
      content_(new QWidget(this)),
      body_(new QVBoxLayout(content_)) {
    const bool collapsible = kind == Kind::collapsible;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, collapsible ? 0 : 8, 0, 1);
    head_->setVisible(!title.isEmpty());
    column->setSpacing(0);
    column->addWidget(head_);
    column->addWidget(content_);
    const int above = title.isEmpty() ? Metrics::gap - 2 : collapsible ? 2 : 0;
    body_->setContentsMargins(Metrics::panelPadding, above, Metrics::panelPadding,
                              Metrics::panelPadding - 4);
    body_->setSpacing(Metrics::gap);
    content_->setVisible(!collapsible);
    connect(head_, &QAbstractButton::toggled, this, [this](bool open) {
        content_->setVisible(open);
        emit toggled(open);
    });
}

void Section::setValue(const QString& value) { head_->setValue(value); }

QString Section::value() const { return head_->value(); }

bool Section::isOpen() const { return !head_->isCollapsible() || head_->isChecked(); }

void Section::setOpen(bool open) {
    if (head_->isCollapsible()) head_->setChecked(open);
}

QWidget* Section::head() const { return head_->isCollapsible() ? head_ : nullptr; }

void Section::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(0, height() - 1, width(), 1, Theme::current().line);
}

}  // namespace morva
