// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/encode.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <jpeglib.h>
#include <vips/vips.h>

#include "imaging/vips_session.h"

namespace morva {

namespace {

/// From this quality on, colours keep their full resolution.
constexpr double fullColorQuality = 0.9;

/// Handed to the JPEG library at a time: two rows of its blocks at halved colour.
constexpr int rowsAtOnce = 32;

struct JpegErrors {
    jpeg_error_mgr manager;
    std::jmp_buf escape;
    std::array<char, JMSG_LENGTH_MAX> text;
};

void leaveJpegLibrary(j_common_ptr info) {
    auto* const errors = reinterpret_cast<JpegErrors*>(info->err);
    errors->manager.format_message(info, errors->text.data());
    std::longjmp(errors->escape, 1);
}

void setUp(jpeg_compress_struct& info, const Picture& picture, double quality, double dpi) {
    info.image_width = static_cast<JDIMENSION>(picture.width());
    info.image_height = static_cast<JDIMENSION>(picture.height());
    info.input_components = Picture::channels;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, static_cast<int>(std::lround(std::clamp(quality, 0.0, 1.0) * 100)),
                     TRUE);
    const int colorReduction = quality >= fullColorQuality ? 1 : 2;
    info.comp_info[0].h_samp_factor = colorReduction;
    info.comp_info[0].v_samp_factor = colorReduction;
    info.density_unit = 1;  // dots per inch
    info.X_density = static_cast<UINT16>(std::lround(std::clamp(dpi, 1.0, 65535.0)));
    info.Y_density = info.X_density;
}

void writeRows(jpeg_compress_struct& info, const Picture& picture) {
    std::array<JSAMPROW, rowsAtOnce> rows;
    while (info.next_scanline < info.image_height) {
        const auto first = static_cast<int>(info.next_scanline);
        const int count = std::min(rowsAtOnce, picture.height() - first);
        for (int i = 0; i < count; ++i)
            rows[static_cast<std::size_t>(i)] = const_cast<JSAMPROW>(picture.row(first + i));
        jpeg_write_scanlines(&info, rows.data(), static_cast<JDIMENSION>(count));
    }
}

/// Nothing with a destructor lives here: errors leave by a jump. `bytes` is malloc'ed.
bool compress(const Picture& picture, double quality, double dpi, JpegErrors& errors,
              unsigned char** bytes, unsigned long* size) {
    jpeg_compress_struct info;
    info.err = jpeg_std_error(&errors.manager);
    errors.manager.error_exit = leaveJpegLibrary;
    if (setjmp(errors.escape) != 0) {
        jpeg_destroy_compress(&info);
        return false;
    }
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, bytes, size);
    setUp(info, picture, quality, dpi);
    jpeg_start_compress(&info, TRUE);
    writeRows(info, picture);
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    return true;
}

struct VipsDeleter {
    void operator()(VipsImage* image) const { g_object_unref(image); }
};

tl::unexpected<Failure> pngFailure() {
    const std::string reason = vips_error_buffer();
    vips_error_clear();
    return failure("Could not encode the PNG: " + reason + ".");
}

}  // namespace

Result<std::string> encodeJpeg(const Picture& picture, double quality, double dpi) {
    if (picture.isEmpty()) return failure("Could not encode the JPEG: the picture is empty.");
    JpegErrors errors;
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    const bool done = compress(picture, quality, dpi, errors, &bytes, &size);
    const std::unique_ptr<unsigned char, decltype(&std::free)> owner(bytes, &std::free);
    if (!done)
        return failure("Could not encode the JPEG: " + std::string(errors.text.data()) + ".");
    return std::string(reinterpret_cast<const char*>(bytes), size);
}

Result<std::string> encodePng(const Picture& picture) {
    if (picture.isEmpty()) return failure("Could not encode the PNG: the picture is empty.");
    if (!startVips()) return pngFailure();
    const std::unique_ptr<VipsImage, VipsDeleter> image(
        vips_image_new_from_memory(picture.row(0), picture.byteCount(), picture.width(),
                                   picture.height(), Picture::channels, VIPS_FORMAT_UCHAR));
    if (!image) return pngFailure();
    void* bytes = nullptr;
    std::size_t size = 0;
    if (vips_pngsave_buffer(image.get(), &bytes, &size, "compression", 6, nullptr) != 0)
        return pngFailure();
    const std::unique_ptr<void, decltype(&g_free)> owner(bytes, &g_free);
    return std::string(static_cast<const char*>(bytes), size);
}

}  // namespace morva
