// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/inspector_bar.h"

#include <algorithm>

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

#include "app/key_table.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

/// What the button does and the key that does the same.
QString withKey(const QString& text, KeyAction action) {
    const auto all = KeyTable::bindings();
    const auto found = std::ranges::find(all, action, &KeyBinding::action);
    return found == all.end() ? text : InspectorBar::tr("%1, %2").arg(text, asGiven(found->caps));
}

QToolButton* makeButton(const QString& iconName, const QString& text, const QString& tip) {
    auto* button = new QToolButton;
    setLook(*button, ButtonLook::quiet);
    if (!iconName.isEmpty()) button->setIcon(icon(iconName));
    button->setText(text);
    button->setToolButtonStyle(iconName.isEmpty() ? Qt::ToolButtonTextOnly
                               : text.isEmpty()   ? Qt::ToolButtonIconOnly
                                                  : Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(tip);
    button->setAccessibleName(text.isEmpty() ? tip : text);
    return button;
}

class Divider final : public QWidget {
public:
    Divider() { setFixedSize(1, 24); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), Theme::current().line);
    }
};

}  // namespace

InspectorBar::InspectorBar(QWidget* parent)
    : QWidget(parent), position_(new ElidedLabel(TextRole::body, Ink::text2)) {
    back_ = makeButton(QStringLiteral("left"), tr("Grid"),
                       withKey(tr("Back to the grid"), KeyAction::backToGrid));
    guides_ = makeButton(QStringLiteral("guides"), tr("Guides"),
                         withKey(tr("Show guides and measured points"), KeyAction::toggleOverlay));
    guides_->setCheckable(true);
    result_ =
        makeButton(QStringLiteral("compare"), tr("Before / after"), tr("Show the finished crop"));
    result_->setCheckable(true);
    zoomOut_ = makeButton(QStringLiteral("minus"), {}, tr("Zoom out"));
    zoom_ = makeButton({}, tr("Fit"), tr("Show the whole photo"));
    zoomIn_ = makeButton(QStringLiteral("plus"), {}, tr("Zoom in"));
    const QString widest = percent(8.88);
    zoom_->setMinimumWidth(zoom_->fontMetrics().horizontalAdvance(widest) + 20);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::gap, 4, Metrics::gap, 4);
    row->setSpacing(Metrics::gap);
    row->addWidget(back_);
    row->addWidget(position_, 1);
    row->addWidget(guides_);
    row->addWidget(result_);
    row->addWidget(new Divider);
    row->addWidget(zoomOut_);
    row->addWidget(zoom_);
    row->addWidget(zoomIn_);
    setMinimumHeight(Metrics::barHeight);
    measure();

    connect(back_, &QToolButton::clicked, this, &InspectorBar::backWanted);
    connect(guides_, &QToolButton::clicked, this, &InspectorBar::guidesWanted);
    connect(result_, &QToolButton::clicked, this, &InspectorBar::resultWanted);
    connect(zoom_, &QToolButton::clicked, this, &InspectorBar::fitWanted);
    connect(zoomIn_, &QToolButton::clicked, this, &InspectorBar::zoomInWanted);
    connect(zoomOut_, &QToolButton::clicked, this, &InspectorBar::zoomOutWanted);
}

void InspectorBar::setWords(bool shown) {
    for (QToolButton* button : {back_, guides_, result_})
        button->setToolButtonStyle(shown ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    layout()->invalidate();
}

void InspectorBar::measure() {
    setWords(false);
    widthOfIcons_ = layout()->minimumSize().width();
    setWords(true);
    // Some of the position's words too.
    widthWithWords_ = layout()->minimumSize().width() + scaled(64);
}

QSize InspectorBar::minimumSizeHint() const {
    return {widthOfIcons_, layout()->minimumSize().height()};
}

void InspectorBar::resizeEvent(QResizeEvent*) { setWords(width() >= widthWithWords_); }

void InspectorBar::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        measure();
        setWords(width() >= widthWithWords_);
    }
    QWidget::changeEvent(event);
}

void InspectorBar::setPosition(const QString& text) { position_->setFullText(text); }

void InspectorBar::setGuides(bool shown) { guides_->setChecked(shown); }

void InspectorBar::setShowsResult(bool shows) { result_->setChecked(shows); }

void InspectorBar::setZoom(bool isFitted, double share) {
    const QString text = isFitted ? tr("Fit") : percent(share);
    zoom_->setText(text);
    zoom_->setAccessibleName(isFitted ? tr("Zoom: whole photo") : tr("Zoom: %1").arg(text));
    zoomOut_->setEnabled(!isFitted && zoomIn_->isEnabled());
}

void InspectorBar::setHasPhoto(bool has) {
    for (QToolButton* button : {guides_, result_, zoom_, zoomIn_}) button->setEnabled(has);
    if (!has) zoomOut_->setEnabled(false);
}

void InspectorBar::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Theme::current().strip);
}

}  // namespace morva
