// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/reference_box.h"

#include <algorithm>
#include <cmath>

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>

#include "app/app_state.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

/// The image, where it is at hand, with the measured heights over it; the heights alone otherwise.
class ReferencePicture final : public QWidget {
public:
    explicit ReferencePicture(QWidget* parent = nullptr) : QWidget(parent) { setFixedSize(56, 70); }

    void setReference(const std::optional<ReferenceGeometry>& reference, const QImage& image) {
        reference_ = reference;
        image_ = image;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Theme& theme = Theme::current();
        if (!reference_) {
            drawBox(painter, rect(), theme.canvas, theme.line, 0);
            painter.drawPixmap(
                (width() - 20) / 2, (height() - 20) / 2,
                iconPixmap(QStringLiteral("person"), theme.text3, 20, devicePixelRatioF()));
            return;
        }
        const double aspect = reference_->aspect > 0 ? reference_->aspect : 0.8;
        const double side = std::min(width() / aspect, static_cast<double>(height()));
        const QRectF frame((width() - side * aspect) / 2, (height() - side) / 2, side * aspect,
                           side);
        painter.fillRect(frame, theme.canvas);
        if (!image_.isNull()) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(frame, image_);
        }
        const auto line = [&](double share, const QColor& color) {
            const qreal y = std::round(frame.y() + share * frame.height());
            painter.fillRect(QRectF(frame.x(), y, frame.width(), 1), color);
        };
        line(reference_->eyeY, theme.eyeLine);
        line(reference_->chinY, theme.chinLine);
        if (reference_->headTopY) line(*reference_->headTopY, theme.headTop);
        drawBox(painter, frame, QColor(), theme.line, 0);
    }

private:
    std::optional<ReferenceGeometry> reference_;
    QImage image_;
};

ReferenceBox::ReferenceBox(AppState& state, QWidget* parent)
    : QWidget(parent),
      state_(state),
      picture_(new ReferencePicture),
      name_(new ElidedLabel(TextRole::small, Ink::text, Qt::ElideMiddle)),
      values_(makeWrappedLabel({}, TextRole::small, Ink::text2)),
      choose_(new QPushButton(icon(QStringLiteral("image")), tr("Choose…"))),
      clear_(new QPushButton(tr("Clear"))) {
    setObjectName(QStringLiteral("reference"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::gap);
    auto* top = new QHBoxLayout;
    top->setSpacing(12);
    top->addWidget(picture_, 0, Qt::AlignTop);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addStretch(1);
    words->addWidget(name_);
    words->addWidget(values_);
    words->addStretch(1);
    top->addLayout(words, 1);
    column->addLayout(top);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Metrics::gap);
    for (QPushButton* button : {choose_, clear_}) {
        button->setProperty("morvaSmall", true);
        buttons->addWidget(button);
    }
    setLook(*clear_, ButtonLook::quiet);
    choose_->setAccessibleDescription(
        tr("Takes face size, eye line and top margin from a finished portrait."));
    buttons->addStretch(1);
    column->addLayout(buttons);
    askForImage = [this]() -> std::optional<std::filesystem::path> {
        const QString file =
            QFileDialog::getOpenFileName(window(), tr("Choose a finished portrait"), {},
                                         tr("Images (*.jpg *.jpeg *.png *.tif *.tiff *.heic)"));
        if (file.isEmpty()) return std::nullopt;
        return std::filesystem::path(file.toStdString());
    };
    connect(choose_, &QPushButton::clicked, this, &ReferenceBox::choose);
    connect(clear_, &QPushButton::clicked, this, [this] { state_.clearReference(); });
}

void ReferenceBox::choose() {
    const auto file = askForImage();
    if (!file) return;
    files_.insert_or_assign(preset_, *file);
    state_.useReference(*file);
}

void ReferenceBox::show(const CropPreset& preset, bool mayChange) {
    const Shown now{preset.reference, mayChange, state_.referenceBusy()};
    if (preset_ == preset.id && shown_ == now) return;
    preset_ = preset.id;
    shown_ = now;
    const auto& reference = preset.reference;
    choose_->setEnabled(mayChange && !state_.referenceBusy());
    clear_->setEnabled(mayChange && reference && !state_.referenceBusy());
    if (state_.referenceBusy()) {
        name_->setFullText(tr("Measuring…"));
        values_->clear();
        return;
    }
    if (!reference) {
        picture_->setReference(reference, {});
        name_->setFullText(tr("None"));
        values_->setText(tr("A finished portrait can set face size, eye line and top margin."));
        return;
    }
    name_->setFullText(asGiven(reference->sourceName));
    const QString top = reference->headTopY
                            ? tr("Headroom %1").arg(percent(*reference->headTopY, 1))
                            : tr("Headroom not measured");
    values_->setText(
        tr("Face %1 · eyes %2").arg(percent(reference->faceScale, 1), percent(reference->eyeY, 1)) +
        QLatin1Char('\n') + top);
    picture_->setReference(reference, {});
    const auto file = files_.find(preset.id);
    if (file == files_.end() || file->second.filename() != reference->sourceName) return;
    state_.thumbnails().request(
        {.url = file->second, .height = 140},
        [box = QPointer(this), measured = reference, id = preset.id](const QImage& image) {
            if (box && box->preset_ == id) box->picture_->setReference(measured, image);
        });
}

}  // namespace morva
