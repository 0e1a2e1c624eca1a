// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of a label and one or two figures, right-aligned: factors, measurements, details. Wraps
// labels and figures where the panel is too narrow; keeps no figure of its own.
#pragma once

#include <algorithm>
#include <vector>

#include <QWidget>

#include "ui/widgets/theme.h"

namespace morva {

class FigureTable final : public QWidget {
    Q_OBJECT

public:
    using Color = QColor Theme::*;

    struct Figure {
        QString text;
        Color color = &Theme::text;
        /// Out of tolerance: a triangle stands before it.
        bool isWarning = false;

        bool operator==(const Figure&) const = default;
    };
    struct Row {
        QString label;
        std::vector<Figure> figures;

        bool operator==(const Row&) const = default;
    };

    explicit FigureTable(QWidget* parent = nullptr);

    void setRows(std::vector<Row> rows);
    const std::vector<Row>& rows() const { return rows_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Where the parts of a row go: in one line, or the label above its figures.
    struct Place {
        bool isStacked = false;
        int labelWidth = 0;
        int labelHeight = 0;
        int figuresHeight = 0;
        std::vector<int> widths;
        int height() const {
            return isStacked ? labelHeight + figuresHeight : std::max(labelHeight, figuresHeight);
        }
    };
    std::vector<int> columns(int width) const;
    Place place(const Row& row, const std::vector<int>& columns, int width) const;
    int figureWidth(const Figure& figure) const;

    std::vector<Row> rows_;
};

}  // namespace morva
