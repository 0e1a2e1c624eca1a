// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/preset_form.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "ui/panel/preset_form_words.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

PresetForm::PresetForm(AppState& state, QWidget* parent)
    : QWidget(parent), state_(state), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(0);
    buildCropType();
    buildFaceSize();
    buildPlacement();
    buildBody();
    buildKeepInside();
    buildLeveling();
    buildReview();
    buildReference();
    buildExport();
    buildBackdrop();
    column_->addStretch(1);
    section(Part::faceSize)->setOpen(true);
    section(Part::placement)->setOpen(true);
}

QVBoxLayout* PresetForm::open(Part part, const QString& title) {
    auto* made = new Section(title);
    sections_[static_cast<std::size_t>(part)] = made;
    column_->addWidget(made);
    return made->body();
}

void PresetForm::add(QWidget* control, const char* key, std::function<void(Preset)> show,
                     Effect hasEffect) {
    control->setObjectName(QString::fromLatin1(key));
    fields_.push_back({control, std::move(show), std::move(hasEffect)});
}

void PresetForm::edit(const char* act, const std::function<void(CropPreset&)>& change) {
    const CropPreset* current = state_.preset(shown_.id);
    if (!current) return;
    CropPreset changed = *current;
    change(changed);
    if (changed != *current) state_.updatePreset(changed, act);
}

void PresetForm::show(const CropPreset& preset, bool mayChange) {
    shown_ = preset;
    for (const Field& field : fields_) {
        field.show(preset);
        const bool enabled = mayChange && (!field.hasEffect || field.hasEffect(preset));
        field.control->setEnabled(enabled);
        if (const auto label = labels_.find(field.control); label != labels_.end())
            label->second->setEnabled(enabled);
    }
    for (std::size_t i = 0; i < parts; ++i)
        sections_[i]->setValue(PresetFormWords::mainValue(static_cast<Part>(i), preset));
}

QLineEdit* PresetForm::line(const char* key, const QString& label, const char* act,
                            std::string CropPreset::*text) {
    auto* field = new QLineEdit;
    field->setAccessibleName(label);
    field->setMinimumWidth(scaled(72));
    connect(field, &QLineEdit::editingFinished, this, [this, field, act, text] {
        const std::string typed = field->text().trimmed().toStdString();
        // A preset without a name could not be chosen; a badge may be empty.
        if (typed.empty() && text == &CropPreset::name)
            field->setText(asGiven(shown_.*text));
        else
            edit(act, [&](CropPreset& preset) { preset.*text = typed; });
    });
    add(field, key, [field, text, before = std::string()](Preset preset) mutable {
        if (preset.*text == before && !field->text().isEmpty()) return;
        before = preset.*text;
        field->setText(asGiven(before));
    });
    return field;
}

QWidget* PresetForm::labelled(const QString& label, QWidget* control, QWidget* led) {
    auto* block = new QWidget;
    auto* column = new QVBoxLayout(block);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::labelGap);
    QLabel* words = makeWrappedLabel(label, TextRole::body, Ink::text2);
    words->setBuddy(led ? led : control);
    labels_.emplace(led ? led : control, words);
    column->addWidget(words);
    column->addWidget(control);
    return block;
}

}  // namespace morva
