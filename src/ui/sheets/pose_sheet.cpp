// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/pose_sheet.h"

#include <algorithm>
#include <utility>

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "app/pose_flow.h"
#include "ui/sheets/example_list.h"
#include "ui/sheets/pose_list.h"
#include "ui/sheets/preset_box.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/key_cap.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/notice.h"
#include "ui/widgets/segmented_switch.h"
#include "ui/widgets/small_pictures.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int sheetWidth = 1184;
constexpr int formWidth = 384;
constexpr int doubtSide = 40;
constexpr int barHeight = 6;
/// More are no help: the pose itself is in doubt then.
constexpr std::size_t mostDoubts = 6;

/// The photos that the ticked ones are compared with.
int othersOf(const WorkingJob& job, const std::set<std::string>& ticked) {
    const auto& items = job.job().items;
    const auto counts = [&](const ImageItem& item) {
        return item.analysis && !item.analysis->detectionFailed && !item.analysis->faces.empty() &&
               !ticked.contains(item.id);
    };
    return std::min(static_cast<int>(std::ranges::count_if(items, counts)),
                    static_cast<int>(PoseFlow::mostOthers));
}

/// A key and what it does.
class KeyHint final : public QWidget {
public:
    KeyHint(const QString& cap, const QString& text) : cap_(cap), text_(text) {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    QSize sizeHint() const override {
        const QFontMetrics metrics(fontFor(TextRole::small));
        const QSize cap = keyCapSize(cap_);
        return {cap.width() + 6 + metrics.horizontalAdvance(text_) + 1,
                std::max(cap.height(), metrics.height())};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QSize cap = keyCapSize(cap_);
        const QRect place = QStyle::visualRect(layoutDirection(), rect(),
                                               QRect({0, (height() - cap.height()) / 2}, cap));
        drawKeyCap(painter, cap_, place.topLeft(), Theme::current().text2);
        painter.setFont(fontFor(TextRole::small));
        painter.setPen(Theme::current().text2);
        painter.drawText(QStyle::visualRect(layoutDirection(), rect(),
                                            rect().adjusted(cap.width() + 6, 0, 0, 0)),
                         Qt::AlignVCenter, text_);
    }

private:
    QString cap_;
    QString text_;
};

/// A photo in a row of doubts.
class DoubtPicture final : public QWidget {
public:
    DoubtPicture(SmallPictures& pictures, ThumbnailStore::Request request)
        : pictures_(pictures), request_(std::move(request)) {
        setFixedSize(doubtSide, doubtSide);
        connect(&pictures_, &SmallPictures::arrived, this, qOverload<>(&QWidget::update));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Theme::current().panel);
        const QPixmap pixmap = pictures_.picture(request_, size(), devicePixelRatioF());
        if (!pixmap.isNull()) painter.drawPixmap(rect(), pixmap);
    }

private:
    SmallPictures& pictures_;
    ThumbnailStore::Request request_;
};

QScrollArea* scrolling(QWidget* content) {
    auto* area = new QScrollArea;
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    return area;
}

}  // namespace

PoseSheet::PoseSheet(AppState& state, QWidget* window)
    : Sheet(window, sheetWidth),
      state_(state),
      pictures_(new SmallPictures(state.thumbnails(), this)),
      which_(new SegmentedSwitch({QString(), QString()})),
      photos_(new ExampleList(state)),
      name_(new QLineEdit),
      preset_(new PresetBox(state.presets())),
      examples_(makeWrappedLabel({}, TextRole::body)),
      training_(new QWidget),
      trainingText_(makeLabel({}, TextRole::body)),
      bar_(new QProgressBar),
      stop_(new QPushButton(tr("Stop"))),
      failure_(new Notice(Notice::Kind::failure)),
      verdict_(new Notice(Notice::Kind::info)),
      figures_(new QWidget),
      found_(makeLabel({}, TextRole::small)),
      right_(makeLabel({}, TextRole::small)),
      doubtsTitle_(makeLabel(tr("Worth a second look"), TextRole::label, Ink::text2)),
      doubtRows_(new QVBoxLayout),
      taught_(new PoseList(state)) {
    setTitle(tr("Teach a pose"));
    setSentence(tr("Tick photos of one pose. Morva learns to find it and gives it its crop type."));
    auto* row = new QHBoxLayout;
    row->setSpacing(Metrics::sheetPadding);
    row->addWidget(makePhotos(), 1);
    QScrollArea* form = scrolling(makeForm());
    form->setFixedWidth(scaled(formWidth));
    row->addWidget(form);
    body()->addLayout(row);
    main_ = addPrimaryButton(tr("Train"));
    addCancelButton(tr("Cancel"));
    again_ = addSecondaryButton(tr("Train Again"));
    again_->setIcon(icon(QStringLiteral("reset")));
    setFirstControl(photos_);
    connectAll();
    refresh();
}

QWidget* PoseSheet::makePhotos() {
    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    auto* head = new QHBoxLayout;
    head->addWidget(which_);
    head->addStretch(1);
    head->addWidget(new KeyHint(tr("Space", "key"), tr("tick")));
    column->addLayout(head);
    column->addWidget(photos_, 1);
    which_->setChosen(0);
    return side;
}

QWidget* PoseSheet::makeForm() {
    auto* form = new QWidget;
    auto* column = new QVBoxLayout(form);
    column->setContentsMargins(0, 0, 2, 0);
    column->setSpacing(Metrics::panelPadding);
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(Metrics::panelPadding);
    fields->setVerticalSpacing(Metrics::gap);
    fields->setColumnStretch(1, 1);
    const auto add = [&](int line, const QString& text, QWidget* control) {
        QLabel* label = makeLabel(text, TextRole::body, Ink::text2);
        label->setBuddy(control);
        if (control->accessibleName().isEmpty()) control->setAccessibleName(text);
        fields->addWidget(label, line, 0);
        fields->addWidget(control, line, 1);
    };
    add(0, tr("Name"), name_);
    add(1, tr("Crop type"), preset_);
    add(2, tr("Examples"), examples_);
    column->addLayout(fields);
    name_->setPlaceholderText(tr("Arms crossed", "example of a pose"));

    auto* training = new QGridLayout(training_);
    training->setContentsMargins(0, 0, 0, 0);
    training->setVerticalSpacing(6);
    training->setColumnStretch(0, 1);
    training->addWidget(trainingText_, 0, 0);
    training->addWidget(stop_, 0, 1);
    training->addWidget(bar_, 1, 0, 1, 2);
    stop_->setProperty("morvaSmall", true);
    bar_->setTextVisible(false);
    bar_->setFixedHeight(barHeight);
    bar_->setAccessibleName(tr("Training"));
    column->addWidget(training_);
    column->addWidget(failure_);
    column->addWidget(makeOutcome());
    column->addWidget(taught_);
    column->addStretch(1);
    return form;
}

QWidget* PoseSheet::makeOutcome() {
    auto* outcome = new QWidget;
    auto* column = new QVBoxLayout(outcome);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::gap);
    column->addWidget(verdict_);
    auto* figures = new QGridLayout(figures_);
    figures->setContentsMargins(36, 0, 12, 0);
    figures->setVerticalSpacing(Metrics::labelGap);
    figures->setColumnStretch(0, 1);
    const auto add = [&](int line, const QString& text, QLabel* value) {
        figures->addWidget(makeWrappedLabel(text, TextRole::small, Ink::text2), line, 0);
        figures->addWidget(value, line, 1, Qt::AlignRight);
    };
    add(0, tr("Examples found"), found_);
    add(1, tr("Tagged photos that are right"), right_);
    column->addWidget(figures_);
    column->addSpacing(Metrics::gap);
    column->addWidget(doubtsTitle_);
    doubtRows_->setSpacing(Metrics::gap);
    column->addLayout(doubtRows_);
    return outcome;
}

void PoseSheet::connectAll() {
    PoseFlow& flow = state_.poses();
    connect(&flow, &PoseFlow::changed, this, &PoseSheet::refresh);
    connect(which_, &SegmentedSwitch::choose, this,
            [this](int place) { photos_->photos().setTickedOnly(place == 1); });
    connect(name_, &QLineEdit::textEdited, &flow,
            [&flow](const QString& text) { flow.setName(text.trimmed().toStdString()); });
    connect(preset_, &PresetBox::chosen, &flow, &PoseFlow::setPreset);
    connect(stop_, &QPushButton::clicked, &flow, &PoseFlow::cancel);
    connect(again_, &QPushButton::clicked, &flow, &PoseFlow::train);
    connect(main_, &QPushButton::clicked, this, &PoseSheet::goOn);
    connect(this, &Sheet::cancelled, &flow, &PoseFlow::dismiss);
    connect(taught_, &PoseList::addPackWanted, this, &PoseSheet::addPackWanted);
    connect(taught_, &PoseList::savePackWanted, this, &PoseSheet::savePackWanted);
}

void PoseSheet::goOn() {
    if (state_.poses().outcome())
        state_.poses().keep();
    else
        state_.poses().train();
}

void PoseSheet::refresh() {
    const PoseFlow& flow = state_.poses();
    const WorkingJob* job = state_.selectedJob();
    if (!job || !flow.isShown()) return;
    const int ticked = static_cast<int>(flow.examples().size());
    which_->setText(0, tr("All photos  %1").arg(count(static_cast<int>(job->job().items.size()))));
    which_->setText(1, tr("Ticked  %1").arg(count(ticked)));
    photos_->photos().ticksChanged();
    if (name_->text().trimmed().toStdString() != flow.name()) name_->setText(asGiven(flow.name()));
    if (flow.presetID()) preset_->setPreset(*flow.presetID());
    examples_->setText(tr("%1 ticked against %n other(s)", "", othersOf(*job, flow.examples()))
                           .arg(count(ticked)));
    refreshTraining();
    refreshOutcome();
}

void PoseSheet::refreshTraining() {
    const PoseFlow& flow = state_.poses();
    const bool isDone = flow.outcome().has_value();
    training_->setVisible(flow.isBusy() || isDone);
    stop_->setVisible(flow.isBusy());
    const auto& progress = flow.progress();
    // The prints are counted; what is learned from them takes no time to speak of.
    bar_->setRange(0, progress ? progress->total : 1);
    bar_->setValue(progress ? progress->completed : 1);
    trainingText_->setText(isDone     ? tr("Trained")
                           : progress ? tr("%1 of %2 photos looked at")
                                            .arg(count(progress->completed), count(progress->total))
                                      : QString());
    failure_->setVisible(!flow.error().empty());
    failure_->setText(said(flow.error()));
    main_->setText(isDone ? tr("Keep This Pose") : tr("Train"));
    // Whoever trains by keyboard goes on with the button that trained.
    const bool wasWaitedFor = std::exchange(
        isWaitedFor_, flow.isBusy() && (isWaitedFor_ || main_->hasFocus() || name_->hasFocus()));
    main_->setEnabled(!flow.isBusy());
    if (wasWaitedFor && !isWaitedFor_) main_->setFocus();
    again_->setVisible(isDone);
    for (QWidget* field : {static_cast<QWidget*>(name_), static_cast<QWidget*>(photos_)})
        field->setEnabled(!flow.isBusy());
}

void PoseSheet::refreshOutcome() {
    const auto& outcome = state_.poses().outcome();
    verdict_->setVisible(outcome.has_value());
    figures_->setVisible(outcome.has_value());
    if (outcome) {
        const PoseReport& report = outcome->report;
        const int found = report.positives - static_cast<int>(report.falseNegatives.size());
        const int tagged = found + static_cast<int>(report.falsePositives.size());
        verdict_->setText(said(report.verdict));
        const auto share = [](int part, int whole, double value) {
            return tr("%1 of %2   %3").arg(count(part), count(whole), percent(value));
        };
        found_->setText(share(found, report.positives, report.recall));
        right_->setText(share(found, tagged, report.precision));
    }
    if (outcome && !hasDoubts_) takeDoubts();
    // One tick makes the outcome stale; the others are still worth a look.
    hasDoubts_ = outcome.has_value();
    refreshDoubts();
}

void PoseSheet::takeDoubts() {
    doubts_.clear();
    const PoseFlow::Outcome& outcome = *state_.poses().outcome();
    for (const std::string& item : outcome.missed) doubts_.push_back({item, true});
    for (const std::string& item : outcome.wrong) doubts_.push_back({item, false});
    if (doubts_.size() > mostDoubts) doubts_.resize(mostDoubts);
}

void PoseSheet::refreshDoubts() {
    const auto& ticked = state_.poses().examples();
    std::erase_if(doubts_, [&](const Doubt& doubt) {
        return ticked.contains(doubt.item) != doubt.wasTicked;
    });
    doubtsTitle_->setVisible(!doubts_.empty());
    if (doubts_ == shownDoubts_) return;
    shownDoubts_ = doubts_;
    while (QLayoutItem* item = doubtRows_->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();  // one of its buttons may be what called
        delete item;
    }
    for (const Doubt& doubt : doubts_) doubtRows_->addWidget(makeDoubt(doubt));
}

QWidget* PoseSheet::makeDoubt(const Doubt& doubt) {
    const WorkingJob& job = *state_.selectedJob();
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Metrics::gap);
    const auto index = job.indexOf(doubt.item);
    if (!index) return row;
    line->addWidget(new DoubtPicture(
        *pictures_, job.preview(*index, state_.presets(), ThumbnailStore::gridHeight)));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    auto* name = new ElidedLabel(TextRole::body, Ink::text, Qt::ElideMiddle);
    name->setFullText(pathText(job.item(*index).url.stem()));
    texts->addWidget(name);
    texts->addWidget(makeWrappedLabel(
        doubt.wasTicked ? tr("Ticked, but not recognized") : tr("Recognized, but not ticked"),
        TextRole::small, Ink::text2));
    line->addLayout(texts, 1);
    auto* change = new QPushButton(doubt.wasTicked ? tr("Untick") : tr("Tick"));
    change->setProperty("morvaSmall", true);
    change->setAccessibleDescription(name->fullText());
    connect(change, &QPushButton::clicked, this,
            [this, item = doubt.item] { state_.poses().toggleExample(item); });
    line->addWidget(change);
    return row;
}

}  // namespace morva
