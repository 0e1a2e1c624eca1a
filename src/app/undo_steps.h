// SPDX-License-Identifier: GPL-3.0-or-later
// The reversible acts, as values before and after. Made by the application state, kept on its one
// undo stack, carried out by it again.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QUndoCommand>

#include "app/working_job.h"
#include "model/presets/crop_preset.h"

namespace morva {

class AppState;

/// What a person decided about one photo.
struct PhotoDecisions {
    ManualAdjustment adjustment;
    bool approved = false;
    std::optional<Rect> approvedRect;
    std::optional<Uuid> presetOverride;

    static PhotoDecisions of(const ImageItem& item);

    bool operator==(const PhotoDecisions&) const = default;
};

/// How a job chooses presets for its photos.
struct JobChoices {
    Uuid presetID;
    bool autoAssign = false;
    std::vector<CropRule> rules;

    static JobChoices of(const Job& job);

    bool operator==(const JobChoices&) const = default;
};

/// Acts of one kind on one thing that follow each other closer than this are one step.
inline constexpr std::chrono::milliseconds undoBurst{1500};

/// Adjusting, approving, choosing a photo's own preset; for one photo or many at once. Nudges,
/// zooms and turns of one photo in quick succession merge.
class DecisionsStep final : public QUndoCommand {
public:
    struct Photo {
        std::string id;
        PhotoDecisions before;
        PhotoDecisions after;
    };
    enum class Merging { never, withLikeSteps };

    /// Steps of one gesture merge whenever they follow each other, and with no others; 0 for a step
    /// without.
    DecisionsStep(AppState& state, const QString& text, Uuid job, std::vector<Photo> photos,
                  Merging merging, int gesture = 0);
    void redo() override;
    void undo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* next) override;

private:
    void apply(PhotoDecisions Photo::*decisions);

    AppState& state_;
    Uuid job_;
    std::vector<Photo> photos_;
    Merging merging_;
    int gesture_;
    std::chrono::steady_clock::time_point made_ = std::chrono::steady_clock::now();
};

/// A job's preset, the switch to automatic, an edit of its rules.
class ChoicesStep final : public QUndoCommand {
public:
    ChoicesStep(AppState& state, const QString& text, Uuid job, JobChoices before,
                JobChoices after);
    void redo() override;
    void undo() override;

private:
    AppState& state_;
    Uuid job_;
    JobChoices before_;
    JobChoices after_;
};

/// Any change of the preset library. Edits of one preset in quick succession, as a slider makes
/// them, merge.
class LibraryStep final : public QUndoCommand {
public:
    using Presets = std::vector<CropPreset>;

    /// `edited`: the one preset whose values changed; absent when presets came or went.
    /// `gesture`: as for `DecisionsStep`.
    LibraryStep(AppState& state, const QString& text, Presets before, Presets after,
                std::optional<Uuid> edited, int gesture = 0);
    void redo() override;
    void undo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* next) override;

private:
    AppState& state_;
    Presets before_;
    Presets after_;
    std::optional<Uuid> edited_;
    int gesture_;
    std::chrono::steady_clock::time_point made_ = std::chrono::steady_clock::now();
};

/// Taking a job out of the list. Holds it meanwhile, so that it comes back as it was.
class RemovalStep final : public QUndoCommand {
public:
    RemovalStep(AppState& state, const QString& text, Uuid job);
    void redo() override;
    void undo() override;

private:
    AppState& state_;
    Uuid job_;
    std::unique_ptr<WorkingJob> removed_;
    std::size_t place_ = 0;
};

}  // namespace morva
