// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/preset_page.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "model/presets/preset_library.h"
#include "ui/panel/choice_box.h"
#include "ui/panel/preset_form.h"
#include "ui/panel/preset_icon.h"
#include "ui/panel/settle.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

/// Photos of the job that the preset crops.
int photosUsing(const WorkingJob& job, const Uuid& preset) {
    int count = 0;
    for (std::size_t i = 0; i < job.job().items.size(); ++i)
        count += job.solvedWith(i).presetID == preset ? 1 : 0;
    return count;
}

}  // namespace

PresetPage::PresetPage(AppState& state, QWidget* parent)
    : QWidget(parent),
      state_(state),
      choice_(new ChoiceBox(tr("Crop type"))),
      more_(new QToolButton),
      use_(makeWrappedLabel({}, TextRole::small, Ink::text3)),
      useForAll_(new QPushButton(tr("Use for all photos of this job"))),
      scroll_(new QScrollArea),
      form_(new PresetForm(state)),
      automatic_(new QWidget),
      inUse_(new QVBoxLayout(automatic_)) {
    more_->setIcon(icon(QStringLiteral("more")));
    more_->setAccessibleName(tr("What to do with presets"));
    more_->setToolTip(tr("New, duplicate, reset, delete, rules, backdrops, poses"));
    more_->setPopupMode(QToolButton::InstantPopup);
    more_->setMenu(new QMenu(more_));
    connect(more_->menu(), &QMenu::aboutToShow, this, &PresetPage::fillMenu);
    useForAll_->setProperty("morvaSmall", true);
    connect(useForAll_, &QPushButton::clicked, this,
            [this] { state_.choosePreset(state_.selectedPresetID()); });

    auto* top = new Section({}, Section::Kind::open);
    QVBoxLayout* head = top->body();
    auto* line = new QHBoxLayout;
    line->setSpacing(Metrics::gap);
    line->addWidget(choice_, 1);
    line->addWidget(more_, 0, Qt::AlignTop);
    head->addLayout(line);
    head->addWidget(use_);
    head->addWidget(useForAll_, 0, Qt::AlignLeading);
    inUse_->setContentsMargins(Metrics::panelPadding, 0, Metrics::panelPadding,
                               Metrics::panelPadding);
    inUse_->setSpacing(4);

    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(top);
    column->addWidget(automatic_);
    column->addWidget(form_);
    column->addStretch(1);
    scroll_->setWidget(content);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll_);

    connect(choice_, &QComboBox::activated, this, &PresetPage::chosen);
    connect(&state_, &AppState::presetsChanged, this, &PresetPage::refresh);
    connect(&state_, &AppState::selectedPresetChanged, this, &PresetPage::refresh);
    connect(&state_, &AppState::selectedJobChanged, this, &PresetPage::refresh);
    connect(&state_, &AppState::referenceBusyChanged, this, &PresetPage::refresh);
    connect(&state_, &AppState::jobChanged, this, [this](const Uuid& job) {
        if (job == state_.selectedJobID()) refresh();
    });
    for (std::size_t i = 0; i < PresetForm::parts; ++i)
        connect(form_->section(static_cast<PresetForm::Part>(i)), &Section::toggled, this,
                [this] { settleLayouts(*scroll_); });
    refresh();
}

void PresetPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (isOutdated_) refresh();
}

bool PresetPage::isAutomaticJob() const {
    const WorkingJob* open = state_.selectedJob();
    return open && open->job().autoAssign;
}

void PresetPage::refresh() {
    // A page that nobody sees is brought up to date when it is shown.
    isOutdated_ = !isVisible();
    if (isOutdated_ && !listed_.empty()) return;
    if (state_.presets().empty()) return;
    refreshChoice();
    const CropPreset* shown = state_.preset(state_.selectedPresetID());
    automatic_->setVisible(!shown);
    form_->setVisible(shown);
    refreshUse();
    if (shown)
        form_->show(*shown, !state_.isReadOnly());
    else
        refreshRules();
}

void PresetPage::refreshChoice() {
    std::vector<Listed> wanted{{PresetLibrary::autoPresetID(), "", "", {}}};
    for (const CropPreset& preset : state_.presets())
        wanted.push_back({preset.id, preset.name, preset.badge, preset.color});
    if (wanted != listed_) {
        listed_ = std::move(wanted);
        choice_->clear();
        choice_->addItem(tr("Automatic (rules)"));
        for (const CropPreset& preset : state_.presets())
            choice_->addItem(presetIcon(preset), asGiven(preset.name));
        choice_->updateGeometry();
    }
    const auto at = std::ranges::find(listed_, state_.selectedPresetID(), &Listed::id);
    choice_->setCurrentIndex(at == listed_.end() ? -1 : static_cast<int>(at - listed_.begin()));
    // Without a job there is nothing for rules to choose.
    const bool mayChoose = !state_.isReadOnly() || !state_.selectedJob() || isAutomaticJob();
    choice_->setEnabled(mayChoose);
}

void PresetPage::refreshUse() {
    const WorkingJob* open = state_.selectedJob();
    const CropPreset* shown = state_.preset(state_.selectedPresetID());
    useForAll_->setVisible(shown && isAutomaticJob() && !state_.isReadOnly());
    use_->setVisible(open || !shown);
    if (!shown) return use_->setText(tr("The rules choose the crop type of each photo."));
    if (!open) return;
    const int count = photosUsing(*open, shown->id);
    use_->setText(count == 0 ? tr("Used by no photo of this job.")
                             : tr("Used by %n photo(s) of this job. Changes re-crop them at once.",
                                  "", count));
}

void PresetPage::refreshRules() {
    qDeleteAll(rows_);
    rows_.clear();
    const auto add = [&](QWidget* row) {
        inUse_->addWidget(row, 0, Qt::AlignLeading);
        rows_.push_back(row);
    };
    const WorkingJob* open = state_.selectedJob();
    for (const CropPreset& preset : state_.presets()) {
        const int count = open ? photosUsing(*open, preset.id) : 0;
        if (open && count == 0) continue;
        const QString name = asGiven(preset.name);
        auto* button = new QPushButton(presetIcon(preset),
                                       open ? tr("%1: %n photo(s)", "", count).arg(name) : name);
        button->setIconSize({scaled(48), scaled(16)});
        button->setToolTip(tr("Show this crop type"));
        setLook(*button, ButtonLook::quiet);
        connect(button, &QPushButton::clicked, this,
                [this, id = preset.id] { state_.showPreset(id); });
        add(button);
    }
    auto* rules = new QPushButton(icon(QStringLiteral("rules")), tr("Edit Rules…"));
    rules->setEnabled(open && !state_.isReadOnly());
    connect(rules, &QPushButton::clicked, this, &PresetPage::rulesWanted);
    add(rules);
}

void PresetPage::chosen(int place) {
    const Uuid id = listed_[static_cast<std::size_t>(place)].id;
    // In a job that the rules crop, another preset is looked at; the rules go on choosing.
    if (isAutomaticJob() && id != PresetLibrary::autoPresetID())
        state_.showPreset(id);
    else
        state_.choosePreset(id);
    refresh();
}

void PresetPage::fillMenu() {
    QMenu* menu = more_->menu();
    // Clearing leaves the menus inside of it behind.
    qDeleteAll(menu->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    menu->clear();
    const bool mayChange = !state_.isReadOnly();
    const CropPreset* shown = state_.preset(state_.selectedPresetID());
    const auto add = [&](const QString& text, bool possible, auto act) {
        QAction* action = menu->addAction(text);
        action->setEnabled(possible);
        connect(action, &QAction::triggered, this, act);
    };
    const Uuid id = state_.selectedPresetID();
    add(tr("New Preset from Defaults"), mayChange,
        [this] { state_.newPreset(tr("New preset").toStdString()); });
    add(tr("Duplicate"), mayChange && shown, [this, id] { state_.duplicatePreset(id); });
    add(tr("Reset to Built-in Values"),
        mayChange && shown && PresetLibrary::replacement(id).has_value(),
        [this, id] { state_.resetPreset(id); });
    QMenu* rest = menu->addMenu(tr("Delete and Use Instead"));
    rest->setEnabled(mayChange && shown && state_.presets().size() > 1);
    for (const CropPreset& other : state_.presets()) {
        if (other.id == id) continue;
        QAction* action = rest->addAction(asGiven(other.name));
        connect(action, &QAction::triggered, this,
                [this, id, instead = other.id] { state_.deletePreset(id, instead); });
    }
    menu->addSeparator();
    const bool open = state_.selectedJob();
    add(tr("Edit Rules…"), open && mayChange, [this] { emit rulesWanted(); });
    add(tr("Backdrops…"), open && mayChange, [this] { emit backdropsWanted(); });
    add(tr("Teach a Pose…"), open && mayChange, [this] { emit posesWanted(); });
}

void PresetPage::revealExportSettings() {
    Section* exports = form_->section(PresetForm::Part::exports);
    exports->setOpen(true);
    const int top = exports->mapTo(scroll_->widget(), QPoint()).y();
    scroll_->ensureVisible(0, top + scroll_->viewport()->height() - 1, 0, 0);
    scroll_->ensureVisible(0, top, 0, 0);
    exports->head()->setFocus(Qt::OtherFocusReason);
}

}  // namespace morva
