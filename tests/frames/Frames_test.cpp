// SPDX-License-Identifier: MIT
//
// Whole frames, in numbers: what can be seen of a stage from frame to frame.
#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "support/AllocationCount.h"

namespace scenara::test {
namespace {

constexpr std::uint32_t kRed = 0xD03028;
constexpr std::uint32_t kDark = 0x404048;
constexpr std::uint32_t kLight = 0x585864;

// The arrow's shaft is red from 2,12 to 25,17 of the picture; its axis is 20,30.
TEST(Frames, AStillPictureStandsByItsAxis) {
    PaintedStage stage(std::string(kBackdrop) +
                       "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 40,100\nmask = 1\n");
    stage.Run(1);
    // Its upper left corner is at 160 + 40 - 20, 100 - 30.
    EXPECT_EQ(stage.Rgb(182, 82), kRed);
    EXPECT_EQ(stage.Rgb(205, 87), kRed);
    EXPECT_NE(stage.Rgb(181, 82), kRed);
    EXPECT_NE(stage.Rgb(182, 81), kRed);
    EXPECT_NE(stage.Rgb(182, 88), kRed);
}

TEST(Frames, WhatNoElementCoversKeepsItsPixels) {
    PaintedStage stage(
        "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 0,100\nmask = 1\nvelocity = 30,0\n");
    stage.Run(1);
    EXPECT_EQ(stage.Rgb(142, 82), kRed);
    EXPECT_EQ(stage.Rgb(0, 0), 0U) << "black at first";
    stage.Run(2);
    EXPECT_EQ(stage.Rgb(142, 82), kRed) << "where it stood in the first frame";
    EXPECT_EQ(stage.Rgb(202, 82), kRed) << "where it stands now";
}

TEST(Frames, TheCameraStopsAtItsBounds) {
    PaintedStage stage("[Camera]\nboundleft = -5\nboundright = 3\n" + std::string(kBackdrop) +
                       "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 0,100\nmask = 1\n");
    stage.Hold("right:10,left:20");
    stage.Run(10);
    EXPECT_EQ(stage.Model().CamX, -3.0F);
    EXPECT_EQ(stage.Rgb(139, 82), kRed);
    EXPECT_NE(stage.Rgb(138, 82), kRed);
    stage.Run(20);
    EXPECT_EQ(stage.Model().CamX, 5.0F);
    EXPECT_EQ(stage.Rgb(147, 82), kRed);
    EXPECT_NE(stage.Rgb(146, 82), kRed);
}

TEST(Frames, AStageWithoutElementsShowsBlack) {
    PaintedStage stage("[Info]\nname = nothing\n");
    stage.Run(3);
    EXPECT_THAT(stage.Picture(), testing::Each(testing::Truly([](std::uint32_t pixel) {
                    return (pixel & 0xFFFFFFU) == 0;
                })));
}

TEST(Frames, WithoutInfoThereIsNoText) {
    PaintedStage plain(kBackdrop);
    plain.Run(2);
    for (int y = 0; y < 240; ++y) {
        for (int x = 0; x < 320; ++x) {
            ASSERT_EQ(plain.Rgb(x, y), (x / 20 + y / 20) % 2 == 0 ? kDark : kLight);
        }
    }
    PaintedStage informed(kBackdrop);
    informed.ShowInfo();
    informed.Run(2);
    EXPECT_NE(informed.Picture(), plain.Picture());
}

// The corner that the line stands in is covered, blended over, or left as it was.
TEST(Frames, TheInformationLineIsThereOnceHoweverOftenItIsShown) {
    const std::string blended =
        "[BG light]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ndelta = 0,0\ntrans = add\n";
    for (const std::string& definition :
         {std::string(kBackdrop), std::string("[Info]\n"), blended}) {
        for (const ViewOptions& view : {kPlainView, ViewOptions()}) {
            PaintedStage informed(definition, view);
            PaintedStage other(definition, view);
            informed.ShowInfo();
            informed.Run(1);
            const std::vector<std::uint32_t> first = informed.Picture();
            informed.Run(20);
            other.Run(21);
            if (definition != blended) {
                EXPECT_EQ(informed.Picture(), first) << definition;
            }
            // Another text, at another place of the camera, and then none.
            informed.Hold("right:80");
            other.Hold("right:80");
            informed.Run(60);
            informed.ShowInfo(false);
            informed.Run(1);
            other.Run(61);
            EXPECT_EQ(informed.Picture(), other.Picture()) << definition;
        }
    }
}

// Tiles, rows, windows, links, controllers, animations and text at once, on the real device.
TEST(Frames, AllocateNothing) {
    PaintedStage stage(
        "[Camera]\nboundleft = -200\nboundright = 200\nboundhigh = -100\n" +
        std::string(kBackdrop) +
        "[BG wall]\ntype = normal\nspriteno = 2,0\nstart = 0,0\ntile = 1,1\nmask = 1\n"
        "window = 20,20, 300,200\n"
        "[BG floor]\ntype = parallax\nspriteno = 3,0\nstart = 0,180\nxscale = 1,2\ntile = 1,0\n"
        "[BG moving]\ntype = anim\nactionno = 1\nstart = 0,100\nvelocity = .3,.1\nid = 5\n"
        "sin.y = 10,20,0\n"
        "[BG linked]\ntype = normal\nspriteno = 1,0\nstart = 30,0\npositionlink = 1\nmask = 1\n"
        "[BG both]\ntype = normal\nspriteno = 1,0\nstart = -80,100\nlayerno = -1\nmask = 1\n"
        "[Begin Action 1]\n4,0, 0,0, 3\n4,1, 5,0, 2, h\n4,2, 10,0, 4\n"
        "[BGCtrlDef]\nlooptime = 40\n"
        "[BGCtrl]\ntype = veladd\ntime = 5,15\nx = .1\nctrlid = 5\n"
        "[BGCtrl]\ntype = anim\ntime = 30\nvalue = 1\nctrlid = 5\n");
    stage.ShowInfo();
    stage.Hold("right+up:100,left:100");
    stage.Run(3);  // glyphs are drawn once; the information line is made once a second
    const std::size_t before = AllocationCount();
    stage.Run(40);
    EXPECT_EQ(AllocationCount(), before);
}

// The line's place, at its share of the height, is right of all of the picture.
TEST(InformationLine, IsLeftOutWhereThePictureHasNoRoomForIt) {
    PaintedStage stage("[StageInfo]\nlocalcoord = 80,4320\n", ViewOptions());
    stage.ShowInfo();
    stage.Run(2);
    EXPECT_EQ(stage.PictureSize(), (CanvasSize{80, 4320}));
    EXPECT_EQ(stage.Rgb(40, 100), 0U);
}

}  // namespace
}  // namespace scenara::test
