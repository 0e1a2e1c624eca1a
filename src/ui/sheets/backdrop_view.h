// SPDX-License-Identifier: GPL-3.0-or-later
// One photo of a crop type as it is and on its new backdrop, with a way to the next one. Used by
// the backdrop set-up.
#pragma once

#include <optional>
#include <vector>

#include <QImage>
#include <QWidget>

#include "app/backdrop_preview.h"
#include "app/thumbnail_store.h"
#include "base/uuid.h"

class QLabel;
class QPushButton;
class QTimer;

namespace morva {

class AppState;
class SegmentedSwitch;

class BackdropView final : public QWidget {
    Q_OBJECT

public:
    explicit BackdropView(AppState& state, QWidget* parent = nullptr);
    /// Asks for nothing any more.
    ~BackdropView() override;

    /// Shows the photos of a crop type, the selected one first; the same type keeps its photo.
    void showType(const std::optional<Uuid>& preset);
    /// The settings of the crop type may be others.
    void refresh();
    /// The picture on screen is what was asked for last.
    bool isComplete() const { return isComplete_; }

private:
    class Canvas;

    void collect();
    void step(int by);
    void ask();
    void take(const QImage& image);

    AppState& state_;
    Canvas* canvas_;
    SegmentedSwitch* side_;
    QPushButton* previous_;
    QPushButton* next_;
    QLabel* place_;
    QTimer* askTimer_;
    std::optional<Uuid> preset_;
    /// Photos of the crop type, by their place in the job.
    std::vector<std::size_t> photos_;
    std::size_t at_ = 0;
    ThumbnailStore::Ticket before_ = 0;
    BackdropPreview::Ticket after_ = 0;
    bool isComplete_ = false;
};

}  // namespace morva
