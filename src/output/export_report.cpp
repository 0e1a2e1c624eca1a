// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/export_report.h"

#include <array>

#include "base/files.h"
#include "output/csv_text.h"

namespace morva {

namespace ExportReport {

namespace {

constexpr const char* header =
    "file,preset,status,confidence,face scale,eye line,headroom,hand adjusted,reasons";
using Fields = std::array<std::string, 9>;

/// Confidence is an estimate; positions decide over pixels.
constexpr int confidenceDecimals = 2;
constexpr int shareDecimals = 4;

Fields fieldsOf(const Row& row) {
    if (row.skipped) return {Csv::cell(row.file), Csv::cell("skipped: " + *row.skipped)};
    Fields fields{Csv::cell(row.file), Csv::cell(row.preset), Csv::cell(row.status),
                  Csv::number(row.confidence, confidenceDecimals)};
    if (row.metrics) {
        fields[4] = Csv::number(row.metrics->faceScale, shareDecimals);
        fields[5] = Csv::number(row.metrics->eyeLine, shareDecimals);
        if (row.metrics->headroom) fields[6] = Csv::number(*row.metrics->headroom, shareDecimals);
    }
    fields[7] = row.handAdjusted ? "yes" : "no";
    fields[8] = Csv::cell(joinedTitles(row.reasons));
    return fields;
}

}  // namespace

std::string csv(std::span<const Row> rows, int untouched) {
    std::string text = std::string(header) + "\n";
    for (const Row& row : rows) text += Csv::quotedLine(fieldsOf(row)) + "\n";
    if (untouched > 0) {
        text += Csv::quotedLine(
                    Fields{"(" + std::to_string(untouched) +
                           " photos already exported with the same crop were left untouched)"}) +
                "\n";
    }
    return text;
}

Result<void> write(const std::filesystem::path& file, std::span<const Row> rows, int untouched) {
    return replaceFile(file, csv(rows, untouched));
}

}  // namespace ExportReport

std::string joinedTitles(std::span<const std::string> titles) {
    std::string text;
    for (const std::string& title : titles) {
        if (!text.empty()) text += "; ";
        text += title;
    }
    return text;
}

}  // namespace morva
