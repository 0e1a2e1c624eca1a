// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/welcome_view.h"

#include <algorithm>

#include <QAbstractButton>
#include <QDateTime>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "ui/widgets/icon_label.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/key_button.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int columnWidth = 640;
constexpr int boxHeight = 296;
constexpr int recentShown = 5;
constexpr int recentHeight = 40;
constexpr int markSide = 64;

/// "today", "14 Nov", with the year where it is another.
QString dayText(double time) {
    const QDate day = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(time)).date();
    const QDate today = QDate::currentDate();
    if (day == today) return WelcomeView::tr("today");
    if (day == today.addDays(-1)) return WelcomeView::tr("yesterday");
    if (day.year() == today.year())
        return QLocale().toString(day, WelcomeView::tr("d MMM", "day and month"));
    return QLocale().toString(day, QLocale::ShortFormat);
}

/// The crop mark: a frame with the eye line and the mouth in it.
class Mark final : public QWidget {
public:
    Mark() { setFixedSize(markSide, markSide); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Theme& theme = Theme::current();
        const auto bar = [&](int x, int y, int width, int height, const QColor& ink) {
            painter.fillRect(x, y, width, height, ink);
        };
        bar(4, 16, 46, 4, theme.text);
        bar(18, 44, 46, 4, theme.text);
        bar(18, 2, 4, 46, theme.text);
        bar(46, 16, 4, 46, theme.text);
        bar(26, 24, 16, 3, theme.accent);
        bar(31, 34, 6, 3, theme.sliderFill);
    }
};

/// A folder of before, by its name.
class RecentRow final : public QAbstractButton {
public:
    RecentRow(const QString& name, const QString& facts) : facts_(facts) {
        setText(name);
        setAccessibleDescription(facts);
        setFocusPolicy(Qt::StrongFocus);
        setAttribute(Qt::WA_Hover);
        setFixedHeight(scaled(recentHeight));
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override { return {scaled(columnWidth), scaled(recentHeight)}; }
    QSize minimumSizeHint() const override { return {scaled(200), scaled(recentHeight)}; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Theme& theme = Theme::current();
        if (underMouse() || isDown())
            drawBox(painter, rect(), theme.cellHover, QColor(), Metrics::controlRadius);
        if (hasFocus())
            drawBox(painter, rect(), QColor(), theme.accentBright, Metrics::controlRadius,
                    theme.ring);
        const auto placed = [this](const QRect& logical) {
            return QStyle::visualRect(layoutDirection(), rect(), logical);
        };
        const int padding = 12;
        const int side = 16;
        painter.drawPixmap(
            placed({padding, (height() - side) / 2, side, side}).topLeft(),
            iconPixmap(QStringLiteral("folder"), theme.text2, side, devicePixelRatioF()));
        painter.setFont(fontFor(TextRole::small));
        const int factsWidth = painter.fontMetrics().horizontalAdvance(facts_);
        const QRect facts =
            placed({width() - padding - factsWidth - 1, 0, factsWidth + 1, height()});
        painter.setPen(theme.text2);
        painter.drawText(facts, Qt::AlignCenter, facts_);
        painter.setFont(fontFor(TextRole::body));
        painter.setPen(theme.text);
        const int left = padding + side + 12;
        const QRect name = placed({left, 0, width() - left - factsWidth - 2 * padding, height()});
        painter.drawText(
            name,
            static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) |
                             Qt::AlignVCenter),
            painter.fontMetrics().elidedText(text(), Qt::ElideMiddle, name.width()));
    }

private:
    QString facts_;
};

QLayout* step(const QString& icon, const QString& title, const QString& text) {
    auto* column = new QVBoxLayout;
    column->setSpacing(Metrics::labelGap);
    auto* head = new QHBoxLayout;
    head->setSpacing(Metrics::gap);
    head->addWidget(new IconLabel(icon, &Theme::text2));
    head->addWidget(makeLabel(title, TextRole::emphasis), 1);
    column->addLayout(head);
    column->addWidget(makeWrappedLabel(text, TextRole::small, Ink::text2));
    column->addStretch(1);
    return column;
}

}  // namespace

/// The dashed box that a folder can be dropped on.
class DropBox final : public QWidget {
public:
    void setActive(bool active) {
        isActive_ = active;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const Theme& theme = Theme::current();
        const qreal line = isActive_ ? 2 : 1;
        QPen pen(isActive_ ? theme.accentBright : theme.edge, line);
        pen.setDashPattern({4 / line, 3 / line});
        painter.setPen(pen);
        painter.drawRoundedRect(QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2),
                                Metrics::sheetRadius, Metrics::sheetRadius);
    }

private:
    bool isActive_ = false;
};

WelcomeView::WelcomeView(QWidget* parent)
    : QWidget(parent),
      box_(new DropBox),
      title_(makeLabel({}, TextRole::welcome)),
      hint_(makeWrappedLabel(tr("JPEG, PNG, TIFF or HEIC. The folder itself is never changed."),
                             TextRole::body, Ink::text2)),
      import_(new KeyButton(tr("Import Folder…"), {tr("Ctrl", "key"), QStringLiteral("I")})),
      recent_(new QWidget),
      recentRows_(new QVBoxLayout) {
    title_->setWordWrap(true);
    title_->setAlignment(Qt::AlignCenter);
    hint_->setAlignment(Qt::AlignCenter);
    setLook(*import_, ButtonLook::primary);
    import_->setMinimumHeight(scaled(40));
    import_->setIcon(icon(QStringLiteral("import"), Theme::current().onAccent));
    import_->setAccessibleDescription(tr("Choose a folder of portraits"));
    connect(import_, &QPushButton::clicked, this, &WelcomeView::importWanted);
    setFocusProxy(import_);

    auto* inBox = new QVBoxLayout(box_);
    inBox->setContentsMargins(Metrics::sheetPadding, 40, Metrics::sheetPadding, 36);
    inBox->setSpacing(Metrics::gap);
    inBox->addStretch(1);
    inBox->addWidget(new Mark, 0, Qt::AlignHCenter);
    inBox->addSpacing(Metrics::panelPadding);
    inBox->addWidget(title_);
    inBox->addWidget(hint_);
    inBox->addSpacing(12);
    inBox->addWidget(import_, 0, Qt::AlignHCenter);
    inBox->addStretch(1);
    box_->setMinimumHeight(boxHeight);

    recentRows_->setSpacing(0);
    recentRows_->setContentsMargins(0, 0, 0, 0);
    auto* recent = new QVBoxLayout(recent_);
    recent->setContentsMargins(0, 0, 0, 0);
    recent->setSpacing(Metrics::gap);
    QLabel* heading = makeLabel(tr("Recent folders"), TextRole::label, Ink::text2);
    heading->setContentsMargins(12, 0, 12, 0);
    recent->addWidget(heading);
    recent->addLayout(recentRows_);
    recent_->hide();

    auto* middle = new QWidget;
    middle->setMaximumWidth(scaled(columnWidth));
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(32);
    column->addStretch(1);
    column->addWidget(box_);
    column->addLayout(makeSteps());
    column->addWidget(recent_);
    column->addStretch(1);
    auto* content = new QWidget;
    auto* centred = new QHBoxLayout(content);
    centred->setContentsMargins(Metrics::sheetPadding, Metrics::sheetPadding, Metrics::sheetPadding,
                                Metrics::sheetPadding);
    centred->addStretch(1);
    centred->addWidget(middle, 100);
    centred->addStretch(1);

    auto* scroll = new QScrollArea;
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(scroll);
    setDropName({});
}

QLayout* WelcomeView::makeSteps() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(12, 0, 12, 0);
    row->setSpacing(Metrics::sheetPadding);
    row->addLayout(
        step(QStringLiteral("crop"), tr("1 Crop"), tr("Every face gets the same size and place.")),
        1);
    row->addLayout(
        step(QStringLiteral("review"), tr("2 Review"), tr("Only doubtful photos ask for a look.")),
        1);
    row->addLayout(step(QStringLiteral("export"), tr("3 Export"),
                        tr("Finished JPEGs, in a folder of their own.")),
                   1);
    return row;
}

void WelcomeView::setRecent(const std::vector<Recent>& recent) {
    while (QLayoutItem* item = recentRows_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const auto shown = std::min<std::size_t>(recent.size(), recentShown);
    for (std::size_t i = 0; i < shown; ++i) {
        const Recent& one = recent[i];
        auto* row =
            new RecentRow(pathText(one.folder.filename()),
                          tr("%1 · %2", "photos and day")
                              .arg(tr("%n photo(s)", "", one.photos), dayText(one.lastUsed)));
        row->setToolTip(pathText(one.folder));
        connect(row, &QAbstractButton::clicked, this,
                [this, folder = one.folder] { emit folderChosen(folder); });
        recentRows_->addWidget(row);
    }
    recent_->setVisible(shown > 0);
}

void WelcomeView::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Theme::current().canvas);
}

void WelcomeView::setDropName(const QString& name) {
    box_->setActive(!name.isEmpty());
    title_->setText(name.isEmpty() ? tr("Drop a folder of portraits here")
                                   : tr("Drop to import %1").arg(name));
}

}  // namespace morva
