// SPDX-License-Identifier: GPL-3.0-or-later
// The command line as values. Reads and checks what was typed; opens no file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <tl/expected.hpp>

#include "cli/exit_code.h"
#include "cli/shard.h"

namespace morva {

enum class Verbosity { quiet, normal, verbose };

/// Which crops are written without a person looking at them.
enum class Approval { ready, all };

/// Half the cores, at least 2 and at most 6: the other half keeps the computer usable.
int defaultJobs();

/// Which presets the photos of a batch get, and whether frames of one child share a size.
struct SelectionArguments {
    std::string preset = "Headshot";
    /// A file of rules, or "auto" for the user's own.
    std::optional<std::string> rules;
    bool group = true;
};

struct CropArguments {
    std::vector<std::filesystem::path> inputs;
    std::filesystem::path out;
    SelectionArguments selection;
    int jobs = defaultJobs();
    bool json = false;
    bool dryRun = false;
    std::optional<std::filesystem::path> overlay;
    bool force = false;
    bool strict = false;
    Approval approve = Approval::all;
    /// What --backdrop says; each preset's own choice when absent.
    std::optional<std::string> backdrop;
    /// Where the report goes; among the crops when absent.
    std::optional<std::filesystem::path> report;
    /// Where the list of photos that wait on the user goes.
    std::optional<std::filesystem::path> reviewList;
    /// Which share of the photos to work on; all when absent.
    std::optional<Shard> shard;
};

struct MergeReportsArguments {
    std::vector<std::filesystem::path> folders;
};

struct AnalyzeArguments {
    std::vector<std::filesystem::path> inputs;
    int jobs = defaultJobs();
    bool json = false;
};

struct SolveArguments {
    std::vector<std::filesystem::path> records;
    SelectionArguments selection;
};

struct PreviewArguments {
    std::filesystem::path photo;
    std::filesystem::path out;
    std::string preset = "Headshot";
    /// As in CropArguments.
    std::optional<std::string> backdrop;
    int height = 800;
};

struct ReviewListArguments {
    std::vector<std::filesystem::path> records;
    SelectionArguments selection;
};

struct BackdropsArguments {
    /// Suggest one for a crop type instead of listing all.
    bool suggest = false;
    std::string preset = "Headshot";
    bool json = false;
};

struct PresetsArguments {
    /// The preset to show; all are listed when absent.
    std::optional<std::string> show;
    bool json = false;
};

struct RulesArguments {
    /// A file of rules, or "auto" for the user's own.
    std::string rules = "auto";
    bool json = false;
};

struct ReferenceArguments {
    std::filesystem::path image;
    std::string preset = "Headshot";
    /// Where the preset goes; standard output when absent.
    std::optional<std::filesystem::path> out;
    bool json = false;
};

struct JobArguments {
    enum class Action { import, list, crop, approve, exportPhotos, reviewList, remove };

    Action action = Action::list;
    /// To import.
    std::filesystem::path folder;
    /// Identity, name or folder of the job.
    std::string job;
    /// Of a new job; the first of the library when absent.
    std::optional<std::string> preset;
    /// Photos to approve, and all that are ready.
    std::vector<std::string> photos;
    bool ready = false;
    bool takeBack = false;
    /// Measure again what is measured.
    bool force = false;
    bool strict = false;
    bool approvedOnly = false;
    /// Write also what is there with the same crop.
    bool replace = false;
    /// The export's folder, or the review list's file.
    std::optional<std::filesystem::path> out;
    int jobs = defaultJobs();
    bool json = false;
};

enum class PosesAction { list, train, test, add, save, remove };

struct PosesArguments {
    PosesAction action = PosesAction::list;
    /// The pose that is taught or removed.
    std::string name;
    std::vector<std::filesystem::path> examples;
    std::vector<std::filesystem::path> others;
    /// The preset that a rule gives to photos of the pose; no rule is made when absent.
    std::optional<std::string> preset;
    bool dryRun = false;
    /// Photos to test.
    std::vector<std::filesystem::path> inputs;
    std::filesystem::path pack;
    /// Poses that go into the pack; all when empty.
    std::vector<std::string> chosen;
    int jobs = defaultJobs();
    bool json = false;
};

using Command =
    std::variant<CropArguments, AnalyzeArguments, SolveArguments, PresetsArguments, RulesArguments,
                 ReferenceArguments, ReviewListArguments, BackdropsArguments, PreviewArguments,
                 JobArguments, PosesArguments, MergeReportsArguments>;

struct Arguments {
    Verbosity verbosity = Verbosity::normal;
    std::filesystem::path dataFolder;
    std::filesystem::path cacheFolder;
    Command command;
};

/// There is nothing to run: help or the version was asked for, or the line was wrong.
struct EarlyEnd {
    ExitCode code = ExitCode::done;
    std::string text;
};

/// "0.1.0".
std::string programVersion();

tl::expected<Arguments, EarlyEnd> parseArguments(int argc, const char* const* argv);

}  // namespace morva
