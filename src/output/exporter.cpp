// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/exporter.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <system_error>

#include "analysis/image_loader.h"
#include "base/files.h"
#include "imaging/carry_metadata.h"
#include "imaging/decode.h"
#include "imaging/encode.h"
#include "output/crop_geometry.h"
#include "output/jpeg_profile_embedder.h"

namespace morva::Exporter {

namespace {

namespace fs = std::filesystem;

using Kind = ExportError::Kind;

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

/// The whole file in memory: pixels, metadata, profile.
Result<std::string> encoded(const Picture& picture, const Request& request,
                            const std::string& iccProfile, std::vector<ExportFallback>& fallbacks) {
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
    const std::size_t bare = described->size();
    std::string file = JPEGProfileEmbedder::embedded(iccProfile, std::move(*described));
    if (file.size() == bare) fallbacks.push_back(ExportFallback::profileNotEmbedded);
    return file;
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

tl::expected<Finished, ExportError> finish(const Request& request, const ChildCutter* cutter,
                                           const std::stop_token& stop) {
    if (!isCrop(request)) return failed(Kind::invalidCrop);
    if (isSameFile(request.sourceURL, request.destinationURL))
        return failed(Kind::destinationIsSource);
    if (stop.stop_requested()) return failed(Kind::cancelled);

    const auto crop = CropGeometry::of(request.rect, request.rotationDegrees,
                                       request.settings.pixelWidth, request.settings.pixelHeight);
    auto photo = decoded(request, crop);
    if (stop.stop_requested()) return failed(Kind::cancelled);
    if (!photo) return failed(Kind::cannotLoad, request.sourceURL);
    if (!crop) return failed(Kind::cannotRender, request.sourceURL);
    const std::string iccProfile = photo->iccProfile;
    auto rendered = CropRenderer::render(
        std::move(*photo),
        {request.rect, *crop, request.settings, request.headAnchor, cutter, stop, request.plates});
    // A stopped rendering has failed, and a failed matte may have let it go on without.
    if (stop.stop_requested()) return failed(Kind::cancelled);
    if (!rendered) return failed(Kind::cannotRender, request.sourceURL);
    Finished done{.jpeg = {}, .fallbacks = std::move(rendered->fallbacks)};
    auto bytes = encoded(rendered->picture, request, iccProfile, done.fallbacks);
    if (!bytes) return failed(Kind::cannotRender, request.sourceURL);
    done.jpeg = std::move(*bytes);
    return done;
}

tl::expected<void, ExportError> write(const Request& request, const std::string& jpeg) {
    const fs::path destination = standardized(request.destinationURL);
    if (auto prepared = prepareFolder(destination.parent_path()); !prepared) return prepared;
    if (!replaceFile(destination, jpeg)) return failed(Kind::cannotWrite, request.destinationURL);
    return {};
}

tl::expected<Exported, ExportError> exportPhoto(const Request& request, const ChildCutter* cutter) {
    auto done = finish(request, cutter, std::stop_token());
    if (!done) return tl::unexpected(done.error());
    if (const auto written = write(request, done->jpeg); !written)
        return tl::unexpected(written.error());
    return Exported{std::move(done->fallbacks)};
}

Result<void> markExportFolder(const fs::path& folder) {
    const fs::path mark = folder / ImageLoader::exportMarkerName;
    std::error_code ignored;
    if (fs::exists(mark, ignored)) return {};
    return replaceFile(mark, "");
}

}  // namespace morva::Exporter
