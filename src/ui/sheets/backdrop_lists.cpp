// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/backdrop_lists.h"

#include <algorithm>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

#include "app/app_state.h"
#include "app/backdrop_setup.h"
#include "ui/widgets/badge.h"
#include "ui/widgets/cell_room.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/small_pictures.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

constexpr int typeRowHeight = 56;
constexpr int checkSide = 16;
constexpr int padding = 12;
constexpr QSize typePicture{32, 40};
constexpr int tileSide = 96;
constexpr int tileGap = 12;
constexpr int captionHeight = 24;
/// Pixels: enough for a tile on the finest screen, the same file for both lists.
constexpr int plateHeight = 240;
constexpr int plateListHeight = 288;

enum Role { presetRole = Qt::UserRole + 1, plateRole, offReasonRole };

using Path = std::filesystem::path;

std::optional<Path> plateOf(const QModelIndex& index) {
    const QByteArray file = index.data(plateRole).toByteArray();
    if (file.isEmpty()) return std::nullopt;
    return Path(file.toStdString());
}

QString plateName(const std::optional<Path>& plate) {
    return plate ? pathText(plate->stem()) : PlateList::tr("Matched");
}

/// A plate cut to fill `rect`, or what stands for a generated one.
void paintPlate(QPainter& painter, const QRect& rect, const std::optional<Path>& plate,
                SmallPictures& pictures) {
    const Theme& theme = Theme::current();
    const qreal scale = painter.device()->devicePixelRatioF();
    if (!plate) {
        painter.fillRect(rect, theme.edge);
        const int side = rect.width() > 48 ? 20 : 14;
        painter.drawPixmap(rect.center().x() - side / 2 + 1, rect.center().y() - side / 2 + 1,
                           iconPixmap(QStringLiteral("palette"), theme.canvas, side, scale));
        return;
    }
    painter.fillRect(rect, theme.panel);
    const QPixmap pixmap =
        pictures.picture({.url = *plate, .height = plateHeight}, rect.size(), scale);
    if (!pixmap.isNull()) painter.drawPixmap(rect, pixmap);
}

class TypePainter final : public QStyledItemDelegate {
public:
    TypePainter(AppState& state, SmallPictures& pictures, QObject* parent)
        : QStyledItemDelegate(parent), state_(state), pictures_(pictures) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {option.rect.width(), scaled(typeRowHeight)};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto id = Uuid::parse(index.data(presetRole).toString().toStdString());
        const CropPreset* preset = id ? state_.preset(*id) : nullptr;
        if (!preset) return;
        const Theme& theme = Theme::current();
        const BackdropSetup::Choice choice = state_.backdrops().choice(*id);
        const bool isCurrent = option.state & QStyle::State_Selected;
        const bool isFocused = option.state & QStyle::State_HasFocus;
        drawBox(*painter, QRectF(option.rect).adjusted(0, 1, 0, -1),
                isCurrent ? theme.selected : QColor(),
                isCurrent ? (isFocused ? theme.accentBright : theme.accent) : QColor(),
                Metrics::controlRadius, isFocused ? theme.ring : 1);
        const auto placed = [&](const QRect& logical) {
            return QStyle::visualRect(option.direction, option.rect, logical);
        };
        const QRect row = option.rect;
        QStyleOptionViewItem check(option);
        check.rect = placed(
            {row.x() + padding, row.y() + (row.height() - checkSide) / 2, checkSide, checkSide});
        check.state = QStyle::State_Enabled | (choice.isOn ? QStyle::State_On : QStyle::State_Off);
        QApplication::style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &check, painter,
                                             option.widget);
        int left = row.x() + padding + checkSide + padding;
        const QRect picture =
            placed({{left, row.y() + (row.height() - typePicture.height()) / 2}, typePicture});
        if (choice.isOn)
            paintPlate(*painter, picture, choice.plate, pictures_);
        else
            drawBox(*painter, picture, QColor(), theme.line, 0);
        left += typePicture.width() + padding;
        paintTexts(*painter, option, *preset, choice, index, left);
    }

private:
    static void paintTexts(QPainter& painter, const QStyleOptionViewItem& option,
                           const CropPreset& preset, const BackdropSetup::Choice& choice,
                           const QModelIndex& index, int left) {
        const Theme& theme = Theme::current();
        const QRect row = option.rect;
        const auto placed = [&](const QRect& logical) {
            return QStyle::visualRect(option.direction, row, logical);
        };
        const auto side = static_cast<int>(
            QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignVCenter);
        const int half = row.height() / 2 - 6;
        const QSize badge = badgeSize(preset);
        const QRect badgePlace = placed({{left, row.y() + 6 + (half - badge.height()) / 2}, badge});
        drawBadge(painter, preset, badgePlace.topLeft());
        const int nameLeft = left + (badge.isEmpty() ? 0 : badge.width() + 6);
        const QRect name = placed({nameLeft, row.y() + 6, row.right() - 4 - nameLeft, half});
        painter.setFont(fontFor(TextRole::body));
        painter.setPen(theme.text);
        painter.drawText(
            name, side,
            painter.fontMetrics().elidedText(asGiven(preset.name), Qt::ElideRight, name.width()));
        const QRect note = placed({left, row.y() + 6 + half, row.right() - 4 - left, half});
        const QString reason = index.data(offReasonRole).toString();
        painter.setFont(fontFor(TextRole::small));
        painter.setPen(theme.text2);
        painter.drawText(
            note, side,
            painter.fontMetrics().elidedText(choice.isOn ? plateName(choice.plate) : reason,
                                             Qt::ElideRight, note.width()));
    }

    AppState& state_;
    SmallPictures& pictures_;
};

class PlatePainter final : public QStyledItemDelegate {
public:
    PlatePainter(SmallPictures& pictures, QObject* parent)
        : QStyledItemDelegate(parent), pictures_(pictures) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {tileSide + tileGap, tileSide + scaled(captionHeight) + tileGap};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Theme& theme = Theme::current();
        const bool isChosen = option.state & QStyle::State_Selected;
        const bool isEnabled = option.state & QStyle::State_Enabled;
        const QRect tile(option.rect.x() + 4, option.rect.y() + 4, tileSide, tileSide);
        painter->setOpacity(isEnabled ? 1 : 0.4);
        paintPlate(*painter, tile, plateOf(index), pictures_);
        if (isChosen)
            drawBox(*painter, QRectF(tile).adjusted(-4, -4, 4, 4), QColor(),
                    option.state & QStyle::State_HasFocus ? theme.accentBright : theme.accent,
                    Metrics::controlRadius, theme.ring);
        QRect caption(tile.x(), tile.bottom() + 5, tileSide, scaled(captionHeight) - 4);
        if (isChosen) {
            const QRect mark = QStyle::visualRect(
                option.direction, caption,
                QRect(caption.x(), caption.y() + (caption.height() - 12) / 2, 12, 12));
            painter->drawPixmap(mark.topLeft(),
                                iconPixmap(QStringLiteral("check"), theme.accentBright, 12,
                                           painter->device()->devicePixelRatioF()));
            caption = QStyle::visualRect(option.direction, caption, caption.adjusted(16, 0, 0, 0));
        }
        painter->setFont(fontFor(TextRole::small));
        painter->setPen(isChosen ? theme.text : theme.text2);
        painter->drawText(
            caption,
            static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft) |
                             Qt::AlignVCenter),
            painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideMiddle,
                                              caption.width()));
        painter->setOpacity(1);
    }

private:
    SmallPictures& pictures_;
};

void calm(QListView& list, SmallPictures& pictures) {
    list.setFrameShape(QFrame::NoFrame);
    list.setSelectionMode(QAbstractItemView::SingleSelection);
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setEditTriggers(QAbstractItemView::NoEditTriggers);
    list.viewport()->setAutoFillBackground(false);
    QObject::connect(&pictures, &SmallPictures::arrived, list.viewport(),
                     qOverload<>(&QWidget::update));
}

}  // namespace

BackdropTypeList::BackdropTypeList(AppState& state, SmallPictures& pictures, QWidget* parent)
    : QListView(parent), state_(state), rows_(new QStandardItemModel(0, 1, this)) {
    calm(*this, pictures);
    setModel(rows_);
    setItemDelegate(new TypePainter(state, pictures, this));
    setAccessibleName(tr("Crop types of this job"));
    setMinimumHeight(2 * scaled(typeRowHeight));
}

QSize BackdropTypeList::sizeHint() const {
    return {QListView::sizeHint().width(), std::max(rows_->rowCount(), 3) * scaled(typeRowHeight)};
}

void BackdropTypeList::refresh() {
    const auto before = current();
    const BackdropSetup& setup = state_.backdrops();
    std::vector<std::pair<Uuid, QString>> wanted;
    for (const CropPreset& preset : state_.presets()) {
        const bool isSuggested =
            std::ranges::find(setup.presetIDs(), preset.id) != setup.presetIDs().end();
        const bool isFeetless = preset.framing == Framing::fullLength && setup.showsFeet() == false;
        if (isSuggested)
            wanted.emplace_back(preset.id, tr("Backdrop stays as it is"));
        else if (isFeetless)
            wanted.emplace_back(preset.id, tr("Off: no feet in this shoot"));
    }
    rows_->setRowCount(static_cast<int>(wanted.size()));
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const auto& [id, reason] = wanted[i];
        const QModelIndex index = rows_->index(static_cast<int>(i), 0);
        const CropPreset& preset = *state_.preset(id);
        const bool isOn = setup.choice(id).isOn;
        rows_->setData(index, QString::fromStdString(id.text()), presetRole);
        rows_->setData(index, asGiven(preset.name), Qt::DisplayRole);
        rows_->setData(index, reason, offReasonRole);
        rows_->setData(
            index,
            tr("%1, %2", "crop type and backdrop")
                .arg(asGiven(preset.name), isOn ? plateName(setup.choice(id).plate) : reason),
            Qt::AccessibleTextRole);
    }
    if (before) setCurrent(*before);
    if (!currentIndex().isValid() && rows_->rowCount() > 0) setCurrentIndex(rows_->index(0, 0));
    viewport()->update();
    updateGeometry();
}

std::optional<Uuid> BackdropTypeList::current() const {
    if (!currentIndex().isValid()) return std::nullopt;
    return Uuid::parse(currentIndex().data(presetRole).toString().toStdString());
}

void BackdropTypeList::setCurrent(const Uuid& preset) {
    const QString wanted = QString::fromStdString(preset.text());
    for (int i = 0; i < rows_->rowCount(); ++i)
        if (rows_->index(i, 0).data(presetRole) == wanted && currentIndex().row() != i)
            setCurrentIndex(rows_->index(i, 0));
}

void BackdropTypeList::keyPressEvent(QKeyEvent* event) {
    const auto type = current();
    if (event->key() == Qt::Key_Space && type)
        emit toggled(*type);
    else
        QListView::keyPressEvent(event);
}

void BackdropTypeList::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    const int reach = 2 * padding + checkSide;
    const int x = event->position().toPoint().x();
    const bool isOnCheck =
        layoutDirection() == Qt::RightToLeft ? x > viewport()->width() - reach : x < reach;
    const auto type = current();
    if (isOnCheck && type && indexAt(event->position().toPoint()) == currentIndex())
        emit toggled(*type);
}

void BackdropTypeList::currentChanged(const QModelIndex& now, const QModelIndex& before) {
    QListView::currentChanged(now, before);
    emit currentTypeChanged();
}

PlateList::PlateList(AppState& state, SmallPictures& pictures, QWidget* parent)
    : QListView(parent), state_(state), tiles_(new QStandardItemModel(0, 1, this)) {
    calm(*this, pictures);
    setModel(tiles_);
    setItemDelegate(new PlatePainter(pictures, this));
    setViewMode(IconMode);
    setMovement(Static);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setMinimumHeight(tileSide + scaled(captionHeight) + tileGap);
    setAccessibleName(tr("Backdrops"));
}

QSize PlateList::sizeHint() const { return {QListView::sizeHint().width(), plateListHeight}; }

void PlateList::refresh(const std::optional<Uuid>& preset) {
    isRefreshing_ = true;
    const BackdropSetup& setup = state_.backdrops();
    const auto& plates = setup.plates();
    tiles_->setRowCount(static_cast<int>(plates.size()) + 1);
    tiles_->setData(tiles_->index(0, 0), plateName(std::nullopt));
    tiles_->setData(tiles_->index(0, 0), tr("A backdrop in the color of each photo’s own"),
                    Qt::ToolTipRole);
    for (std::size_t i = 0; i < plates.size(); ++i) {
        const QModelIndex index = tiles_->index(static_cast<int>(i) + 1, 0);
        tiles_->setData(index, QByteArray::fromStdString(plates[i].file.string()), plateRole);
        tiles_->setData(index, plateName(plates[i].file));
        tiles_->setData(index, pathText(plates[i].file), Qt::ToolTipRole);
    }
    int chosen = -1;
    const auto choice = preset ? setup.choice(*preset) : BackdropSetup::Choice{};
    for (int i = 0; choice.isOn && i < tiles_->rowCount(); ++i)
        if (plateOf(tiles_->index(i, 0)) == choice.plate) chosen = i;
    if (chosen < 0) {
        clearSelection();
        setCurrentIndex({});
    } else if (currentIndex().row() != chosen || !selectionModel()->hasSelection()) {
        setCurrentIndex(tiles_->index(chosen, 0));
    }
    viewport()->update();
    isRefreshing_ = false;
}

void PlateList::currentChanged(const QModelIndex& now, const QModelIndex& before) {
    QListView::currentChanged(now, before);
    if (!isRefreshing_ && now.isValid()) emit chosen(plateOf(now));
}

void PlateList::resizeEvent(QResizeEvent* event) {
    const int room = roomForCells(*this);
    const int columns = std::max(1, room / (tileSide + tileGap));
    setGridSize({room / columns, tileSide + scaled(captionHeight) + tileGap});
    QListView::resizeEvent(event);
}

}  // namespace morva
