// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/figure_table.h"

#include <algorithm>

#include <QPainter>
#include <QStyle>

#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/typography.h"

namespace morva {

namespace {

constexpr int gap = 12;
constexpr int iconSide = 12;
constexpr int iconGap = 4;
constexpr int wrapped = Qt::TextWordWrap | Qt::TextWrapAnywhere;

/// Room in which a text is not wrapped; the first and last letter may lean out of the advance.
int textWidth(const QFontMetrics& metrics, const QString& text) {
    return std::max(metrics.horizontalAdvance(text), metrics.boundingRect(text).width()) + 2;
}

}  // namespace

FigureTable::FigureTable(QWidget* parent) : QWidget(parent) {
    setFont(fontFor(TextRole::small));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void FigureTable::setRows(std::vector<Row> rows) {
    if (rows == rows_) return;
    rows_ = std::move(rows);
    QStringList lines;
    for (const Row& row : rows_) {
        QStringList words{row.label};
        for (const Figure& figure : row.figures)
            if (!figure.text.isEmpty()) words << figure.text;
        lines << words.join(QStringLiteral(", "));
    }
    setAccessibleDescription(lines.join(QStringLiteral("; ")));
    updateGeometry();
    update();
}

int FigureTable::figureWidth(const Figure& figure) const {
    return textWidth(fontMetrics(), figure.text) + (figure.isWarning ? iconSide + iconGap : 0);
}

std::vector<int> FigureTable::columns(int width) const {
    std::vector<int> made;
    for (const Row& row : rows_) {
        made.resize(std::max(made.size(), row.figures.size()));
        for (std::size_t i = 0; i < row.figures.size(); ++i)
            made[i] = std::max(made[i], figureWidth(row.figures[i]));
    }
    for (int& column : made) column = std::min(column, width);
    return made;
}

FigureTable::Place FigureTable::place(const Row& row, const std::vector<int>& columns,
                                      int width) const {
    const int line = scaled(Metrics::tableRowHeight);
    const auto height = [&](const QString& text, int room) {
        const QRect page(0, 0, std::max(1, room), 1 << 16);
        const int text_ = fontMetrics().boundingRect(page, wrapped, text).height();
        return std::max(line, text_ + line - fontMetrics().height());
    };
    Place made;
    int used = 0;
    for (std::size_t i = 0; i < row.figures.size(); ++i) {
        const int natural = std::min(figureWidth(row.figures[i]), width);
        // Nothing lines up with the left side of the first figure: it takes only what it needs.
        made.widths.push_back(i == 0 ? natural : columns[i]);
        used += gap + made.widths.back();
        made.figuresHeight = std::max(made.figuresHeight, height(row.figures[i].text, natural));
    }
    const int label = textWidth(fontMetrics(), row.label);
    made.isStacked = label + used > width;
    made.labelWidth = made.isStacked ? width : width - used;
    made.labelHeight = height(row.label, made.labelWidth);
    return made;
}

int FigureTable::heightForWidth(int width) const {
    const std::vector<int> made = columns(width);
    int height = 0;
    for (const Row& row : rows_) height += place(row, made, width).height();
    return height;
}

QSize FigureTable::sizeHint() const {
    const int width = scaled(240);
    return {width, heightForWidth(width)};
}

QSize FigureTable::minimumSizeHint() const { return {scaled(120), 0}; }

void FigureTable::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::current();
    const std::vector<int> made = columns(width());
    const auto placed = [&](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const int leading = static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft));
    const int trailing =
        static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignRight));
    const int line = scaled(Metrics::tableRowHeight);
    const int above = (line - fontMetrics().height()) / 2;
    int y = 0;
    for (const Row& row : rows_) {
        const Place where = place(row, made, width());
        painter.setPen(theme.text2);
        painter.drawText(placed(QRect(0, y + above, where.labelWidth, where.labelHeight)),
                         leading | Qt::AlignTop | wrapped, row.label);
        const int top = where.isStacked ? y + where.labelHeight : y;
        int right = width();
        for (std::size_t i = row.figures.size(); i-- > 0;) {
            const Figure& figure = row.figures[i];
            const int column = where.widths[i];
            painter.setPen(theme.*figure.color);
            painter.drawText(
                placed(QRect(right - column, top + above, column, where.figuresHeight)),
                trailing | Qt::AlignTop | wrapped, figure.text);
            if (figure.isWarning) {
                const int text = fontMetrics().horizontalAdvance(figure.text);
                const QRect mark(right - text - iconGap - iconSide, top + (line - iconSide) / 2,
                                 iconSide, iconSide);
                painter.drawPixmap(placed(mark).topLeft(),
                                   iconPixmap(QStringLiteral("s-review"), theme.review, iconSide,
                                              devicePixelRatioF()));
            }
            right -= column + gap;
        }
        y += where.height();
    }
}

}  // namespace morva
