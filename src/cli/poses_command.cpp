// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/poses_command.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <set>

#include "app/app_types.h"
#include "base/json.h"
#include "cli/photo_list.h"
#include "cli/pose_photos.h"
#include "cli/preset_catalog.h"
#include "crop/rule_store.h"
#include "output/export_paths.h"
#include "poses/pose_store.h"
#include "poses/pose_trainer.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

template <class T>
Json orNull(const std::optional<T>& value) {
    return value ? Json(*value) : Json();
}

/// One run of the command; each action answers with the program's exit code.
class PosesRun {
public:
    PosesRun(const PosesArguments& poses, const Arguments& common, Console& console)
        : poses_(poses), common_(common), console_(console), store_(common.dataFolder) {}

    ExitCode list() const {
        const auto models = store_.load();
        if (poses_.json) {
            Json rows = Json::array();
            for (const auto& model : models)
                rows.push_back({{"pose", model.tag},
                                {"usable", model.isUsable()},
                                {"taughtAt", orNull(model.taughtAt)},
                                {"origin", orNull(model.origin)},
                                {"report", orNull(model.report)}});
            std::cout << jsonText(rows) << '\n';
            return ExitCode::done;
        }
        if (models.empty()) console_.say("No poses have been taught yet.");
        for (const auto& model : models) std::cout << rowOf(model) << '\n';
        return ExitCode::done;
    }

    ExitCode train() {
        auto preset = wantedPreset();
        if (!preset) return failed(preset.error());
        const auto examples = PhotoList::of(poses_.examples);
        const auto others = PhotoList::of(poses_.others);
        for (const auto* list : {&examples, &others})
            if (!*list) return failed(list->error());
        std::vector<fs::path> photos = examples->photos;
        const std::size_t ticked = photos.size();
        std::set<fs::path> known;
        for (const fs::path& photo : photos) known.insert(Exporter::standardized(photo));
        for (const fs::path& photo : others->photos)
            if (known.insert(Exporter::standardized(photo)).second) photos.push_back(photo);
        const auto measured = posePhotos(photos, poses_.jobs, common_, console_);
        if (!measured) return failed(measured.error());
        if (measured->size() < photos.size()) return ExitCode::interrupted;
        return learn(*measured, ticked, *preset);
    }

    ExitCode test() const {
        const auto list = PhotoList::of(poses_.inputs);
        if (!list) return failed(list.error());
        const auto models = usableModels();
        if (models.empty()) console_.say("No poses have been taught yet.");
        const auto photos = posePhotos(list->photos, poses_.jobs, common_, console_);
        if (!photos) return failed(photos.error());
        std::size_t unmeasured = 0;
        for (const PosePhoto& photo : *photos) {
            if (!photo.problem.empty()) ++unmeasured;
            tell(photo, models);
        }
        if (photos->size() < list->photos.size()) return ExitCode::interrupted;
        return unmeasured > 0 ? ExitCode::photosFailed : ExitCode::done;
    }

    ExitCode add() const {
        const auto models = PoseStore::read(poses_.pack);
        if (!models) return failed(models.error());
        const std::string name = poses_.pack.filename().string();
        if (models->empty())
            return failed({"Not a pose pack: " + name + " does not contain any poses."});
        for (auto model : *models) {
            model.origin = name;
            if (const auto kept = store_.put(model); !kept) return unwritable(kept.error());
            console_.say("Added the pose " + model.tag + ".");
        }
        return ExitCode::done;
    }

    ExitCode save() const {
        const auto models = store_.load();
        for (const std::string& name : poses_.chosen)
            if (std::ranges::find(models, name, &TagClassifier::Model::tag) == models.end())
                return failed(unknown(name));
        const auto written = store_.write(
            poses_.pack, poses_.chosen.empty() ? std::nullopt : std::optional(poses_.chosen));
        return written ? ExitCode::done : unwritable(written.error());
    }

    ExitCode remove() const {
        const auto models = store_.load();
        if (std::ranges::find(models, poses_.name, &TagClassifier::Model::tag) == models.end())
            return failed(unknown(poses_.name));
        auto removed = store_.remove(poses_.name);
        if (removed) removed = rules().remove({RuleCondition::Tag{poses_.name}});
        return removed ? ExitCode::done : unwritable(removed.error());
    }

private:
    ExitCode failed(const Failure& why) const {
        console_.failure(why.message);
        return ExitCode::inputUnreadable;
    }
    ExitCode unwritable(const Failure& why) const {
        console_.failure(why.message);
        return ExitCode::outputUnwritable;
    }
    static Failure unknown(const std::string& name) {
        return {"There is no taught pose " + name + "; \"poses list\" shows them."};
    }

    RuleStore rules() const {
        auto catalog = PresetCatalog::open(common_.dataFolder);
        return {common_.dataFolder, catalog ? catalog->presets() : std::vector<CropPreset>{}};
    }

    std::vector<TagClassifier::Model> usableModels() const {
        auto models = store_.load();
        std::erase_if(models, [](const auto& model) { return !model.isUsable(); });
        return models;
    }

    Result<std::optional<CropPreset>> wantedPreset() const {
        if (!poses_.preset) return std::optional<CropPreset>();
        return PresetCatalog::open(common_.dataFolder)
            .and_then([&](const PresetCatalog& all) { return all.find(*poses_.preset); })
            .map([](CropPreset found) { return std::optional(std::move(found)); });
    }

    static std::string rowOf(const TagClassifier::Model& model) {
        std::string row = model.tag;
        if (!model.isUsable()) row += "  (taught with an older Morva; teach it again)";
        if (model.origin) row += "  from " + *model.origin;
        if (model.report) row += "  " + model.report->verdict;
        return row;
    }

    ExitCode learn(const std::vector<PosePhoto>& photos, std::size_t ticked,
                   const std::optional<CropPreset>& preset) {
        PoseTrainer::Prints features[2];
        std::vector<int> groups[2];
        std::vector<fs::path> files[2];
        for (std::size_t i = 0; i < photos.size(); ++i) {
            const PosePhoto& photo = photos[i];
            if (!photo.problem.empty()) {
                console_.say(photo.file.string() + " is left out: " + photo.problem);
                continue;
            }
            const std::size_t part = i < ticked ? 0 : 1;
            features[part].push_back(photo.features);
            groups[part].push_back(photo.group);
            files[part].push_back(photo.file);
        }
        const auto learned = PoseTrainer::train(poses_.name, features[0], features[1], groups[0],
                                                groups[1], secondsNow());
        if (!learned) return failed({learned.error().message()});
        tell(learned->report, files[0], files[1]);
        return poses_.dryRun ? ExitCode::done : keep(learned->model, preset);
    }

    void tell(const PoseReport& report, const std::vector<fs::path>& examples,
              const std::vector<fs::path>& others) const {
        const auto named = [](const std::vector<int>& places, const std::vector<fs::path>& files) {
            std::vector<std::string> names;
            for (const int place : places)
                names.push_back(files[static_cast<std::size_t>(place)].string());
            return names;
        };
        const auto missed = named(report.falseNegatives, examples);
        const auto wrong = named(report.falsePositives, others);
        if (poses_.json) {
            std::cout << jsonText({{"pose", poses_.name},
                                   {"report", report},
                                   {"missed", missed},
                                   {"wrong", wrong}})
                      << '\n';
            return;
        }
        std::cout << report.verdict << '\n';
        for (const std::string& file : missed) std::cout << "missed: " << file << '\n';
        for (const std::string& file : wrong) std::cout << "wrong: " << file << '\n';
    }

    ExitCode keep(const TagClassifier::Model& model,
                  const std::optional<CropPreset>& preset) const {
        if (const auto kept = store_.put(model); !kept) return unwritable(kept.error());
        if (!preset) return ExitCode::done;
        const RuleCondition condition{RuleCondition::Tag{model.tag}};
        const RuleStore store = rules();
        auto ruled = store.remove(condition);
        if (ruled) ruled = store.put({.condition = condition, .presetID = preset->id});
        return ruled ? ExitCode::done : unwritable(ruled.error());
    }

    void tell(const PosePhoto& photo, const std::vector<TagClassifier::Model>& models) const {
        Json scores = Json::object();
        std::string text;
        for (const auto& model : models) {
            const double score = TagClassifier::probability(photo.features, model);
            const bool found = photo.problem.empty() && model.threshold <= score;
            scores[model.tag] = {{"probability", score}, {"found", found}};
            std::array<char, 16> shown{};
            std::snprintf(shown.data(), shown.size(), " %.2f", score);
            text += "  " + model.tag + shown.data() + (found ? " *" : "");
        }
        if (poses_.json)
            std::cout << jsonText(
                             {{"file", photo.file.string()},
                              {"problem", photo.problem.empty() ? Json() : Json(photo.problem)},
                              {"poses", photo.problem.empty() ? scores : Json::object()}})
                      << '\n';
        else
            std::cout << photo.file.string() << ":"
                      << (photo.problem.empty() ? text : " " + photo.problem) << '\n';
    }

    const PosesArguments& poses_;
    const Arguments& common_;
    Console& console_;
    PoseStore store_;
};

}  // namespace

ExitCode runPoses(const PosesArguments& poses, const Arguments& common, Console& console) {
    PosesRun run(poses, common, console);
    switch (poses.action) {
        case PosesAction::list:
            return run.list();
        case PosesAction::train:
            return run.train();
        case PosesAction::test:
            return run.test();
        case PosesAction::add:
            return run.add();
        case PosesAction::save:
            return run.save();
        case PosesAction::remove:
            return run.remove();
    }
    return ExitCode::usage;
}

}  // namespace morva
