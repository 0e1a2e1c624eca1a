// SPDX-License-Identifier: GPL-3.0-or-later
// What reading a photo costs beside the floor that no reader gets below: one full decode by
// libjpeg-turbo. Prints the medians of one run; compare ratios, not runs. Takes JPEG files, or uses
// the three largest test photographs.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <jpeglib.h>

#include "base/files.h"
#include "imaging/decode.h"

namespace {

using namespace morva;

constexpr int rounds = 9;

/// Processor time, which other programs on the machine disturb least.
double milliseconds(const std::function<void()>& work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) * 1000.0 / CLOCKS_PER_SEC;
}

void decodeFully(const std::filesystem::path& file) {
    const std::string bytes = readFile(file).value_or(std::string());
    jpeg_error_mgr errors{};
    jpeg_decompress_struct jpeg{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&jpeg);
    jpeg_mem_src(&jpeg, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    jpeg_read_header(&jpeg, TRUE);
    jpeg.out_color_space = JCS_RGB;
    jpeg_start_decompress(&jpeg);
    Picture picture(static_cast<int>(jpeg.output_width), static_cast<int>(jpeg.output_height));
    while (jpeg.output_scanline < jpeg.output_height) {
        JSAMPROW row = picture.row(static_cast<int>(jpeg.output_scanline));
        jpeg_read_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_decompress(&jpeg);
    jpeg_destroy_decompress(&jpeg);
}

/// The middle of the photo, at the size of a head-and-shoulders crop.
Rect middle(const PhotoDecode& photo) {
    const double width = photo.sourceWidth();
    const double height = photo.sourceHeight();
    return {width * 0.2, height * 0.1, width * 0.6, height * 0.75};
}

struct Column {
    const char* name;
    std::function<void()> work;
    std::vector<double> times = {};

    double median() {
        std::ranges::nth_element(times, times.begin() + rounds / 2);
        return times[rounds / 2];
    }
};

void measure(const std::filesystem::path& file) {
    const auto opened = PhotoDecode::open(file, 4096);
    if (!opened) {
        std::fprintf(stderr, "%s\n", opened.error().message.c_str());
        return;
    }
    const Rect crop = middle(*opened);
    std::vector<Column> columns{
        {"full decode", [&] { decodeFully(file); }},
        {"open 4096", [&] { (void)PhotoDecode::open(file, 4096); }},
        {"whole 2048", [&] { (void)opened->whole(2048); }},
        {"face of 4096", [&] { (void)opened->region(4096, 1200, 800, 1500, 1500); }},
        {"whole 4096", [&] { (void)opened->whole(4096); }},
        {"crop region", [&] { (void)decodeRegion(file, crop, 0.6); }},
    };
    for (int round = 0; round < rounds; ++round)
        for (Column& column : columns) column.times.push_back(milliseconds(column.work));
    std::printf("%s, %d x %d\n", file.filename().c_str(), opened->sourceWidth(),
                opened->sourceHeight());
    const double floor = columns[0].median();
    for (Column& column : columns)
        std::printf("  %-14s %7.1f ms  %5.2f\n", column.name, column.median(),
                    column.median() / floor);
    std::printf("  %-14s %7.1f ms  %5.2f\n", "open + whole",
                columns[1].median() + columns[2].median(),
                (columns[1].median() + columns[2].median()) / floor);
}

}  // namespace

int main(int count, char** arguments) {
    std::vector<std::filesystem::path> files(arguments + 1, arguments + count);
    const char* folder = std::getenv("MORVA_TEST_DATA");
    if (files.empty() && folder) {
        for (const char* name :
             {"pif-kevin-luo.jpg", "pif-rajni-aneja.jpg", "woman-bar-boards.jpg"})
            files.push_back(std::filesystem::path(folder) / "portraits" / name);
    }
    if (files.empty()) {
        std::fprintf(stderr, "usage: decode_bench FILE.jpg... (or set MORVA_TEST_DATA)\n");
        return 2;
    }
    for (const auto& file : files) measure(file);
    return 0;
}
