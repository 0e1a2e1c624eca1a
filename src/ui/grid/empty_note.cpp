// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/empty_note.h"

#include <algorithm>

#include <QCoreApplication>
#include <QFontMetrics>

#include "ui/widgets/icons.h"
#include "ui/widgets/status_look.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva::EmptyNote {

namespace {

constexpr int iconSide = 20;
constexpr int iconGap = 8;
constexpr int widest = 360;
constexpr int margin = 24;

QString tr(const char* text) { return QCoreApplication::translate("EmptyNote", text); }

Text withLook(const StatusLook& look, const QString& title, const QString& next) {
    return {look.icon, look.color, title, next};
}

/// Photos whose crops are settled.
bool isAllCropped(const WorkingJob& job) { return job.count(ItemStatus::pending) == 0; }

QString cropFirst() { return tr("Crop the photos first; they are sorted as they are measured."); }

}  // namespace

Text of(const AppState& state) {
    const WorkingJob& job = *state.selectedJob();
    const StatusFilter filter = state.filter();
    const bool isCropped = isAllCropped(job);
    const StatusLook look = lookOf(filter);
    switch (filter) {
        case StatusFilter::all:
            return {QStringLiteral("image"), Theme::current().text2, tr("No photos in this job"),
                    tr("Put photos into its folder and open the folder again.")};
        case StatusFilter::ready:
            return withLook(
                look, tr("No photos in Ready"),
                isCropped ? tr("Each is approved already or needs a look first.") : cropFirst());
        case StatusFilter::review:
            if (!isCropped) return withLook(look, tr("No photos in Review"), cropFirst());
            return withLook(lookOf(ItemStatus::approved), tr("No photos in Review"),
                            tr("Every doubt is settled. Export when you like."));
        case StatusFilter::approved:
            return withLook(
                look, tr("No photos in Approved"),
                isCropped ? tr("Press Space on a photo to approve its crop.") : cropFirst());
        case StatusFilter::failed:
            if (!isCropped) return withLook(look, tr("No photos without a face"), cropFirst());
            return withLook(lookOf(ItemStatus::approved), tr("No photos without a face"),
                            tr("A face was found in every photo."));
        case StatusFilter::adjusted:
            return withLook(look, tr("No hand-adjusted photos"),
                            tr("Crops that you move, zoom or turn are kept here."));
    }
    return {};
}

void draw(QPainter& painter, const QRect& room, const Text& text) {
    const Theme& theme = Theme::current();
    const QFont titleFont = fontFor(TextRole::emphasis);
    const QFont nextFont = fontFor(TextRole::small);
    const int width = std::min(scaled(widest), room.width() - 2 * margin);
    constexpr int flags = static_cast<int>(Qt::AlignHCenter) | Qt::TextWordWrap;
    const auto sizeOf = [&](const QFont& font, const QString& words) {
        return QFontMetrics(font).boundingRect(QRect(0, 0, width, 10000), flags, words).size();
    };
    const QSize title = sizeOf(titleFont, text.title);
    const QSize next = sizeOf(nextFont, text.next);
    const int height = iconSide + iconGap + title.height() + 4 + next.height();
    QRect line(room.center().x() - width / 2, room.center().y() - height / 2, width, iconSide);
    painter.drawPixmap(
        line.center().x() - iconSide / 2, line.top(),
        iconPixmap(text.icon, text.color, iconSide, painter.device()->devicePixelRatioF()));
    line.setTop(line.bottom() + 1 + iconGap);
    line.setHeight(title.height());
    painter.setFont(titleFont);
    painter.setPen(theme.text);
    painter.drawText(line, flags, text.title);
    line.setTop(line.bottom() + 1 + 4);
    line.setHeight(next.height());
    painter.setFont(nextFont);
    painter.setPen(theme.text2);
    painter.drawText(line, flags, text.next);
}

}  // namespace morva::EmptyNote
