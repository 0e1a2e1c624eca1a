// SPDX-License-Identifier: GPL-3.0-or-later
// The backdrops of a job: whether feet show, which plate each crop type gets, and what a photo will
// look like. Shows what `BackdropSetup` says.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>

#include "app/backdrop_setup.h"
#include "ui/widgets/sheet.h"

class QCheckBox;
class QLabel;

namespace morva {

class AppState;
class BackdropTypeList;
class BackdropView;
class PlateList;
class SegmentedSwitch;
class SliderRow;
class SmallPictures;

class BackdropSheet final : public Sheet {
    Q_OBJECT

public:
    BackdropSheet(AppState& state, QWidget* window);

    const BackdropView& view() const { return *view_; }

signals:
    /// For this crop type, from anywhere.
    void plateWanted(const morva::Uuid& preset);

private:
    QLayout* makeTypes();
    QLayout* makePlates();
    void connectAll();
    void refresh();
    /// Changes what the current crop type gets.
    void change(const std::function<void(BackdropSetup::Choice&)>& change);
    void toggle(const Uuid& preset);

    AppState& state_;
    SmallPictures* pictures_;
    SegmentedSwitch* feet_;
    BackdropTypeList* types_;
    QLabel* platesTitle_;
    QPushButton* choose_;
    PlateList* plates_;
    QLabel* noPlates_;
    SliderRow* zoom_;
    SliderRow* vignette_;
    QCheckBox* reflection_;
    BackdropView* view_;
};

}  // namespace morva
