// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/rules_sheet.h"

#include <algorithm>
#include <set>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QUndoStack>

#include "app/app_state.h"
#include "crop/crop_rules.h"
#include "model/presets/preset_library.h"
#include "poses/pose_store.h"
#include "ui/sheets/rule_list.h"
#include "ui/sheets/rule_row.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int sheetWidth = 800;

/// The names of the columns over a line.
class Heads final : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(0, height() - 1, width(), 1, Theme::current().line);
    }
};

/// The poses that the photos of a job were found to show.
std::set<std::string> tagsOf(const Job& job) {
    std::set<std::string> tags;
    for (const ImageItem& item : job.items)
        if (item.analysis) tags.insert(item.analysis->tags.begin(), item.analysis->tags.end());
    return tags;
}

QStringList listed(const std::set<std::string>& tags) {
    QStringList list;
    for (const std::string& tag : tags) list << asGiven(tag);
    return list;
}

}  // namespace

RulesSheet::RulesSheet(AppState& state, QWidget* window)
    : Sheet(window, sheetWidth),
      state_(state),
      automatic_(new QCheckBox(tr("Automatic (rules)"))),
      list_(new RuleList(state.presets())),
      summary_(makeWrappedLabel({}, TextRole::small, Ink::text2)) {
    const Job& job = state_.selectedJob()->job();
    setTitle(tr("Crop-type rules"));
    setSentence(
        tr("Rules are tried top to bottom; the first match wins. Ratings and labels come "
           "from Lightroom, signs and backpacks are detected in the photo."));
    automatic_->setChecked(job.autoAssign);
    automatic_->setToolTip(
        tr("Crop preset for this job, or Automatic to pick one per photo by the rules"));
    automatic_->setAccessibleDescription(automatic_->toolTip());
    body()->addWidget(automatic_, 0, Qt::AlignLeading);
    body()->addWidget(makeHeads());
    body()->addWidget(list_);
    list_->setRules(job.rules);
    list_->setPoses(listed(tagsOf(job)));

    auto* add = new QPushButton(icon(QStringLiteral("plus")), tr("Add Rule"));
    auto* defaults = new QPushButton(tr("Restore Defaults"));
    setLook(*defaults, ButtonLook::quiet);
    addToFooter(add);
    addToFooter(defaults);
    addToFooter(summary_, 100);
    summary_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* done = addPrimaryButton(tr("Done"));
    addCancelButton(tr("Cancel"));
    connect(add, &QPushButton::clicked, this, &RulesSheet::addRule);
    connect(defaults, &QPushButton::clicked, this, [this] {
        list_->setRules(CropRules::defaults(state_.presets()));
        refreshCounts();
    });
    connect(done, &QPushButton::clicked, this, &RulesSheet::apply);
    connect(this, &Sheet::cancelled, this, &Sheet::close);
    connect(list_, &RuleList::edited, this, &RulesSheet::refreshCounts);
    connect(automatic_, &QCheckBox::toggled, this, &RulesSheet::refreshCounts);
    askForPoses();
    refreshCounts();
}

QWidget* RulesSheet::makeHeads() {
    auto* heads = new Heads;
    const RuleRow::Columns columns = RuleRow::columns();
    auto* row = new QHBoxLayout(heads);
    row->setContentsMargins(8, 0, 20, Metrics::gap);
    row->setSpacing(columns.gap);
    row->addSpacing(columns.beforeTitle);
    row->addWidget(makeLabel(tr("When a photo shows"), TextRole::small, Ink::text2), 1);
    QLabel* use = makeLabel(tr("Use"), TextRole::small, Ink::text2);
    use->setFixedWidth(columns.preset);
    QLabel* photos = makeLabel(tr("Photos"), TextRole::small, Ink::text2);
    photos->setMinimumWidth(columns.count);
    photos->setAlignment(Qt::AlignRight);
    row->addWidget(use);
    row->addWidget(photos);
    row->addSpacing(columns.more + columns.gap);
    return heads;
}

void RulesSheet::askForPoses() {
    state_.background().run(
        [folder = state_.services().folders.data] { return PoseStore(folder).load(); },
        [self = QPointer(this)](const PoseStore::Models& taught) {
            if (!self || !self->state_.selectedJob()) return;
            std::set<std::string> tags = tagsOf(self->state_.selectedJob()->job());
            for (const TagClassifier::Model& model : taught) tags.insert(model.tag);
            self->list_->setPoses(listed(tags));
        });
}

void RulesSheet::refreshCounts() {
    const WorkingJob* open = state_.selectedJob();
    if (!open) return;
    const Job& job = open->job();
    const std::vector<CropRule> rules = list_->rules();
    std::vector<int> counts(rules.size(), 0);
    int left = 0;
    for (const auto& rule : JobSolver::rulesFor(job, state_.presets(), rules))
        ++(rule ? counts[*rule] : left);
    std::vector<const ImageAnalysis*> photos;
    for (const ImageItem& item : job.items)
        photos.push_back(item.analysis ? &*item.analysis : nullptr);
    const bool ratings = CropRules::ratingsInUse(photos);
    for (std::size_t i = 0; i < rules.size(); ++i)
        list_->rows()[i]->setCount(counts[i],
                                   counts[i] > 0 ? QString() : whyNone(rules[i], ratings));
    const int all = static_cast<int>(job.items.size());
    const QString name = asGiven(JobSolver::fallbackPreset(job, state_.presets()).name);
    summary_->setText(
        !automatic_->isChecked()
            ? tr("Off: all photos without a crop type of their own get %1").arg(name)
        : left == 0
            ? tr("All %n photo(s) have a crop type", "", all)
            : tr("%n photo(s) without a rule: their own crop type, or %1", "", left).arg(name));
}

QString RulesSheet::whyNone(const CropRule& rule, bool ratingsInUse) const {
    if (!rule.enabled) return tr("Switched off");
    if (!state_.preset(rule.presetID)) return tr("Its crop type is gone");
    if (ratingsInUse && std::holds_alternative<RuleCondition::CloseUp>(rule.condition.when))
        return tr("Waits: star ratings are in use in this job");
    const CropRule alone[] = {rule};
    const auto picked = JobSolver::rulesFor(state_.selectedJob()->job(), state_.presets(), alone);
    const bool isSeen =
        std::ranges::any_of(picked, [](const auto& one) { return one.has_value(); });
    return isSeen ? tr("Every such photo matches a rule above") : tr("No photo shows this");
}

void RulesSheet::addRule() {
    const CropPreset& preset =
        JobSolver::fallbackPreset(state_.selectedJob()->job(), state_.presets());
    list_->add({.id = Uuid::random(),
                .condition = {RuleCondition::Rating{5}},
                .presetID = preset.id,
                .enabled = true});
}

void RulesSheet::apply() {
    const Job& job = state_.selectedJob()->job();
    const std::vector<CropRule> rules = list_->rules();
    const bool automatic = automatic_->isChecked();
    const Uuid preset = automatic ? PresetLibrary::autoPresetID()
                                  : JobSolver::fallbackPreset(job, state_.presets()).id;
    const bool switches = automatic != job.autoAssign;
    const bool both = switches && rules != job.rules;
    // One step back takes both back.
    if (both) state_.undoStack().beginMacro(tr("Change Rules"));
    state_.setRules(rules);
    if (switches) state_.choosePreset(preset);
    if (both) state_.undoStack().endMacro();
    close();
}

}  // namespace morva
