// SPDX-License-Identifier: GPL-3.0-or-later
// The real person segmenter: a model of six classes; a person is whatever is not background, so
// that hats, bows and scarves, which come as a patchwork of classes, belong to the person.
#pragma once

#include <filesystem>
#include <memory>

#include "vision/inference_model.h"
#include "vision/person_segmenter.h"

namespace morva {

class ClassPersonSegmenter final : public PersonSegmenter {
public:
    static Result<std::shared_ptr<const ClassPersonSegmenter>> load(
        InferenceEngine& engine, const std::filesystem::path& models);

    Result<PersonMap> persons(const Picture& picture, const Rect& region) const override;
    Result<RegionMap> faceSkin(const Picture& picture, const PictureRegion& region) const override;

private:
    ClassPersonSegmenter() = default;

    std::shared_ptr<const InferenceModel> model_;
};

}  // namespace morva
