// SPDX-License-Identifier: GPL-3.0-or-later
// The canvas for those who do not see it: a picture whose value is the crop in words.
#pragma once

#include <QAccessibleWidget>

namespace morva {

class PhotoCanvas;

class CanvasAccessible final : public QAccessibleWidget {
public:
    explicit CanvasAccessible(PhotoCanvas* canvas);

    /// Lets Qt find it; may be called again.
    static void install();

    QString text(QAccessible::Text kind) const override;
};

}  // namespace morva
