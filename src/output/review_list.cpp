// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/review_list.h"

#include <array>
#include <cmath>

#include "output/csv_text.h"
#include "output/export_report.h"

namespace morva::ReviewList {

namespace {

constexpr const char* header =
    "File,Folder,Status,Issues,Add Top (px),Add Bottom (px),Add Left (px),Add Right (px),"
    "Width (px),Height (px),Full Path";

/// Whole pixels; empty where less than half a pixel is needed.
std::string canvas(double pixels) {
    return std::isfinite(pixels) && pixels >= CanvasShortfall::tolerance ? Csv::number(pixels, 0)
                                                                         : std::string();
}

std::string line(const Item& item) {
    const CanvasShortfall lacks = item.canvas.value_or(CanvasShortfall{});
    const auto side = [&](double Size::*length) {
        return item.size ? Csv::number(*item.size.*length, 0) : std::string();
    };
    const std::array<std::string, 11> fields{Csv::cell(item.file.filename().string()),
                                             Csv::cell(item.file.parent_path().string()),
                                             Csv::cell(item.status),
                                             Csv::cell(joinedTitles(item.issues)),
                                             canvas(lacks.top),
                                             canvas(lacks.bottom),
                                             canvas(lacks.left),
                                             canvas(lacks.right),
                                             side(&Size::width),
                                             side(&Size::height),
                                             Csv::cell(item.file.string())};
    return Csv::line(fields);
}

}  // namespace

std::string csv(std::span<const Item> items) {
    std::string text = std::string(header) + "\n";
    for (const Item& item : items) text += line(item) + "\n";
    return text;
}

}  // namespace morva::ReviewList
