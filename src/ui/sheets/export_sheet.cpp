// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/export_sheet.h"

#include <QCheckBox>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/alert_texts.h"
#include "app/app_state.h"
#include "app/export_flow.h"
#include "ui/sheets/stat_tile.h"
#include "ui/widgets/badge_label.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/icon_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/notice.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int sheetWidth = 640;
/// Of a hint below the text of its check box.
constexpr int hintIndent = 24;
constexpr int tableRowHeight = 28;

enum Column { name, files, pixels, rating, fits };

QLabel* figure(const QString& text, Ink ink = Ink::text) {
    QLabel* label = makeLabel(text, TextRole::small, ink);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

/// Between the column heads and the rows.
class Rule final : public QWidget {
public:
    Rule() { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), Theme::current().line);
    }
};

void addRow(QGridLayout& grid, const CropPreset& preset, const ExportPreview::CropType& type) {
    const int row = grid.rowCount();
    grid.setRowMinimumHeight(row, scaled(tableRowHeight));
    auto* named = new QHBoxLayout;
    named->setSpacing(Metrics::gap);
    named->addWidget(new BadgeLabel(preset));
    auto* text = new ElidedLabel(TextRole::small);
    text->setFullText(asGiven(preset.name));
    named->addWidget(text, 1);
    grid.addLayout(named, row, Column::name);
    grid.addWidget(figure(count(type.files)), row, Column::files);
    const ExportSettings settings = preset.settingsForExport();
    QLabel* size =
        figure(ExportSheet::tr("%1 × %2").arg(settings.pixelWidth).arg(settings.pixelHeight));
    grid.addWidget(size, row, Column::pixels);
    grid.addWidget(figure(settings.starRating ? count(*settings.starRating)
                                              : ExportSheet::tr("none", "no star rating")),
                   row, Column::rating);
    if (type.fits) return;
    QPalette palette = size->palette();
    palette.setColor(QPalette::WindowText, Theme::current().review);
    size->setPalette(palette);
    auto* mark = new IconLabel(QStringLiteral("warning"), &Theme::review, 14);
    mark->setAccessibleName(ExportSheet::tr("The pixel size does not match the ratio"));
    grid.addWidget(mark, row, Column::fits, Qt::AlignCenter);
}

QString duration(double seconds) {
    const int whole = static_cast<int>(seconds + 0.5);
    if (whole < 60) return ExportSheet::tr("%1 s").arg(std::max(whole, 1));
    return ExportSheet::tr("%1 min %2 s").arg(whole / 60).arg(whole % 60);
}

}  // namespace

ExportSheet::ExportSheet(AppState& state, QWidget* window)
    : Sheet(window, sheetWidth),
      state_(state),
      preview_(state),
      destination_(new QLineEdit),
      inside_(new Notice(Notice::Kind::failure)),
      approvedOnly_(new QCheckBox(tr("Approved photos only"))),
      approvedHint_(makeWrappedLabel({}, TextRole::small, Ink::text2)),
      replace_(new QCheckBox(tr("Replace existing files"))),
      replaceHint_(makeWrappedLabel({}, TextRole::small, Ink::text2)),
      toWrite_(new StatTile(QStringLiteral("export"), &Theme::text)),
      unchanged_(new StatTile(QStringLiteral("check"), &Theme::text)),
      review_(new StatTile(QStringLiteral("s-review"), &Theme::review)),
      failed_(new StatTile(QStringLiteral("s-failed"), &Theme::failed)),
      pending_(makeWrappedLabel({}, TextRole::small, Ink::text2)),
      table_(new QWidget),
      notices_(new QVBoxLayout),
      estimate_(makeLabel({}, TextRole::small, Ink::text2)) {
    setTitle(tr("Export"));
    setSentence(asGiven(state_.selectedJob()->job().name));
    body()->addLayout(makeDestination());
    body()->addWidget(inside_);
    body()->addLayout(makeChoice(approvedOnly_, approvedHint_));
    body()->addLayout(makeChoice(replace_, replaceHint_));
    auto* tiles = new QHBoxLayout;
    tiles->setSpacing(Metrics::gap);
    for (StatTile* tile : {toWrite_, unchanged_, review_, failed_}) tiles->addWidget(tile, 1);
    body()->addLayout(tiles);
    body()->addWidget(pending_);
    body()->addWidget(table_);
    notices_->setSpacing(Metrics::gap);
    body()->addLayout(notices_);
    addToFooter(estimate_);
    export_ = addPrimaryButton(tr("Export"));
    addCancelButton(tr("Cancel"));

    ExportFlow& flow = state_.exports();
    connect(approvedOnly_, &QCheckBox::toggled, &flow, &ExportFlow::setIncludeApprovedOnly);
    connect(replace_, &QCheckBox::toggled, &flow, &ExportFlow::setReplaceExisting);
    connect(this, &Sheet::cancelled, &flow, &ExportFlow::dismiss);
    connect(export_, &QPushButton::clicked, this, [this] { state_.exports().run(); });
    connect(&flow, &ExportFlow::changed, this, &ExportSheet::refreshDestination);
    connect(&preview_, &ExportPreview::changed, this, &ExportSheet::refresh);
    refreshDestination();
    refresh();
}

QLayout* ExportSheet::makeDestination() {
    auto* column = new QVBoxLayout;
    column->setSpacing(Metrics::labelGap);
    QLabel* label = makeLabel(tr("Destination"), TextRole::body, Ink::text2);
    label->setBuddy(destination_);
    destination_->setAccessibleName(label->text());
    destination_->addAction(icon(QStringLiteral("folder")), QLineEdit::LeadingPosition);
    auto* choose = new QPushButton(tr("Choose…"));
    choose->setAccessibleDescription(tr("Choose the folder that the files go to"));
    auto* row = new QHBoxLayout;
    row->setSpacing(Metrics::gap);
    row->addWidget(destination_, 1);
    row->addWidget(choose);
    column->addWidget(label);
    column->addLayout(row);
    const AlertInfo text = AlertTexts::insideTheJob();
    inside_->setText(said(text.title) + QStringLiteral(". ") + said(text.message));
    inside_->hide();
    connect(destination_, &QLineEdit::editingFinished, this, &ExportSheet::setDestination);
    connect(choose, &QPushButton::clicked, &state_.exports(), &ExportFlow::chooseFolder);
    return column;
}

QLayout* ExportSheet::makeChoice(QCheckBox* box, QLabel* hint) {
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(box);
    auto* indented = new QHBoxLayout;
    indented->addSpacing(hintIndent);
    indented->addWidget(hint, 1);
    column->addLayout(indented);
    return column;
}

void ExportSheet::setDestination() {
    destination_->setModified(false);
    const ExportPreview::Path folder = QFile::encodeName(destination_->text()).toStdString();
    // A path from nowhere would end up wherever the program was started.
    if (folder.is_absolute() && folder != state_.exports().destination())
        state_.exports().setDestination(folder);
    else
        refreshDestination();
}

void ExportSheet::refreshDestination() {
    const ExportFlow& flow = state_.exports();
    if (flow.destination() && !destination_->isModified())
        destination_->setText(pathText(*flow.destination()));
    if (flow.destination()) destination_->setToolTip(pathText(*flow.destination()));
    approvedOnly_->setChecked(flow.includeApprovedOnly());
    replace_->setChecked(flow.replaceExisting());
}

void ExportSheet::refresh() {
    refreshCounts();
    refreshTable();
    refreshNotices();
    inside_->setVisible(preview_.isInsideAJob());
    setFaulty(*destination_, preview_.isInsideAJob());
    estimate_->setText(estimate());
}

void ExportSheet::refreshCounts() {
    const WorkingJob* job = state_.selectedJob();
    if (!job) return;
    const ExportPlan& plan = preview_.plan();
    const int files = static_cast<int>(plan.write.size());
    const int failed = job->count(StatusFilter::failed);
    toWrite_->setCount(files, tr("file(s) to write", "", files));
    unchanged_->setCount(plan.unchanged, tr("unchanged, skipped"));
    review_->setCount(job->count(ItemStatus::review), tr("in review, left out"));
    failed_->setCount(failed, tr("no face / errors"));
    pending_->setVisible(plan.pending > 0);
    pending_->setText(tr("Not cropped yet and left out: %n photo(s)", "", plan.pending));
    const int ready = job->count(ItemStatus::ready);
    approvedHint_->setText(tr("Leaves out %n photo(s) ready but not approved", "", ready));
    replaceHint_->setText(tr("Writes %n unchanged photo(s) again", "", preview_.unchanged()));
    export_->setText(files > 0 ? tr("Export %n File(s)", "", files) : tr("Export"));
    export_->setEnabled(preview_.isReady());
}

void ExportSheet::refreshTable() {
    delete table_->layout();
    qDeleteAll(table_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    table_->setVisible(!preview_.cropTypes().empty());
    auto* grid = new QGridLayout(table_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Metrics::panelPadding);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(Column::name, 1);
    for (const int column : {Column::files, Column::pixels, Column::rating})
        grid->setColumnMinimumWidth(column, scaled(72));
    grid->setColumnMinimumWidth(Column::fits, 16);
    grid->addWidget(makeLabel(tr("Crop type"), TextRole::small, Ink::text2), 0, Column::name);
    grid->addWidget(figure(tr("Files"), Ink::text2), 0, Column::files);
    grid->addWidget(figure(tr("Pixels"), Ink::text2), 0, Column::pixels);
    grid->addWidget(figure(tr("Rating"), Ink::text2), 0, Column::rating);
    grid->setRowMinimumHeight(0, scaled(24));
    grid->addWidget(new Rule, 1, Column::name, 1, Column::fits + 1);
    for (const ExportPreview::CropType& type : preview_.cropTypes())
        addRow(*grid, *state_.preset(type.preset), type);
}

void ExportSheet::refreshNotices() {
    std::vector<Uuid> wrong;
    for (const CropPreset* preset : state_.exports().presetsOfWrongRatio())
        wrong.push_back(preset->id);
    // The notices keep their focus as long as they are about the same.
    if (wrong == noticed_) return;
    noticed_ = wrong;
    while (QLayoutItem* item = notices_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const Uuid& id : wrong) {
        auto* notice = new Notice(Notice::Kind::warning);
        notice->setText(said(RatioCheck::sheetWarning(*state_.preset(id))));
        notice->setAction(tr("Show preset"));
        connect(notice, &Notice::actionTriggered, this, [this, id] {
            state_.exports().dismiss();
            state_.showPreset(id);
            emit presetWanted();
        });
        notices_->addWidget(notice);
    }
}

QString ExportSheet::estimate() const {
    if (!preview_.isReady() || preview_.plan().write.empty()) return {};
    const auto bytes = preview_.bytes();
    const auto seconds = preview_.seconds();
    const QString size = bytes ? QLocale().formattedDataSize(static_cast<qint64>(*bytes), 0,
                                                             QLocale::DataSizeSIFormat)
                               : QString();
    const QString time = seconds ? duration(*seconds) : QString();
    if (bytes && seconds) return tr("About %1 · %2", "size and time").arg(size, time);
    return bytes || seconds ? tr("About %1").arg(bytes ? size : time) : QString();
}

}  // namespace morva
