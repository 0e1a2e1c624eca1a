// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/slider_row.h"

#include <algorithm>
#include <cmath>

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>

#include "ui/widgets/calm_wheel.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

namespace morva {

SliderRow::SliderRow(const QString& label, const Scale& scale, QWidget* parent)
    : QWidget(parent),
      scale_(scale),
      label_(makeWrappedLabel(label, TextRole::body, Ink::text2)),
      box_(new QDoubleSpinBox),
      slider_(new QSlider(Qt::Horizontal)) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Metrics::gap);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(0, 1);
    grid->addWidget(label_, 0, 0);
    grid->addWidget(box_, 0, 1, Qt::AlignVCenter);
    grid->addWidget(slider_, 1, 0, 1, 2);
    box_->setDecimals(scale.decimals);
    box_->setRange(scale.least, scale.most);
    box_->setSingleStep(scale.step);
    box_->setSuffix(scale.unit);
    box_->setAlignment(Qt::AlignLeading);
    // A number is taken when it is complete: "21.5" must not crop by 2 and 21 on the way.
    box_->setKeyboardTracking(false);
    // Enough for "100.0 %", so that the boxes of a column are alike.
    box_->setMinimumWidth(scaled(96));
    box_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    box_->setAccessibleName(label);
    label_->setBuddy(box_);
    slider_->setRange(0, position(scale.most));
    slider_->setSingleStep(1);
    slider_->setPageStep(std::max(1, position(scale.most) / 20));
    slider_->setAccessibleName(label);
    calmWheel(*box_);
    calmWheel(*slider_);
    connect(box_, &QDoubleSpinBox::valueChanged, this, &SliderRow::take);
    connect(slider_, &QSlider::sliderPressed, this, &SliderRow::held);
    connect(slider_, &QSlider::sliderReleased, this, &SliderRow::letGo);
    connect(slider_, &QSlider::valueChanged, this,
            [this](int place) { take(scale_.least + place * scale_.step); });
}

int SliderRow::position(double shown) const {
    return static_cast<int>(std::lround((shown - scale_.least) / scale_.step));
}

double SliderRow::value() const { return box_->value() / scale_.factor; }

void SliderRow::setValue(double value) {
    const double shown = value * scale_.factor;
    const QSignalBlocker quietBox(box_);
    const QSignalBlocker quietSlider(slider_);
    if (shown < box_->minimum()) box_->setMinimum(shown);
    if (shown > box_->maximum()) box_->setMaximum(shown);
    // Setting what is there already would take away what a person is typing.
    const double precision = std::pow(10, -scale_.decimals) / 2;
    if (std::abs(box_->value() - shown) > precision) box_->setValue(shown);
    slider_->setValue(position(shown));
}

void SliderRow::take(double shown) {
    {
        const QSignalBlocker quietBox(box_);
        const QSignalBlocker quietSlider(slider_);
        box_->setValue(shown);
        slider_->setValue(position(shown));
    }
    emit edited(box_->value() / scale_.factor);
}

SliderRow::Scale inPercent(double least, double most, double step) {
    return {100, SliderRow::tr(" %", "after a number"), step < 1 ? 1 : 0, least, most, step};
}

SliderRow::Scale plateZoomInPercent() { return inPercent(100, 300, 1); }

}  // namespace morva
