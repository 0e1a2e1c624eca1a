// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/photo_list_model.h"

#include <algorithm>
#include <iterator>

#include "ui/grid/cell_content.h"

namespace morva {

namespace {

using Indices = AppState::Indices;

/// Beyond this many separate changes, views are quicker told that everything changed.
constexpr std::size_t mostRuns = 64;

struct Run {
    int first;
    int last;
};

/// Rising rows as runs without gaps.
std::vector<Run> runsOf(const std::vector<int>& rows) {
    std::vector<Run> runs;
    for (const int row : rows) {
        if (runs.empty() || runs.back().last + 1 != row)
            runs.push_back({row, row});
        else
            runs.back().last = row;
    }
    return runs;
}

/// Places in `all` of those that `others` has not; both rising.
std::vector<int> placesOfMissing(const Indices& all, const Indices& others) {
    std::vector<int> places;
    auto other = others.begin();
    for (std::size_t place = 0; place < all.size(); ++place) {
        while (other != others.end() && *other < all[place]) ++other;
        if (other == others.end() || *other != all[place])
            places.push_back(static_cast<int>(place));
    }
    return places;
}

}  // namespace

PhotoListModel::PhotoListModel(AppState& state, QObject* parent)
    : QAbstractListModel(parent), state_(state), rows_(state.filteredItems()) {
    connect(&state_, &AppState::itemsChanged, this, &PhotoListModel::itemsChanged);
    connect(&state_, &AppState::itemsReset, this, [this](const Uuid& job) {
        if (job == state_.selectedJobID()) reload();
    });
    connect(&state_, &AppState::selectedJobChanged, this, &PhotoListModel::reload);
    connect(&state_, &AppState::filterChanged, this, &PhotoListModel::reload);
}

int PhotoListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant PhotoListModel::data(const QModelIndex& index, int role) const {
    const auto item = itemAt(index.row());
    if (!item) return {};
    switch (role) {
        case Qt::DisplayRole:
            return nameOf(*state_.selectedJob(), *item);
        case Qt::ToolTipRole:
            return tooltipOf(state_, *item);
        case Qt::AccessibleTextRole:
            return spokenOf(state_, *item);
        default:
            return {};
    }
}

std::optional<std::size_t> PhotoListModel::itemAt(int row) const {
    const WorkingJob* job = state_.selectedJob();
    if (!job || row < 0 || row >= rowCount()) return std::nullopt;
    const std::size_t item = rows_[static_cast<std::size_t>(row)];
    return item < job->job().items.size() ? std::optional(item) : std::nullopt;
}

std::optional<std::string> PhotoListModel::idAt(int row) const {
    const auto item = itemAt(row);
    return item ? std::optional(state_.selectedJob()->item(*item).id) : std::nullopt;
}

int PhotoListModel::rowOf(std::size_t item) const {
    const auto at = std::ranges::lower_bound(rows_, item);
    return at != rows_.end() && *at == item ? static_cast<int>(at - rows_.begin()) : -1;
}

int PhotoListModel::rowOf(const std::string& itemID) const {
    const WorkingJob* job = state_.selectedJob();
    const auto item = job ? job->indexOf(itemID) : std::nullopt;
    return item ? rowOf(*item) : -1;
}

void PhotoListModel::itemsChanged(const Uuid& job, const std::vector<std::size_t>& items) {
    if (job != state_.selectedJobID()) return;
    emit photosChanged(items);
    takeRows(state_.filteredItems());
    tellOf(items);
}

void PhotoListModel::reload() {
    isChanging_ = true;
    beginResetModel();
    rows_ = state_.filteredItems();
    endResetModel();
    isChanging_ = false;
    emit rowsSettled();
}

void PhotoListModel::takeRows(const Indices& wanted) {
    if (wanted == rows_) return;
    const std::vector<Run> gone = runsOf(placesOfMissing(rows_, wanted));
    const std::vector<Run> come = runsOf(placesOfMissing(wanted, rows_));
    if (gone.size() + come.size() > mostRuns) return reload();
    isChanging_ = true;
    const auto at = [this](int row) { return rows_.begin() + row; };
    for (auto run = gone.rbegin(); run != gone.rend(); ++run) {
        beginRemoveRows({}, run->first, run->last);
        rows_.erase(at(run->first), at(run->last + 1));
        endRemoveRows();
    }
    for (const Run& run : come) {
        beginInsertRows({}, run.first, run.last);
        rows_.insert(at(run.first), wanted.begin() + run.first, wanted.begin() + run.last + 1);
        endInsertRows();
    }
    isChanging_ = false;
    emit rowsSettled();
}

void PhotoListModel::tellOf(const std::vector<std::size_t>& items) {
    std::vector<int> rows;
    for (const std::size_t item : items)
        if (const int row = rowOf(item); row >= 0) rows.push_back(row);
    if (rows.empty()) return;
    std::ranges::sort(rows);
    std::vector<Run> runs = runsOf(rows);
    if (runs.size() > mostRuns) runs = {{rows.front(), rows.back()}};
    for (const Run& run : runs) emit dataChanged(index(run.first), index(run.last));
}

}  // namespace morva
