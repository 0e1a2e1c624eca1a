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
constexpr double smallHint = 36;         // at most so high both together, pixels of the first look
constexpr double hintSurrounding = 1.0;  // looked at around the traces, in face units
/// A second look must be finer than the first by this factor to show anything new.
constexpr double worthwhileGain = 1.3;

// A card can also be so small that the first look sees nothing of it.
constexpr double smallestCard = 40;    // to be read, source pixels high
constexpr double flattestCard = 0.19;  // that a child holds, in face units
/// Pixels at which the detector tells the two lines of a card so high apart: of 72 cards printed
/// and written by hand it does 72 at 30, 67 at 26, 45 at 22 and 13 at 19; thin strokes on a tilted
/// card want 31.
constexpr double legibleCard = 31;
/// More than such a card is high however it is turned; half its length in a tile is enough.
constexpr double tileOverlap = 2.5 * smallestCard;

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

/// Source pixels per pixel of the photo at its finest.
double finestPixel(const Photo& photo) {
    const Size source = photo.image.sourceSize;
    return photo.closeUps ? std::max(source.width, source.height) / photo.closeUps->finestSide
                          : photo.image.scaleToSource().x;
}

/// Source pixels per pixel that the detector works on when it is shown `part`.
double pixelSize(const Photo& photo, const Rect& part, int pixels) {
    return std::max(finestPixel(photo), std::max(part.width, part.height) / pixels);
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

struct Span {
    double from = 0;
    double length = 0;
};

/// The fewest parts of equal length, at most `longest`, that cover `whole` and overlap.
std::vector<Span> overlappingParts(Span whole, double longest) {
    const double count =
        std::max(1.0, std::ceil((whole.length - tileOverlap) / (longest - tileOverlap)));
    const double length = (whole.length + (count - 1) * tileOverlap) / count;
    std::vector<Span> parts;
    for (double i = 0; i < count; ++i)
        parts.push_back({whole.from + i * (length - tileOverlap), length});
    return parts;
}

/// The window in tiles that show the smallest card legibly; none where the whole does, where the
/// photo has no finer pixels, or for a child so large that nothing so small is held.
std::vector<Rect> tilesOf(const Photo& photo, const Rect& window, int pixels, double faceUnit) {
    const double coarsest = std::max(smallestCard / legibleCard, finestPixel(photo));
    if (flattestCard * faceUnit > smallestCard || pixelSize(photo, window, pixels) <= coarsest)
        return {};
    const double longest = coarsest * pixels;
    std::vector<Rect> tiles;
    for (const Span& rows : overlappingParts({window.y, window.height}, longest))
        for (const Span& columns : overlappingParts({window.x, window.width}, longest))
            tiles.push_back({columns.from, rows.from, columns.length, rows.length});
    return tiles;
}

/// Where to look again after a first look that saw too few lines: around what it saw of small
/// writing, then everywhere that writing can be too small for it.
std::vector<Rect> closerParts(const Photo& photo, const Rect& window,
                              const std::vector<TextLine>& first,
                              std::span<const FaceGeometry> faces, int pixels) {
    const double unit = faces.front().faceUnit();
    const double pixel = pixelSize(photo, window, pixels);
    std::vector<Rect> parts = tilesOf(photo, window, pixels, unit);
    const Rect traces = tracesOfWriting(first, faces, pixel);
    if (traces.isEmpty()) return parts;
    const double around = hintSurrounding * unit;
    const Rect closer = Rect{traces.x - around, traces.y - around, traces.width + 2 * around,
                             traces.height + 2 * around}
                            .intersection(window);
    if (pixel >= worthwhileGain * pixelSize(photo, closer, pixels))
        parts.insert(parts.begin(), closer);
    return parts;
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

    for (const Rect& part : closerParts(photo, window, first, faces, pixels)) {
        std::vector<TextLine> closer = counting(look(detector, cut(photo, part, pixels)), faces);
        if (areSeveral(closer)) return closer;
    }
    return lines;
}

bool detect(const TextDetector& detector, const AnalysisImage& image,
            const std::optional<CloseUps>& closeUps, std::span<const FaceGeometry> faces) {
    return areSeveral(qualifyingLines(detector, image, closeUps, faces));
}

}  // namespace morva::SignDetector
