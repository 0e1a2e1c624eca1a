// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/print_cache.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <thread>

#include "analysis/image_loader.h"
#include "base/files.h"
#include "model/jobs/analysis_cache.h"
#include "vision/feature_printer.h"

namespace morva {

/// What a file begins with; the numbers follow in this machine's own form, for a cache does not
/// travel.
struct PrintCache::Header {
    std::int64_t revision = FeaturePrinter::revision;
    double modified = 0;
    std::int64_t size = 0;

    bool operator==(const Header&) const = default;
};

std::filesystem::path PrintCache::fileOf(const std::filesystem::path& photo) const {
    return directory_ / (AnalysisCache::key(photo) + ".print");
}

std::optional<PrintCache::Print> PrintCache::load(const std::filesystem::path& photo,
                                                  const Header& wanted) const {
    const auto bytes = readFile(fileOf(photo));
    if (!bytes || bytes->size() <= sizeof(Header)) return std::nullopt;
    Header header;
    std::memcpy(&header, bytes->data(), sizeof(Header));
    const std::size_t rest = bytes->size() - sizeof(Header);
    if (header != wanted || rest % sizeof(float) != 0) return std::nullopt;
    Print print(rest / sizeof(float));
    std::memcpy(print.data(), bytes->data() + sizeof(Header), rest);
    return print;
}

Result<void> PrintCache::store(const Print& print, const std::filesystem::path& photo,
                               const Header& made) const {
    std::string bytes(sizeof(Header) + print.size() * sizeof(float), '\0');
    std::memcpy(bytes.data(), &made, sizeof(Header));
    std::memcpy(bytes.data() + sizeof(Header), print.data(), print.size() * sizeof(float));
    return makeFolder(directory_).and_then([&] {
        return writeFileAtomically(fileOf(photo), bytes);
    });
}

Result<PrintCache::Print> PrintCache::print(const std::filesystem::path& photo,
                                            const Make& make) const {
    const auto now = ImageLoader::fileSignature(photo);
    if (!now) return make(photo);
    const Header header{.modified = now->modified, .size = now->size};
    if (auto stored = load(photo, header)) return std::move(*stored);
    auto made = make(photo);
    // A print that cannot be kept is made again the next time.
    if (made) static_cast<void>(store(*made, photo, header));
    return made;
}

std::vector<std::optional<PrintCache::Print>> PrintCache::printsOf(
    std::span<const std::filesystem::path> photos, const Making& making) const {
    std::vector<std::optional<Print>> prints(photos.size());
    std::atomic<std::size_t> next{0};
    std::atomic<int> done{0};
    const auto work = [&] {
        for (std::size_t i = next++; i < photos.size() && !making.stop; i = next++) {
            if (auto made = print(photos[i], making.print)) prints[i] = std::move(*made);
            making.tick(++done);
        }
    };
    {
        std::vector<std::jthread> threads;
        threads.reserve(static_cast<std::size_t>(making.threads));
        for (int i = 0; i < making.threads; ++i) threads.emplace_back(work);
    }
    return prints;
}

}  // namespace morva
