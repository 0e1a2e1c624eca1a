// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid/cell_picture.h"

#include <cmath>
#include <cstdlib>

#include <gtest/gtest.h>

#include "imaging/raster.h"
#include "output/preview_renderer.h"

namespace morva {
namespace {

constexpr Size source{800, 1000};
const QRect slot(0, 0, 144, 180);

/// Waves in all directions, a different colour to each side.
Picture waves(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            std::uint8_t* pixel = picture.pixel(x, y);
            pixel[0] = static_cast<std::uint8_t>(255 * x / width);
            pixel[1] = static_cast<std::uint8_t>(255 * y / height);
            pixel[2] = static_cast<std::uint8_t>(128 + 100 * std::sin(20.0 * x / width) *
                                                           std::cos(20.0 * y / height));
        }
    }
    return picture;
}

QImage imageOf(const Picture& picture) {
    QImage image(picture.width(), picture.height(), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const std::uint8_t* from = picture.pixel(x, y);
            image.setPixel(x, y, qRgb(from[0], from[1], from[2]));
        }
    return image;
}

QImage cropped(const Picture& photo, const PhotoFrame& frame) {
    return imageOf(*PreviewRenderer::cropPreview(photo, frame.rect, frame.rotation, source,
                                                 slot.height(), std::vector{0.0, 0.0, 0.0}));
}

QImage drawn(const CellPicture& picture, const QBrush& missing = Qt::magenta) {
    QImage image(slot.size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    drawPicture(painter, slot, picture, missing, Qt::black);
    return image;
}

/// Share of pixels that differ visibly.
double difference(const QImage& one, const QImage& other) {
    int different = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            const int apart = std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                              std::abs(qBlue(a) - qBlue(b));
            different += apart > 40 ? 1 : 0;
        }
    return static_cast<double>(different) / (one.width() * one.height());
}

TEST(CellPicture, standInsLieWhereTheNewThumbnailWillShowThem) {
    const Picture photo = waves(400, 500);
    const PhotoFrame before{{200, 200, 400, 500}, 5, source};
    for (const PhotoFrame& wanted : {
             PhotoFrame{{240, 260, 320, 400}, 5, source},    // tighter
             PhotoFrame{{150, 100, 480, 600}, -7, source},   // looser and turned
             PhotoFrame{{-100, 300, 640, 800}, 12, source},  // past two edges
         }) {
        SCOPED_TRACE(wanted.rotation);
        CellPicture picture{
            .frame = wanted,
            .before = {QPixmap::fromImage(cropped(photo, before)), before},
            .whole = {QPixmap::fromImage(imageOf(waves(288, 360))), PhotoFrame::whole(source)}};
        EXPECT_LT(difference(drawn(picture), cropped(photo, wanted)), 0.02);
    }
}

TEST(CellPicture, hatchesMissingCanvasAndNothingOfThePhoto) {
    const Picture photo = waves(400, 500);
    const PhotoFrame wanted{{0, 250, 800, 1000}, 0, source};
    CellPicture picture{
        .frame = wanted, .lacksCanvas = true, .exact = QPixmap::fromImage(cropped(photo, wanted))};
    const QImage image = drawn(picture);
    EXPECT_EQ(image.pixelColor(72, 133), cropped(photo, wanted).pixelColor(72, 133));
    EXPECT_EQ(image.pixelColor(72, 136), QColor(Qt::magenta));
    picture.lacksCanvas = false;
    EXPECT_NE(drawn(picture).pixelColor(72, 136), QColor(Qt::magenta));
}

TEST(PhotoFrame, coversWhatItShowsOfThePhoto) {
    const PhotoFrame frame{{200, 200, 400, 500}, 0, source};
    EXPECT_TRUE(frame.covers(frame));
    EXPECT_TRUE(frame.covers({{240, 260, 320, 400}, 0, source}));
    EXPECT_FALSE(frame.covers({{190, 200, 400, 500}, 0, source}));
    EXPECT_FALSE(frame.covers({{200, 200, 400, 500}, 3, source}));
    const PhotoFrame whole = PhotoFrame::whole(source);
    EXPECT_TRUE(whole.covers({{-300, -300, 2000, 2000}, 0, source})) << "there is no more to show";
    EXPECT_TRUE(whole.covers({{100, 100, 640, 800}, 30, source}));
}

TEST(CellPicture, fitsOtherShapesIntoTheMiddleOfTheSlot) {
    EXPECT_EQ(fitted({400, 500}, slot, 1), QRectF(slot));
    EXPECT_EQ(fitted({300, 200}, slot, 1), QRectF(0, 42, 144, 96));
    EXPECT_EQ(fitted({100, 500}, slot, 1), QRectF(54, 0, 36, 180));
    EXPECT_EQ(fitted({301, 200}, slot, 2), QRectF(0, 42, 144, 95.5))
        << "whole pixels of the device";
}

}  // namespace
}  // namespace morva
