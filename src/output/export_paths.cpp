// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/export_paths.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <memory>
#include <set>
#include <system_error>
#include <unordered_map>

#include <QFile>
#include <QString>

namespace morva::Exporter {

namespace {

namespace fs = std::filesystem;

/// What tells two names apart where upper and lower case are the same.
std::string caseless(const fs::path& path) {
    return QFile::decodeName(path.c_str()).toLower().toStdString();
}

/// The lower-case extension of `source` without its dot.
std::string extensionOf(const fs::path& source) {
    std::string extension = source.extension().string();
    std::ranges::transform(extension, extension.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension.empty() ? extension : extension.substr(1);
}

/// The end of a file name that needed `word` to be told apart.
std::string suffixed(const std::string& word) {
    std::string suffix{'-'};
    return suffix.append(word).append(".jpg");
}

/// Hands out names that nobody has yet.
class NamePool {
public:
    fs::path take(const fs::path& wanted) {
        fs::path name = wanted;
        for (int n = 2; !taken_.insert(caseless(name)).second; ++n) {
            name = wanted.parent_path() / wanted.stem();
            name += suffixed(std::to_string(n));
        }
        return name;
    }

private:
    std::set<std::string> taken_;
};

struct Planned {
    fs::path source;
    fs::path destination;
};

/// Sources that would share a name, in the order in which each name was first met.
std::vector<std::vector<Planned>> groupedByName(const std::vector<fs::path>& sources,
                                                const fs::path& root, const fs::path& folder) {
    std::vector<std::vector<Planned>> groups;
    std::unordered_map<std::string, std::size_t> groupOf;
    for (const fs::path& source : sources) {
        Planned planned{source, destinationURL(source, root, folder)};
        const auto [found, isNew] =
            groupOf.try_emplace(caseless(planned.destination), groups.size());
        if (isNew) groups.emplace_back();
        groups[found->second].push_back(std::move(planned));
    }
    return groups;
}

}  // namespace

fs::path standardized(const fs::path& path) {
    std::error_code ignored;
    fs::path absolute = fs::absolute(path, ignored);
    fs::path normal = (ignored ? path : absolute).lexically_normal();
    return normal.has_relative_path() && !normal.has_filename() ? normal.parent_path() : normal;
}

fs::path destinationURL(const fs::path& source, const fs::path& root,
                        const fs::path& exportFolder) {
    const std::string sourcePath = standardized(source).string();
    const std::string rootPath = standardized(root).string();
    std::string relative =
        sourcePath.starts_with(rootPath) ? sourcePath.substr(rootPath.size()) : sourcePath;
    if (relative.starts_with('/')) relative.erase(0, 1);
    if (relative.empty()) relative = standardized(source).filename().string();
    return exportFolder / fs::path(relative).replace_extension(".jpg");
}

std::map<fs::path, fs::path> destinationURLs(const std::vector<fs::path>& sources,
                                             const fs::path& root, const fs::path& exportFolder) {
    std::map<fs::path, fs::path> destinations;
    NamePool names;
    for (const auto& group : groupedByName(sources, root, exportFolder)) {
        for (const Planned& planned : group) {
            fs::path wanted = planned.destination;
            if (group.size() > 1) {
                wanted.replace_extension();
                wanted += suffixed(extensionOf(planned.source));
            }
            destinations[planned.source] = names.take(wanted);
        }
    }
    return destinations;
}

std::string canonicalPath(const fs::path& path) {
    fs::path existing = standardized(path);
    fs::path missing;
    std::error_code ignored;
    while (!fs::exists(existing, ignored) && existing.has_relative_path()) {
        missing = missing.empty() ? existing.filename() : existing.filename() / missing;
        existing = existing.parent_path();
    }
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(existing.c_str(), nullptr),
                                                           &std::free);
    const fs::path resolved = real ? fs::path(real.get()) : existing;
    return missing.empty() ? resolved.string() : (resolved / missing).string();
}

bool wouldWriteInto(std::span<const fs::path> protectedFolders, const fs::path& exportFolder,
                    const std::map<fs::path, fs::path>& destinations) {
    std::set<fs::path> written{exportFolder};
    for (const auto& [photo, file] : destinations) written.insert(file.parent_path());
    return std::ranges::any_of(protectedFolders, [&](const fs::path& folder) {
        return std::ranges::any_of(
            written, [&](const fs::path& place) { return isContained(place, folder); });
    });
}

std::optional<fs::path> folderOutside(const fs::path& exportFolder,
                                      const std::map<fs::path, fs::path>& destinations) {
    std::set<fs::path> folders;
    for (const auto& [photo, file] : destinations) folders.insert(file.parent_path());
    const auto outside = std::ranges::find_if(
        folders, [&](const fs::path& folder) { return !isContained(folder, exportFolder); });
    if (outside == folders.end()) return std::nullopt;
    return *outside;
}

std::string outsideText(const fs::path& folder) {
    return "Nothing is written into " + folder.string() +
           ": a link leads from there out of the export folder.";
}

bool isContained(const fs::path& a, const fs::path& b) {
    const std::string inner = canonicalPath(a);
    std::string outer = canonicalPath(b);
    if (inner == outer) return true;
    if (!outer.ends_with('/')) outer += '/';
    return inner.starts_with(outer);
}

}  // namespace morva::Exporter
