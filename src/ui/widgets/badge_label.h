// SPDX-License-Identifier: GPL-3.0-or-later
// The badge of a preset as a widget, for rows that are made of widgets.
#pragma once

#include <QWidget>

#include "model/presets/crop_preset.h"

namespace morva {

class BadgeLabel final : public QWidget {
    Q_OBJECT

public:
    explicit BadgeLabel(const CropPreset& preset, QWidget* parent = nullptr);

    void setPreset(const CropPreset& preset);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CropPreset preset_;
};

}  // namespace morva
