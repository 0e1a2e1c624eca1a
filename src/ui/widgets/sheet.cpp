// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/sheet.h"

#include <algorithm>

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
/// The border of the frame, which the parts inside leave free.
constexpr int border = 1;

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

/// The footer with the line above it.
class Foot final : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(0, 0, width(), 1, Theme::current().line);
    }
};

int heightFor(const QWidget& part, int width) {
    const QLayout& layout = *part.layout();
    return layout.hasHeightForWidth() ? layout.totalHeightForWidth(width)
                                      : layout.totalSizeHint().height();
}

}  // namespace

Sheet::Sheet(QWidget* window, int width)
    : QWidget(window),
      width_(scaled(width)),
      frame_(new SheetFrame(this)),
      head_(new QWidget(frame_)),
      titleLine_(new QHBoxLayout),
      title_(makeLabel({}, TextRole::sheetTitle)),
      sentence_(makeWrappedLabel({}, TextRole::body, Ink::text2)),
      scroll_(new QScrollArea(frame_)),
      content_(new QWidget),
      body_(new QVBoxLayout(content_)),
      foot_(new Foot),
      footer_(new QHBoxLayout(foot_)) {
    hide();
    setFocusPolicy(Qt::NoFocus);
    foot_->setParent(frame_);
    auto* head = new QVBoxLayout(head_);
    head->setContentsMargins(Metrics::sheetPadding, Metrics::sheetPadding, Metrics::sheetPadding,
                             12);
    head->setSpacing(Metrics::labelGap);
    titleLine_->setSpacing(Metrics::panelPadding);
    titleLine_->addWidget(title_, 1);
    head->addLayout(titleLine_);
    head->addWidget(sentence_);
    title_->setWordWrap(true);
    head_->hide();
    sentence_->hide();
    body_->setContentsMargins(Metrics::sheetPadding, 4, Metrics::sheetPadding,
                              Metrics::panelPadding);
    body_->setSpacing(12);
    scroll_->setWidget(content_);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    // The frame shows through.
    scroll_->viewport()->setAutoFillBackground(false);
    content_->setAutoFillBackground(false);
    footer_->setContentsMargins(Metrics::sheetPadding, Metrics::panelPadding, Metrics::sheetPadding,
                                Metrics::panelPadding);
    footer_->setSpacing(Metrics::gap);
    footer_->addStretch(1);
    for (QWidget* part : {head_, content_, foot_}) part->installEventFilter(this);
    window->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* to) { focusMoved(to); });
}

Sheet::~Sheet() {
    // Its controls still lose the focus on the way.
    disconnect(qApp, nullptr, this, nullptr);
}

QList<Sheet*> Sheet::openOnes(const QWidget* window) {
    // Qt keeps siblings in the order they lie in, the topmost last.
    QList<Sheet*> sheets = window->findChildren<Sheet*>(QString(), Qt::FindDirectChildrenOnly);
    sheets.removeIf([](const Sheet* sheet) { return !sheet->isOpen(); });
    return sheets;
}

Sheet* Sheet::openIn(const QWidget* window) {
    const auto sheets = openOnes(window);
    return sheets.isEmpty() ? nullptr : sheets.back();
}

void Sheet::open() {
    if (!isOpen()) focusBefore_ = window()->focusWidget();
    show();
    raise();
    place();
    // What has the focus is shown from the start, however the sheet was opened.
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    QWidget* first = first_ ? first_.data() : controlAfter(frame_, true);
    (first ? first : this)->setFocus(Qt::OtherFocusReason);
}

void Sheet::close() {
    if (!isOpen()) return;
    const Sheet* above = openIn(parentWidget());
    // A sheet that lies on this one must not give the focus back to it.
    for (Sheet* other : openOnes(parentWidget()))
        if (other != this && other->focusBefore_ && isAncestorOf(other->focusBefore_))
            other->focusBefore_ = focusBefore_;
    hide();
    if (above == this && focusBefore_) focusBefore_->setFocus(Qt::OtherFocusReason);
    emit closed();
}

void Sheet::setTitle(const QString& title) {
    title_->setText(title);
    head_->show();
    setAccessibleName(title);
}

void Sheet::setSentence(const QString& sentence) {
    sentence_->setText(sentence);
    sentence_->setVisible(!sentence.isEmpty());
    setAccessibleDescription(sentence);
}

void Sheet::addBesideTitle(QWidget* control) { titleLine_->addWidget(control); }

void Sheet::addToFooter(QWidget* control, int stretch) {
    footer_->insertWidget(footerStart_++, control, stretch);
}

QPushButton* Sheet::addPrimaryButton(const QString& text) {
    primary_ = new QPushButton(text);
    setLook(*primary_, ButtonLook::primary);
    footer_->addWidget(primary_);
    return primary_;
}

QPushButton* Sheet::addCancelButton(const QString& text) {
    cancel_ = new QPushButton(text);
    footer_->insertWidget(primary_ ? footer_->indexOf(primary_) : footer_->count(), cancel_);
    if (primary_) setTabOrder(cancel_, primary_);
    connect(cancel_, &QPushButton::clicked, this, &Sheet::cancelled);
    return cancel_;
}

QPushButton* Sheet::addSecondaryButton(const QString& text) {
    auto* button = new QPushButton(text);
    footer_->insertWidget(primary_ ? footer_->indexOf(primary_) : footer_->count(), button);
    if (primary_) setTabOrder(button, primary_);
    return button;
}

bool Sheet::event(QEvent* event) {
    // Keys that are acts of the window are not acts while a sheet lies over it.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void Sheet::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), Theme::current().scrim); }

void Sheet::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            if (QPushButton* button = cancel_ ? cancel_ : primary_) button->click();
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (auto* button = qobject_cast<QPushButton*>(window()->focusWidget());
                button && !button->isCheckable() && isAncestorOf(button))
                button->click();
            else if (QPushButton* only = primary_ ? primary_ : cancel_)
                only->click();
            break;
        default:
            break;
    }
    // Nothing below the sheet hears a key.
    event->accept();
}

void Sheet::mousePressEvent(QMouseEvent* event) { event->accept(); }
void Sheet::wheelEvent(QWheelEvent* event) { event->accept(); }

QWidget* Sheet::controlAfter(QWidget* from, bool next) const {
    const auto step = [next](QWidget* at) {
        return next ? at->nextInFocusChain() : at->previousInFocusChain();
    };
    for (QWidget* at = step(from); at != from; at = step(at))
        if (isAncestorOf(at) && at->isVisible() && at->isEnabled() &&
            (at->focusPolicy() & Qt::TabFocus) && !at->focusProxy())
            return at;
    return nullptr;
}

bool Sheet::focusNextPrevChild(bool next) {
    // Round and round inside of the sheet.
    QWidget* at = window()->focusWidget();
    QWidget* to = controlAfter(at && isAncestorOf(at) ? at : frame_, next);
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    if (to) to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void Sheet::focusMoved(QWidget* to) {
    // Lists that drop down, menus and dialogs for files are windows of their own.
    if (!to || !isVisible() || to->window() != window() || openIn(parentWidget()) != this) return;
    if (to == this || isAncestorOf(to)) {
        focusInside_ = to;
        if (content_->isAncestorOf(to)) scroll_->ensureWidgetVisible(to);
    } else {
        (focusInside_ ? focusInside_.data() : this)->setFocus(Qt::OtherFocusReason);
    }
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    const bool windowChanged = watched == parentWidget() && event->type() == QEvent::Resize;
    const bool partChanged = watched != parentWidget() && event->type() == QEvent::LayoutRequest;
    if ((windowChanged || partChanged) && isOpen()) place();
    return QWidget::eventFilter(watched, event);
}

void Sheet::place() {
    setGeometry(parentWidget()->rect());
    const int wide = std::min(width_, width() - windowMargin);
    const int inner = wide - 2 * border;
    const int head = head_->isVisibleTo(this) ? heightFor(*head_, inner) : 0;
    const int foot = heightFor(*foot_, inner);
    const int room = height() - windowMargin - 2 * border - head - foot;
    const int middle = std::clamp(heightFor(*content_, inner), 0, std::max(room, 0));
    const int high = head + middle + foot + 2 * border;
    frame_->setGeometry((width() - wide) / 2, (height() - high) / 2, wide, high);
    head_->setGeometry(border, border, inner, head);
    scroll_->setGeometry(border, border + head, inner, middle);
    foot_->setGeometry(border, border + head + middle, inner, foot);
    // What is new may have pushed the control in hand out of sight.
    if (focusInside_ && content_->isAncestorOf(focusInside_)) {
        content_->layout()->activate();
        scroll_->ensureWidgetVisible(focusInside_);
    }
}

}  // namespace morva
