// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/cell_content.h"

#include <algorithm>

#include <QCoreApplication>
#include <QStringList>

#include "crop/review_reason.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

/// Shorter numbers tell too little to stand for a name.
constexpr qsizetype shortestNumber = 2;

QString tr(const char* text) { return QCoreApplication::translate("PhotoCell", text); }

bool isCropped(ItemStatus status) {
    return status == ItemStatus::ready || status == ItemStatus::review ||
           status == ItemStatus::approved;
}

QStringList reasonsOf(const WorkingJob& job, std::size_t item) {
    QStringList reasons;
    for (const ReviewReason reason : job.reasons(item)) reasons << said(title(reason));
    return reasons;
}

/// Everything worth telling, the file first.
QStringList tellingOf(const AppState& state, std::size_t item) {
    const WorkingJob& job = *state.selectedJob();
    const CellContent content = contentOf(state, item);
    QStringList lines{pathText(job.item(item).relativePath)};
    if (content.preset) lines << asGiven(content.preset->name);
    lines << content.look.word;
    if (isCropped(job.status(item))) lines << tr("Confidence %1").arg(content.confidence);
    lines << reasonsOf(job, item);
    if (content.isAdjusted) lines << tr("Adjusted by hand");
    return lines;
}

}  // namespace

QString nameOf(const WorkingJob& job, std::size_t item) {
    return asGiven(job.item(item).url.stem().native());
}

QString shortName(const QString& name) {
    qsizetype start = name.size();
    while (start > 0 && name[start - 1].isDigit()) --start;
    return name.size() - start >= shortestNumber ? name.mid(start) : name;
}

CellContent contentOf(const AppState& state, std::size_t item) {
    const WorkingJob& job = *state.selectedJob();
    const ItemStatus status = job.status(item);
    const ImageItem& photo = job.item(item);
    CellContent content{.name = nameOf(job, item),
                        .preset = nullptr,
                        .confidence = QStringLiteral("–"),
                        .look = lookOf(status),
                        .line = {},
                        .isAdjusted = photo.hasAdjustment(),
                        .isPending = status == ItemStatus::pending,
                        .isError = status == ItemStatus::error};
    content.line = content.look.word;
    if (isCropped(status)) {
        content.preset = state.preset(job.solvedWith(item).presetID);
        content.confidence = percent(photo.solution->confidence);
    }
    if (status == ItemStatus::review) {
        const auto reasons = job.reasons(item);
        if (!reasons.empty()) content.line = said(title(reasons.front()));
    }
    return content;
}

QString tooltipOf(const AppState& state, std::size_t item) {
    QStringList lines = tellingOf(state, item);
    std::ranges::transform(lines, lines.begin(),
                           [](const QString& line) { return line.toHtmlEscaped(); });
    return QStringLiteral("<qt>%1</qt>").arg(lines.join(QStringLiteral("<br>")));
}

QString spokenOf(const AppState& state, std::size_t item) {
    return tellingOf(state, item).join(QStringLiteral(", "));
}

}  // namespace morva
