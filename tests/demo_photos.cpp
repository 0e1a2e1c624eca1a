// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo_photos.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include <QFile>
#include <QImage>
#include <QPainter>

namespace morva::DemoPhotos {

namespace {

namespace fs = std::filesystem;

struct Variant {
    double turn;   // degrees
    double scale;  // 1: the sample twice as large
    double brightness;
    double warmth;  // above 1 the light is redder
    bool mirrored;
    QPointF shift;  // share of the picture
};

constexpr std::array turns{0.0, 2.5, -1.5, 4.0, -3.5, 1.0, -6.0, 7.0, 0.5, -2.0, 3.0};
constexpr std::array scales{1.0, 1.06, 1.12, 1.03, 1.3, 1.08, 1.0};
constexpr std::array lights{1.0, 0.9, 1.08, 0.96, 1.04};

Variant variant(int number) {
    const auto pick = [number](const auto& values) {
        return values[static_cast<std::size_t>(number) % values.size()];
    };
    const double scale = pick(scales);
    const double room = (scale - 1) / 2;
    return {.turn = pick(turns),
            .scale = scale,
            .brightness = pick(lights),
            .warmth = 1 + 0.012 * (number % 5 - 2),
            .mirrored = number % 3 == 1,
            .shift = {room * 0.3 * ((number % 4) - 1.5), room * 0.3 * ((number % 3) - 1)}};
}

QImage drawn(const QImage& sample, const Variant& look, int enlargement) {
    const int side = enlargement * sample.width();
    QImage photo(side * 4 / 5, side, QImage::Format_RGB32);
    photo.fill(sample.pixelColor(4, 4));
    QPainter painter(&photo);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(photo.width() / 2.0 + look.shift.x() * side,
                      photo.height() / 2.0 + look.shift.y() * side);
    // Large enough that a turn shows no corner.
    const double cover = 1 + std::abs(std::sin(look.turn * M_PI / 180)) * 0.8;
    painter.rotate(look.turn);
    const double size = enlargement * look.scale * cover;
    painter.scale(look.mirrored ? -size : size, size);
    // The face of the sample lies left of its middle.
    const QPointF middle(sample.width() * 0.445, sample.height() * 0.46);
    painter.drawImage(-middle, sample);
    painter.end();
    return photo;
}

QImage lit(QImage photo, const Variant& look) {
    const std::array gains{look.brightness * look.warmth, look.brightness,
                           look.brightness / look.warmth};
    for (int y = 0; y < photo.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(photo.scanLine(y));
        for (int x = 0; x < photo.width(); ++x) {
            const auto level = [&](int value, double gain) {
                return std::clamp(static_cast<int>(std::lround(value * gain)), 0, 255);
            };
            row[x] = qRgb(level(qRed(row[x]), gains[0]), level(qGreen(row[x]), gains[1]),
                          level(qBlue(row[x]), gains[2]));
        }
    }
    return photo;
}

}  // namespace

void write(const fs::path& sample, const fs::path& folder, int count, int enlargement) {
    const QImage portrait =
        QImage(QFile::decodeName(sample.c_str())).convertToFormat(QImage::Format_RGB32);
    if (portrait.isNull()) throw std::runtime_error("cannot read " + sample.string());
    fs::create_directories(folder);
    for (int i = 0; i < count; ++i) {
        const Variant look = variant(i);
        const fs::path file = folder / ("IMG_" + std::to_string(10001 + i).substr(1) + ".jpg");
        if (!lit(drawn(portrait, look, enlargement), look)
                 .save(QFile::decodeName(file.c_str()), "JPEG", 93))
            throw std::runtime_error("cannot write " + file.string());
    }
}

}  // namespace morva::DemoPhotos
