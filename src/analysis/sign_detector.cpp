// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/sign_detector.h"

#include <algorithm>
#include <cmath>

#include "vision/picture_region.h"

namespace morva::SignDetector {

namespace {

// Where a sign is held, in face units.
constexpr double nearestBelowChin = 0.3;
constexpr double furthestBelowChin = 8.0;
constexpr double reachAside = 3.0;
/// Looked at beyond that, so that a line on the border is seen whole and its centre is true.
constexpr double margin = 0.3;

constexpr double fewestCharacters = 3;
constexpr double surelyText = 0.6;

// A first look at the whole window can merge the lines of a small card, or see a trace of them.
constexpr double smallHint = 24;         // at most so high, pixels of the first look
constexpr double hintSurrounding = 1.0;  // looked at around the traces, in face units
/// A second look must be finer than the first by this factor to show anything new.
constexpr double worthwhileGain = 1.3;

/// A part of the photo to look at.
struct View {
    Picture picture;
    Point origin;  // in source pixels
    Point scale;   // source pixels per picture pixel

    Point toSource(Point point) const { return origin + point.scaled(scale.x, scale.y); }
};

struct Photo {
    const AnalysisImage& image;
    const std::optional<CloseUps>& closeUps;
};

Rect signWindow(const FaceGeometry& face) {
    const double unit = face.faceUnit();
    const double half = (reachAside + margin) * unit;
    return {face.eyeMidpoint().x - half, face.chin.y, 2 * half,
            (furthestBelowChin + margin) * unit};
}

bool isInWindow(Point place, const FaceGeometry& face) {
    const double unit = face.faceUnit();
    return place.y > face.chin.y + nearestBelowChin * unit &&
           place.y < face.chin.y + furthestBelowChin * unit &&
           std::abs(place.x - face.eyeMidpoint().x) < reachAside * unit;
}

/// How far aside of a face a place lies, in that face's own size.
double aside(Point place, const FaceGeometry& face) {
    return std::abs(place.x - face.eyeMidpoint().x) / face.faceUnit();
}

bool belongsToFirst(Point place, std::span<const FaceGeometry> faces) {
    return isInWindow(place, faces.front()) &&
           std::ranges::none_of(faces.subspan(1), [&](const FaceGeometry& other) {
               return isInWindow(place, other) && aside(place, other) < aside(place, faces.front());
           });
}

View fromImage(const AnalysisImage& image, const Rect& part, int pixelsNeeded) {
    const Point toSource = image.scaleToSource();
    Patch patch = cutPatch(image.image,
                           {part.x / toSource.x, part.y / toSource.y, part.width / toSource.x,
                            part.height / toSource.y},
                           pixelsNeeded);
    return {std::move(patch.picture), patch.origin.scaled(toSource.x, toSource.y),
            toSource.scaled(patch.scale, patch.scale)};
}

View fromCloseUps(const CloseUps& closeUps, Size source, const Rect& part, int pixelsNeeded) {
    const double longer = std::max(source.width, source.height);
    const double wanted = longer * pixelsNeeded / std::max(part.width, part.height);
    const int side = static_cast<int>(std::min<double>(closeUps.finestSide, wanted));
    const Size size = closeUps.size(side);
    const double kx = size.width / source.width;
    const double ky = size.height / source.height;
    const int left = static_cast<int>(std::floor(part.x * kx));
    const int top = static_cast<int>(std::floor(part.y * ky));
    const int right = static_cast<int>(std::min(size.width, std::ceil(part.maxX() * kx)));
    const int bottom = static_cast<int>(std::min(size.height, std::ceil(part.maxY() * ky)));
    return {closeUps.cut(side, left, top, right - left, bottom - top),
            {left / kx, top / ky},
            {1 / kx, 1 / ky}};
}

/// `part` (source pixels, inside the photo) with up to `pixelsNeeded` pixels on its longer side,
/// from the image at hand where that is fine enough.
View cut(const Photo& photo, const Rect& part, int pixelsNeeded) {
    const Point toSource = photo.image.scaleToSource();
    const double inImage = std::max(part.width / toSource.x, part.height / toSource.y);
    return photo.closeUps && inImage < pixelsNeeded
               ? fromCloseUps(*photo.closeUps, photo.image.sourceSize, part, pixelsNeeded)
               : fromImage(photo.image, part, pixelsNeeded);
}

/// Source pixels per pixel that the detector works on when it is shown `part`.
double pixelSize(const Photo& photo, const Rect& part, int pixels) {
    const Size source = photo.image.sourceSize;
    const double finest = photo.closeUps
                              ? std::max(source.width, source.height) / photo.closeUps->finestSide
                              : photo.image.scaleToSource().x;
    return std::max(finest, std::max(part.width, part.height) / pixels);
}

/// What the detector sees in a view, in source pixels; nothing when it fails.
std::vector<TextLine> look(const TextDetector& detector, const View& view) {
    auto lines = detector.lines(view.picture);
    if (!lines) return {};
    for (TextLine& line : *lines)
        for (Point& corner : line.corners) corner = view.toSource(corner);
    return *lines;
}

bool counts(const TextLine& line, std::span<const FaceGeometry> faces) {
    return line.confidence >= surelyText && line.estimatedCharacters() >= fewestCharacters &&
           belongsToFirst(line.center(), faces);
}

/// Words with a wide gap between them come apart: whether two places lie side by side on the axis
/// of the longer one.
bool areOneLine(const TextLine& a, const TextLine& b) {
    const TextLine& longer = a.length() >= b.length() ? a : b;
    Point side = longer.corners[1] - longer.corners[0];
    const Point nextSide = longer.corners[2] - longer.corners[1];
    if (std::hypot(nextSide.x, nextSide.y) > std::hypot(side.x, side.y)) side = nextSide;
    const Point apart = b.center() - a.center();
    const double across = std::abs(apart.x * side.y - apart.y * side.x) / longer.length();
    return across < std::min(a.height(), b.height()) / 2;
}

bool areSeveral(const std::vector<TextLine>& lines) {
    return std::ranges::any_of(
        lines, [&](const TextLine& line) { return !areOneLine(line, lines.front()); });
}

std::vector<TextLine> counting(std::vector<TextLine> lines, std::span<const FaceGeometry> faces) {
    std::erase_if(lines, [&](const TextLine& line) { return !counts(line, faces); });
    return lines;
}

/// The smallest rectangle around everything that resembles small writing of this child; empty when
/// there is none. `pixel` is the size of the first look's pixels in source pixels.
Rect tracesOfWriting(const std::vector<TextLine>& lines, std::span<const FaceGeometry> faces,
                     double pixel) {
    Rect traces;
    for (const TextLine& line : lines) {
        if (line.height() > smallHint * pixel || !belongsToFirst(line.center(), faces)) continue;
        const Rect bounds = Rect::bounding(line.corners);
        const double left = traces.isEmpty() ? bounds.x : std::min(traces.x, bounds.x);
        const double top = traces.isEmpty() ? bounds.y : std::min(traces.y, bounds.y);
        const double right =
            traces.isEmpty() ? bounds.maxX() : std::max(traces.maxX(), bounds.maxX());
        const double bottom =
            traces.isEmpty() ? bounds.maxY() : std::max(traces.maxY(), bounds.maxY());
        traces = {left, top, right - left, bottom - top};
    }
    return traces;
}

}  // namespace

std::vector<TextLine> qualifyingLines(const TextDetector& detector, const AnalysisImage& image,
                                      const std::optional<CloseUps>& closeUps,
                                      std::span<const FaceGeometry> faces) {
    if (faces.empty() || !(faces.front().faceUnit() > 0)) return {};
    const Photo photo{image, closeUps};
    const int pixels = detector.sharpestSide();
    const Rect whole{0, 0, image.sourceSize.width, image.sourceSize.height};
    const Rect window = signWindow(faces.front()).intersection(whole);
    if (window.width < 1 || window.height < 1) return {};
    const std::vector<TextLine> first = look(detector, cut(photo, window, pixels));
    std::vector<TextLine> lines = counting(first, faces);
    if (areSeveral(lines)) return lines;

    const double pixel = pixelSize(photo, window, pixels);
    const Rect traces = tracesOfWriting(first, faces, pixel);
    if (traces.isEmpty()) return lines;
    const double around = hintSurrounding * faces.front().faceUnit();
    const Rect closer = Rect{traces.x - around, traces.y - around, traces.width + 2 * around,
                             traces.height + 2 * around}
                            .intersection(window);
    if (pixel < worthwhileGain * pixelSize(photo, closer, pixels)) return lines;
    std::vector<TextLine> second = counting(look(detector, cut(photo, closer, pixels)), faces);
    return areSeveral(second) ? second : lines;
}

bool detect(const TextDetector& detector, const AnalysisImage& image,
            const std::optional<CloseUps>& closeUps, std::span<const FaceGeometry> faces) {
    return areSeveral(qualifyingLines(detector, image, closeUps, faces));
}

}  // namespace morva::SignDetector
