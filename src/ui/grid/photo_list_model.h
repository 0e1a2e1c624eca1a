// SPDX-License-Identifier: GPL-3.0-or-later
// The photos that the application state shows, one row each, for the grid and the filmstrip. Tells
// its views of nothing but the rows that changed; holds no photo and changes none.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QAbstractListModel>

#include "app/app_state.h"

namespace morva {

class PhotoListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    explicit PhotoListModel(AppState& state, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    /// The name, all that is known in a tooltip, and the same to be read out.
    QVariant data(const QModelIndex& index, int role) const override;

    /// The photo's place in the selected job; nothing for a row that is gone meanwhile.
    std::optional<std::size_t> itemAt(int row) const;
    std::optional<std::string> idAt(int row) const;
    /// -1 for a photo that is not shown.
    int rowOf(std::size_t item) const;
    int rowOf(const std::string& itemID) const;

    /// Rows are coming and going; what views say meanwhile is not the user's will.
    bool isChanging() const { return isChanging_; }

signals:
    /// Other rows than before; all views know of it.
    void rowsSettled();
    /// These photos of the selected job look different, shown or not.
    void photosChanged(const std::vector<std::size_t>& items);

private:
    void itemsChanged(const Uuid& job, const std::vector<std::size_t>& items);
    void reload();
    void takeRows(const AppState::Indices& wanted);
    void tellOf(const std::vector<std::size_t>& items);

    AppState& state_;
    AppState::Indices rows_;
    bool isChanging_ = false;
};

}  // namespace morva
