// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reference_command.h"

#include <iostream>

#include "analysis/reference_analyzer.h"
#include "base/files.h"
#include "cli/analyzed_photo.h"
#include "cli/photo_outcome.h"
#include "cli/preset_catalog.h"
#include "model/presets/reference_notes.h"
#include "output/export_paths.h"

namespace morva {

namespace {

/// A preset modelled on a portrait, and what could not be adopted.
struct Modelled {
    CropPreset preset;
    std::vector<std::string> notes;
};

Result<Modelled> modelled(const ReferenceArguments& wanted, const Arguments& common) {
    auto preset = PresetCatalog::open(common.dataFolder).and_then([&](const auto& all) {
        return all.find(wanted.preset);
    });
    if (!preset) return tl::unexpected(preset.error());
    const auto vision = openDetectors(common);
    if (!vision) return tl::unexpected(vision.error());
    const auto measured = ReferenceAnalyzer::measure(wanted.image, *vision);
    if (!measured)
        return failure(wanted.image.string() + ": " + ReferenceAnalyzer::message(measured.error()));
    preset->apply(measured->reference);
    auto notes = ReferenceNotes::notes(measured->reference, *preset);
    return Modelled{std::move(*preset), std::move(notes)};
}

Result<void> write(const CropPreset& preset, const ReferenceArguments& wanted) {
    if (Exporter::canonicalPath(*wanted.out) == Exporter::canonicalPath(wanted.image))
        return failure("The preset needs a file of its own (--out); " + wanted.image.string() +
                       " is the reference.");
    return writeFileAtomically(*wanted.out, jsonText(preset, 2) + "\n");
}

}  // namespace

ExitCode runReference(const ReferenceArguments& reference, const Arguments& common,
                      Console& console) {
    const auto result = modelled(reference, common);
    if (!result) {
        console.failure(result.error().message);
        return ExitCode::inputUnreadable;
    }
    const CropPreset& preset = result->preset;
    if (reference.out) {
        if (const auto written = write(preset, reference); !written) {
            console.failure(written.error().message);
            return ExitCode::outputUnwritable;
        }
    }
    if (reference.json) {
        std::cout << jsonText({{"file", reference.image.string()},
                               {"reference", preset.reference.value()},
                               {"notes", result->notes},
                               {"preset", preset}})
                  << '\n';
    } else if (!reference.out) {
        std::cout << jsonText(preset, 2) << '\n';
    }
    if (!result->notes.empty()) console.heading(std::string(ReferenceNotes::notesTitle) + ":");
    for (const std::string& note : result->notes) console.say("  " + note);
    return ExitCode::done;
}

}  // namespace morva
