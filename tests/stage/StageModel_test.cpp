// SPDX-License-Identifier: MIT
#include "stage/StageModel.h"

#include <array>
#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "ModelText.h"
#include "platform/soft/SoftDevice.h"

namespace scenara::test {
namespace {

template <auto Member, typename Type>
constexpr bool kIs = false;
template <typename Record, typename Field, Field Record::*Member, typename Type>
constexpr bool kIs<Member, Type> = std::is_same_v<Field, Type>;

// The widths matter: they decide what overflows and how values round.
static_assert(kIs<&BackgroundElement::mask, Integer> && kIs<&BackgroundElement::spriteGroup, Long>);
static_assert(kIs<&BackgroundElement::spriteImage, Integer>);
static_assert(kIs<&BackgroundElement::startX, Long> && kIs<&BackgroundElement::startY, Long>);
static_assert(kIs<&BackgroundElement::posX, Single> && kIs<&BackgroundElement::posY, Single>);
static_assert(kIs<&BackgroundElement::deltaX, Single> && kIs<&BackgroundElement::deltaY, Single>);
static_assert(kIs<&BackgroundElement::tileX, Long> && kIs<&BackgroundElement::tileY, Long>);
static_assert(kIs<&BackgroundElement::tileSpacingX, Long>);
static_assert(kIs<&BackgroundElement::tileSpacingY, Long>);
static_assert(kIs<&BackgroundElement::velocityX, Single>);
static_assert(kIs<&BackgroundElement::velocityY, Single>);
static_assert(kIs<&BackgroundElement::actionIndex, Integer>);
static_assert(kIs<&BackgroundElement::spriteIndex, Integer>);
static_assert(kIs<&BackgroundElement::layerno, Integer>);
static_assert(kIs<&BackgroundElement::lastTileIndex, Integer>);
static_assert(kIs<&BackgroundElement::frameIndex, Integer>);
static_assert(kIs<&BackgroundElement::frameTime, Integer>);
static_assert(kIs<&BackgroundElement::positionlink, Integer>);
static_assert(kIs<&BackgroundElement::linkParent, Integer>);
static_assert(kIs<&BackgroundElement::sinState, std::array<Single, 3>>);
static_assert(kIs<&BackgroundElement::sinYAmplitude, Single>);
static_assert(kIs<&BackgroundElement::ctrlOffset, std::array<Single, 2>>);
static_assert(kIs<&BackgroundElement::visible, Byte> && kIs<&BackgroundElement::enabled, Byte>);
static_assert(kIs<&BackgroundElement::ctrlPos, std::array<Single, 4>>);
static_assert(kIs<&BackgroundElement::id, Long> && kIs<&BackgroundElement::windowX1, Single>);
static_assert(kIs<&BackgroundElement::windowActive, Byte>);
static_assert(kIs<&BackgroundElement::xscaleTop, Single>);
static_assert(kIs<&SpriteEntry::axisX, Integer> && kIs<&SpriteEntry::width, Integer>);
static_assert(kIs<&SpriteEntry::group, Long> && kIs<&SpriteEntry::image, Integer>);
static_assert(kIs<&SpriteEntry::masked, Integer> && kIs<&SpriteEntry::keyAlpha, Byte>);
static_assert(kIs<&SpriteEntry::linkedTo, Integer>);
static_assert(kIs<&StageFrame::group, Long> && kIs<&StageFrame::image, Integer>);
static_assert(kIs<&StageFrame::offsetX, Integer> && kIs<&StageFrame::time, Integer>);
static_assert(kIs<&StageAction::loopstart, Integer> && kIs<&StageAction::actionNo, Integer>);
static_assert(kIs<&BgCtrl::startTime, Long> && kIs<&BgCtrl::endTime, Long>);
static_assert(kIs<&BgCtrl::loopTime, Long> && kIs<&BgCtrl::x, Single>);
static_assert(kIs<&BgCtrl::value, Integer> && kIs<&BgCtrl::value1, Integer>);
static_assert(kIs<&BgCtrlDef::looptime, Long> && kIs<&BgCtrlDef::controlCount, Integer>);
static_assert(kIs<&StageModel::CamStartX, Single> && kIs<&StageModel::CamStartY, Integer>);
static_assert(kIs<&StageModel::BoundLeft, Long> && kIs<&StageModel::BoundRight, Long>);
static_assert(kIs<&StageModel::BoundHigh, Integer> && kIs<&StageModel::BoundLow, Integer>);
static_assert(kIs<&StageModel::ZOffset, Integer> && kIs<&StageModel::ZOffsetLink, Integer>);
static_assert(kIs<&StageModel::P1StartX, Integer> && kIs<&StageModel::Tension, Integer>);
static_assert(kIs<&StageModel::ScreenLeft, Integer> && kIs<&StageModel::ScreenRight, Integer>);
static_assert(kMaxRecords == 32'767);

TEST(StageModel, ElementStartsAtZeroButForItsDeltas) {
    EXPECT_EQ(ModelText(BackgroundElement()),
              "type=''\nmask=0\nspriteGroup=0\nspriteImage=0\nstartX=0\nstartY=0\nposX=0\nposY=0\n"
              "deltaX=1\ndeltaY=1\ntileX=0\ntileY=0\ntileSpacingX=0\ntileSpacingY=0\nvelocityX=0\n"
              "velocityY=0\nactionIndex=0\nspriteIndex=0\nlayerno=0\nlastTileIndex=0\n"
              "frameIndex=0\nframeTime=0\nname=''\npositionlink=0\nlinkParent=0\n"
              "sinState=0 0 0 \nsinYAmplitude=0\nsinYPeriod=0\nsinYPhase=0\nctrlOffset=0 0 \n"
              "visible=0\nenabled=0\ntrans=''\nctrlPos=0 0 0 0 \nid=0\nwindowX1=0\nwindowX2=0\n"
              "windowY1=0\nwindowY2=0\nwindowActive=0\nxscaleTop=0\nxscaleBottom=0\n");
}

TEST(StageModel, FrameStartsWithoutSprite) {
    EXPECT_EQ(ModelText(StageFrame()),
              "group=0\nimage=0\nspriteIndex=-1\noffsetX=0\noffsetY=0\ntime=0\nruntimeA=0\n"
              "runtimeB=0\nflip=''\n");
}

TEST(StageModel, ActionsAndControlsStartAtZero) {
    EXPECT_EQ(ModelText(StageAction()), "loopstart=0\nframeCount=0\nactionNo=0\n");
    EXPECT_EQ(ModelText(BgCtrlDef()),
              "looptime=0\ntimer=0\nctrlIds=\nruntimeA=0\ncontrolCount=0\n");
    EXPECT_EQ(ModelText(BgCtrl()),
              "type=''\nstartTime=0\nendTime=0\nloopTime=0\nctrlIds=\nx=0\ny=0\nvalue=0\ntimer=0\n"
              "given=0\nvalue1=0\nvalue2=0\n");
}

TEST(StageModel, SettingsStartAtZeroButForTheLink) {
    EXPECT_EQ(ModelText(StageModel()),
              "ElementCount=0\nSpriteCount=0\nActionCount=0\nCtrlDefCount=0\nStageTitle=''\n"
              "CamStartX=0\nCamStartY=0\nBoundLeft=0\nBoundRight=0\nBoundHigh=0\nBoundLow=0\n"
              "MusicFile=''\nZOffset=0\nZOffsetLink=-1\nP1StartX=0\nTension=0\nScreenLeft=0\n"
              "ScreenRight=0\nCamX=0\nCamY=0\nLastImageWidth=0\nLastImageHeight=0\n");
}

TEST(StageModel, ClearPutsEverythingBackToItsStart) {
    StageModel model;
    model.Elements.emplace_back().type = "anim";
    model.Sprites.emplace_back();
    model.Actions.emplace_back().frames.emplace_back();
    model.CtrlDefs.emplace_back().controls.emplace_back();
    model.ElementCount = model.SpriteCount = model.ActionCount = model.CtrlDefCount = 1;
    model.StageTitle = model.MusicFile = "x";
    model.CamStartX = model.CamX = model.CamY = 5;
    model.CamStartY = model.BoundHigh = model.BoundLow = model.ZOffset = model.ZOffsetLink = 6;
    model.BoundLeft = model.BoundRight = 7;
    model.P1StartX = model.Tension = model.ScreenLeft = model.ScreenRight = 8;
    model.LastImageWidth = model.LastImageHeight = 9;
    model.Clear();
    EXPECT_EQ(ModelText(model), ModelText(StageModel()));
}

TEST(StageModel, ClearReleasesEveryTexture) {
    SoftDevice device;
    StageModel model;
    TextureParameters size;
    size.width = 4;
    size.height = 4;
    const std::shared_ptr<Direct3DTexture8> texture = device.CreateTexture(size);
    model.Sprites.emplace_back().texture = texture;
    model.Sprites.emplace_back().texture = texture;  // a linked entry
    EXPECT_EQ(texture.use_count(), 3);
    model.Clear();
    EXPECT_EQ(texture.use_count(), 1);
}

TEST(StageModel, FindSpriteGivesTheFirstWithGroupAndImage) {
    StageModel model;
    model.Sprites.resize(4);
    model.Sprites[0].group = 7;
    model.Sprites[1].image = 7;
    model.Sprites[2].group = 7;
    model.Sprites[2].image = -1;
    model.Sprites[3].group = 7;
    EXPECT_EQ(FindSprite(model, 7, 0), 0);
    EXPECT_EQ(FindSprite(model, 0, 7), 1);
    EXPECT_EQ(FindSprite(model, 7, -1), 2);
}

TEST(StageModel, FindSpriteGivesMinusOneForNone) {
    StageModel model;
    EXPECT_EQ(FindSprite(model, 0, 0), -1);
    model.Sprites.resize(1);
    EXPECT_EQ(FindSprite(model, 0, 1), -1);
    EXPECT_EQ(FindSprite(model, 65536, 0), -1);
}

TEST(StageModel, FindActionGivesTheFirstOfItsNumber) {
    StageModel model;
    model.Actions.resize(3);
    model.Actions[0].actionNo = 5;
    model.Actions[1].actionNo = -2;
    model.Actions[2].actionNo = 5;
    EXPECT_EQ(FindAction(model, 5), 0);
    EXPECT_EQ(FindAction(model, -2), 1);
    EXPECT_EQ(FindAction(model, 6), -1);
}

}  // namespace
}  // namespace scenara::test
