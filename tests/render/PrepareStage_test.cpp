// SPDX-License-Identifier: MIT
#include "render/PrepareStage.h"

#include <array>
#include <cmath>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

class Prepared : public testing::Test {
protected:
    // As a stage start does it.
    void Prepare() {
        PlaceCamera(model, camera);
        PrepareElements(model, kPlainView, View());
    }
    [[nodiscard]] const BackgroundElement& Element(std::size_t index) const {
        return model.Elements.at(index);
    }

    StageModel model;
    StageBuilder build{model};
    Camera camera;
};

// --- where the camera starts ---

class CameraStart : public Prepared {
protected:
    void Bound(Long left, Long right, Integer high, Integer low) {
        model.BoundLeft = left;
        model.BoundRight = right;
        model.BoundHigh = high;
        model.BoundLow = low;
    }
    void ExpectShown(Single startX, Integer startY, Single shownX, Single shownY) {
        model.CamStartX = startX;
        model.CamStartY = startY;
        PlaceCamera(model, camera);
        EXPECT_EQ(model.CamX, -shownX);
        EXPECT_EQ(model.CamY, shownY);
        EXPECT_EQ(camera.previousX, model.CamX);
        EXPECT_EQ(camera.previousY, model.CamY);
    }
};

TEST_F(CameraStart, InsideOfTheBoundsIsTaken) {
    Bound(-100, 100, -80, 0);
    ExpectShown(25.5F, -10, 25.5F, -10);
    ExpectShown(-100, -80, -100, -80);
    ExpectShown(100, 0, 100, 0);
    ExpectShown(0, 0, 0, 0);
}

TEST_F(CameraStart, OutsideIsMovedToTheBound) {
    Bound(-100, 100, -80, 0);
    ExpectShown(-100.5F, -81, -100, -80);
    ExpectShown(100.5F, 1, 100, 0);
    ExpectShown(3e38F, 32767, 100, 0);
    ExpectShown(-3e38F, -32768, -100, -80);
}

TEST_F(CameraStart, RightAndLowerBoundWinWhereTheBoundsAreCrossed) {
    Bound(50, -50, 10, 0);
    ExpectShown(0, 5, -50, 0);
    ExpectShown(-200, -200, -50, 0);
    ExpectShown(200, 200, -50, 0);
}

TEST_F(CameraStart, NoStepLeftTheCameraItself) {
    Bound(0, 0, 0, 0);
    camera.HCamStep = 3;
    camera.VCamStep = 4;
    camera.previousX = 7;
    ExpectShown(0, 0, 0, 0);
    EXPECT_EQ(camera.HCamStep, 3);
    EXPECT_EQ(camera.VCamStep, 4);
}

// --- where elements start ---

using FirstPosition = Prepared;

TEST_F(FirstPosition, StillPictureLaysItsAxisOnTheStartFromTheMiddleOfTheView) {
    BackgroundElement& element = build.Still(build.Sprite("hill", 64, 32, 20, 30));
    element.startX = -40;
    element.startY = 100;
    Prepare();
    EXPECT_EQ(Element(0).posX, 160 - 40 - 20);
    EXPECT_EQ(Element(0).posY, 100 - 30);
}

TEST_F(FirstPosition, AnimationsKeepTheirAxisForTheFrame) {
    const Integer action = build.Action({{build.Sprite("fire", 64, 32, 20, 30), 5, 3, 4}});
    BackgroundElement& element = build.Animation(action);
    element.startX = -40;
    element.startY = 100;
    Prepare();
    EXPECT_EQ(Element(0).posX, 120);
    EXPECT_EQ(Element(0).posY, 100);
}

TEST_F(FirstPosition, ContainsTheCameraByDelta) {
    model.CamStartX = 30;
    model.CamStartY = -20;
    BackgroundElement& still = build.Still(build.Sprite("hill", 64, 32, 20, 30));
    still.deltaX = 0.5F;
    still.deltaY = 0.25F;
    const Integer action = build.Action({{build.Sprite("fire", 64, 32, 20, 30), 5}});
    BackgroundElement& animated = build.Animation(action);
    animated.deltaX = 2;
    animated.deltaY = -1;
    Prepare();
    EXPECT_EQ(Element(0).posX, 160 - 20 - 15);
    EXPECT_EQ(Element(0).posY, -30 + 5);
    EXPECT_EQ(Element(1).posX, 160 - 60);
    EXPECT_EQ(Element(1).posY, -20);
}

TEST_F(FirstPosition, ContainsTheCameraAsItWasPlacedNotAsTheFileAsks) {
    model.CamStartX = 5000;
    model.BoundRight = 10;
    build.Still(build.Sprite("hill", 64, 32));
    Prepare();
    EXPECT_EQ(Element(0).posX, 150);
}

TEST_F(FirstPosition, OfAnElementWithoutAPictureHasNoAxis) {
    build.Sprite("hill", 64, 32, 20, 30);
    build.Still(-1).startX = 7;
    build.Dummy().startY = 9;
    Prepare();
    EXPECT_EQ(Element(0).posX, 167);
    EXPECT_EQ(Element(1).posX, 160);
    EXPECT_EQ(Element(1).posY, 9);
}

TEST_F(FirstPosition, OfAKindThatNobodyKnowsIsThatOfAStillPicture) {
    build.Still(build.Sprite("hill", 64, 32, 20, 30)).type = "Anim";
    build.Still(0).type = "";
    build.Parallax(0);
    Prepare();
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Element(i).posX, 140) << i;
        EXPECT_EQ(Element(i).posY, -30) << i;
        EXPECT_EQ(Element(i).spriteIndex, 0) << i;
    }
}

TEST_F(FirstPosition, TakesTheLargestNumbersOfAFile) {
    model.CamStartX = 1000;
    BackgroundElement& element = build.Still(-1);
    element.startX = 2147483647;
    element.startY = -2147483647 - 1;
    element.deltaX = -3e38F;
    element.deltaY = 3e38F;
    Prepare();
    EXPECT_TRUE(std::isfinite(Element(0).posX));
    EXPECT_TRUE(std::isfinite(Element(0).posY));
}

TEST_F(FirstPosition, OfASpriteOutsideOfTheTableIsAnError) {
    build.Still(0);
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Prepare(); });
    model.Elements[0].spriteIndex = -2;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Prepare(); });
}

TEST_F(FirstPosition, OfAnActionOutsideOfTheTableIsAnError) {
    build.Animation(0);
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Prepare(); });
    model.Elements[0].actionIndex = -2;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Prepare(); });
}

TEST_F(FirstPosition, AStageWithoutElementsIsNoError) {
    Prepare();
    EXPECT_TRUE(model.Elements.empty());
    EXPECT_EQ(model.ZOffsetLink, -1);
    EXPECT_EQ(model.BoundHigh, -1000);
}

// --- first values ---

using FirstValues = Prepared;

TEST_F(FirstValues, AreThoseOfTheBeginning) {
    BackgroundElement& element = build.Still(build.Sprite("hill", 64, 32));
    element.lastTileIndex = 5;
    element.frameIndex = 6;
    element.frameTime = 7;
    element.ctrlOffset = {1, 2};
    element.ctrlPos = {3, 4, 5, 6};
    element.sinOffset = {7, 8};
    element.sinYAmplitude = 11;
    element.sinYPeriod = 12;
    element.sinYPhase = 13;
    BgCtrlDef& group = build.Group();
    group.timer = 9;
    AddControl(group, "visible").timer = 10;
    Prepare();
    EXPECT_EQ(Element(0).lastTileIndex, -1);
    EXPECT_EQ(Element(0).frameIndex, 0);
    EXPECT_EQ(Element(0).frameTime, 0);
    EXPECT_EQ(Element(0).ctrlOffset, (std::array<Single, 2>{}));
    EXPECT_EQ(Element(0).ctrlPos, (std::array<Single, 4>{}));
    EXPECT_EQ(Element(0).sinOffset, (std::array<Single, 2>{}));
    // Those are the file's.
    EXPECT_EQ(Element(0).sinYAmplitude, 11);
    EXPECT_EQ(Element(0).sinYPeriod, 12);
    EXPECT_EQ(Element(0).sinYPhase, 13);
    EXPECT_EQ(Element(0).linkParent, -1);
    EXPECT_EQ(model.CtrlDefs[0].timer, 0);
    EXPECT_EQ(model.CtrlDefs[0].controls[0].timer, 0);
}

TEST_F(FirstValues, EverythingIsVisibleAndEnabledButPlainDummies) {
    build.Still(build.Sprite("hill", 64, 32));
    build.Parallax(0);
    build.Animation(-1);
    build.Dummy();
    build.Still(0).type = "whatever";
    Prepare();
    for (const BackgroundElement& element : model.Elements) {
        EXPECT_EQ(element.visible, 1) << element.type;
        EXPECT_EQ(element.enabled, element.type == "dummy" ? 0 : 1) << element.type;
    }
    PrepareElements(model, ViewOptions(), View());
    EXPECT_THAT(model.Elements, testing::Each(testing::Field(&BackgroundElement::enabled, 1)));
}

TEST_F(FirstValues, AnimationsShowPicturesOfTheirActionFromItsFirstFrameOn) {
    build.Animation(build.Action({{-1, 12}, {-1, 3}}));
    build.Animation(build.Action({{-1, -1}}));
    build.Animation(-1);
    build.Animation(build.Action({}));
    Prepare();
    EXPECT_EQ(Element(0).frameTime, 12);
    EXPECT_EQ(Element(1).frameTime, -1);
    EXPECT_EQ(Element(2).frameTime, 0);
    EXPECT_EQ(Element(3).frameTime, 0);
    for (const BackgroundElement& element : model.Elements) {
        EXPECT_EQ(element.spriteIndex, -2);
        EXPECT_EQ(element.frameIndex, 0);
    }
}

TEST_F(FirstValues, ElementsAreInOrderOfTheirIdsThenOfTheList) {
    for (const Long id : {7, 0, 7, -3, 0, 2000000000}) {
        build.Still(-1).id = id;
    }
    Prepare();
    EXPECT_EQ(model.ElementsById, (std::vector<Integer>{3, 1, 4, 0, 2, 5}));
}

// --- links ---

using Links = Prepared;

TEST_F(Links, GoToTheLastElementBeforeThatHasNone) {
    for (const int link : {1, 0, 1, -1, 0, 32767, 0}) {
        build.Still(-1).positionlink = static_cast<Integer>(link);
    }
    Prepare();
    const std::vector<Integer> parents{-1, -1, 1, 1, -1, 4, -1};
    for (std::size_t i = 0; i < parents.size(); ++i) {
        EXPECT_EQ(Element(i).linkParent, parents[i]) << i;
    }
}

TEST_F(Links, OffsetFromTheParentsStartAndTakeItsDeltas) {
    model.CamStartX = 100;
    model.CamStartY = -10;
    BackgroundElement& parent = build.Still(build.Sprite("tower", 64, 32, 20, 30));
    parent.startX = 50;
    parent.startY = 60;
    parent.deltaX = 0.5F;
    parent.deltaY = 0.25F;
    BackgroundElement& linked = build.Still(build.Sprite("flag", 8, 8, 3, 4));
    linked.positionlink = 1;
    linked.startX = -7;
    linked.startY = -9;
    linked.deltaX = 9;
    linked.deltaY = 9;
    Prepare();
    EXPECT_EQ(Element(0).posX, 160 + 50 - 20 - 50);
    EXPECT_EQ(Element(1).deltaX, 0.5F);
    EXPECT_EQ(Element(1).deltaY, 0.25F);
    // Its own axis and not the parent's.
    EXPECT_EQ(Element(1).posX, 160 + 50 - 7 - 3 - 50);
    EXPECT_EQ(Element(1).posY, 60 - 9 - 4 + 2.5F);
}

TEST_F(Links, InAChainAllOffsetFromItsBeginning) {
    build.Still(-1).startX = 50;
    BackgroundElement& second = build.Still(-1);
    second.positionlink = 1;
    second.startX = 10;
    BackgroundElement& third = build.Still(-1);
    third.positionlink = 1;
    third.startX = 1;
    Prepare();
    EXPECT_EQ(Element(1).posX, 220);
    EXPECT_EQ(Element(2).posX, 211);
}

TEST_F(Links, OfAnimationsAndToThemAreMadeAlike) {
    BackgroundElement& parent =
        build.Animation(build.Action({{build.Sprite("fire", 64, 32, 20, 30), 5, 3, 4}}));
    parent.startX = 50;
    parent.deltaX = 0.5F;
    BackgroundElement& linked = build.Animation(0);
    linked.positionlink = 1;
    linked.startX = 5;
    Prepare();
    EXPECT_EQ(Element(1).posX, 215);
    EXPECT_EQ(Element(1).deltaX, 0.5F);
}

TEST_F(Links, WithNothingBeforeAreNone) {
    BackgroundElement& element = build.Still(-1);
    element.positionlink = 1;
    element.startX = 5;
    element.deltaX = 0.5F;
    Prepare();
    EXPECT_EQ(Element(0).linkParent, -1);
    EXPECT_EQ(Element(0).posX, 165);
    EXPECT_EQ(Element(0).deltaX, 0.5F);
}

TEST_F(Links, ADummyLeadsAsWell) {
    BackgroundElement& parent = build.Dummy();
    parent.startX = 50;
    parent.deltaX = 0.5F;
    build.Still(-1).positionlink = 1;
    Prepare();
    EXPECT_EQ(Element(1).linkParent, 0);
    EXPECT_EQ(Element(1).posX, 210);
}

// --- the ground line's element ---

using GroundLine = Prepared;

TEST_F(GroundLine, IsTheFirstElementWithTheId) {
    for (const Long id : {3, 7, 7}) {
        build.Still(-1).id = id;
    }
    model.ZOffsetLink = 7;
    Prepare();
    EXPECT_EQ(model.ZOffsetLink, 1);
}

TEST_F(GroundLine, IsNoneWhenNoElementHasTheId) {
    build.Still(-1).id = 3;
    model.ZOffsetLink = 4;
    Prepare();
    EXPECT_EQ(model.ZOffsetLink, -1);
}

TEST_F(GroundLine, WithoutTheKeyIsNotTheElementWithId0) {
    build.Still(-1);
    Prepare();
    EXPECT_EQ(model.ZOffsetLink, -1);
}

TEST_F(GroundLine, OfId0IsTheFirstElementWithId0) {
    build.Still(-1).id = 1;
    build.Still(-1);
    model.ZOffsetLink = 0;
    Prepare();
    EXPECT_EQ(model.ZOffsetLink, 1);
}

// --- the raised upper bound ---

class UpperBound : public Prepared {
protected:
    // The bound that comes of this one.
    Integer Raised(Integer high) {
        model.BoundHigh = high;
        Prepare();
        return model.BoundHigh;
    }
};

TEST_F(UpperBound, AboveTheTopmostPictureIsRaised) {
    build.Still(build.Sprite("hill", 64, 32, 0, 30)).startY = 10;
    build.Still(0).startY = 90;
    EXPECT_EQ(Raised(-21), -19);
    EXPECT_EQ(Raised(-500), -19);
}

TEST_F(UpperBound, AtTheTopmostPictureOrBelowStays) {
    build.Still(build.Sprite("hill", 64, 32, 0, 30)).startY = 10;
    EXPECT_EQ(Raised(-20), -20);
    EXPECT_EQ(Raised(-19), -19);
    EXPECT_EQ(Raised(0), 0);
}

TEST_F(UpperBound, MayComeToLieAbove0) {
    build.Still(build.Sprite("hill", 64, 32)).startY = 10;
    EXPECT_EQ(Raised(0), 11);
}

TEST_F(UpperBound, OfAnAnimationIsItsFirstFramesUpperEdge) {
    const Integer sprite = build.Sprite("fire", 64, 32, 20, 30);
    build.Animation(build.Action({{sprite, 5, 0, -6}, {sprite, 5, 0, -600}})).startY = 10;
    EXPECT_EQ(Raised(-500), 10 - 6 - 30 + 1);
}

TEST_F(UpperBound, OfAnElementWithoutAPictureIsItsPosition) {
    build.Still(-1).startY = -40;
    EXPECT_EQ(Raised(-500), -39);
    model.Elements.clear();
    build.Dummy().startY = -50;
    EXPECT_EQ(Raised(-500), -49);
    model.Elements.clear();
    build.Animation(-1).startY = -60;
    EXPECT_EQ(Raised(-500), -59);
    model.Elements.clear();
    build.Animation(build.Action({{-1, 5, 0, -600}})).startY = -70;
    EXPECT_EQ(Raised(-500), -69);
}

TEST_F(UpperBound, LooksAtTheStageWithTheCameraAt0) {
    model.CamStartY = -100;
    model.BoundHigh = -200;
    BackgroundElement& element = build.Still(build.Sprite("hill", 64, 32, 0, 30));
    element.startY = 10;
    element.deltaY = 0.5F;
    Prepare();
    EXPECT_EQ(model.BoundHigh, -19);
    // The camera was placed before and stays.
    EXPECT_EQ(model.CamY, -100);
    EXPECT_EQ(Element(0).posY, -20 + 50);
}

TEST_F(UpperBound, OfALinkedElementCountsFromItsParent) {
    build.Still(build.Sprite("hill", 64, 32, 0, 100)).startY = 10;
    BackgroundElement& linked = build.Still(build.Sprite("flag", 8, 8, 0, 4));
    linked.positionlink = 1;
    linked.startY = -150;
    EXPECT_EQ(Raised(-500), 10 - 150 - 4 + 1);
}

TEST_F(UpperBound, IsNotRaisedWhereAnElementIsTiledDownWithoutEnd) {
    build.Still(build.Sprite("hill", 64, 32, 0, 30)).startY = 10;
    build.Still(0).tileY = 1;
    EXPECT_EQ(Raised(-500), -500);
}

TEST_F(UpperBound, ACountOfCopiesDownIsNoEndlessTiling) {
    build.Still(build.Sprite("hill", 64, 32, 0, 30)).startY = 10;
    model.Elements[0].tileY = 2;
    EXPECT_EQ(Raised(-500), -19);
}

TEST_F(UpperBound, ComesAsNearAsItsFieldToAPictureFarBelow) {
    build.Still(-1).startY = 2000000000;
    EXPECT_EQ(Raised(-500), 32767);
}

TEST_F(UpperBound, OfAStageWithoutElementsStays) {
    EXPECT_EQ(Raised(-500), -500);
}

// --- textures ---

using PreparedTextures = Prepared;

TEST_F(PreparedTextures, AreThoseThatMayBeDrawnMasked) {
    const Integer opaque = build.Sprite("opaque", 8, 8);
    const Integer masked = build.Sprite("masked", 8, 8);
    const Integer inAnAction = build.Sprite("in an action", 8, 8);
    build.Sprite("of nobody", 8, 8);
    build.Still(opaque);
    build.Still(masked).mask = 1;
    build.Still(-1).mask = 1;
    // No element shows it; a controller may.
    build.Action({{-1, 5}, {inAnAction, 5}});
    Prepare();
    const auto prepared = [&](Integer sprite) {
        const auto& texture = model.Sprites.at(static_cast<std::size_t>(sprite)).texture;
        return dynamic_cast<const NamedTexture&>(*texture).PreLoads() > 0;
    };
    EXPECT_TRUE(prepared(masked));
    EXPECT_TRUE(prepared(inAnAction));
    EXPECT_FALSE(prepared(opaque));
    EXPECT_FALSE(prepared(inAnAction + 1));
}

TEST_F(PreparedTextures, AreNotAskedForWhereThereAreNone) {
    build.Still(build.Sprite("released", 8, 8)).mask = 1;
    model.Sprites[0].texture.reset();
    Prepare();
    EXPECT_EQ(Element(0).posX, 160);
}

}  // namespace
}  // namespace scenara::test
