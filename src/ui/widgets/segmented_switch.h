// SPDX-License-Identifier: GPL-3.0-or-later
// A few choices side by side of which one is pressed in, or none yet.
#pragma once

#include <QWidget>

class QButtonGroup;

namespace morva {

class SegmentedSwitch final : public QWidget {
    Q_OBJECT

public:
    explicit SegmentedSwitch(const QStringList& texts, QWidget* parent = nullptr);

    /// -1 for none.
    int chosen() const;
    /// Without telling of it.
    void setChosen(int place);
    void setText(int place, const QString& text);

signals:
    /// By a person.
    void choose(int place);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QButtonGroup* buttons_;
};

}  // namespace morva
