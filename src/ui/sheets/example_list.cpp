// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/example_list.h"

#include <algorithm>

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>

#include "app/app_state.h"
#include "app/pose_flow.h"
#include "ui/widgets/cell_room.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/small_pictures.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int pictureSide = 96;
constexpr int padding = 4;
constexpr int captionHeight = 20;
constexpr int checkSide = 16;
constexpr int leastGap = 12;
constexpr int listHeight = 576;

int cellWidth() { return pictureSide + 2 * padding; }
int cellHeight() { return pictureSide + 4 * padding + scaled(captionHeight); }

class ExamplePainter final : public QStyledItemDelegate {
public:
    ExamplePainter(AppState& state, ExampleModel& model, SmallPictures& pictures, QObject* parent)
        : QStyledItemDelegate(parent), state_(state), model_(model), pictures_(pictures) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Theme& theme = Theme::current();
        const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        const bool isCurrent = option.state & QStyle::State_HasFocus;
        const QRect cell = QStyle::alignedRect(option.direction, Qt::AlignHCenter | Qt::AlignTop,
                                               QSize(cellWidth(), cellHeight()), option.rect);
        const QColor fill = isTicked                                 ? theme.selected
                            : option.state & QStyle::State_MouseOver ? theme.cellHover
                                                                     : QColor();
        drawBox(*painter, cell, fill, isCurrent ? theme.accentBright : QColor(),
                Metrics::cellRadius, theme.ring);
        const QRect place(cell.x() + padding, cell.y() + padding, pictureSide, pictureSide);
        painter->fillRect(place, theme.panel);
        const WorkingJob* job = state_.selectedJob();
        const QPixmap pixmap = pictures_.picture(
            job->preview(model_.itemAt(index.row()), state_.presets(), ThumbnailStore::gridHeight),
            place.size(), painter->device()->devicePixelRatioF());
        if (!pixmap.isNull()) painter->drawPixmap(place, pixmap);
        paintCaption(*painter, option, index, place);
    }

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {cellWidth(), cellHeight()};
    }

private:
    static void paintCaption(QPainter& painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index, const QRect& above) {
        const QRect line(above.x(), above.bottom() + 1 + padding, above.width(),
                         scaled(captionHeight));
        QStyleOptionViewItem check(option);
        check.rect = QStyle::alignedRect(option.direction, Qt::AlignLeft | Qt::AlignVCenter,
                                         QSize(checkSide, checkSide), line);
        const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        check.state = QStyle::State_Enabled | (isTicked ? QStyle::State_On : QStyle::State_Off);
        QApplication::style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &check,
                                             &painter, option.widget);
        const QRect text =
            QStyle::visualRect(option.direction, line, line.adjusted(checkSide + 6, 0, 0, 0));
        painter.setFont(fontFor(TextRole::small));
        painter.setPen(isTicked ? Theme::current().text : Theme::current().text2);
        const QString name = painter.fontMetrics().elidedText(index.data().toString(),
                                                              Qt::ElideMiddle, text.width());
        painter.drawText(text,
                         static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft) |
                                          Qt::AlignVCenter),
                         name);
    }

    AppState& state_;
    ExampleModel& model_;
    SmallPictures& pictures_;
};

}  // namespace

ExampleModel::ExampleModel(AppState& state, QObject* parent)
    : QAbstractListModel(parent), state_(state) {
    connect(&state_, &AppState::itemsReset, this, &ExampleModel::reset);
    reset();
}

void ExampleModel::setTickedOnly(bool only) {
    tickedOnly_ = only;
    reset();
}

void ExampleModel::reset() {
    beginResetModel();
    items_.clear();
    const WorkingJob* job = state_.selectedJob();
    const auto& ticked = state_.poses().examples();
    for (std::size_t i = 0; job && i < job->job().items.size(); ++i)
        if (!tickedOnly_ || ticked.contains(job->item(i).id)) items_.push_back(i);
    endResetModel();
}

void ExampleModel::ticksChanged() {
    if (!items_.empty()) emit dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole});
}

int ExampleModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(items_.size());
}

QVariant ExampleModel::data(const QModelIndex& index, int role) const {
    const WorkingJob* job = state_.selectedJob();
    if (!job || !index.isValid()) return {};
    const ImageItem& item = job->item(itemAt(index.row()));
    const bool isTicked = state_.poses().examples().contains(item.id);
    const QString name = pathText(item.url.stem());
    switch (role) {
        case Qt::DisplayRole:
            return name;
        case Qt::CheckStateRole:
            return isTicked ? Qt::Checked : Qt::Unchecked;
        case Qt::AccessibleTextRole:
            return isTicked ? tr("%1, ticked").arg(name) : name;
        default:
            return {};
    }
}

bool ExampleModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || data(index, role) == value) return false;
    state_.poses().toggleExample(state_.selectedJob()->item(itemAt(index.row())).id);
    return true;
}

Qt::ItemFlags ExampleModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

ExampleList::ExampleList(AppState& state, QWidget* parent)
    : QListView(parent),
      model_(new ExampleModel(state, this)),
      pictures_(new SmallPictures(state.thumbnails(), this)) {
    setModel(model_);
    setItemDelegate(new ExamplePainter(state, *model_, *pictures_, this));
    setViewMode(IconMode);
    setMovement(Static);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerPixel);
    verticalScrollBar()->setSingleStep(40);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(NoFrame);
    setMouseTracking(true);
    setAccessibleName(tr("Photos of the job"));
    setMinimumHeight(2 * cellHeight());
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Theme::current().canvas);
    setPalette(colors);
    connect(this, &QListView::clicked, this, &ExampleList::tick);
    connect(pictures_, &SmallPictures::arrived, viewport(), qOverload<>(&QWidget::update));
}

QSize ExampleList::sizeHint() const { return {QListView::sizeHint().width(), listHeight}; }

void ExampleList::tick(const QModelIndex& index) {
    const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model_->setData(index, isTicked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void ExampleList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && currentIndex().isValid())
        tick(currentIndex());
    else
        QListView::keyPressEvent(event);
}

void ExampleList::spread() {
    // Spare width goes between the columns.
    const int room = roomForCells(*this);
    const int columns = std::max(1, room / (cellWidth() + leastGap));
    setGridSize({room / columns, cellHeight() + leastGap});
}

void ExampleList::resizeEvent(QResizeEvent* event) {
    spread();
    QListView::resizeEvent(event);
}

void ExampleList::scrollContentsBy(int dx, int dy) {
    QListView::scrollContentsBy(dx, dy);
    // After the cells that are now in view were painted.
    QTimer::singleShot(0, this, [this] {
        pictures_->keepUsed();
        viewport()->update();
    });
}

void ExampleList::focusInEvent(QFocusEvent* event) {
    if (!currentIndex().isValid() && model_->rowCount() > 0) setCurrentIndex(model_->index(0));
    QListView::focusInEvent(event);
}

}  // namespace morva
