// SPDX-License-Identifier: GPL-3.0-or-later
// One line of text that gives way when there is no room, and then shows all of it as a tooltip.
#pragma once

#include "ui/widgets/typography.h"

namespace morva {

class ElidedLabel final : public InkLabel {
    Q_OBJECT

public:
    /// File names are cut in the middle, everything else at the end.
    explicit ElidedLabel(TextRole role, Ink ink = Ink::text,
                         Qt::TextElideMode mode = Qt::ElideRight, QWidget* parent = nullptr);

    void setFullText(const QString& text);
    const QString& fullText() const { return text_; }

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void elide();

    QString text_;
    Qt::TextElideMode mode_;
};

}  // namespace morva
