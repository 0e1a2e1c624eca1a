// SPDX-License-Identifier: GPL-3.0-or-later
// A choice among a few whose texts are never cut: what does not fit into one line wraps into a
// second. For the panel, which is narrow and whose labels are sentences.
#pragma once

#include <QComboBox>

namespace morva {

class ChoiceBox final : public QComboBox {
    Q_OBJECT

public:
    explicit ChoiceBox(const QString& accessibleName, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    void showPopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int textWidth(int width, const QIcon& icon) const;
    int linesHeight(const QString& text, int width) const;
};

}  // namespace morva
