// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/job_sidebar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QToolButton>
#include <QVBoxLayout>

#include "ui/job_list.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

namespace morva {

JobSidebar::JobSidebar(AppState& state, QWidget* parent)
    : QWidget(parent),
      state_(state),
      model_(new JobList(state, this)),
      list_(new QListView),
      hint_(makeWrappedLabel(
          tr("Each folder you import becomes a job and stays here with its crops."),
          TextRole::small, Ink::text3)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* head = new QHBoxLayout;
    head->setContentsMargins(Metrics::panelPadding, 4, 4, 4);
    QLabel* title = makeLabel(tr("Jobs"), TextRole::label, Ink::text2);
    head->addWidget(title, 1);
    auto* add = new QToolButton;
    add->setIcon(icon(QStringLiteral("plus")));
    add->setToolTip(tr("Import a folder of portraits"));
    add->setAccessibleName(tr("New job"));
    setLook(*add, ButtonLook::quiet);
    head->addWidget(add);
    column->addLayout(head);
    hint_->setContentsMargins(Metrics::panelPadding, Metrics::gap, Metrics::panelPadding, 0);
    column->addWidget(hint_);

    list_->setModel(model_);
    list_->setItemDelegate(new JobDelegate(list_));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setUniformItemSizes(true);
    list_->setMouseTracking(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    list_->setAccessibleName(tr("Jobs"));
    list_->setAccessibleDescription(tr("Type to find a job, F2 renames it"));
    title->setBuddy(list_);
    list_->viewport()->setAutoFillBackground(false);  // the sidebar's own surface
    column->addWidget(list_, 1);

    connect(add, &QToolButton::clicked, this, &JobSidebar::importWanted);
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (index.isValid())
                    state_.selectJob(
                        Uuid::parse(index.data(JobList::jobID).toString().toStdString()).value());
            });
    connect(list_, &QListView::customContextMenuRequested, this, [this](const QPoint& place) {
        if (list_->indexAt(place).isValid())
            emit contextMenuWanted(list_->viewport()->mapToGlobal(place));
    });
    connect(&state, &AppState::jobsChanged, this, &JobSidebar::follow);
    connect(&state, &AppState::selectedJobChanged, this, &JobSidebar::follow);
    follow();
}

void JobSidebar::renameSelected() {
    const QModelIndex index = list_->currentIndex();
    if (index.isValid()) list_->edit(index);
}

void JobSidebar::follow() {
    hint_->setVisible(state_.jobs().empty());
    const auto& selected = state_.selectedJobID();
    const QModelIndex index = selected ? model_->indexOf(*selected) : QModelIndex();
    if (index == list_->currentIndex()) return;
    list_->setCurrentIndex(index);
}

}  // namespace morva
