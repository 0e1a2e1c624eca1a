// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/status_strip.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>

#include "ui/widgets/elided_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/key_cap.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

/// "← ↑ ↓ → move  + − zoom": the keys that matter while a crop is adjusted.
class KeyHints final : public QWidget {
public:
    explicit KeyHints(QWidget* parent = nullptr) : QWidget(parent) {
        groups_ = {{{"←", "↑", "↓", "→"}, StatusStrip::tr("move")},
                   {{"+", "−"}, StatusStrip::tr("zoom")},
                   {{",", "."}, StatusStrip::tr("turn")},
                   {{StatusStrip::tr("Space")}, StatusStrip::tr("approve")}};
        QString all;
        for (const Group& group : groups_)
            all += group.keys.join(QLatin1Char(' ')) + QLatin1Char(' ') + group.what +
                   QLatin1String("; ");
        setAccessibleName(StatusStrip::tr("Keys: %1").arg(all));
    }

    QSize sizeHint() const override { return {layOut(nullptr), 20}; }
    QSize minimumSizeHint() const override { return {0, 20}; }

protected:
    void paintEvent(QPaintEvent*) override {
        // All or none: half a row of keys explains nothing.
        if (width() < sizeHint().width()) return;
        QPainter painter(this);
        layOut(&painter);
    }

private:
    struct Group {
        QStringList keys;
        QString what;
    };

    int layOut(QPainter* painter) const {
        const Theme& theme = Theme::current();
        const QFont type = fontFor(TextRole::small);
        const QFontMetrics metrics(type);
        int x = 0;
        const auto put = [&](int width, const auto& draw) {
            if (painter)
                draw(QStyle::visualRect(layoutDirection(), rect(), QRect(x, 0, width, height())));
            x += width + 4;
        };
        for (const Group& group : groups_) {
            for (const QString& key : group.keys) {
                const QSize size = keyCapSize(key);
                put(size.width(), [&](const QRect& at) {
                    drawKeyCap(*painter, key, {at.x(), (height() - size.height()) / 2},
                               theme.text2);
                });
            }
            put(metrics.horizontalAdvance(group.what) + 1, [&](const QRect& at) {
                painter->setFont(type);
                painter->setPen(theme.text2);
                painter->drawText(at, Qt::AlignCenter, group.what);
            });
            x += 8;
        }
        return x - 12;
    }

    std::vector<Group> groups_;
};

namespace {

constexpr int barWidth = 190;
constexpr int barThickness = 6;

QString timeLeft(double seconds) {
    const int rounded = static_cast<int>(std::lround(seconds));
    if (rounded < 60) return StatusStrip::tr("about %n s left", "", std::max(1, rounded));
    return StatusStrip::tr("about %n min left", "", (rounded + 30) / 60);
}

QLabel* figure() {
    QLabel* label = makeLabel({}, TextRole::small, Ink::text2);
    label->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    return label;
}

}  // namespace

StatusStrip::StatusStrip(AppState& state, QWidget* parent)
    : QWidget(parent),
      state_(state),
      count_(new ElidedLabel(TextRole::small, Ink::text2)),
      task_(new QWidget),
      taskTitle_(new ElidedLabel(TextRole::small, Ink::text2)),
      bar_(new QProgressBar),
      done_(makeLabel({}, TextRole::small)),
      rate_(figure()),
      left_(figure()),
      cancel_(new QPushButton(tr("Cancel"))),
      result_(new QWidget),
      resultIcon_(new QLabel),
      resultText_(new ElidedLabel(TextRole::small, Ink::text2)),
      offer_(new QPushButton),
      hints_(new KeyHints) {
    setFixedHeight(scaled(Metrics::statusBarHeight));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::panelPadding, 0, Metrics::gap, 0);
    row->setSpacing(Metrics::panelPadding);
    row->addWidget(count_, 1);
    row->addWidget(task_, 0, Qt::AlignTrailing);
    row->addWidget(result_, 0, Qt::AlignTrailing);
    row->addWidget(hints_, 0, Qt::AlignTrailing);

    auto* task = new QHBoxLayout(task_);
    task->setContentsMargins(0, 0, 0, 0);
    task->setSpacing(12);
    bar_->setTextVisible(false);
    bar_->setFixedSize(barWidth, barThickness);
    cancel_->setIcon(icon(QStringLiteral("close")));
    cancel_->setProperty("morvaSmall", true);
    setLook(*cancel_, ButtonLook::quiet);
    for (QWidget* part : {static_cast<QWidget*>(taskTitle_), static_cast<QWidget*>(bar_),
                          static_cast<QWidget*>(done_), static_cast<QWidget*>(rate_),
                          static_cast<QWidget*>(left_), static_cast<QWidget*>(cancel_)})
        task->addWidget(part);
    bar_->setAccessibleName(tr("Progress"));
    connect(cancel_, &QPushButton::clicked, &state, &AppState::cancelProcessing);

    auto* result = new QHBoxLayout(result_);
    result->setContentsMargins(0, 0, 0, 0);
    result->setSpacing(Metrics::gap);
    offer_->setProperty("morvaSmall", true);
    result->addWidget(resultIcon_);
    result->addWidget(resultText_);
    result->addWidget(offer_);
    offer_->hide();
    connect(offer_, &QPushButton::clicked, this, [this] {
        offer_->hide();
        if (offered_) offered_();
    });

    for (const auto signal :
         {&AppState::jobsChanged, &AppState::selectedJobChanged, &AppState::selectionChanged,
          &AppState::filterChanged, &AppState::modeChanged})
        connect(&state, signal, this, &StatusStrip::refreshCount);
    connect(&state, &AppState::itemsChanged, this, &StatusStrip::refreshCount);
    connect(&state, &AppState::itemsReset, this, &StatusStrip::refreshCount);
    connect(&state, &AppState::progressChanged, this, &StatusStrip::refreshTask);
    connect(&state, &AppState::resultChanged, this, &StatusStrip::refreshResult);
    connect(&state, &AppState::modeChanged, this, &StatusStrip::showWhatMatters);
    refreshCount();
    refreshTask();
    refreshResult();
}

void StatusStrip::offer(const QString& text, const std::function<void()>& act) {
    offered_ = act;
    offer_->setText(text);
    offer_->show();
}

void StatusStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::current();
    painter.fillRect(rect(), theme.bar);
    painter.fillRect(0, 0, width(), 1, theme.seam);
}

void StatusStrip::refreshCount() {
    const WorkingJob* job = state_.selectedJob();
    if (!job) {
        count_->setFullText(tr("No job open"));
        return;
    }
    const auto& shown = state_.filteredItems();
    QString text = tr("%n photo(s)", "", static_cast<int>(shown.size()));
    if (state_.filter() != StatusFilter::all)
        text = tr("%1 of %2").arg(text, count(static_cast<int>(job->job().items.size())));
    if (const int chosen = static_cast<int>(state_.selection().size()); chosen > 0)
        text = tr("%1 · %n selected", "", chosen).arg(text);
    count_->setFullText(text);
}

void StatusStrip::refreshTask() {
    const auto& progress = state_.progress();
    if (progress) {
        taskTitle_->setFullText(said(progress->title));
        bar_->setRange(0, std::max(1, progress->total));
        bar_->setValue(progress->completed);
        const bool isKnown = progress->total > 0;
        done_->setVisible(isKnown);
        done_->setText(tr("%1 of %2").arg(count(progress->completed), count(progress->total)));
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - progress->begun)
                .count();
        // The first moments say nothing about the pace.
        const bool hasPace = isKnown && progress->completed > 3 && seconds > 1;
        rate_->setVisible(hasPace);
        left_->setVisible(hasPace);
        if (hasPace) {
            const double rate = progress->completed / seconds;
            rate_->setText(tr("%1 photos/s").arg(number(rate, 1)));
            left_->setText(timeLeft((progress->total - progress->completed) / rate));
        }
    }
    showWhatMatters();
}

void StatusStrip::refreshResult() {
    offer_->hide();
    resultText_->setFullText(said(state_.lastResult()));
    resultIcon_->setPixmap(
        iconPixmap(QStringLiteral("check"), Theme::current().approved, 14, devicePixelRatioF()));
    showWhatMatters();
}

void StatusStrip::showWhatMatters() {
    const bool isBusy = state_.progress().has_value();
    const bool inspects = state_.selectedJob() && state_.mode() == ViewMode::inspect;
    task_->setVisible(isBusy);
    result_->setVisible(!isBusy && !inspects && !state_.lastResult().empty());
    hints_->setVisible(!isBusy && inspects);
}

}  // namespace morva
