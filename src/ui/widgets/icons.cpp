// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/icons.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "ui/widgets/theme.h"

static void loadIcons() { Q_INIT_RESOURCE(icons); }

namespace morva {

namespace {

/// These point somewhere and are turned over where text runs from the right.
constexpr std::array mirrored{"undo", "redo", "left", "right", "return", "panel", "sidebar"};

bool isMirrored(const QString& name) {
    return QApplication::isRightToLeft() &&
           std::any_of(mirrored.begin(), mirrored.end(),
                       [&](const char* one) { return name == QLatin1String(one); });
}

QString fileOf(const QString& name) {
    static const bool loaded = (loadIcons(), true);
    Q_ASSERT(loaded);
    const QString file = QStringLiteral(":/icons/%1.svg").arg(name);
    Q_ASSERT_X(QFile::exists(file), "icon", qPrintable(name));
    return file;
}

QImage render(const QString& name, int pixels, const QColor& ground) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(ground);
    QPainter painter(&image);
    if (isMirrored(name)) {
        painter.translate(pixels, 0);
        painter.scale(-1, 1);
    }
    QSvgRenderer(fileOf(name)).render(&painter, QRectF(0, 0, pixels, pixels));
    return image;
}

/// The drawing's light ink in `color`; what it has in dark ink lets the ground through.
QImage masked(const QString& name, const QColor& color, int pixels) {
    constexpr int darkInk = 0x1a;
    constexpr int lightInk = 0xed;
    QImage image = render(name, pixels, Qt::black);
    for (int y = 0; y < pixels; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < pixels; ++x) {
            const int light = std::clamp(qRed(row[x]) - darkInk, 0, lightInk - darkInk);
            const int alpha = color.alpha() * light / (lightInk - darkInk);
            row[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(), alpha));
        }
    }
    return image;
}

class MaskEngine final : public QIconEngine {
public:
    MaskEngine(QString name, QColor color) : name_(std::move(name)), color_(std::move(color)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const int side = std::min(rect.width(), rect.height());
        const qreal scale = painter->device()->devicePixelRatioF();
        const QPixmap pixmap = iconPixmap(name_, colorFor(mode), side, scale);
        painter->drawPixmap(rect.x() + (rect.width() - side) / 2,
                            rect.y() + (rect.height() - side) / 2, pixmap);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override {
        return iconPixmap(name_, colorFor(mode), std::min(size.width(), size.height()), 1);
    }

    QIconEngine* clone() const override { return new MaskEngine(*this); }

private:
    QColor colorFor(QIcon::Mode mode) const {
        if (mode == QIcon::Disabled) return Theme::current().off;
        return color_.isValid() ? color_ : Theme::current().text;
    }

    QString name_;
    /// Invalid for the theme's text.
    QColor color_;
};

}  // namespace

QIcon icon(const QString& name) { return icon(name, QColor()); }

QIcon icon(const QString& name, const QColor& color) { return QIcon(new MaskEngine(name, color)); }

QPixmap iconPixmap(const QString& name, const QColor& color, int side, qreal scale) {
    const int pixels = static_cast<int>(std::lround(side * scale));
    const QString key = QStringLiteral("morva-%1-%2-%3-%4")
                            .arg(name, color.name(QColor::HexArgb))
                            .arg(pixels)
                            .arg(QApplication::isRightToLeft() ? 1 : 0);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap::fromImage(masked(name, color, pixels));
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QIcon applicationIcon() {
    QIcon whole;
    for (const int side : {16, 24, 32, 48, 64, 128, 256})
        whole.addPixmap(QPixmap::fromImage(render(QStringLiteral("morva"), side, Qt::transparent)));
    return whole;
}

}  // namespace morva
