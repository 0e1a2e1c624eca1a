// SPDX-License-Identifier: GPL-3.0-or-later
// The findings about a photo, each with a title and a sentence. Keeps its rows from photo to photo.
#pragma once

#include <span>
#include <vector>

#include <QWidget>

#include "ui/panel/photo_report.h"

class QLabel;
class QVBoxLayout;

namespace morva {

class IconText;

class ReasonList final : public QWidget {
    Q_OBJECT

public:
    explicit ReasonList(QWidget* parent = nullptr);

    void set(std::span<const ReasonReport> reasons);

private:
    struct Line {
        IconText* title;
        QLabel* sentence;
    };

    QVBoxLayout* column_;
    std::vector<Line> lines_;
};

}  // namespace morva
