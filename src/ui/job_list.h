// SPDX-License-Identifier: GPL-3.0-or-later
// The jobs as rows of a list, and how a row is drawn: name, where the job stands in words, and a
// bar of its photos by status.
#pragma once

#include <QAbstractListModel>
#include <QStyledItemDelegate>

#include "app/app_state.h"

namespace morva {

class JobList final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        jobID = Qt::UserRole,
        /// "412 photos · 34 to review".
        summary,
        summaryIcon,
        summaryColor,
        /// Shares of the photos: approved, ready, review, without a face or unreadable.
        shares,
    };

    explicit JobList(AppState& state, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// The job's name.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Invalid when there is no such job.
    QModelIndex indexOf(const Uuid& job) const;

private:
    const WorkingJob* jobAt(const QModelIndex& index) const;

    AppState& state_;
};

class JobDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
};

}  // namespace morva
