// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "model/presets/preset_library.h"

namespace morva {
namespace {

constexpr const char* headshotJson =
    R"({"id":"1A2B3C4D-0001-4000-8000-000000000001","name":"Headshot 4x5","aspectWidth":4.0,)"
    R"("aspectHeight":5.0,"faceScale":0.2148,"horizontalPosition":0.5,)"
    R"("horizontalAnchor":"headCenter","verticalMode":"topMargin","topMargin":0.057,)"
    R"("eyeLinePosition":0.316,"protectHair":true,"protectAccessories":true,)"
    R"("protectProps":false,"protectPropsOverhead":false,"steadyPerSubject":true,)"
    R"("minEdgeClearance":0.02,"outlierTolerance":0.12,"rotationMode":"levelEyes",)"
    R"("cameraRollDegrees":0.0,"levelMaxDegrees":3.0,"levelStrength":1.0,)"
    R"("autoApproveConfidence":0.8,"export":{"pixelWidth":2400,"pixelHeight":3000,)"
    R"("jpegQuality":0.92,"dpi":300.0,"preserveMetadata":true,"backdrop":"repeatEdges",)"
    R"("floorReflection":true,"backdropVignette":0.6,"plateZoom":1.45},"framing":"face",)"
    R"("bodyTopMargin":0.142,"bodyBottomAnchor":0.847,"bodyHipAnchor":0.708,"badge":"Head",)"
    R"("exportRating":5,"color":[0.36,0.8,0.45]})";

ReferenceGeometry reference() {
    return {.sourceName = "model.jpg",
            .cropWidth = 800,
            .cropHeight = 1000,
            .faceScale = 0.21,
            .eyeX = 0.48,
            .eyeY = 0.33,
            .chinX = 0.5,
            .chinY = 0.54,
            .faceCenterX = 0.49,
            .headTopY = 0.05,
            .aspect = 0.8,
            .landmarkConfidence = 0.9,
            .measuredAt = 1.7e9};
}

TEST(PresetJson, writesTheHeadshotWithEveryKeyInOrder) {
    const CropPreset headshot = *PresetLibrary::replacement(PresetLibrary::headshotID());
    EXPECT_EQ(Json(headshot).dump(), headshotJson);
}

TEST(PresetJson, keepsEveryFieldOfAPresetThatSharesNoDefault) {
    CropPreset preset = PresetLibrary::standardLibrary()[1];
    preset.reference = reference();
    preset.verticalMode = VerticalMode::balanced;
    preset.rotationMode = RotationMode::correctCameraRoll;
    preset.cameraRollDegrees = -1.5;
    preset.protectHair = preset.protectAccessories = preset.steadyPerSubject = false;
    preset.exportSettings = {.pixelWidth = 1,
                             .pixelHeight = 2,
                             .jpegQuality = 0.5,
                             .dpi = 72,
                             .preserveMetadata = false,
                             .backdrop = BackdropMode::replace,
                             .plateURL = "/plates/blue grey.jpg",
                             .floorReflection = false,
                             .backdropVignette = 0.1,
                             .backdropColor = Rgb{0.1, 0.2, 0.3},
                             .plateZoom = 1,
                             .starRating = 4};
    const auto again = decoded<CropPreset>(Json(preset).dump(), "the preset");
    ASSERT_TRUE(again) << again.error().message;
    EXPECT_EQ(*again, preset);
}

TEST(PresetJson, fillsWhatIsMissing) {
    const auto preset =
        decoded<CropPreset>(R"({"id":"8E1C0F5A-6C0B-4F3E-9D3A-4B1E2C3D4E5F"})", "the preset");
    ASSERT_TRUE(preset);
    CropPreset expected = PresetLibrary::yearbook4x5();
    expected.name = "Preset";
    expected.badge = "";
    EXPECT_EQ(*preset, expected);
    // A missing identity becomes a fresh one, not a shared one.
    EXPECT_NE(decoded<CropPreset>("{}", "x")->id, decoded<CropPreset>("{}", "x")->id);
}

TEST(PresetJson, refusesWhatItDoesNotUnderstand) {
    for (const char* bad :
         {R"({"framing":"bust"})", R"({"verticalMode":3})", R"({"export":{"backdrop":"blur"}})",
          R"({"color":[0.1,0.2]})", R"({"exportRating":2.5})", R"({"id":"none"})", "[]",
          R"({"reference":{"sourceName":"x"}})", R"({"export":{"pixelWidth":2400.5}})"}) {
        EXPECT_FALSE(decoded<CropPreset>(bad, "x")) << bad;
    }
    const auto unknown = decoded<CropPreset>(R"({"framing":"bust"})", "preset.json");
    EXPECT_NE(unknown.error().message.find("preset.json"), std::string::npos);
    EXPECT_NE(unknown.error().message.find("\"bust\""), std::string::npos);
}

TEST(ExportSettingsJson, understandsTheOlderBackdropSwitchOnlyWhereTheNewerIsMissing) {
    struct Case {
        const char* json;
        BackdropMode expected;
    };
    for (const Case& c :
         {Case{R"({"extendBackdropEdges":true})", BackdropMode::repeatEdges},
          Case{R"({"extendBackdropEdges":false})", BackdropMode::keep},
          Case{R"({"extendBackdropEdges":true,"backdrop":"keep"})", BackdropMode::keep},
          Case{R"({"backdrop":"replace"})", BackdropMode::replace}}) {
        SCOPED_TRACE(c.json);
        const auto settings = decoded<ExportSettings>(c.json, "x");
        ASSERT_TRUE(settings);
        EXPECT_EQ(settings->backdrop, c.expected);
        EXPECT_EQ(Json(*settings).dump().find("extendBackdropEdges"), std::string::npos);
    }
}

TEST(PresetChoices, readBackWhatTheyWriteAndShowALabel) {
    const auto check = []<class T>(std::span<const Choice<T>> all, std::size_t count) {
        EXPECT_EQ(all.size(), count);
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_EQ(static_cast<std::size_t>(all[i].value), i) << all[i].key;
            EXPECT_EQ(Json(all[i].value).get<T>(), all[i].value);
            EXPECT_FALSE(all[i].label.empty());
        }
    };
    check(choices<HorizontalAnchor>(), 5);
    check(choices<Framing>(), 4);
    check(choices<VerticalMode>(), 3);
    check(choices<RotationMode>(), 3);
    check(choices<BackdropMode>(), 3);
    EXPECT_EQ(Json(Framing::threeQuarter).dump(), "\"threeQuarter\"");
    for (const auto& mode : choices<RotationMode>()) EXPECT_FALSE(mode.detail.empty());
}

TEST(PresetLibrary, offersTheFourBuiltInPresetsWhoseSizesFit) {
    std::string names;
    for (const CropPreset& preset : PresetLibrary::standardLibrary()) {
        names += preset.name + "|";
        EXPECT_TRUE(RatioCheck::passes(preset)) << preset.name;
        EXPECT_EQ(PresetLibrary::replacement(preset.id), preset);
        EXPECT_EQ(preset.rotationMode, RotationMode::levelEyes);
        EXPECT_EQ(preset.exportSettings.backdrop, BackdropMode::repeatEdges);
    }
    EXPECT_EQ(names, "Headshot 4x5|Three-quarter 4x5|Full length 4x5|Top-down 7x5|");
    for (const Uuid& other : {PresetLibrary::autoPresetID(), PresetLibrary::yearbookID(), Uuid{}}) {
        EXPECT_FALSE(PresetLibrary::replacement(other));
        EXPECT_EQ(PresetLibrary::standardPreset(other).id, PresetLibrary::headshotID());
    }
    EXPECT_EQ(PresetLibrary::standardPreset(PresetLibrary::landscapeID()).badge, "Top");
}

TEST(RatioCheck, findsSizesThatWouldStretchFacesAndMendsTheHeight) {
    struct Case {
        const char* what;
        int width, height;
        double ratioWidth, ratioHeight;
        bool passes;
        int fitting;
    };
    for (const Case& c : {Case{"8 x 10", 2400, 3000, 4, 5, true, 3000},
                          Case{"square", 2400, 2400, 4, 5, false, 3000},
                          Case{"within the tolerance", 2400, 2993, 4, 5, true, 3000},
                          Case{"just outside", 2400, 2992, 4, 5, false, 3000},
                          Case{"half a pixel rounds up", 333, 0, 2, 1, false, 167}}) {
        SCOPED_TRACE(c.what);
        CropPreset preset;
        preset.aspectWidth = c.ratioWidth;
        preset.aspectHeight = c.ratioHeight;
        preset.exportSettings.pixelWidth = c.width;
        preset.exportSettings.pixelHeight = c.height;
        EXPECT_EQ(RatioCheck::passes(preset), c.passes);
        EXPECT_EQ(RatioCheck::fittingHeight(preset), c.fitting);
    }
    CropPreset preset;
    preset.name = "Wallet";
    preset.aspectHeight = 5.5;
    EXPECT_EQ(RatioCheck::alertMessage(preset),
              "2400 × 3000 is not 4:5.5. Morva will not stretch faces. Fix the size under Preset ▸ "
              "Export (the Fix height button).");
    EXPECT_EQ(RatioCheck::sheetWarning(preset),
              "Wallet: the pixel size does not match its ratio. Morva will not stretch faces — fix "
              "it under Preset ▸ Export (Fix height).");
}

TEST(Reference, setsTheMeasuredTargetsAndLeavesTheRatio) {
    CropPreset preset = PresetLibrary::yearbook4x5();
    preset.aspectWidth = 1;
    preset.apply(reference());
    EXPECT_EQ(preset.reference, reference());
    EXPECT_EQ(preset.faceScale, 0.21);
    EXPECT_EQ(preset.eyeLinePosition, 0.33);
    EXPECT_EQ(preset.horizontalPosition, 0.49);
    EXPECT_EQ(preset.topMargin, 0.05);
    EXPECT_EQ(preset.aspectWidth, 1);

    preset.horizontalAnchor = HorizontalAnchor::eyes;
    for (const std::optional<double> untrusted : {std::optional<double>{}, std::optional(-0.01)}) {
        ReferenceGeometry clipped = reference();
        clipped.headTopY = untrusted;
        preset.apply(clipped);
        EXPECT_EQ(preset.horizontalPosition, 0.48);
        EXPECT_EQ(preset.topMargin, 0.05) << "kept";
    }
}

}  // namespace
}  // namespace morva
