// SPDX-License-Identifier: MIT
//
// What one element puts on the screen: quads, in words, and the calls around them.
#include "render/ElementDrawing.h"

#include <algorithm>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/StagePlayer.h"

namespace scenara::test {
namespace {

// A stage of one element. Its sprites are a hill, a strip, a tall strip and a floor of three rows.
struct DrawnElement : StagePlayer {
    BackgroundElement& Hill() { return build.StillAt(hill, 10, 20); }
    BackgroundElement& HillFrame(const char* flip = "") {
        return build.AnimationAt({{hill, 5, 0, 0, flip}}, 10, 20);
    }
    // The bottom row is twice as fast as the top one.
    BackgroundElement& Floor(Long x = 10) { return Sheared(build.ParallaxAt(floor, x, 20), 1, 2); }

    const Integer hill = build.Sprite("hill", 50, 40);
    const Integer strip = build.Sprite("strip", 50, 1);
    const Integer floor = build.Sprite("floor", 50, 3);
    const Integer tall = build.Sprite("tall", 50, 32767);
};

class DrawnPicture : public testing::Test {
protected:
    // All calls after the start.
    Lines Calls() {
        DrawElement(stage.engine, stage.model, stage.Element(0), {});
        return stage.record.TakeLines();
    }

    DrawnElement stage;
};

struct Drawn {
    const char* name;
    void (*make)(DrawnElement& stage);
    Lines quads;
    Single camera = 0;  // across, as stored, when it is drawn
};

void PrintTo(const Drawn& row, std::ostream* out) {
    *out << row.name;
}

class ElementDrawing : public testing::TestWithParam<Drawn> {};

TEST_P(ElementDrawing, IsTheseQuads) {
    DrawnElement stage;
    GetParam().make(stage);
    stage.Start();
    stage.model.CamX = GetParam().camera;
    EXPECT_EQ(stage.DrawFirst(), GetParam().quads);
}

std::string NameOf(const testing::TestParamInfo<Drawn>& row) {
    return row.param.name;
}

using Stage = DrawnElement;

// --- one picture (mirrored ones and their axes: Additions_mirroring_test.cpp) ---

TEST_F(DrawnPicture, ThatIsNotMaskedChangesNoState) {
    stage.Hill();
    stage.Start();
    for (const Integer mask : {Integer{0}, Integer{2}, Integer{-1}}) {
        stage.Element(0).mask = mask;
        EXPECT_EQ(Calls(),
                  (Lines{"SetTexture 0 hill", "DrawPrimitiveUP 5 2 32", "quad hill 10,20 50x40"}));
    }
}

TEST_F(DrawnPicture, ThatIsMaskedIsBlendedAndNoOther) {
    Masked(stage.Hill());
    stage.Start();
    EXPECT_EQ(Calls(),
              (Lines{"SetRenderState 19 5", "SetRenderState 20 6", "SetRenderState 27 1",
                     "SetTexture 0 hill", "DrawPrimitiveUP 5 2 32", "quad hill 10,20 50x40 masked",
                     "SetRenderState 27 0", "SetRenderState 19 2", "SetRenderState 20 1"}));
}

// Addition: such a picture has no colour 0 that a mask could leave out.
TEST_F(DrawnPicture, WithoutAPaletteIsBlendedWhateverTheMask) {
    stage.Hill();
    stage.Start();
    stage.model.Sprites.front().trueColor = 1;
    const Lines blended{
        "SetRenderState 19 5", "SetRenderState 20 6",    "SetRenderState 27 1",
        "SetTexture 0 hill",   "DrawPrimitiveUP 5 2 32", "quad hill 10,20 50x40 masked",
        "SetRenderState 27 0", "SetRenderState 19 2",    "SetRenderState 20 1"};
    for (const Integer mask : {Integer{0}, Integer{1}, Integer{2}}) {
        stage.Element(0).mask = mask;
        EXPECT_EQ(Calls(), blended);
    }
}

TEST_F(DrawnPicture, IsBlendedByTheFrameThatIsShown) {
    stage.build.AnimationAt({{stage.hill, 5}, {stage.strip, 5}}, 10, 20);
    stage.model.Sprites[static_cast<std::size_t>(stage.strip)].trueColor = 1;
    stage.Start();
    EXPECT_EQ(Calls(),
              (Lines{"SetTexture 0 hill", "DrawPrimitiveUP 5 2 32", "quad hill 10,20 50x40"}));
    stage.Element(0).frameIndex = 1;
    const Lines calls = Calls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "quad strip 10,20 50x1 masked"), 1);
}

TEST_F(DrawnPicture, StatesAreSetOnceAroundAllCopies) {
    Tiled(Masked(stage.Hill()), 3, 0, 1);
    stage.Start();
    const Lines calls = Calls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "SetRenderState 27 1"), 1);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "SetRenderState 27 0"), 1);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "DrawPrimitiveUP 5 2 32"), 3);
}

TEST_F(DrawnPicture, OfABlankFrameOrWithoutASpriteIsNoneAndChangesNoState) {
    for (BackgroundElement* const element : {&stage.build.AnimationAt({{-1, 5}}, 160, 120),
                                             &stage.build.Still(-1), &stage.build.Dummy()}) {
        Masked(*element);
    }
    stage.Start();
    for (const BackgroundElement& element : stage.model.Elements) {
        DrawElement(stage.engine, stage.model, element, {});
        EXPECT_EQ(stage.record.TakeLines(), Lines()) << element.type;
    }
}

TEST_F(DrawnPicture, WhoseTextureIsGoneIsDrawnAsTheDeviceSees) {
    stage.Hill();
    stage.model.Sprites[0].texture.reset();
    stage.Start();
    const Lines calls = Calls();
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_EQ(calls[0], "SetTexture 0 none");
}

TEST_F(DrawnPicture, IndexOutsideOfItsTableIsAnErrorBeforeAnyCall) {
    Masked(stage.Hill());
    stage.Start();
    stage.Element(0).spriteIndex = stage.model.SpriteCount;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { stage.DrawFirst(); });
    EXPECT_EQ(stage.record.TakeLines(), Lines());
}

TEST_F(DrawnPicture, WithoutADeviceIsAnError) {
    stage.Hill();
    stage.Start();
    stage.engine.Engine_Deinit();
    ExpectError(RunTimeErrorKind::ObjectNotSet, [&] { stage.DrawFirst(); });
}

TEST_F(DrawnPicture, AnyFailingCallIsAnError) {
    Masked(stage.Hill());
    stage.Start();
    for (int nth = 1; nth <= 6; ++nth) {
        SCOPED_TRACE(nth);
        stage.record.Spoil("SetRenderState", Record::Trouble::Fails, nth);
        ExpectError(RunTimeErrorKind::Direct3D, [&] { stage.DrawFirst(); });
    }
    stage.record.Spoil("DrawPrimitiveUP", Record::Trouble::Fails);
    ExpectError(RunTimeErrorKind::Direct3D, [&] { stage.DrawFirst(); });
}

// --- copies ---

INSTANTIATE_TEST_SUITE_P(
    OfCopies, ElementDrawing,
    testing::Values(
        Drawn{"OfStillsTheGapApart",
              [](Stage& s) { Tiled(s.Hill(), 3, 0, 7); },
              {"hill 10,20 50x40", "hill 67,20 50x40", "hill 124,20 50x40"}},
        Drawn{"OfParallaxPicturesTheGapApart",
              [](Stage& s) { Tiled(s.build.ParallaxAt(s.strip, 10, 20), 2, 0, 7); },
              {"strip 10,20 50x1", "strip 67,20 50x1"}},
        Drawn{"OfAnimationsTheDistanceApart",
              [](Stage& s) { Tiled(s.HillFrame(), 3, 0, 60); },
              {"hill 10,20 50x40", "hill 70,20 50x40", "hill 130,20 50x40"}},
        Drawn{"Down",
              [](Stage& s) { Tiled(s.Hill(), 0, 3, 0, 5); },
              {"hill 10,20 50x40", "hill 10,65 50x40", "hill 10,110 50x40"}},
        Drawn{"RowByRowEachFromTheLeft",
              [](Stage& s) { Tiled(s.Hill(), 2, 2, 100, 60); },
              {"hill 10,20 50x40", "hill 160,20 50x40", "hill 10,120 50x40", "hill 160,120 50x40"}},
        Drawn{"OfAnimationsRowByRow",
              [](Stage& s) { Tiled(s.HillFrame(), 2, 2, 100, 60); },
              {"hill 10,20 50x40", "hill 110,20 50x40", "hill 10,80 50x40", "hill 110,80 50x40"}},
        // Every 160 from 160, every 120 from 120.
        Drawn{"WithoutEndBothWays",
              [](Stage& s) { Tiled(s.build.StillAt(s.hill, 160, 120), 1, 1, 110, 80); },
              {"hill 0,0 50x40", "hill 160,0 50x40", "hill 0,120 50x40", "hill 160,120 50x40"}},
        Drawn{"WithoutEndAcrossAndCountedDown",
              [](Stage& s) { Tiled(s.build.StillAt(s.hill, 160, 20), 1, 2, 110, 60); },
              {"hill 0,20 50x40", "hill 160,20 50x40", "hill 0,120 50x40", "hill 160,120 50x40"}},
        Drawn{"OfAnimationsWithoutADistanceOneAfterTheOther",
              [](Stage& s) {
                  Tiled(s.build.AnimationAt({{s.hill, 5}}, 100, 20), 1, 0, 1, 1);
              },
              {"hill 0,20 350x40"}},
        Drawn{"OfAnimationsWithACountAndNoDistanceAPixelApart",
              [](Stage& s) { Tiled(Masked(s.HillFrame()), 3, 0, 1, 1); },
              {"hill 10,20 50x40 masked", "hill 11,20 50x40 masked", "hill 12,20 50x40 masked"}},
        Drawn{"ThatTouchAsOneQuad", [](Stage& s) { Tiled(s.Hill(), 3, 2); }, {"hill 10,20 150x80"}},
        Drawn{"ThatTouchDownAsOneQuadEach",
              [](Stage& s) { Tiled(s.Hill(), 3, 2, 5); },
              {"hill 10,20 50x80", "hill 65,20 50x80", "hill 120,20 50x80"}},
        Drawn{"OfASolidPictureCutToWhatIsSeen",
              [](Stage& s) { Tiled(s.Hill(), 2, 2, -20, -10); },
              {"hill 10,20 30x30", "hill 40,20 50x30", "hill 10,50 30x40", "hill 40,50 50x40"}},
        Drawn{"OfAMaskedPictureWhole",
              [](Stage& s) { Tiled(Masked(s.Hill()), 2, 2, -20, -10); },
              {"hill 10,20 50x40 masked", "hill 40,20 50x40 masked", "hill 10,50 50x40 masked",
               "hill 40,50 50x40 masked"}},
        Drawn{"OfASolidPictureOnlyTheLastOfWhichMoreIsSeen",
              [](Stage& s) { Tiled(s.build.StillAt(s.hill, -45, 20), 4, 0, -40); },
              {"hill -15,20 50x40"}},
        Drawn{"OfASolidPictureWithoutHiddenOnes",
              [](Stage& s) { Tiled(s.build.StillAt(s.hill, -45, 20), 6, 0, -40); },
              {"hill -5,20 10x40", "hill 5,20 50x40"}},
        Drawn{"WithAStepOf0AsOne",
              [](Stage& s) { Tiled(s.Hill(), 3, 0, -50); },
              {"hill 10,20 50x40"}},
        Drawn{"WithAStepOf0DownAsOne",
              [](Stage& s) { Tiled(s.Hill(), 0, 3, 0, -40); },
              {"hill 10,20 50x40"}},
        Drawn{"WithANegativeStepAsNone", [](Stage& s) { Tiled(s.Hill(), 3, 0, -51); }, {}},
        Drawn{"WithANegativeStepDownAsNone", [](Stage& s) { Tiled(s.Hill(), 0, 3, 0, -41); }, {}},
        Drawn{"OfAMirroredFrameAsOne",
              [](Stage& s) { Tiled(s.HillFrame("h"), 1, 5, 1, 1); },
              {"hill 10,20 50x40 mirrored"}}),
    NameOf);

TEST_F(DrawnPicture, CopiesDoNotJitterAgainstEachOther) {
    Tiled(stage.Hill(), 3, 0, 1);
    stage.Start();
    stage.Element(0).posX = 10.5F;
    EXPECT_EQ(stage.DrawFirst(),
              (Lines{"hill 10,20 50x40", "hill 61,20 50x40", "hill 112,20 50x40"}));
    stage.Element(0).posX = 11.5F;
    EXPECT_EQ(stage.DrawFirst(),
              (Lines{"hill 12,20 50x40", "hill 63,20 50x40", "hill 114,20 50x40"}));
}

// --- windows ---

INSTANTIATE_TEST_SUITE_P(
    InAWindow, ElementDrawing,
    testing::Values(
        Drawn{"CutAndItsSourceRaised",
              [](Stage& s) { Windowed(s.Hill(), 15, 30, 29, 39); },
              {"hill 15,30 15x10 from 5,10"}},
        Drawn{"NotOutsideOfIt", [](Stage& s) { Windowed(s.Hill(), 60, 0, 100, 100); }, {}},
        Drawn{"ByItsLastColumn",
              [](Stage& s) { Windowed(s.Hill(), 59, 0, 100, 100); },
              {"hill 59,20 1x40 from 49,0"}},
        Drawn{"MirroredAndCutTheSame",
              [](Stage& s) { Windowed(s.HillFrame("h"), 15, 30, 29, 39); },
              {"hill 15,30 15x10 from 5,10 mirrored"}},
        Drawn{"EachCopyCutByItself",
              [](Stage& s) { Tiled(Windowed(s.Hill(), 55, 30, 114, 34), 1, 0, 1); },
              {"hill 55,30 5x5 from 45,10", "hill 61,30 50x5 from 0,10",
               "hill 112,30 3x5 from 0,10"}},
        Drawn{"CopiesThatTouchCutAsOne",
              [](Stage& s) { Tiled(Windowed(s.Hill(), 55, 30, 114, 34), 1, 0); },
              {"hill 55,30 60x5 from 45,10"}},
        Drawn{"CornersOfAnyOrderRounded",
              [](Stage& s) { Windowed(s.Hill(), 29.5F, 38.6F, 14.5F, 30.4F); },
              {"hill 14,30 17x10 from 4,10"}},
        Drawn{"ThatIsNotActiveWhole",
              [](Stage& s) { Windowed(s.Hill(), 15, 30, 29, 39).windowActive = 0; },
              {"hill 10,20 50x40"}}),
    NameOf);

TEST_F(DrawnPicture, StatesOfAMaskAreRestoredEvenIfNothingIsSeen) {
    Windowed(Masked(stage.Hill()), 100, 100, 110, 110);
    stage.Start();
    const Lines calls = Calls();
    if (!calls.empty()) {
        EXPECT_EQ(calls,
                  (Lines{"SetRenderState 19 5", "SetRenderState 20 6", "SetRenderState 27 1",
                         "SetRenderState 27 0", "SetRenderState 19 2", "SetRenderState 20 1"}));
    }
}

// --- rows ---

const Lines kStraight{"floor 10,20 50x1", "floor 10,21 50x1 from 0,1", "floor 10,22 50x1 from 0,2"};

INSTANTIATE_TEST_SUITE_P(
    OfRows, ElementDrawing,
    testing::Values(
        Drawn{"UnderOneAnother", [](Stage& s) { s.Floor(); }, kStraight},
        Drawn{"ShearedByTheCameraToTheRight",
              [](Stage& s) { s.Floor(); },
              {"floor 10,20 50x1", "floor 7,21 50x1 from 0,1", "floor 4,22 50x1 from 0,2"},
              -6},
        Drawn{"ShearedByTheCameraToTheLeft",
              [](Stage& s) { s.Floor(); },
              {"floor 10,20 50x1", "floor 13,21 50x1 from 0,1", "floor 16,22 50x1 from 0,2"},
              6},
        Drawn{"WithoutScalesStraight", [](Stage& s) { Sheared(s.Floor(), 0, 0); }, kStraight, -600},
        Drawn{
            "TiledEachByItself",
            [](Stage& s) { Tiled(s.Floor(), 2, 0, 5); },
            {"floor 10,20 50x1", "floor 65,20 50x1", "floor 7,21 50x1 from 0,1",
             "floor 62,21 50x1 from 0,1", "floor 4,22 50x1 from 0,2", "floor 59,22 50x1 from 0,2"},
            -6},
        Drawn{"WithoutEndInEachRow",
              [](Stage& s) { Tiled(s.Floor(160), 1, 0, 110); },
              {"floor 0,20 50x1", "floor 160,20 50x1", "floor -3,21 50x1 from 0,1",
               "floor 157,21 50x1 from 0,1", "floor 317,21 50x1 from 0,1",
               "floor -6,22 50x1 from 0,2", "floor 154,22 50x1 from 0,2",
               "floor 314,22 50x1 from 0,2"},
              -6},
        Drawn{"NotTiledDownWithoutEnd", [](Stage& s) { Tiled(s.Floor(), 0, 1); }, kStraight},
        Drawn{"NotTiledDownByACount", [](Stage& s) { Tiled(s.Floor(), 0, 5); }, kStraight},
        Drawn{"CutByTheWindow",
              [](Stage& s) { Windowed(s.Floor(), 12, 21, 20, 21); },
              {"floor 12,21 9x1 from 5,1"},
              -6},
        Drawn{"Masked",
              [](Stage& s) { Masked(s.Floor()); },
              {"floor 10,20 50x1 masked", "floor 10,21 50x1 from 0,1 masked",
               "floor 10,22 50x1 from 0,2 masked"}}),
    NameOf);

TEST_F(DrawnPicture, RowsAreRoundedEachByItselfAcrossAndOnceDown) {
    stage.Floor();
    stage.Start();
    stage.model.CamX = -1;
    stage.Element(0).posX = 10.75F;  // 10.75, 10.25, 9.75
    stage.Element(0).posY = 20.5F;
    EXPECT_EQ(stage.DrawFirst(), (Lines{"floor 11,20 50x1", "floor 10,21 50x1 from 0,1",
                                        "floor 10,22 50x1 from 0,2"}));
}

TEST_F(DrawnPicture, RowsOutsideOfTheViewNeedNotBeDrawn) {
    stage.build.ParallaxAt(stage.tall, 10, -16000);
    const Lines rows = stage.StartAndDrawFirst();
    EXPECT_LE(rows.size(), 242U);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), "tall 10,0 50x1 from 0,16000"), 1);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), "tall 10,239 50x1 from 0,16239"), 1);
}

TEST_F(DrawnPicture, RowsFollowASwingLikeAnyPicture) {
    stage.Floor();
    stage.Start();
    stage.Element(0).sinOffset = {3, 4};
    EXPECT_EQ(stage.DrawFirst().front(), "floor 13,24 50x1");
}

}  // namespace
}  // namespace scenara::test
