// SPDX-License-Identifier: MIT
//
// Where pictures stand on a canvas of the stage's own size, worked out by hand, one case per row.
//
// The sums are written beside the rows: D is canvas pixels per stage unit, s the canvas pixels of a
// picture's own pixel, p where the first tile begins.
#pragma once

#include <cstdint>
#include <ostream>

#include "literal/SolidPictures.h"

namespace scenara::test {

enum class Held : std::uint8_t {
    Nothing,
    Right,  // in the first frame, whose two steps the second one shows
    RightAndUp,
    RightThroughout,  // in every frame
    LeftThroughout,
    UpThroughout,
};

struct PlaceRow {
    const char* name;
    const char* settings;  // whole sections
    const char* element;
    const char* adds;  // further keys and sections
    Held held;
    int frames;
    const char* canvas;
    const char* covered;  // left, top, right, bottom of each; what lies outside is cut off
    std::uint32_t colour = kSolidColour;
};
inline void PrintTo(const PlaceRow& row, std::ostream* out) {
    *out << row.name;
}

// 10 x 8, axis 0,0.
inline constexpr const char* kBlock = "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\n";
inline constexpr const char* kBlockAt =
    "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 30,40\n";
// 10 x 8, axis 3,5.
inline constexpr const char* kPinned = "[BG]\ntype = normal\nspriteno = 2,0\ntrans = add\n";
// 7 x 5, axis 2,1.
inline constexpr const char* kOdd = "[BG]\ntype = normal\nspriteno = 3,0\ntrans = add\n";
// 10 x 8, axis 3,5: only columns 0 to 3, or only rows 0 and 1, are there.
inline constexpr const char* kLeftPart = "[BG]\ntype = normal\nspriteno = 4,0\ntrans = add\n";
inline constexpr const char* kUpperPart = "[BG]\ntype = normal\nspriteno = 4,1\ntrans = add\n";
// 100 x 80, axis 0,0.
inline constexpr const char* kLarge = "[BG]\ntype = normal\nspriteno = 5,0\ntrans = add\n";
// 16 x 4, axis 8,0 and axis 8,2.
inline constexpr const char* kRowsAt =
    "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 30,40\n";
inline constexpr const char* kRowsAboutAxisAt =
    "[BG]\ntype = parallax\nspriteno = 6,1\ntrans = add\nstart = 30,40\n";
// The block as the only frame of an action.
inline constexpr const char* kMoving =
    "[Begin Action 1]\n1,0, 0,0, -1\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n";
inline constexpr const char* kDummyAndBlock =
    "[BG]\ntype = dummy\nstart = 10,20\ndelta = .5,.5\nvelocity = 2,1\nsin.x = 4,4,90\n"
    "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 20,20\npositionlink = 1\n";
inline constexpr const char* kOwn = "";

inline constexpr const char* kHires = "[StageInfo]\nhires = 1\n";
inline constexpr const char* kSmall = "[StageInfo]\nlocalcoord = 80,60\n";
inline constexpr const char* kSmallNew =
    "[Info]\nmugenversion = 1.0\n[StageInfo]\nlocalcoord = 80,60\n";
inline constexpr const char* kSmallThreeQuarters =  // D = 2, s = 1.5
    "[StageInfo]\nlocalcoord = 80,60\nxscale = .75\nyscale = .75\n";
inline constexpr const char* kHalf = "[StageInfo]\nxscale = .5\nyscale = .5\n";  // D = 2, s = 1
inline constexpr const char* kThreeQuarters =
    "[StageInfo]\nxscale = .75\nyscale = .75\n";  // D = 2, s 1.5
inline constexpr const char* kDouble = "[StageInfo]\nxscale = 2\nyscale = 2\n";
inline constexpr const char* kMirror = "[StageInfo]\nxscale = -1\n";

inline constexpr PlaceRow kPlaceRows[] = {
    // A picture in its space.
    {"an axis in the view of 320 x 240", kOwn, kPinned, "start = 0,0\n", Held::Nothing, 1, kOld,
     "157,-5,167,3"},
    {"halves go up: right and down", kOwn, kBlock, "start = 10.5,20.5\n", Held::Nothing, 1, kOld,
     "171,21,181,29"},
    // 160 - 165.5 = -5.5
    {"halves below 0 go up, too", kOwn, kBlock, "start = -165.5,-2.5\n", Held::Nothing, 1, kOld,
     "-5,-2,5,6"},
    // 160 + .5; 20 - 1.5 = 18.5
    {"halves of an offset", kOwn,
     "[Begin Action 1]\n1,0, .5,-1.5, -1\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 0,20\n", Held::Nothing, 1, kOld, "161,19,171,27"},
    // 160.5 + .5 = 161; 20.5 - .5 = 20
    {"two halves are rounded once", kOwn,
     "[Begin Action 1]\n1,0, .5,-.5, -1\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = .5,20.5\n", Held::Nothing, 1, kOld, "161,20,171,28"},
    {"640 x 480", "[StageInfo]\nlocalcoord = 640,480\n", kBlock, "start = -100,300\n",
     Held::Nothing, 1, kTwice, "220,300,230,308"},
    {"the smallest", kSmall, kBlock, "start = 0,20\n", Held::Nothing, 1, "80 x 60", "40,20,50,28"},
    // 81 / 2 = 40.5
    {"an odd width", "[StageInfo]\nlocalcoord = 81,61\n", kBlock, "start = 0,20\n", Held::Nothing,
     1, "81 x 61", "41,20,51,28"},
    // 427 / 2 - .5 = 213
    {"an odd width and a half", "[StageInfo]\nlocalcoord = 427,240\n", kBlock, "start = -.5,20\n",
     Held::Nothing, 1, "427 x 240", "213,20,223,28"},
    {"the widest", "[StageInfo]\nlocalcoord = 7680,60\n", kBlock, "start = 0,20\n", Held::Nothing,
     1, "7680 x 60", "3840,20,3850,28"},
    {"the tallest", "[StageInfo]\nlocalcoord = 80,4320\n", kBlock, "start = 0,4000\n",
     Held::Nothing, 1, "80 x 4320", "40,4000,50,4008"},
    {"too wide: not given", "[StageInfo]\nlocalcoord = 7681,100\n", kBlock, "start = 0,200\n",
     Held::Nothing, 1, kOld, "160,200,170,208"},
    {"too narrow: not given", "[StageInfo]\nlocalcoord = 79,100\n", kBlock, "start = 0,200\n",
     Held::Nothing, 1, kOld, "160,200,170,208"},
    {"too tall: not given", "[StageInfo]\nlocalcoord = 400,4321\n", kBlock, "start = 0,200\n",
     Held::Nothing, 1, kOld, "160,200,170,208"},
    {"too low: not given", "[StageInfo]\nlocalcoord = 400,59\n", kBlock, "start = 0,200\n",
     Held::Nothing, 1, kOld, "160,200,170,208"},

    // Detail.
    // D = 2: 2 (160 + .5 x 30) = 350; 2 x .5 x 40 = 40; s = 1
    {"hires", kHires, kBlockAt, "", Held::Nothing, 1, kTwice, "350,40,360,48"},
    // 2 (160 + .5 x 31) = 351
    {"hires: each texel has a pixel", kHires, kBlock, "start = 31,41\n", Held::Nothing, 1, kTwice,
     "351,41,361,49"},
    // 2 (80.5 + 15) = 191
    {"hires in an odd width", "[StageInfo]\nlocalcoord = 161,91\nhires = 1\n", kBlockAt, "",
     Held::Nothing, 1, "322 x 182", "191,40,201,48"},
    {"a scale of a half is as hires", kHalf, kBlockAt, "", Held::Nothing, 1, kTwice,
     "350,40,360,48"},
    // D = 2 for the x scale alone; s = 1, 2: 2 x 40 = 80
    {"a scale of a half one way", "[StageInfo]\nxscale = .5\n", kBlockAt, "", Held::Nothing, 1,
     kTwice, "350,80,360,96"},
    // D = 4: 4 (160 + 7.5) = 670; 4 x 10 = 40; s = 1
    {"a scale of a quarter", "[StageInfo]\nxscale = .25\nyscale = .25\n", kBlockAt, "",
     Held::Nothing, 1, kFourTimes, "670,40,680,48"},
    // D = 4, not 5: s = .8: 4 (160 + 6) = 664 to 672; 32 to 38.4
    {"detail is at most 4", "[StageInfo]\nxscale = .2\nyscale = .2\n", kBlockAt, "", Held::Nothing,
     1, kFourTimes, "664,32,672,38"},
    // D = 4: 4 (160 + .5 x 30 x .5) = 670; 4 x .5 x 40 x .5 = 40
    {"hires with a scale of a half", "[StageInfo]\nhires = 1\nxscale = .5\nyscale = .5\n", kBlockAt,
     "", Held::Nothing, 1, kFourTimes, "670,40,680,48"},
    // D = 1: 160 + .5 x 30 x 2 = 190
    {"hires with a scale of 2", "[StageInfo]\nhires = 1\nxscale = 2\nyscale = 2\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "190,40,200,48"},
    // D = 2: s = 1.5, 3: 2 (160 + 22.5) = 365; 2 x 40 x 1.5 = 120
    {"scales of their own", "[StageInfo]\nxscale = .75\nyscale = 1.5\n", kBlockAt, "",
     Held::Nothing, 1, kTwice, "365,120,380,144"},
    // D = 4, s = 1.2: 4 (160 + 9) = 676 to 688; 48 to 57.6
    {"a scale of .3", "[StageInfo]\nxscale = .3\nyscale = .3\n", kBlockAt, "", Held::Nothing, 1,
     kFourTimes, "676,48,688,58"},
    {"a scale of 3", "[StageInfo]\nxscale = 3\nyscale = 3\n", kBlockAt, "", Held::Nothing, 1, kOld,
     "250,120,280,144"},
    {"a scale of 0 counts as 1", "[StageInfo]\nxscale = 0\nyscale = 0\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "190,40,200,48"},
    // 961 x 2 = 1922: D = 1, s = .5: 480.5 + 15 = 495.5 to 500.5; 20 to 24
    {"lowered by the canvas' width",
     "[StageInfo]\nlocalcoord = 961,100\nxscale = .5\nyscale = .5\n", kBlockAt, "", Held::Nothing,
     1, "961 x 100", "496,20,501,24"},
    // 960 x 2 = 1920: 2 (480 + 15) = 990
    {"not yet lowered by the width",
     "[StageInfo]\nlocalcoord = 960,100\nxscale = .5\nyscale = .5\n", kBlockAt, "", Held::Nothing,
     1, "1920 x 200", "990,40,1000,48"},
    // 601 x 2 = 1202: D = 1: 50 + 15 = 65 to 70
    {"lowered by its height", "[StageInfo]\nlocalcoord = 100,601\nxscale = .5\nyscale = .5\n",
     kBlockAt, "", Held::Nothing, 1, "100 x 601", "65,20,70,24"},
    // 300 x 4 = 1200: 4 (50 + 7.5) = 230
    {"not yet lowered by the height",
     "[StageInfo]\nlocalcoord = 100,300\nxscale = .25\nyscale = .25\n", kBlockAt, "", Held::Nothing,
     1, "400 x 1200", "230,40,240,48"},
    // 400 x 4 = 1600, 400 x 3 = 1200: D = 3, s = .75: 3 x 57.5 = 172.5 to 180; 30 to 36
    {"lowered by one", "[StageInfo]\nlocalcoord = 100,400\nxscale = .25\nyscale = .25\n", kBlockAt,
     "", Held::Nothing, 1, "300 x 1200", "173,30,180,36"},

    // Edges and texels. D = 2 and s = 1.5 where the scale is .75.
    // 2 (160 + 23.25) = 366.5, less 2 x 1.5: 363.5, and 10.5 more: 374; 60 - 1.5 = 58.5 to 66
    {"the far edge is rounded from its own place", kThreeQuarters, kOdd, "start = 31,40\n",
     Held::Nothing, 1, kTwice, "364,59,374,66"},
    // s = .5: 495.5 - 1.5 = 494 to 499: texels 1 3 5 7 9, of which 1 and 3 are there;
    // 20 - 2.5 = 17.5 to 21.5
    {"every other texel", "[StageInfo]\nlocalcoord = 961,100\nxscale = .5\nyscale = .5\n",
     kLeftPart, "start = 30,40\n", Held::Nothing, 1, "961 x 100", "494,18,496,22"},
    // 365 - 4.5 = 360.5 to 375.5: 361 to 376. Pixel 5 shows texel 110 / 30 = 3, pixel 6 texel 4.
    // 60 - 7.5 = 52.5 to 64.5
    {"two texels on three pixels", kThreeQuarters, kLeftPart, "start = 30,40\n", Held::Nothing, 1,
     kTwice, "361,53,367,65"},

    // Mirroring.
    // 160 - 30 = 130, columns from 130 - 7 to 130 + 3
    {"a scale below 0", kMirror, kPinned, "start = 30,40\n", Held::Nothing, 1, kOld,
     "123,35,133,43"},
    {"a scale below 0 mirrors the picture", kMirror, kLeftPart, "start = 30,40\n", Held::Nothing, 1,
     kOld, "129,35,133,43"},
    // Y = 40; rows from 40 - 3 to 40 + 5
    {"a y scale below 0", "[StageInfo]\nyscale = -1\n", kUpperPart, "start = 30,-40\n",
     Held::Nothing, 1, kOld, "187,43,197,45"},
    // D = 2, s = -1, 2: 2 (160 - 15) = 290
    {"the detail of a scale below 0", "[StageInfo]\nxscale = -.5\n", kBlockAt, "", Held::Nothing, 1,
     kTwice, "280,80,290,96"},
    // Mirrored about its axis: from -7 to 3; again: -3 to 7 of 130, the first columns on the left
    {"H under a scale below 0", kMirror,
     "[Begin Action 1]\n4,0, 0,0, -1, H\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30,40\n", Held::Nothing, 1, kOld, "127,35,131,43"},
    // s = 2: 40 + 2 (4 - 7) = 34 to 54, the last 8 of them; 2 (20 - 5) = 30
    {"H and an offset under a scale of 2",
     "[StageInfo]\nlocalcoord = 80,60\nxscale = 2\nyscale = 2\n",
     "[Begin Action 1]\n4,0, 4,0, -1, H\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 0,20\n", Held::Nothing, 1, "80 x 60", "46,30,54,46"},
    // The axis is 8 - 5 below the upper edge: 17 to 25, the last 2 of them
    {"V", kSmall,
     "[Begin Action 1]\n4,1, 0,0, -1, V\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 0,20\n", Held::Nothing, 1, "80 x 60", "37,23,47,25"},
    // 160 - (30 + 4) = 126
    {"an offset under a scale below 0", kMirror,
     "[Begin Action 1]\n1,0, 4,0, -1\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30,40\n", Held::Nothing, 1, kOld, "116,40,126,48"},

    // Camera.
    // 190 - .5 x 20 = 180
    {"delta", "[Camera]\nstartx = 20\n", kBlockAt, "delta = .5\n", Held::Nothing, 1, kOld,
     "180,40,190,48"},
    // 40 + .25 x 20 = 45
    {"delta upwards", "[Camera]\nstarty = -20\n", kBlockAt, "delta = 1,.25\n", Held::Nothing, 1,
     kOld, "190,45,200,53"},
    // 2 (160 + .5 (30 - 2 x 10)) = 330: 20 pixels for 10 units
    {"delta 2 of hires goes with the ground", "[StageInfo]\nhires = 1\n[Camera]\nstartx = 10\n",
     kBlockAt, "delta = 2,2\n", Held::Nothing, 1, kTwice, "330,40,340,48"},
    // 2 (160 + 15 - 10) = 330
    {"a scale leaves the camera", "[StageInfo]\nxscale = .5\nyscale = .5\n[Camera]\nstartx = 10\n",
     kBlockAt, "", Held::Nothing, 1, kTwice, "330,40,340,48"},
    // 160 - 30 - 20 = 110
    {"a scale below 0 leaves the camera", "[StageInfo]\nxscale = -1\n[Camera]\nstartx = 20\n",
     kBlockAt, "", Held::Nothing, 1, kOld, "100,40,110,48"},
    {"two steps a frame", kOwn, kBlockAt, "", Held::RightAndUp, 2, kOld, "188,42,198,50"},
    // The second element, in front, is where the first one is: both see the camera at 0.
    {"both passes see the camera of the first", kOwn, kBlockAt,
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 40,40\nlayerno = 1\n", Held::Right,
     1, kOld, "190,40,200,48  200,40,210,48"},
    // Steps of 640 / 320 and 480 / 240
    {"steps of 640 x 480", "[StageInfo]\nlocalcoord = 640,480\n", kBlockAt, "", Held::RightAndUp, 2,
     kTwice, "346,44,356,52"},
    // 320 / 240 is not the height's: steps of 1 and 2
    {"steps of 320 x 480", "[StageInfo]\nlocalcoord = 320,480\n", kBlockAt, "", Held::RightAndUp, 2,
     "320 x 480", "188,44,198,52"},
    // Steps of 1.25: 230 - 2.5 = 227.5; 42.5
    {"steps of 400 x 300", "[Info]\nmugenversion = 1.0\n[StageInfo]\nlocalcoord = 400,300\n",
     kBlockAt, "", Held::RightAndUp, 2, "400 x 300", "228,43,238,51"},
    {"whole steps before 1.0", "[StageInfo]\nlocalcoord = 400,300\n", kBlockAt, "",
     Held::RightAndUp, 2, "400 x 300", "228,42,238,50"},
    // 2.5 is 2, as everywhere but at a picture's edge: 430 - 4; 44
    {"whole steps of halves before 1.0", "[StageInfo]\nlocalcoord = 800,600\n", kBlockAt, "",
     Held::RightAndUp, 2, "800 x 600", "426,44,436,52"},
    // Steps of .5: 110 - 1
    {"steps below 1", "[Info]\nmugenversion = 1.0\n[StageInfo]\nlocalcoord = 160,120\n", kBlockAt,
     "", Held::RightAndUp, 2, "160 x 120", "109,41,119,49"},
    {"steps of at least 1 before 1.0", "[StageInfo]\nlocalcoord = 160,120\n", kBlockAt, "",
     Held::RightAndUp, 2, "160 x 120", "108,42,118,50"},
    // The second step would end at 4.
    {"a bound stops a step of 2",
     "[StageInfo]\nlocalcoord = 640,480\n[Camera]\nboundright = 3\nboundhigh = -1\n", kBlockAt, "",
     Held::RightAndUp, 2, kTwice, "348,40,358,48"},
    // 190 + .5 x 10.5 = 195.25
    {"a camera between units", "[Info]\nmugenversion = 1.0\n[Camera]\nstartx = -10.5\n", kBlockAt,
     "delta = .5\n", Held::Nothing, 1, kOld, "195,40,205,48"},
    // -10.5 is -11: 190 + 5.5 = 195.5
    {"whole units before 1.0, rounded down", "[Camera]\nstartx = -10.5\n", kBlockAt, "delta = .5\n",
     Held::Nothing, 1, kOld, "196,40,206,48"},

    // Motion.
    // 2 (160 + .5 (30 + 1)) = 351, 2 x .5 (40 - 1) = 39
    {"drift of hires", kHires, kBlockAt, "velocity = .5,-.5\n", Held::Nothing, 3, kTwice,
     "351,39,361,47"},
    // 160 + 2 (30 + 3) = 226
    {"drift under a scale of 2", kDouble, kBlockAt, "velocity = 1.5\n", Held::Nothing, 3, kOld,
     "226,80,246,96"},
    // .1 as a 32-bit float is .10000000149: 190 - five of them = 189.4999999
    {"drift is summed in double", kOwn, kBlockAt, "velocity = -.1\n", Held::Nothing, 6, kOld,
     "189,40,199,48"},
    // 2 (160 + .5 (30 + 8)) = 358
    {"a swing under a scale", kHalf, kBlockAt, "sin.x = 8,4,90\n", Held::Nothing, 1, kTwice,
     "358,40,368,48"},
    // 9 sin 30° as a 32-bit float is 4.5: 44.5
    {"a swing is a 32-bit float", kOwn, kBlockAt, "sin.y = 9,12\n", Held::Nothing, 2, kOld,
     "190,45,200,53"},
    // 2 (160 + .5 (30 + 4)) = 354, 2 x .5 (40 - 6) = 34
    {"posadd of hires", kHires, kBlockAt,
     "id = 1\n[BGCtrlDef]\nctrlid = 1\n[BGCtrl]\ntype = posadd\ntime = 0\nx = 4\ny = -6\n",
     Held::Nothing, 1, kTwice, "354,34,364,42"},
    // 160 + 2 (30 - 7) = 206; a drift of 3 is forgotten
    {"posset under a scale of 2", kDouble, kBlockAt,
     "id = 1\nvelocity = 3\n[BGCtrlDef]\nctrlid = 1\n[BGCtrl]\ntype = posset\ntime = 1\nx = -7\n",
     Held::Nothing, 2, kOld, "206,80,226,96"},

    // Links.
    // 2 (160 + .5 (30 + 4 - .5 x 20)) = 344; 2 x .5 (40) = 40
    {"a link of hires: start, delta, swing", "[StageInfo]\nhires = 1\n[Camera]\nstartx = 20\n",
     kDummyAndBlock, "delta = 3,3\nsin.x = 8,4,90\n", Held::Nothing, 1, kTwice, "344,40,354,48"},
    // In the third frame the swing is back at -4: 160 + 2 (30 - 4 + 4 + 2) = 224; 2 (40 + 2) = 84
    {"a link under a scale of 2: motion of both", kDouble, kDummyAndBlock, "velocity = 1\n",
     Held::Nothing, 3, kOld, "224,84,244,100"},

    // Tiles.
    // p = 365, 11 x 1.5 = 16.5 on: 365 to 380, 381.5 to 396.5, 398 to 413
    {"three with a gap", kThreeQuarters, kBlockAt, "tile = 3\ntilespacing = 1,0\n", Held::Nothing,
     1, kTwice, "365,60,380,72  382,60,397,72  398,60,413,72"},
    // 365 - 3 = 362, three times 10.5 on: 393.5
    {"three without a seam", kThreeQuarters, kOdd, "start = 30,40\ntile = 3\n", Held::Nothing, 1,
     kTwice, "362,59,394,66"},
    // p = 80, 20 x 1.5 = 30 on, both ways
    {"without end", kSmallThreeQuarters, kBlock, "start = 0,40\ntile = 1\ntilespacing = 10,0\n",
     Held::Nothing, 1, "160 x 120",
     "-10,60,5,72  20,60,35,72  50,60,65,72  80,60,95,72  110,60,125,72  140,60,155,72"},
    {"without end and seam", kSmallThreeQuarters, kOdd, "start = 0,40\ntile = 1\n", Held::Nothing,
     1, "160 x 120", "0,59,160,66"},
    // D = 2, s = 2, 1.5: rows from 30, 11 x 1.5 on: 30 to 42, 46.5 to 58.5
    {"two downwards", "[StageInfo]\nlocalcoord = 80,60\nyscale = .75\n", kBlock,
     "start = 0,20\ntile = 0,2\ntilespacing = 0,3\n", Held::Nothing, 1, "160 x 120",
     "80,30,100,42  80,47,100,59"},
    // The first one from 40 - 10 to 40
    {"a scale below 0 tiles to the right", "[StageInfo]\nlocalcoord = 80,60\nxscale = -1\n", kBlock,
     "start = 0,20\ntile = 2\ntilespacing = 5,0\n", Held::Nothing, 1, "80 x 60",
     "30,20,40,28  45,20,55,28"},
    {"still pictures with a distance below 0: one", kSmallNew, kBlock,
     "start = 0,20\ntile = 2\ntilespacing = -20,0\n", Held::Nothing, 1, "80 x 60", "40,20,50,28"},
    // p = 80, 15 x 1.5 on: 102.5 to 117.5, 125
    {"an animation's distance", kSmallThreeQuarters, kMoving,
     "start = 0,40\ntile = 3\ntilespacing = 15,0\n", Held::Nothing, 1, "160 x 120",
     "80,60,95,72  103,60,118,72  125,60,140,72"},
    {"an animation's distance is absent: its size", kSmallNew, kMoving, "start = 0,40\ntile = 2\n",
     Held::Nothing, 1, "80 x 60", "40,40,60,48"},
    {"an animation's distance of 1 without end: its size", kSmallNew, kMoving,
     "start = 0,40\ntile = 1\ntilespacing = 1,1\n", Held::Nothing, 1, "80 x 60", "0,40,80,48"},
    {"an animation's distance of 0 without end: its size before 1.0", kSmall, kMoving,
     "start = 0,40\ntile = 1\ntilespacing = 0,0\n", Held::Nothing, 1, "80 x 60", "0,40,80,48"},
    {"an animation's distance of 0: no tiling from 1.0 on", kSmallNew, kMoving,
     "start = 0,40\ntile = 1\ntilespacing = 0,0\n", Held::Nothing, 1, "80 x 60", "40,40,50,48"},
    {"an animation's distance below 0: one", kSmall, kMoving,
     "start = 0,40\ntile = 1\ntilespacing = -5,0\n", Held::Nothing, 1, "80 x 60", "40,40,50,48"},

    // Windows.
    {"a window", kOwn, kLarge, "start = -10,10\nwindow = 170,30,199,44\n", Held::Nothing, 1, kOld,
     "170,30,200,45"},
    {"a window's corners in any order", kOwn, kLarge, "start = -10,10\nwindow = 199,44,170,30\n",
     Held::Nothing, 1, kOld, "170,30,200,45"},
    // 170 x 2 to 200 x 2; the picture from 320 to 420, 20 to 100
    {"a window of hires", kHires, kLarge, "start = 0,20\nwindow = 170,30,199,44\n", Held::Nothing,
     1, kTwice, "340,60,400,90"},
    // The picture covers all of the view.
    {"a scale leaves a window", "[StageInfo]\nlocalcoord = 80,60\nxscale = 3\nyscale = -3\n",
     kLarge,
     "start = -40,0\ndelta = 0,0\nwindow = 10,20,29,39\n[BG]\ntype = normal\n"
     "spriteno = 5,0\ntrans = add\nstart = -30,-20\nwindow = 40,20,59,39\n",
     Held::Nothing, 1, "80 x 60", "40,20,60,40"},
    // 170 - .5 x 10 = 165; 30 + .25 x 20 = 35
    {"windowdelta", "[Camera]\nstartx = 10\nstarty = -20\n", kLarge,
     "start = -10,10\ndelta = 0,0\nwindow = 170,30,199,44\nwindowdelta = .5,.25\n", Held::Nothing,
     1, kOld, "165,35,195,50"},
    // 340 - 2 x .5 x 10 = 330
    {"windowdelta of hires counts in units", "[StageInfo]\nhires = 1\n[Camera]\nstartx = 10\n",
     kLarge, "start = 0,20\ndelta = 0,0\nwindow = 170,30,199,44\nwindowdelta = .5,0\n",
     Held::Nothing, 1, kTwice, "330,60,390,90"},
    // 170 - 1.5 = 168.5; 200 - 1.5 = 198.5
    {"halves of a window go up", "[Camera]\nstartx = 3\n", kLarge,
     "start = -10,10\ndelta = 0,0\nwindow = 170,30,199,44\nwindowdelta = .5,0\n", Held::Nothing, 1,
     kOld, "169,30,199,45"},
    // 10.5 is 10: 165
    {"windowdelta in whole units before 1.0", "[Camera]\nstartx = 10.5\n", kLarge,
     "start = -10,10\ndelta = 0,0\nwindow = 170,30,199,44\nwindowdelta = .5,0\n", Held::Nothing, 1,
     kOld, "165,30,195,45"},
    // 2 x 170.5 = 341
    {"a window's edge is rounded on the canvas", kHires, kLarge,
     "start = 0,20\nwindow = 170.5,30,199,44\n", Held::Nothing, 1, kTwice, "341,60,400,90"},

    // Parallax rows: the speeds are 1, 5 / 3, 7 / 3 and 3.
    // 160 + 30 f - 8
    {"rows sheared by the start", kOwn, kRowsAt, "xscale = 1,3\n", Held::Nothing, 1, kOld,
     "182,40,198,41  202,41,218,42  222,42,238,43  242,43,258,44"},
    // 160 + (30 + 12 - 15 x 2) f - 8
    {"rows sheared by drift and camera", "[Camera]\nstartx = 15\n", kRowsAt,
     "xscale = 1,3\ndelta = 2\nvelocity = 12\n", Held::Nothing, 2, kOld,
     "164,40,180,41  172,41,188,42  180,42,196,43  188,43,204,44"},
    // s = 1.5: 320 + 45 f - 12, 24 wide; rows from 60, 61.5, 63, 64.5 to 66
    {"rows under a scale", kThreeQuarters, kRowsAt, "xscale = 1,3\n", Held::Nothing, 1, kTwice,
     "353,60,377,62  383,62,407,63  413,63,437,65  443,65,467,66"},
    // 160 - 30 f, and 16 wide about an axis of 8
    {"rows under a scale below 0", kMirror, kRowsAt, "xscale = 1,3\n", Held::Nothing, 1, kOld,
     "122,40,138,41  102,41,118,42  82,42,98,43  62,43,78,44"},
    // The picture's first row is the lowest one: Y = 40.
    {"rows under a y scale below 0", "[StageInfo]\nyscale = -1\n",
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 30,-40\n", "xscale = 1,3\n",
     Held::Nothing, 1, kOld, "182,39,198,40  202,38,218,39  222,37,238,38  242,36,258,37"},
    // The offset is no part of the axis' distance.
    {"rows with an offset", kOwn,
     "[Begin Action 1]\n6,0, 5,0, -1\n"
     "[BG]\ntype = parallax\nactionno = 1\ntrans = add\nstart = 30,40\n",
     "xscale = 1,3\n", Held::Nothing, 1, kOld,
     "187,40,203,41  207,41,223,42  227,42,243,43  247,43,263,44"},
    // s = 1.5: 353 to 377, 20 x 1.5 on: 383
    {"rows are tiled", kThreeQuarters, kRowsAt, "tile = 2\ntilespacing = 4,0\n", Held::Nothing, 1,
     kTwice, "353,60,377,66  383,60,407,66"},
    // 40 - 2 x 2 to 40 + 2 x 2
    {"rows twice as tall, about the axis", kOwn, kRowsAboutAxisAt, "yscalestart = 50\n",
     Held::Nothing, 1, kOld, "182,36,198,44"},
    // s = 1.5 x 2: 60 - 6 to 60 + 6
    {"rows twice as tall under a scale", kThreeQuarters, kRowsAboutAxisAt, "yscalestart = 50\n",
     Held::Nothing, 1, kTwice, "353,54,377,66"},
    // 1 / (1 + .025 x 20) = 2 / 3, Y = 40 + 20: 60 - 1.33 to 60 + 1.33
    {"rows by the camera's height", "[Camera]\nstarty = -20\n", kRowsAboutAxisAt,
     "yscaledelta = -2.5\n", Held::Nothing, 1, kOld, "182,59,198,61"},
    // 50, kept at 16: 4 x 16 = 64
    {"rows at most 16 times as tall", kOwn, kRowsAt, "yscalestart = 2\n", Held::Nothing, 1, kOld,
     "182,40,198,104"},
};

}  // namespace scenara::test
