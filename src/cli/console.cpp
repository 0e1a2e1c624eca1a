// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/console.h"

#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace morva {

namespace {

constexpr std::size_t barWidth = 24;

bool wantsColor() {
    const char* none = std::getenv("NO_COLOR");
    return !none || *none == '\0';
}

template <class... Values>
std::string printed(const char* format, Values... values) {
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

}  // namespace

std::string clockText(double seconds) {
    const long whole = std::lround(seconds);
    const long hours = whole / 3600;
    const long minutes = whole / 60 % 60;
    return hours > 0 ? printed("%ld:%02ld:%02ld", hours, minutes, whole % 60)
                     : printed("%ld:%02ld", minutes, whole % 60);
}

std::string progressText(std::string_view what, std::size_t done, std::size_t total,
                         double seconds) {
    const std::size_t filled = total > 0 ? barWidth * done / total : barWidth;
    std::string text = std::string(what) + " [" + std::string(filled, '#') +
                       std::string(barWidth - filled, '.') + "] ";
    text += std::to_string(done) + " of " + std::to_string(total);
    if (done == 0 || seconds <= 0) return text;
    const double rate = static_cast<double>(done) / seconds;
    text += printed(rate < 10 ? "  %.1f a second" : "  %.0f a second", rate);
    return text + "  " + clockText(static_cast<double>(total - done) / rate) + " left";
}

Console::Console(Verbosity verbosity)
    : verbosity_(verbosity), terminal_(isatty(STDERR_FILENO) == 1), color_(wantsColor()) {}

Console::~Console() { wipeProgress(); }

void Console::line(std::string_view text) {
    const std::string bar = bar_;
    wipeProgress();
    std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
    bar_ = bar;
    if (!bar_.empty()) std::fprintf(stderr, "%s", bar_.c_str());
}

void Console::failure(std::string_view text) { line(text); }

void Console::say(std::string_view text) {
    if (verbosity_ != Verbosity::quiet) line(text);
}

void Console::detail(std::string_view text) {
    if (verbosity_ == Verbosity::verbose) line(text);
}

void Console::heading(std::string_view text) {
    const bool bold = terminal_ && color_;
    say(bold ? "\033[1m" + std::string(text) + "\033[0m" : std::string(text));
}

void Console::beginProgress(std::string_view what, std::size_t total) {
    what_ = what;
    total_ = total;
    begun_ = std::chrono::steady_clock::now();
    progress(0);
}

void Console::progress(std::size_t done) {
    if (!terminal_ || verbosity_ == Verbosity::quiet) return;
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begun_;
    wipeProgress();
    bar_ = progressText(what_, done, total_, passed.count());
    std::fprintf(stderr, "%s", bar_.c_str());
}

void Console::wipeProgress() {
    if (bar_.empty()) return;
    std::fprintf(stderr, "\r\033[K");
    bar_.clear();
}

}  // namespace morva
