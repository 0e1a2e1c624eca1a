// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/photo_page.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "app/key_table.h"
#include "model/presets/preset_library.h"
#include "ui/panel/choice_box.h"
#include "ui/panel/confidence_bar.h"
#include "ui/panel/icon_text.h"
#include "ui/panel/preset_icon.h"
#include "ui/panel/reason_list.h"
#include "ui/panel/reason_words.h"
#include "ui/panel/seam.h"
#include "ui/panel/section.h"
#include "ui/panel/settle.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/key_button.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/status_look.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

/// The key as a cap shows it.
QString capsOf(KeyAction action) {
    const auto table = KeyTable::bindings();
    const auto found = std::ranges::find(table, action, &KeyBinding::action);
    return found == table.end() ? QString() : said(found->caps);
}

IconText::Color colorOf(ItemStatus status) {
    switch (status) {
        case ItemStatus::pending:
            return &Theme::pending;
        case ItemStatus::ready:
            return &Theme::ready;
        case ItemStatus::review:
            return &Theme::review;
        case ItemStatus::approved:
            return &Theme::approved;
        case ItemStatus::failed:
        case ItemStatus::error:
            return &Theme::failed;
    }
    return &Theme::pending;
}

}  // namespace

PhotoPage::PhotoPage(AppState& state, QWidget* parent)
    : QWidget(parent),
      state_(state),
      hint_(makeWrappedLabel({}, TextRole::body, Ink::text3)),
      page_(new QWidget),
      scroll_(new QScrollArea),
      title_(new ElidedLabel(TextRole::title, Ink::text, Qt::ElideMiddle)),
      status_(new IconText(TextRole::body)),
      summary_(makeWrappedLabel({}, TextRole::small, Ink::text2)),
      cropType_(new ChoiceBox(tr("Crop type"))),
      source_(makeWrappedLabel({}, TextRole::small, Ink::text3)),
      reasonsSection_(new Section(tr("Reasons"), Section::Kind::open)),
      reasons_(new ReasonList),
      notesSection_(new Section(tr("Notes"), Section::Kind::open)),
      notes_(makeWrappedLabel({}, TextRole::small, Ink::text2)),
      confidenceSection_(new Section(tr("Confidence"), Section::Kind::open)),
      bar_(new ConfidenceBar),
      factors_(new FigureTable),
      measurementsSection_(new Section(tr("Measurements"), Section::Kind::open)),
      measurements_(new FigureTable),
      adjustmentSection_(new Section(tr("Hand adjustment"), Section::Kind::open)),
      adjustment_(new FigureTable),
      resetAdjustment_(new QPushButton(icon(QStringLiteral("reset")), tr("Reset"))),
      detailsSection_(new Section(tr("Details"), Section::Kind::open)),
      details_(new FigureTable),
      foot_(new QWidget),
      primary_(new KeyButton({}, {})),
      takeBack_(new QPushButton(tr("Take back"))),
      reset_(new QPushButton(icon(QStringLiteral("reset")), {})) {
    auto* content = new QWidget;
    buildHead(content);
    auto* column = static_cast<QVBoxLayout*>(content->layout());
    measurementsSection_->setValue(tr("share of the crop"));
    factors_->setAccessibleName(tr("What the confidence is made of"));
    measurements_->setAccessibleName(tr("Measurements"));
    details_->setAccessibleName(tr("Details"));
    const std::pair<Section*, QWidget*> sections[] = {{reasonsSection_, reasons_},
                                                      {notesSection_, notes_},
                                                      {confidenceSection_, factors_},
                                                      {measurementsSection_, measurements_},
                                                      {adjustmentSection_, buildAdjustment()},
                                                      {detailsSection_, details_}};
    for (const auto& [section, body] : sections) {
        if (body == factors_) section->body()->addWidget(bar_);
        section->body()->addWidget(body);
        column->addWidget(section);
    }
    column->addStretch(1);
    scroll_->setWidget(content);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    buildFoot();
    auto* whole = new QVBoxLayout(page_);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addWidget(scroll_, 1);
    whole->addWidget(new Seam);
    whole->addWidget(foot_);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setMargin(Metrics::panelPadding);
    outer->addWidget(hint_);
    outer->addWidget(page_);
    listen();
    refresh();
}

void PhotoPage::buildHead(QWidget* content) {
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* top = new Section({}, Section::Kind::open);
    auto* name = new QHBoxLayout;
    name->setSpacing(Metrics::gap);
    title_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    status_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    name->addWidget(title_, 1);
    name->addWidget(status_);
    top->body()->addLayout(name);
    top->body()->addWidget(summary_);
    top->body()->addWidget(cropType_);
    top->body()->addWidget(source_);
    column->addWidget(top);
}

QWidget* PhotoPage::buildAdjustment() {
    auto* block = new QWidget;
    auto* column = new QVBoxLayout(block);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::gap);
    column->addWidget(adjustment_);
    resetAdjustment_->setProperty("morvaSmall", true);
    column->addWidget(resetAdjustment_, 0, Qt::AlignLeading);
    connect(resetAdjustment_, &QPushButton::clicked, this, [this] { state_.resetAdjustment(); });
    return block;
}

void PhotoPage::buildFoot() {
    auto* row = new QHBoxLayout(foot_);
    row->setContentsMargins(Metrics::panelPadding, 12, Metrics::panelPadding, 12);
    row->setSpacing(Metrics::gap);
    setLook(*primary_, ButtonLook::primary);
    primary_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setLook(*takeBack_, ButtonLook::quiet);
    const QString resets =
        tr("Reset the hand adjustment (%1)").arg(capsOf(KeyAction::resetAdjustment));
    reset_->setToolTip(resets);
    reset_->setAccessibleName(resets);
    row->addWidget(primary_, 1);
    row->addWidget(takeBack_);
    row->addWidget(reset_);
    connect(primary_, &QPushButton::clicked, this, &PhotoPage::goOn);
    connect(takeBack_, &QPushButton::clicked, this, [this] { state_.unapproveSelected(); });
    connect(reset_, &QPushButton::clicked, this, [this] { state_.resetAdjustment(); });
    connect(cropType_, &QComboBox::activated, this, [this](int place) {
        state_.setOverride(
            place == 0 ? std::nullopt
                       : std::optional(state_.presets()[static_cast<std::size_t>(place - 1)].id));
    });
}

void PhotoPage::listen() {
    // One act tells of itself in several signals; the page is brought up to date once.
    soon_.setSingleShot(true);
    soon_.setInterval(0);
    connect(&soon_, &QTimer::timeout, this, &PhotoPage::refresh);
    for (const auto signal : {&AppState::selectionChanged, &AppState::presetsChanged,
                              &AppState::selectedJobChanged, &AppState::progressChanged})
        connect(&state_, signal, this, &PhotoPage::refreshSoon);
    connect(&state_, &AppState::itemsChanged, this, &PhotoPage::refreshSoon);
    connect(&state_, &AppState::itemsReset, this, &PhotoPage::refreshSoon);
    connect(&state_, &AppState::jobChanged, this, &PhotoPage::refreshSoon);
}

void PhotoPage::refreshSoon() {
    // A page that nobody sees is brought up to date when it is shown.
    if (isVisible()) soon_.start();
}

void PhotoPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    refresh();
}

std::vector<std::size_t> PhotoPage::selected() const {
    std::vector<std::size_t> indices;
    const WorkingJob* open = state_.selectedJob();
    if (!open) return indices;
    for (const std::string& id : state_.selection())
        if (const auto index = open->indexOf(id)) indices.push_back(*index);
    return indices;
}

void PhotoPage::refresh() {
    soon_.stop();
    const std::vector<std::size_t> indices = selected();
    page_->setVisible(!indices.empty());
    hint_->setVisible(indices.empty());
    if (!indices.empty()) {
        showReport(photoReport(*state_.selectedJob(), indices, state_.presets()));
        settleLayouts(*scroll_);
        // Another photo is read from its top.
        const std::string& item = state_.selectedJob()->item(indices.front()).id;
        if (std::exchange(shownItem_, item) != item) scroll_->verticalScrollBar()->setValue(0);
        return;
    }
    hint_->setText(state_.selectedJob() ? tr("Select a photo to see how it was measured.")
                                        : tr("No job is open."));
}

void PhotoPage::showReport(const PhotoReport& report) {
    title_->setFullText(report.title);
    status_->setVisible(report.status.has_value());
    if (report.status) {
        const StatusLook look = lookOf(*report.status);
        status_->set(look.icon, colorOf(*report.status), look.word);
    }
    summary_->setVisible(!report.summary.isEmpty());
    summary_->setText(report.summary);
    source_->setVisible(!report.source.isEmpty());
    source_->setText(report.source);
    showCropTypes(report);

    reasonsSection_->setVisible(!report.reasons.empty());
    reasons_->set(report.reasons);
    notesSection_->setVisible(!report.notes.isEmpty());
    notes_->setText(report.notes.join(QLatin1Char('\n')));
    confidenceSection_->setVisible(report.confidence.has_value());
    if (report.confidence) {
        const auto texts =
            ReasonWords::compared(report.confidence->score, report.confidence->threshold);
        confidenceSection_->setValue(tr("%1, approves itself at %2").arg(texts.one, texts.other));
        bar_->set(report.confidence->score, report.confidence->threshold);
        factors_->setRows(report.confidence->factors);
    }
    measurementsSection_->setVisible(!report.measurements.empty());
    measurements_->setRows(report.measurements);
    adjustmentSection_->setVisible(report.adjusted > 0);
    const int all = static_cast<int>(selected().size());
    adjustmentSection_->setValue(all > 1 ? tr("%1 of %n photos", "", all).arg(report.adjusted)
                                         : QString());
    adjustment_->setVisible(!report.adjustment.empty());
    adjustment_->setRows(report.adjustment);
    resetAdjustment_->setEnabled(!state_.isReadOnly());
    detailsSection_->setVisible(!report.details.empty());
    details_->setRows(report.details);
    showFoot(report);
}

void PhotoPage::showCropTypes(const PhotoReport& report) {
    std::vector<std::string> wanted{report.withoutOwn.toStdString()};
    for (const CropPreset& preset : state_.presets())
        wanted.push_back(preset.name + '\n' + preset.badge);
    if (wanted != listed_) {
        listed_ = std::move(wanted);
        cropType_->clear();
        cropType_->addItem(report.withoutOwn);
        for (const CropPreset& preset : state_.presets())
            cropType_->addItem(presetIcon(preset), asGiven(preset.name));
        cropType_->updateGeometry();
    }
    cropType_->setPlaceholderText(
        report.presets > 1 ? tr("Mixed (%n crop types)", "", report.presets) : tr("Mixed"));
    const auto& presets = state_.presets();
    const auto at =
        report.own ? std::ranges::find(presets, *report.own, &CropPreset::id) : presets.end();
    cropType_->setCurrentIndex(report.isMixed        ? -1
                               : at == presets.end() ? 0
                                                     : static_cast<int>(at - presets.begin()) + 1);
    cropType_->setEnabled(!state_.isReadOnly());
}

void PhotoPage::showFoot(const PhotoReport& report) {
    const bool isOne = report.status.has_value();
    const bool mayChange = !state_.isReadOnly();
    if (!isOne)
        primary_->set(report.approvable > 0 ? tr("Approve %n Photo(s)", "", report.approvable)
                                            : tr("Approve"),
                      {capsOf(KeyAction::toggleApproval)});
    else if (report.approvable > 0)
        primary_->set(tr("Approve and next"), {capsOf(KeyAction::approveAndNext)});
    else
        primary_->set(tr("Next photo"), {QStringLiteral("]")});
    primary_->setEnabled(report.approvable > 0 ? mayChange : isOne && state_.neighbor(1));
    takeBack_->setVisible(report.approved > 0);
    takeBack_->setEnabled(mayChange);
    reset_->setVisible(isOne);
    reset_->setEnabled(mayChange && report.adjusted > 0);
}

void PhotoPage::goOn() {
    const auto report = selected();
    if (report.size() != 1) return state_.approveSelected(false);
    const ImageItem& item = state_.selectedJob()->item(report.front());
    const bool hasCrop = item.solution && item.solution->status != CropStatus::failed;
    if (hasCrop && !item.approved)
        state_.approveSelected(true);
    else
        state_.selectNext();
}

}  // namespace morva
