// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/status_look.h"

#include "ui/widgets/theme.h"
#include "ui/widgets/words.h"

namespace morva {

StatusLook lookOf(ItemStatus status) {
    const Theme& theme = Theme::current();
    const QString word = said(label(status));
    switch (status) {
        case ItemStatus::pending:
            return {QStringLiteral("s-pending"), theme.pending, word};
        case ItemStatus::ready:
            return {QStringLiteral("s-ready"), theme.ready, word};
        case ItemStatus::review:
            return {QStringLiteral("s-review"), theme.review, word};
        case ItemStatus::approved:
            return {QStringLiteral("s-approved"), theme.approved, word};
        case ItemStatus::failed:
            return {QStringLiteral("s-failed"), theme.failed, word};
        case ItemStatus::error:
            return {QStringLiteral("s-error"), theme.failed, word};
    }
    return {QStringLiteral("s-pending"), theme.pending, word};
}

StatusLook lookOf(StatusFilter filter) {
    const QString word = said(label(filter));
    const auto as = [&](ItemStatus status) {
        StatusLook look = lookOf(status);
        look.word = word;
        return look;
    };
    switch (filter) {
        case StatusFilter::all:
            return {{}, Theme::current().text, word};
        case StatusFilter::ready:
            return as(ItemStatus::ready);
        case StatusFilter::review:
            return as(ItemStatus::review);
        case StatusFilter::approved:
            return as(ItemStatus::approved);
        case StatusFilter::failed:
            return as(ItemStatus::failed);
        case StatusFilter::adjusted:
            return {QStringLiteral("adjusted"), Theme::current().text2, word};
    }
    return {};
}

}  // namespace morva
