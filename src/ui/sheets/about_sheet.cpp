// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/about_sheet.h"

#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "ui/sheets/calm_document.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

static void loadTexts() { Q_INIT_RESOURCE(about); }

namespace morva {

namespace {

constexpr int sheetWidth = 720;
constexpr int textHeight = 380;
constexpr int markSide = 40;

QString textOf(const char* name) {
    static const bool loaded = (loadTexts(), true);
    Q_ASSERT(loaded);
    QFile file(QStringLiteral(":/about/") + QLatin1String(name));
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The work of others without check sums, which are for those who build the program.
QString worksOfOthers() {
    QString text = textOf("third_party.md");
    static const QRegularExpression column(QStringLiteral(" `[0-9a-f]{64}` \\|"));
    static const QRegularExpression sum(QStringLiteral(",? ?`[0-9a-f]{64}`"));
    text.remove(QStringLiteral(" SHA-256 of the file |"));
    text.replace(QStringLiteral("|---|---|---|---|---|"), QStringLiteral("|---|---|---|---|"));
    return text.remove(column).remove(sum);
}

}  // namespace

AboutSheet::AboutSheet(QWidget* window) : Sheet(window, sheetWidth) {
    setTitle(tr("Morva %1").arg(QStringLiteral(MORVA_VERSION)));
    setSentence(tr("Crops school portraits: every face at the same size and place."));
    auto* mark = new QLabel;
    mark->setPixmap(applicationIcon().pixmap(markSide, markSide));
    addBesideTitle(mark);
    body()->addWidget(makeWrappedLabel(
        tr("Morva is free software: you may pass it on and change it under the terms of the GNU "
           "General Public License, version 3 or later. It comes without any warranty."),
        TextRole::body));
    auto* pages = new QTabBar;
    pages->setExpanding(false);
    pages->setDrawBase(false);
    pages->addTab(tr("Models and libraries"));
    pages->addTab(tr("License"));
    auto* text = new QTextBrowser;
    text->setAccessibleName(tr("Licenses"));
    text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text->setFont(fontFor(TextRole::small));
    text->setMinimumHeight(120);
    text->setFixedHeight(scaled(textHeight));
    // Links lead out of the program; whoever wants to follow one can copy it.
    text->setOpenLinks(false);
    const auto show = [text](int page) {
        if (page == 0) {
            text->setMarkdown(worksOfOthers());
            calm(*text->document());
        } else {
            text->setPlainText(textOf("licence.txt"));
        }
        text->document()->setDocumentMargin(12);
    };
    connect(pages, &QTabBar::currentChanged, this, show);
    show(0);
    body()->addWidget(pages);
    body()->addWidget(text);
    connect(addPrimaryButton(tr("Close")), &QPushButton::clicked, this, &Sheet::close);
}

}  // namespace morva
