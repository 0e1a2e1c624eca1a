// SPDX-License-Identifier: GPL-3.0-or-later
// Small JPEG files for tests, written as no sane camera would: every subsampling, scan order,
// orientation and size that a decoder meets sooner or later. Tests only.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>
// The library's header expects <cstdio> before it.
#include <cstdio>

#include <jpeglib.h>

namespace morva {

struct JpegFixture {
    int width = 203;
    int height = 157;
    int chromaAcross = 2;  // luma pixels for one chroma pixel
    int chromaDown = 2;
    bool progressive = false;
    int restartRows = 0;
    int orientation = 0;  // 0: no EXIF
    J_COLOR_SPACE pixels = JCS_RGB;

    /// A picture without repeats: slopes in both directions with waves of several lengths on them.
    std::uint8_t level(int x, int y, int channel) const {
        const double wave = 40 * std::sin(x * 0.11 + y * 0.037 * (channel + 1)) +
                            30 * std::cos(y * 0.19 - x * 0.013 * (channel + 2));
        return static_cast<std::uint8_t>(
            std::lround(128 + wave + 50.0 * (x - y) / (width + height)));
    }

    std::string bytes() const {
        jpeg_error_mgr errors{};
        jpeg_compress_struct jpeg{};
        jpeg.err = jpeg_std_error(&errors);
        jpeg_create_compress(&jpeg);
        unsigned char* memory = nullptr;
        unsigned long size = 0;
        jpeg_mem_dest(&jpeg, &memory, &size);
        const int channels = pixels == JCS_GRAYSCALE ? 1 : pixels == JCS_CMYK ? 4 : 3;
        jpeg.image_width = static_cast<JDIMENSION>(width);
        jpeg.image_height = static_cast<JDIMENSION>(height);
        jpeg.input_components = channels;
        jpeg.in_color_space = pixels;
        jpeg_set_defaults(&jpeg);
        jpeg_set_quality(&jpeg, 90, TRUE);
        jpeg.comp_info[0].h_samp_factor = channels == 3 ? chromaAcross : 1;
        jpeg.comp_info[0].v_samp_factor = channels == 3 ? chromaDown : 1;
        jpeg.restart_in_rows = restartRows;
        if (progressive) jpeg_simple_progression(&jpeg);
        jpeg_start_compress(&jpeg, TRUE);
        if (orientation > 0) {
            const std::string tag = exif();
            jpeg_write_marker(&jpeg, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(tag.data()),
                              static_cast<unsigned>(tag.size()));
        }
        std::vector<std::uint8_t> row(static_cast<std::size_t>(width * channels));
        for (int y = 0; y < height; ++y) {
            for (int i = 0; i < width * channels; ++i)
                row[static_cast<std::size_t>(i)] = level(i / channels, y, i % channels);
            JSAMPROW start = row.data();
            jpeg_write_scanlines(&jpeg, &start, 1);
        }
        jpeg_finish_compress(&jpeg);
        std::string result(reinterpret_cast<const char*>(memory), size);
        jpeg_destroy_compress(&jpeg);
        std::free(memory);
        return result;
    }

private:
    /// The smallest EXIF block that holds an orientation.
    std::string exif() const {
        std::string block("Exif\0\0MM\0*\0\0\0\10\0\1\1\22\0\3\0\0\0\1\0\0\0\0\0\0\0\0", 32);
        block[25] = static_cast<char>(orientation);
        return block;
    }
};

/// A file that is gone when the test ends.
class TemporaryFile {
public:
    TemporaryFile(const std::string& name, const std::string& content)
        : path_(std::filesystem::temp_directory_path() /
                ("morva-" + std::to_string(getpid()) + "-" + name)) {
        std::ofstream(path_, std::ios::binary) << content;
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::filesystem::remove(path_); }

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace morva
