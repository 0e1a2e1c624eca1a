// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QListWidget>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextBrowser>

#include "ui/sheets/guide_sheet.h"
#include "ui/sheets/sheet_test_support.h"

namespace morva {

namespace {

class Guide : public SheetTest {
protected:
    void open() {
        (new GuideSheet(&window))->open();
        text = find<QTextBrowser>("Page");
        contents = find<QListWidget>("Contents");
        ASSERT_TRUE(text && contents);
        ASSERT_TRUE(waitFor([&] { return shown() == GuideSheet::pages().front(); }));
    }
    QString shown() const { return text->source().fileName(); }
    static QString markdown(const QString& page) {
        QFile file(":/guide/" + page);
        EXPECT_TRUE(file.open(QFile::ReadOnly)) << page.toStdString();
        return QString::fromUtf8(file.readAll());
    }
    /// What pages lead to: links and pictures, without those that leave the guide.
    static QStringList targets(const QString& page) {
        static const QRegularExpression link("\\]\\(([^)]*)\\)");
        QStringList found;
        for (auto all = link.globalMatch(markdown(page)); all.hasNext();)
            found << all.next().captured(1);
        return found;
    }

    QTextBrowser* text = nullptr;
    QListWidget* contents = nullptr;
};

TEST_F(Guide, hasEveryPageAndPictureThatItSpeaksOf) {
    open();
    QStringList reached;
    for (const QString& page : GuideSheet::pages()) {
        SCOPED_TRACE(page.toStdString());
        top()->findChild<QListWidget*>()->setCurrentRow(
            static_cast<int>(GuideSheet::pages().indexOf(page)));
        EXPECT_EQ(shown(), page);
        EXPECT_GT(text->document()->blockCount(), 5);
        shoot(window, "guide-" + page.chopped(3));
        for (const QString& target : targets(page)) {
            reached << target;
            if (target.endsWith(".md")) {
                EXPECT_TRUE(GuideSheet::pages().contains(target)) << target.toStdString();
                continue;
            }
            const QVariant picture =
                text->loadResource(QTextDocument::ImageResource, QUrl("qrc:/guide/" + target));
            const QImage image = picture.value<QImage>();
            EXPECT_FALSE(image.isNull()) << target.toStdString();
            EXPECT_LE(image.width() / image.devicePixelRatio(), text->viewport()->width());
        }
    }
    EXPECT_GT(reached.count("rules.md"), 1);
    // The list of contents for readers of the repository leads to all of them.
    QFile index(MORVA_PROJECT "/docs/guide/README.md");
    ASSERT_TRUE(index.open(QFile::ReadOnly));
    const QString contentsPage = QString::fromUtf8(index.readAll());
    for (const QString& page : GuideSheet::pages())
        EXPECT_TRUE(contentsPage.contains("](" + page + ")")) << page.toStdString();
}

TEST_F(Guide, followsLinksByKeyboardAndGoesBack) {
    open();
    EXPECT_EQ(focused(), contents);
    press(Qt::Key_Down);
    EXPECT_EQ(shown(), GuideSheet::pages().at(1));
    press(Qt::Key_Up);
    ASSERT_TRUE(tabTo(text));
    // The first Tab inside the page goes to its first link.
    for (int i = 0; i < 3 && text->textCursor().charFormat().anchorHref().isEmpty(); ++i)
        press(Qt::Key_Tab);
    const QString target = text->textCursor().charFormat().anchorHref();
    ASSERT_TRUE(target.endsWith(".md")) << target.toStdString();
    press(Qt::Key_Return);
    EXPECT_EQ(shown(), target);
    EXPECT_EQ(contents->currentRow(), GuideSheet::pages().indexOf(target));
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shown(), GuideSheet::pages().front());
    EXPECT_EQ(contents->currentRow(), 0);
    press(Qt::Key_Escape);
    EXPECT_FALSE(top());
    EXPECT_EQ(focused(), &field);
}

TEST_F(Guide, opensNothingElse) {
    open();
    for (const char* address : {"https://example.org/", "file:///etc/hostname", "qrc:/about/x"}) {
        emit text->anchorClicked(QUrl(address));
        EXPECT_EQ(shown(), GuideSheet::pages().front()) << address;
        for (const int type : {QTextDocument::HtmlResource, QTextDocument::ImageResource})
            EXPECT_FALSE(text->loadResource(type, QUrl(address)).isValid()) << address;
    }
}

}  // namespace

}  // namespace morva
