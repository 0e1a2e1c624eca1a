// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/arguments.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <thread>

#include <CLI/CLI.hpp>

#include "base/files.h"
#include "cli/backdrop_wish.h"
#include "output/export_report.h"

namespace morva {

namespace {

constexpr int mostJobs = 64;
constexpr int tallestPreview = 4096;

constexpr const char* closing =
    "Exit codes: 0 all done, 1 some photos failed (or need a look, with --strict), 2 wrong\n"
    "arguments, 3 input or preset unreadable, 4 output not writable, 130 interrupted.";

void addInputs(CLI::App& command, std::vector<std::filesystem::path>& inputs) {
    command.add_option("INPUT", inputs, "Folders of photos, or single photos")->required();
}

void addJobs(CLI::App& command, int& jobs) {
    command.add_option("--jobs", jobs, "Photos worked on at once")
        ->check(CLI::Range(1, mostJobs))
        ->type_name("N")
        ->capture_default_str();
}

void addPreset(CLI::App& command, std::string& preset) {
    command.add_option("--preset", preset, "A preset's name (see \"presets list\") or its file")
        ->type_name("NAME|FILE")
        ->capture_default_str();
}

void addSelection(CLI::App& command, SelectionArguments& selection) {
    addPreset(command, selection.preset);
    command
        .add_option("--rules", selection.rules,
                    "Choose each photo's preset by rules: your own (auto), or those of a file; "
                    "photos that no rule matches get --preset")
        ->check([](const std::string& text) {
            return text.empty() ? std::string("must not be empty") : std::string();
        })
        ->type_name("auto|FILE");
    command.add_flag("--group,!--no-group", selection.group,
                     "One crop size for the frames of a child taken within seconds, where the "
                     "preset asks for it (on unless --no-group)");
}

void addBackdrop(CLI::App& command, std::optional<std::string>& backdrop) {
    command
        .add_option("--backdrop", backdrop,
                    "Backdrop of the crops: a photograph, a colour, the one used last or suggested "
                    "(auto), the photo's own on grey (keep) or with its edges repeated (repeat)")
        ->check([](const std::string& text) {
            const auto wish = BackdropWish::parse(text);
            return wish ? std::string() : wish.error().message;
        })
        ->type_name("FILE|color:#rrggbb|auto|keep|repeat");
}

CLI::App& addCrop(CLI::App& app, CropArguments& crop) {
    CLI::App& command = *app.add_subcommand("crop", "Turn photos into finished crops");
    addInputs(command, crop.inputs);
    const auto named = [](const std::string& path) {
        return path.empty() ? std::string("must not be empty") : std::string();
    };
    command.add_option("--out", crop.out, "Folder for the crops")
        ->required()
        ->check(named)
        ->type_name("DIR");
    addSelection(command, crop.selection);
    addJobs(command, crop.jobs);
    command
        .add_option_function<std::string>(
            "--approve",
            [&crop](const std::string& word) {
                crop.approve = word == "ready" ? Approval::ready : Approval::all;
            },
            "Crops to write: all of them, or only those without doubts")
        ->check(CLI::IsMember({"ready", "all"}))
        ->type_name("WHICH")
        ->default_str("all");
    command.add_flag("--force", crop.force, "Write also crops that lack canvas");
    command.add_flag("--strict", crop.strict, "Exit with 1 when a photo needs a look");
    command.add_flag("--dry-run", crop.dryRun, "Analyse and solve, but write nothing");
    command.add_option("--overlay", crop.overlay, "Folder for pictures of the guides")
        ->check(named)
        ->type_name("DIR");
    addBackdrop(command, crop.backdrop);
    command
        .add_option("--report", crop.report,
                    std::string("File for the report (\"") + ExportReport::fileName +
                        "\" among the crops unless given)")
        ->check(named)
        ->type_name("FILE");
    command
        .add_option("--review-list", crop.reviewList,
                    "File for the list of photos that need a look, with the canvas they lack")
        ->check(named)
        ->type_name("FILE");
    command.add_flag("--json", crop.json, "One JSON object per photo on standard output");
    command
        .add_option_function<std::string>(
            "--shard", [&crop](const std::string& text) { crop.shard = Shard::parse(text); },
            "Only the i-th of n shares of the photos, for n processes with one folder for the "
            "crops; \"merge-reports\" joins their reports")
        ->check([](const std::string& text) {
            return Shard::parse(text) ? std::string() : std::string("must be like 1/4, 2/4 to 4/4");
        })
        ->type_name("i/n");
    return command;
}

CLI::App& addMergeReports(CLI::App& app, MergeReportsArguments& merge) {
    CLI::App& command = *app.add_subcommand(
        "merge-reports", "Join the reports of \"crop --shard\" into those of the whole run");
    command.add_option("FOLDER", merge.folders, "Folders with the parts of the reports")
        ->required();
    return command;
}

CLI::App& addAnalyze(CLI::App& app, AnalyzeArguments& analyze) {
    CLI::App& command = *app.add_subcommand("analyze", "Measure photos without cropping them");
    addInputs(command, analyze.inputs);
    addJobs(command, analyze.jobs);
    command.add_flag("--json", analyze.json, "One JSON object per photo on standard output");
    return command;
}

void addRecords(CLI::App& command, std::vector<std::filesystem::path>& records) {
    command
        .add_option("RECORD", records,
                    "Files with what \"analyze --json\" printed, or single records; - for standard "
                    "input")
        ->required();
}

CLI::App& addReviewList(CLI::App& app, ReviewListArguments& list) {
    CLI::App& command = *app.add_subcommand(
        "review-list", "A CSV of the photos that need a look, from stored measurements");
    addRecords(command, list.records);
    addSelection(command, list.selection);
    return command;
}

CLI::App& addPreview(CLI::App& app, PreviewArguments& preview) {
    CLI::App& command =
        *app.add_subcommand("preview", "A small picture of what a photo's crop will look like");
    command.add_option("PHOTO", preview.photo, "The photo")->required();
    command.add_option("--out", preview.out, "File for the picture (.png or .jpg)")
        ->required()
        ->check([](const std::string& name) {
            const auto extension = std::filesystem::path(name).extension();
            return extension == ".png" || extension == ".jpg" ? std::string()
                                                              : "must end in .png or .jpg";
        })
        ->type_name("FILE");
    addPreset(command, preview.preset);
    addBackdrop(command, preview.backdrop);
    command.add_option("--height", preview.height, "Height of the picture in pixels")
        ->check(CLI::Range(16, tallestPreview))
        ->type_name("N")
        ->capture_default_str();
    return command;
}

CLI::App& addBackdrops(CLI::App& app, BackdropsArguments& backdrops) {
    CLI::App& command = *app.add_subcommand("backdrops", "The backdrop photographs there are");
    command.require_subcommand(1);
    CLI::App* list = command.add_subcommand("list", "All of them, one a line");
    CLI::App* suggest =
        command.add_subcommand("suggest", "Those that suit a crop type, best first");
    suggest->parse_complete_callback([&backdrops] { backdrops.suggest = true; });
    addPreset(*suggest, backdrops.preset);
    for (CLI::App* part : {list, suggest}) {
        part->add_flag("--json", backdrops.json, "As one JSON array");
        part->fallthrough();
    }
    return command;
}

CLI::App& addSolve(CLI::App& app, SolveArguments& solve) {
    CLI::App& command =
        *app.add_subcommand("solve", "Solve crops from stored measurements, without the photos");
    addRecords(command, solve.records);
    addSelection(command, solve.selection);
    return command;
}

CLI::App& addPresets(CLI::App& app, PresetsArguments& presets) {
    CLI::App& command = *app.add_subcommand("presets", "The presets there are");
    command.require_subcommand(1);
    CLI::App* list = command.add_subcommand("list", "All presets, one a line");
    list->add_flag("--json", presets.json, "As one JSON array");
    CLI::App* show = command.add_subcommand("show", "One preset as JSON, the form of preset files");
    show->add_option("NAME", presets.show, "The preset's name")->required();
    for (CLI::App* part : {list, show}) part->fallthrough();
    return command;
}

CLI::App& addRules(CLI::App& app, RulesArguments& rules) {
    CLI::App& command =
        *app.add_subcommand("rules", "The rules that choose presets, first match first");
    command.add_option("RULES", rules.rules, "Your own rules (auto), or those of a file")
        ->type_name("auto|FILE")
        ->capture_default_str();
    command.add_flag("--json", rules.json, "As JSON, the form of rule files");
    return command;
}

CLI::App& addReference(CLI::App& app, ReferenceArguments& reference) {
    CLI::App& command = *app.add_subcommand(
        "reference", "Model a preset on a finished portrait, and print the preset");
    command.add_option("FILE", reference.image, "The finished portrait")->required();
    addPreset(command, reference.preset);
    command.add_option("--out", reference.out, "File for the preset")->type_name("FILE");
    command.add_flag("--json", reference.json,
                     "Print what was measured, the notes and the preset as one JSON object");
    return command;
}

void addJobParts(CLI::App& command, JobArguments& job) {
    using Action = JobArguments::Action;
    const auto part = [&](const char* name, const char* text, Action action) -> CLI::App& {
        CLI::App& added = *command.add_subcommand(name, text);
        added.parse_complete_callback([&job, action] { job.action = action; });
        added.add_flag("--json", job.json, "One JSON object a line on standard output");
        added.fallthrough();
        return added;
    };
    const auto ofOneJob = [&](const char* name, const char* text, Action action) -> CLI::App& {
        CLI::App& added = part(name, text, action);
        added.add_option("JOB", job.job, "The job's name, folder or identity")->required();
        return added;
    };
    CLI::App& import =
        part("import", "Make a job of a folder, or look for new photos in its job", Action::import);
    import.add_option("FOLDER", job.folder, "The folder of photos")->required();
    import.add_option("--preset", job.preset, "The job's preset, or auto for the rules")
        ->type_name("NAME");
    part("list", "All jobs", Action::list);
    CLI::App& crop = ofOneJob("crop", "Measure and crop the photos that need it", Action::crop);
    crop.add_flag("--force", job.force, "Measure all photos again");
    crop.add_flag("--strict", job.strict, "Exit with 1 when a photo needs a look");
    addJobs(crop, job.jobs);
    CLI::App& approve = ofOneJob("approve", "Approve photos", Action::approve);
    approve.add_option("PHOTO", job.photos, "Photos, by their path in the job or their file name");
    approve.add_flag("--ready", job.ready, "All photos that are ready");
    approve.add_flag("--take-back", job.takeBack, "Take approvals back instead");
    CLI::App& exports =
        ofOneJob("export", "Write the finished crops that are not there yet", Action::exportPhotos);
    exports
        .add_option("--out", job.out,
                    "Folder for the crops; the last one, else beside the job, unless given")
        ->type_name("DIR");
    exports.add_flag("--approved-only", job.approvedOnly, "Leave out what nobody approved");
    exports.add_flag("--replace", job.replace, "Write also what is there with the same crop");
    CLI::App& list =
        ofOneJob("review-list", "A CSV of the photos that wait for a look", Action::reviewList);
    list.add_option("--out", job.out, "File for the list; standard output unless given")
        ->type_name("FILE");
    ofOneJob("remove", "Take a job out of the list; its file is kept", Action::remove);
}

CLI::App& addJob(CLI::App& app, JobArguments& job) {
    CLI::App& command = *app.add_subcommand("job", "The jobs of the application");
    command.require_subcommand(1);
    addJobParts(command, job);
    return command;
}

CLI::App& addPoses(CLI::App& app, PosesArguments& poses) {
    CLI::App& command = *app.add_subcommand("poses", "Teach poses and share them");
    command.require_subcommand(1);
    const auto action = [&](const char* name, const char* what, PosesAction chosen) {
        CLI::App* part = command.add_subcommand(name, what);
        part->parse_complete_callback([&poses, chosen] { poses.action = chosen; });
        part->fallthrough();
        return part;
    };
    const auto addName = [&](CLI::App& part) {
        part.add_option("NAME", poses.name, "The pose's name")->required();
    };
    CLI::App* list = action("list", "The poses you have taught", PosesAction::list);
    CLI::App* train = action("train", "Teach a pose from examples", PosesAction::train);
    addName(*train);
    train->add_option("--examples", poses.examples, "Photos of the pose, or folders of them")
        ->required()
        ->type_name("INPUT");
    train
        ->add_option("--others", poses.others,
                     "Photos to compare with, or folders of them; examples among them are left out")
        ->required()
        ->type_name("INPUT");
    train->add_option("--preset", poses.preset, "Make a rule that gives this preset to the pose")
        ->type_name("NAME|FILE");
    train->add_flag("--dry-run", poses.dryRun, "Say how well it is learned, but keep nothing");
    CLI::App* test = action("test", "Look for the taught poses in photos", PosesAction::test);
    addInputs(*test, poses.inputs);
    for (CLI::App* part : {train, test}) addJobs(*part, poses.jobs);
    for (CLI::App* part : {list, train, test})
        part->add_flag("--json", poses.json, "As JSON on standard output");
    CLI::App* add = action("add", "Add the poses of a pack", PosesAction::add);
    add->add_option("PACK", poses.pack, "The pose pack")->required();
    CLI::App* save = action("save", "Save taught poses as a pack", PosesAction::save);
    save->add_option("PACK", poses.pack, "File for the pose pack")->required();
    save->add_option("--pose", poses.chosen, "Only this pose; may be repeated")->type_name("NAME");
    addName(*action("remove", "Forget a pose and its rules", PosesAction::remove));
    return command;
}

EarlyEnd ended(const CLI::App& app, const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream err;
    const bool wrong = app.exit(error, out, err) != 0;
    return {wrong ? ExitCode::usage : ExitCode::done, wrong ? err.str() : out.str()};
}

}  // namespace

int defaultJobs() {
    return std::clamp(static_cast<int>(std::thread::hardware_concurrency()) / 2, 2, 6);
}

std::string programVersion() { return MORVA_VERSION; }

tl::expected<Arguments, EarlyEnd> parseArguments(int argc, const char* const* argv) {
    const Folders folders = Folders::standard();
    Arguments arguments{.dataFolder = folders.data, .cacheFolder = folders.cache, .command = {}};
    CropArguments crop;
    AnalyzeArguments analyze;
    SolveArguments solve;
    PresetsArguments presets;
    RulesArguments rules;
    ReferenceArguments reference;
    ReviewListArguments reviewList;
    BackdropsArguments backdrops;
    PreviewArguments preview;
    JobArguments job;
    PosesArguments poses;
    MergeReportsArguments merge;

    CLI::App app("Morva: portraits of one size from a folder of photos", "morva-cli");
    app.footer(closing);
    app.require_subcommand(1);
    app.set_version_flag("--version", "morva-cli " + programVersion());
    app.add_option("--data-dir", arguments.dataFolder,
                   "Folder of your own presets, rules and poses")
        ->type_name("DIR");
    app.add_option("--cache-dir", arguments.cacheFolder, "Folder for what can be made again")
        ->type_name("DIR");
    bool verbose = false;
    CLI::Option* quiet = app.add_flag(
        "--quiet", [&](auto) { arguments.verbosity = Verbosity::quiet; }, "Only failures");
    app.add_flag("--verbose", verbose, "One message a photo")->excludes(quiet);
    const std::vector<std::pair<CLI::App*, std::function<Command()>>> commands{
        {&addCrop(app, crop), [&] { return crop; }},
        {&addMergeReports(app, merge), [&] { return merge; }},
        {&addAnalyze(app, analyze), [&] { return analyze; }},
        {&addSolve(app, solve), [&] { return solve; }},
        {&addPresets(app, presets), [&] { return presets; }},
        {&addRules(app, rules), [&] { return rules; }},
        {&addReference(app, reference), [&] { return reference; }},
        {&addReviewList(app, reviewList), [&] { return reviewList; }},
        {&addBackdrops(app, backdrops), [&] { return backdrops; }},
        {&addPreview(app, preview), [&] { return preview; }},
        {&addJob(app, job), [&] { return job; }},
        {&addPoses(app, poses), [&] { return poses; }},
    };
    for (const auto& [command, values] : commands) command->fallthrough();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return tl::unexpected(ended(app, error));
    }
    if (verbose) arguments.verbosity = Verbosity::verbose;
    for (const auto& [command, values] : commands)
        if (command->parsed()) arguments.command = values();
    return arguments;
}

}  // namespace morva
