// SPDX-License-Identifier: GPL-3.0-or-later
// The ten sections of the preset's page: a control for every value of a preset and of its export
// settings. Shows a preset by setting values, never by building anew, and hands every edit to the
// application state at once, with the name of the act.
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include <QWidget>

#include "model/presets/crop_preset.h"
#include "ui/panel/section.h"

class QFormLayout;
class QLineEdit;
class QVBoxLayout;

namespace morva {

class AppState;
class ReferenceBox;
class WrappedCheckBox;

class PresetForm final : public QWidget {
    Q_OBJECT

public:
    enum class Part {
        cropType,
        faceSize,
        placement,
        body,
        keepInside,
        leveling,
        review,
        reference,
        exports,
        backdrop,
    };
    static constexpr std::size_t parts = 10;

    explicit PresetForm(AppState& state, QWidget* parent = nullptr);

    /// `mayChange`: everything can be looked at otherwise and nothing edited.
    void show(const CropPreset& preset, bool mayChange);
    Section* section(Part part) const { return sections_[static_cast<std::size_t>(part)]; }
    /// Asks a person for a backdrop image; a test puts its own answer here.
    std::function<std::optional<std::filesystem::path>()> askForPlate;

private:
    using Preset = const CropPreset&;
    using Effect = std::function<bool(Preset)>;
    /// One control: how it shows the preset, and whether it has an effect there.
    struct Field {
        QWidget* control = nullptr;
        std::function<void(Preset)> show;
        Effect hasEffect;
    };
    struct Number;

    void edit(const char* act, const std::function<void(CropPreset&)>& change);
    void add(QWidget* control, const char* key, std::function<void(Preset)> show,
             Effect hasEffect = {});

    template <class Access>
    QWidget* slider(const Number& number, Access access, Effect hasEffect = {});
    template <class Access>
    WrappedCheckBox* check(const char* key, const QString& label, const char* act, Access access,
                           Effect hasEffect = {});
    template <class Access>
    QWidget* choice(const char* key, const QString& label, const char* act, Access access,
                    Effect hasEffect = {});
    template <class Spin, class Access>
    Spin* spin(const Number& number, Access access);
    QLineEdit* line(const char* key, const QString& label, const char* act,
                    std::string CropPreset::*text);

    QVBoxLayout* open(Part part, const QString& title);
    /// The label over the control; dimmed with `led`, the control itself where it is one.
    QWidget* labelled(const QString& label, QWidget* control, QWidget* led = nullptr);

    void buildCropType();
    void buildFaceSize();
    void buildPlacement();
    void buildBody();
    void buildKeepInside();
    void buildLeveling();
    void buildReview();
    void buildReference();
    void buildExport();
    void buildBackdrop();
    QWidget* ratioWarning();
    QWidget* sizeBox();
    QWidget* ratingBox();
    QWidget* plateRow();
    QWidget* backdropColorRow();

    AppState& state_;
    QVBoxLayout* column_;
    std::array<Section*, parts> sections_{};
    std::vector<Field> fields_;
    /// By the control that they belong to.
    std::unordered_map<const QWidget*, QWidget*> labels_;
    CropPreset shown_;
};

}  // namespace morva
