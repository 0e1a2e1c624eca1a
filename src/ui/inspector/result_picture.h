// SPDX-License-Identifier: GPL-3.0-or-later
// The finished crop of one photo, composed in the background as the export does it, from a reduced
// photo. Owned by the canvas; keeps the latest one only.
#pragma once

#include <memory>
#include <optional>

#include <QImage>
#include <QObject>
#include <QTimer>

#include "app/working_job.h"
#include "base/geometry.h"
#include "model/presets/export_settings.h"

namespace morva {

class AppState;

class ResultPicture final : public QObject {
    Q_OBJECT

public:
    explicit ResultPicture(AppState& state, QObject* parent = nullptr);

    /// Asks for the crop of a photo that has one, `height` pixels high. Made a moment after the
    /// last wish, so that a frame that moves is not composed at every place.
    void want(const WorkingJob& job, std::size_t index, int height);
    void wantNothing();

    /// Null until it is made, or when it cannot be.
    QImage picture() const;

signals:
    void changed();

private:
    struct Wish;

    void begin();
    void made(const Wish& wish, const QImage& picture);

    AppState& state_;
    std::shared_ptr<const Wish> wish_;
    std::shared_ptr<const Wish> shown_;
    QImage picture_;
    bool isBusy_ = false;
    QTimer pause_;
};

}  // namespace morva
