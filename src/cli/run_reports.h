// SPDX-License-Identifier: GPL-3.0-or-later
// The outcomes of a run of "crop" as rows of the reports. Values only.
#pragma once

#include <string>
#include <vector>

#include "cli/photo_outcome.h"
#include "output/export_report.h"
#include "output/review_list.h"

namespace morva {

/// One row for every photo of the run.
std::vector<ExportReport::Row> exportRows(const std::vector<PhotoOutcome>& outcomes);

/// The report's and the review list's text for outcomes of a run.
std::string exportReport(const std::vector<PhotoOutcome>& outcomes);
std::string reviewList(const std::vector<PhotoOutcome>& outcomes);

/// The photos that wait on the user, written or not: all that are not ready.
std::vector<ReviewList::Item> waiting(const std::vector<PhotoOutcome>& outcomes);

}  // namespace morva
