// SPDX-License-Identifier: GPL-3.0-or-later
// The two lists of the backdrop set-up: the crop types of the job, and the plates for one of them.
// Both show what `BackdropSetup` says and tell what a person chooses.
#pragma once

#include <filesystem>
#include <optional>

#include <QListView>

#include "base/uuid.h"

class QStandardItemModel;

namespace morva {

class AppState;
class SmallPictures;

/// Crop types with a tick each for those whose backdrop is replaced.
class BackdropTypeList final : public QListView {
    Q_OBJECT

public:
    BackdropTypeList(AppState& state, SmallPictures& pictures, QWidget* parent = nullptr);

    /// Follows the set-up; keeps the current crop type where it can.
    void refresh();
    std::optional<Uuid> current() const;
    void setCurrent(const Uuid& preset);
    QSize sizeHint() const override;

signals:
    void currentTypeChanged();
    /// Tick or untick.
    void toggled(const morva::Uuid& preset);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& now, const QModelIndex& before) override;

private:
    AppState& state_;
    QStandardItemModel* rows_;
};

/// A generated backdrop, then the plates.
class PlateList final : public QListView {
    Q_OBJECT

public:
    PlateList(AppState& state, SmallPictures& pictures, QWidget* parent = nullptr);

    /// Shows the plates with the one of `preset` chosen.
    void refresh(const std::optional<Uuid>& preset);
    QSize sizeHint() const override;

signals:
    /// No plate for the generated backdrop.
    void chosen(const std::optional<std::filesystem::path>& plate);

protected:
    void currentChanged(const QModelIndex& now, const QModelIndex& before) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    AppState& state_;
    QStandardItemModel* tiles_;
    /// The list is being brought up to date: nobody chooses.
    bool isRefreshing_ = false;
};

}  // namespace morva
