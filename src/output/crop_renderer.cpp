// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/crop_renderer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "imaging/colour.h"
#include "output/backdrop_replacer.h"
#include "output/crop_view.h"

namespace morva {

std::string_view key(ExportFallback fallback) {
    switch (fallback) {
        case ExportFallback::matteFailed:
            return "matteFailed";
        case ExportFallback::nobodyToCutOut:
            return "nobodyToCutOut";
        case ExportFallback::plateUnreadable:
            return "plateUnreadable";
        case ExportFallback::profileNotEmbedded:
            return "profileNotEmbedded";
    }
    return {};
}

std::string_view title(ExportFallback fallback) {
    switch (fallback) {
        case ExportFallback::matteFailed:
            return "Backdrop not replaced: the child could not be cut out";
        case ExportFallback::nobodyToCutOut:
            return "Backdrop not replaced: nobody was found";
        case ExportFallback::plateUnreadable:
            return "Backdrop image unreadable: a generated one was used";
        case ExportFallback::profileNotEmbedded:
            return "Colour profile not embedded";
    }
    return {};
}

namespace CropRenderer {

namespace {

/// The canvas of `BackdropMode::keep`.
constexpr std::array<std::uint8_t, 3> midGrey{128, 128, 128};

/// Pixels of the reduced photo per pixel of a preview: enough for the strands of the matte.
constexpr double previewDetail = 1.5;

CropView viewOf(const DecodedRegion& photo, const CropGeometry& geometry) {
    return {geometry,
            {static_cast<double>(photo.sourceWidth), static_cast<double>(photo.sourceHeight)}};
}

/// The photo itself, on grey or with its edges repeated.
Result<Picture> filled(const DecodedRegion& photo, const Wanted& wanted) {
    const CropView view = viewOf(photo, wanted.geometry);
    std::optional<std::array<std::uint8_t, 3>> canvas;
    if (wanted.settings.backdrop == BackdropMode::keep) canvas = midGrey;
    return view.of(photo.pixels, {photo.origin, photo.scale},
                   {0, 0, view.photo.width, view.photo.height}, canvas);
}

/// Nothing, and why in `fallbacks`, where the photo's own backdrop has to stay.
std::optional<Picture> replaced(DecodedRegion& photo, const Wanted& wanted,
                                std::vector<ExportFallback>& fallbacks) {
    if (!wanted.cutter) {
        fallbacks.push_back(ExportFallback::matteFailed);
        return std::nullopt;
    }
    auto done = BackdropReplacer::replace(
        photo, viewOf(photo, wanted.geometry), wanted.rect,
        BackdropReplacer::Options::from(wanted.settings, wanted.headAnchor, wanted.plates),
        *wanted.cutter, wanted.stop);
    if (!done || !*done) {
        fallbacks.push_back(done ? ExportFallback::nobodyToCutOut : ExportFallback::matteFailed);
        return std::nullopt;
    }
    if ((*done)->plateUnreadable) fallbacks.push_back(ExportFallback::plateUnreadable);
    return std::move((*done)->picture);
}

}  // namespace

Result<RenderedCrop> render(DecodedRegion photo, const Wanted& wanted) {
    RenderedCrop crop;
    if (wanted.settings.backdrop == BackdropMode::replace) {
        if (auto picture = replaced(photo, wanted, crop.fallbacks)) {
            crop.picture = std::move(*picture);
            return crop;
        }
    }
    if (wanted.stop.stop_requested()) return failure("The rendering was stopped.");
    auto picture = filled(photo, wanted);
    if (!picture) return tl::unexpected(picture.error());
    crop.picture = std::move(*picture);
    return crop;
}

Result<RenderedCrop> preview(const std::filesystem::path& file, Size photoSize,
                             double rotationDegrees, Wanted wanted, int outputHeight) {
    const Rect& rect = wanted.rect;
    if (rect.isEmpty()) return failure("The crop rectangle is empty.");
    const double scale = outputHeight / rect.height;
    const auto geometry = CropGeometry::of(
        rect, rotationDegrees, static_cast<int>(std::lround(rect.width * scale)), outputHeight);
    if (!geometry) return failure("The crop rectangle is empty.");
    wanted.geometry = *geometry;
    const double longer = std::max(photoSize.width, photoSize.height);
    const auto side = static_cast<int>(std::ceil(longer * std::min(1.0, scale * previewDetail)));
    const auto decode = PhotoDecode::open(file, side);
    if (!decode) return tl::unexpected(decode.error());
    DecodedRegion photo{.pixels = decode->whole(side),
                        .origin = {},
                        .scale = 1,
                        .sourceWidth = decode->sourceWidth(),
                        .sourceHeight = decode->sourceHeight(),
                        .iccProfile = srgbProfile()};
    photo.scale = static_cast<double>(photo.pixels.width()) / photo.sourceWidth;
    return render(std::move(photo), wanted);
}

}  // namespace CropRenderer

}  // namespace morva
