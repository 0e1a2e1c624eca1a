// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panel/photo_report.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

#include "crop/confidence_scorer.h"
#include "model/jobs/job_solver.h"
#include "model/presets/preset_library.h"
#include "ui/panel/reason_words.h"
#include "ui/widgets/words.h"

namespace morva {

namespace {

using Figure = FigureTable::Figure;
using Row = FigureTable::Row;
using Rows = PhotoReport::Rows;

struct Text {
    Q_DECLARE_TR_FUNCTIONS(PhotoReport)
};

Figure quiet(const QString& text) { return {text, &Theme::text3}; }

Figure now(const QString& text, bool isOff) {
    return {text, isOff ? &Theme::review : &Theme::text, isOff};
}

QString signedNumber(double value, int decimals) {
    return (value > 0 ? QStringLiteral("+") : QString()) + number(value, decimals);
}

Row factorRow(const ConfidenceScorer::Factor& factor) {
    using Part = ConfidenceScorer::Part;
    const QString times = Text::tr("× %1").arg(number(factor.factor, 2));
    const bool costs = std::lround(factor.factor * 100) < 100;
    const Figure weight{times, costs ? &Theme::review : &Theme::text};
    const auto degrees = [&] { return Text::tr("%1°").arg(number(factor.measured)); };
    switch (factor.part) {
        case Part::landmarks:
            return {Text::tr("Landmarks"),
                    {quiet(Text::tr("%1 sure").arg(percent(factor.measured))),
                     {percent(factor.factor),
                      factor.measured < ConfidenceScorer::landmarkWorthReview ? &Theme::review
                                                                              : &Theme::text}}};
        case Part::chin:
            return {Text::tr("Chin estimates"),
                    {quiet(Text::tr("%1 apart").arg(percent(factor.measured))), weight}};
        case Part::eyeSpacing:
            return {Text::tr("Eye spacing"), {quiet(number(factor.measured, 2)), weight}};
        case Part::yaw:
            return {Text::tr("Head turned"), {quiet(degrees()), weight}};
        case Part::pitch:
            return {Text::tr("Head tipped"), {quiet(degrees()), weight}};
        case Part::hair:
            return {Text::tr("Hair outline"),
                    {quiet(factor.measured > 0 ? Text::tr("reliable") : Text::tr("uncertain")),
                     weight}};
    }
    return {};
}

PhotoReport::Confidence confidence(const ImageItem& item, const CropPreset& preset) {
    PhotoReport::Confidence made{item.solution->confidence, preset.autoApproveConfidence, {}};
    const auto report =
        ConfidenceScorer::score(*item.analysis->primary(), item.analysis->headContent);
    for (const auto& factor : report.factors) made.factors.push_back(factorRow(factor));
    return made;
}

/// The table of what the crop measures, beside what the preset asks for.
Rows measurements(const ReasonWords::Subject& subject) {
    const CropMetrics& metrics = subject.crop->metrics;
    const CropPreset& preset = subject.preset;
    const auto& reasons = subject.crop->reasons;
    const auto found = [&](std::initializer_list<ReviewReason> any) {
        return std::ranges::find_first_of(reasons, any) != reasons.end();
    };
    using enum ReviewReason;
    const bool byBody = isBody(preset.framing) && !subject.item.solution->has(bodyNotFound);
    const bool byEyes = preset.verticalMode == VerticalMode::eyeLine;
    const QString tolerance = Text::tr(" ± %1").arg(number(preset.outlierTolerance * 100));
    const auto target = [&](double share, bool checked) {
        return quiet(percent(share, 1) + (checked ? tolerance : QString()));
    };
    const auto least = [&](double share) { return quiet(Text::tr("≥ %1").arg(percent(share, 1))); };
    Rows rows;
    rows.push_back({{}, {quiet(Text::tr("Now")), quiet(Text::tr("Target"))}});
    rows.push_back({Text::tr("Face size"),
                    {now(percent(metrics.faceScale, 1), false),
                     byBody ? quiet({}) : target(preset.faceScale, false)}});
    rows.push_back({Text::tr("Eye line"),
                    {now(percent(metrics.eyeLine, 1), found({faceSitsLow, faceSitsHigh})),
                     byBody ? quiet({}) : target(preset.eyeLinePosition, !byEyes)}});
    rows.push_back({Text::tr("Chin line"), {now(percent(metrics.chinLine, 1), false), quiet({})}});
    if (metrics.headroom) {
        const bool isOff = found({headContentClipped, headroomOutOfTolerance});
        rows.push_back(
            {Text::tr("Headroom"),
             {now(percent(*metrics.headroom, 1), isOff),
              byBody ? target(preset.bodyTopMargin, false) : target(preset.topMargin, byEyes)}});
    }
    const auto side = [&](const QString& label, const std::optional<double>& clearance) {
        if (!clearance) return;
        const bool isOff = found({hairClippedAtSide}) && *clearance < preset.minEdgeClearance;
        rows.push_back(
            {label, {now(percent(*clearance, 1), isOff), least(preset.minEdgeClearance)}});
    };
    side(Text::tr("Clearance left"), metrics.sideClearanceLeft);
    side(Text::tr("Clearance right"), metrics.sideClearanceRight);
    if (metrics.headHeightInFaceUnits)
        rows.push_back(
            {Text::tr("Hair height"),
             {now(Text::tr("%1 face units").arg(number(*metrics.headHeightInFaceUnits, 2)),
                  subject.item.solution->has(unusualHeadContent)),
              quiet(Text::tr("≤ %1").arg(number(CropSolver::maxHeadHeightInFaceUnits, 2)))}});
    if (metrics.propZoom)
        rows.push_back({Text::tr("Zoomed out for the prop"),
                        {now(Text::tr("× %1").arg(number(*metrics.propZoom, 2)),
                             subject.item.solution->has(propClipped)),
                         quiet({})}});
    const double turn = CropSolver::finalRotation(*subject.item.solution, subject.item.adjustment);
    if (turn != 0)
        rows.push_back({Text::tr("Turned"),
                        {now(Text::tr("%1°").arg(signedNumber(turn, 1)), false),
                         preset.rotationMode == RotationMode::levelEyes
                             ? quiet(Text::tr("at most %1°").arg(number(preset.levelMaxDegrees, 1)))
                             : quiet({})}});
    return rows;
}

Rows adjustmentRows(const ManualAdjustment& adjustment) {
    Rows rows;
    const auto add = [&](const QString& label, const QString& value) {
        rows.push_back({label, {{value}}});
    };
    if (adjustment.dx != 0)
        add(adjustment.dx > 0 ? Text::tr("Moved right") : Text::tr("Moved left"),
            percent(std::abs(adjustment.dx), 1));
    if (adjustment.dy != 0)
        add(adjustment.dy > 0 ? Text::tr("Moved down") : Text::tr("Moved up"),
            percent(std::abs(adjustment.dy), 1));
    if (adjustment.scale != 1)
        add(Text::tr("Crop size"), Text::tr("× %1").arg(number(adjustment.scale, 2)));
    if (adjustment.rotation != 0)
        add(Text::tr("Turned"), Text::tr("%1°").arg(signedNumber(adjustment.rotation, 2)));
    return rows;
}

QString timeText(double seconds, const QTimeZone& zone) {
    return QLocale().toString(
        QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(seconds * 1000), zone),
        QLocale::ShortFormat);
}

Rows details(const ImageItem& item) {
    Rows rows;
    const auto add = [&](const QString& label, const QString& value) {
        if (!value.isEmpty()) rows.push_back({label, {{value}}});
    };
    if (item.relativePath.has_parent_path())
        add(Text::tr("Folder"), pathText(item.relativePath.parent_path()));
    if (item.analyzedStamp)
        add(Text::tr("File size"),
            QLocale().formattedDataSize(item.analyzedStamp->size, 1, QLocale::DataSizeSIFormat));
    if (const auto& analysis = item.analysis) {
        if (analysis->sourceWidth > 0)
            add(Text::tr("Photo"),
                Text::tr("%1 × %2 px").arg(analysis->sourceWidth).arg(analysis->sourceHeight));
        if (item.solution && item.solution->metrics)
            add(Text::tr("Crop"), Text::tr("%1 × %2 px")
                                      .arg(std::lround(item.solution->rect.width))
                                      .arg(std::lround(item.solution->rect.height)));
        // The camera's own clock was read as if it were UTC.
        if (analysis->captureTime)
            add(Text::tr("Taken"), timeText(*analysis->captureTime, QTimeZone::utc()));
        if (analysis->rating)
            add(Text::tr("Rating"), Text::tr("%n star(s)", "", *analysis->rating));
        if (analysis->label) add(Text::tr("Label"), asGiven(*analysis->label));
        QStringList poses;
        for (const std::string& tag : analysis->tags) poses << asGiven(tag);
        add(Text::tr("Poses"), poses.join(Text::tr(", ")));
        if (analysis->signDetected) add(Text::tr("Sign"), Text::tr("found"));
    }
    if (item.exportedAt)
        add(Text::tr("Exported"), timeText(*item.exportedAt, QTimeZone::systemTimeZone()));
    return rows;
}

QString nameOf(const Uuid& id, std::span<const CropPreset> presets) {
    const CropPreset* preset = PresetLibrary::presetWith(id, presets);
    return preset ? asGiven(preset->name) : QString();
}

void tellSource(const WorkingJob& job, std::size_t index, std::span<const CropPreset> presets,
                PhotoReport& report) {
    const ImageItem& item = job.item(index);
    const bool isAutomatic = job.job().autoAssign;
    // An override whose preset is gone counts for nothing.
    const bool hasOwn =
        item.presetOverride && PresetLibrary::presetWith(*item.presetOverride, presets);
    const SolvedWith chosen =
        hasOwn ? JobSolver::planWithoutOwnPreset(job.job(), presets, index) : job.solvedWith(index);
    const QString name = nameOf(chosen.presetID, presets);
    report.withoutOwn =
        (isAutomatic ? Text::tr("Automatic: %1") : Text::tr("As the job: %1")).arg(name);
    if (hasOwn)
        report.source = (isAutomatic ? Text::tr("This photo's own. The rules pick %1.")
                                     : Text::tr("This photo's own. The job uses %1."))
                            .arg(name);
    else if (chosen.rule)
        report.source = Text::tr("Picked by the rule “%1”").arg(said(*chosen.rule));
    else
        report.source = isAutomatic ? Text::tr("No rule applies to this photo.")
                                    : Text::tr("The crop type of the job.");
}

void tellOne(const WorkingJob& job, std::size_t index, std::span<const CropPreset> presets,
             PhotoReport& report) {
    const ImageItem& item = job.item(index);
    report.title = pathText(item.relativePath.filename());
    report.status = job.status(index);
    tellSource(job, index, presets, report);
    report.details = details(item);
    report.adjustment = adjustmentRows(item.adjustment);
    const CropPreset* preset = PresetLibrary::presetWith(job.solvedWith(index).presetID, presets);
    if (!item.analysis || !preset) {
        report.notes << Text::tr("This photo has not been measured. Crop Photos does that.");
        return;
    }
    if (!item.solution) {
        if (item.analysis->error) report.notes << said(*item.analysis->error);
        return;
    }
    ReasonWords::Subject subject{item, *preset};
    subject.crop = CropSolver::adjusted(*item.analysis, *preset, *item.solution, item.adjustment);
    subject.lacking = job.canvasToAdd(index);
    for (const ReviewReason reason : job.reasons(index))
        report.reasons.push_back({said(title(reason)), ReasonWords::explanation(reason, subject)});
    for (const std::string& note : item.solution->notes) report.notes << said(note);
    if (!subject.crop) return;
    report.confidence = confidence(item, *preset);
    report.measurements = measurements(subject);
}

QString statusCounts(const std::map<ItemStatus, int>& counts) {
    const auto words = [](ItemStatus status, int count) {
        switch (status) {
            case ItemStatus::pending:
                return Text::tr("%n not cropped yet", "", count);
            case ItemStatus::ready:
                return Text::tr("%n ready", "", count);
            case ItemStatus::review:
                return Text::tr("%n in review", "", count);
            case ItemStatus::approved:
                return Text::tr("%n approved", "", count);
            case ItemStatus::failed:
                return Text::tr("%n without a face", "", count);
            case ItemStatus::error:
                return Text::tr("%n unreadable", "", count);
        }
        return QString();
    };
    QStringList parts;
    for (const auto& [status, count] : counts) parts << words(status, count);
    return parts.join(Text::tr(", "));
}

void tellSeveral(const WorkingJob& job, std::span<const std::size_t> indices, PhotoReport& report) {
    const int all = static_cast<int>(indices.size());
    report.title = Text::tr("%n photos selected", "", all);
    report.withoutOwn = job.job().autoAssign ? Text::tr("Automatic") : Text::tr("As the job");
    std::map<ItemStatus, int> counts;
    std::map<ReviewReason, int> reasons;
    for (const std::size_t index : indices) {
        ++counts[job.status(index)];
        for (const ReviewReason reason : job.reasons(index)) ++reasons[reason];
    }
    report.summary = statusCounts(counts);
    for (const auto& [reason, count] : reasons)
        report.reasons.push_back(
            {said(title(reason)), Text::tr("%1 of %n photos", "", all).arg(count)});
}

}  // namespace

PhotoReport photoReport(const WorkingJob& job, std::span<const std::size_t> indices,
                        std::span<const CropPreset> presets) {
    PhotoReport report;
    std::set<std::string> used;
    std::set<std::optional<std::string>> owns;
    for (const std::size_t index : indices) {
        const ImageItem& item = job.item(index);
        used.insert(job.solvedWith(index).presetID.text());
        owns.insert(item.presetOverride ? std::optional(item.presetOverride->text())
                                        : std::nullopt);
        report.adjusted += item.hasAdjustment() ? 1 : 0;
        report.approved += item.approved ? 1 : 0;
        const bool hasCrop = item.solution && item.solution->status != CropStatus::failed;
        report.approvable += hasCrop && !item.approved ? 1 : 0;
    }
    report.presets = static_cast<int>(used.size());
    report.isMixed = owns.size() > 1 || (indices.size() > 1 && used.size() > 1);
    if (!report.isMixed) report.own = job.item(indices.front()).presetOverride;
    if (indices.size() == 1)
        tellOne(job, indices.front(), presets, report);
    else
        tellSeveral(job, indices, report);
    return report;
}

}  // namespace morva
