// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/resample.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <zimg.h>
#include <opencv2/core.hpp>

#include "imaging/canvas_rows.h"
#include "imaging/lanczos.h"

namespace morva {

namespace {

/// Row starts must lie on this many bytes for the widest instructions.
constexpr std::size_t rowAlignment = 64;

struct FreeGraph {
    void operator()(zimg_filter_graph* graph) const { zimg_filter_graph_free(graph); }
};
using Graph = std::unique_ptr<zimg_filter_graph, FreeGraph>;

struct FreeBytes {
    void operator()(std::uint8_t* bytes) const { std::free(bytes); }
};
using AlignedBytes = std::unique_ptr<std::uint8_t[], FreeBytes>;

std::size_t rounded(std::size_t size) {
    return (size + rowAlignment - 1) / rowAlignment * rowAlignment;
}

AlignedBytes alignedBytes(std::size_t size) {
    void* bytes = std::aligned_alloc(rowAlignment, rounded(std::max(size, rowAlignment)));
    if (!bytes) throw std::bad_alloc();
    return AlignedBytes(static_cast<std::uint8_t*>(bytes));
}

/// Three planes that hold only the rows the filters look at; row y lies where row y & mask does.
class RowRing {
public:
    RowRing(int width, int height, unsigned rows)
        : stride_(rounded(static_cast<std::size_t>(width))),
          mask_(zimg_select_buffer_mask(rows)),
          planeBytes_(stride_ *
                      (mask_ == ZIMG_BUFFER_MAX ? static_cast<std::size_t>(height) : mask_ + 1)),
          bytes_(alignedBytes(planeBytes_ * 3)) {}

    std::uint8_t* row(std::size_t plane, unsigned y) const {
        return bytes_.get() + plane * planeBytes_ + (y & mask_) * stride_;
    }

    template <class Buffer>
    Buffer buffer() const {
        Buffer buffer{};
        buffer.version = ZIMG_API_VERSION;
        for (std::size_t plane = 0; plane < 3; ++plane) {
            buffer.plane[plane].data = row(plane, 0);
            buffer.plane[plane].stride = static_cast<std::ptrdiff_t>(stride_);
            buffer.plane[plane].mask = mask_;
        }
        return buffer;
    }

    /// The three planes of a piece of one row.
    std::array<cv::Mat, 3> piece(unsigned y, unsigned left, unsigned right) const {
        std::array<cv::Mat, 3> planes;
        for (std::size_t plane = 0; plane < 3; ++plane)
            planes[plane] =
                cv::Mat(1, static_cast<int>(right - left), CV_8UC1, row(plane, y) + left);
        return planes;
    }

private:
    std::size_t stride_;
    unsigned mask_;
    std::size_t planeBytes_;
    AlignedBytes bytes_;
};

/// The whole pixels of the canvas that the filter reads.
struct Window {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

Window windowAround(const Rect& region, int width, int height) {
    const int marginX = Lanczos::margin(region.width / width);
    const int marginY = Lanczos::margin(region.height / height);
    Window window;
    window.left = static_cast<int>(std::floor(region.x)) - marginX;
    window.top = static_cast<int>(std::floor(region.y)) - marginY;
    window.width = static_cast<int>(std::ceil(region.maxX())) + marginX - window.left;
    window.height = static_cast<int>(std::ceil(region.maxY())) + marginY - window.top;
    return window;
}

zimg_image_format format(int width, int height) {
    zimg_image_format format;
    zimg_image_format_default(&format, ZIMG_API_VERSION);
    format.width = static_cast<unsigned>(width);
    format.height = static_cast<unsigned>(height);
    format.pixel_type = ZIMG_PIXEL_BYTE;
    format.color_family = ZIMG_COLOR_RGB;
    format.matrix_coefficients = ZIMG_MATRIX_RGB;
    format.pixel_range = ZIMG_RANGE_FULL;
    return format;
}

Graph scalingGraph(const Window& window, const Rect& region, int width, int height) {
    zimg_image_format source = format(window.width, window.height);
    source.active_region.left = region.x - window.left;
    source.active_region.top = region.y - window.top;
    source.active_region.width = region.width;
    source.active_region.height = region.height;
    const zimg_image_format target = format(width, height);
    zimg_graph_builder_params params;
    zimg_graph_builder_params_default(&params, ZIMG_API_VERSION);
    params.resample_filter = ZIMG_RESIZE_LANCZOS;
    params.filter_param_a = Lanczos::lobes;
    // Not the 64-byte kind: its 512-bit code writes wrong columns at some widths (113 to 48
    // pixels).
    params.cpu_type = ZIMG_CPU_AUTO;
    return Graph(zimg_filter_graph_build(&source, &target, &params));
}

/// What the two row functions below share with the filter graph.
struct RowStream {
    const CanvasRows& canvas;
    const Window& window;
    const RowRing& source;
    const RowRing& target;
    Picture& output;
    std::vector<std::uint8_t> scratch;
};

/// Puts one row of the canvas into the source planes. Not 0 on failure: no exception may pass
/// through the library.
int readRow(void* user, unsigned y, unsigned left, unsigned right) try {
    auto& stream = *static_cast<RowStream*>(user);
    const int x = stream.window.left + static_cast<int>(left);
    const int count = static_cast<int>(right - left);
    const std::uint8_t* pixels =
        stream.canvas.row(stream.window.top + static_cast<int>(y), x, x + count, stream.scratch);
    std::array<cv::Mat, 3> planes = stream.source.piece(y, left, right);
    cv::split(cv::Mat(1, count, CV_8UC3, const_cast<std::uint8_t*>(pixels)), planes.data());
    return 0;
} catch (...) {
    return 1;
}

int writeRow(void* user, unsigned y, unsigned left, unsigned right) try {
    auto& stream = *static_cast<RowStream*>(user);
    cv::Mat pixels(1, static_cast<int>(right - left), CV_8UC3,
                   stream.output.pixel(static_cast<int>(left), static_cast<int>(y)));
    cv::merge(stream.target.piece(y, left, right).data(), 3, pixels);
    return 0;
} catch (...) {
    return 1;
}

tl::unexpected<Failure> scalingFailure() {
    std::array<char, 256> text{};
    zimg_get_last_error(text.data(), text.size());
    zimg_clear_last_error();
    return failure("Could not scale the picture: " + std::string(text.data()) + ".");
}

}  // namespace

Result<Picture> resampled(const Picture& picture, const Rect& region, int width, int height) {
    return resampled(picture, region, Surroundings{}, width, height);
}

Result<Picture> resampled(const Picture& picture, const Rect& region,
                          const Surroundings& surroundings, int width, int height) try {
    if (picture.isEmpty() || !Lanczos::isFeasible(region, width, height))
        return failure("Could not scale the picture: the region or the size is out of range.");
    const Window window = windowAround(region, width, height);
    const Graph graph = scalingGraph(window, region, width, height);
    if (!graph) return scalingFailure();

    unsigned rowsRead = 0;
    unsigned rowsWritten = 0;
    std::size_t workBytes = 0;
    zimg_filter_graph_get_input_buffering(graph.get(), &rowsRead);
    zimg_filter_graph_get_output_buffering(graph.get(), &rowsWritten);
    zimg_filter_graph_get_tmp_size(graph.get(), &workBytes);
    const AlignedBytes work = alignedBytes(workBytes);
    const RowRing source(window.width, window.height, rowsRead);
    const RowRing target(width, height, rowsWritten);
    Picture output(width, height);
    const CanvasRows canvas(picture, surroundings);
    RowStream stream{canvas, window, source, target, output, {}};
    const auto from = source.buffer<zimg_image_buffer_const>();
    const auto to = target.buffer<zimg_image_buffer>();
    if (zimg_filter_graph_process(graph.get(), &from, &to, work.get(), readRow, &stream, writeRow,
                                  &stream) != ZIMG_ERROR_SUCCESS)
        return scalingFailure();
    return output;
} catch (const std::bad_alloc&) {
    return failure("Could not scale the picture: not enough memory.");
}

}  // namespace morva
