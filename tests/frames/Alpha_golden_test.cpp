// SPDX-License-Identifier: MIT
//
// Pictures whose pixels have alphas of eight bits, with a palette and without, in each way that an
// element may be drawn. As in Golden_test.cpp, with --update they are made anew.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "frames/SoftEngine.h"
#include "render/CopyStrip.h"
#include "render/ElementDrawing.h"
#include "render/PrepareStage.h"
#include "render/Require.h"
#include "render/TilePatterns.h"
#include "stage/StageSpace.h"
#include "support/GoldenPicture.h"

namespace scenara::test {
namespace {

constexpr Integer kSize = 48;
constexpr std::size_t kMostElements = 16;

// A disc that fades towards its edge; beyond it a loud magenta that has no alpha.
std::uint32_t DiscTexel(Integer x, Integer y) {
    const double middle = (kSize - 1) / 2.0;
    const double away = std::hypot(x - middle, y - middle) / (kSize / 2.0);
    if (away >= 1) {
        return 0x00FF00FF;
    }
    const auto alpha = static_cast<std::uint32_t>(255 * std::min(1.0, 2 - 2 * away));
    return alpha << 24U | (x < kSize / 2 ? 0xF0C840U : 0x3060D0U);
}

class AlphaGolden : public testing::Test {
protected:
    AlphaGolden() {
        soft_.model.Elements.reserve(kMostElements);  // so that references stay good
        soft_.Sprite(kSize, kSize, [place = 0]() mutable {
            const std::uint32_t texel =
                DiscTexel(ToInteger(place % kSize), ToInteger(place / kSize));
            ++place;
            return texel;
        });
    }

    // With its upper left corner there.
    BackgroundElement& Disc(Long x, Long y) {
        BackgroundElement element;
        element.type = "normal";
        element.startX = x - 160;
        element.startY = y;
        soft_.model.ElementCount++;
        return soft_.model.Elements.emplace_back(element);
    }

    void ExpectPicture(const std::string& name, const ViewOptions& options = {}) {
        StageModel& model = soft_.model;
        Engine& engine = soft_.engine;
        soft_.picture = ViewOf(model, options);
        PrepareElements(model, options, soft_.picture);
        engine.FitView();
        MakeTilePatterns(model, options, soft_.picture, engine.Device());
        engine.MakeStrip(StripLines(model, options, soft_.picture));
        Require(engine.Device().BeginScene(), "BeginScene");
        const CanvasSize canvas = soft_.picture.Canvas();
        const auto pixels = soft_.Pixels();
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const auto width = static_cast<std::size_t>(canvas.width);
            pixels[i] = (i % width / 20 + i / width / 20) % 2 == 0 ? 0x404048 : 0x585864;
        }
        for (const BackgroundElement& element : model.Elements) {
            DrawElement(engine, model, element, {true, soft_.picture, {}, options.Smooth});
        }
        Require(engine.Device().EndScene(), "EndScene");
        EXPECT_TRUE(MatchesGolden(name, pixels, canvas.width, canvas.height));
    }

    // As it is, masked, and in each way of blending.
    void AddOneOfEach() {
        Disc(10, 10);
        Disc(70, 10).mask = 1;
        Disc(130, 10).blending = {BlendKind::Add};
        Disc(190, 10).blending = {BlendKind::Add1};
        Disc(10, 70).blending = {BlendKind::Sub};
        Disc(70, 70).blending = {BlendKind::AddAlpha, 128, 128};
        Disc(130, 70).blending = {BlendKind::AddAlpha, 256, 0};
        // Upon one another, and in a window.
        BackgroundElement& copies = Disc(190, 70);
        copies.mask = 1;
        copies.tileX = 4;
        copies.tileSpacingX = -28;
        BackgroundElement& endless = Disc(0, 150);
        endless.mask = 1;
        endless.tileX = endless.tileY = 1;
        endless.tileSpacingX = -16;
        endless.tileSpacingY = -24;
        endless.windowActive = 1;
        endless.windowX1 = 20;
        endless.windowX2 = 299;
        endless.windowY1 = 140;
        endless.windowY2 = 229;
        for (BackgroundElement* const element : {&copies, &endless}) {
            element->tileSpacingGiven = 3;
        }
    }

    SoftEngine soft_;
};

TEST_F(AlphaGolden, WithAPalette) {
    AddOneOfEach();
    ExpectPicture("alpha_palette");
}

TEST_F(AlphaGolden, WithoutAPalette) {
    soft_.model.Sprites.front().trueColor = 1;
    AddOneOfEach();
    ExpectPicture("alpha_true_color");
}

TEST_F(AlphaGolden, ScaledAndSmooth) {
    soft_.model.Sprites.front().trueColor = 1;
    soft_.model.StageXScale = 1.6F;
    soft_.model.StageYScale = 1.3F;
    Disc(120, 10);
    Disc(160, 10).blending = {BlendKind::Sub};
    Disc(120, 80).blending = {BlendKind::Add1};
    ExpectPicture("alpha_smooth", {true, true});
}

}  // namespace
}  // namespace scenara::test
