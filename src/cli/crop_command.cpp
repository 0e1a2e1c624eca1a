// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/crop_command.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <numeric>

#include "base/files.h"
#include "cli/analyzed_photo.h"
#include "cli/backdrop_wish.h"
#include "cli/crop_batch.h"
#include "cli/interruption.h"
#include "cli/ordered_workers.h"
#include "cli/photo_list.h"
#include "cli/photo_outcome.h"
#include "cli/preset_selection.h"
#include "cli/report_part.h"
#include "cli/run_reports.h"
#include "output/exporter.h"
#include "output/matte_cutter.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

/// Everything that a run needs, read and checked before it begins.
struct Run {
    CropBatch batch;
    PresetSelection selection;
    VisionServices vision;
    /// Each photo's path below the folder that holds them all.
    std::vector<fs::path> paths;
    fs::path report;
    /// What the user should know before it begins.
    std::vector<std::string> told;
};

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

/// Folders of photos are never written into, whatever else is asked for, nor places to which a link
/// in the folder leads.
Checked<void> keepsToItself(const fs::path& folder,
                            const std::map<fs::path, fs::path>& destinations,
                            const PhotoList& list) {
    if (Exporter::wouldWriteInto(list.sourceFolders, folder, destinations)) {
        return refused(ExitCode::outputUnwritable,
                       ExportError{.kind = ExportError::Kind::destinationIsSource}.message());
    }
    if (const auto link = Exporter::folderOutside(folder, destinations))
        return refused(ExitCode::outputUnwritable, Exporter::outsideText(*link));
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
    auto checked = keepsToItself(crop.out, batch.destinations, list);
    if (checked && crop.overlay) {
        batch.overlays = Exporter::destinationURLs(list.photos, list.root, *crop.overlay);
        checked = keepsToItself(*crop.overlay, batch.overlays, list);
    }
    if (checked && !crop.dryRun) checked = readyToWrite(crop.out);
    if (checked && !crop.dryRun && crop.overlay) checked = readyToWrite(*crop.overlay);
    return checked;
}

/// The report and the list do not go among the photos either.
Checked<void> reportsPlaced(const CropArguments& crop, const PhotoList& list) {
    for (const auto& file : {crop.report, crop.reviewList}) {
        if (!file) continue;
        const fs::path folder = fs::absolute(*file).parent_path();
        if (auto apart = keepsToItself(folder, {}, list); !apart) return apart;
        std::error_code none;
        if (!fs::is_directory(folder, none) || access(folder.c_str(), W_OK | X_OK) != 0)
            return refused(ExitCode::outputUnwritable,
                           "Could not write into " + folder.string() + ".");
    }
    return {};
}

/// Gives the presets of the run the backdrop that was asked for.
Checked<std::vector<std::string>> backdropsChosen(PresetSelection& selection,
                                                  const CropArguments& crop,
                                                  const fs::path& dataFolder) {
    if (!crop.backdrop) return std::vector<std::string>();
    const auto wish = readable(BackdropWish::parse(*crop.backdrop));
    if (!wish) return tl::unexpected(wish.error());
    auto told = readable(wish->apply(selection, dataFolder));
    if (!told || crop.dryRun) return told;
    if (const auto kept = wish->remember(selection, dataFolder); !kept)
        told->push_back(kept.error().message);
    return told;
}

Checked<Run> prepared(const CropArguments& crop, const Arguments& common) {
    auto selection = readable(PresetSelection::open(crop.selection, common.dataFolder));
    if (!selection) return tl::unexpected(selection.error());
    const auto list = readable(PhotoList::of(crop.inputs));
    if (!list) return tl::unexpected(list.error());
    if (const auto ready = reportsPlaced(crop, *list); !ready) return tl::unexpected(ready.error());
    CropBatch batch{.photos = list->photos,
                    .approve = crop.approve,
                    .force = crop.force,
                    .dryRun = crop.dryRun,
                    .destinations = {},
                    .overlays = {},
                    .cutterFor = {}};
    if (const auto ready = placed(batch, crop, *list); !ready) return tl::unexpected(ready.error());
    auto told = backdropsChosen(*selection, crop, common.dataFolder);
    if (!told) return tl::unexpected(told.error());
    auto vision = readable(openDetectors(common));
    if (!vision) return tl::unexpected(vision.error());
    batch.cutterFor = [vision = *vision](const fs::path& photo, const ImageAnalysis& analysis) {
        return std::make_unique<MatteCutter>(photo, analysis.faces, vision);
    };
    std::vector<fs::path> paths;
    for (const fs::path& photo : list->photos)
        paths.push_back(Exporter::standardized(photo).lexically_relative(list->root));
    return Run{std::move(batch),
               std::move(*selection),
               std::move(*vision),
               std::move(paths),
               crop.report.value_or(crop.out / ExportReport::fileName),
               std::move(*told)};
}

/// What a run works on, and what it knows of the photos.
struct Share {
    /// One for each photo of the run; those of other shards hold what their metadata says.
    std::vector<AnalyzedPhoto> records;
    /// Which photos are to be cropped, by their index.
    std::vector<std::size_t> photos;
    /// False when an interrupt came before all photos were known.
    bool isKnown = true;
    /// Of `photos` were measured; fewer after an interrupt.
    std::size_t measured = 0;

    bool isMeasured() const { return isKnown && measured == photos.size(); }
};

/// All photos, or those of a shard. Frames of a child stay together, for the size of one depends on
/// the others.
Share shareOf(const Run& run, const CropArguments& crop) {
    const std::vector<fs::path>& photos = run.batch.photos;
    Share share{.records = std::vector<AnalyzedPhoto>(photos.size()), .photos = {}};
    if (!crop.shard) {
        share.photos.resize(photos.size());
        std::iota(share.photos.begin(), share.photos.end(), std::size_t{0});
        return share;
    }
    std::vector<const ImageAnalysis*> analyses;
    std::vector<std::string> cameras;
    const std::size_t known = inOrder(
        photos.size(), crop.jobs, Interruption::requested(),
        [&](std::size_t index) { return AnalyzedPhoto::unmeasured(photos[index]); },
        [&](std::size_t index, AnalyzedPhoto record) {
            AnalyzedPhoto& kept = share.records[index] = std::move(record);
            analyses.push_back(&kept.analysis);
            cameras.push_back(kept.camera);
        },
        [](std::size_t) {});
    share.isKnown = known == photos.size();
    constexpr double alone = -1;  // seconds, less than lies between any two photos
    share.photos = crop.shard->photosOf(
        run.paths, SubjectGrouping::groups(
                       analyses, cameras,
                       run.selection.looksAtGroups() ? SubjectGrouping::defaultGapSeconds : alone));
    return share;
}

/// The first half of the way: which preset a photo gets and which size its child has can depend on
/// any other photo.
void measure(Share& share, const Run& run, int jobs, Console& console) {
    console.beginProgress("Analysing", share.photos.size());
    share.measured = inOrder(
        share.photos.size(), jobs, Interruption::requested(),
        [&](std::size_t i) {
            return AnalyzedPhoto::of(run.batch.photos[share.photos[i]], run.vision);
        },
        [&](std::size_t i, AnalyzedPhoto record) {
            share.records[share.photos[i]] = std::move(record);
        },
        [&](std::size_t finished) { console.progress(finished); });
}

void tell(const PhotoOutcome& outcome, const CropArguments& crop, Console& console) {
    if (crop.json || crop.dryRun) {
        console.wipeProgress();
        std::cout << (crop.json ? jsonText(outcomeJson(outcome)) : outcomeLine(outcome))
                  << std::endl;
    } else {
        console.detail(outcomeLine(outcome));
    }
}

std::vector<PhotoPlan> plansOf(const Run& run, const std::vector<AnalyzedPhoto>& records) {
    std::vector<const ImageAnalysis*> analyses;
    std::vector<std::string> cameras;
    for (const AnalyzedPhoto& record : records) {
        analyses.push_back(&record.analysis);
        cameras.push_back(record.camera);
    }
    return run.selection.plan(analyses, cameras);
}

std::vector<PhotoOutcome> cropped(const Run& run, const Share& share, const CropArguments& crop,
                                  Console& console) {
    const std::vector<PhotoPlan> plans = plansOf(run, share.records);
    std::vector<PhotoOutcome> outcomes;
    outcomes.reserve(share.photos.size());
    console.beginProgress("Cropping", share.photos.size());
    inOrder(
        share.photos.size(), crop.jobs, Interruption::requested(),
        [&](std::size_t i) {
            const std::size_t index = share.photos[i];
            return run.batch.crop(index, share.records[index].analysis, plans[index]);
        },
        [&](std::size_t, PhotoOutcome outcome) {
            tell(outcome, crop, console);
            outcomes.push_back(std::move(outcome));
        },
        [&](std::size_t finished) { console.progress(finished); });
    return outcomes;
}

void report(const std::vector<PhotoOutcome>& outcomes, const CropArguments& crop, bool hasRules,
            Console& console) {
    for (const Findings& found : findings(outcomes)) {
        console.heading(found.heading);
        for (const std::string& line : found.lines)
            found.failed ? console.failure("  " + line) : console.say("  " + line);
    }
    if (hasRules) console.say(presetCounts(outcomes));
    console.say(summary(outcomes, crop.dryRun));
}

ExitCode codeOf(const std::vector<PhotoOutcome>& outcomes, bool strict) {
    const bool wrong =
        std::any_of(outcomes.begin(), outcomes.end(), [&](const PhotoOutcome& outcome) {
            return outcome.fate == Fate::fail ||
                   (strict && (outcome.fate != Fate::write || outcome.hasDoubts() ||
                               !outcome.fallbacks.empty()));
        });
    return wrong ? ExitCode::photosFailed : ExitCode::done;
}

/// The same for all shards of a run, and for no run with other photos or another outcome.
std::string identityOf(const Run& run, const CropArguments& crop) {
    std::string text = programVersion() + run.selection.description();
    text += crop.force ? " force" : "";
    text += crop.approve == Approval::ready ? " ready" : "";
    for (std::size_t i = 0; i < run.paths.size(); ++i) {
        std::error_code none;
        text += "\n" + std::to_string(fs::file_size(run.batch.photos[i], none)) + " " +
                run.paths[i].string();
    }
    return sha256(text);
}

/// Writes what `text` says of outcomes to a file, or the part of a shard beside it.
template <class Text>
Result<void> writeReport(const fs::path& file, const std::vector<PhotoOutcome>& outcomes,
                         const Text& text, const Share& share, const Run& run,
                         const CropArguments& crop) {
    if (!crop.shard) return replaceFile(file, text(outcomes));
    ReportPart part{.shard = *crop.shard, .run = identityOf(run, crop), .header = {}, .rows = {}};
    part.add(0, text({}));
    for (std::size_t i = 0; i < outcomes.size(); ++i)
        part.add(share.photos[i] + 1, text({outcomes[i]}));
    return replaceFile(ReportParts::fileOf(file, *crop.shard), part.text());
}

/// Writes the report and, where asked for, the review list. The crops stand whatever becomes of
/// them. False when one could not be written.
bool reportsWritten(const std::vector<PhotoOutcome>& outcomes, const Share& share, const Run& run,
                    const CropArguments& crop, Console& console) {
    if (crop.dryRun) return true;
    bool done = true;
    const auto write = [&](const fs::path& file, const auto& text) {
        const auto written = writeReport(file, outcomes, text, share, run, crop);
        if (!written) console.failure(written.error().message);
        done = done && written;
    };
    write(run.report, exportReport);
    if (crop.reviewList) write(*crop.reviewList, reviewList);
    return done;
}

/// Half of a shard's part would pass for the whole; a run without crops leaves the last report.
bool isToldOf(const std::vector<PhotoOutcome>& outcomes, const Share& share,
              const CropArguments& crop) {
    return crop.shard ? share.isMeasured() && outcomes.size() == share.photos.size()
                      : !outcomes.empty();
}

}  // namespace

ExitCode runCrop(const CropArguments& crop, const Arguments& common, Console& console) {
    Interruption::watch();
    const auto run = prepared(crop, common);
    if (!run) {
        console.failure(run.error().message);
        return run.error().code;
    }
    for (const std::string& sentence : run->told) console.say(sentence);
    Share share = shareOf(*run, crop);
    const std::size_t total = share.photos.size();
    if (crop.shard)
        console.say("Shard " + crop.shard->text() + ": " + std::to_string(total) + " of " +
                    std::to_string(run->paths.size()) + " photos.");
    measure(share, *run, crop.jobs, console);
    // After an interrupt the choice would rest on a part of the photos, so none is cropped.
    std::vector<PhotoOutcome> outcomes;
    if (share.isMeasured()) outcomes = cropped(*run, share, crop, console);
    console.wipeProgress();
    if (!outcomes.empty()) report(outcomes, crop, run->selection.hasRules(), console);
    const bool told =
        !isToldOf(outcomes, share, crop) || reportsWritten(outcomes, share, *run, crop, console);
    if (outcomes.size() < total || !share.isKnown) {
        console.failure(interruptionText(total, share.measured, outcomes.size()));
        return ExitCode::interrupted;
    }
    return told ? codeOf(outcomes, crop.strict) : ExitCode::outputUnwritable;
}

}  // namespace morva
