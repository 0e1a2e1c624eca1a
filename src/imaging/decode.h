// SPDX-License-Identifier: GPL-3.0-or-later
// From a photo file to upright pixels. The only place that knows file formats, orientation tags and
// colour profiles. Two ways in: `PhotoDecode` for measuring (sRGB, several sizes from one decode),
// `decodeRegion` for the finished crop (the photo's own RGB colour space). Neither ever writes,
// caches or keeps a file open.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/raster.h"

namespace morva {

/// A picture of more pixels than this is refused with a sentence.
inline constexpr double largestPhotoMegapixels = 300;

/// One decode of one photo, from which every size that the analysis needs is taken. sRGB, 8 bits,
/// upright; alpha is laid over mid grey. Safe to use from one thread at a time.
class PhotoDecode {
public:
    /// Decodes `file` at the smallest scale of its format that still has `longestSide` pixels on
    /// its longer side. Fails with a sentence naming the file when it cannot be opened, is damaged
    /// or truncated, or is too large.
    static Result<PhotoDecode> open(const std::filesystem::path& file, int longestSide);

    PhotoDecode(PhotoDecode&&) noexcept;
    PhotoDecode& operator=(PhotoDecode&&) noexcept;
    ~PhotoDecode();

    /// Upright size of the full photo, whole pixels.
    int sourceWidth() const;
    int sourceHeight() const;

    /// Longer side of the pixels at hand: at least what was asked for at opening, or the photo's
    /// own. What lies between is had for nothing.
    int finestSide() const;

    /// Size that `whole(longestSide)` has: the photo's own, or reduced so that the longer side is
    /// `longestSide`. Here and below, more than `finestSide()` counts as that.
    Size reducedSize(int longestSide) const;
    /// The whole photo, reduced by area where larger than `longestSide`, never enlarged.
    Picture whole(int longestSide) const;
    /// The pixels [x, x + width) x [y, y + height) of `whole(longestSide)`, without making the
    /// rest. The rectangle must lie inside `reducedSize(longestSide)`.
    Picture region(int longestSide, int x, int y, int width, int height) const;

private:
    struct Pixels;
    explicit PhotoDecode(std::unique_ptr<Pixels> pixels);
    std::unique_ptr<Pixels> pixels_;
};

/// A part of a photo in its own colours.
struct DecodedRegion {
    Picture pixels;
    /// Where the top-left corner of `pixels` lies in the upright photo, in source pixels. At a
    /// scale below 1 the outermost pixels may reach beyond the photo, by less than one of them.
    Point origin;
    /// Decoded pixels per source pixel, the same in both directions: 1, 1/2, 1/4 or 1/8.
    double scale = 1;
    /// Upright size of the full photo.
    int sourceWidth = 0;
    int sourceHeight = 0;
    /// ICC profile of `pixels`, never empty: the photo's own RGB profile, or sRGB where it has
    /// none, is grey, CMYK or Lab (such pixels are converted), or carries a profile that does not
    /// fit its pixels.
    std::string iccProfile;
};

/// Decodes the part of the upright photo that covers `region` (source pixels; what lies outside the
/// photo is left out, and an empty overlap gives the nearest edge pixels), at `minScale` or the
/// next larger scale of its format. Fails like `PhotoDecode::open`, but looks only at what it
/// needs: a fault of the pixels outside the region can pass, a truncated file cannot.
Result<DecodedRegion> decodeRegion(const std::filesystem::path& file, const Rect& region,
                                   double minScale);

/// The same where the region depends on the photo's upright size. `regionOf` is called once.
Result<DecodedRegion> decodeRegion(const std::filesystem::path& file,
                                   const std::function<Rect(Size)>& regionOf, double minScale);

/// The scale at which `decodeRegion` decodes for `minScale`, in formats that have it.
double decodedScale(double minScale);

/// What `decodeRegion` gives of `region` at the scale of `whole`, which is all of the photo.
DecodedRegion partOf(const DecodedRegion& whole, const Rect& region);

}  // namespace morva
