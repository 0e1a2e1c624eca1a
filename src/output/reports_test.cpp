// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "output/csv_text.h"
#include "output/export_report.h"
#include "output/review_list.h"

namespace morva {
namespace {

TEST(ExportReport, tellsWhatBecameOfEveryPhoto) {
    CropMetrics metrics;
    metrics.faceScale = 0.21664;
    metrics.eyeLine = 0.3261;
    metrics.headroom = -0.01234;
    const std::vector<ExportReport::Row> rows{
        {"Anna, 3b.jpg",
         "Headshot \"4x5\"",
         {},
         "Review",
         0.876,
         metrics,
         true,
         {"Low confidence", "Needs more canvas"}},
        {"b.jpg", "Headshot", "Could not read b.jpg.", {}, 0, {}, false, {}},
    };
    EXPECT_EQ(ExportReport::csv(rows, 2),
              "file,preset,status,confidence,face scale,eye line,headroom,hand adjusted,reasons\n"
              "\"Anna, 3b.jpg\",\"Headshot \"\"4x5\"\"\",\"Review\",\"0.88\",\"0.2166\",\"0.3261\","
              "\"-0.0123\",\"yes\",\"Low confidence; Needs more canvas\"\n"
              "\"b.jpg\",\"skipped: Could not read b.jpg.\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\n"
              "\"(2 photos already exported with the same crop were left untouched)\","
              "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\n");
}

TEST(ReviewList, namesThePixelsThatEachSideLacks) {
    const std::vector<ReviewList::Item> items{
        {.file = "/photos/3b/Anna, 1.jpg",
         .status = "Review",
         .issues = {"Needs more canvas", "Low confidence"},
         .canvas = CanvasShortfall{.left = 0.3, .top = 120.4, .right = NAN, .bottom = 0},
         .size = Size{4000, 6000}},
        {.file = "b.jpg", .status = "Couldn't analyze", .issues = {}, .canvas = {}, .size = {}},
    };
    EXPECT_EQ(ReviewList::csv(items),
              "File,Folder,Status,Issues,Add Top (px),Add Bottom (px),Add Left (px),"
              "Add Right (px),Width (px),Height (px),Full Path\n"
              "\"Anna, 1.jpg\",/photos/3b,Review,Needs more canvas; Low confidence,120,,,,4000,"
              "6000,\"/photos/3b/Anna, 1.jpg\"\n"
              "b.jpg,,Couldn't analyze,,,,,,,,b.jpg\n");
}

TEST(CsvCell, neverBecomesAFormulaOrBreaksTheFile) {
    struct Case {
        const char* text;
        const char* cell;
    };
    for (const Case& c :
         {Case{"=HYPERLINK(\"x\").jpg", "'=HYPERLINK(\"x\").jpg"}, Case{"+49.jpg", "'+49.jpg"},
          Case{"-1.jpg", "'-1.jpg"}, Case{"@home.jpg", "'@home.jpg"}, Case{"\t=1", "'\t=1"},
          Case{"a=1.jpg", "a=1.jpg"}, Case{"Zo\xc3\xab.jpg", "Zo\xc3\xab.jpg"},
          Case{"caf\xe9.jpg", "caf\xef\xbf\xbd.jpg"}, Case{"", ""}})
        EXPECT_EQ(Csv::cell(c.text), c.cell);
    const std::vector<std::string> fields{"two\nlines", "a\"b", "plain"};
    EXPECT_EQ(Csv::line(fields), "\"two\nlines\",\"a\"\"b\",plain");
}

}  // namespace
}  // namespace morva
