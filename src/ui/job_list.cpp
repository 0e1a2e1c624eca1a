// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/job_list.h"

#include <algorithm>
#include <array>

#include <QPainter>

#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/status_look.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int rowHeight = 64;
constexpr int barHeight = 4;
constexpr int side = 16;  // padding at both sides
constexpr int markWidth = 3;

/// Where a job stands, the most pressing first.
struct Standing {
    QString text;
    QString icon;
    QColor color;
};

Standing standingOf(const WorkingJob& job, const AppState& state) {
    const Theme& theme = Theme::current();
    const int photos = static_cast<int>(job.job().items.size());
    const int pending = job.count(ItemStatus::pending);
    const int review = job.count(ItemStatus::review);
    const QString all = JobList::tr("%n photo(s)", "", photos);
    const bool isRunning = state.progress() && state.selectedJobID() == job.id();
    if (isRunning && pending > 0)
        return {JobList::tr("%1 of %n cropped", "", photos).arg(count(photos - pending)),
                QStringLiteral("clock"), theme.text2};
    const auto with = [&](const QString& more) { return JobList::tr("%1 · %2").arg(all, more); };
    if (photos > 0 && pending == photos)
        return {with(JobList::tr("not cropped")), QStringLiteral("s-pending"), theme.text2};
    if (pending > 0)
        return {with(JobList::tr("%n not cropped", "", pending)), QStringLiteral("s-pending"),
                theme.text2};
    if (review > 0)
        return {with(JobList::tr("%n to review", "", review)), QStringLiteral("s-review"),
                theme.review};
    if (job.job().lastExportAt)
        return {with(JobList::tr("exported")), QStringLiteral("check"), theme.text2};
    const int approved = job.count(ItemStatus::approved);
    if (approved > 0 && job.count(ItemStatus::ready) == 0)
        return {with(JobList::tr("all approved")), QStringLiteral("s-approved"), theme.approved};
    return {with(JobList::tr("%n ready", "", job.count(ItemStatus::ready))),
            QStringLiteral("s-ready"), theme.ready};
}

void drawShares(QPainter& painter, const QRect& bar, const QList<QVariant>& shares,
                Qt::LayoutDirection direction) {
    const Theme& theme = Theme::current();
    const std::array inks{theme.approved, theme.ready, theme.review, theme.failed};
    painter.fillRect(bar, theme.groove);
    double from = 0;
    for (std::size_t i = 0; i < inks.size(); ++i) {
        const double share = shares.value(static_cast<qsizetype>(i)).toDouble();
        if (share <= 0) continue;
        const int left = bar.x() + static_cast<int>(from * bar.width());
        from += share;
        const int right = bar.x() + static_cast<int>(from * bar.width());
        // A pixel apart, and even one photo among hundreds is seen.
        const QRect part(left, bar.y(), std::max(2, right - left - 1), bar.height());
        painter.fillRect(QStyle::visualRect(direction, bar, part), inks[i]);
    }
}

}  // namespace

JobList::JobList(AppState& state, QObject* parent) : QAbstractListModel(parent), state_(state) {
    connect(&state, &AppState::jobsChanged, this, [this] {
        beginResetModel();
        endResetModel();
    });
    const auto tell = [this](const Uuid& job) {
        const QModelIndex index = indexOf(job);
        if (index.isValid()) emit dataChanged(index, index);
    };
    connect(&state, &AppState::jobChanged, this, tell);
    connect(&state, &AppState::itemsReset, this, tell);
    connect(&state, &AppState::itemsChanged, this, tell);
}

int JobList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(state_.jobs().size());
}

const WorkingJob* JobList::jobAt(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    return index.isValid() && row < state_.jobs().size() ? state_.jobs()[row].get() : nullptr;
}

QVariant JobList::data(const QModelIndex& index, int role) const {
    const WorkingJob* job = jobAt(index);
    if (!job) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return asGiven(job->job().name);
        case Qt::ToolTipRole:
            return pathText(job->job().folderURL);
        case Qt::AccessibleTextRole:
            return tr("%1, %2").arg(asGiven(job->job().name), standingOf(*job, state_).text);
        case jobID:
            return QString::fromStdString(job->id().text());
        case summary:
            return standingOf(*job, state_).text;
        case summaryIcon:
            return standingOf(*job, state_).icon;
        case summaryColor:
            return standingOf(*job, state_).color;
        case shares: {
            const double all = std::max<double>(1, static_cast<double>(job->job().items.size()));
            const auto share = [&](int photos) { return QVariant(photos / all); };
            return QList<QVariant>{
                share(job->count(ItemStatus::approved)), share(job->count(ItemStatus::ready)),
                share(job->count(ItemStatus::review)), share(job->count(StatusFilter::failed))};
        }
        default:
            return {};
    }
}

Qt::ItemFlags JobList::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractListModel::flags(index);
    if (index.isValid() && !state_.isReadOnly()) flags |= Qt::ItemIsEditable;
    return flags;
}

bool JobList::setData(const QModelIndex& index, const QVariant& value, int role) {
    const WorkingJob* job = jobAt(index);
    const QString text = value.toString().trimmed();
    if (!job || role != Qt::EditRole || text.isEmpty()) return false;
    state_.selectJob(job->id());
    state_.renameJob(text.toStdString());
    return true;
}

QModelIndex JobList::indexOf(const Uuid& wanted) const {
    const auto& jobs = state_.jobs();
    const auto found =
        std::ranges::find_if(jobs, [&](const auto& job) { return job->id() == wanted; });
    return found == jobs.end() ? QModelIndex() : index(static_cast<int>(found - jobs.begin()));
}

void JobDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const Theme& theme = Theme::current();
    const QRect rect = option.rect;
    const bool isChosen = option.state & QStyle::State_Selected;
    const bool isOver = option.state & QStyle::State_MouseOver;
    if (isChosen || isOver) painter->fillRect(rect, isChosen ? theme.selected : theme.cellHover);
    if (isChosen)
        painter->fillRect(QStyle::visualRect(option.direction, rect,
                                             QRect(rect.x(), rect.y(), markWidth, rect.height())),
                          theme.accent);

    const QRect inner = rect.adjusted(side, 10, -12, -10);
    const auto place = [&](const QRect& logical) {
        return QStyle::visualRect(option.direction, rect, logical);
    };
    const auto start =
        Qt::AlignVCenter | (option.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    painter->setFont(fontFor(TextRole::emphasis));
    painter->setPen(theme.text);
    const QRect name = QRect(inner.x(), inner.y(), inner.width(), painter->fontMetrics().height());
    painter->drawText(
        place(name), start,
        painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, name.width()));

    painter->setFont(fontFor(TextRole::small));
    painter->setPen(theme.text2);
    const int lineHeight = painter->fontMetrics().height();
    const int y = inner.bottom() - barHeight - 6 - lineHeight;
    const QRect iconRect(inner.x(), y + (lineHeight - 12) / 2, 12, 12);
    painter->drawPixmap(place(iconRect).topLeft(),
                        iconPixmap(index.data(JobList::summaryIcon).toString(),
                                   index.data(JobList::summaryColor).value<QColor>(), 12,
                                   painter->device()->devicePixelRatioF()));
    const QRect line(inner.x() + 16, y, inner.width() - 16, lineHeight);
    painter->drawText(place(line), start,
                      painter->fontMetrics().elidedText(index.data(JobList::summary).toString(),
                                                        Qt::ElideRight, line.width()));
    drawShares(*painter, QRect(inner.x(), inner.bottom() - barHeight, inner.width(), barHeight),
               index.data(JobList::shares).toList(), option.direction);
    if ((option.state & QStyle::State_HasFocus) &&
        (option.state & QStyle::State_KeyboardFocusChange))
        drawBox(*painter, QRectF(rect).adjusted(1, 1, -1, -1), QColor(), theme.accentBright,
                Metrics::controlRadius, theme.ring);
}

QSize JobDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {scaled(120), scaled(rowHeight)};
}

void JobDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                       const QModelIndex&) const {
    editor->setGeometry(option.rect.adjusted(8, 4, -8, 0).x(), option.rect.y() + 4,
                        option.rect.width() - 16, editor->sizeHint().height());
}

}  // namespace morva
