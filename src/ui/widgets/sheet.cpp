// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/sheet.h"

#include <algorithm>

#include <QAbstractButton>
#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

/// Kept free between a sheet and the window's border, on both sides together.
constexpr int windowMargin = 48;

class SheetFrame final : public QFrame {
public:
    using QFrame::QFrame;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Theme& theme = Theme::current();
        drawBox(painter, rect(), theme.sheet, theme.sheetEdge, Metrics::sheetRadius);
    }
};

}  // namespace

Sheet::Sheet(QWidget* window, int width)
    : QWidget(window),
      width_(scaled(width)),
      frame_(new SheetFrame(this)),
      title_(makeLabel({}, TextRole::sheetTitle)),
      sentence_(makeWrappedLabel({}, TextRole::body, Ink::text2)),
      scroll_(new QScrollArea),
      content_(new QWidget),
      body_(new QVBoxLayout(content_)),
      footerLine_(new QWidget),
      footer_(new QHBoxLayout) {
    hide();
    setFocusPolicy(Qt::NoFocus);
    auto* column = new QVBoxLayout(frame_);
    column->setContentsMargins(1, Metrics::sheetPadding, 1, 1);
    column->setSpacing(0);
    auto* head = new QVBoxLayout;
    head->setContentsMargins(Metrics::sheetPadding, 0, Metrics::sheetPadding, 12);
    head->setSpacing(Metrics::labelGap);
    head->addWidget(title_);
    head->addWidget(sentence_);
    sentence_->hide();
    column->addLayout(head);
    body_->setContentsMargins(Metrics::sheetPadding, 4, Metrics::sheetPadding,
                              Metrics::panelPadding);
    body_->setSpacing(12);
    scroll_->setWidget(content_);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    for (QWidget* see : {static_cast<QWidget*>(content_), scroll_->viewport()}) {
        QPalette palette = see->palette();
        palette.setColor(QPalette::Window, Theme::current().sheet);
        see->setPalette(palette);
    }
    column->addWidget(scroll_, 1);
    footerLine_->setFixedHeight(1);
    footerLine_->setAutoFillBackground(true);
    QPalette palette = footerLine_->palette();
    palette.setColor(QPalette::Window, Theme::current().line);
    footerLine_->setPalette(palette);
    column->addWidget(footerLine_);
    footer_->setContentsMargins(Metrics::sheetPadding, Metrics::panelPadding, Metrics::sheetPadding,
                                Metrics::panelPadding);
    footer_->setSpacing(Metrics::gap);
    footer_->addStretch(1);
    column->addLayout(footer_);
    window->installEventFilter(this);
    content_->installEventFilter(this);
}

Sheet* Sheet::openIn(const QWidget* window) {
    const auto sheets = window->findChildren<Sheet*>(QString(), Qt::FindDirectChildrenOnly);
    // The one opened last lies on top.
    for (auto at = sheets.rbegin(); at != sheets.rend(); ++at)
        if ((*at)->isOpen()) return *at;
    return nullptr;
}

void Sheet::open(QWidget* first) {
    if (!isOpen()) focusBefore_ = window()->focusWidget();
    place();
    show();
    raise();
    // A sheet that lies on another must also be the last among its siblings, see openIn.
    if (first) {
        first->setFocus(Qt::TabFocusReason);
    } else if (primary_) {
        primary_->setFocus(Qt::TabFocusReason);
    }
}

void Sheet::close() {
    if (!isOpen()) return;
    hide();
    if (focusBefore_) focusBefore_->setFocus(Qt::OtherFocusReason);
    emit closed();
}

void Sheet::setTitle(const QString& title) {
    title_->setText(title);
    setAccessibleName(title);
}

void Sheet::setSentence(const QString& sentence) {
    sentence_->setText(sentence);
    sentence_->setVisible(!sentence.isEmpty());
    setAccessibleDescription(sentence);
}

QPushButton* Sheet::addPrimaryButton(const QString& text) {
    primary_ = new QPushButton(text);
    setLook(*primary_, ButtonLook::primary);
    footer_->addWidget(primary_);
    return primary_;
}

QPushButton* Sheet::addCancelButton(const QString& text) {
    cancel_ = new QPushButton(text);
    const int at = primary_ ? footer_->indexOf(primary_) : footer_->count();
    footer_->insertWidget(at, cancel_);
    connect(cancel_, &QPushButton::clicked, this, &Sheet::cancelled);
    return cancel_;
}

void Sheet::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), Theme::current().scrim); }

void Sheet::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            if (cancel_)
                cancel_->click();
            else if (primary_)
                primary_->click();
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (auto* button = qobject_cast<QAbstractButton*>(window()->focusWidget());
                button && isAncestorOf(button) && qobject_cast<QPushButton*>(button))
                button->click();
            else if (primary_)
                primary_->click();
            break;
        default:
            break;
    }
    // Nothing below the sheet hears a key.
    event->accept();
}

void Sheet::mousePressEvent(QMouseEvent* event) { event->accept(); }

bool Sheet::focusNextPrevChild(bool next) {
    // Round and round inside of the sheet.
    QWidget* at = window()->focusWidget();
    if (!at || !isAncestorOf(at)) at = this;
    for (QWidget* step = next ? at->nextInFocusChain() : at->previousInFocusChain(); step != at;
         step = next ? step->nextInFocusChain() : step->previousInFocusChain()) {
        if (step != this && isAncestorOf(step) && step->isVisible() && step->isEnabled() &&
            (step->focusPolicy() & Qt::TabFocus) && !step->focusProxy()) {
            step->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return true;
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    const bool windowChanged = watched == parentWidget() && event->type() == QEvent::Resize;
    const bool contentChanged = watched == content_ && event->type() == QEvent::LayoutRequest;
    if ((windowChanged || contentChanged) && isOpen()) place();
    return QWidget::eventFilter(watched, event);
}

void Sheet::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    place();
}

void Sheet::place() {
    setGeometry(parentWidget()->rect());
    const int width = std::min(width_, this->width() - windowMargin);
    const QMargins margins = frame_->layout()->contentsMargins();
    const int inner = width - margins.left() - margins.right();
    const auto heightOf = [inner](QLayout* layout) {
        return layout->hasHeightForWidth() ? layout->totalHeightForWidth(inner)
                                           : layout->totalSizeHint().height();
    };
    scroll_->setFixedHeight(0);
    const int rest = heightOf(frame_->layout());
    const int content = heightOf(body_);
    const int room = height() - windowMargin - rest;
    scroll_->setFixedHeight(std::clamp(content, 0, std::max(room, 40)));
    const int height = rest + scroll_->height();
    frame_->setGeometry((this->width() - width) / 2, (this->height() - height) / 2, width, height);
}

}  // namespace morva
