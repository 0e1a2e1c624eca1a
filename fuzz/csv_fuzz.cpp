// SPDX-License-Identifier: GPL-3.0-or-later
// The reports, over file names and texts from anywhere: a reader of comma-separated text gets the
// cells that were written, and no cell with a text from outside is a formula to a spreadsheet.
#include <algorithm>
#include <cstdlib>

#include <fuzzer/FuzzedDataProvider.h>

#include "output/csv_text.h"
#include "output/export_report.h"
#include "output/review_list.h"

namespace {

using namespace morva;
using Cells = std::vector<std::string>;

/// The lines of a file, read as its format is defined and not as our writer happens to write it.
std::vector<Cells> parsed(std::string_view text) {
    std::vector<Cells> lines{{""}};
    bool inQuotes = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string& cell = lines.back().back();
        const bool doubled = inQuotes && text.substr(i, 2) == "\"\"";
        if (doubled) ++i;
        if (text[i] == '"' && !doubled) {
            inQuotes = !inQuotes;
        } else if (text[i] == ',' && !inQuotes) {
            lines.back().emplace_back();
        } else if (text[i] == '\n' && !inQuotes) {
            lines.push_back({""});
        } else {
            cell += text[i];
        }
    }
    if (inQuotes || lines.back() != Cells{""}) std::abort();
    lines.pop_back();
    return lines;
}

bool isFormula(std::string_view cell) {
    return !cell.empty() && std::string_view("=+-@\t\r\n").find(cell[0]) != std::string_view::npos;
}

/// `cell` as it was written, but for the apostrophe of the guard and for bytes that are no text.
void expectText(const std::string& cell, const std::string& written) {
    if (isFormula(cell)) std::abort();
    const bool isText = std::ranges::all_of(written, [](char c) { return c >= ' ' && c < 127; });
    if (isText && cell != (isFormula(written) ? "'" + written : written)) std::abort();
}

void checkLines(FuzzedDataProvider& input) {
    Cells cells;
    while (input.remaining_bytes() > 0 && cells.size() < 12)
        cells.push_back(input.ConsumeRandomLengthString());
    if (cells.empty()) return;
    // A line of one empty cell cannot be told from an empty line, whatever writes it.
    if (parsed(Csv::line(cells) + "\n") != std::vector<Cells>{cells}) std::abort();
    if (parsed(Csv::quotedLine(cells) + "\n") != std::vector<Cells>{cells}) std::abort();
}

void checkReviewList(FuzzedDataProvider& input) {
    ReviewList::Item item;
    item.file = input.ConsumeRandomLengthString();
    item.status = input.ConsumeRandomLengthString();
    item.issues = {input.ConsumeRandomLengthString()};
    if (input.ConsumeBool()) {
        item.canvas = CanvasShortfall{input.ConsumeFloatingPoint<double>(),
                                      input.ConsumeFloatingPoint<double>(), 3, 4};
        item.size = Size{input.ConsumeFloatingPoint<double>(), 5000};
    }
    const auto lines = parsed(ReviewList::csv(std::vector{item}));
    if (lines.size() != 2 || lines[1].size() != lines[0].size()) std::abort();
    expectText(lines[1][0], item.file.filename().string());
    expectText(lines[1][1], item.file.parent_path().string());
    expectText(lines[1][2], item.status);
    expectText(lines[1][3], item.issues[0]);
    expectText(lines[1].back(), item.file.string());
}

void checkExportReport(FuzzedDataProvider& input) {
    ExportReport::Row row;
    row.file = input.ConsumeRandomLengthString();
    row.preset = input.ConsumeRandomLengthString();
    if (input.ConsumeBool()) row.skipped = input.ConsumeRandomLengthString();
    row.status = input.ConsumeRandomLengthString();
    row.confidence = input.ConsumeFloatingPoint<double>();
    if (input.ConsumeBool()) {
        row.metrics = CropMetrics{.faceScale = input.ConsumeFloatingPoint<double>()};
        row.metrics->headroom = input.ConsumeFloatingPoint<double>();
    }
    row.reasons = {input.ConsumeRandomLengthString()};
    const auto lines = parsed(ExportReport::csv(std::vector{row}, 3));
    if (lines.size() != 3 || lines[1].size() != lines[0].size() || lines[2].size() != 9)
        std::abort();
    expectText(lines[1][0], row.file);
    if (row.skipped) return expectText(lines[1][1], "skipped: " + *row.skipped);
    expectText(lines[1][1], row.preset);
    expectText(lines[1][2], row.status);
    expectText(lines[1][8], row.reasons[0]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    switch (input.ConsumeIntegralInRange(0, 2)) {
        case 0:
            checkLines(input);
            break;
        case 1:
            checkReviewList(input);
            break;
        default:
            checkExportReport(input);
    }
    return 0;
}
