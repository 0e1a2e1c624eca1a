// SPDX-License-Identifier: GPL-3.0-or-later
// Entries of the analysis cache that something has damaged: each is a hit or a miss, and a hit can
// be stored and found again.
#include <fcntl.h>
#include <sys/stat.h>

#include "base/files.h"
#include "json_round_trip.h"
#include "model/jobs/analysis_cache.h"
#include "scratch_folder.h"

namespace {

using namespace morva;

/// A photo of five bytes from the time that the seeds name, so that their entries belong to it.
const std::filesystem::path& photo() {
    static const std::filesystem::path file = [] {
        constexpr timespec taken{1700000000, 0};
        constexpr timespec times[2]{taken, taken};
        const auto made = scratchFolder() / "photo.jpg";
        if (!writeFileAtomically(made, "photo") || utimensat(AT_FDCWD, made.c_str(), times, 0) != 0)
            std::abort();
        return made;
    }();
    return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const AnalysisCache cache(scratchFolder());
    static const auto entry = cache.directory() / (AnalysisCache::key(photo()) + ".json");
    if (!makeFolder(cache.directory()) || !writeFileAtomically(entry, textOf(data, size)))
        std::abort();
    const auto found = cache.load(photo());
    if (!found) return 0;
    if (!cache.store(*found, photo(), *ImageLoader::fileSignature(photo()))) std::abort();
    if (cache.load(photo()) != found) std::abort();
    return 0;
}
