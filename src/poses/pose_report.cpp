// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/pose_report.h"

namespace morva {

void to_json(Json& json, const PoseReport& report) {
    json = {{"positives", report.positives},           {"negatives", report.negatives},
            {"precision", report.precision},           {"recall", report.recall},
            {"threshold", report.threshold},           {"verdict", report.verdict},
            {"falsePositives", report.falsePositives}, {"falseNegatives", report.falseNegatives}};
}

void from_json(const Json& json, PoseReport& report) {
    report.positives = required<int>(json, "positives");
    report.negatives = required<int>(json, "negatives");
    report.precision = required<double>(json, "precision");
    report.recall = required<double>(json, "recall");
    report.threshold = required<double>(json, "threshold");
    report.verdict = required<std::string>(json, "verdict");
    report.falsePositives = required<std::vector<int>>(json, "falsePositives");
    report.falseNegatives = required<std::vector<int>>(json, "falseNegatives");
}

}  // namespace morva
