// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main_toolbar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QToolButton>

#include "ui/actions.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

/// A toolbar button; its act's own text without the menu's key.
class BarButton : public QToolButton {
public:
    BarButton(QAction* action, Qt::ToolButtonStyle look) {
        setDefaultAction(action);
        setToolButtonStyle(look);
        setFocusPolicy(Qt::TabFocus);
        if (look == Qt::ToolButtonIconOnly) setLook(*this, ButtonLook::quiet);
        const auto follow = [this, action] {
            QString text = action->text();
            setText(text.remove(QLatin1Char('&')));
            setToolTip(Actions::tip(*action));
            setAccessibleName(text);
        };
        connect(action, &QAction::changed, this, follow);
        follow();
    }
};

/// "Review" with the number of photos that wait, on amber.
class ReviewButton final : public BarButton {
public:
    explicit ReviewButton(QAction* action) : BarButton(action, Qt::ToolButtonTextBesideIcon) {}

    void setCount(int photos) {
        count_ = photos > 0 ? count(photos) : QString();
        setAccessibleDescription(MainToolbar::tr("%n photo(s) to review", "", photos));
        updateGeometry();
        update();
    }

    QSize sizeHint() const override {
        QSize size = BarButton::sizeHint();
        if (!count_.isEmpty()) size.rwidth() += pillWidth() + 8;
        return size;
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        if (count_.isEmpty()) return BarButton::paintEvent(event);
        QPainter painter(this);
        QStyleOptionToolButton option;
        initStyleOption(&option);
        style()->drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter, this);
        const int pill = pillWidth();
        const QRect whole = rect();
        option.rect =
            QStyle::visualRect(layoutDirection(), whole, whole.adjusted(0, 0, -pill - 4, 0));
        style()->drawControl(QStyle::CE_ToolButtonLabel, &option, &painter, this);
        const Theme& theme = Theme::current();
        const int height = scaled(18);
        const QRect at = QStyle::visualRect(
            layoutDirection(), whole,
            QRect(whole.right() - pill - 11, (whole.height() - height) / 2, pill, height));
        drawBox(painter, at, theme.review, QColor(), height / 2.0);
        painter.setFont(pillFont());
        painter.setPen(Qt::black);
        painter.drawText(at, Qt::AlignCenter, count_);
    }

private:
    static QFont pillFont() {
        QFont font = fontFor(TextRole::small);
        font.setWeight(QFont::DemiBold);
        return font;
    }
    int pillWidth() const {
        return std::max(scaled(18), QFontMetrics(pillFont()).horizontalAdvance(count_) + 12);
    }

    QString count_;
};

QToolButton* viewButton(const QString& iconName, const QString& text, const QString& keys) {
    auto* button = new QToolButton;
    button->setIcon(icon(iconName));
    button->setCheckable(true);
    button->setAutoExclusive(true);
    button->setToolTip(MainToolbar::tr("%1, %2").arg(text, keys));
    button->setAccessibleName(text);
    button->setFocusPolicy(Qt::TabFocus);
    setLook(*button, ButtonLook::quiet);
    return button;
}

/// Two buttons in one sunken frame.
class Switch final : public QWidget {
public:
    Switch(QToolButton* first, QToolButton* second) {
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(2, 2, 2, 2);
        row->setSpacing(2);
        row->addWidget(first);
        row->addWidget(second);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        drawBox(painter, rect(), Theme::current().field, QColor(), Metrics::controlRadius);
    }
};

/// A thin line between groups of buttons.
class Divider final : public QWidget {
public:
    Divider() { setFixedWidth(9); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(width() / 2, height() / 2 - 11, 1, 22, Theme::current().line);
    }
};

}  // namespace

MainToolbar::MainToolbar(AppState& state, const Actions& actions, QWidget* parent)
    : QToolBar(parent), state_(state) {
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAccessibleName(tr("Toolbar"));
    setFixedHeight(scaled(Metrics::toolbarHeight));
    // One widget that lays out the buttons: the bar's own layout knows no margins.
    auto* strip = new QWidget;
    strip->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(12, 0, 12, 0);
    row->setSpacing(Metrics::gap);
    addWidget(strip);
    const auto withText = [&](Act act) {
        auto* button = new BarButton(actions.action(act), Qt::ToolButtonTextBesideIcon);
        row->addWidget(button);
        return button;
    };
    const auto iconOnly = [&](Act act) {
        row->addWidget(new BarButton(actions.action(act), Qt::ToolButtonIconOnly));
    };
    withText(Act::importFolder);
    withText(Act::cropPhotos);
    row->addWidget(new Divider);
    review_ = new ReviewButton(actions.action(Act::review));
    row->addWidget(review_);
    withText(Act::exportPhotos);
    row->addStretch(1);
    iconOnly(Act::undo);
    iconOnly(Act::redo);
    row->addWidget(new Divider);
    grid_ = viewButton(QStringLiteral("grid"), tr("Grid"), QStringLiteral("G"));
    inspector_ = viewButton(QStringLiteral("single"), tr("Inspector"), QStringLiteral("E"));
    row->addWidget(new Switch(grid_, inspector_));
    row->addWidget(new Divider);
    iconOnly(Act::showPanel);
    iconOnly(Act::showKeys);

    connect(grid_, &QToolButton::clicked, &state, [&state] { state.setMode(ViewMode::grid); });
    connect(inspector_, &QToolButton::clicked, this, [this] {
        // As the key: without a photo there is nothing to inspect.
        state_.handleKey({.characters = "e"});
        refresh();
    });
    for (const auto signal :
         {&AppState::jobsChanged, &AppState::selectedJobChanged, &AppState::modeChanged})
        connect(&state, signal, this, &MainToolbar::refresh);
    connect(&state, &AppState::itemsChanged, this, &MainToolbar::refresh);
    connect(&state, &AppState::itemsReset, this, &MainToolbar::refresh);
    refresh();
}

void MainToolbar::refresh() {
    const WorkingJob* job = state_.selectedJob();
    static_cast<ReviewButton*>(review_)->setCount(job ? job->count(ItemStatus::review) : 0);
    grid_->setEnabled(job);
    inspector_->setEnabled(job);
    grid_->setChecked(state_.mode() == ViewMode::grid);
    inspector_->setChecked(state_.mode() == ViewMode::inspect);
}

}  // namespace morva
