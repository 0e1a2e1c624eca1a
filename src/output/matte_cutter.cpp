// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/matte_cutter.h"

#include <span>
#include <utility>

#include "analysis/analysis_image.h"
#include "analysis/body_analyzer.h"
#include "analysis/head_protector.h"
#include "analysis/main_person.h"
#include "matting/matting.h"

namespace morva {

namespace {

/// Longer side of the whole photo that says who is where, in pixels: the detectors look at less.
constexpr int overviewSide = 1024;

constexpr const char* stopped = "The cutting out was stopped.";

/// The child's share of the photo, whatever part of it a crop shows.
Result<MainPerson> mainPersonOf(const std::filesystem::path& file,
                                std::span<const FaceGeometry> faces, const VisionServices& vision,
                                const std::stop_token& stop) {
    const auto decode = PhotoDecode::open(file, overviewSide);
    if (!decode) return tl::unexpected(decode.error());
    if (stop.stop_requested()) return failure(stopped);
    const AnalysisImage image{
        decode->whole(overviewSide),
        {static_cast<double>(decode->sourceWidth()), static_cast<double>(decode->sourceHeight())}};
    const auto persons = HeadProtector::personMask(*vision.persons, image, faces.front());
    if (!persons) return tl::unexpected(persons.error());
    std::vector<BodyObservation> bodies;
    // One who is alone shares the mask with nobody.
    if (faces.size() > 1)
        bodies = BodyAnalyzer::observe(*vision.bodies, image, faces)
                     .value_or(std::vector<BodyObservation>());
    return mainPerson(*persons, image, faces, bodies);
}

}  // namespace

std::optional<Point> headAnchorOf(const ImageAnalysis& analysis) {
    const FaceGeometry* face = analysis.primary();
    return face ? std::optional(face->eyeMidpoint()) : std::nullopt;
}

MatteCutter::MatteCutter(std::filesystem::path photo, std::vector<FaceGeometry> faces,
                         VisionServices vision, std::stop_token stop)
    : photo_(std::move(photo)),
      faces_(std::move(faces)),
      vision_(std::move(vision)),
      stop_(std::move(stop)) {}

Result<std::optional<CutOut>> MatteCutter::cutOut(DecodedRegion& photo) const {
    if (faces_.empty()) return std::nullopt;
    const auto person = mainPersonOf(photo_, faces_, vision_, stop_);
    if (!person) return tl::unexpected(person.error());
    if (stop_.stop_requested()) return failure(stopped);
    const auto inPixels = [&](Point place) {
        return (place - photo.origin).scaled(photo.scale, photo.scale);
    };
    const Point corner = inPixels({});
    const FaceGeometry& face = faces_.front();
    const Matting::Child child{
        .mask = person->mask,
        .others = &person->others,
        .extent = {corner.x, corner.y, photo.sourceWidth * photo.scale,
                   photo.sourceHeight * photo.scale},
        .head = Matting::Head{inPixels(face.eyeMidpoint()), face.faceUnit() * photo.scale}};
    auto matte = Matting::matte(photo.pixels, child, *vision_.persons);
    if (!matte) return tl::unexpected(matte.error());
    if (!*matte) return std::nullopt;
    if (stop_.stop_requested()) return failure(stopped);
    Matting::takeBackdropOut(photo.pixels, **matte);
    CutOut cut{std::move((*matte)->alpha), {}};
    if (const auto feet = (*matte)->feetLine) cut.feetLine = photo.origin.y + *feet / photo.scale;
    return cut;
}

}  // namespace morva
