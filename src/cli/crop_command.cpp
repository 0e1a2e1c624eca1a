// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/crop_command.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <set>

#include "cli/crop_batch.h"
#include "cli/interruption.h"
#include "cli/ordered_workers.h"
#include "cli/photo_list.h"
#include "cli/photo_outcome.h"
#include "cli/preset_catalog.h"
#include "output/exporter.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

/// A run that cannot begin: why, and with which code it ends.
struct Refusal {
    ExitCode code;
    std::string message;
};
template <class T>
using Checked = tl::expected<T, Refusal>;

tl::unexpected<Refusal> refused(ExitCode code, std::string message) {
    return tl::unexpected<Refusal>({code, std::move(message)});
}

template <class T>
Checked<T> readable(Result<T> result) {
    return std::move(result).map_error([](const Failure& failure) {
        return Refusal{ExitCode::inputUnreadable, failure.message};
    });
}

Checked<CropPreset> presetOf(const CropArguments& crop, const Arguments& common) {
    auto preset = readable(PresetCatalog::open(common.dataFolder).and_then([&](const auto& all) {
        return all.find(crop.preset);
    }));
    if (preset && !RatioCheck::passes(*preset)) {
        return refused(ExitCode::inputUnreadable, std::string(RatioCheck::alertTitle) + ": " +
                                                      RatioCheck::alertMessage(*preset));
    }
    return preset;
}

/// Folders of photos are never written into, whatever else is asked for. The folders of all files
/// count, not only the one above them: the name of a sub-folder can lead back to the photos.
Checked<void> apartFromSources(const fs::path& folder,
                               const std::map<fs::path, fs::path>& destinations,
                               const PhotoList& list) {
    std::set<fs::path> written{folder};
    for (const auto& [photo, file] : destinations) written.insert(file.parent_path());
    for (const fs::path& source : list.sourceFolders) {
        for (const fs::path& place : written) {
            if (!Exporter::isContained(place, source)) continue;
            return refused(ExitCode::outputUnwritable,
                           ExportError{.kind = ExportError::Kind::destinationIsSource}.message());
        }
    }
    return {};
}

/// Makes the folder and marks it, so that its pictures are never taken for photos.
Checked<void> readyToWrite(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (!error && access(folder.c_str(), W_OK | X_OK) != 0)
        error = std::error_code(errno, std::generic_category());
    if (error) {
        return refused(ExitCode::outputUnwritable,
                       "Could not write into " + folder.string() + ": " + error.message() + ".");
    }
    if (const auto marked = Exporter::markExportFolder(folder); !marked)
        return refused(ExitCode::outputUnwritable, marked.error().message);
    return {};
}

/// Sets where everything goes, after checking that it may; makes the folders unless nothing is to
/// be written.
Checked<void> placed(CropBatch& batch, const CropArguments& crop, const PhotoList& list) {
    if (crop.overlay && Exporter::canonicalPath(*crop.overlay) == Exporter::canonicalPath(crop.out))
        return refused(ExitCode::usage, "The guides need a folder of their own (--overlay).");
    batch.destinations = Exporter::destinationURLs(list.photos, list.root, crop.out);
    auto checked = apartFromSources(crop.out, batch.destinations, list);
    if (checked && crop.overlay) {
        batch.overlays = Exporter::destinationURLs(list.photos, list.root, *crop.overlay);
        checked = apartFromSources(*crop.overlay, batch.overlays, list);
    }
    if (checked && !crop.dryRun) checked = readyToWrite(crop.out);
    if (checked && !crop.dryRun && crop.overlay) checked = readyToWrite(*crop.overlay);
    return checked;
}

Checked<CropBatch> prepared(const CropArguments& crop, const Arguments& common) {
    const auto preset = presetOf(crop, common);
    if (!preset) return tl::unexpected(preset.error());
    const auto list = readable(PhotoList::of(crop.inputs));
    if (!list) return tl::unexpected(list.error());
    CropBatch batch{.photos = list->photos,
                    .preset = *preset,
                    .approve = crop.approve,
                    .force = crop.force,
                    .dryRun = crop.dryRun,
                    .destinations = {},
                    .overlays = {},
                    .vision = {}};
    if (const auto ready = placed(batch, crop, *list); !ready) return tl::unexpected(ready.error());
    auto vision = readable(VisionServices::open(VisionServices::modelFolder(), common.cacheFolder));
    if (!vision) return tl::unexpected(vision.error());
    batch.vision = std::move(*vision);
    return batch;
}

void tell(const PhotoOutcome& outcome, const CropArguments& crop, const CropBatch& batch,
          Console& console) {
    if (crop.json || crop.dryRun) {
        console.endProgress();
        std::cout << (crop.json ? jsonLine(outcomeJson(outcome, batch.preset.name))
                                : outcomeLine(outcome))
                  << std::endl;
    } else {
        console.detail(outcomeLine(outcome));
    }
}

void report(const std::vector<PhotoOutcome>& outcomes, const CropArguments& crop,
            Console& console) {
    for (const Findings& found : findings(outcomes)) {
        console.heading(found.heading);
        for (const std::string& line : found.lines)
            found.failed ? console.failure("  " + line) : console.say("  " + line);
    }
    console.say(summary(outcomes, crop.dryRun));
}

ExitCode codeOf(const std::vector<PhotoOutcome>& outcomes, bool strict) {
    const bool wrong =
        std::any_of(outcomes.begin(), outcomes.end(), [&](const PhotoOutcome& outcome) {
            return outcome.fate == Fate::fail ||
                   (strict && (outcome.fate != Fate::write || outcome.hasDoubts()));
        });
    return wrong ? ExitCode::photosFailed : ExitCode::done;
}

}  // namespace

ExitCode runCrop(const CropArguments& crop, const Arguments& common, Console& console) {
    const auto batch = prepared(crop, common);
    if (!batch) {
        console.failure(batch.error().message);
        return batch.error().code;
    }
    Interruption::watch();
    const std::size_t total = batch->photos.size();
    std::vector<PhotoOutcome> outcomes;
    outcomes.reserve(total);
    console.progress(0, total);
    inOrder(
        total, crop.jobs, Interruption::requested(),
        [&](std::size_t index) { return batch->crop(index); },
        [&](std::size_t, PhotoOutcome outcome) {
            tell(outcome, crop, *batch, console);
            outcomes.push_back(std::move(outcome));
        },
        [&](std::size_t finished) { console.progress(finished, total); });
    console.endProgress();
    report(outcomes, crop, console);
    if (outcomes.size() < total) {
        console.failure("Interrupted: " + std::to_string(total - outcomes.size()) +
                        " photos were not begun.");
        return ExitCode::interrupted;
    }
    return codeOf(outcomes, crop.strict);
}

}  // namespace morva
