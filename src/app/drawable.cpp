// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/drawable.h"

namespace morva {

QImage drawable(const Picture& picture) {
    QImage image(picture.width(), picture.height(), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        const std::uint8_t* from = picture.row(y);
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < picture.width(); ++x, from += 3)
            to[x] = qRgb(from[0], from[1], from[2]);
    }
    return image;
}

}  // namespace morva
