// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/app_services.h"

#include <mutex>
#include <optional>

#include "analysis/analysis_pipeline.h"
#include "analysis/reference_analyzer.h"
#include "output/matte_cutter.h"
#include "vision/vision_services.h"

namespace morva {

namespace {

/// The detectors, loaded by the first worker that needs them.
class LazyVision {
public:
    explicit LazyVision(std::filesystem::path cacheFolder) : cacheFolder_(std::move(cacheFolder)) {}

    Result<VisionServices> get() {
        const std::scoped_lock held(lock_);
        // A model that is missing may be there the next time.
        if (!opened_ || !*opened_)
            opened_ = VisionServices::open(VisionServices::modelFolder(), cacheFolder_);
        return *opened_;
    }

private:
    std::mutex lock_;
    std::filesystem::path cacheFolder_;
    std::optional<Result<VisionServices>> opened_;
};

ImageAnalysis unmeasured(const std::string& reason) {
    ImageAnalysis record;
    record.detectionFailed = true;
    record.error = reason;
    return record;
}

/// Nobody can be cut out: the photo falls back as for any other failed matte.
class NoCutter final : public ChildCutter {
public:
    explicit NoCutter(Failure reason) : reason_(std::move(reason)) {}
    Result<std::optional<CutOut>> cutOut(DecodedRegion&) const override {
        return tl::unexpected(reason_);
    }

private:
    Failure reason_;
};

}  // namespace

AppServices AppServices::real(const Folders& folders) {
    AnalysisPipeline::readTaughtPosesFrom(folders.data);
    const auto vision = std::make_shared<LazyVision>(folders.cache);
    AppServices services;
    services.folders = folders;
    services.prepare = [vision] { return vision->get().map([](const VisionServices&) {}); };
    services.analyze = [vision](const Path& photo, const std::stop_token& stop) {
        const auto opened = vision->get();
        return opened ? AnalysisPipeline::analyze(photo, *opened, stop)
                      : unmeasured(opened.error().message);
    };
    services.featurePrint = [vision](const Path& photo) {
        return vision->get().and_then([&](const VisionServices& opened) {
            return AnalysisPipeline::posePrint(photo, opened);
        });
    };
    services.measureReference = [vision](const Path& photo) -> Result<ReferenceGeometry> {
        const auto opened = vision->get();
        if (!opened) return tl::unexpected(opened.error());
        const auto measured = ReferenceAnalyzer::measure(photo, *opened);
        if (!measured) return failure(ReferenceAnalyzer::message(measured.error()));
        return measured->reference;
    };
    services.cutterFor = [vision](const Path& photo, const ImageAnalysis& analysis,
                                  const std::stop_token& stop) -> std::unique_ptr<ChildCutter> {
        const auto opened = vision->get();
        if (!opened) return std::make_unique<NoCutter>(opened.error());
        return std::make_unique<MatteCutter>(photo, analysis.faces, *opened, stop);
    };
    services.posesChanged = [] { AnalysisPipeline::reloadTags(); };
    return services;
}

}  // namespace morva
