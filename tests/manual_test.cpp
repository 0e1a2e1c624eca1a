// SPDX-License-Identifier: GPL-3.0-or-later
// The manual page and the completions of morva-cli know the commands and options that its help
// shows, and no others.
#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "base/files.h"
#include "cli/arguments.h"

namespace morva {

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;
/// The options of each command, "job import" for a part of one; "" holds those of all commands. A
/// command that is nothing without its parts has no entry.
using Commands = std::map<std::string, Names>;

const fs::path packaging = fs::path(MORVA_PROJECT) / "packaging";

std::string fileText(const fs::path& file) { return readFile(packaging / file).value(); }

Names matches(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern);
    Names found;
    for (std::sregex_iterator i(text.begin(), text.end(), regex), end; i != end; ++i)
        found.insert((*i)[1]);
    return found;
}

Names optionsIn(const std::string& text) { return matches(text, "(--[a-z][a-z-]*)"); }

/// The first column of a part of the help.
std::string column(const std::string& help, const std::string& heading) {
    const std::size_t begin = help.find("\n" + heading + ":\n");
    if (begin == std::string::npos) return "";
    const std::string part = help.substr(begin + 1, help.find("\n\n", begin) - begin);
    std::string names;
    for (const std::string& name : matches(part, "\n  (\\S+)")) names += name + "\n";
    return names;
}

/// Everything that the help shows, command by command.
void collect(Commands& found, const std::string& path, std::vector<const char*> words) {
    words.push_back("--help");
    const std::string help =
        parseArguments(static_cast<int>(words.size()), words.data()).error().text;
    words.pop_back();
    const Names parts = matches(column(help, "Subcommands"), "(\\S+)");
    if (parts.empty() || path.empty()) {
        Names options = optionsIn(column(help, "Options"));
        if (!path.empty()) options.erase("--help");
        found[path] = std::move(options);
    }
    for (const std::string& part : parts) {
        words.push_back(part.c_str());
        collect(found, path.empty() ? part : path + " " + part, words);
        words.pop_back();
    }
}

Commands ofTheHelp() {
    Commands found;
    collect(found, "", {"morva-cli"});
    return found;
}

/// The text after each heading up to the next one. Group 1 of the pattern is the command.
Commands sections(const std::string& text, const std::string& heading,
                  const std::function<Names(const std::string&)>& optionsOf) {
    const std::regex regex(heading);
    Commands found;
    for (std::sregex_iterator i(text.begin(), text.end(), regex), end; i != end; ++i) {
        const auto next = std::next(i);
        const auto stop = next == end ? text.size() : static_cast<std::size_t>(next->position());
        const auto start = static_cast<std::size_t>(i->position() + i->length());
        found[(*i)[1]] = optionsOf(text.substr(start, stop - start));
    }
    return found;
}

std::string withoutEscapes(std::string text) {
    for (std::size_t i; (i = text.find("\\-")) != std::string::npos;) text.erase(i, 1);
    return text;
}

TEST(Manual, tellsOfEveryCommandAndOption) {
    const std::string page = withoutEscapes(fileText("man/morva-cli.1"));
    // Only what has an entry of its own; the prose names options too.
    const auto entries = [](const std::string& text) {
        Names found;
        for (const std::string& line : matches(text, "\\.TP\n([^\n]*)"))
            found.merge(optionsIn(line));
        return found;
    };
    const std::size_t commands = page.find("\n.SH COMMANDS");
    const std::size_t end = page.find("\n.SH EXIT");
    Commands told = sections(page.substr(commands, end - commands),
                             "\n\\.SS ([a-z-]+(?: [a-z-]+)?)[^\n]*", entries);
    told[""] = entries(page.substr(0, commands));
    EXPECT_EQ(told, ofTheHelp());
}

TEST(Completions, knowEveryCommandAndOption) {
    Commands expected = ofTheHelp();
    const Names common = expected[""];
    expected.erase("");
    for (const auto& [path, options] : expected) {
        SCOPED_TRACE(path);
        const std::string bash = fileText("completions/morva-cli.bash");
        const auto words = matches(bash, "\n +\"" + path + "\"\\) words=\"([^\"]*)\"");
        ASSERT_EQ(words.size(), 1u);
        Names inBash = optionsIn(*words.begin());
        inBash.erase("--help");
        EXPECT_EQ(inBash, options);

        const std::string zsh = fileText("completions/_morva-cli");
        const std::size_t section = zsh.find("\n    '" + path + "')\n");
        ASSERT_NE(section, std::string::npos);
        const std::string body = zsh.substr(section, zsh.find(";;", section) - section);
        EXPECT_EQ(matches(body, "'\\*?(--[a-z-]+)\\["), options);

        Names inFish;
        for (const std::string& name : matches(fileText("completions/morva-cli.fish"),
                                               "__morva_cli_at " + path + "' -l ([a-z-]+)"))
            inFish.insert("--" + name);
        EXPECT_EQ(inFish, options);

        for (const std::string& shell : {bash, zsh, fileText("completions/morva-cli.fish")})
            EXPECT_THAT(shell, testing::ContainsRegex(path.substr(path.rfind(' ') + 1)));
    }
    for (const char* file : {"completions/morva-cli.bash", "completions/_morva-cli"})
        EXPECT_THAT(optionsIn(fileText(file)), testing::IsSupersetOf(common));
}

}  // namespace

}  // namespace morva
