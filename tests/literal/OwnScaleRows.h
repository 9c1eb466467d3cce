// SPDX-License-Identifier: MIT
//
// How large pictures are, and where they stand, with scalestart and scaledelta, which give an
// element a scale of its own. Worked out by hand, one case per row, as in PlaceRows.h.
#pragma once

#include "literal/PlaceRows.h"

namespace scenara::test {

inline constexpr PlaceRow kOwnScaleRows[] = {
    // An element's own scale.
    {"two and three times as large", kOwn, kBlockAt, "scalestart = 2,3\n", Held::Nothing, 1, kOld,
     "190,40,210,64"},
    {"half as large", kOwn, kBlockAt, "scalestart = .5,.5\n", Held::Nothing, 1, kOld,
     "190,40,195,44"},
    {"an own scale of one value is the x scale", kOwn, kBlockAt, "scalestart = 2\n", Held::Nothing,
     1, kOld, "190,40,210,48"},
    // 190 - 2 x 3; 40 - 3 x 5
    {"an own scale about the axis", kOwn, kPinned, "start = 30,40\nscalestart = 2,3\n",
     Held::Nothing, 1, kOld, "184,25,204,49"},
    // 190 - 2.5 = 187.5, and 8.75 more: 196.25; 40 - 1.5 = 38.5, and 7.5 more: 46
    {"each edge of an own scale is rounded", kOwn, kOdd, "start = 30,40\nscalestart = 1.25,1.5\n",
     Held::Nothing, 1, kOld, "188,39,196,46"},
    // 190 - 1.5 = 188.5 to 193.5: texels 1 3 5 7 9, of which 1 and 3 are there; 40 - 2.5 = 37.5
    {"every other texel by an own scale", kOwn, kLeftPart, "start = 30,40\nscalestart = .5,.5\n",
     Held::Nothing, 1, kOld, "189,38,191,42"},
    // From 190 + 2 x 3 = 196 to 176, the last 8 of them
    {"an own scale below 0 mirrors", kOwn, kLeftPart, "start = 30,40\nscalestart = -2,1\n",
     Held::Nothing, 1, kOld, "188,35,196,43"},
    // From 40 + 2 x 5 = 50 to 34, the last 4 of them
    {"an own y scale below 0", kOwn, kUpperPart, "start = 30,40\nscalestart = 1,-2\n",
     Held::Nothing, 1, kOld, "187,46,197,50"},
    // Mirrored twice: 190 - 7, with the first columns on the left
    {"H under an own scale below 0", kOwn,
     "[Begin Action 1]\n4,0, 0,0, -1, H\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30,40\nscalestart = -1,1\n", Held::Nothing, 1, kOld, "187,35,191,43"},
    {"an own scale of 0 draws nothing", kOwn, kBlockAt,
     "scalestart = 0,2\n[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
    {"an own y scale of 0 draws nothing", kOwn, kBlockAt,
     "scalestart = 2,0\n[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
    // 160 - 10260 = -10100, and 10 x 1024 more: 140
    {"an own scale is at most 1024", kOwn, kBlock, "start = -10260,40\nscalestart = 2000,1\n",
     Held::Nothing, 1, kOld, "0,40,140,48"},
    // 160 + 10100 = 10260, less 10 x 1024: 20
    {"an own scale is at least -1024", kOwn, kBlock, "start = 10100,40\nscalestart = -2000,1\n",
     Held::Nothing, 1, kOld, "20,40,320,48"},
    // 190 + 2 x 4; 40 - 3 x 2
    {"an offset under an own scale", kOwn,
     "[Begin Action 1]\n1,0, 4,-2, -1\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30,40\nscalestart = 2,3\n", Held::Nothing, 1, kOld, "198,34,218,58"},
    // 190 + .75 to 205.75; 40 - 2.25 = 37.75 to 49.75
    {"halves of an offset under an own scale", kOwn,
     "[Begin Action 1]\n1,0, .5,-1.5, -1\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30,40\nscalestart = 1.5,1.5\n", Held::Nothing, 1, kOld, "191,38,206,50"},
    {"an own scale leaves drift", kOwn, kBlockAt, "scalestart = 2,2\nvelocity = 1.5\n",
     Held::Nothing, 3, kOld, "193,40,213,56"},
    {"an own scale leaves a window", kOwn, kLarge,
     "start = -10,10\nwindow = 170,30,199,44\nscalestart = 2,2\n", Held::Nothing, 1, kOld,
     "170,30,200,45"},
    // The picture covers 150 to 350; the window goes 10 to the left.
    {"scaledelta leaves a window and its delta", "[Camera]\nstartx = 20\n", kLarge,
     "start = 10,10\nwindow = 170,30,199,44\nwindowdelta = .5,0\nscaledelta = .05,0\n",
     Held::Nothing, 1, kOld, "160,30,190,45"},

    // An element's own scale in its space.
    // D = 2, s = 1: 350, 10 x 3; 40, 8 x .5
    {"an own scale of hires", kHires, kBlockAt, "scalestart = 3,.5\n", Held::Nothing, 1, kTwice,
     "350,40,380,44"},
    // 640 - 100
    {"an own scale of 1280 x 720", "[StageInfo]\nlocalcoord = 1280,720\n", kBlock,
     "start = -100,500\nscalestart = 4,2.5\n", Held::Nothing, 1, "1280 x 720", "540,500,580,520"},
    // 220, s = 2 x 1.5; 80, s = 2 x .5
    {"an own scale under a scale of 2", kDouble, kBlockAt, "scalestart = 1.5,.5\n", Held::Nothing,
     1, kOld, "220,80,250,88"},
    // D = 2, s = 1.5: 365, 10 x 1.5 x 1.5 = 22.5; 60, 8 x 1.5 x .5 = 6
    {"an own scale under a scale of .75", kThreeQuarters, kBlockAt, "scalestart = 1.5,.5\n",
     Held::Nothing, 1, kTwice, "365,60,388,66"},
    // From 130 + 2 x 3 = 136 to 116, the last 8 of them
    {"an own scale under a scale below 0", kMirror, kLeftPart, "start = 30,40\nscalestart = 2,1\n",
     Held::Nothing, 1, kOld, "128,35,136,43"},
    // Mirrored twice: from 130 - 2 x 3
    {"an own scale below 0 under one below 0", kMirror, kLeftPart,
     "start = 30,40\nscalestart = -2,1\n", Held::Nothing, 1, kOld, "124,35,132,43"},

    // An element's own scale, with the camera.
    // The camera at 2, -2: 1 + .25 x 2 = 1.5; 1 + .5 x 2 = 2
    {"scaledelta", kOwn, kBlockAt, "scaledelta = .25,-.5\n", Held::RightAndUp, 2, kOld,
     "188,42,203,58"},
    // 2 + .25 x 2 = 2.5; 3 - .5 x 2 = 2
    {"scaledelta with scalestart", kOwn, kBlockAt, "scalestart = 2,3\nscaledelta = .25,.5\n",
     Held::RightAndUp, 2, kOld, "188,42,213,58"},
    {"scaledelta of one value is that of x", kOwn, kBlockAt, "scaledelta = .25\n", Held::RightAndUp,
     2, kOld, "188,42,203,50"},
    // 189, 1 + .25 x 2 x .5 = 1.25: 201.5; 41, 1 + .5 x 2 x .5 = 1.5
    {"scaledelta under a delta of a half", kOwn, kBlockAt, "delta = .5,.5\nscaledelta = .25,-.5\n",
     Held::RightAndUp, 2, kOld, "189,41,202,53"},
    {"scaledelta under a delta of 0", kOwn, kBlockAt, "delta = 0,0\nscaledelta = 5,5\n",
     Held::RightAndUp, 2, kOld, "190,40,200,48"},
    // 194, 1 - .5 x 2 x -2 = 3; 36, 1 + .25 x -2 x -2 = 2
    {"scaledelta under a delta below 0", kOwn, kBlockAt, "delta = -2,-2\nscaledelta = -.5,.25\n",
     Held::RightAndUp, 2, kOld, "194,36,224,52"},
    // 1 - 2 = -1: from 188 + 3 = 191 to 181, the last 4 of them; 42 - 5
    {"scaledelta goes below 0", kOwn, kLeftPart, "start = 30,40\nscaledelta = -1,0\n",
     Held::RightAndUp, 2, kOld, "187,37,191,45"},
    {"scaledelta comes to 0", kOwn, kBlockAt,
     "scaledelta = -.5,0\n[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::RightAndUp, 2, kOld, "158,22,168,30"},
    {"scaledelta in front is by the camera of the first pass", kOwn, kBlockAt,
     "layerno = 1\nscaledelta = 1,1\n", Held::RightAndUp, 1, kOld, "190,40,200,48"},
    // 195.25, 1 + .25 x 10.5 x .5 = 2.3125: 218.375
    {"scaledelta between units", "[Info]\nmugenversion = 1.0\n[Camera]\nstartx = -10.5\n", kBlockAt,
     "delta = .5\nscaledelta = -.25,0\n", Held::Nothing, 1, kOld, "195,40,218,48"},
    // -10.5 is -11: 195.5, 1 + .25 x 11 x .5 = 2.375: 219.25
    {"scaledelta in whole units before 1.0", "[Camera]\nstartx = -10.5\n", kBlockAt,
     "delta = .5\nscaledelta = -.25,0\n", Held::Nothing, 1, kOld, "196,40,219,48"},
    // The camera at 4, -4
    {"scaledelta of 640 x 480 counts in units", "[StageInfo]\nlocalcoord = 640,480\n", kBlockAt,
     "scaledelta = .25,-.25\n", Held::RightAndUp, 2, kTwice, "346,44,366,60"},
    // 340, 1 + .125 x 10 = 2.25, s = 1: 362.5
    {"scaledelta of hires", "[StageInfo]\nhires = 1\n[Camera]\nstartx = 10\n", kBlockAt,
     "scaledelta = .125,0\n", Held::Nothing, 1, kTwice, "340,40,363,48"},
    // 160 + 60 - 20 = 200, 1 + .125 x 20 / 2 = 2.25, s = 4.5; 80 + 20, 1 + .05 x 20 / 2 = 1.5, s =
    // 3
    {"scaledelta under a scale of 2",
     "[StageInfo]\nxscale = 2\nyscale = 2\n[Camera]\nstartx = 20\nstarty = -20\n", kBlockAt,
     "scaledelta = .125,-.05\n", Held::Nothing, 1, kOld, "200,100,245,124"},
    // 160 - 30 - 20 = 110, 1 - .125 x 20 = -1.5, s = 1.5
    {"scaledelta under a scale below 0", "[StageInfo]\nxscale = -1\n[Camera]\nstartx = 20\n",
     kBlockAt, "scaledelta = .125,0\n", Held::Nothing, 1, kOld, "110,40,125,48"},

    // An element's own scale, with links.
    {"a link's scale is its own", kOwn,
     "[BG]\ntype = dummy\nstart = 10,20\nscalestart = 5,5\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 20,20\npositionlink = 1\n",
     "scalestart = 2,3\n", Held::Nothing, 1, kOld, "190,40,210,64"},
    // 190 - .5 x 20 = 180, 1 + .125 x 20 x .5 = 2.25: 202.5; 50, 1 + .0625 x 20 x .5 = 1.625: 63
    {"a link's scaledelta is its own, by its parent's delta",
     "[Camera]\nstartx = 20\nstarty = -20\n",
     "[BG]\ntype = dummy\nstart = 10,20\ndelta = .5,.5\nscaledelta = 3,3\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 20,20\npositionlink = 1\n",
     "delta = 4,4\nscaledelta = .125,-.0625\n", Held::Nothing, 1, kOld, "180,50,203,63"},

    // An element's own scale, with tiles.
    // p = 190, 11 x 1.5 = 16.5 on: 206.5 to 221.5, 223
    {"three with a gap under an own scale", kOwn, kBlockAt,
     "tile = 3\ntilespacing = 1,0\nscalestart = 1.5,2\n", Held::Nothing, 1, kOld,
     "190,40,205,56  207,40,222,56  223,40,238,56"},
    // p = 190 - 3 = 187, three times 10.5 on: 218.5
    {"three without a seam under an own scale", kOwn, kOdd,
     "start = 30,40\ntile = 3\nscalestart = 1.5,1\n", Held::Nothing, 1, kOld, "187,39,219,44"},
    // p = 40, 15 x 2 = 30 on, both ways
    {"without end under an own scale", kSmall, kBlock,
     "start = 0,20\ntile = 1\ntilespacing = 5,0\nscalestart = 2,1\n", Held::Nothing, 1, "80 x 60",
     "10,20,30,28  40,20,60,28  70,20,80,28"},
    {"without end and seam under an own scale", kSmall, kOdd,
     "start = 0,40\ntile = 1\nscalestart = 1.5,1\n", Held::Nothing, 1, "80 x 60", "0,39,80,44"},
    // The first one from 40 - 20 to 40
    {"an own scale below 0 tiles to the right", kSmall, kBlock,
     "start = 0,20\ntile = 2\ntilespacing = 5,0\nscalestart = -2,1\n", Held::Nothing, 1, "80 x 60",
     "20,20,40,28  50,20,70,28"},
    // p = 40, 15 x 2 = 30 on, both ways, from 40 - 20
    {"an own scale below 0 without end", kSmall, kBlock,
     "start = 0,20\ntile = 1\ntilespacing = 5,0\nscalestart = -2,1\n", Held::Nothing, 1, "80 x 60",
     "-10,20,10,28  20,20,40,28  50,20,70,28"},
    // Rows from 20, 11 x 1.5 on: 20 to 32, 36.5 to 48.5
    {"two downwards under an own scale", kSmall, kBlock,
     "start = 0,20\ntile = 0,2\ntilespacing = 0,3\nscalestart = 1,1.5\n", Held::Nothing, 1,
     "80 x 60", "40,20,50,32  40,37,50,49"},
    // p = 40, 12 x 1.25 = 15 on, 12.5 wide
    {"an animation's distance under an own scale", kSmallNew, kMoving,
     "start = 0,40\ntile = 3\ntilespacing = 12,0\nscalestart = 1.25,1\n", Held::Nothing, 1,
     "80 x 60", "40,40,53,48  55,40,68,48  70,40,83,48"},
    // p = 190 - 4, 1 + .125 x 4 = 1.5: 15 wide, 12 x 1.5 on
    {"tiles by scaledelta", "[Camera]\nstartx = 4\n", kBlockAt,
     "tile = 2\ntilespacing = 2,0\nscaledelta = .125,0\n", Held::Nothing, 1, kOld,
     "186,40,201,48  204,40,219,48"},

    // An element's own scale, with parallax rows.
    // 190 - 2 x 8; 40 - 3 x 2
    {"rows under an own scale, about the axis", kOwn, kRowsAboutAxisAt, "scalestart = 2,3\n",
     Held::Nothing, 1, kOld, "174,34,206,46"},
    // 160 + 30 f - 16, 32 wide, 3 tall
    {"rows sheared, under an own scale", kOwn, kRowsAt, "xscale = 1,3\nscalestart = 2,3\n",
     Held::Nothing, 1, kOld, "174,40,206,43  194,43,226,46  214,46,246,49  234,49,266,52"},
    // 40, 41.5, 43, 44.5, 46
    {"rows' edges under an own scale", kOwn, kRowsAt, "xscale = 1,3\nscalestart = 1,1.5\n",
     Held::Nothing, 1, kOld, "182,40,198,42  202,42,218,43  222,43,238,45  242,45,258,46"},
    // Upwards from 40, 2 each
    {"rows under an own y scale below 0", kOwn, kRowsAt, "xscale = 1,3\nscalestart = 1,-2\n",
     Held::Nothing, 1, kOld, "182,38,198,40  202,36,218,38  222,34,238,36  242,32,258,34"},
    // 1.5 x 2 = 3 each
    {"rows twice as tall under an own scale", kOwn, kRowsAboutAxisAt,
     "yscalestart = 50\nscalestart = 1,1.5\n", Held::Nothing, 1, kOld, "182,34,198,46"},
    // 50, kept at 16, and then .5: 4 x 8 = 32
    {"rows at most 16 times as tall, under an own scale", kOwn, kRowsAt,
     "yscalestart = 2\nscalestart = 1,.5\n", Held::Nothing, 1, kOld, "182,40,198,72"},
    // 1 / 1.5 x 1.5 = 1: 40 - 2
    {"rows that two scales leave at their size", kOwn, kRowsAboutAxisAt,
     "yscalestart = 150\nscalestart = 1,1.5\n", Held::Nothing, 1, kOld, "182,38,198,42"},
    // 1 / (1 + .025 x 20) x 1.5 = 1: 40 + 20 - 2
    {"rows that an own scale and the camera's height leave at their size",
     "[Camera]\nstarty = -20\n", kRowsAboutAxisAt, "yscaledelta = -2.5\nscalestart = 1,1.5\n",
     Held::Nothing, 1, kOld, "182,58,198,62"},
    // 190 - 12, 24 wide, 20 x 1.5 on
    {"rows are tiled under an own scale", kOwn, kRowsAt,
     "tile = 2\ntilespacing = 4,0\nscalestart = 1.5,1\n", Held::Nothing, 1, kOld,
     "178,40,202,44  208,40,232,44"},
    // All rows at 160; 1 + .0625 x 15 x 2 = 2.875, whatever the row's own speed: 46 wide
    {"rows by scaledelta", "[Camera]\nstartx = 15\n", kRowsAt,
     "xscale = 1,3\ndelta = 2\nscaledelta = .0625,0\n", Held::Nothing, 1, kOld, "137,40,183,44"},
    {"an own scale of 0 draws no rows", kOwn, kRowsAt,
     "scalestart = 1,0\n[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
};

}  // namespace scenara::test
