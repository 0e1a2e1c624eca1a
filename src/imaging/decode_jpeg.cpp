// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/decode_jpeg.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>

// The library's headers expect <cstdio> before them.
#include <jpeglib.h>

#include <jerror.h>

#include "imaging/heavy_decode.h"
#include "imaging/jpeg_structure.h"
#include "imaging/row_kernels.h"

namespace morva {

namespace {

/// Bits of a progressive photo that must be kept until its last scan; more is refused.
constexpr double largestCoefficientBytes = 1e9;
/// From here on one photo at a time.
constexpr double heavyCoefficientBytes = 150e6;
/// Encoders write about ten scans; a file of thousands keeps a decoder busy for hours.
constexpr int mostScans = 100;
/// A profile has 255 parts at most, beside which other software keeps a few things of its own. The
/// library looks through all it has kept for each one that it keeps: half a minute for 100,000.
constexpr int mostProfileSegments = 1000;
/// Pixels beside a region whose chroma is interpolated from pixels inside it and outside.
constexpr int regionMargin = 16;

/// Warnings after which the library goes on with grey or repeated blocks.
bool meansDamage(int warning) {
    switch (warning) {
        case JWRN_ARITH_BAD_CODE:
        case JWRN_BOGUS_PROGRESSION:
        case JWRN_HIT_MARKER:
        case JWRN_HUFF_BAD_CODE:
        case JWRN_JPEG_EOF:
        case JWRN_MUST_RESYNC:
        case JWRN_NOT_SEQUENTIAL:
            return true;
        default:
            return false;
    }
}

/// Whether the library passed over coded pixels on its way to a marker: what is left when a wrong
/// bit made it lose count. Padding, and anything before the first scan, is harmless.
bool skippedPixels(const jpeg_decompress_struct& jpeg, const std::string& file) {
    constexpr std::size_t strayBytes = 2;  // some cameras leave that much
    const auto count = static_cast<std::size_t>(jpeg.err->msg_parm.i[0]);
    if (jpeg.input_scan_number == 0 || count <= strayBytes) return false;
    const char* end = reinterpret_cast<const char*>(jpeg.src->next_input_byte);
    const auto available = static_cast<std::size_t>(end - file.data());
    const std::string_view skipped(end - std::min(count, available), std::min(count, available));
    return skipped.find_first_not_of(skipped.front()) != std::string_view::npos;
}

/// One run of the library over one file. Its errors jump back to `run`, which is why no step given
/// to `run` may own anything.
class Decoder {
public:
    explicit Decoder(const std::string& bytes) : bytes_(bytes) {
        jpeg.err = jpeg_std_error(&errors_);
        jpeg.client_data = this;
        errors_.error_exit = [](j_common_ptr info) { self(info)->giveUp(info->err->msg_code); };
        errors_.emit_message = [](j_common_ptr info, int level) {
            if (level < 0) self(info)->warned(info->err->msg_code);
        };
        errors_.output_message = [](j_common_ptr) {};
        progress_.progress_monitor = [](j_common_ptr info) {
            if (self(info)->jpeg.input_scan_number > mostScans) self(info)->giveUp(JWRN_HIT_MARKER);
        };
        created_ = run([&] {
            jpeg_create_decompress(&jpeg);
            jpeg.progress = &progress_;
            jpeg_mem_src(&jpeg, reinterpret_cast<const unsigned char*>(bytes.data()),
                         static_cast<unsigned long>(bytes.size()));
            if (jpegProfileSegments(bytes) <= mostProfileSegments)
                jpeg_save_markers(&jpeg, JPEG_APP0 + 2, 0xffff);  // the colour profile
            jpeg_read_header(&jpeg, TRUE);
        });
    }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder() { jpeg_destroy_decompress(&jpeg); }

    /// False when the step met an error or damage.
    template <class Step>
    bool run(const Step& step) {
        if (setjmp(back_) != 0) return false;
        step();
        return true;
    }

    bool hasHeader() const { return created_; }
    /// Why the last `run` was false.
    std::string reason() const {
        if (code_ == JERR_BAD_PRECISION) return "JPEG of 12 bits is not supported";
        if (code_ == JERR_OUT_OF_MEMORY) return memoryReason;
        return damagedReason;
    }

    jpeg_decompress_struct jpeg{};

private:
    static Decoder* self(j_common_ptr info) { return static_cast<Decoder*>(info->client_data); }
    void warned(int code) {
        if (meansDamage(code) || (code == JWRN_EXTRANEOUS_DATA && skippedPixels(jpeg, bytes_)))
            giveUp(code);
    }
    [[noreturn]] void giveUp(int code) {
        code_ = code;
        std::longjmp(back_, 1);
    }

    const std::string& bytes_;
    jpeg_error_mgr errors_{};
    jpeg_progress_mgr progress_{};
    std::jmp_buf back_{};
    int code_ = 0;
    bool created_ = false;
};

std::string profileOf(Decoder& decoder) {
    JOCTET* data = nullptr;
    unsigned int size = 0;
    if (!decoder.run([&] { jpeg_read_icc_profile(&decoder.jpeg, &data, &size); }) || !data)
        return {};
    std::string profile(reinterpret_cast<const char*>(data), size);
    std::free(data);
    return profile;
}

/// Absent where the channels mean something that no photo has.
std::optional<ColourModel> modelOf(const jpeg_decompress_struct& jpeg) {
    switch (jpeg.jpeg_color_space) {
        case JCS_GRAYSCALE:
            return ColourModel::grey;
        case JCS_RGB:
        case JCS_YCbCr:
            return ColourModel::rgb;
        case JCS_CMYK:
        case JCS_YCCK:
            return jpeg.saw_Adobe_marker ? ColourModel::cmykInverted : ColourModel::cmyk;
        default:
            return std::nullopt;
    }
}

/// What the library must hold of a photo whose scans each carry a part of every block.
double coefficientBytes(const jpeg_decompress_struct& jpeg) {
    double blocks = 0;
    for (int c = 0; c < jpeg.num_components; ++c)
        blocks += static_cast<double>(jpeg.comp_info[c].width_in_blocks) *
                  jpeg.comp_info[c].height_in_blocks;
    return blocks * DCTSIZE2 * sizeof(JCOEF);
}

/// Checks everything that can be told before decoding.
Result<ColourModel> checkedModel(const PhotoSource& source, const Decoder& decoder) {
    if (!decoder.hasHeader()) return unreadable(source.file, decoder.reason());
    const jpeg_decompress_struct& jpeg = decoder.jpeg;
    if (const auto refused = refusedSize(source.file, static_cast<int>(jpeg.image_width),
                                         static_cast<int>(jpeg.image_height)))
        return tl::unexpected(*refused);
    if (!jpegReachesItsEnd(source.bytes)) return unreadable(source.file, damagedReason);
    const std::optional<ColourModel> model = modelOf(jpeg);
    if (!model || channelCount(*model) != jpeg.num_components)
        return unreadable(source.file, "its colours are stored in an unknown way");
    if (jpeg_has_multiple_scans(const_cast<jpeg_decompress_struct*>(&jpeg)) &&
        coefficientBytes(jpeg) > largestCoefficientBytes)
        return unreadable(source.file, "a progressive JPEG of this size is not supported");
    return *model;
}

HeavyDecode admission(jpeg_decompress_struct& jpeg) {
    return HeavyDecode(jpeg_has_multiple_scans(&jpeg) &&
                       coefficientBytes(jpeg) > heavyCoefficientBytes);
}

/// One channel on its way from the library, which writes whole blocks and takes an array of row
/// addresses, to its plane.
struct Channel {
    Plane plane;
    std::vector<JSAMPROW> rows;  // of one row of blocks
    /// Keeps every second pixel's worth: the rows then lie in `band` and their means in the plane.
    bool halved = false;
    std::vector<std::uint8_t> band;
};

Channel channelFor(const jpeg_decompress_struct& jpeg, const jpeg_component_info& component,
                   bool halved) {
    const int rowsAtOnce = component.v_samp_factor * component.DCT_scaled_size;
    const double pixel =
        component.DCT_scaled_size / static_cast<double>(DCTSIZE) / (halved ? 2 : 1);
    const double across =
        jpeg.image_width * pixel * component.h_samp_factor / jpeg.max_h_samp_factor;
    const double down =
        jpeg.image_height * pixel * component.v_samp_factor / jpeg.max_v_samp_factor;
    const auto stride = static_cast<std::size_t>(component.width_in_blocks) *
                        static_cast<std::size_t>(component.DCT_scaled_size);
    Channel channel{
        Plane::sized(across, down, halved ? stride / 2 : stride,
                     static_cast<int>(jpeg.total_iMCU_rows) * rowsAtOnce / (halved ? 2 : 1)),
        std::vector<JSAMPROW>(static_cast<std::size_t>(rowsAtOnce)),
        halved,
        {}};
    if (halved) {
        channel.band.resize(stride * channel.rows.size() + rowPadding);
        for (std::size_t i = 0; i < channel.rows.size(); ++i)
            channel.rows[i] = channel.band.data() + i * stride;
    }
    return channel;
}

/// Says where the library shall write the next row of blocks.
void aim(Channel& channel, int band) {
    if (channel.halved) return;
    const int count = static_cast<int>(channel.rows.size());
    for (int i = 0; i < count; ++i)
        channel.rows[static_cast<std::size_t>(i)] = channel.plane.row(band * count + i);
}

void keep(Channel& channel, int band) {
    if (!channel.halved) return;
    const std::size_t count = channel.rows.size() / 2;
    for (std::size_t i = 0; i < count; ++i)
        halve(channel.rows[i * 2], channel.rows[i * 2 + 1],
              channel.plane.row(band * static_cast<int>(count) + static_cast<int>(i)),
              channel.plane.stride);
}

void readPlanes(jpeg_decompress_struct& jpeg, std::vector<Channel>& channels) {
    std::array<JSAMPARRAY, MAX_COMPONENTS> rows{};
    for (std::size_t c = 0; c < channels.size(); ++c) rows[c] = channels[c].rows.data();
    const auto linesAtOnce =
        static_cast<JDIMENSION>(jpeg.max_v_samp_factor * jpeg.min_DCT_scaled_size);
    for (int band = 0; jpeg.output_scanline < jpeg.output_height; ++band) {
        for (Channel& channel : channels) aim(channel, band);
        jpeg_read_raw_data(&jpeg, rows.data(), linesAtOnce);
        for (Channel& channel : channels) keep(channel, band);
    }
    jpeg_finish_decompress(&jpeg);
}

/// Colour differences of full resolution (4:4:4) take two thirds of the memory, and filling it
/// takes a quarter of the time of such a photo. Where the photo is larger than what is asked for,
/// half their resolution is what most photos have in the first place.
bool needsHalfOf(const jpeg_decompress_struct& jpeg, int component, int longestSide) {
    const jpeg_component_info& info = jpeg.comp_info[component];
    const bool colourDifference =
        (component == 1 || component == 2) &&
        (jpeg.jpeg_color_space == JCS_YCbCr || jpeg.jpeg_color_space == JCS_YCCK);
    return colourDifference && info.DCT_scaled_size == DCTSIZE &&
           info.h_samp_factor == jpeg.max_h_samp_factor &&
           info.v_samp_factor == jpeg.max_v_samp_factor &&
           static_cast<int>(std::max(jpeg.output_width, jpeg.output_height)) >= longestSide;
}

}  // namespace

int jpegDivisor(int length, int smallest) {
    int divisor = 8;
    while (divisor > 1 && length < smallest * static_cast<double>(divisor)) divisor /= 2;
    return divisor;
}

Result<StoredPhoto> JpegDecode::planes(const PhotoSource& source, int longestSide) {
    Decoder decoder(source.bytes);
    const Result<ColourModel> model = checkedModel(source, decoder);
    if (!model) return tl::unexpected(model.error());
    jpeg_decompress_struct& jpeg = decoder.jpeg;

    StoredPhoto photo{
        .width = static_cast<int>(jpeg.image_width),
        .height = static_cast<int>(jpeg.image_height),
        .orientation = source.orientation,
        .model = *model,
        .lumaChroma = jpeg.jpeg_color_space == JCS_YCbCr || jpeg.jpeg_color_space == JCS_YCCK,
        .planes = {},
        .profile = profileOf(decoder)};
    const HeavyDecode admitted = admission(jpeg);
    jpeg.raw_data_out = TRUE;
    jpeg.out_color_space = jpeg.jpeg_color_space;
    jpeg.scale_num = 1;
    jpeg.scale_denom =
        static_cast<unsigned>(jpegDivisor(std::max(photo.width, photo.height), longestSide));
    if (!decoder.run([&] { jpeg_start_decompress(&jpeg); }))
        return unreadable(source.file, decoder.reason());

    std::vector<Channel> channels;
    for (int c = 0; c < jpeg.num_components; ++c)
        channels.push_back(channelFor(jpeg, jpeg.comp_info[c], needsHalfOf(jpeg, c, longestSide)));
    if (!decoder.run([&] { readPlanes(jpeg, channels); }))
        return unreadable(source.file, decoder.reason());
    for (Channel& channel : channels) photo.planes.push_back(std::move(channel.plane));
    return photo;
}

namespace {

/// Reads the rows of `part` into `out`; `line` has room for one row of the decode.
void readRegion(jpeg_decompress_struct& jpeg, const PixelRect& part, const ToSrgb& colours,
                std::uint8_t* line, Picture& out) {
    const int left = std::max(0, part.x - regionMargin);
    const int right =
        std::min(static_cast<int>(jpeg.output_width), part.x + part.width + regionMargin);
    auto offset = static_cast<JDIMENSION>(left);
    if (right - left < static_cast<int>(jpeg.output_width)) {
        auto width = static_cast<JDIMENSION>(right - left);
        jpeg_crop_scanline(&jpeg, &offset, &width);
    }
    if (part.y > 0) jpeg_skip_scanlines(&jpeg, static_cast<JDIMENSION>(part.y));
    const std::uint8_t* start = line + (static_cast<std::size_t>(part.x) - offset) *
                                           static_cast<std::size_t>(jpeg.output_components);
    for (int y = 0; y < part.height; ++y) {
        JSAMPROW row = line;
        jpeg_read_scanlines(&jpeg, &row, 1);
        colours.convert(start, out.row(y), part.width);
    }
}

}  // namespace

Result<StoredRegion> JpegDecode::region(const PhotoSource& source, const WantedPart& wanted,
                                        int divisor) {
    Decoder decoder(source.bytes);
    const Result<ColourModel> model = checkedModel(source, decoder);
    if (!model) return tl::unexpected(model.error());
    jpeg_decompress_struct& jpeg = decoder.jpeg;

    StoredRegion region;
    region.divisor = divisor;
    region.width = static_cast<int>(jpeg.image_width);
    region.height = static_cast<int>(jpeg.image_height);
    region.part = reducedCover(wanted(region.width, region.height), divisor);
    const RegionColours colours(*model, profileOf(decoder));
    region.profile = colours.profile;
    const HeavyDecode admitted = admission(jpeg);
    jpeg.out_color_space = *model == ColourModel::grey  ? JCS_GRAYSCALE
                           : *model == ColourModel::rgb ? JCS_RGB
                                                        : JCS_CMYK;
    jpeg.scale_num = 1;
    jpeg.scale_denom = static_cast<unsigned>(divisor);
    if (!decoder.run([&] { jpeg_start_decompress(&jpeg); }))
        return unreadable(source.file, decoder.reason());

    region.pixels = Picture(region.part.width, region.part.height);
    std::vector<std::uint8_t> line(static_cast<std::size_t>(jpeg.output_width) *
                                   static_cast<std::size_t>(channelCount(*model)));
    if (!decoder.run(
            [&] { readRegion(jpeg, region.part, colours.conversion, line.data(), region.pixels); }))
        return unreadable(source.file, decoder.reason());
    return region;
}

}  // namespace morva
