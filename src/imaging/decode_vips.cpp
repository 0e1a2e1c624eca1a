// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/decode_vips.h"

#include <algorithm>
#include <optional>

#include <vips/vips.h>

#include "imaging/heavy_decode.h"
#include "imaging/vips_session.h"

namespace morva {

namespace {

constexpr const char* unsupportedReason = "its pixels are stored in an unsupported way";
/// Rows read at once.
constexpr int stripRows = 64;
/// Some files of these formats can only be read whole; from here on one photo at a time.
constexpr double heavyMegapixels = 60;
/// What shows through where a photo is transparent.
constexpr double midGrey = 128;

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
/// An image of the library, which decodes nothing until pixels are asked for. Null after a failure.
using Image = std::unique_ptr<VipsImage, Unref>;
using Region = std::unique_ptr<VipsRegion, Unref>;

/// Calls one operation of the library and keeps its result; null in, null out.
template <class Operation>
Image after(const Image& image, const Operation& operation) {
    VipsImage* result = nullptr;
    if (!image || operation(image.get(), &result) != 0) return nullptr;
    return Image(result);
}

Image opened(const PhotoSource& source) {
    VipsImage* image = nullptr;
    const char* name = source.file.c_str();
    const auto load = [&](auto loader) {
        return loader(name, &image, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on", VIPS_FAIL_ON_ERROR,
                      nullptr);
    };
    int status = -1;
    switch (source.format) {
        case PhotoFormat::png:
            status = load(vips_pngload);
            break;
        case PhotoFormat::tiff:
            status = load(vips_tiffload);
            break;
        case PhotoFormat::heif:
            status = load(vips_heifload);
            break;
        case PhotoFormat::jpeg:
            break;
    }
    return Image(status == 0 ? image : nullptr);
}

std::string profileOf(VipsImage* image) {
    const void* data = nullptr;
    std::size_t size = 0;
    if (vips_image_get_typeof(image, VIPS_META_ICC_NAME) == 0 ||
        vips_image_get_blob(image, VIPS_META_ICC_NAME, &data, &size) != 0)
        return {};
    return std::string(static_cast<const char*>(data), size);
}

/// Absent where the pixels must first be converted by the library.
std::optional<ColourModel> modelOf(VipsImage* image) {
    const bool whole = image->BandFmt == VIPS_FORMAT_UCHAR || image->BandFmt == VIPS_FORMAT_USHORT;
    if (!whole || image->Coding != VIPS_CODING_NONE) return std::nullopt;
    switch (vips_image_guess_interpretation(image)) {
        case VIPS_INTERPRETATION_B_W:
        case VIPS_INTERPRETATION_GREY16:
            return ColourModel::grey;
        case VIPS_INTERPRETATION_sRGB:
        case VIPS_INTERPRETATION_RGB:
        case VIPS_INTERPRETATION_RGB16:
            if (image->Bands >= 3) return ColourModel::rgb;
            return std::nullopt;
        case VIPS_INTERPRETATION_CMYK:
            if (image->Bands >= 4) return ColourModel::cmyk;
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

Image inEightBits(Image image) {
    if (!image || image->BandFmt == VIPS_FORMAT_UCHAR) return image;
    image = after(image, [](VipsImage* in, VipsImage** out) {
        return vips_linear1(in, out, 255.0 / 65535.0, 0.5, nullptr);
    });
    return after(image, [](VipsImage* in, VipsImage** out) {
        return vips_cast(in, out, VIPS_FORMAT_UCHAR, nullptr);
    });
}

/// Exactly the model's channels, transparency laid over grey.
Image withoutExtraChannels(Image image, ColourModel model) {
    const int channels = channelCount(model);
    if (!image || image->Bands == channels) return image;
    if (image->Bands > channels + 1 || channels == 4) {
        return after(image, [&](VipsImage* in, VipsImage** out) {
            return vips_extract_band(in, out, 0, "n", channels, nullptr);
        });
    }
    const double grey[3] = {midGrey, midGrey, midGrey};
    VipsArrayDouble* background = vips_array_double_new(grey, channels);
    image = after(image, [&](VipsImage* in, VipsImage** out) {
        return vips_flatten(in, out, "background", background, "max_alpha", 255.0, nullptr);
    });
    vips_area_unref(VIPS_AREA(background));
    return image;
}

/// Lab, by way of the library's profile conversion: a file means the white of profiles (D50), where
/// the library's own colour spaces assume daylight. Null for anything else, such as measurements in
/// floating point, whose range nobody knows.
Image labToSrgb(Image image) {
    const VipsInterpretation meaning = vips_image_guess_interpretation(image.get());
    if (meaning != VIPS_INTERPRETATION_LAB && meaning != VIPS_INTERPRETATION_LABQ &&
        meaning != VIPS_INTERPRETATION_LABS)
        return nullptr;
    return after(image, [](VipsImage* in, VipsImage** out) {
        return vips_icc_export(in, out, "output_profile", "srgb", "depth", 8, nullptr);
    });
}

/// The photo as the library will deliver it: 8 bits, the channels of `model`, nothing decoded yet.
/// No image where its pixels mean something else than colours.
struct Native {
    Image image;
    ColourModel model = ColourModel::rgb;
    std::string profile;
};

Native native(Image image) {
    Native result;
    if (const std::optional<ColourModel> model = modelOf(image.get())) {
        result.model = *model;
        result.profile = profileOf(image.get());
    } else {
        image = labToSrgb(std::move(image));
    }
    result.image = withoutExtraChannels(inEightBits(std::move(image)), result.model);
    if (result.image && result.image->Bands != channelCount(result.model)) result.image.reset();
    return result;
}

/// The mean of blocks of divisor x divisor pixels; the last ones may reach beyond the photo, whose
/// edge pixels are repeated there.
Image shrunk(Image image, int divisor) {
    if (divisor == 1) return image;
    return after(image, [&](VipsImage* in, VipsImage** out) {
        return vips_shrink(in, out, divisor, divisor, "ceil", TRUE, nullptr);
    });
}

/// Hands every row of `part` to `use`, from top to bottom. False when decoding failed.
template <class UseRow>
bool forEachRow(const Image& image, const PixelRect& part, const UseRow& use) {
    if (!image) return false;
    const Region region(vips_region_new(image.get()));
    for (int top = 0; top < part.height; top += stripRows) {
        const int rows = std::min(stripRows, part.height - top);
        const VipsRect strip{part.x, part.y + top, part.width, rows};
        if (vips_region_prepare(region.get(), &strip) != 0) return false;
        for (int y = 0; y < rows; ++y)
            use(top + y, VIPS_REGION_ADDR(region.get(), part.x, part.y + top + y));
    }
    return true;
}

void splitChannels(const std::uint8_t* pixels, std::vector<Plane>& planes, int y) {
    const std::size_t channels = planes.size();
    for (std::size_t c = 0; c < channels; ++c) {
        std::uint8_t* row = planes[c].row(y);
        const int width = planes[c].width;
        for (int x = 0; x < width; ++x) row[x] = pixels[static_cast<std::size_t>(x) * channels + c];
    }
}

/// Opens the file and checks what its header says.
Result<Image> openedAndChecked(const PhotoSource& source) {
    if (!startVips()) return unreadable(source.file, "the image library could not be started");
    Image image = opened(source);
    vips_error_clear();
    if (!image) return unreadable(source.file, damagedReason);
    if (const auto refused = refusedSize(source.file, image->Xsize, image->Ysize))
        return tl::unexpected(*refused);
    return image;
}

HeavyDecode admission(int width, int height) {
    return HeavyDecode(static_cast<double>(width) * height > heavyMegapixels * 1e6);
}

}  // namespace

Result<StoredPhoto> VipsDecode::planes(const PhotoSource& source, int longestSide) {
    Result<Image> image = openedAndChecked(source);
    if (!image) return tl::unexpected(image.error());
    StoredPhoto photo;
    photo.width = (*image)->Xsize;
    photo.height = (*image)->Ysize;
    const HeavyDecode admitted = admission(photo.width, photo.height);
    const int divisor = std::max(1, std::max(photo.width, photo.height) / longestSide);

    Native pixels = native(std::move(*image));
    if (!pixels.image) return unreadable(source.file, unsupportedReason);
    pixels.image = shrunk(std::move(pixels.image), divisor);
    photo.orientation = source.orientation;
    photo.model = pixels.model;
    photo.profile = pixels.profile;
    for (int c = 0; c < channelCount(photo.model); ++c) {
        const double across = static_cast<double>(photo.width) / divisor;
        const double down = static_cast<double>(photo.height) / divisor;
        photo.planes.push_back(Plane::sized(across, down,
                                            static_cast<std::size_t>(std::ceil(across)),
                                            static_cast<int>(std::ceil(down))));
    }
    const PixelRect all{0, 0, photo.planes[0].width, photo.planes[0].height};
    const bool decoded = forEachRow(pixels.image, all, [&](int y, const std::uint8_t* row) {
        splitChannels(row, photo.planes, y);
    });
    vips_error_clear();
    if (!decoded) return unreadable(source.file, damagedReason);
    return photo;
}

Result<StoredRegion> VipsDecode::region(const PhotoSource& source, const WantedPart& wanted,
                                        int divisor) {
    Result<Image> image = openedAndChecked(source);
    if (!image) return tl::unexpected(image.error());
    StoredRegion region;
    region.divisor = divisor;
    region.width = (*image)->Xsize;
    region.height = (*image)->Ysize;
    const HeavyDecode admitted = admission(region.width, region.height);
    region.part = reducedCover(wanted(region.width, region.height), divisor);

    Native pixels = native(std::move(*image));
    if (!pixels.image) return unreadable(source.file, unsupportedReason);
    pixels.image = shrunk(std::move(pixels.image), divisor);
    const RegionColours colours(pixels.model, std::move(pixels.profile));
    region.profile = colours.profile;
    region.pixels = Picture(region.part.width, region.part.height);
    const bool decoded = forEachRow(pixels.image, region.part, [&](int y, const std::uint8_t* row) {
        colours.conversion.convert(row, region.pixels.row(y), region.part.width);
    });
    vips_error_clear();
    if (!decoded) return unreadable(source.file, damagedReason);
    return region;
}

}  // namespace morva
