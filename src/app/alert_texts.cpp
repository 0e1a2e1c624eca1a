// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/alert_texts.h"

#include "model/presets/reference_notes.h"

namespace morva::AlertTexts {

namespace {

AlertInfo alert(std::string title, std::string message) {
    return {.id = Uuid::random(), .title = std::move(title), .message = std::move(message)};
}

std::string lines(std::span<const std::string> sentences) {
    std::string text;
    for (const std::string& sentence : sentences) text += (text.empty() ? "" : "\n") + sentence;
    return text;
}

}  // namespace

AlertInfo alreadyCropped(const std::string& job) {
    return alert("Already cropped",
                 "Every photo in " + job +
                     " has been analyzed. Change the preset to re-crop instantly, or use Photos ▸ "
                     "Re-analyze to run face detection again.");
}

AlertInfo analysisUnavailable(const std::string& reason) {
    return alert("Could not start the analysis", reason);
}

AlertInfo noPhotos(const std::filesystem::path& folder) {
    return alert("Nothing to import",
                 folder.filename().string() + " has no JPEG, PNG, TIFF or HEIC files.");
}

AlertInfo folderUnreadable(const std::string& reason) {
    return alert("Could not read the folder", reason);
}

AlertInfo cropFirst() {
    return alert("Crop first", "Click Crop Photos to analyze the folder before exporting.");
}

AlertInfo insideTheJob() {
    return alert("Choose a folder outside the job",
                 "Morva never writes inside the source folder, or over it, so originals are never "
                 "overwritten. Pick a separate folder, for example next to the job.");
}

AlertInfo wrongRatio(const CropPreset& preset) {
    return alert(RatioCheck::alertTitle, RatioCheck::alertMessage(preset));
}

AlertInfo nothingNew(int unchanged) {
    return alert("Nothing new to export",
                 unchanged == 0
                     ? "No photos are ready or approved yet."
                     : "All " + std::to_string(unchanged) +
                           " ready photos are already in that folder with the same crop. Turn on "
                           "“Replace existing files” to write them again.");
}

AlertInfo folderNotMade(const std::string& reason) {
    return alert("Could not create the export folder", reason);
}

AlertInfo notAllExported(int failed, int total) {
    return alert("Some photos were not exported",
                 std::to_string(failed) + " of " + std::to_string(total) +
                     " photos could not be written. The export report says why.");
}

AlertInfo reportNotWritten(const std::string& reason) {
    return alert("Couldn't save the export report", reason);
}

AlertInfo reviewListNotSaved(const std::string& reason) {
    return alert("Couldn't save the review list", reason);
}

AlertInfo referenceUnusable(const std::string& reason) {
    return alert(ReferenceNotes::failureTitle, reason);
}

AlertInfo referenceNotes(std::span<const std::string> notes) {
    return alert(ReferenceNotes::notesTitle, lines(notes));
}

AlertInfo notAPosePack(const std::filesystem::path& pack) {
    return alert("Not a pose pack", pack.filename().string() + " does not contain any poses.");
}

AlertInfo posesNotSaved(const std::string& reason) {
    return alert("Couldn't save the pose", reason);
}

AlertInfo plateUnreadable(const std::filesystem::path& plate) {
    return alert("Could not read the backdrop",
                 plate.filename().string() + " is not a picture that Morva can open.");
}

AlertInfo notReadAtStart(std::span<const Failure> problems) {
    std::vector<std::string> sentences;
    sentences.reserve(problems.size());
    for (const Failure& problem : problems) sentences.push_back(problem.message);
    return alert("Some files could not be read", lines(sentences));
}

AlertInfo notSaved(const std::string& reason) {
    return alert("Your changes could not be saved",
                 reason + " Morva keeps them and goes on trying.");
}

AlertInfo readOnly(const std::string& reason) {
    return alert("The jobs can only be looked at", reason);
}

AlertInfo busy(const std::string& task) {
    return alert("One thing at a time", "Wait until “" + task + "” is done, or cancel it.");
}

}  // namespace morva::AlertTexts
