// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/folder_reading.h"

#include <map>
#include <set>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "analysis/image_loader.h"
#include "base/file_url.h"
#include "base/natural_order.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

/// A file of that name does not exist, as opposed to not being seen.
bool isGone(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(file, error);
    return status.type() == fs::file_type::not_found;
}

using StampKey = std::pair<double, std::int64_t>;
StampKey keyOf(const FileStamp& stamp) { return {stamp.modified, stamp.size}; }

/// New files that are vanished ones under another name, by their path. Two with the same size and
/// time cannot be told apart and are both taken as new.
std::map<fs::path, std::string> renamed(const std::vector<KnownPhoto>& vanished,
                                        const std::vector<fs::path>& fresh,
                                        const std::map<fs::path, FileStamp>& stamps) {
    std::map<StampKey, std::vector<std::string>> before;
    for (const KnownPhoto& photo : vanished)
        if (photo.stamp) before[keyOf(*photo.stamp)].push_back(photo.id);
    std::map<StampKey, std::vector<fs::path>> now;
    for (const fs::path& file : fresh)
        if (const auto at = stamps.find(file); at != stamps.end())
            now[keyOf(at->second)].push_back(file);
    std::map<fs::path, std::string> found;
    for (const auto& [stamp, files] : now) {
        const auto at = before.find(stamp);
        if (files.size() == 1 && at != before.end() && at->second.size() == 1)
            found.emplace(files.front(), at->second.front());
    }
    return found;
}

/// Hands out identities that no photo of the job has.
class Identities {
public:
    explicit Identities(const std::vector<KnownPhoto>& known) {
        for (const KnownPhoto& photo : known) taken_.insert(photo.id);
    }

    std::string forPath(const fs::path& relative) {
        const std::string wanted = fileURL(relative);
        std::string id = wanted;
        for (int n = 2; !taken_.insert(id).second; ++n) id = wanted + "#" + std::to_string(n);
        return id;
    }

private:
    std::set<std::string> taken_;
};

/// The folder held against the job, step by step.
struct Comparison {
    const std::vector<KnownPhoto>& known;
    /// Every file that the job will have, in natural order.
    std::vector<fs::path> files;
    std::map<fs::path, FileStamp> stamps;
    std::map<fs::path, const KnownPhoto*> knownAt;
    std::vector<KnownPhoto> vanished;
    /// Identities of photos that have another name now, by that name.
    std::map<fs::path, std::string> oldNames;

    Comparison(const std::vector<KnownPhoto>& photos, std::vector<fs::path> listed)
        : known(photos), files(std::move(listed)) {
        const std::set<fs::path> present(files.begin(), files.end());
        for (const KnownPhoto& photo : known) {
            knownAt.emplace(photo.url, &photo);
            if (present.contains(photo.url)) continue;
            if (isGone(photo.url))
                vanished.push_back(photo);
            else
                files.push_back(photo.url);
        }
        if (files.size() > present.size()) sortNaturally(files);
        std::vector<fs::path> fresh;
        for (const fs::path& file : files) {
            if (const auto stamp = ImageLoader::fileSignature(file)) stamps.emplace(file, *stamp);
            if (!knownAt.contains(file)) fresh.push_back(file);
        }
        oldNames = renamed(vanished, fresh, stamps);
    }

    std::optional<FileStamp> stampOf(const fs::path& file) const {
        const auto found = stamps.find(file);
        return found == stamps.end() ? std::nullopt : std::optional(found->second);
    }

    /// Whether what the job knows of the file, under this name or an older one, still holds.
    bool isUnchanged(const fs::path& file) const {
        if (oldNames.contains(file)) return true;
        const auto found = knownAt.find(file);
        return found != knownAt.end() && found->second->stamp &&
               found->second->stamp == stampOf(file);
    }

    /// Of the photo in the job; nothing for a new one.
    std::optional<std::string> identity(const fs::path& file) const {
        if (const auto found = knownAt.find(file); found != knownAt.end()) return found->second->id;
        const auto found = oldNames.find(file);
        return found == oldNames.end() ? std::nullopt : std::optional(found->second);
    }

    std::vector<std::string> gone() const {
        std::set<std::string> kept;
        for (const auto& [file, id] : oldNames) kept.insert(id);
        std::vector<std::string> lost;
        for (const KnownPhoto& photo : vanished)
            if (!kept.contains(photo.id)) lost.push_back(photo.id);
        return lost;
    }
};

}  // namespace

std::vector<KnownPhoto> KnownPhoto::of(std::span<const ImageItem> items) {
    std::vector<KnownPhoto> known;
    known.reserve(items.size());
    for (const ImageItem& item : items) known.push_back({item.id, item.url, item.analyzedStamp});
    return known;
}

Result<FolderReading> FolderReading::of(const fs::path& folder,
                                        const std::vector<KnownPhoto>& known,
                                        const AnalysisCache& cache, const std::atomic<bool>& stop,
                                        const std::function<void(int, int)>& read) {
    auto listed = ImageLoader::listImages(folder);
    if (!listed) return tl::unexpected(listed.error());
    const Comparison compared(known, std::move(*listed));
    FolderReading reading;
    Identities identities(known);
    const int total = static_cast<int>(compared.files.size());
    for (const fs::path& file : compared.files) {
        if (stop) return failure("The import was cancelled.");
        Photo photo{.id = compared.identity(file).value_or(""),
                    .url = file,
                    .analysis = {},
                    .stamp = compared.stampOf(file)};
        if (photo.id.empty()) photo.id = identities.forPath(file.lexically_relative(folder));
        if (!compared.isUnchanged(file)) photo.analysis = cache.load(file);
        reading.photos.push_back(std::move(photo));
        read(static_cast<int>(reading.photos.size()), total);
    }
    reading.gone = compared.gone();
    return reading;
}

std::vector<ImageItem> FolderReading::applied(std::vector<ImageItem> items,
                                              const fs::path& folder) const {
    std::unordered_map<std::string, ImageItem> before;
    for (ImageItem& item : items) before.emplace(item.id, std::move(item));
    std::vector<ImageItem> after;
    after.reserve(photos.size());
    for (const Photo& photo : photos) {
        ImageItem item;
        if (auto known = before.extract(photo.id)) item = std::move(known.mapped());
        item.id = photo.id;
        item.url = photo.url;
        item.relativePath = photo.url.lexically_relative(folder);
        if (photo.analysis) {
            item.analysis = photo.analysis;
            item.analyzedStamp = photo.stamp;
        } else if (photo.stamp && item.analyzedStamp != photo.stamp) {
            item.analysis.reset();
            item.analyzedStamp.reset();
        }
        after.push_back(std::move(item));
    }
    return after;
}

}  // namespace morva
