// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/analyze_command.h"

#include <array>
#include <cstdio>
#include <iostream>

#include "cli/analyzed_photo.h"
#include "cli/interruption.h"
#include "cli/ordered_workers.h"
#include "cli/photo_list.h"
#include "cli/photo_outcome.h"

namespace morva {

std::string analysisText(const ImageAnalysis& analysis) {
    const FaceGeometry* face = analysis.primary();
    if (!face) return analysis.error.value_or("No face was found.");
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), "%zu face%s, face unit %.0f px, tilt %.1f degrees, %s",
                  analysis.faces.size(), analysis.faces.size() == 1 ? "" : "s", face->faceUnit(),
                  face->rollDegrees(),
                  !analysis.headContent            ? "no head outline"
                  : analysis.headContent->reliable ? "head outlined"
                                                   : "head outline uncertain");
    return text.data();
}

namespace {

Json recordJson(const std::string& file, const AnalyzedPhoto& photo) {
    return {{"file", file}, {"camera", photo.camera}, {"analysis", photo.analysis}};
}

}  // namespace

ExitCode runAnalyze(const AnalyzeArguments& analyze, const Arguments& common, Console& console) {
    const auto list = PhotoList::of(analyze.inputs);
    if (!list) {
        console.failure(list.error().message);
        return ExitCode::inputUnreadable;
    }
    const auto vision = openDetectors(common);
    if (!vision) {
        console.failure(vision.error().message);
        return ExitCode::inputUnreadable;
    }
    Interruption::watch();
    std::size_t withoutFace = 0;
    const auto tell = [&](std::size_t index, const AnalyzedPhoto& photo) {
        const ImageAnalysis& analysis = photo.analysis;
        const std::string file = list->photos[index].string();
        if (!analysis.primary()) ++withoutFace;
        console.wipeProgress();
        std::cout << (analyze.json ? jsonText(recordJson(file, photo))
                                   : file + ": " + analysisText(analysis))
                  << std::endl;
    };
    const std::size_t total = list->photos.size();
    console.beginProgress("Analysing", total);
    const std::size_t done = inOrder(
        total, analyze.jobs, Interruption::requested(),
        [&](std::size_t index) { return AnalyzedPhoto::of(list->photos[index], *vision); }, tell,
        [&](std::size_t finished) { console.progress(finished); });
    console.wipeProgress();
    console.say(std::to_string(done) + " of " + std::to_string(total) + " photos analysed, " +
                std::to_string(withoutFace) + " of them without a face.");
    if (done < total) return ExitCode::interrupted;
    return withoutFace > 0 ? ExitCode::photosFailed : ExitCode::done;
}

}  // namespace morva
