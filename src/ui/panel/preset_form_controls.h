// SPDX-License-Identifier: GPL-3.0-or-later
// The makers of the form's controls for one value each, for the files that build its sections; no
// one else includes this.
#pragma once

#include <algorithm>
#include <type_traits>

#include <QSignalBlocker>

#include "app/app_state.h"
#include "ui/panel/choice_box.h"
#include "ui/panel/preset_form.h"
#include "ui/panel/wrapped_check_box.h"
#include "ui/widgets/calm_wheel.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

/// One number of a preset: where it is kept, what it is called, what changing it is called, and
/// how it is shown.
struct PresetForm::Number {
    const char* key;
    QString label;
    const char* act;
    SliderRow::Scale scale;
};

template <class Access>
QWidget* PresetForm::slider(const Number& number, Access access, Effect hasEffect) {
    auto* row = new SliderRow(number.label, number.scale);
    connect(row, &SliderRow::edited, this, [this, access, act = number.act](double value) {
        edit(act, [&](CropPreset& preset) { access(preset) = value; });
    });
    connect(row, &SliderRow::held, &state_, &AppState::beginGesture);
    connect(row, &SliderRow::letGo, &state_, &AppState::endGesture);
    add(
        row, number.key, [row, access](Preset preset) { row->setValue(access(preset)); },
        std::move(hasEffect));
    return row;
}

template <class Access>
WrappedCheckBox* PresetForm::check(const char* key, const QString& label, const char* act,
                                   Access access, Effect hasEffect) {
    auto* box = new WrappedCheckBox(label);
    connect(box, &QCheckBox::clicked, this, [this, access, act](bool on) {
        edit(act, [&](CropPreset& preset) { access(preset) = on; });
    });
    add(
        box, key, [box, access](Preset preset) { box->setChecked(access(preset)); },
        std::move(hasEffect));
    return box;
}

template <class Access>
QWidget* PresetForm::choice(const char* key, const QString& label, const char* act, Access access,
                            Effect hasEffect) {
    using Value = std::decay_t<decltype(access(shown_))>;
    auto* box = new ChoiceBox(label);
    for (const Choice<Value>& one : choices<Value>()) box->addItem(said(one.label));
    connect(box, &QComboBox::activated, this, [this, access, act](int place) {
        edit(act, [&](CropPreset& preset) {
            access(preset) = choices<Value>()[static_cast<std::size_t>(place)].value;
        });
    });
    add(
        box, key,
        [box, access](Preset preset) {
            const auto all = choices<Value>();
            const auto at = std::ranges::find(all, access(preset), &Choice<Value>::value);
            box->setCurrentIndex(static_cast<int>(at - all.begin()));
        },
        std::move(hasEffect));
    return labelled(label, box);
}

template <class Spin, class Access>
Spin* PresetForm::spin(const Number& number, Access access) {
    using Value = std::decay_t<decltype(access(shown_))>;
    auto* box = new Spin;
    box->setRange(static_cast<Value>(number.scale.least), static_cast<Value>(number.scale.most));
    box->setSingleStep(static_cast<Value>(number.scale.step));
    box->setSuffix(number.scale.unit);
    box->setKeyboardTracking(false);
    box->setAccessibleName(number.label);
    box->setMinimumWidth(scaled(72));
    calmWheel(*box);
    connect(box, &Spin::valueChanged, this, [this, access, act = number.act](auto value) {
        edit(act, [&](CropPreset& preset) { access(preset) = static_cast<Value>(value); });
    });
    add(box, number.key, [box, access](Preset preset) {
        const QSignalBlocker quiet(box);
        const auto value = access(preset);
        if (value > static_cast<Value>(box->maximum())) box->setMaximum(value);
        if (value < static_cast<Value>(box->minimum())) box->setMinimum(value);
        if (box->value() != value) box->setValue(value);
    });
    return box;
}

}  // namespace morva
