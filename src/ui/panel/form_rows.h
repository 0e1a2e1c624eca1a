// SPDX-License-Identifier: GPL-3.0-or-later
// How the rows of the preset's form are laid out, and the scales that its numbers are shown on.
// Knows no preset.
#pragma once

#include <initializer_list>

#include <QDoubleSpinBox>

#include "ui/widgets/slider_row.h"

class QFormLayout;
class QVBoxLayout;

namespace morva {

/// "4" rather than "4.00".
class PlainSpinBox final : public QDoubleSpinBox {
public:
    using QDoubleSpinBox::QDoubleSpinBox;
    QString textFromValue(double value) const override { return locale().toString(value, 'g', 6); }
};

namespace FormRows {

/// Label at the left and control at the right, or below each other where that is too wide.
QFormLayout* add(QVBoxLayout* body);
/// `buddy`: what the label names, where that is not `control` itself.
void addRow(QFormLayout* rows, const QString& label, QWidget* control, QWidget* buddy = nullptr);
/// `stretched`: the place of the widget that takes the spare width; none of them by default.
QWidget* inOneLine(std::initializer_list<QWidget*> widgets, int stretched = -1);

SliderRow::Scale inDegrees(double least, double most);

}  // namespace FormRows

}  // namespace morva
