// SPDX-License-Identifier: GPL-3.0-or-later
// The photos of the grid in one row below the inspector, the current one ringed and kept in view.
#pragma once

#include <QWidget>

namespace morva {

class AppState;

class Filmstrip final : public QWidget {
    Q_OBJECT

public:
    explicit Filmstrip(AppState& state, QWidget* parent = nullptr);

private:
    AppState& state_;
};

}  // namespace morva
