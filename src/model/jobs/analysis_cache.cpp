// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/jobs/analysis_cache.h"

#include <system_error>

#include "base/file_url.h"
#include "base/files.h"

namespace morva {

namespace {

namespace fs = std::filesystem;

struct Entry {
    fs::path path;
    double modified = 0;
    std::int64_t size = 0;
    ImageAnalysis analysis;
};

void to_json(Json& json, const Entry& entry) {
    json = {{"path", fileURL(entry.path)},
            {"modified", entry.modified},
            {"size", entry.size},
            {"analysis", entry.analysis}};
}

void from_json(const Json& json, Entry& entry) {
    entry.path = pathOfFileURL(required<std::string>(json, "path"));
    entry.modified = required<double>(json, "modified");
    entry.size = required<std::int64_t>(json, "size");
    entry.analysis = required<ImageAnalysis>(json, "analysis");
}

fs::path standardized(const fs::path& photo) {
    std::error_code none;
    return fs::absolute(photo, none).lexically_normal();
}

}  // namespace

AnalysisCache::AnalysisCache(const fs::path& cacheFolder) : directory_(cacheFolder / "analysis") {}

std::string AnalysisCache::key(const fs::path& photo) {
    return sha256(standardized(photo).native());
}

fs::path AnalysisCache::entryFile(const fs::path& photo) const {
    return directory_ / (key(photo) + ".json");
}

std::optional<ImageAnalysis> AnalysisCache::load(const fs::path& photo) const {
    const auto signature = ImageLoader::fileSignature(photo);
    if (!signature) return std::nullopt;
    const auto text = readFile(entryFile(photo));
    if (!text) return std::nullopt;
    auto entry = decoded<Entry>(*text, "a stored analysis");
    const bool valid = entry && entry->modified == signature->modified &&
                       entry->size == signature->size && entry->analysis.isCurrent();
    if (!valid) return std::nullopt;
    return std::move(entry->analysis);
}

Result<void> AnalysisCache::store(const ImageAnalysis& analysis, const fs::path& photo,
                                  const FileSignature& made) const {
    if (auto folder = makeFolder(directory_); !folder) return folder;
    const Entry entry{standardized(photo), made.modified, made.size, analysis};
    return writeFileAtomically(entryFile(photo), jsonText(entry) + "\n");
}

Result<void> AnalysisCache::clear() const { return emptyFolder(directory_); }

}  // namespace morva
