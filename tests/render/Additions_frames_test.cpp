// SPDX-License-Identifier: MIT
//
// Frames with a scale and an angle of their own: the quads that reach the device.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/StagePlayer.h"
#include "render/Tiling.h"
#include "render/TurnedTiles.h"
#include "support/AllocationCount.h"

namespace scenara::test {
namespace {

// A picture of 50 x 40, whose axis is at 10, 30, in a frame with the offset 3, -4 of an element
// whose axis point is at 160, 120.
class OwnFrame {
public:
    explicit OwnFrame(const ViewOptions& options = ViewOptions{true}) : player(options) {}

    BackgroundElement& Element() { return player.Element(0); }
    StageFrame& Frame() { return player.model.Actions.front().frames.front(); }
    Lines Draw(bool additions = true) { return player.StartAndDrawFirst({additions}); }

    StagePlayer player;
    const Integer hill = player.build.Sprite("hill", 50, 40, 10, 30);
    BackgroundElement& element = player.build.AnimationAt({{hill, -1, 3, -4}}, 160, 120);
};

struct Made {
    const char* name;
    void (*make)(OwnFrame& stage);
    Lines quads;
};

void Scale(OwnFrame& stage, Single x, Single y) {
    stage.Frame().scale = {x, y};
}

TEST(FrameScale, IsAFactorOnPictureAndOffset) {
    for (const Made& row : std::vector<Made>{
             {"of 1", [](OwnFrame& s) { Scale(s, 1, 1); }, {"hill 153,86 50x40"}},
             // 160 + 2 (3 - 10), 120 + 3 (-4 - 30)
             {"larger", [](OwnFrame& s) { Scale(s, 2, 3); }, {"hill 146,18 100x120 of 50x40"}},
             // 156.5 to 181.5
             {"smaller",
              [](OwnFrame& s) { Scale(s, 0.5F, 0.5F); },
              {"hill 157,103 25x20 of 50x40"}},
             // The offset, too: 160 - 3 - (50 - 10)
             {"below 0 across",
              [](OwnFrame& s) { Scale(s, -1, 1); },
              {"hill 117,86 50x40 mirrored"}},
             // 120 + 4 - (40 - 30)
             {"below 0 down", [](OwnFrame& s) { Scale(s, 1, -1); }, {"hill 153,114 50x40 flipped"}},
             // Mirrored twice: 160 - 3 - 10
             {"below 0, of a mirrored frame",
              [](OwnFrame& s) {
                  s.Frame().flips = FrameFlip::Across;
                  s.Frame().flip = "h";
                  Scale(s, -1, 1);
              },
              {"hill 147,86 50x40"}},
             {"below 0, of an element below 0",
              [](OwnFrame& s) {
                  Scale(s, -2, 1);
                  s.element.scaleStart = {-0.5F, 1};
              },
              {"hill 153,86 50x40"}},
             {"beside that of the element and the stage",
              [](OwnFrame& s) {
                  Scale(s, 0.5F, 1);
                  s.element.scaleStart = {4, 0.5F};
                  s.player.model.StageYScale = 2;
              },
              {"hill 146,206 100x40 of 50x40"}},
             {"of 0 across", [](OwnFrame& s) { Scale(s, 0, 1); }, {}},
             {"of 0 down", [](OwnFrame& s) { Scale(s, 1, 0); }, {}},
             {"that is too large",
              [](OwnFrame& s) {
                  Scale(s, 4000, 1);
                  s.Frame().offsetX = 10;
              },
              {"hill 160,86 51200x40 of 50x40"}},
             // Tiles stay as far apart.
             {"of tiles",
              [](OwnFrame& s) {
                  Scale(s, 0.5F, 1);
                  Tiled(s.element, 3, 0, 60, 1);
              },
              {"hill 157,86 25x40 of 50x40", "hill 217,86 25x40 of 50x40",
               "hill 277,86 25x40 of 50x40"}},
             {"of tiles side by side",
              [](OwnFrame& s) {
                  Scale(s, 1, 0.5F);
                  Tiled(s.element, 0, 2);
                  s.element.tileSpacingGiven = 0;
              },
              {"hill 153,103 50x20 of 50x40", "hill 153,143 50x20 of 50x40"}},
             {"of tiles with an element's scale",
              [](OwnFrame& s) {
                  Scale(s, 0.5F, 0.5F);
                  s.element.scaleStart = {2, 2};
                  Tiled(s.element, 2, 0, 60, 1);
              },
              {"hill 153,86 50x40", "hill 273,86 50x40"}},
             {"of 1 beside an element's own",
              [](OwnFrame& s) {
                  s.element.scaleStart = {2, 2};
                  Tiled(s.element, 2, 0, 60, 1);
              },
              {"hill 146,52 100x80 of 50x40", "hill 266,52 100x80 of 50x40"}},
             {"of the last frame's way into this one",
              [](OwnFrame& s) {
                  s.Frame().time = 4;
                  Scale(s, 1, 1);
                  StageFrame next = s.Frame();
                  next.scale = {3, 3};
                  next.offsetX = 7;
                  next.interpolated = kInterpolatedScale | kInterpolatedOffset;
                  s.player.model.Actions.front().frames.push_back(next);
                  s.player.Start();
                  s.element.frameTime = 1;
              },
              // Of scale 2, with the offset 5, -4
              {"hill 150,52 100x80 of 50x40"}},
         }) {
        SCOPED_TRACE(row.name);
        OwnFrame stage;
        stage.player.Start();
        row.make(stage);
        EXPECT_EQ(stage.player.DrawFirst({true}), row.quads);
    }
}

TEST(FrameScale, IsNonePlainly) {
    OwnFrame stage(kPlainView);
    stage.Frame().scale = {2, -2};
    stage.Frame().angle = 30;
    EXPECT_EQ(stage.Draw(false), (Lines{"hill 153,86 50x40"}));
}

// A pixel of the canvas is one of the picture, but for tiles that stand twice as far apart.
TEST(FrameScale, TilesAtTheirOwnSizeAreCutToTheWindow) {
    OwnFrame stage;
    Tiled(Windowed(stage.element, 160, 100, 299, 119), 2, 0, 60);
    stage.Frame().scale = {0.5F, 0.5F};
    stage.element.scaleStart = {2, 2};
    stage.player.Start();
    DrawElement(stage.player.engine, stage.player.model, stage.Element(),
                {.additions = true, .view = stage.player.picture});
    const Lines lines = stage.player.record.TakeLines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "quad hill 153,86 50x40"), 1);
}

// --- larger than any canvas ---

struct Huge {
    const char* name;
    void (*make)(StagePlayer& player, Integer sprite);
    bool smooth = false;
};

TEST(HugePictures, AreNoLargerThanSumsCanHold) {
    constexpr ViewOptions kSmooth{true, true};
    for (const Huge& row : {
             Huge{"still", [](StagePlayer&p, Integer sprite) { p.build.StillAt(sprite, 0, 0); }},
             {"still, mixed", [](StagePlayer&p, Integer sprite) { p.build.StillAt(sprite, 0, 0); },
              true},
             {"tiled",
              [](StagePlayer&p, Integer sprite) { Tiled(p.build.StillAt(sprite, 0, 0), 1, 1); }},
             {"overlapping",
              [](StagePlayer&p, Integer sprite) {
                  Tiled(Masked(p.build.StillAt(sprite, 0, 0)), 5, 5, -1999, -999);
              }},
             {"parallax",
              [](StagePlayer&p, Integer sprite) {
                  Tiled(Sheared(p.build.ParallaxAt(sprite, 0, 0), 1, 2), 1, 0);
              }},
             {"parallax, stretched and mixed",
              [](StagePlayer&p, Integer sprite) {
                  p.build.ParallaxAt(sprite, 0, 0).yscaleStart = 1;
              },
              true},
             {"a frame",
              [](StagePlayer&p, Integer sprite) {
                  p.build.AnimationAt({{sprite, -1}}, 0, 0);
                  p.model.Actions.front().frames.front().scale = {1024, -1024};
              }},
             {"turned",
              [](StagePlayer&p, Integer sprite) {
                  Tiled(p.build.AnimationAt({{sprite, -1}}, 0, 0), 1, 1, 1, 1);
                  p.model.Actions.front().frames.front().angle = 30;
                  p.model.Actions.front().frames.front().scale = {1024, 1024};
              }},
         }) {
        for (const Integer axis : {Integer{0}, Integer{1000}, Integer{2000}}) {
            SCOPED_TRACE(row.name + std::string(", axis ") + std::to_string(axis));
            StagePlayer player(row.smooth ? kSmooth : ViewOptions{true});
            const Integer sprite = player.build.Sprite("huge", 2000, 1000, axis, axis / 2);
            player.model.StageXScale = player.model.StageYScale = 1024;
            row.make(player, sprite);
            player.Element(0).scaleStart = {1024, 1024};
            player.Start();
            EXPECT_NO_THROW(player.Frame());
            EXPECT_TRUE(player.messages.Recorded().empty());
        }
    }
}

// So large a pixel of it that it covers all of the view.
TEST(HugePictures, AreSeen) {
    StagePlayer player(ViewOptions{true});
    const Integer sprite = player.build.Sprite("huge", 2000, 1000, 1000, 500);
    player.build.StillAt(sprite, 160, 120);
    player.model.StageXScale = player.model.StageYScale = 1024;
    player.Element(0).scaleStart = {1024, 1024};
    EXPECT_EQ(player.StartAndDrawFirst({true}).size(), 1U);
}

// --- turned ---

struct Spot {
    double x;
    double y;
};

// Left top, right top, right bottom, left bottom.
std::array<Spot, 4> CornersOf(const DrawnQuad& quad) {
    const auto spot = [&](std::size_t i) {
        return Spot{static_cast<double>(quad.corners.at(i).x),
                    static_cast<double>(quad.corners.at(i).y)};
    };
    return {spot(1), spot(3), spot(2), spot(0)};
}

class TurnedFrame : public testing::Test {
protected:
    std::vector<DrawnQuad> Drawn() {
        stage.player.Start();
        DrawElement(stage.player.engine, stage.player.model, stage.Element(),
                    DrawOptionsOf(stage.player.model, stage.player.camera, stage.player.picture,
                                  stage.player.view));
        return stage.player.record.Quads();
    }

    OwnFrame stage;
};

struct Turned {
    const char* name;
    void (*make)(OwnFrame& stage);
    std::array<Spot, 4> corners;
};

// Its own axis stands at 163, 116. Seen from there it reaches from -10, -30 to 40, 10.
TEST(FrameAngle, TurnsThePictureAboutItsAxis) {
    for (const Turned& row : {
             Turned{"a quarter",
                    [](OwnFrame& s) { s.Frame().angle = 90; },
                    {{{133, 126}, {133, 76}, {173, 76}, {173, 126}}}},
             {"a quarter and a whole turn",
              [](OwnFrame& s) { s.Frame().angle = 450; },
              {{{133, 126}, {133, 76}, {173, 76}, {173, 126}}}},
             {"half a turn",
              [](OwnFrame& s) { s.Frame().angle = -180; },
              {{{173, 146}, {123, 146}, {123, 106}, {173, 106}}}},
             {"three quarters",
              [](OwnFrame& s) { s.Frame().angle = -90; },
              {{{193, 106}, {193, 156}, {153, 156}, {153, 106}}}},
             // From -40, -30 to 10, 10, to the same side.
             {"mirrored before",
              [](OwnFrame& s) {
                  s.Frame().angle = 90;
                  s.Frame().flip = "h";
                  s.Frame().flips = FrameFlip::Across;
              },
              {{{133, 156}, {133, 106}, {173, 106}, {173, 156}}}},
             // About 166, 112: from -20, -60 to 80, 20.
             {"scaled before, and its offset",
              [](OwnFrame& s) {
                  s.Frame().angle = 90;
                  s.Frame().scale = {2, 2};
              },
              {{{106, 132}, {106, 32}, {186, 32}, {186, 132}}}},
             // About 157, 116, across alone.
             {"scaled below 0 before, and its offset",
              [](OwnFrame& s) {
                  s.Frame().angle = 90;
                  s.Frame().scale = {-1, 1};
              },
              {{{127, 156}, {127, 106}, {167, 106}, {167, 156}}}},
             {"scaled otherwise across and down before",
              [](OwnFrame& s) {
                  s.Frame().angle = 90;
                  s.Element().scaleStart = {2, 1};
              },
              {{{136, 136}, {136, 36}, {176, 36}, {176, 136}}}},
             {"between pixels",
              [](OwnFrame& s) {
                  s.Frame().angle = 90;
                  s.Frame().offsetFraction = {0.25F, -0.5F};
              },
              {{{133.25, 125.5}, {133.25, 75.5}, {173.25, 75.5}, {173.25, 125.5}}}},
             // Sine and cosine are .6 and .8.
             {"any angle",
              [](OwnFrame& s) { s.Frame().angle = 36.869897645844F; },
              {{{163 - 8 - 18, 116 + 6 - 24},
                {163 + 32 - 18, 116 - 24 - 24},
                {163 + 32 + 6, 116 - 24 + 8},
                {163 - 8 + 6, 116 + 6 + 8}}}},
         }) {
        SCOPED_TRACE(row.name);
        OwnFrame stage;
        row.make(stage);
        stage.player.Start();
        DrawElement(stage.player.engine, stage.player.model, stage.Element(),
                    {.additions = true, .view = stage.player.picture});
        ASSERT_EQ(stage.player.record.Quads().size(), 1U);
        const std::array<Spot, 4> corners = CornersOf(stage.player.record.Quads().front());
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_NEAR(corners.at(i).x, row.corners.at(i).x, 1e-4) << i;
            EXPECT_NEAR(corners.at(i).y, row.corners.at(i).y, 1e-4) << i;
        }
    }
}

TEST(FrameAngle, OfWholeTurnsIsNone) {
    for (const Single angle : {360.0F, -360.0F, 7200.0F, 0.0F}) {
        OwnFrame stage;
        stage.Frame().angle = angle;
        EXPECT_EQ(stage.Draw(), (Lines{"hill 153,86 50x40"})) << angle;
    }
}

TEST(FrameAngle, IsNoneOfParallaxPictures) {
    OwnFrame stage;
    stage.Frame().angle = 30;
    const Integer strip = stage.player.build.Sprite("strip", 50, 1);
    stage.Frame().spriteIndex = strip;
    stage.player.Start();
    stage.Element().kind = ElementKind::Parallax;
    stage.Element().spriteIndex = kPicturesOfAction;
    EXPECT_EQ(stage.player.DrawFirst({true}), (Lines{"strip 163,116 50x1"}));
}

// The texture's own edges: left, right, top, bottom.
TEST_F(TurnedFrame, ShowsAllOfItsTexture) {
    struct Shown {
        FrameFlip flips;
        std::array<float, 4> edges;
    };
    for (const auto& [flips, edges] : {
             Shown{FrameFlip::None, {0, 1, 0, 1}},
             Shown{FrameFlip::Across, {1, 0, 0, 1}},
             Shown{FrameFlip::Down, {0, 1, 1, 0}},
             Shown{FrameFlip::Both, {1, 0, 1, 0}},
         }) {
        stage.Frame().angle = 30;
        stage.player.Start();
        stage.Frame().flips = flips;
        DrawElement(stage.player.engine, stage.player.model, stage.Element(),
                    {.additions = true, .view = stage.player.picture});
        const DrawnQuad quad = stage.player.record.Quads().front();
        EXPECT_EQ(quad.corners[0].tu, edges[0]);
        EXPECT_EQ(quad.corners[1].tu, edges[0]);
        EXPECT_EQ(quad.corners[2].tu, edges[1]);
        EXPECT_EQ(quad.corners[3].tu, edges[1]);
        EXPECT_EQ(quad.corners[1].tv, edges[2]);
        EXPECT_EQ(quad.corners[3].tv, edges[2]);
        EXPECT_EQ(quad.corners[0].tv, edges[3]);
        EXPECT_EQ(quad.corners[2].tv, edges[3]);
        static_cast<void>(stage.player.record.TakeLines());
    }
}

// Without the quads themselves.
Lines CallsOf(OwnFrame& stage, bool smooth) {
    stage.player.Start();
    DrawElement(stage.player.engine, stage.player.model, stage.Element(),
                {.additions = true, .view = stage.player.picture, .smooth = smooth});
    Lines calls = stage.player.record.TakeLines();
    std::erase_if(calls, [](const std::string& call) { return call.starts_with("quad"); });
    return calls;
}

TEST_F(TurnedFrame, EndsAtItsEdges) {
    stage.Frame().angle = 30;
    Masked(stage.Element());
    const Lines draw{"SetTexture 0 hill", "DrawPrimitiveUP 5 2 32"};
    const Lines masked{"SetRenderState 19 5", "SetRenderState 20 6", "SetRenderState 27 1"};
    const Lines unmasked{"SetRenderState 27 0", "SetRenderState 19 2", "SetRenderState 20 1"};
    const auto together = [](const std::vector<Lines>& parts) {
        Lines all;
        for (const Lines& part : parts) {
            all.insert(all.end(), part.begin(), part.end());
        }
        return all;
    };
    const Lines kept{"SetTextureStageState 0 13 3", "SetTextureStageState 0 14 3"};
    const Lines anew{"SetTextureStageState 0 13 1", "SetTextureStageState 0 14 1"};
    EXPECT_EQ(CallsOf(stage, false), together({masked, kept, draw, anew, unmasked}));
    const Lines linear{"SetTextureStageState 0 16 2", "SetTextureStageState 0 17 2"};
    const Lines nearest{"SetTextureStageState 0 16 1", "SetTextureStageState 0 17 1"};
    EXPECT_EQ(CallsOf(stage, true),
              together({masked, kept, linear, draw, nearest, anew, unmasked}));
}

TEST_F(TurnedFrame, IsBlendedAsOthersAre) {
    stage.Frame().angle = 30;
    stage.Frame().blending = {BlendKind::AddAlpha, 128, 64};
    stage.Element().framesBlend = 1;
    const std::vector<DrawnQuad> quads = Drawn();
    ASSERT_EQ(quads.size(), 2U);
    EXPECT_EQ(BlendingOf(quads[0]) + TintOf(quads[0]), "masked in C0000000");
    EXPECT_EQ(BlendingOf(quads[1]) + TintOf(quads[1]), "added in 80FFFFFF");
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(quads[0].corners.at(i).x, quads[1].corners.at(i).x);
        EXPECT_EQ(quads[0].corners.at(i).y, quads[1].corners.at(i).y);
    }
}

TEST_F(TurnedFrame, IsCutToTheWindow) {
    stage.Frame().angle = 30;
    Windowed(stage.Element(), 10, 20, 300, 200);
    EXPECT_EQ(Drawn().size(), 1U);
    stage.Element().windowX2 = 20;
    EXPECT_TRUE(Drawn().empty()) << "outside of it";
}

// --- tiles ---

TEST_F(TurnedFrame, TilesAreTurnedOneByOne) {
    stage.Frame().angle = 90;
    stage.Frame().scale = {0.5F, 0.5F};
    stage.element.scaleStart = {1.25F, 1.5F};
    Tiled(stage.element, 3, 2, 41, 33);
    const std::vector<DrawnQuad> quads = Drawn();
    ASSERT_EQ(quads.size(), 6U);
    const std::array<Spot, 4> first = CornersOf(quads[0]);
    for (std::size_t number = 0; number < quads.size(); ++number) {
        const std::array<Spot, 4> corners = CornersOf(quads[number]);
        const auto column = static_cast<double>(number % 3);
        const auto row = static_cast<double>(number / 3);
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_NEAR(corners.at(i).x - first.at(i).x, column * 41 * 1.25, 1e-4);
            EXPECT_NEAR(corners.at(i).y - first.at(i).y, row * 33 * 1.5, 1e-4);
        }
    }
}

// The box of the turned picture is 60 x 60 or so.
TEST_F(TurnedFrame, OnlyTilesInViewAreShown) {
    stage.Frame().angle = 30;
    Tiled(stage.element, 1, 1, 80, 60);
    for (const DrawnQuad& quad : Drawn()) {
        const std::array<Spot, 4> corners = CornersOf(quad);
        const auto [left, right] = std::ranges::minmax(corners, {}, &Spot::x);
        const auto [top, bottom] = std::ranges::minmax(corners, {}, &Spot::y);
        EXPECT_TRUE(right.x > -2 && left.x < 322 && bottom.y > -2 && top.y < 242);
    }
    EXPECT_LE(Drawn().size(), 36U);
    EXPECT_GE(Drawn().size(), 16U);
}

struct Crowd {
    const char* name;
    Long count;
    Long step;
    Integer size;
    Single scale;      // of the frame
    Single ownScale;   // of the element
    Long width = 320;  // of the view
    Long height = 240;
};

TEST(TurnedTiles, AreNeverTooMany) {
    for (const Crowd& row : {
             Crowd{"a pixel apart", 1, 2, 1, 1, 1},
             {"upon one another", 1, 2, 300, 1, 1},
             {"upon one another, counted", 32767, 2, 300, 1, 1},
             {"much too small", 1, 2, 300, 1, 1e-4F},
             {"small, with large pictures", 1, 2, 300, 1000, 1e-4F},
             {"tiny, with large pictures", 1, 2, 30000, 1024, 1e-8F},
             {"large, with small pictures", 1, 2, 300, 1e-3F, 10},
             {"as small as can be", 1, 2, 1, 1e-30F, 1e-38F},
             {"a pixel apart in a large view", 1, 2, 1, 1, 0.5F, 7680, 4320},
             {"far too small in a large view", 1, 2, 300, 1, 1e-4F, 7680, 4320},
         }) {
        SCOPED_TRACE(row.name);
        StagePlayer player(ViewOptions{true});
        player.record.SetWriting(false);
        const Integer sprite = player.build.Sprite("crowd", row.size, row.size);
        Tiled(player.build.AnimationAt({{sprite, -1}}, 0, 0), row.count, row.count, row.step,
              row.step);
        player.model.Actions.front().frames.front().angle = 30;
        player.model.Actions.front().frames.front().scale = {row.scale, row.scale};
        player.Element(0).scaleStart = {row.ownScale, row.ownScale};
        player.model.localcoordWidth = row.width;
        player.model.localcoordHeight = row.height;
        player.Start();
        DrawScene(player.engine, player.tiles, player.flags);
        const auto pixels = static_cast<double>((row.width + 2) * (row.height + 2));
        EXPECT_LE(static_cast<double>(player.record.DrawnCount()),
                  2 * (static_cast<double>(kDeepest) + std::min(pixels, kMostTurned)));
    }
}

TEST(TurnedTiles, AllocateNothing) {
    StagePlayer player(ViewOptions{true});
    player.record.SetWriting(false);
    const Integer sprite = player.build.Sprite("hill", 50, 40, 10, 30);
    Tiled(player.build.AnimationAt({{sprite, 4}, {sprite, 4}}, 160, 120), 1, 1, 80, 60);
    for (StageFrame& frame : player.model.Actions.front().frames) {
        frame.angle += 30;
        frame.blending = {BlendKind::AddAlpha, 128, 64};
        frame.interpolated =
            kInterpolatedAngle | kInterpolatedScale | kInterpolatedBlend | kInterpolatedOffset;
    }
    player.Start();
    const DrawOptions options{.additions = true, .view = player.picture, .smooth = true};
    DrawElement(player.engine, player.model, player.Element(0), options);
    const auto before = AllocationCount();
    DrawElement(player.engine, player.model, player.Element(0), options);
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_GT(player.record.DrawnCount(), 20U);
}

}  // namespace
}  // namespace scenara::test
