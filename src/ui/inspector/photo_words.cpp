// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/inspector/photo_words.h"

#include <algorithm>
#include <cmath>

#include <QLocale>
#include <QStringList>

#include "app/app_state.h"
#include "ui/inspector/inspector.h"
#include "ui/widgets/status_look.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

QString pixels(double length) { return count(static_cast<int>(std::lround(length))); }

QStringList missingInWords(const CanvasShortfall& missing) {
    QStringList sides;
    const auto add = [&](double length, const char* text) {
        if (length > CanvasShortfall::tolerance) sides += Inspector::tr(text).arg(pixels(length));
    };
    add(missing.top, QT_TRANSLATE_NOOP("morva::Inspector", "%1 px missing above"));
    add(missing.bottom, QT_TRANSLATE_NOOP("morva::Inspector", "%1 px missing below"));
    add(missing.left, QT_TRANSLATE_NOOP("morva::Inspector", "%1 px missing left"));
    add(missing.right, QT_TRANSLATE_NOOP("morva::Inspector", "%1 px missing right"));
    return sides;
}

QString statusInWords(const WorkingJob& job, std::size_t index) {
    const QString word = lookOf(job.status(index)).word;
    QStringList reasons;
    for (const ReviewReason reason : job.reasons(index)) reasons += said(title(reason));
    if (job.status(index) != ItemStatus::review || reasons.isEmpty()) return word;
    return Inspector::tr("%1: %2").arg(word, QLocale().createSeparatedList(reasons));
}

}  // namespace

QString positionText(const AppState& state) {
    const WorkingJob* job = state.selectedJob();
    const auto index =
        job && state.selectedItemID() ? job->indexOf(*state.selectedItemID()) : std::nullopt;
    if (!index) return {};
    const AppState::Indices& shown = state.filteredItems();
    const auto found = std::ranges::lower_bound(shown, *index);
    const auto total = static_cast<int>(shown.size());
    const bool all = state.filter() == StatusFilter::all;
    const QString filter = lookOf(state.filter()).word;
    if (found == shown.end() || *found != *index)
        return Inspector::tr("Not among the %1 in %2").arg(count(total), filter);
    const QString place = count(static_cast<int>(found - shown.begin()) + 1);
    return all ? Inspector::tr("%1 of %n photo(s)", "", total).arg(place)
               : Inspector::tr("%1 of %2 in %3").arg(place, count(total), filter);
}

Explanation explanationOf(const InspectedPhoto* photo, bool isLost) {
    const Theme& theme = Theme::current();
    if (!photo)
        return {QStringLiteral("image"), theme.text3, Inspector::tr("No photo selected"),
                Inspector::tr("Select a photo in the grid or in the row below.")};
    if (isLost && photo->status != ItemStatus::error)
        return {QStringLiteral("s-error"), theme.failed, Inspector::tr("The photo cannot be read"),
                Inspector::tr("%1 was moved, renamed or damaged since it was imported.")
                    .arg(pathText(photo->file))};
    const StatusLook look = lookOf(photo->status);
    switch (photo->status) {
        case ItemStatus::pending:
            return {look.icon, look.color, look.word,
                    Inspector::tr("Crop Photos measures it and crops it.")};
        case ItemStatus::failed:
            return {look.icon, look.color, look.word,
                    photo->error.empty()
                        ? Inspector::tr("No face was found, so there is nothing to crop by.")
                        : said(photo->error)};
        case ItemStatus::error:
            return {look.icon, look.color, look.word, said(photo->error)};
        default:
            return {};
    }
}

QString missingText(double length) { return Inspector::tr("%1 px missing").arg(pixels(length)); }

QString cropInWords(const AppState& state) {
    const auto photo = InspectedPhoto::selected(state);
    if (!photo || !photo->crop.frame) {
        const Explanation why = explanationOf(photo ? &*photo : nullptr, false);
        return why.sentence.isEmpty() ? why.title
                                      : Inspector::tr("%1: %2").arg(why.title, why.sentence);
    }
    const WorkingJob& job = *state.selectedJob();
    const std::size_t index = *job.indexOf(photo->id);
    const CropPreset* preset = state.preset(job.solvedWith(index).presetID);
    QStringList parts;
    parts += Inspector::tr("frame %1 by %2")
                 .arg(pixels(photo->crop.frame->width), pixels(photo->crop.frame->height));
    if (std::abs(photo->crop.rotation) >= 0.05)
        parts += Inspector::tr("turned %1 degrees").arg(number(photo->crop.rotation, 1));
    for (const Guide& guide : photo->guides)
        if (guide.kind == GuideKind::eyeLine)
            parts += Inspector::tr("eye line at %1").arg(percent(guide.share, 1));
    if (photo->missing) parts += missingInWords(*photo->missing);
    parts += statusInWords(job, index);
    return Inspector::tr("%1: %2").arg(preset ? asGiven(preset->name) : QString(),
                                       parts.join(Inspector::tr(", ")));
}

}  // namespace morva
