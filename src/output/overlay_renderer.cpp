// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/overlay_renderer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "base/files.h"
#include "base/leveling.h"
#include "crop/crop_solver.h"
#include "imaging/encode.h"

namespace morva::OverlayRenderer {

namespace {

struct Ink {
    std::array<double, 3> color;  // red, green, blue, 0 to 255
    double opacity;
};

// Fixed, so that overlays of different presets compare; never opaque, so that nothing is hidden.
constexpr Ink cropInk{{255, 196, 0}, 0.95};
constexpr Ink targetInk{{255, 196, 0}, 0.5};
constexpr Ink eyeInk{{0, 220, 255}, 0.9};
constexpr Ink chinInk{{255, 80, 160}, 0.9};
constexpr Ink headInk{{120, 255, 90}, 0.8};

/// From this longer side on lines are three pixels wide, below two.
constexpr int largeImage = 1600;
/// Radius of a dot over the image's longer side, and the smallest in pixels.
constexpr double dotShare = 1.0 / 240;
constexpr int smallestDot = 4;
/// Half the length of the chin mark and of the head line in face units.
constexpr double markLength = 0.25;

/// Resolution in the header of a picture that nobody prints.
constexpr double screenDpi = 72;

/// OpenCV takes points in whole units of 2^-shift pixels.
constexpr int subpixelBits = 4;

class Canvas {
public:
    explicit Canvas(const AnalysisImage& loaded)
        : image_(loaded.image.copy()),
          toImage_{1 / loaded.scaleToSource().x, 1 / loaded.scaleToSource().y},
          ink_(image_.height(), image_.width(), CV_8UC1),
          longerSide_(std::max(image_.width(), image_.height())) {}

    /// Points in source pixels.
    void line(Point from, Point to, const Ink& ink) {
        ink_.setTo(0);
        cv::line(ink_, placed(from), placed(to), 255, lineWidth(), cv::LINE_AA, subpixelBits);
        apply(ink);
    }
    void outline(const std::array<Point, 4>& corners, const Ink& ink) {
        ink_.setTo(0);
        for (std::size_t i = 0; i < corners.size(); ++i)
            cv::line(ink_, placed(corners[i]), placed(corners[(i + 1) % corners.size()]), 255,
                     lineWidth(), cv::LINE_AA, subpixelBits);
        apply(ink);
    }
    void dot(Point center, const Ink& ink) {
        ink_.setTo(0);
        const int radius = std::max(smallestDot, static_cast<int>(longerSide_ * dotShare));
        cv::circle(ink_, placed(center), radius << subpixelBits, 255, cv::FILLED, cv::LINE_AA,
                   subpixelBits);
        apply(ink);
    }
    Picture take() { return std::move(image_); }

private:
    int lineWidth() const { return longerSide_ >= largeImage ? 3 : 2; }

    cv::Point placed(Point source) const {
        // OpenCV counts from the centre of the first pixel.
        const auto units = [](double value) {
            const double bounded = std::clamp((value - 0.5) * (1 << subpixelBits), -1e8, 1e8);
            return static_cast<int>(std::lround(bounded));
        };
        const Point point = source.scaled(toImage_.x, toImage_.y);
        return {units(point.x), units(point.y)};
    }

    void apply(const Ink& ink) {
        for (int y = 0; y < image_.height(); ++y) {
            const std::uint8_t* cover = ink_.ptr(y);
            for (int x = 0; x < image_.width(); ++x) {
                if (cover[x] == 0) continue;
                const double share = ink.opacity * cover[x] / 255;
                std::uint8_t* pixel = image_.pixel(x, y);
                for (std::size_t c = 0; c < 3; ++c)
                    pixel[c] = static_cast<std::uint8_t>(
                        std::lround(pixel[c] + (ink.color[c] - pixel[c]) * share));
            }
        }
    }

    Picture image_;
    Point toImage_;
    cv::Mat ink_;
    int longerSide_;
};

void drawFace(Canvas& canvas, const FaceGeometry& face) {
    const Point tick{face.faceUnit() * markLength, 0};
    canvas.line(face.leftEye, face.rightEye, eyeInk);
    canvas.dot(face.eyeMidpoint(), eyeInk);
    canvas.line(face.chin - tick, face.chin + tick, chinInk);
}

/// The crop, and in it the line that the preset puts the eyes or the head top on.
void drawCrop(Canvas& canvas, const Rect& rect, double rotationDegrees, Point center,
              const CropPreset& preset) {
    const auto unlevelled = [&](Point p) { return Leveling::unlevel(p, center, rotationDegrees); };
    auto corners = rect.corners();
    std::ranges::transform(corners, corners.begin(), unlevelled);
    const bool byEyes = preset.verticalMode == VerticalMode::eyeLine;
    const double share = isBody(preset.framing) ? preset.bodyTopMargin
                         : byEyes               ? preset.eyeLinePosition
                                                : preset.topMargin;
    const double y = rect.y + rect.height * share;
    canvas.line(unlevelled({rect.x, y}), unlevelled({rect.maxX(), y}), targetInk);
    canvas.outline(corners, cropInk);
}

}  // namespace

Picture render(const AnalysisImage& loaded, const ImageAnalysis& analysis,
               const CropSolution& solution, const ManualAdjustment& adjustment,
               const CropPreset& preset) {
    Canvas canvas(loaded);
    if (const auto& head = analysis.headContent)
        canvas.line({head->leftX, head->topY}, {head->rightX, head->topY}, headInk);
    for (const FaceGeometry& face : analysis.faces) drawFace(canvas, face);
    const Rect rect = CropSolver::finalRect(solution, adjustment, loaded.sourceSize);
    const Point center{loaded.sourceSize.width / 2, loaded.sourceSize.height / 2};
    if (!rect.isEmpty())
        drawCrop(canvas, rect, CropSolver::finalRotation(solution, adjustment), center, preset);
    return canvas.take();
}

Result<void> writePNG(const Picture& image, const std::filesystem::path& file) {
    const auto bytes = encodePng(image);
    if (!bytes) return tl::unexpected(bytes.error());
    return replaceFile(file, *bytes);
}

Result<void> writeJPEG(const Picture& image, const std::filesystem::path& file, double quality) {
    const auto bytes = encodeJpeg(image, quality, screenDpi);
    if (!bytes) return tl::unexpected(bytes.error());
    return replaceFile(file, *bytes);
}

}  // namespace morva::OverlayRenderer
