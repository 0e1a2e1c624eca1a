// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/decoded_plates.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "analysis/image_loader.h"

namespace morva {

namespace {

Size sizeOf(const DecodedRegion& plate) {
    return {static_cast<double>(plate.sourceWidth), static_cast<double>(plate.sourceHeight)};
}

}  // namespace

/// One file in one state, at one scale.
struct DecodedPlates::Plate {
    std::filesystem::path file;
    std::optional<FileSignature> state;
    double minScale = 1;

    /// Held while the plate is decoded.
    std::mutex mutex;
    bool wasTried = false;
    /// All of it; null where it is too large or damaged somewhere. Set once, under both locks.
    std::shared_ptr<const DecodedRegion> whole;
};

DecodedPlates::DecodedPlates(std::size_t capacity) : capacity_(capacity) {}

DecodedPlates::~DecodedPlates() = default;

Result<Size> DecodedPlates::size(const std::filesystem::path& file) {
    const auto state = ImageLoader::fileSignature(file);
    {
        const std::lock_guard lock(mutex_);
        const auto known = std::ranges::find_if(plates_, [&](const auto& plate) {
            return plate->whole && plate->file == file && plate->state == state;
        });
        if (known != plates_.end()) return sizeOf(*(*known)->whole);
    }
    return decodeRegion(file, Rect{}, 0).map(sizeOf);
}

Result<DecodedRegion> DecodedPlates::region(const std::filesystem::path& file, const Rect& region,
                                            double minScale) {
    if (const auto whole = pixels(*plate(file, minScale))) return partOf(*whole, region);
    return decodeRegion(file, region, minScale);
}

std::shared_ptr<DecodedPlates::Plate> DecodedPlates::plate(const std::filesystem::path& file,
                                                           double minScale) {
    const double scale = decodedScale(minScale);
    const auto state = ImageLoader::fileSignature(file);
    const std::lock_guard lock(mutex_);
    auto known = std::ranges::find_if(plates_, [&](const auto& plate) {
        return plate->file == file && plate->state == state && plate->minScale == scale;
    });
    if (known == plates_.end()) {
        plates_.push_front(std::make_shared<Plate>());
        known = plates_.begin();
        (*known)->file = file;
        (*known)->state = state;
        (*known)->minScale = scale;
    }
    plates_.splice(plates_.begin(), plates_, known);
    return plates_.front();
}

std::shared_ptr<const DecodedRegion> DecodedPlates::pixels(Plate& plate) {
    const std::lock_guard decoding(plate.mutex);
    if (std::exchange(plate.wasTried, true)) return plate.whole;
    const auto all = [](Size size) { return Rect{0, 0, size.width, size.height}; };
    const auto size = this->size(plate.file);
    const double bytes =
        size ? size->width * size->height * plate.minScale * plate.minScale * 3 : 0;
    if (!size || bytes > static_cast<double>(capacity_)) return nullptr;
    auto decoded = decodeRegion(plate.file, all, plate.minScale);
    // A fault that a crop need not see is none.
    if (!decoded) return nullptr;
    const std::lock_guard lock(mutex_);
    plate.whole = std::make_shared<const DecodedRegion>(std::move(*decoded));
    makeRoom(plate);
    return plate.whole;
}

void DecodedPlates::makeRoom(const Plate& latest) {
    std::size_t held = 0;
    for (const auto& plate : plates_) held += plate->whole ? plate->whole->pixels.byteCount() : 0;
    for (auto at = plates_.end(); held > capacity_ && at != plates_.begin();) {
        --at;
        if (at->get() == &latest || !(*at)->whole) continue;
        held -= (*at)->whole->pixels.byteCount();
        at = plates_.erase(at);
    }
}

}  // namespace morva
