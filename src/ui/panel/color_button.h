// SPDX-License-Identifier: GPL-3.0-or-later
// A button that shows a colour and opens a small menu to choose another: a few swatches, or any
// colour by its hexadecimal name.
#pragma once

#include <span>

#include <QToolButton>

#include "model/presets/export_settings.h"

class QLineEdit;

namespace morva {

class ColorButton final : public QToolButton {
    Q_OBJECT

public:
    struct Swatch {
        QRgb color;
        const char* name;
    };

    /// `swatches` stay where they are.
    ColorButton(const QString& accessibleName, std::span<const Swatch> swatches,
                QWidget* parent = nullptr);

    void setColor(const Rgb& color);
    const Rgb& color() const { return color_; }
    QLineEdit* hexField() const { return hex_; }

    QSize sizeHint() const override;

signals:
    /// A person chose it.
    void picked(const morva::Rgb& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void pick(const QColor& color);

    Rgb color_{};
    QLineEdit* hex_;
};

}  // namespace morva
