// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "analysis/analysis_pipeline.h"
#include "analysis/image_loader.h"
#include "analysis/photo_test_support.h"

namespace morva {
namespace {

TEST(AnalysisSoak, measuresAPhotoAlikeBeforeAndAfterAHundredOthers) {
    if (!testData()) GTEST_SKIP() << "no reference photographs here";
    const auto sample = [] {
        ImageAnalysis record = AnalysisPipeline::analyze(samplePortrait(), realVision());
        record.analysisSeconds = 0;
        return record;
    };
    const ImageAnalysis before = sample();
    const auto others = ImageLoader::listImages(*testData() / "portraits");
    ASSERT_TRUE(others);
    ASSERT_GE(others->size(), 100u);
    for (const auto& file : *others) AnalysisPipeline::analyze(file, realVision());
    EXPECT_EQ(sample(), before);
}

}  // namespace
}  // namespace morva
