// SPDX-License-Identifier: GPL-3.0-or-later
// Backdrop photographs as they were decoded, kept while one export run goes through its photos:
// all of them mostly show the same one. Made by whoever exports several photos, asked by
// `BackdropReplacer` from several threads at once. Never changes what is seen of a plate.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <list>
#include <memory>
#include <mutex>

#include "base/geometry.h"
#include "base/result.h"
#include "imaging/decode.h"

namespace morva {

class DecodedPlates {
public:
    /// Bytes of pixels: a plate of 26 megapixels, or several that are needed at reduced scale. With
    /// the models and one photo this stays below 700 MB.
    static constexpr std::size_t defaultCapacity = 80'000'000;

    /// Those that were not needed for longest go first; beside them there is only what somebody is
    /// decoding or using. A plate that alone is larger is not kept.
    explicit DecodedPlates(std::size_t capacity = defaultCapacity);
    ~DecodedPlates();
    DecodedPlates(const DecodedPlates&) = delete;
    DecodedPlates& operator=(const DecodedPlates&) = delete;

    /// Upright, in pixels.
    Result<Size> size(const std::filesystem::path& file);

    /// The same pixels as `decodeRegion`, and fails where it fails. Whoever asks first for a plate
    /// (or after its file changed, or at another scale) decodes all of it while the others wait.
    Result<DecodedRegion> region(const std::filesystem::path& file, const Rect& region,
                                 double minScale);

private:
    struct Plate;
    std::shared_ptr<Plate> plate(const std::filesystem::path& file, double minScale);
    std::shared_ptr<const DecodedRegion> pixels(Plate& plate);
    void makeRoom(const Plate& latest);

    const std::size_t capacity_;
    std::mutex mutex_;
    /// The one used last in front.
    std::list<std::shared_ptr<Plate>> plates_;
};

}  // namespace morva
