// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/backdrop_view.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "app/backdrop_setup.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/segmented_switch.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int canvasWidth = 376;
constexpr int canvasHeight = 470;
/// A slider that is dragged asks when it rests.
constexpr int restTime = 120;

enum Side { before, after };

QPushButton* stepper(const QString& icon, const QString& name) {
    auto* button = new QPushButton(morva::icon(icon), QString());
    button->setProperty("morvaSmall", true);
    setLook(*button, ButtonLook::quiet);
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

}  // namespace

/// The picture, as large as fits.
class BackdropView::Canvas final : public QWidget {
public:
    Canvas() {
        setMinimumSize(200, 200);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
        setAccessibleName(BackdropView::tr("Preview"));
    }
    QSize sizeHint() const override { return {canvasWidth, canvasHeight}; }

    void show(const QImage& image) {
        image_ = image;
        update();
    }
    /// "Making the preview…", or empty.
    void setNote(const QString& note) {
        note_ = note;
        setAccessibleDescription(note);
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Theme& theme = Theme::current();
        painter.fillRect(rect(), theme.canvas);
        if (!image_.isNull()) {
            const QSize size = image_.size().scaled(this->size(), Qt::KeepAspectRatio);
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(
                QRect({(width() - size.width()) / 2, (height() - size.height()) / 2}, size),
                image_);
        }
        if (note_.isEmpty()) return;
        painter.setFont(fontFor(TextRole::small));
        const QRect text = painter.fontMetrics()
                               .boundingRect(rect().adjusted(16, 0, -16, 0),
                                             Qt::AlignCenter | Qt::TextWordWrap, note_)
                               .adjusted(-8, -4, 8, 4);
        const QRect box(QPoint((width() - text.width()) / 2, height() - text.height() - 12),
                        text.size());
        drawBox(painter, box, theme.canvas, theme.sheetEdge, Metrics::controlRadius);
        painter.setPen(theme.text);
        painter.drawText(box, Qt::AlignCenter | Qt::TextWordWrap, note_);
    }

private:
    QImage image_;
    QString note_;
};

BackdropView::BackdropView(AppState& state, QWidget* parent)
    : QWidget(parent),
      state_(state),
      canvas_(new Canvas),
      side_(new SegmentedSwitch({tr("Before"), tr("After")})),
      previous_(stepper(QStringLiteral("left"), tr("Previous photo"))),
      next_(stepper(QStringLiteral("right"), tr("Next photo"))),
      place_(makeLabel({}, TextRole::small)),
      askTimer_(new QTimer(this)) {
    auto* foot = new QHBoxLayout;
    foot->setSpacing(Metrics::gap);
    foot->addWidget(side_);
    foot->addStretch(1);
    foot->addWidget(previous_);
    foot->addWidget(place_);
    foot->addWidget(next_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    column->addWidget(canvas_, 1);
    column->addLayout(foot);
    side_->setChosen(Side::after);
    askTimer_->setSingleShot(true);
    connect(askTimer_, &QTimer::timeout, this, &BackdropView::ask);
    connect(side_, &SegmentedSwitch::choose, this, &BackdropView::ask);
    connect(previous_, &QPushButton::clicked, this, [this] { step(-1); });
    connect(next_, &QPushButton::clicked, this, [this] { step(1); });
    connect(&state_, &AppState::itemsReset, this, &BackdropView::collect);
}

BackdropView::~BackdropView() {
    state_.thumbnails().cancel(before_);
    state_.backdrops().previews().cancel(after_);
}

void BackdropView::showType(const std::optional<Uuid>& preset) {
    if (preset == preset_) return refresh();
    preset_ = preset;
    collect();
}

void BackdropView::collect() {
    photos_.clear();
    at_ = 0;
    const WorkingJob* job = state_.selectedJob();
    for (std::size_t i = 0; job && i < job->job().items.size(); ++i) {
        if (preset_ && job->solvedWith(i).presetID == *preset_ && job->finalRect(i)) {
            if (job->item(i).id == state_.selectedItemID()) at_ = photos_.size();
            photos_.push_back(i);
        }
    }
    canvas_->show({});
    ask();
}

void BackdropView::refresh() {
    isComplete_ = false;
    askTimer_->start(restTime);
}

void BackdropView::step(int by) {
    const auto to = static_cast<std::ptrdiff_t>(at_) + by;
    if (to < 0 || to >= static_cast<std::ptrdiff_t>(photos_.size())) return;
    at_ = static_cast<std::size_t>(to);
    ask();
}

void BackdropView::ask() {
    askTimer_->stop();
    state_.thumbnails().cancel(before_);
    state_.backdrops().previews().cancel(after_);
    const bool hasPhotos = !photos_.empty();
    place_->setText(hasPhotos ? tr("%1 of %2")
                                    .arg(count(static_cast<int>(at_) + 1),
                                         count(static_cast<int>(photos_.size())))
                              : QString());
    previous_->setEnabled(hasPhotos && at_ > 0);
    next_->setEnabled(at_ + 1 < photos_.size());
    const WorkingJob* job = state_.selectedJob();
    const CropPreset* preset = preset_ ? state_.preset(*preset_) : nullptr;
    if (!job || !preset || !hasPhotos) {
        isComplete_ = true;
        canvas_->setNote(preset ? tr("No photo of this job has this crop type yet.") : QString());
        return;
    }
    isComplete_ = false;
    const std::size_t photo = photos_[at_];
    const int height = static_cast<int>(canvasHeight * devicePixelRatioF());
    CropPreset edited = *preset;
    edited.exportSettings = state_.backdrops().settingsFor(*preset);
    if (side_->chosen() == Side::before) edited.exportSettings.backdrop = BackdropMode::keep;
    canvas_->setNote(tr("Making the preview…"));
    if (edited.exportSettings.backdrop != BackdropMode::replace) {
        before_ = state_.thumbnails().request(job->preview(photo, state_.presets(), height),
                                              [this](const QImage& image) { take(image); });
        return;
    }
    const auto wanted = BackdropPreview::wanted(*job, photo, edited, height);
    if (!wanted) return take({});
    after_ = state_.backdrops().previews().request(
        *wanted, [this](const std::optional<QImage>& image) { take(image.value_or(QImage())); });
}

void BackdropView::take(const QImage& image) {
    isComplete_ = true;
    canvas_->show(image);
    canvas_->setNote(image.isNull() ? tr("This photo cannot be drawn.") : QString());
}

}  // namespace morva
