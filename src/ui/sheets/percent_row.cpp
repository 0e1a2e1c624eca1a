// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/percent_row.h"

#include <cmath>

#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>

#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr int boxWidth = 80;

}  // namespace

PercentRow::PercentRow(const QString& label, int least, int most, QWidget* parent)
    : QWidget(parent), box_(new QSpinBox), slider_(new QSlider(Qt::Horizontal)) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(0, 1);
    QLabel* text = makeWrappedLabel(label, TextRole::body, Ink::text2);
    text->setBuddy(box_);
    grid->addWidget(text, 0, 0);
    grid->addWidget(box_, 0, 1);
    grid->addWidget(slider_, 1, 0, 1, 2);
    box_->setRange(least, most);
    box_->setSuffix(tr(" %", "after a number"));
    box_->setSingleStep(5);
    box_->setKeyboardTracking(false);
    box_->setMinimumWidth(scaled(boxWidth));
    slider_->setRange(least, most);
    slider_->setPageStep(10);
    for (QWidget* control : {static_cast<QWidget*>(box_), static_cast<QWidget*>(slider_)})
        control->setAccessibleName(label);
    connect(slider_, &QSlider::valueChanged, box_, &QSpinBox::setValue);
    connect(box_, &QSpinBox::valueChanged, this, [this](int percents) {
        const QSignalBlocker quiet(slider_);
        slider_->setValue(percents);
        emit edited(percents / 100.0);
    });
}

void PercentRow::setShare(double share) {
    const QSignalBlocker quiet[] = {QSignalBlocker(box_), QSignalBlocker(slider_)};
    const int percents = static_cast<int>(std::lround(share * 100));
    box_->setValue(percents);
    slider_->setValue(percents);
}

}  // namespace morva
