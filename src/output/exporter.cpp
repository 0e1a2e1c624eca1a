// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/exporter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <system_error>

#include "analysis/image_loader.h"
#include "base/files.h"
#include "imaging/carry_metadata.h"
#include "imaging/decode.h"
#include "imaging/encode.h"
#include "imaging/resample.h"
#include "output/crop_geometry.h"
#include "output/jpeg_profile_embedder.h"

namespace morva::Exporter {

namespace {

namespace fs = std::filesystem;

using Kind = ExportError::Kind;

/// The canvas of `BackdropMode::keep`.
constexpr std::array<std::uint8_t, 3> midGrey{128, 128, 128};

/// A crop must be larger than this on both sides, in source pixels.
constexpr double smallestCrop = 1;

/// Decoded pixels per output pixel, at least, where a format can decode at reduced scale. Its own
/// reduction works block by block and leaves traces of the grid (2 to 4 levels on hair when the
/// last step is small); halved once more by the Lanczos filter they are gone.
constexpr double decodedPerOutput = 2;

bool isCrop(const Request& request) {
    const Rect& rect = request.rect;
    return rect.width > smallestCrop && rect.height > smallestCrop &&
           std::isfinite(rect.x + rect.y + rect.width + rect.height + request.rotationDegrees);
}

tl::unexpected<ExportError> failed(Kind kind, const fs::path& file = {}) {
    return tl::unexpected(ExportError{.kind = kind, .file = file});
}

/// Also true through links: what is written to the destination would change the source.
bool isSameFile(const fs::path& source, const fs::path& destination) {
    std::error_code ignored;
    return standardized(source) == standardized(destination) ||
           fs::equivalent(source, destination, ignored);
}

Result<DecodedRegion> decoded(const Request& request, const std::optional<CropGeometry>& crop) {
    const auto area = [&](Size photo) { return crop ? crop->sourceArea(photo) : Rect{}; };
    return decodeRegion(request.sourceURL, area,
                        crop ? std::min(1.0, crop->scale * decodedPerOutput) : 0);
}

/// A studio backdrop needs a cut-out; where there is none the photo's edges are repeated.
std::optional<std::array<std::uint8_t, 3>> canvasColor(BackdropMode backdrop) {
    if (backdrop == BackdropMode::keep) return midGrey;
    return std::nullopt;
}

Result<Picture> rendered(const DecodedRegion& photo, const CropGeometry& crop,
                         BackdropMode backdrop) {
    const auto inPixels = [&](const Rect& rect) {
        return Rect{(rect.x - photo.origin.x) * photo.scale,
                    (rect.y - photo.origin.y) * photo.scale, rect.width * photo.scale,
                    rect.height * photo.scale};
    };
    const Rect whole = inPixels(
        {0, 0, static_cast<double>(photo.sourceWidth), static_cast<double>(photo.sourceHeight)});
    return resampled(photo.pixels, inPixels(crop.cut), {whole.center(), crop.rotationDegrees},
                     {canvasColor(backdrop), whole}, crop.width, crop.height);
}

/// The whole file in memory: pixels, metadata, profile.
Result<std::string> encoded(const Picture& picture, const Request& request,
                            const std::string& iccProfile) {
    const ExportSettings& settings = request.settings;
    auto pixels = encodeJpeg(picture, settings.jpegQuality, settings.dpi);
    if (!pixels) return pixels;
    CropMetadata metadata;
    if (settings.preserveMetadata) metadata.source = request.sourceURL;
    metadata.pixelWidth = picture.width();
    metadata.pixelHeight = picture.height();
    metadata.dpi = settings.dpi;
    metadata.rating = settings.starRating;
    metadata.iccProfile = iccProfile;
    auto described = withMetadata(*pixels, metadata);
    if (!described) return described;
    return JPEGProfileEmbedder::embedded(iccProfile, std::move(*described));
}

tl::expected<void, ExportError> prepareFolder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        return tl::unexpected(ExportError{.kind = Kind::fileSystem,
                                          .file = folder,
                                          .reason = "Could not create the folder " +
                                                    folder.filename().string() + ": " +
                                                    error.message() + "."});
    }
    if (const auto marked = markExportFolder(folder); !marked) {
        return tl::unexpected(ExportError{
            .kind = Kind::fileSystem, .file = folder, .reason = marked.error().message});
    }
    return {};
}

}  // namespace

tl::expected<void, ExportError> exportPhoto(const Request& request) {
    if (!isCrop(request)) return failed(Kind::invalidCrop);
    if (isSameFile(request.sourceURL, request.destinationURL))
        return failed(Kind::destinationIsSource);

    const auto crop = CropGeometry::of(request.rect, request.rotationDegrees,
                                       request.settings.pixelWidth, request.settings.pixelHeight);
    const auto photo = decoded(request, crop);
    if (!photo) return failed(Kind::cannotLoad, request.sourceURL);
    if (!crop) return failed(Kind::cannotRender, request.sourceURL);
    const auto picture = rendered(*photo, *crop, request.settings.backdrop);
    if (!picture) return failed(Kind::cannotRender, request.sourceURL);
    const auto bytes = encoded(*picture, request, photo->iccProfile);
    if (!bytes) return failed(Kind::cannotRender, request.sourceURL);

    const fs::path destination = standardized(request.destinationURL);
    if (auto prepared = prepareFolder(destination.parent_path()); !prepared) return prepared;
    if (!writeFileAtomically(destination, *bytes))
        return failed(Kind::cannotWrite, request.destinationURL);
    return {};
}

Result<void> markExportFolder(const fs::path& folder) {
    const fs::path mark = folder / ImageLoader::exportMarkerName;
    std::error_code ignored;
    if (fs::exists(mark, ignored)) return {};
    return writeFileAtomically(mark, "");
}

}  // namespace morva::Exporter
