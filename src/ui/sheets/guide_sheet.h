// SPDX-License-Identifier: GPL-3.0-or-later
// The guide for photographers, which comes with the program: its pages at the left, the one chosen
// beside them. Follows links from page to page; opens nothing else, in the program or out of it.
#pragma once

#include <QStringList>
#include <QUrl>

#include "ui/widgets/sheet.h"

class QListWidget;
class QTextBrowser;

namespace morva {

class GuideSheet final : public Sheet {
    Q_OBJECT

public:
    explicit GuideSheet(QWidget* window);

    /// Names of the pages, in the order of reading.
    static QStringList pages();
    /// Turns to a page by its name.
    void turnTo(const QString& page);

private:
    void followPage(const QUrl& url);

    QListWidget* contents_;
    QTextBrowser* text_;
};

}  // namespace morva
