// SPDX-License-Identifier: GPL-3.0-or-later
// The photos of the selected job with a tick each, for the examples of a pose. Shows what the pose
// flow says and ticks through it.
#pragma once

#include <vector>

#include <QAbstractListModel>
#include <QListView>

namespace morva {

class AppState;
class SmallPictures;

/// One row for each photo of the job, or for each that is ticked.
class ExampleModel final : public QAbstractListModel {
    Q_OBJECT

public:
    explicit ExampleModel(AppState& state, QObject* parent = nullptr);

    /// Only photos that were ticked when this was called.
    void setTickedOnly(bool only);
    void reset();
    /// Ticks may be others.
    void ticksChanged();

    /// Of the photo in the job.
    std::size_t itemAt(int row) const { return items_[static_cast<std::size_t>(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    /// Name, tick, and the name with the tick for those who listen.
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    AppState& state_;
    bool tickedOnly_ = false;
    std::vector<std::size_t> items_;
};

class ExampleList final : public QListView {
    Q_OBJECT

public:
    explicit ExampleList(AppState& state, QWidget* parent = nullptr);

    ExampleModel& photos() { return *model_; }
    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void tick(const QModelIndex& index);
    void spread();

    ExampleModel* model_;
    SmallPictures* pictures_;
};

}  // namespace morva
