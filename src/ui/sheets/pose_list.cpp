// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/pose_list.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "app/pose_flow.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/icon_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int rowHeight = 32;

/// A button that wants to be pressed twice: there is no way back from what it does.
class RemoveButton final : public QPushButton {
public:
    RemoveButton() : QPushButton(morva::icon(QStringLiteral("trash")), QString()) {
        setProperty("morvaSmall", true);
        setLook(*this, ButtonLook::quiet);
    }
    /// True the second time.
    bool isSure() {
        if (isAsking_) return true;
        isAsking_ = true;
        setIcon({});
        setText(PoseList::tr("Remove?"));
        return false;
    }

protected:
    void focusOutEvent(QFocusEvent* event) override {
        isAsking_ = false;
        setText({});
        setIcon(morva::icon(QStringLiteral("trash")));
        QPushButton::focusOutEvent(event);
    }

private:
    bool isAsking_ = false;
};

}  // namespace

PoseList::PoseList(AppState& state, QWidget* parent)
    : QWidget(parent),
      state_(state),
      rows_(new QVBoxLayout),
      save_(new QPushButton(tr("Save as a pose pack…"))) {
    auto* add = new QPushButton(tr("Add a pose pack…"));
    for (QPushButton* button : {add, save_}) button->setProperty("morvaSmall", true);
    auto* packs = new QHBoxLayout;
    packs->setSpacing(Metrics::gap);
    packs->addWidget(add);
    packs->addWidget(save_);
    packs->addStretch(1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::labelGap);
    column->addWidget(makeLabel(tr("Poses you've taught"), TextRole::label, Ink::text2));
    rows_->setSpacing(0);
    column->addLayout(rows_);
    column->addLayout(packs);
    connect(add, &QPushButton::clicked, this, &PoseList::addPackWanted);
    connect(save_, &QPushButton::clicked, this, &PoseList::savePackWanted);
    save_->setEnabled(false);
    reload();
}

void PoseList::reload() {
    state_.background().run(
        [folder = state_.services().folders.data] { return PoseStore(folder).load(); },
        [self = QPointer(this)](const PoseStore::Models& taught) {
            if (self) self->show(taught);
        });
}

void PoseList::show(const std::vector<TagClassifier::Model>& taught) {
    while (QLayoutItem* item = rows_->takeAt(0)) {
        // Hidden first, its button hands the focus on.
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    for (const TagClassifier::Model& pose : taught) addRow(pose);
    if (taught.empty()) rows_->addWidget(makeLabel(tr("None yet"), TextRole::small, Ink::text3));
    save_->setEnabled(!taught.empty());
}

void PoseList::addRow(const TagClassifier::Model& pose) {
    auto* row = new QWidget;
    row->setMinimumHeight(scaled(rowHeight));
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Metrics::gap);
    line->addWidget(new IconLabel(QStringLiteral("person"), &Theme::text2));
    auto* name = new ElidedLabel(TextRole::body);
    name->setFullText(asGiven(pose.tag));
    if (pose.report) name->setToolTip(said(pose.report->verdict));
    line->addWidget(name, 1);
    if (pose.taughtAt) {
        const QDate day = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(*pose.taughtAt)).date();
        line->addWidget(makeLabel(QLocale().toString(day, tr("d MMM", "day and month")),
                                  TextRole::small, Ink::text2));
    }
    auto* remove = new RemoveButton;
    remove->setToolTip(tr("Remove"));
    remove->setAccessibleName(tr("Remove the pose “%1”").arg(asGiven(pose.tag)));
    connect(remove, &QPushButton::clicked, this, [this, remove, tag = pose.tag] {
        if (!remove->isSure()) return;
        state_.poses().removePose(tag);
        reload();
    });
    line->addWidget(remove);
    rows_->addWidget(row);
}

}  // namespace morva
