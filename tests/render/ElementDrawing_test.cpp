// SPDX-License-Identifier: MIT
//
// What one element puts on the screen: quads, in words, and the calls around them.
#include "render/ElementDrawing.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/StagePlayer.h"

namespace scenara {
namespace {

using test::ExpectError;
using test::Lines;
using test::Record;
using test::StageBuilder;
using test::StagePlayer;

// Draws the stage's first element.
class Drawing : public testing::Test {
protected:
    // Another stage in the place of this one, with the same sprites.
    void Anew() {
        player.model.Elements.clear();
        player.model.Actions.clear();
        player.model.ActionCount = 0;
        player.model.BoundHigh = -1000;
    }
    Lines Draw() {
        player.Start();
        return DrawAsIs();
    }
    Lines DrawAsIs() {
        DrawElement(player.engine, player.model, player.Element(0), {});
        return player.record.TakeQuads();
    }
    // All calls.
    Lines Calls() {
        player.Start();
        DrawElement(player.engine, player.model, player.Element(0), {});
        return player.record.TakeLines();
    }
    BackgroundElement& Still(Integer sprite, Long x, Long y) {
        return StageBuilder::At(player.build.Still(sprite), x, y);
    }
    BackgroundElement& Animation(const std::vector<test::FrameLine>& frames, Long x, Long y) {
        return StageBuilder::At(player.build.Animation(player.build.Action(frames)), x, y);
    }
    static void Window(BackgroundElement& element, Single x1, Single y1, Single x2, Single y2) {
        element.windowX1 = x1;
        element.windowY1 = y1;
        element.windowX2 = x2;
        element.windowY2 = y2;
        element.windowActive = 1;
    }

    StagePlayer player;
    const Integer hill = player.build.Sprite("hill", 50, 40);
};

// --- one picture ---

using DrawnPicture = Drawing;

TEST_F(DrawnPicture, IsTheWholeTextureWhereTheElementStands) {
    Still(hill, 10, 20);
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40"}));
}

TEST_F(DrawnPicture, ThatIsNotMaskedChangesNoState) {
    for (const Integer mask : {Integer{0}, Integer{2}, Integer{-1}}) {
        Anew();
        Still(hill, 10, 20).mask = mask;
        EXPECT_EQ(Calls(),
                  (Lines{"SetTexture 0 hill", "DrawPrimitiveUP 5 2 32", "quad hill 10,20 50x40"}));
    }
}

TEST_F(DrawnPicture, ThatIsMaskedIsBlendedAndNoOther) {
    Still(hill, 10, 20).mask = 1;
    EXPECT_EQ(Calls(),
              (Lines{"SetRenderState 19 5", "SetRenderState 20 6", "SetRenderState 27 1",
                     "SetTexture 0 hill", "DrawPrimitiveUP 5 2 32", "quad hill 10,20 50x40 masked",
                     "SetRenderState 27 0", "SetRenderState 19 2", "SetRenderState 20 1"}));
}

TEST_F(DrawnPicture, StatesAreSetOnceAroundAllCopies) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.mask = 1;
    element.tileX = 3;
    element.tileSpacingX = 1;
    const Lines calls = Calls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "SetRenderState 27 1"), 1);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "SetRenderState 27 0"), 1);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "DrawPrimitiveUP 5 2 32"), 3);
}

TEST_F(DrawnPicture, OfAFrameIsLaidOnItsAxis) {
    player.model.Sprites[0].axisX = 25;
    player.model.Sprites[0].axisY = 39;
    Animation({{hill, 5, 3, -4}}, 160, 120);
    EXPECT_EQ(Draw(), (Lines{"hill 138,77 50x40"}));
}

TEST_F(DrawnPicture, OfAFrameWithHIsMirroredAtTheSamePlace) {
    player.model.Sprites[0].axisX = 10;
    Animation({{hill, 5, 3, 0, "h"}}, 160, 120);
    EXPECT_EQ(Draw(), (Lines{"hill 153,120 50x40 mirrored"}));
}

TEST_F(DrawnPicture, OfAFrameWithVOrHvIsNotMirrored) {
    for (const char* const flip : {"v", "hv", "H"}) {
        Anew();
        Animation({{hill, 5, 0, 0, flip}}, 160, 120);
        EXPECT_EQ(Draw(), (Lines{"hill 160,120 50x40"})) << flip;
    }
}

TEST_F(DrawnPicture, OfABlankFrameOrWithoutASpriteIsNoneAndChangesNoState) {
    Animation({{-1, 5}}, 160, 120).mask = 1;
    EXPECT_EQ(Calls(), Lines());
    Anew();
    Still(-1, 0, 0).mask = 1;
    EXPECT_EQ(Calls(), Lines());
    Anew();
    player.build.Dummy().mask = 1;
    EXPECT_EQ(Calls(), Lines());
}

TEST_F(DrawnPicture, WhoseTextureIsGoneIsDrawnAsTheDeviceSees) {
    Still(hill, 10, 20);
    player.model.Sprites[0].texture.reset();
    const Lines calls = Calls();
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_EQ(calls[0], "SetTexture 0 none");
}

TEST_F(DrawnPicture, IndexOutsideOfItsTableIsAnErrorBeforeAnyCall) {
    Still(hill, 10, 20).mask = 1;
    player.Start();
    player.Element(0).spriteIndex = 1;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { DrawAsIs(); });
    EXPECT_EQ(player.record.TakeLines(), Lines());
}

TEST_F(DrawnPicture, WithoutADeviceIsAnError) {
    Still(hill, 10, 20);
    player.Start();
    player.engine.Engine_Deinit();
    ExpectError(RunTimeErrorKind::ObjectNotSet, [&] { DrawAsIs(); });
}

TEST_F(DrawnPicture, AnyFailingCallIsAnError) {
    Still(hill, 10, 20).mask = 1;
    player.Start();
    for (int nth = 1; nth <= 6; ++nth) {
        SCOPED_TRACE(nth);
        player.record.Spoil("SetRenderState", Record::Trouble::Fails, nth);
        ExpectError(RunTimeErrorKind::Direct3D, [&] { DrawAsIs(); });
    }
    player.record.Spoil("DrawPrimitiveUP", Record::Trouble::Fails);
    ExpectError(RunTimeErrorKind::Direct3D, [&] { DrawAsIs(); });
}

// --- copies ---

using DrawnCopies = Drawing;

TEST_F(DrawnCopies, OfStillPicturesStandTheSpacingApart) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.tileX = 3;
    element.tileSpacingX = 7;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40", "hill 67,20 50x40", "hill 124,20 50x40"}));
}

TEST_F(DrawnCopies, OfParallaxPicturesStandTheSpacingApart) {
    const Integer strip = player.build.Sprite("strip", 50, 1);
    BackgroundElement& element = StageBuilder::At(player.build.Parallax(strip), 10, 20);
    element.tileX = 2;
    element.tileSpacingX = 7;
    EXPECT_EQ(Draw(), (Lines{"strip 10,20 50x1", "strip 67,20 50x1"}));
}

TEST_F(DrawnCopies, OfAnimationsStandTheSpacingFromEachOther) {
    BackgroundElement& element = Animation({{hill, 5}}, 10, 20);
    element.tileX = 3;
    element.tileSpacingX = 60;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40", "hill 70,20 50x40", "hill 130,20 50x40"}));
}

TEST_F(DrawnCopies, GoDownAsTheyGoAcross) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.tileY = 3;
    element.tileSpacingY = 5;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40", "hill 10,65 50x40", "hill 10,110 50x40"}));
}

TEST_F(DrawnCopies, BothWaysGoRowByRowEachFromTheLeft) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.tileX = 2;
    element.tileY = 2;
    element.tileSpacingX = 100;
    element.tileSpacingY = 60;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40", "hill 160,20 50x40", "hill 10,120 50x40",
                             "hill 160,120 50x40"}));
}

TEST_F(DrawnCopies, OfAnimationsGoBothWays) {
    BackgroundElement& element = Animation({{hill, 5}}, 10, 20);
    element.tileX = 2;
    element.tileY = 2;
    element.tileSpacingX = 100;
    element.tileSpacingY = 60;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40", "hill 110,20 50x40", "hill 10,80 50x40",
                             "hill 110,80 50x40"}));
}

TEST_F(DrawnCopies, WithoutEndFillTheViewBothWays) {
    BackgroundElement& element = Still(hill, 160, 120);
    element.tileX = 1;
    element.tileY = 1;
    element.tileSpacingX = 110;  // every 160 from 160
    element.tileSpacingY = 80;   // every 120 from 120
    EXPECT_EQ(Draw(), (Lines{"hill 0,0 50x40", "hill 160,0 50x40", "hill 0,120 50x40",
                             "hill 160,120 50x40"}));
}

TEST_F(DrawnCopies, WithoutEndAcrossAndCountedDown) {
    BackgroundElement& element = Still(hill, 160, 20);
    element.tileX = 1;
    element.tileY = 2;
    element.tileSpacingX = 110;
    element.tileSpacingY = 60;
    EXPECT_EQ(Draw(), (Lines{"hill 0,20 50x40", "hill 160,20 50x40", "hill 0,120 50x40",
                             "hill 160,120 50x40"}));
}

TEST_F(DrawnCopies, OfAnAnimationWithoutADistanceFollowOneAnother) {
    BackgroundElement& element = Animation({{hill, 5}}, 100, 20);
    element.tileX = 1;
    EXPECT_EQ(Draw(), (Lines{"hill 0,20 350x40"}));
}

TEST_F(DrawnCopies, OfAnAnimationWithACountAndNoDistanceAreOnePixelApart) {
    BackgroundElement& element = Animation({{hill, 5}}, 100, 20);
    element.tileX = 3;
    element.mask = 1;
    EXPECT_EQ(Draw(), (Lines{"hill 100,20 50x40 masked", "hill 101,20 50x40 masked",
                             "hill 102,20 50x40 masked"}));
}

TEST_F(DrawnCopies, ThatTouchAreOneQuad) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.tileX = 3;
    element.tileY = 2;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 150x80"}));
    element.tileSpacingX = 5;
    EXPECT_EQ(DrawAsIs(), (Lines{"hill 10,20 50x80", "hill 65,20 50x80", "hill 120,20 50x80"}));
}

TEST_F(DrawnCopies, OfASolidPictureAreCutToWhatIsSeenOfThem) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.tileX = 2;
    element.tileY = 2;
    element.tileSpacingX = -20;
    element.tileSpacingY = -10;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 30x30", "hill 40,20 50x30", "hill 10,50 30x40",
                             "hill 40,50 50x40"}));
    element.mask = 1;
    EXPECT_EQ(DrawAsIs(), (Lines{"hill 10,20 50x40 masked", "hill 40,20 50x40 masked",
                                 "hill 10,50 50x40 masked", "hill 40,50 50x40 masked"}));
}

TEST_F(DrawnCopies, OfASolidPictureThatAreHiddenAreNone) {
    BackgroundElement& element = Still(hill, -45, 20);
    element.tileX = 4;
    element.tileSpacingX = -40;
    EXPECT_EQ(Draw(), (Lines{"hill -15,20 50x40"})) << "the last, of which more is seen";
    element.tileX = 6;
    EXPECT_EQ(DrawAsIs(), (Lines{"hill -5,20 10x40", "hill 5,20 50x40"}));
}

TEST_F(DrawnCopies, DoNotJitterAgainstEachOther) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.tileX = 3;
    element.tileSpacingX = 1;
    player.Start();
    player.Element(0).posX = 10.5F;
    EXPECT_EQ(DrawAsIs(), (Lines{"hill 10,20 50x40", "hill 61,20 50x40", "hill 112,20 50x40"}));
    player.Element(0).posX = 11.5F;
    EXPECT_EQ(DrawAsIs(), (Lines{"hill 12,20 50x40", "hill 63,20 50x40", "hill 114,20 50x40"}));
}

TEST_F(DrawnCopies, WithAStepOf0AreOneAndWithANegativeStepNone) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.tileX = 3;
    element.tileSpacingX = -50;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40"}));
    element.tileSpacingX = -51;
    EXPECT_EQ(DrawAsIs(), Lines());
    element.tileX = 0;
    element.tileY = 3;
    element.tileSpacingY = -40;
    EXPECT_EQ(DrawAsIs(), (Lines{"hill 10,20 50x40"}));
    element.tileSpacingY = -41;
    EXPECT_EQ(DrawAsIs(), Lines());
}

TEST_F(DrawnCopies, OfAMirroredFrameIsOne) {
    BackgroundElement& element = Animation({{hill, 5, 0, 0, "h"}}, 10, 20);
    element.tileX = 1;
    element.tileY = 5;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40 mirrored"}));
}

// --- windows ---

using DrawnInAWindow = Drawing;

TEST_F(DrawnInAWindow, IsCutAndItsSourceRaised) {
    Window(Still(hill, 10, 20), 15, 30, 29, 39);
    EXPECT_EQ(Draw(), (Lines{"hill 15,30 15x10 from 5,10"}));
}

TEST_F(DrawnInAWindow, OutsideOfItIsNotDrawn) {
    Window(Still(hill, 10, 20), 60, 0, 100, 100);
    EXPECT_EQ(Draw(), Lines());
    player.Element(0).windowX1 = 59;
    EXPECT_EQ(DrawAsIs(), (Lines{"hill 59,20 1x40 from 49,0"}));
}

TEST_F(DrawnInAWindow, AMirroredPictureIsCutTheSame) {
    Window(Animation({{hill, 5, 0, 0, "h"}}, 10, 20), 15, 30, 29, 39);
    EXPECT_EQ(Draw(), (Lines{"hill 15,30 15x10 from 5,10 mirrored"}));
}

TEST_F(DrawnInAWindow, EachCopyIsCutByItself) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.tileX = 1;
    element.tileSpacingX = 1;
    Window(element, 55, 30, 114, 34);
    EXPECT_EQ(Draw(), (Lines{"hill 55,30 5x5 from 45,10", "hill 61,30 50x5 from 0,10",
                             "hill 112,30 3x5 from 0,10"}));
    element.tileSpacingX = 0;
    EXPECT_EQ(DrawAsIs(), (Lines{"hill 55,30 60x5 from 45,10"}));
}

TEST_F(DrawnInAWindow, CornersOfAnyOrderAreRounded) {
    Window(Still(hill, 10, 20), 29.5F, 38.6F, 14.5F, 30.4F);
    EXPECT_EQ(Draw(), (Lines{"hill 14,30 17x10 from 4,10"}));
}

TEST_F(DrawnInAWindow, AWindowThatIsNotActiveCutsNothing) {
    Window(Still(hill, 10, 20), 15, 30, 29, 39);
    player.Element(0).windowActive = 0;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40"}));
}

TEST_F(DrawnInAWindow, StatesOfAMaskAreRestoredEvenIfNothingIsSeen) {
    BackgroundElement& element = Still(hill, 10, 20);
    element.mask = 1;
    Window(element, 100, 100, 110, 110);
    const Lines calls = Calls();
    if (!calls.empty()) {
        EXPECT_EQ(calls,
                  (Lines{"SetRenderState 19 5", "SetRenderState 20 6", "SetRenderState 27 1",
                         "SetRenderState 27 0", "SetRenderState 19 2", "SetRenderState 20 1"}));
    }
}

// --- rows ---

class DrawnRows : public Drawing {
protected:
    // Three rows of 50 pixels, the bottom one twice as fast as the top.
    BackgroundElement& Floor(Long x, Long y) {
        BackgroundElement& element = StageBuilder::At(player.build.Parallax(floor), x, y);
        element.xscaleTop = 1;
        element.xscaleBottom = 2;
        return element;
    }
    const Integer floor = player.build.Sprite("floor", 50, 3);
};

TEST_F(DrawnRows, AreQuadsOfHeight1UnderOneAnother) {
    Floor(10, 20);
    EXPECT_EQ(Draw(), (Lines{"floor 10,20 50x1", "floor 10,21 50x1 from 0,1",
                             "floor 10,22 50x1 from 0,2"}));
}

TEST_F(DrawnRows, AreShearedByTheCamera) {
    Floor(10, 20);
    player.Start();
    player.model.CamX = -6;
    EXPECT_EQ(DrawAsIs(),
              (Lines{"floor 10,20 50x1", "floor 7,21 50x1 from 0,1", "floor 4,22 50x1 from 0,2"}));
    player.model.CamX = 6;
    EXPECT_EQ(DrawAsIs(), (Lines{"floor 10,20 50x1", "floor 13,21 50x1 from 0,1",
                                 "floor 16,22 50x1 from 0,2"}));
}

TEST_F(DrawnRows, AreRoundedEachByItselfAcrossAndOnceDown) {
    Floor(10, 20);
    player.Start();
    player.model.CamX = -1;
    player.Element(0).posX = 10.75F;  // 10.75, 10.25, 9.75
    player.Element(0).posY = 20.5F;
    EXPECT_EQ(DrawAsIs(), (Lines{"floor 11,20 50x1", "floor 10,21 50x1 from 0,1",
                                 "floor 10,22 50x1 from 0,2"}));
}

TEST_F(DrawnRows, WithoutScalesStandStraight) {
    BackgroundElement& element = Floor(10, 20);
    element.xscaleTop = 0;
    element.xscaleBottom = 0;
    player.Start();
    player.model.CamX = -600;
    EXPECT_EQ(DrawAsIs(), (Lines{"floor 10,20 50x1", "floor 10,21 50x1 from 0,1",
                                 "floor 10,22 50x1 from 0,2"}));
}

TEST_F(DrawnRows, AreTiledEachByItself) {
    BackgroundElement& element = Floor(10, 20);
    element.tileX = 2;
    element.tileSpacingX = 5;
    player.Start();
    player.model.CamX = -6;
    EXPECT_EQ(DrawAsIs(), (Lines{"floor 10,20 50x1", "floor 65,20 50x1", "floor 7,21 50x1 from 0,1",
                                 "floor 62,21 50x1 from 0,1", "floor 4,22 50x1 from 0,2",
                                 "floor 59,22 50x1 from 0,2"}));
}

TEST_F(DrawnRows, WithoutEndFillTheViewInEachRow) {
    BackgroundElement& element = Floor(160, 20);
    element.tileX = 1;
    element.tileSpacingX = 110;
    player.Start();
    player.model.CamX = -6;
    EXPECT_EQ(DrawAsIs(), (Lines{"floor 0,20 50x1", "floor 160,20 50x1",
                                 "floor -3,21 50x1 from 0,1", "floor 157,21 50x1 from 0,1",
                                 "floor 317,21 50x1 from 0,1", "floor -6,22 50x1 from 0,2",
                                 "floor 154,22 50x1 from 0,2", "floor 314,22 50x1 from 0,2"}));
}

TEST_F(DrawnRows, AreNotTiledDown) {
    for (const Long tiles : {1, 5}) {
        Anew();
        Floor(10, 20).tileY = tiles;
        EXPECT_EQ(Draw().size(), 3U) << tiles;
    }
}

TEST_F(DrawnRows, AreCutByTheWindow) {
    BackgroundElement& element = Floor(10, 20);
    Window(element, 12, 21, 20, 21);
    player.Start();
    player.model.CamX = -6;
    EXPECT_EQ(DrawAsIs(), (Lines{"floor 12,21 9x1 from 5,1"}));
}

TEST_F(DrawnRows, OutsideOfTheViewNeedNotBeDrawn) {
    const Integer tall = player.build.Sprite("tall", 50, 32767);
    StageBuilder::At(player.build.Parallax(tall), 10, -16000);
    const Lines rows = Draw();
    EXPECT_LE(rows.size(), 242U);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), "tall 10,0 50x1 from 0,16000"), 1);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), "tall 10,239 50x1 from 0,16239"), 1);
}

TEST_F(DrawnRows, AreMaskedLikeAnyPicture) {
    Floor(10, 20).mask = 1;
    EXPECT_EQ(Draw(), (Lines{"floor 10,20 50x1 masked", "floor 10,21 50x1 from 0,1 masked",
                             "floor 10,22 50x1 from 0,2 masked"}));
}

TEST_F(DrawnRows, FollowSwingAndLinkLikeAnyPicture) {
    Floor(10, 20);
    player.Start();
    player.Element(0).sinOffset = {3, 4};
    EXPECT_EQ(DrawAsIs().front(), "floor 13,24 50x1");
}

}  // namespace
}  // namespace scenara
