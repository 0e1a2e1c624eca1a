// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/guide_sheet.h"

#include <algorithm>

#include <QFile>
#include <QHBoxLayout>
#include <QImageReader>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "ui/sheets/calm_document.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

static void loadGuide() { Q_INIT_RESOURCE(guide); }

namespace morva {

namespace {

constexpr int sheetWidth = 1040;
constexpr int contentsWidth = 200;
constexpr int contentsSpacing = 3;
constexpr int tallest = 640;
constexpr int lowest = 160;
/// What title, footer and the window's border take of its height.
constexpr int aroundText = 210;
constexpr int pageMargin = 16;

constexpr QLatin1String root("qrc:/guide/");

/// Pages and pictures of the guide and nothing else.
class GuideText final : public QTextBrowser {
public:
    QVariant loadResource(int type, const QUrl& name) override {
        if (!name.toString().startsWith(root)) return {};
        if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
        return picture(QLatin1Char(':') + name.path());
    }

private:
    /// As wide as the text at most, as sharp as the screen.
    QVariant picture(const QString& file) const {
        QImageReader reader(file);
        const QSize size = reader.size();
        if (size.isEmpty()) return {};
        const int room =
            viewport()->width() - 2 * pageMargin - verticalScrollBar()->sizeHint().width();
        const int width = std::min(scaled(size.width()), std::max(room, 1));
        const qreal ratio = devicePixelRatioF();
        reader.setScaledSize(
            size.scaled(qRound(width * ratio), size.height() * size.width(), Qt::KeepAspectRatio));
        QImage image = reader.read();
        image.setDevicePixelRatio(ratio);
        return image;
    }
};

/// "Your first job": the first heading of a page.
QString titleOf(const QString& page) {
    QFile file(QStringLiteral(":/guide/") + page);
    if (!file.open(QFile::ReadOnly)) return page;
    return QString::fromUtf8(file.readLine()).remove(QLatin1Char('#')).trimmed();
}

}  // namespace

QStringList GuideSheet::pages() {
    return {QStringLiteral("first-job.md"),        QStringLiteral("review.md"),
            QStringLiteral("presets.md"),          QStringLiteral("rules.md"),
            QStringLiteral("backdrops.md"),        QStringLiteral("poses.md"),
            QStringLiteral("reports.md"),          QStringLiteral("command-line.md"),
            QStringLiteral("several-machines.md"), QStringLiteral("troubleshooting.md")};
}

GuideSheet::GuideSheet(QWidget* window)
    : Sheet(window, sheetWidth), contents_(new QListWidget), text_(new GuideText) {
    loadGuide();
    setTitle(tr("Guide"));
    contents_->setAccessibleName(tr("Contents"));
    contents_->setFixedWidth(scaled(contentsWidth));
    contents_->setWordWrap(true);
    contents_->setSpacing(contentsSpacing);
    for (const QString& page : pages()) contents_->addItem(titleOf(page));
    text_->setAccessibleName(tr("Page"));
    text_->setFont(fontFor(TextRole::body));
    text_->setOpenLinks(false);
    text_->document()->setDocumentMargin(pageMargin);
    const int height =
        std::clamp(window->height() - scaled(aroundText), scaled(lowest), scaled(tallest));
    contents_->setFixedHeight(height);
    text_->setFixedHeight(height);
    auto* row = new QHBoxLayout;
    row->setSpacing(Metrics::sheetPadding);
    row->addWidget(contents_);
    row->addWidget(text_, 1);
    body()->addLayout(row);
    connect(addPrimaryButton(tr("Close")), &QPushButton::clicked, this, &Sheet::close);
    setFirstControl(contents_);
    connect(contents_, &QListWidget::currentRowChanged, this,
            [this](int place) { turnTo(pages().at(place)); });
    connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
        if (url.toString().startsWith(root)) turnTo(url.fileName());
    });
    // Also after going back.
    connect(text_, &QTextBrowser::sourceChanged, this, &GuideSheet::followPage);
    // The pictures take the width of the text, which it has once it is on screen.
    QMetaObject::invokeMethod(
        this, [this] { contents_->setCurrentRow(0); }, Qt::QueuedConnection);
}

void GuideSheet::turnTo(const QString& page) {
    if (pages().contains(page) && text_->source().fileName() != page)
        text_->setSource(QUrl(root + page));
}

void GuideSheet::followPage(const QUrl& url) {
    calm(*text_->document());
    // The page of the text itself changes only after it has told of it.
    const QSignalBlocker silent(contents_);
    contents_->setCurrentRow(static_cast<int>(pages().indexOf(url.fileName())));
}

}  // namespace morva
