// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/result_picture.h"

#include <exception>

#include <QPointer>

#include "app/app_state.h"
#include "crop/crop_solver.h"
#include "output/crop_renderer.h"
#include "output/matte_cutter.h"

namespace morva {

namespace {

/// After the last wish, before composing begins.
constexpr int pauseMilliseconds = 120;

QImage toImage(const Picture& picture) {
    return QImage(picture.row(0), picture.width(), picture.height(),
                  static_cast<qsizetype>(picture.rowBytes()), QImage::Format_RGB888)
        .convertToFormat(QImage::Format_RGB32);
}

}  // namespace

struct ResultPicture::Wish {
    std::filesystem::path file;
    std::optional<FileSignature> stamp;
    ImageAnalysis analysis;
    Rect rect;
    double rotation = 0;
    ExportSettings settings;
    int height = 0;

    bool shows(const Wish& other) const {
        return file == other.file && stamp == other.stamp && rect == other.rect &&
               rotation == other.rotation && settings == other.settings && height == other.height;
    }

    /// Null when it cannot be made.
    QImage compose(const decltype(AppServices::cutterFor)& cutterFor) const {
        try {
            const bool replaces = settings.backdrop == BackdropMode::replace;
            const auto cutter = replaces ? cutterFor(file, analysis, {}) : nullptr;
            const auto made = CropRenderer::preview(file, analysis.sourceSize(), rotation,
                                                    {.rect = rect,
                                                     .geometry = {},
                                                     .settings = settings,
                                                     .headAnchor = headAnchorOf(analysis),
                                                     .cutter = cutter.get()},
                                                    height);
            return made ? toImage(made->picture) : QImage();
        } catch (const std::exception&) {
            // Memory can run out; the canvas then goes on showing what it draws itself.
            return {};
        }
    }
};

ResultPicture::ResultPicture(AppState& state, QObject* parent) : QObject(parent), state_(state) {
    pause_.setSingleShot(true);
    pause_.setInterval(pauseMilliseconds);
    connect(&pause_, &QTimer::timeout, this, &ResultPicture::begin);
}

void ResultPicture::want(const WorkingJob& job, std::size_t index, int height) {
    const ImageItem& item = job.item(index);
    const CropPreset* preset = state_.preset(job.solvedWith(index).presetID);
    const auto rect = job.finalRect(index);
    if (!rect || !preset || height < 1) return wantNothing();
    auto wish = std::make_shared<const Wish>(
        Wish{.file = item.url,
             .stamp = item.analyzedStamp,
             .analysis = *item.analysis,
             .rect = *rect,
             .rotation = CropSolver::finalRotation(*item.solution, item.adjustment),
             .settings = preset->settingsForExport(),
             .height = height});
    if (wish_ && wish_->shows(*wish)) return;
    wish_ = std::move(wish);
    pause_.start();
}

void ResultPicture::wantNothing() {
    wish_.reset();
    pause_.stop();
}

void ResultPicture::begin() {
    if (!wish_ || isBusy_) return;
    isBusy_ = true;
    state_.background().run(
        [wish = wish_, cutterFor = state_.services().cutterFor] {
            return wish->compose(cutterFor);
        },
        [self = QPointer(this), wish = wish_](const QImage& picture) {
            if (self) self->made(*wish, picture);
        });
}

void ResultPicture::made(const Wish& wish, const QImage& picture) {
    isBusy_ = false;
    if (wish_ && wish_->shows(wish)) {
        shown_ = wish_;
        picture_ = picture;
        emit changed();
    } else {
        begin();
    }
}

QImage ResultPicture::picture() const { return wish_ && shown_ == wish_ ? picture_ : QImage(); }

}  // namespace morva
