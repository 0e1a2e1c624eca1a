// SPDX-License-Identifier: GPL-3.0-or-later
// A choice among presets, each with its badge.
#pragma once

#include <span>

#include <QComboBox>

#include "base/uuid.h"
#include "model/presets/crop_preset.h"

namespace morva {

class PresetBox final : public QComboBox {
    Q_OBJECT

public:
    explicit PresetBox(std::span<const CropPreset> presets, QWidget* parent = nullptr);

    /// Without telling of it. A preset that is gone shows as such.
    void setPreset(const Uuid& preset);

signals:
    /// By a person.
    void chosen(const morva::Uuid& preset);

private:
    std::vector<Uuid> presets_;
};

}  // namespace morva
