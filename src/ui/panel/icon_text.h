// SPDX-License-Identifier: GPL-3.0-or-later
// An icon with a text beside it, both in colours of the theme that is in use when they are painted:
// a status, a warning, a title of a finding. Wraps where it must.
#pragma once

#include <QWidget>

#include "ui/widgets/theme.h"
#include "ui/widgets/typography.h"

namespace morva {

class IconText final : public QWidget {
    Q_OBJECT

public:
    using Color = QColor Theme::*;

    explicit IconText(TextRole role, QWidget* parent = nullptr);

    void set(const QString& icon, Color iconColor, const QString& text,
             Color textColor = &Theme::text);
    const QString& text() const { return text_; }
    const QString& iconName() const { return icon_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int lineHeight() const;

    TextRole role_;
    QString icon_;
    Color iconColor_ = &Theme::text;
    QString text_;
    Color textColor_ = &Theme::text;
};

}  // namespace morva
