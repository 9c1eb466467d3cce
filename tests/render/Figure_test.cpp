// SPDX-License-Identifier: MIT
#include "render/Figure.h"

#include <limits>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frames/SoftEngine.h"
#include "render/Require.h"
#include "render/StagePlayer.h"
#include "support/AllocationCount.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Always the same one; and what the stage was like when it was asked for.
class StandingFigure : public FigureSource {
public:
    StandingFigure(const Figure& figure, const StageModel& model)
        : figure_(figure), model_(model) {}

    [[nodiscard]] Figure Next() override {
        for (const BackgroundElement& element : model_.Elements) {
            seenX.push_back(element.posX);
        }
        return figure_;
    }

    [[nodiscard]] Figure Again() override { return figure_; }

    std::vector<Single> seenX;

private:
    const Figure& figure_;
    const StageModel& model_;
};

// A figure of 10 x 20 pixels at 30, 40.
class FigureTest : public testing::Test {
protected:
    FigureTest() {
        player.Start();
        figure.texture = &texture;
        figure.x = 30;
        figure.y = 40;
        figure.width = 10;
        figure.height = 20;
    }
    Lines Draw() {
        DrawFigure(player.engine, figure);
        return player.record.TakeQuads();
    }

    std::shared_ptr<Direct3DTexture8> texture = std::make_shared<NamedTexture>("hero", 10, 20);
    Figure figure;
    StagePlayer player;
};

struct PlacedFigure {
    const char* name;
    Single x;
    Single y;
    bool mirrored;
    const char* quad;
};

TEST_F(FigureTest, IsItsTextureWithoutColour0AtWholePixelsTiesToTheRight) {
    for (const PlacedFigure& row : {
             PlacedFigure{"at its place", 30, 40, false, "hero 30,40 10x20 masked"},
             {"mirrored at its right edge", 30, 40, true, "hero 20,40 10x20 mirrored masked"},
             {"ties to the right and down", 30.5F, 41.5F, false, "hero 31,42 10x20 masked"},
             {"left of the view", -0.5F, 40.6F, false, "hero 0,41 10x20 masked"},
             // It does not tremble by the last bits.
             {"a little more than a half", 30.500004F, 40, false, "hero 31,40 10x20 masked"},
             {"a little less than a half", 30.499996F, 40, false, "hero 31,40 10x20 masked"},
         }) {
        figure.x = row.x;
        figure.y = row.y;
        figure.mirrored = row.mirrored;
        EXPECT_THAT(Draw(), ElementsAre(row.quad)) << row.name;
    }
}

// The quad's corners: lower left, upper left, lower right, upper right.
TEST_F(FigureTest, IsScaledAsAWhole) {
    figure.width = 15;
    figure.height = 9.6F;
    DrawFigure(player.engine, figure);
    const auto& quad = player.engine.Quad();
    EXPECT_EQ(quad[1].x, 30.0F);
    EXPECT_EQ(quad[2].x, 45.0F);
    EXPECT_EQ(quad[1].y, 40.0F);
    EXPECT_EQ(quad[2].y, 50.0F);
    EXPECT_EQ(quad[1].tu, 0.0F);
    EXPECT_EQ(quad[2].tu, 1.0F);
    EXPECT_EQ(quad[1].tv, 0.0F);
    EXPECT_EQ(quad[2].tv, 1.0F);
    figure.mirrored = true;
    DrawFigure(player.engine, figure);
    EXPECT_EQ(quad[1].x, 15.0F);
    EXPECT_EQ(quad[1].tu, 0.0F);
    EXPECT_EQ(quad[2].tu, -1.0F) << "wrapped around";
}

TEST_F(FigureTest, IsNeverSmallerThanAPixel) {
    figure.width = 0.2F;
    figure.height = 0.3F;
    DrawFigure(player.engine, figure);
    EXPECT_EQ(player.engine.Quad()[3].x, 31.0F);
    EXPECT_EQ(player.engine.Quad()[0].y, 41.0F);
}

TEST_F(FigureTest, WithoutATextureASizeOrANearPlaceIsNotDrawn) {
    constexpr Single kInfinite = std::numeric_limits<Single>::infinity();
    constexpr Single kNothing = std::numeric_limits<Single>::quiet_NaN();
    const Figure whole = figure;
    for (Single Figure::*const field : {&Figure::x, &Figure::y, &Figure::width, &Figure::height}) {
        for (const Single value : {kInfinite, -kInfinite, kNothing, 1e9F, -1e9F}) {
            figure = whole;
            figure.*field = value;
            EXPECT_THAT(Draw(), IsEmpty()) << value;
        }
    }
    for (Single Figure::*const size : {&Figure::width, &Figure::height}) {
        for (const Single value : {0.0F, -5.0F}) {
            figure = whole;
            figure.*size = value;
            EXPECT_THAT(Draw(), IsEmpty()) << value;
        }
    }
    figure = whole;
    figure.texture = nullptr;
    EXPECT_THAT(Draw(), IsEmpty());
}

TEST_F(FigureTest, StandsBetweenTheLayers) {
    const Integer picture = player.build.Sprite("sky", 320, 240);
    player.build.Still(picture);
    player.build.Still(picture).layerno = 1;
    player.Start();
    StandingFigure source(figure, player.model);
    DrawScene(player.engine, player.tiles, player.flags, &source);
    EXPECT_THAT(player.record.TakeQuads(),
                ElementsAre("sky 160,0 320x240", "hero 30,40 10x20 masked", "sky 160,0 320x240"));
}

TEST_F(FigureTest, IsAskedForWhenTheClocksHaveTickedOnceAndNothingIsDrawn) {
    BackgroundElement& sky = player.build.Still(player.build.Sprite("sky", 320, 240));
    sky.id = 3;
    sky.velocityX = 100;  // behind its draw
    WithX(During(AddControl(player.build.Group(0, {3}), "posadd"), 0, 100), 5);
    player.Start();
    const Single start = player.model.Elements[0].posX;
    StandingFigure source(figure, player.model);
    for (int frame = 0; frame < 3; ++frame) {
        DrawScene(player.engine, player.tiles, player.flags, &source);
    }
    EXPECT_THAT(source.seenX, ElementsAre(start + 5, start + 110, start + 215));
    EXPECT_EQ(player.model.Elements[0].posX, start + 315);
}

TEST_F(FigureTest, IsSeenAsMuchAsItsAlphaSays) {
    SoftEngine soft;
    soft.Sprite(3, 1, [alpha = 0xFF000000U]() mutable {
        const std::uint32_t texel = alpha | 0x00C800U;  // 200
        alpha = alpha == 0xFF000000U ? 0x40000000U : 0;
        return texel;
    });
    texture = soft.model.Sprites[0].texture;
    figure.x = figure.y = 0;
    figure.width = 3;
    figure.height = 1;
    Require(soft.engine.Device().BeginScene(), "BeginScene");
    soft.engine.Clear(0xFF640000);  // 100
    DrawFigure(soft.engine, figure);
    Require(soft.engine.Device().EndScene(), "EndScene");
    const auto shown = [&](std::size_t x) { return soft.Pixels()[x] & 0xFFFFFFU; };
    EXPECT_EQ(shown(0), 0x00C800U);
    EXPECT_EQ(shown(1), 0x4B3200U);  // 100 x 191 / 255 = 74.9, 200 x 64 / 255 = 50.2
    EXPECT_EQ(shown(2), 0x640000U);
}

TEST_F(FigureTest, AsksForNoMemory) {
    figure.mirrored = true;
    SoftEngine soft;
    soft.Sprite(10, 20, [] { return 0xFF00FF00U; });
    texture = soft.model.Sprites[0].texture;
    texture->PreLoad();
    Require(soft.engine.Device().BeginScene(), "BeginScene");
    DrawFigure(soft.engine, figure);
    const std::size_t before = AllocationCount();
    DrawFigure(soft.engine, figure);
    figure.width = 17;
    DrawFigure(soft.engine, figure);
    EXPECT_EQ(AllocationCount(), before);
}

}  // namespace
}  // namespace scenara::test
