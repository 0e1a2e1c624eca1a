// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/backdrop_sheet.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "ui/sheets/backdrop_lists.h"
#include "ui/sheets/backdrop_view.h"
#include "ui/widgets/icon_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/segmented_switch.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/small_pictures.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int sheetWidth = 1104;
constexpr int typesWidth = 288;

enum Feet { shown, notShown };

}  // namespace

BackdropSheet::BackdropSheet(AppState& state, QWidget* window)
    : Sheet(window, sheetWidth),
      state_(state),
      pictures_(new SmallPictures(state.thumbnails(), this)),
      feet_(new SegmentedSwitch({tr("Yes, feet show"), tr("No")})),
      types_(new BackdropTypeList(state, *pictures_)),
      platesTitle_(makeWrappedLabel({}, TextRole::emphasis)),
      choose_(new QPushButton(icon(QStringLiteral("folder")), tr("Choose…"))),
      plates_(new PlateList(state, *pictures_)),
      noPlates_(makeWrappedLabel(tr("No backdrop images found in the Backdrops folder next to the "
                                    "app. Use Choose to pick one from anywhere."),
                                 TextRole::small, Ink::text2)),
      zoom_(new SliderRow(tr("Backdrop zoom"), plateZoomInPercent())),
      vignette_(new SliderRow(tr("Vignette"), inPercent(0, 100, 1))),
      reflection_(new QCheckBox(tr("Floor reflection under the feet"))),
      view_(new BackdropView(state)) {
    setTitle(tr("Backdrop set-up"));
    setSentence(tr("Backdrops are remembered per crop type and reused on the next job."));
    auto* row = new QHBoxLayout;
    row->setSpacing(Metrics::sheetPadding);
    row->addLayout(makeTypes());
    row->addLayout(makePlates(), 1);
    row->addWidget(view_);
    body()->addLayout(row);
    auto* note = new QHBoxLayout;
    note->setSpacing(Metrics::gap);
    note->addWidget(new IconLabel(QStringLiteral("info"), &Theme::text2), 0, Qt::AlignTop);
    note->addWidget(
        makeWrappedLabel(tr("The child is cut out with a soft matte (refined around the hair) and "
                            "placed on the backdrop, so crops wider than the photo come out clean "
                            "and no longer go to Review for canvas."),
                         TextRole::small, Ink::text2),
        1);
    body()->addLayout(note);
    connect(addPrimaryButton(tr("Use These Backdrops")), &QPushButton::clicked, &state_.backdrops(),
            &BackdropSetup::apply);
    addCancelButton(tr("Cancel"));
    connectAll();
    refresh();
    // The photo at hand says which crop type is of interest.
    const WorkingJob* job = state_.selectedJob();
    const auto& selected = state_.selectedItemID();
    if (const auto index = job && selected ? job->indexOf(*selected) : std::nullopt)
        types_->setCurrent(job->solvedWith(*index).presetID);
}

QLayout* BackdropSheet::makeTypes() {
    auto* column = new QVBoxLayout;
    column->setSpacing(Metrics::gap);
    QLabel* question = makeWrappedLabel(tr("Is this shoot showing feet?"), TextRole::emphasis);
    feet_->setAccessibleName(question->text());
    column->addWidget(question);
    column->addWidget(feet_);
    column->addSpacing(Metrics::gap);
    column->addWidget(makeLabel(tr("Crop types of this job"), TextRole::label, Ink::text2));
    column->addWidget(types_, 1);
    types_->setFixedWidth(scaled(typesWidth));
    return column;
}

QLayout* BackdropSheet::makePlates() {
    auto* column = new QVBoxLayout;
    column->setSpacing(12);
    auto* head = new QHBoxLayout;
    head->addWidget(platesTitle_, 1);
    head->addWidget(choose_);
    choose_->setProperty("morvaSmall", true);
    choose_->setAccessibleDescription(tr("Choose a backdrop image from anywhere"));
    column->addLayout(head);
    column->addWidget(plates_, 1);
    column->addWidget(noPlates_);
    column->addWidget(zoom_);
    column->addWidget(vignette_);
    column->addWidget(reflection_);
    return column;
}

void BackdropSheet::connectAll() {
    BackdropSetup& setup = state_.backdrops();
    connect(&setup, &BackdropSetup::changed, this, &BackdropSheet::refresh);
    connect(this, &Sheet::cancelled, &setup, &BackdropSetup::dismiss);
    connect(feet_, &SegmentedSwitch::choose, &setup,
            [&setup](int answer) { setup.answerFeet(answer == Feet::shown); });
    connect(types_, &BackdropTypeList::currentTypeChanged, this, &BackdropSheet::refresh);
    connect(types_, &BackdropTypeList::toggled, this, &BackdropSheet::toggle);
    connect(choose_, &QPushButton::clicked, this, [this] {
        if (const auto type = types_->current()) emit plateWanted(*type);
    });
    connect(plates_, &PlateList::chosen, this, [this](const auto& plate) {
        change([&](BackdropSetup::Choice& choice) {
            choice.isOn = true;
            choice.plate = plate;
        });
    });
    connect(zoom_, &SliderRow::edited, this, [this](double share) {
        change([&](BackdropSetup::Choice& choice) { choice.zoom = share; });
    });
    connect(vignette_, &SliderRow::edited, this, [this](double share) {
        change([&](BackdropSetup::Choice& choice) { choice.vignette = share; });
    });
    connect(reflection_, &QCheckBox::clicked, this, [this](bool on) {
        change([&](BackdropSetup::Choice& choice) { choice.floorReflection = on; });
    });
}

void BackdropSheet::change(const std::function<void(BackdropSetup::Choice&)>& change) {
    const auto type = types_->current();
    if (!type) return;
    BackdropSetup::Choice choice = state_.backdrops().choice(*type);
    change(choice);
    state_.backdrops().choose(*type, choice);
}

void BackdropSheet::toggle(const Uuid& preset) {
    BackdropSetup& setup = state_.backdrops();
    const CropPreset* type = state_.preset(preset);
    // To want it is to say that feet show.
    if (type && type->framing == Framing::fullLength && setup.showsFeet() == false)
        setup.answerFeet(true);
    BackdropSetup::Choice choice = setup.choice(preset);
    choice.isOn = !choice.isOn;
    setup.choose(preset, choice);
}

void BackdropSheet::refresh() {
    const BackdropSetup& setup = state_.backdrops();
    if (!setup.isShown()) return;
    feet_->setChosen(!setup.showsFeet() ? -1 : *setup.showsFeet() ? Feet::shown : Feet::notShown);
    types_->refresh();
    const auto type = types_->current();
    const CropPreset* preset = type ? state_.preset(*type) : nullptr;
    platesTitle_->setText(preset ? tr("Backdrop for %1").arg(asGiven(preset->name)) : QString());
    plates_->refresh(type);
    noPlates_->setVisible(setup.isListed() && setup.plates().empty());
    const BackdropSetup::Choice choice = type ? setup.choice(*type) : BackdropSetup::Choice{};
    zoom_->setValue(choice.zoom);
    vignette_->setValue(choice.vignette);
    reflection_->setChecked(choice.floorReflection);
    for (QWidget* control : {static_cast<QWidget*>(plates_), static_cast<QWidget*>(choose_)})
        control->setEnabled(preset != nullptr);
    // A plate has its own light, and feet are seen at full length only.
    zoom_->setEnabled(choice.isOn && choice.plate);
    vignette_->setEnabled(choice.isOn && !choice.plate);
    reflection_->setEnabled(choice.isOn && preset && preset->framing == Framing::fullLength);
    view_->showType(type);
}

}  // namespace morva
