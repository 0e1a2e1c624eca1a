// SPDX-License-Identifier: GPL-3.0-or-later
// The portrait that a preset is modelled on: what was measured on it, drawn and in words, and the
// buttons to choose another or none.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <unordered_map>

#include <QWidget>

#include "model/presets/crop_preset.h"

class QLabel;
class QPushButton;

namespace morva {

class AppState;
class ElidedLabel;
class ReferencePicture;

class ReferenceBox final : public QWidget {
    Q_OBJECT

public:
    explicit ReferenceBox(AppState& state, QWidget* parent = nullptr);

    void show(const CropPreset& preset, bool mayChange);
    /// Asks a person for an image; a test puts its own answer here.
    std::function<std::optional<std::filesystem::path>()> askForImage;

private:
    void choose();

    AppState& state_;
    /// Where the image of a preset lies, as far as it was chosen since the program started: the
    /// preset keeps only its name.
    std::unordered_map<Uuid, std::filesystem::path> files_;
    Uuid preset_;
    struct Shown {
        std::optional<ReferenceGeometry> reference;
        bool mayChange = false;
        bool isBusy = false;
        bool operator==(const Shown&) const = default;
    };
    std::optional<Shown> shown_;
    ReferencePicture* picture_;
    ElidedLabel* name_;
    QLabel* values_;
    QPushButton* choose_;
    QPushButton* clear_;
};

}  // namespace morva
