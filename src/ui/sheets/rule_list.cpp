// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/rule_list.h"

#include <algorithm>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include "ui/sheets/rule_row.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"

namespace morva {

namespace {

/// How far a row that is dragged is lifted to the side.
constexpr int lift = 12;
constexpr int dropLine = 2;

}  // namespace

/// Lies over the rows while one is dragged: the row under the pointer and where it would go.
class RuleList::Overlay final : public QWidget {
public:
    explicit Overlay(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

    void begin(RuleRow& row, const QPoint& grip) {
        grip_ = grip;
        home_ = row.geometry();
        picture_ = QPixmap(row.size() * devicePixelRatioF());
        picture_.setDevicePixelRatio(devicePixelRatioF());
        picture_.fill(Qt::transparent);
        row.render(&picture_, {}, {}, QWidget::DrawChildren);
        setGeometry(parentWidget()->rect());
        show();
        raise();
    }

    void moveTo(int y, int line) {
        y_ = y - grip_.y();
        line_ = line;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Theme& theme = Theme::current();
        painter.fillRect(home_, theme.sheet);
        drawBox(painter, home_, theme.panel, QColor(), Metrics::controlRadius);
        const int top = std::clamp(line_ - dropLine / 2, 0, height() - dropLine);
        painter.fillRect(0, top, width(), dropLine, theme.accentBright);
        const int side = layoutDirection() == Qt::RightToLeft ? -lift : lift;
        const QRect lifted = QRect(home_.x() + side, y_, home_.width(), home_.height());
        drawBox(painter, lifted, theme.on, theme.edge, Metrics::controlRadius);
        painter.drawPixmap(lifted.topLeft(), picture_);
    }

private:
    QPoint grip_;
    QRect home_;
    QPixmap picture_;
    int y_ = 0;
    int line_ = 0;
};

RuleList::RuleList(std::vector<CropPreset> presets, QWidget* parent)
    : QWidget(parent),
      presets_(std::move(presets)),
      column_(new QVBoxLayout(this)),
      overlay_(new Overlay(this)) {
    column_->setContentsMargins(0, 0, lift, 0);
    column_->setSpacing(0);
}

RuleList::~RuleList() = default;

RuleRow* RuleList::makeRow(const CropRule& rule, std::size_t place) {
    auto* row = new RuleRow(rule, presets_, poses_);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(place), row);
    column_->insertWidget(static_cast<int>(place), row);
    connect(row, &RuleRow::edited, this, [this] {
        number();
        emit edited();
    });
    connect(row, &RuleRow::moveWanted, this, [this, row](int by) {
        const std::size_t from = placeOf(row);
        const bool isAtEnd = by < 0 ? from == 0 : from + 1 >= movable();
        if (from < movable() && !isAtEnd) move(from, from + static_cast<std::size_t>(by));
    });
    connect(row, &RuleRow::removeWanted, this, [this, row] { remove(row); });
    connect(row, &RuleRow::gripped, this,
            [this, row](const QPoint& grip) { beginDrag(row, grip); });
    return row;
}

void RuleList::setRules(const std::vector<CropRule>& rules) {
    for (RuleRow* row : rows_) delete row;
    rows_.clear();
    for (const CropRule& rule : rules) makeRow(rule, rows_.size());
    number();
}

std::vector<CropRule> RuleList::rules() const {
    std::vector<CropRule> rules;
    rules.reserve(rows_.size());
    for (const RuleRow* row : rows_) rules.push_back(row->rule());
    return rules;
}

void RuleList::add(const CropRule& rule) {
    RuleRow* row = makeRow(rule, movable());
    row->setPoses(poses_);
    number();
    row->show();
    row->setEditing(true);
    emit edited();
}

void RuleList::setPoses(const QStringList& poses) {
    poses_ = poses;
    for (RuleRow* row : rows_) row->setPoses(poses);
}

std::size_t RuleList::movable() const {
    const bool lastStays = !rows_.empty() && std::holds_alternative<RuleCondition::Always>(
                                                 rows_.back()->rule().condition.when);
    return rows_.size() - (lastStays ? 1 : 0);
}

std::size_t RuleList::placeOf(const RuleRow* row) const {
    return static_cast<std::size_t>(std::ranges::find(rows_, row) - rows_.begin());
}

void RuleList::number() {
    QWidget* before = nullptr;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        rows_[i]->setNumber(static_cast<int>(i) + 1);
        rows_[i]->setMovable(i < movable());
        for (QWidget* control : rows_[i]->controls()) {
            if (before) setTabOrder(before, control);
            before = control;
        }
    }
}

void RuleList::move(std::size_t from, std::size_t to) {
    RuleRow* row = rows_[from];
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(from));
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(to), row);
    column_->removeWidget(row);
    column_->insertWidget(static_cast<int>(to), row);
    number();
    emit edited();
}

void RuleList::remove(RuleRow* row) {
    const std::size_t place = placeOf(row);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(place));
    // The focus goes to the rule that comes into its place.
    if (!rows_.empty())
        rows_[std::min(place, rows_.size() - 1)]->controls().front()->setFocus(Qt::TabFocusReason);
    column_->removeWidget(row);
    row->hide();
    row->deleteLater();
    number();
    emit edited();
}

void RuleList::beginDrag(RuleRow* row, const QPoint& place) {
    dragged_ = row;
    overlay_->begin(*row, place);
    const int y = row->y() + place.y();
    overlay_->moveTo(y, row->y());
    grabMouse(Qt::ClosedHandCursor);
    grabKeyboard();
}

std::size_t RuleList::gapAt(int y) const {
    std::size_t gap = 0;
    while (gap < movable() && y > rows_[gap]->geometry().center().y()) ++gap;
    return gap;
}

void RuleList::mouseMoveEvent(QMouseEvent* event) {
    if (!dragged_) return;
    const int y = event->position().toPoint().y();
    const std::size_t gap = gapAt(y);
    overlay_->moveTo(y, gap == 0 ? rows_.front()->y() : rows_[gap - 1]->geometry().bottom() + 1);
    for (QWidget* above = parentWidget(); above; above = above->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(above)) {
            const QPoint seen = mapTo(area->widget(), QPoint(0, y));
            area->ensureVisible(0, seen.y(), 0, dragged_->height() / 2);
            break;
        }
}

void RuleList::mouseReleaseEvent(QMouseEvent* event) {
    if (!dragged_) return;
    const std::size_t from = placeOf(dragged_);
    const std::size_t gap = gapAt(event->position().toPoint().y());
    endDrag();
    // The gaps on both sides of a rule leave it where it is.
    if (gap != from && gap != from + 1) move(from, gap > from ? gap - 1 : gap);
}

void RuleList::keyPressEvent(QKeyEvent* event) {
    if (dragged_ && event->key() == Qt::Key_Escape)
        endDrag();
    else
        QWidget::keyPressEvent(event);
}

void RuleList::endDrag() {
    releaseMouse();
    releaseKeyboard();
    overlay_->hide();
    dragged_ = nullptr;
}

}  // namespace morva
