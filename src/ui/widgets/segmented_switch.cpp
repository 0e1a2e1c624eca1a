// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/segmented_switch.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>

#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"

namespace morva {

SegmentedSwitch::SegmentedSwitch(const QStringList& texts, QWidget* parent)
    : QWidget(parent), buttons_(new QButtonGroup(this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(2, 2, 2, 2);
    row->setSpacing(2);
    for (const QString& text : texts) {
        auto* button = new QPushButton(text);
        button->setCheckable(true);
        setLook(*button, ButtonLook::quiet);
        buttons_->addButton(button, static_cast<int>(buttons_->buttons().size()));
        row->addWidget(button, 1);
    }
    connect(buttons_, &QButtonGroup::idClicked, this, &SegmentedSwitch::choose);
}

int SegmentedSwitch::chosen() const { return buttons_->checkedId(); }

void SegmentedSwitch::setChosen(int place) {
    // An exclusive group does not let go of its last choice.
    buttons_->setExclusive(false);
    for (QAbstractButton* button : buttons_->buttons())
        button->setChecked(buttons_->id(button) == place);
    buttons_->setExclusive(true);
}

void SegmentedSwitch::setText(int place, const QString& text) {
    buttons_->button(place)->setText(text);
}

void SegmentedSwitch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::current();
    drawBox(painter, rect(), theme.field, theme.field == theme.sheet ? theme.edge : QColor(),
            Metrics::controlRadius + 1);
}

}  // namespace morva
