// SPDX-License-Identifier: GPL-3.0-or-later
// The real feature printer: what the person classes' network knows inside about hair, clothes, hats
// and held things, averaged over the picture.
#pragma once

#include <filesystem>
#include <memory>
#include <mutex>

#include "vision/feature_printer.h"
#include "vision/inference_model.h"

namespace morva {

class ClassFeaturePrinter final : public FeaturePrinter {
public:
    /// Compiles the network, found in `models`, with the first print: most users teach no poses.
    ClassFeaturePrinter(std::shared_ptr<InferenceEngine> engine, std::filesystem::path models);

    Result<std::vector<float>> print(const Picture& picture) const override;

private:
    const Result<std::shared_ptr<const InferenceModel>>& network() const;

    std::shared_ptr<InferenceEngine> engine_;
    std::filesystem::path models_;
    mutable std::once_flag compiledOnce_;
    mutable Result<std::shared_ptr<const InferenceModel>> network_;
};

}  // namespace morva
