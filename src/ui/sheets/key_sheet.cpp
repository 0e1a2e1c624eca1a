// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/key_sheet.h"

#include <algorithm>

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>

#include "ui/widgets/icons.h"
#include "ui/widgets/key_cap.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr int sheetWidth = 976;
constexpr int searchWidth = 240;
constexpr int capsWidth = 132;
constexpr int rowHeight = 26;
constexpr int headHeight = 22;

/// The keys of one row, side by side.
class Caps final : public QWidget {
public:
    explicit Caps(const QStringList& caps) : caps_(caps) {
        int width = 0;
        for (const QString& cap : caps_) width += keyCapSize(cap).width() + gap;
        size_ = {width - gap, keyCapSize(QStringLiteral("A")).height()};
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    QSize sizeHint() const override { return size_; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        int x = 0;
        for (const QString& cap : caps_) {
            const QSize size = keyCapSize(cap);
            const QRect place = QStyle::visualRect(layoutDirection(), rect(), QRect({x, 0}, size));
            drawKeyCap(painter, cap, place.topLeft(), Theme::current().text2);
            x += size.width() + gap;
        }
    }

private:
    static constexpr int gap = 4;
    QStringList caps_;
    QSize size_;
};

struct Group {
    QString title;
    std::vector<const KeyRow*> rows;
};

bool isFound(const KeyRow& row, const QString& wanted) {
    return row.text.contains(wanted, Qt::CaseInsensitive) ||
           row.group.contains(wanted, Qt::CaseInsensitive) ||
           row.caps.join(QLatin1Char('+')).contains(wanted, Qt::CaseInsensitive);
}

std::vector<Group> grouped(const std::vector<KeyRow>& rows, const QString& wanted) {
    std::vector<Group> groups;
    for (const KeyRow& row : rows) {
        if (!isFound(row, wanted)) continue;
        auto group = std::ranges::find(groups, row.group, &Group::title);
        if (group == groups.end()) group = groups.insert(groups.end(), {row.group, {}});
        group->rows.push_back(&row);
    }
    return groups;
}

void addGroup(QGridLayout& grid, const Group& group) {
    // A layout without items already has one row.
    int line = grid.count() == 0 ? 0 : grid.rowCount();
    if (line > 0) grid.setRowMinimumHeight(line++, 12);
    grid.setRowMinimumHeight(line, scaled(headHeight));
    grid.addWidget(makeLabel(group.title, TextRole::label, Ink::text2), line++, 0, 1, 2,
                   Qt::AlignTop);
    for (const KeyRow* row : group.rows) {
        grid.setRowMinimumHeight(line, scaled(rowHeight));
        grid.addWidget(new Caps(row->caps), line, 0);
        QLabel* text = makeWrappedLabel(row->text, TextRole::body);
        text->setAccessibleName(row->caps.join(QLatin1Char(' ')) + QStringLiteral(": ") +
                                row->text);
        grid.addWidget(text, line++, 1);
    }
}

QGridLayout* makeColumn() {
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(0);
    grid->setHorizontalSpacing(Metrics::sheetPadding);
    grid->setColumnMinimumWidth(0, scaled(capsWidth));
    grid->setColumnStretch(1, 1);
    return grid;
}

}  // namespace

KeySheet::KeySheet(QWidget* window, std::vector<KeyRow> rows)
    : Sheet(window, sheetWidth),
      rows_(std::move(rows)),
      search_(new QLineEdit),
      columns_(new QWidget) {
    setTitle(tr("Keyboard shortcuts"));
    search_->setPlaceholderText(tr("Find a command"));
    search_->setAccessibleName(search_->placeholderText());
    search_->setFixedWidth(scaled(searchWidth));
    search_->addAction(icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
    search_->setClearButtonEnabled(true);
    addBesideTitle(search_);
    setFirstControl(search_);
    body()->addWidget(columns_);
    addToFooter(makeWrappedLabel(
                    tr("Keys act on photos only while no field has focus and no sheet is open."),
                    TextRole::small, Ink::text2),
                100);
    addCancelButton(tr("Close"));
    connect(this, &Sheet::cancelled, this, &Sheet::close);
    connect(search_, &QLineEdit::textChanged, this, &KeySheet::refresh);
    refresh();
    // The sheet keeps its size while it is narrowed down.
    columns_->setMinimumHeight(columns_->sizeHint().height());
}

void KeySheet::refresh() {
    delete columns_->layout();
    qDeleteAll(columns_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    auto* row = new QHBoxLayout(columns_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(40);
    const auto groups = grouped(rows_, search_->text().trimmed());
    if (groups.empty()) {
        QLabel* none = makeLabel(tr("No command is called so."), TextRole::body, Ink::text2);
        row->addWidget(none, 0, Qt::AlignTop);
        return;
    }
    std::size_t lines = 0;
    for (const Group& group : groups) lines += group.rows.size() + 2;
    QGridLayout* columns[] = {makeColumn(), makeColumn()};
    std::size_t above = 0;
    for (const Group& group : groups) {
        // A group goes where most of it lies when the list is cut in the middle.
        const bool isFirst = 2 * above + group.rows.size() + 2 <= lines;
        addGroup(*columns[isFirst ? 0 : 1], group);
        above += group.rows.size() + 2;
    }
    for (QGridLayout* column : columns) {
        auto* side = new QVBoxLayout;
        side->addLayout(column);
        side->addStretch(1);
        row->addLayout(side, 1);
    }
}

}  // namespace morva
