// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/filter_bar.h"

#include <QAction>
#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QSlider>
#include <QStyleOption>
#include <QToolButton>

#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

/// A filter's name with its count beside it in a quieter ink.
class FilterButton final : public QToolButton {
public:
    explicit FilterButton(QAction* action) {
        setDefaultAction(action);
        setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        setLook(*this, ButtonLook::quiet);
        setFocusPolicy(Qt::StrongFocus);
    }

    void setCount(int photos) {
        count_ = count(photos);
        setAccessibleName(FilterBar::tr("%1: %n photo(s)", "", photos).arg(text()));
        updateGeometry();
        update();
    }
    /// Narrow windows get smaller type and less padding.
    void setTight(bool tight) {
        if (tight == isTight_) return;
        isTight_ = tight;
        updateGeometry();
        update();
    }

    QSize sizeHint() const override {
        const QFontMetrics metrics(type());
        int width = 2 * padding() + metrics.horizontalAdvance(text()) + 6 +
                    metrics.horizontalAdvance(count_);
        if (!defaultAction()->icon().isNull()) width += iconSide + 6;
        return {width, scaled(isTight_ ? 28 : 30)};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QStyleOptionToolButton option;
        initStyleOption(&option);
        style()->drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter, this);
        const Theme& theme = Theme::current();
        painter.setFont(type());
        int x = padding();
        const auto place = [&](int width) {
            const QRect logical(x, 0, width, height());
            x += width + 6;
            return QStyle::visualRect(layoutDirection(), rect(), logical);
        };
        if (!defaultAction()->icon().isNull()) {
            const QRect at = place(iconSide);
            defaultAction()->icon().paint(&painter, at);
        }
        painter.setPen(isChecked() || underMouse() ? theme.text : theme.text2);
        painter.drawText(place(painter.fontMetrics().horizontalAdvance(text())), Qt::AlignCenter,
                         text());
        painter.setPen(isChecked() ? theme.text : theme.text3);
        painter.drawText(place(painter.fontMetrics().horizontalAdvance(count_)), Qt::AlignCenter,
                         count_);
    }

private:
    static constexpr int iconSide = 14;

    QFont type() const { return fontFor(isTight_ ? TextRole::small : TextRole::body); }
    int padding() const { return isTight_ ? 6 : 8; }

    QString count_;
    bool isTight_ = false;
};

QLabel* sizeMark(const QString& name) {
    auto* label = new QLabel;
    label->setPixmap(iconPixmap(name, Theme::current().text2, 14, label->devicePixelRatioF()));
    return label;
}

}  // namespace

FilterBar::FilterBar(AppState& state, QActionGroup* filters, QWidget* parent)
    : QWidget(parent), state_(state), sizes_(new QWidget), slider_(new QSlider(Qt::Horizontal)) {
    setFixedHeight(scaled(Metrics::barHeight));
    setAccessibleName(tr("Which photos are shown"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::gap, 0, Metrics::gap, 0);
    row->setSpacing(4);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        buttons_[i] = new FilterButton(filters->actions().at(static_cast<qsizetype>(i)));
        row->addWidget(buttons_[i]);
    }
    row->addStretch(1);
    auto* sizes = new QHBoxLayout(sizes_);
    sizes->setContentsMargins(0, 0, 0, 0);
    sizes->setSpacing(4);
    slider_->setRange(smallestThumbnail, largestThumbnail);
    slider_->setPageStep(30);
    slider_->setFixedWidth(88);
    slider_->setAccessibleName(tr("Size of thumbnails"));
    slider_->setToolTip(tr("Size of thumbnails"));
    sizes->addWidget(sizeMark(QStringLiteral("small")));
    sizes->addWidget(slider_);
    sizes->addWidget(sizeMark(QStringLiteral("large")));
    row->addWidget(sizes_);

    connect(slider_, &QSlider::valueChanged, this,
            [this](int value) { state_.setThumbnailHeight(value); });
    const auto followSize = [this] {
        slider_->setValue(static_cast<int>(state_.thumbnailHeight()));
    };
    connect(&state, &AppState::thumbnailHeightChanged, this, followSize);
    for (const auto signal : {&AppState::jobsChanged, &AppState::selectedJobChanged})
        connect(&state, signal, this, &FilterBar::refreshCounts);
    connect(&state, &AppState::itemsChanged, this, &FilterBar::refreshCounts);
    connect(&state, &AppState::itemsReset, this, &FilterBar::refreshCounts);
    followSize();
    refreshCounts();
}

void FilterBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::current();
    painter.fillRect(rect(), theme.strip);
    painter.fillRect(0, height() - 1, width(), 1, theme.seam);
}

void FilterBar::resizeEvent(QResizeEvent*) { makeRoom(); }

void FilterBar::refreshCounts() {
    const WorkingJob* job = state_.selectedJob();
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        static_cast<FilterButton*>(buttons_[i])
            ->setCount(job ? job->count(static_cast<StatusFilter>(i)) : 0);
    makeRoom();
}

void FilterBar::makeRoom() {
    const auto setTight = [this](bool tight) {
        for (QToolButton* button : buttons_) static_cast<FilterButton*>(button)->setTight(tight);
    };
    const auto needed = [this] {
        int width = 2 * Metrics::gap;
        for (const QToolButton* button : buttons_) width += button->sizeHint().width() + 4;
        return width;
    };
    const int forSizes = sizes_->sizeHint().width() + Metrics::gap;
    setTight(false);
    sizes_->setVisible(needed() + forSizes <= width());
    if (needed() > width()) setTight(true);
}

}  // namespace morva
