// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/pose_flow.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "analysis/image_loader.h"
#include "app/alert_texts.h"
#include "app/app_state.h"
#include "crop/subject_grouping.h"
#include "poses/pose_features.h"

namespace morva {

namespace {

/// Between two pieces of news of a bar.
constexpr int newsEvery = 8;

/// The number of each photo's group, so that one child never stands on both sides of a comparison.
std::vector<int> groupNumbers(const Job& job) {
    std::vector<const ImageAnalysis*> photos;
    std::vector<std::string> cameras;
    for (const ImageItem& item : job.items) {
        photos.push_back(item.analysis ? &*item.analysis : nullptr);
        cameras.push_back(SubjectGrouping::cameraKey(item.url));
    }
    return SubjectGrouping::groupNumbers(photos, cameras);
}

bool canBeLearnedFrom(const ImageItem& item) {
    return item.analysis && !item.analysis->detectionFailed && !item.analysis->faces.empty();
}

/// The stored analysis of a photo gets the tags too, for the next job that imports it.
void rememberTags(const AnalysisCache& cache, const std::filesystem::path& photo,
                  const std::vector<std::string>& tags) {
    const auto made = ImageLoader::fileSignature(photo);
    auto stored = cache.load(photo);
    if (!made || !stored || stored->tags == tags) return;
    stored->tags = tags;
    static_cast<void>(cache.store(*stored, photo, *made));
}

/// So many of the list, evenly spread.
template <class T>
std::vector<T> thinned(std::vector<T> all, std::size_t most) {
    if (all.size() <= most) return all;
    std::vector<T> kept;
    for (std::size_t i = 0; i < most; ++i) kept.push_back(all[i * all.size() / most]);
    return kept;
}

}  // namespace

/// What a training works on, taken from the job when it begins.
struct PoseFlow::Lesson {
    struct Photo {
        std::string id;
        Path file;
        ImageAnalysis record;
        int group = 0;
    };
    std::string tag;
    std::vector<Photo> examples;
    std::vector<Photo> others;

    std::vector<Path> files() const {
        std::vector<Path> all;
        for (const auto* part : {&examples, &others})
            for (const Photo& photo : *part) all.push_back(photo.file);
        return all;
    }

    /// Drops the photos without a print and trains on the rest.
    tl::expected<PoseTrainer::Result, std::string> train(
        std::vector<std::optional<PrintCache::Print>> prints) {
        auto collect = [&, at = prints.begin()](std::vector<Photo>& photos) mutable {
            std::vector<Photo> kept;
            std::pair<PoseTrainer::Prints, std::vector<int>> part;
            for (Photo& photo : photos) {
                auto& print = *at++;
                if (!print) continue;
                part.first.push_back(PoseFeatures::of(std::move(*print), photo.record));
                part.second.push_back(photo.group);
                kept.push_back(std::move(photo));
            }
            photos = std::move(kept);
            return part;
        };
        const auto [positives, positiveGroups] = collect(examples);
        const auto [negatives, negativeGroups] = collect(others);
        return PoseTrainer::train(tag, positives, negatives, positiveGroups, negativeGroups,
                                  secondsNow())
            .map_error([](const PoseTrainer::TrainingError& error) { return error.message(); });
    }
};

/// A photo whose tags were looked for.
struct PoseFlow::Found {
    Uuid job;
    std::string id;
    Path file;
    ImageAnalysis record;
    std::optional<std::vector<std::string>> tags;

    static std::vector<Path> filesOf(const std::vector<Found>& photos) {
        std::vector<Path> files;
        files.reserve(photos.size());
        for (const Found& photo : photos) files.push_back(photo.file);
        return files;
    }
};

PoseFlow::PoseFlow(AppState& state) : state_(state), prints_(state.services().folders.cache) {
    connect(&state_, &AppState::taskEnded, this, [this] {
        if (std::exchange(looksLater_, false)) lookForPoses();
    });
}

void PoseFlow::begin() {
    const WorkingJob* job = state_.selectedJob();
    if (!job || !state_.mayChange()) return;
    isShown_ = true;
    examples_ = std::set<std::string>(state_.selection().begin(), state_.selection().end());
    name_.clear();
    presetID_ = JobSolver::fallbackPreset(job->job(), state_.presets()).id;
    outcome_.reset();
    error_.clear();
    emit changed();
}

void PoseFlow::dismiss() {
    cancel();
    isShown_ = false;
    emit changed();
}

void PoseFlow::toggleExample(const std::string& itemID) {
    if (!examples_.erase(itemID)) examples_.insert(itemID);
    outcome_.reset();
    emit changed();
}

void PoseFlow::setName(const std::string& name) {
    name_ = name;
    emit changed();
}

void PoseFlow::setPreset(const Uuid& preset) {
    presetID_ = preset;
    emit changed();
}

void PoseFlow::fail(const std::string& reason) {
    error_ = reason;
    emit changed();
}

PoseFlow::Lesson PoseFlow::lesson(const WorkingJob& job) const {
    const std::vector<int> groups = groupNumbers(job.job());
    Lesson lesson{.tag = name_, .examples = {}, .others = {}};
    for (std::size_t i = 0; i < job.job().items.size(); ++i) {
        const ImageItem& item = job.item(i);
        if (!canBeLearnedFrom(item)) continue;
        auto& part = examples_.contains(item.id) ? lesson.examples : lesson.others;
        part.push_back({item.id, item.url, *item.analysis, groups[i]});
    }
    lesson.others = thinned(std::move(lesson.others), mostOthers);
    return lesson;
}

void PoseFlow::train() {
    using Reason = PoseTrainer::TrainingError::Reason;
    const WorkingJob* job = state_.selectedJob();
    if (!job || isBusy() || !state_.mayChange()) return;
    outcome_.reset();
    error_.clear();
    if (name_.empty()) return fail("Give the pose a name.");
    Lesson wanted = lesson(*job);
    const auto tooFew = [&](Reason reason, std::size_t have, int need) {
        const PoseTrainer::TrainingError error{reason, static_cast<int>(have), need};
        if (error.have < need) fail(error.message());
        return error.have < need;
    };
    if (tooFew(Reason::tooFewExamples, wanted.examples.size(), PoseTrainer::fewestExamples) ||
        tooFew(Reason::tooFewCounterExamples, wanted.others.size(), PoseTrainer::fewestOthers))
        return;

    learn(std::move(wanted));
}

void PoseFlow::learn(Lesson wanted) {
    stop_ = std::make_shared<std::atomic<bool>>(false);
    const int total = static_cast<int>(wanted.examples.size() + wanted.others.size());
    progress_ = ProcessingProgress{.title = "Learning " + name_, .completed = 0, .total = total};
    emit changed();
    const auto tick = [this, news = state_.background().mainThread()](int done) {
        if (done % newsEvery != 0) return;
        news([this, done] {
            if (progress_) progress_->completed = done;
            emit changed();
        });
    };
    state_.background().run(
        [wanted = std::move(wanted), tick, stop = stop_, prints = prints_,
         print = state_.services().featurePrint,
         threads = state_.services().concurrency]() mutable {
            auto made = prints.printsOf(wanted.files(), {print, threads, *stop, tick});
            tl::expected<PoseTrainer::Result, std::string> result = tl::unexpected(std::string());
            if (!*stop) result = wanted.train(std::move(made));
            return std::pair(std::move(wanted), std::move(result));
        },
        [this, stop = stop_](auto done) {
            // One that was cancelled is nobody's any more.
            if (stop == stop_) learned(std::move(done.first), std::move(done.second));
        });
}

void PoseFlow::learned(Lesson lesson, tl::expected<PoseTrainer::Result, std::string> result) {
    stop_.reset();
    progress_.reset();
    if (!result) return fail(result.error());
    Outcome outcome{.model = std::move(result->model),
                    .report = std::move(result->report),
                    .missed = {},
                    .wrong = {}};
    for (const int place : outcome.report.falseNegatives)
        outcome.missed.push_back(lesson.examples[static_cast<std::size_t>(place)].id);
    for (const int place : outcome.report.falsePositives)
        outcome.wrong.push_back(lesson.others[static_cast<std::size_t>(place)].id);
    outcome_ = std::move(outcome);
    emit changed();
}

void PoseFlow::cancel() {
    if (!stop_) return;
    *stop_ = true;
    stop_.reset();
    progress_.reset();
    emit changed();
}

void PoseFlow::keep() {
    if (!outcome_ || !presetID_ || !state_.mayChange()) return;
    const auto kept = PoseStore(state_.services().folders.data).put(outcome_->model);
    if (!kept) return state_.showAlert(AlertTexts::posesNotSaved(kept.error().message));
    state_.addRule({.id = Uuid::random(),
                    .condition = {RuleCondition::Tag{outcome_->model.tag}},
                    .presetID = *presetID_,
                    .enabled = true});
    dismiss();
    lookForPoses();
}

void PoseFlow::lookForPoses() {
    state_.services().posesChanged();
    looksLater_ = state_.isBusy();
    if (looksLater_) return;
    std::vector<Found> photos;
    for (const auto& job : state_.jobs())
        for (const ImageItem& item : job->job().items)
            if (canBeLearnedFrom(item))
                photos.push_back({job->id(), item.id, item.url, *item.analysis, {}});
    const StopFlag stop = std::make_shared<std::atomic<bool>>(false);
    if (photos.empty() || !state_.beginTask("Looking for poses", [stop] { *stop = true; })) return;
    const auto tick = [this, news = state_.background().mainThread(),
                       total = static_cast<int>(photos.size())](int done) {
        if (done % newsEvery == 0) news([this, done, total] { state_.taskProgress(done, total); });
    };
    state_.background().run(
        [photos, tick, stop, prints = prints_, print = state_.services().featurePrint,
         threads = state_.services().concurrency, cache = state_.cache(),
         folder = state_.services().folders.data]() mutable {
            const auto classifier = TagClassifier::loadDefault(folder);
            std::vector<std::optional<PrintCache::Print>> made;
            // Without a pose there is nothing that a print could be told by.
            if (classifier)
                made = prints.printsOf(Found::filesOf(photos), {print, threads, *stop, tick});
            for (std::size_t i = 0; i < photos.size() && !*stop; ++i) {
                if (classifier && !made[i]) continue;
                photos[i].tags.emplace();
                if (classifier)
                    photos[i].tags =
                        classifier->tags(PoseFeatures::of(std::move(*made[i]), photos[i].record));
                rememberTags(cache, photos[i].file, *photos[i].tags);
            }
            return photos;
        },
        [this](const std::vector<Found>& found) {
            tagsFound(found);
            state_.endTask();
        });
}

void PoseFlow::tagsFound(const std::vector<Found>& found) {
    std::unordered_map<Uuid, std::vector<std::size_t>> changed;
    for (const Found& photo : found) {
        WorkingJob* job = state_.editable(photo.job);
        const auto index = job ? job->indexOf(photo.id) : std::nullopt;
        if (!index || !photo.tags || !job->item(*index).analysis) continue;
        auto& tags = job->itemToChange(*index).analysis->tags;
        if (tags == *photo.tags) continue;
        tags = *photo.tags;
        changed[photo.job].push_back(*index);
    }
    for (const auto& [id, indices] : changed) state_.analysesChanged(*state_.editable(id), indices);
}

std::vector<TagClassifier::Model> PoseFlow::taught() const {
    return PoseStore(state_.services().folders.data).load();
}

void PoseFlow::removePose(const std::string& tag) {
    if (!state_.mayChange()) return;
    const auto removed = PoseStore(state_.services().folders.data).remove(tag);
    if (!removed) return state_.showAlert(AlertTexts::posesNotSaved(removed.error().message));
    state_.removeRules({RuleCondition::Tag{tag}});
    lookForPoses();
}

bool PoseFlow::addPack(const Path& pack) {
    if (!state_.mayChange()) return false;
    const auto models = PoseStore::read(pack);
    if (!models || models->empty()) {
        state_.showAlert(AlertTexts::notAPosePack(pack));
        return false;
    }
    const PoseStore store(state_.services().folders.data);
    for (TagClassifier::Model model : *models) {
        model.origin = pack.filename().string();
        if (const auto kept = store.put(model); !kept) {
            state_.showAlert(AlertTexts::posesNotSaved(kept.error().message));
            return false;
        }
    }
    lookForPoses();
    return true;
}

bool PoseFlow::savePack(const Path& pack,
                        const std::optional<std::vector<std::string>>& tags) const {
    const auto written = PoseStore(state_.services().folders.data).write(pack, tags);
    if (!written) state_.showAlert(AlertTexts::posesNotSaved(written.error().message));
    return written.has_value();
}

}  // namespace morva
