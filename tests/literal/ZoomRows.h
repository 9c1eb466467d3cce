// SPDX-License-Identifier: MIT
//
// Where pictures stand when the camera zooms, and how large they are; which parts of them a window
// leaves. Worked out by hand, one case per row, as in PlaceRows.h.
//
// In the sums z is the zoom, e what an element takes of it, G the row of the canvas that stays
// where it is, as the column in the middle does.
#pragma once

#include "literal/PlaceRows.h"

namespace scenara::test {

inline constexpr const char* kNear =  // z = 2, G = 100
    "[Camera]\nzoomin = 2\nstartzoom = 2\n[StageInfo]\nzoffset = 100\n";
inline constexpr const char* kFar =  // z = .5, G = 100
    "[Camera]\nzoomout = .5\nstartzoom = .5\n[StageInfo]\nzoffset = 100\n";
inline constexpr const char* kNearFromAbove = "[Camera]\nzoomin = 2\nstartzoom = 2\n";  // G = 0
inline constexpr const char* kLessNear = "[Camera]\nzoomout = .75\nstartzoom = .75\n";
inline constexpr const char* kSmallFar =
    "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nzoomout = .5\nstartzoom = .5\n";
inline constexpr const char* kSmallLessNear =
    "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nzoomout = .75\nstartzoom = .75\n";
inline constexpr const char* kSmallNear =
    "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nzoomin = 2\nstartzoom = 2\n";
// Where z = 2, G = 100, and the camera is not in the middle.
inline constexpr const char* kNearAndAside =
    "[Camera]\nzoomin = 2\nstartzoom = 2\nstartx = 20\nstarty = -20\n[StageInfo]\nzoffset = 100\n";
// Everything at once: D = 2, middle 200, G = 120; E = 1.5, .5; the camera at 8, -4; z = 3.
inline constexpr const char* kAllAtOnce =
    "[Info]\nmugenversion = 1.0\n"
    "[StageInfo]\nlocalcoord = 200,150\nhires = 1\nxscale = 3\nyscale = 1\nzoffset = 60\n"
    "[Camera]\nstartx = 8\nstarty = -4\nzoomin = 3\nstartzoom = 3\n";

inline constexpr const char* kBlockLow =
    "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 30,80\n";
inline constexpr const char* kBlockByLink =
    "[BG]\ntype = dummy\nid = 7\nstart = 0,40\n"
    "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 30,80\n";
// At 150,10 to 250,90.
inline constexpr const char* kLargeAt =
    "[BG]\ntype = normal\nspriteno = 5,0\ntrans = add\nstart = -10,10\ndelta = 0,0\n";

inline constexpr PlaceRow kZoomRows[] = {
    // What stays where it is.
    // 160 + 2 x 30; 100 - 2 x 20
    {"zoom 2", kNear, kBlockLow, "", Held::Nothing, 1, kOld, "220,60,240,76"},
    // 160 + .5 x 30; 100 - .5 x 20
    {"zoom .5", kFar, kBlockLow, "", Held::Nothing, 1, kOld, "175,90,180,94"},
    // 160 + 22.5 = 182.5 to 190; 30 to 36
    {"zoom .75, without a ground", kLessNear, kBlockAt, "", Held::Nothing, 1, kOld,
     "183,30,190,36"},
    // 160 + .8 x 31 = 184.8 to 192.8; .8 x 41 = 32.8 to 39.2
    {"zoom .8", "[Camera]\nzoomout = .8\nstartzoom = .8\n", kBlock, "start = 31,41\n",
     Held::Nothing, 1, kOld, "185,33,193,39"},
    // 160 - 2 x 3; 100 - 2 x 5
    {"an axis in the middle, on the ground, stays", kNear, kPinned, "start = 0,100\n",
     Held::Nothing, 1, kOld, "154,90,174,106"},
    // 160 - .5 x 3 = 158.5 to 163.5; 100 - .5 x 5 = 97.5 to 101.5
    {"an axis in the middle, on the ground, stays when all gets smaller", kFar, kPinned,
     "start = 0,100\n", Held::Nothing, 1, kOld, "159,98,164,102"},
    // 160 - 2 x 30; 100 + 2 x 30
    {"zoom to the left of the middle, below the ground", kNear, kBlock, "start = -30,130\n",
     Held::Nothing, 1, kOld, "100,160,120,176"},
    {"zoom in front of the fighters", kNear, kBlockLow, "layerno = 1\n", Held::Nothing, 1, kOld,
     "220,60,240,76"},
    // G = 60 + 40
    {"the ground of a link",
     "[Camera]\nzoomin = 2\nstartzoom = 2\n[StageInfo]\nzoffset = 60\n"
     "zoffsetlink = 7\n",
     kBlockByLink, "", Held::Nothing, 1, kOld, "220,60,240,76"},
    {"the ground of a link to nothing",
     "[Camera]\nzoomin = 2\nstartzoom = 2\n[StageInfo]\nzoffset = 100\nzoffsetlink = 8\n",
     kBlockByLink, "", Held::Nothing, 1, kOld, "220,60,240,76"},
    // G = 20 + 80, and not where the picture has come to: 100 + 2 (80 + 6 - 100)
    {"the ground of a link that drifts",
     "[Camera]\nzoomin = 2\nstartzoom = 2\n[StageInfo]\nzoffset = 20\nzoffsetlink = 7\n", kBlockLow,
     "id = 7\nvelocity = 0,3\n", Held::Nothing, 3, kOld, "220,72,240,88"},
    // 100 + 2 (80 + 8 - 100)
    {"the ground of a link that swings",
     "[Camera]\nzoomin = 2\nstartzoom = 2\n[StageInfo]\nzoffset = 20\nzoffsetlink = 7\n", kBlockLow,
     "id = 7\nsin.y = 8,4,90\n", Held::Nothing, 1, kOld, "220,76,240,92"},
    // G = 2 (60 + .5 x 40) = 160; 320 + 2 x 30; 160 - 2 (160 - 2 x .5 x 120)
    {"the ground of a link of hires",
     "[Camera]\nzoomin = 2\nstartzoom = 2\n[StageInfo]\nhires = 1\nzoffset = 60\nzoffsetlink = 7\n",
     "[BG]\ntype = dummy\nid = 7\nstart = 0,40\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 30,120\n",
     "", Held::Nothing, 1, kTwice, "380,80,400,96"},
    // G = 20 + 2 x 40 = 100; s = 4: 160 + 2 x 60; 100 - 2 (100 - 2 x 40)
    {"the ground of a link under a scale of 2",
     "[Camera]\nzoomin = 2\nstartzoom = 2\n"
     "[StageInfo]\nxscale = 2\nyscale = 2\nzoffset = 20\nzoffsetlink = 7\n",
     "[BG]\ntype = dummy\nid = 7\nstart = 0,40\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 30,40\n",
     "", Held::Nothing, 1, kOld, "280,60,320,92"},
    // G = 200 - 100; Y = 100 - 2 x 20 = 60, and the rows -5 and -4 go from 60 + 2 x 3 to 60 + 2 x 5
    {"the ground of a link under a y scale below 0",
     "[Camera]\nzoomin = 2\nstartzoom = 2\n"
     "[StageInfo]\nyscale = -1\nzoffset = 200\nzoffsetlink = 7\n",
     "[BG]\ntype = dummy\nid = 7\nstart = 0,100\n"
     "[BG]\ntype = normal\nspriteno = 4,1\ntrans = add\nstart = 30,-80\n",
     "", Held::Nothing, 1, kOld, "214,66,234,70"},

    // How much of it an element takes.
    // e = 1.5: 160 + 45; 100 - 30
    {"zoomdelta of one value is for both", kNear, kBlockLow, "zoomdelta = .5\n", Held::Nothing, 1,
     kOld, "205,70,220,82"},
    {"zoomdelta of two values", kNear, kBlockLow, "zoomdelta = .5,0\n", Held::Nothing, 1, kOld,
     "205,80,220,88"},
    // e = 1, 3: 100 - 60
    {"zoomdelta of two values, the other way round", kNear, kBlockLow, "zoomdelta = 0,2\n",
     Held::Nothing, 1, kOld, "190,40,200,64"},
    {"zoomdelta 0", kNear, kBlockLow, "zoomdelta = 0\n", Held::Nothing, 1, kOld, "190,80,200,88"},
    // e = 3: 160 + 90; 100 - 60
    {"zoomdelta above 1", kNear, kBlockLow, "zoomdelta = 2\n", Held::Nothing, 1, kOld,
     "250,40,280,64"},
    // e = 1 - 2 x .25 = .5: 160 + 15; .5 x 40
    {"zoomdelta above 1, when all gets smaller", kLessNear, kBlockAt, "zoomdelta = 2\n",
     Held::Nothing, 1, kOld, "175,20,180,24"},
    // e = 1 - .5 = .5
    {"zoomdelta below 0", kNear, kBlockLow, "zoomdelta = -.5\n", Held::Nothing, 1, kOld,
     "175,90,180,94"},
    // e = 1 + 2 x .5 = 2
    {"zoomdelta below 0, when all gets smaller", kFar, kBlockLow, "zoomdelta = -2\n", Held::Nothing,
     1, kOld, "220,60,240,76"},
    // e = 1 - 3 x .5 = -.5
    {"zoomdelta that leaves less than nothing", kFar, kBlockLow,
     "zoomdelta = 3\n[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n"
     "zoomdelta = 0\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
    {"zoomdelta that leaves nothing", kFar, kBlockLow,
     "zoomdelta = 2\n[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n"
     "zoomdelta = 0\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
    // e = 1, 1 - 1.5 = -.5
    {"zoomdelta that leaves nothing one way", kNear, kBlockLow,
     "zoomdelta = 0,-1.5\n[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n"
     "zoomdelta = 0\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
    {"zoomdelta without zoom", kOwn, kBlockAt, "zoomdelta = 5\n", Held::Nothing, 1, kOld,
     "190,40,200,48"},

    // Which zoom it is.
    {"startzoom is at most zoomin", "[Camera]\nzoomin = 2\nstartzoom = 3\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "220,80,240,96"},
    {"startzoom is at least zoomout", "[Camera]\nzoomout = .5\nstartzoom = .1\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "175,20,180,24"},
    {"startzoom alone is kept at 1", "[Camera]\nstartzoom = 2\n", kBlockAt, "", Held::Nothing, 1,
     kOld, "190,40,200,48"},
    {"startzoom below 1 alone is kept at 1", "[Camera]\nstartzoom = .5\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "190,40,200,48"},
    {"startzoom is 1 when not given", "[Camera]\nzoomout = .5\nzoomin = 2\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "190,40,200,48"},
    {"startzoom is at most zoomin, also when not given", "[Camera]\nzoomout = .5\nzoomin = .5\n",
     kBlockAt, "", Held::Nothing, 1, kOld, "175,20,180,24"},
    {"zoomin is at least zoomout", "[Camera]\nzoomout = 2\nzoomin = 1.5\nstartzoom = 1.75\n",
     kBlockAt, "", Held::Nothing, 1, kOld, "220,80,240,96"},
    {"zoomin is at least zoomout, which is 1", "[Camera]\nzoomin = .5\nstartzoom = .5\n", kBlockAt,
     "", Held::Nothing, 1, kOld, "190,40,200,48"},
    {"zoomout of 0 counts as 1", "[Camera]\nzoomout = 0\nstartzoom = .5\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "190,40,200,48"},
    {"zoomout below 0 counts as 1", "[Camera]\nzoomout = -2\nzoomin = 2\nstartzoom = .5\n",
     kBlockAt, "", Held::Nothing, 1, kOld, "190,40,200,48"},
    {"zoomout of 0 leaves zoomin", "[Camera]\nzoomout = 0\nzoomin = 2\nstartzoom = 2\n", kBlockAt,
     "", Held::Nothing, 1, kOld, "220,80,240,96"},
    {"zoom outside of the camera's section", "[StageInfo]\nzoomin = 2\nstartzoom = 2\n", kBlockAt,
     "", Held::Nothing, 1, kOld, "190,40,200,48"},

    // Zoom, and where the camera may go.
    // z = zoomout: 10. 160 + .5 (30 - 10)
    {"all the way out the right bound is the file's",
     "[Camera]\nboundright = 10\nstartx = 100\nzoomout = .5\nstartzoom = .5\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "170,20,175,24"},
    // 160 + .5 (30 + 10)
    {"all the way out the left bound is the file's",
     "[Camera]\nboundleft = -10\nstartx = -100\nzoomout = .5\nstartzoom = .5\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "180,20,185,24"},
    // Up to 10 + 160 (2 - 1) = 170: 190 - 100
    {"a start beyond the bound of zoomout",
     "[Camera]\nboundright = 10\nstartx = 100\nzoomout = .5\n", kBlockAt, "", Held::Nothing, 1,
     kOld, "90,40,100,48"},
    // 190 - 170
    {"a start beyond the right bound", "[Camera]\nboundright = 10\nstartx = 300\nzoomout = .5\n",
     kBlockAt, "", Held::Nothing, 1, kOld, "20,40,30,48"},
    // -10 - 160 = -170: 160 - 200 + 170
    {"a start beyond the left bound", "[Camera]\nboundleft = -10\nstartx = -300\nzoomout = .5\n",
     kBlock, "start = -200,40\n", Held::Nothing, 1, kOld, "130,40,140,48"},
    // 10 + 160 (1 - .5) = 90: 160 + 2 (30 - 90)
    {"a start beyond the right bound of zoom 2",
     "[Camera]\nboundright = 10\nstartx = 300\nzoomin = 2\nstartzoom = 2\n", kBlockAt, "",
     Held::Nothing, 1, kOld, "40,80,60,96"},
    // 10 + 640 / 2 (2 - 1) = 330: 320 + 200 - 330
    {"a start beyond the right bound of 640 x 480",
     "[StageInfo]\nlocalcoord = 640,480\n[Camera]\nboundright = 10\nstartx = 900\nzoomout = .5\n",
     kBlock, "start = 200,40\n", Held::Nothing, 1, kTwice, "190,40,200,48"},
    // 10 + 160 (4 / 3 - 1) = 63.33: 160 + 200 - 3 x 63.33
    {"a bound between units",
     "[Info]\nmugenversion = 1.0\n[Camera]\nboundright = 10\nstartx = 100\nzoomout = .75\n", kBlock,
     "start = 200,40\ndelta = 3\n", Held::Nothing, 1, kOld, "170,40,180,48"},
    // -10 - 53.33: -63, not -64: 160 + 189 - 200
    {"a left bound between units before 1.0",
     "[Camera]\nboundleft = -10\nstartx = -100\nzoomout = .75\n", kBlock,
     "start = -200,40\ndelta = 3\n", Held::Nothing, 1, kOld, "149,40,159,48"},
    // 63: 360 - 189
    {"a bound between units before 1.0", "[Camera]\nboundright = 10\nstartx = 100\nzoomout = .75\n",
     kBlock, "start = 200,40\ndelta = 3\n", Held::Nothing, 1, kOld, "171,40,181,48"},
    // 3 + 40 (2 - 1) = 43: 40 + 50 - 43
    {"right held up to the bound",
     "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nboundright = 3\nzoomout = .5\n", kBlock,
     "start = 50,20\n", Held::RightThroughout, 30, "80 x 60", "47,20,57,28"},
    // -44: 40 - 50 + 44
    {"left held up to the bound",
     "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nboundleft = -4\nzoomout = .5\n", kBlock,
     "start = -50,20\n", Held::LeftThroughout, 30, "80 x 60", "34,20,44,28"},
    // 3: 40 + .5 (50 - 3) = 63.5 to 68.5
    {"right held up to the bound, all the way out",
     "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nboundright = 3\nzoomout = .5\nstartzoom = .5\n",
     kBlock, "start = 50,20\n", Held::RightThroughout, 30, "80 x 60", "64,10,69,14"},
    // 3 + 40 (1 - 1 / 2) = 23: 40 + 2 (30 - 23)
    {"right held up to the bound of zoom 2",
     "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nboundright = 3\nzoomin = 2\nstartzoom = 2\n",
     kBlock, "start = 30,20\n", Held::RightThroughout, 30, "80 x 60", "54,40,74,56"},
    // 3 + 40 / 3 = 16.33, in steps of 1: 16. 40 + 30 - 16
    {"right held up to a bound between steps",
     "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nboundright = 3\nzoomout = .75\n", kBlock,
     "start = 30,20\n", Held::RightThroughout, 30, "80 x 60", "54,20,64,28"},
    // In steps of .25: 16.25. 40 + 21 - 3 x 16.25 = 12.25
    {"right held up to a bound between steps of a quarter",
     "[Info]\nmugenversion = 1.0\n[StageInfo]\nlocalcoord = 80,60\n"
     "[Camera]\nboundright = 3\nzoomout = .75\n",
     kBlock, "start = 21,20\ndelta = 3\n", Held::RightThroughout, 60, "80 x 60", "12,20,22,28"},
    // -5: 20 + 5
    {"up held up to the bound, which is the file's",
     "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nboundhigh = -5\nzoomout = .5\n", kBlock,
     "start = 0,20\n", Held::UpThroughout, 10, "80 x 60", "40,25,50,33"},
    // 2 (10 + 5)
    {"a start beyond the upper bound of zoom 2",
     "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nboundhigh = -5\nstarty = -50\nzoomin = 2\n"
     "startzoom = 2\n",
     kBlock, "start = 0,10\n", Held::Nothing, 1, "80 x 60", "40,30,60,46"},

    // Zoom and the camera.
    // 160 + 2 (30 - .5 x 20); 100 - 2 (20 - .25 x 20)
    {"delta under zoom", kNearAndAside, kBlockLow, "delta = .5,.25\n", Held::Nothing, 1, kOld,
     "200,70,220,86"},
    // 160 + .5 (30 - 2) = 174; 100 - .5 (20 - 2) = 91
    {"two steps under zoom", kFar, kBlockLow, "", Held::RightAndUp, 2, kOld, "174,91,179,95"},
    // e = 1.5, 1: 160 + 1.5 (30 - 10) = 190; 80 + 5
    {"delta and zoomdelta", kNearAndAside, kBlockLow, "delta = .5,.25\nzoomdelta = .5,0\n",
     Held::Nothing, 1, kOld, "190,85,205,93"},
    // 160 + 3 (30 + .5 x 10.5) = 265.75 to 295.75
    {"a camera between units, under zoom",
     "[Info]\nmugenversion = 1.0\n[Camera]\nstartx = -10.5\nzoomin = 3\nstartzoom = 3\n", kBlockAt,
     "delta = .5\n", Held::Nothing, 1, kOld, "266,120,296,144"},
    // 160 + 3 (30 + .5 x 11) = 266.5 to 296.5
    {"whole units before 1.0, under zoom", "[Camera]\nstartx = -10.5\nzoomin = 3\nstartzoom = 3\n",
     kBlockAt, "delta = .5\n", Held::Nothing, 1, kOld, "267,120,297,144"},
    // 160 + 2 (30 + 4); 100 - 2 (20 - 2)
    {"drift under zoom", kNear, kBlockLow, "velocity = 2,1\n", Held::Nothing, 3, kOld,
     "228,64,248,80"},
    // 160 + 2 (30 + 8)
    {"a swing under zoom", kNear, kBlockLow, "sin.x = 8,4,90\n", Held::Nothing, 1, kOld,
     "236,60,256,76"},

    // Zoom in its space.
    // D = 2, s = 1, G = 100: 320 + 2 x 30; 100 - 2 x 20
    {"zoom of hires", "[StageInfo]\nhires = 1\nzoffset = 50\n[Camera]\nzoomin = 2\nstartzoom = 2\n",
     kBlockLow, "", Held::Nothing, 1, kTwice, "380,60,400,76"},
    // D = 2, s = 1, G = 160: s e = .75: 320 + .75 x 30 = 342.5 to 350; 160 - .75 x 80 = 100
    {"zoom .75 of hires",
     "[StageInfo]\nhires = 1\nzoffset = 80\n[Camera]\nzoomout = .75\nstartzoom = .75\n", kBlockLow,
     "", Held::Nothing, 1, kTwice, "343,100,350,106"},
    // 320 - 50; 400 - 50
    {"zoom of 640 x 480",
     "[StageInfo]\nlocalcoord = 640,480\nzoffset = 400\n[Camera]\nzoomout = .5\nstartzoom = .5\n",
     kBlock, "start = -100,300\n", Held::Nothing, 1, kTwice, "270,350,275,354"},
    // 40.5 + 2 x 10 = 60.5; 30 + 2 (20 - 30)
    {"zoom of an odd width",
     "[StageInfo]\nlocalcoord = 81,61\nzoffset = 30\n[Camera]\nzoomin = 2\nstartzoom = 2\n", kBlock,
     "start = 10,20\n", Held::Nothing, 1, "81 x 61", "61,10,81,26"},
    // 160 + .5 x 60; 100 + .5 (160 - 100); s = 1
    {"zoom under a scale of 2",
     "[StageInfo]\nxscale = 2\nyscale = 2\nzoffset = 100\n[Camera]\nzoomout = .5\n"
     "startzoom = .5\n",
     kBlockLow, "", Held::Nothing, 1, kOld, "190,130,200,138"},
    // D = 2, s = 3, G = 100: 320 + 2 x 45; 100 - 2 (100 - 60)
    {"zoom under a scale of .75",
     "[StageInfo]\nxscale = .75\nyscale = .75\nzoffset = 50\n[Camera]\nzoomin = 2\n"
     "startzoom = 2\n",
     kBlockAt, "", Held::Nothing, 1, kTwice, "410,20,440,44"},
    // 160 - 2 x 30 = 100, the columns -3 to 1 from 100 - 2 to 100 + 6; 60 - 10 to 60 + 6
    {"zoom under a scale below 0",
     "[StageInfo]\nxscale = -1\nzoffset = 100\n[Camera]\nzoomin = 2\nstartzoom = 2\n", kLeftPart,
     "start = 30,80\n", Held::Nothing, 1, kOld, "98,50,106,66"},
    // 175, s = 1: 175 - 3; 90, s = 1.5: 82.5 to 94.5
    {"zoom and an own scale", kFar, kPinned, "start = 30,80\nscalestart = 2,3\n", Held::Nothing, 1,
     kOld, "172,83,182,95"},
    // 1 + .125 x 20 = 3.5, 1 + .0625 x 20 = 2.25: 160 + 2 x 10, 10 x 7 = 70; 100 + 0, 8 x 4.5 = 36
    {"zoom and scaledelta", kNearAndAside, kBlockLow, "scaledelta = .125,-.0625\n", Held::Nothing,
     1, kOld, "180,100,250,136"},
    // e = 1.5: 160 + 15, 10 x 3.5 x 1.5 = 52.5; 100, 8 x 2.25 x 1.5 = 27
    {"zoomdelta and scaledelta", kNearAndAside, kBlockLow,
     "zoomdelta = .5\nscaledelta = .125,-.0625\n", Held::Nothing, 1, kOld, "175,100,228,127"},
    // s = 4: from 220 + 4 x 3 = 232 to 192, the last 16 of them
    {"zoom and an own scale below 0", kNear, kLeftPart, "start = 30,80\nscalestart = -2,1\n",
     Held::Nothing, 1, kOld, "216,50,232,66"},

    // Zoom and links.
    // 160 + 2 (30 - .5 x 20); 100 - 2 (20 - .5 x 20)
    {"a link's zoom is its own", kNearAndAside,
     "[BG]\ntype = dummy\nstart = 10,20\ndelta = .5,.5\nzoomdelta = 0\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 20,60\npositionlink = 1\n",
     "", Held::Nothing, 1, kOld, "200,80,220,96"},
    // e = 1.5: 160 + 1.5 (30 - 10); 100 - 1.5 (20 - 10)
    {"a link's zoomdelta is its own", kNearAndAside,
     "[BG]\ntype = dummy\nstart = 10,20\ndelta = .5,.5\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 20,60\npositionlink = 1\n",
     "zoomdelta = .5\n", Held::Nothing, 1, kOld, "190,85,205,97"},
    // 160 + 2 (30 + 4); 100 - 2 (20 - 2)
    {"a link follows drift under zoom", kNear,
     "[BG]\ntype = dummy\nstart = 10,20\nvelocity = 2,1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 20,60\npositionlink = 1\n",
     "", Held::Nothing, 3, kOld, "228,64,248,80"},

    // Zoom and tiles.
    // p = 220, 11 x 2 on
    {"three with a gap under zoom", kNear, kBlockLow, "tile = 3\ntilespacing = 1,0\n",
     Held::Nothing, 1, kOld, "220,60,240,76  242,60,262,76  264,60,284,76"},
    // p = 182.5, 11 x .75 = 8.25 on: 182.5 to 190, 190.75 to 198.25, 199 to 206.5
    {"three with a gap under zoom .75", kLessNear, kBlockAt, "tile = 3\ntilespacing = 1,0\n",
     Held::Nothing, 1, kOld, "183,30,190,36  191,30,198,36  199,30,207,36"},
    // p = 182.5 - 1.5 = 181, three times 5.25 on: 196.75; 29.25 to 33
    {"three without a seam under zoom", kLessNear, kOdd, "start = 30,40\ntile = 3\n", Held::Nothing,
     1, kOld, "181,29,197,33"},
    // p = 40, 7.5 on, both ways
    {"without end under zoom", kSmallFar, kBlock, "start = 0,20\ntile = 1\ntilespacing = 5,0\n",
     Held::Nothing, 1, "80 x 60",
     "3,10,8,14  10,10,15,14  18,10,23,14  25,10,30,14  33,10,38,14  40,10,45,14  48,10,53,14  "
     "55,10,60,14  63,10,68,14  70,10,75,14  78,10,83,14"},
    {"without end and seam under zoom", kSmallLessNear, kOdd, "start = 0,40\ntile = 1\n",
     Held::Nothing, 1, "80 x 60", "0,29,80,33"},
    // Rows from 20, 11 x 2 on
    {"two downwards under zoom", kSmallNear, kBlock,
     "start = 0,10\ntile = 0,2\ntilespacing = 0,3\n", Held::Nothing, 1, "80 x 60",
     "40,20,60,36  40,42,60,58"},
    // p = 40, 15 x .5 on, 5 wide: 40, 47.5, 55
    {"an animation's distance under zoom", kSmallFar, kMoving,
     "start = 0,40\ntile = 3\ntilespacing = 15,0\n", Held::Nothing, 1, "80 x 60",
     "40,20,45,24  48,20,53,24  55,20,60,24"},
    // e = 1.5, 1: p = 205, 16.5 on: 205 to 220, 221.5 to 236.5, 238
    {"tiles and zoomdelta", kNear, kBlockLow, "tile = 3\ntilespacing = 1,0\nzoomdelta = .5,0\n",
     Held::Nothing, 1, kOld, "205,80,220,88  222,80,237,88  238,80,253,88"},
    // p = 220, 11 x 2 x 1.5 on, 30 wide
    {"tiles, zoom and an own scale", kNear, kBlockLow,
     "tile = 2\ntilespacing = 1,0\nscalestart = 1.5,1\n", Held::Nothing, 1, kOld,
     "220,60,250,76  253,60,283,76"},
    // The first one from 40 - 20 to 40, 15 x 2 on
    {"a scale below 0 tiles to the right, under zoom",
     "[StageInfo]\nlocalcoord = 80,60\nxscale = -1\n[Camera]\nzoomin = 2\nstartzoom = 2\n", kBlock,
     "start = 0,10\ntile = 2\ntilespacing = 5,0\n", Held::Nothing, 1, "80 x 60",
     "20,20,40,36  50,20,70,36"},

    // Zoom and parallax rows. Their speeds are 1, 1.5, 2, 2.5 (or 1, 5 / 3, 7 / 3, 3).
    // 160 + 60 f - 16, 32 wide, 2 tall
    {"rows under zoom", kNear,
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 30,80\n", "xscale = 1,2.5\n",
     Held::Nothing, 1, kOld, "204,60,236,62  234,62,266,64  264,64,296,66  294,66,326,68"},
    // 160 + 15 f - 4, 8 wide; from 90, 90.5, 91, 91.5 to 92: the second and the fourth are gone
    {"rows under zoom .5", kFar,
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 30,80\n", "xscale = 1,3\n",
     Held::Nothing, 1, kOld, "171,90,179,91  191,91,199,92"},
    // e = 2, 1
    {"rows and zoomdelta", kNear,
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 30,80\n",
     "xscale = 1,2.5\nzoomdelta = 1,0\n", Held::Nothing, 1, kOld,
     "204,80,236,81  234,81,266,82  264,82,296,83  294,83,326,84"},
    // 160 + 2 (30 - 10) f - 16; 100 - 2 (20 - 20) = 100
    {"rows, zoom and the camera",
     "[Camera]\nzoomin = 2\nstartzoom = 2\nstartx = 10\nstarty = -20\n[StageInfo]\nzoffset = 100\n",
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 30,80\n", "xscale = 1,2.5\n",
     Held::Nothing, 1, kOld, "184,100,216,102  204,102,236,104  224,104,256,106  244,106,276,108"},
    // 60 - 2 x 4 to 60 + 2 x 4
    {"rows twice as tall under zoom", kNear,
     "[BG]\ntype = parallax\nspriteno = 6,1\ntrans = add\nstart = 30,80\n", "yscalestart = 50\n",
     Held::Nothing, 1, kOld, "204,52,236,68"},
    // 1 / (1 + .025 x 20) = 2 / 3, z = 1.5: 160 + 45 - 12, 24 wide; 100 - 2 to 100 + 2
    {"rows by the camera's height under zoom",
     "[Camera]\nzoomin = 1.5\nstartzoom = 1.5\nstarty = -20\n[StageInfo]\nzoffset = 100\n",
     "[BG]\ntype = parallax\nspriteno = 6,1\ntrans = add\nstart = 30,80\n", "yscaledelta = -2.5\n",
     Held::Nothing, 1, kOld, "193,98,217,102"},
    // 32 wide, 20 x 2 on
    {"rows are tiled under zoom", kNear,
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 30,80\n",
     "tile = 2\ntilespacing = 4,0\n", Held::Nothing, 1, kOld, "204,60,236,68  244,60,276,68"},

    // Zoom and frames.
    // 220 + 8; 60 - 4
    {"an offset under zoom", kNear,
     "[Begin Action 1]\n1,0, 4,-2, -1\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30,80\n", Held::Nothing, 1, kOld, "228,56,248,72"},
    // 182.5 + .75 = 183.25 to 190.75; 30 - 1.5 = 28.5 to 34.5
    {"an offset under zoom .75", kLessNear,
     "[Begin Action 1]\n1,0, 1,-2, -1\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30,40\n", Held::Nothing, 1, kOld, "183,29,191,35"},
    // 228, its columns 3 to -7 from 228 - 14, the last 4 of them; 60 - 10
    {"H and an offset under zoom", kNear,
     "[Begin Action 1]\n4,0, 4,0, -1, H\n[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30,80\n", Held::Nothing, 1, kOld, "226,50,234,66"},

    // Windows and zoom.
    // The picture is at 140 to 340, 20 to 180.
    {"zoom leaves a window", kNearFromAbove, kLargeAt, "window = 170,30,199,44\n", Held::Nothing, 1,
     kOld, "170,30,200,45"},
    {"zoom leaves windowdelta of a window",
     "[Camera]\nzoomin = 2\nstartzoom = 2\nstartx = 10\nstarty = -20\n", kLargeAt,
     "window = 170,30,199,44\nwindowdelta = .5,.25\n", Held::Nothing, 1, kOld, "165,35,195,50"},
    // e = 1.5: the picture is at 145 to 295, 15 to 135.
    {"zoomdelta leaves a window", kNearFromAbove, kLargeAt,
     "window = 170,30,199,44\nzoomdelta = .5\n", Held::Nothing, 1, kOld, "170,30,200,45"},
    {"a maskwindow", kOwn, kLargeAt, "maskwindow = 10,15,40,30\n", Held::Nothing, 1, kOld,
     "170,15,200,30"},
    {"a maskwindow's corners in any order", kOwn, kLargeAt, "maskwindow = 40,30,10,15\n",
     Held::Nothing, 1, kOld, "170,15,200,30"},
    {"a maskwindow's corners, mixed", kOwn, kLargeAt, "maskwindow = 40,15,10,30\n", Held::Nothing,
     1, kOld, "170,15,200,30"},
    {"a maskwindow of three values is none", kOwn, kLargeAt, "maskwindow = 10,15,40\n",
     Held::Nothing, 1, kOld, "150,10,250,90"},
    {"a maskwindow without columns", kOwn, kLargeAt,
     "maskwindow = 10,15,10,30\n[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
    // 170.5, 199.5
    {"a maskwindow's halves go up", kOwn, kLargeAt, "maskwindow = 10.5,15,39.5,30\n", Held::Nothing,
     1, kOld, "171,15,200,30"},
    // 160 + 20 to 160 + 80
    {"a maskwindow is zoomed", kNearFromAbove, kLargeAt, "maskwindow = 10,15,40,30\n",
     Held::Nothing, 1, kOld, "180,30,240,60"},
    // 100 - 40 to 100 - 10; the picture is at 140 to 340, 0 to 160.
    {"a maskwindow is zoomed about the ground", kNear, kLarge,
     "start = -10,50\nmaskwindow = 10,80,40,95\n", Held::Nothing, 1, kOld, "180,60,240,90"},
    // 160 + 7.5 = 167.5 to 190; 15 to 22.5
    {"a maskwindow's edges are rounded after zoom", kLessNear, kLargeAt,
     "maskwindow = 10,20,40,30\n", Held::Nothing, 1, kOld, "168,15,190,23"},
    // e = 1.5: 160 + 15 to 160 + 60; 30 to 45
    {"a maskwindow and zoomdelta", kNearFromAbove, kLargeAt,
     "maskwindow = 10,20,40,30\nzoomdelta = .5\n", Held::Nothing, 1, kOld, "175,30,220,45"},
    {"a maskwindow and zoomdelta 0", kNearFromAbove, kLargeAt,
     "maskwindow = 10,20,40,30\nzoomdelta = 0\n", Held::Nothing, 1, kOld, "170,20,200,30"},
    // e = 1.5, 1
    {"a maskwindow and zoomdelta of two values", kNearFromAbove, kLargeAt,
     "maskwindow = 10,20,40,30\nzoomdelta = .5,0\n", Held::Nothing, 1, kOld, "175,20,220,30"},
    {"a maskwindow does not drift", kOwn, kLargeAt, "maskwindow = 10,15,40,30\nvelocity = 5,2\n",
     Held::Nothing, 3, kOld, "170,15,200,30"},
    // 320 + 10
    {"a maskwindow of 640 x 480", "[StageInfo]\nlocalcoord = 640,480\n", kLarge,
     "start = 0,0\nmaskwindow = 10,15,40,30\n", Held::Nothing, 1, kTwice, "330,15,360,30"},
    // 40.5 - 10, 40.5 + 10
    {"a maskwindow of an odd width", "[StageInfo]\nlocalcoord = 81,61\n", kLarge,
     "start = -40,0\nmaskwindow = -10,20,10,30\n", Held::Nothing, 1, "81 x 61", "31,20,51,30"},
    // 10.5 is 10: 170 - 5
    {"windowdelta of a maskwindow in whole units before 1.0", "[Camera]\nstartx = 10.5\n", kLargeAt,
     "maskwindow = 10,15,40,30\nwindowdelta = .5,0\n", Held::Nothing, 1, kOld, "165,15,195,30"},
    // -.5 x 10, .25 x 20
    {"windowdelta moves a maskwindow", "[Camera]\nstartx = 10\nstarty = -20\n", kLargeAt,
     "maskwindow = 10,15,40,30\nwindowdelta = .5,.25\n", Held::Nothing, 1, kOld, "165,20,195,35"},
    // 160 + 2 (10 - 5); 2 (15 + 5)
    {"windowdelta moves a maskwindow before zoom",
     "[Camera]\nstartx = 10\nstarty = -20\nzoomin = 2\nstartzoom = 2\n", kLargeAt,
     "maskwindow = 10,15,40,30\nwindowdelta = .5,.25\n", Held::Nothing, 1, kOld, "170,40,230,70"},
    // The picture is at 320 to 420, 20 to 100. 2 (160 + 10) to 2 (160 + 40)
    {"a maskwindow of hires counts in units", kHires, kLarge,
     "start = 0,20\nmaskwindow = 10,15,40,30\n", Held::Nothing, 1, kTwice, "340,30,400,60"},
    // 340 - 2 x .5 x 10
    {"windowdelta of a maskwindow of hires", "[StageInfo]\nhires = 1\n[Camera]\nstartx = 10\n",
     kLarge, "start = 0,20\ndelta = 0,0\nmaskwindow = 10,15,40,30\nwindowdelta = .5,0\n",
     Held::Nothing, 1, kTwice, "330,30,390,60"},
    // The picture is at 320 to 470, 0 to 120.
    {"a stage's scale leaves a maskwindow", kThreeQuarters, kLarge,
     "start = 0,0\nmaskwindow = 10,15,40,30\n", Held::Nothing, 1, kTwice, "340,30,400,60"},
    // The picture is at 40 to 340, 0 to 80.
    {"a stage's scale below 0 leaves a maskwindow", "[StageInfo]\nxscale = -3\n", kLarge,
     "start = -60,0\nmaskwindow = 10,15,40,30\n", Held::Nothing, 1, kOld, "170,15,200,30"},
    {"an own scale leaves a maskwindow", kOwn, kLargeAt,
     "maskwindow = 10,15,40,30\nscalestart = 2,2\n", Held::Nothing, 1, kOld, "170,15,200,30"},
    // The picture is at 320 to 520, 40 to 200. 320 + 2 x 20 to 320 + 2 x 80; 2 x 30 to 2 x 60
    {"a maskwindow of hires is zoomed",
     "[StageInfo]\nhires = 1\n[Camera]\nzoomin = 2\nstartzoom = 2\n", kLarge,
     "start = 0,20\nmaskwindow = 10,15,40,30\n", Held::Nothing, 1, kTwice, "360,60,480,120"},
    // 170 to 200, 30 to 45, and 185 to 220, 10 to 40
    {"both windows", kOwn, kLargeAt, "window = 170,30,199,44\nmaskwindow = 25,10,60,40\n",
     Held::Nothing, 1, kOld, "185,30,200,40"},
    // 170 to 200, 30 to 45, and 180 to 280, 36 to 80
    {"both windows under zoom", kNearFromAbove, kLargeAt,
     "window = 170,30,199,44\nmaskwindow = 10,18,60,40\n", Held::Nothing, 1, kOld, "180,36,200,45"},
    // 165 to 195, and 180 to 215
    {"windowdelta moves both windows", "[Camera]\nstartx = 10\n", kLargeAt,
     "window = 170,30,199,44\nmaskwindow = 25,10,60,40\nwindowdelta = .5,0\n", Held::Nothing, 1,
     kOld, "180,30,195,40"},
    {"both windows, apart", kOwn, kLargeAt,
     "window = 170,30,179,44\nmaskwindow = 20,10,60,40\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
    // The rows are at 182, 202, 222 and 242, 16 wide; 185 to 210, 41 to 43
    {"rows in a maskwindow", kOwn, kRowsAt, "xscale = 1,3\nmaskwindow = 25,41,50,43\n",
     Held::Nothing, 1, kOld, "202,41,210,42"},
    {"tiles in a maskwindow", kSmall, kBlock, "start = 0,20\ntile = 1\nmaskwindow = -12,22,7,26\n",
     Held::Nothing, 1, "80 x 60", "28,22,47,26"},
    // The texels are 2 wide: of the columns 214 to 222 from 216 on
    {"a maskwindow between texels", kNear, kLeftPart, "start = 30,80\nmaskwindow = 28,0,100,200\n",
     Held::Nothing, 1, kOld, "216,50,222,66"},

    // Everything at once, with zoomdelta .25, .5: e = 1.5, 2.
    // X = 2 (100 + .5 (12 - 4)) = 208: 212; Y = 2 x .5 (80 + 8) = 88: 56; s = 4.5, 2
    {"all at once", kAllAtOnce, kBlock, "start = 4,80\ndelta = .5,2\nzoomdelta = .25,.5\n",
     Held::Nothing, 1, "400 x 300", "212,56,257,72"},
    // 1 + .75 x 8 x .5 / 3 = 2, .5 + .125 x 4 x 2 = 1.5: s = 9, 3: 212 - 27; 56 - 15
    {"all at once, with a scale of its own", kAllAtOnce, kPinned,
     "start = 4,80\ndelta = .5,2\nzoomdelta = .25,.5\nscalestart = 1,.5\nscaledelta = .75,-.125\n",
     Held::Nothing, 1, "400 x 300", "185,41,275,65"},
    // s = 4.5, 2 x .75: 12 x 4.5 = 54 on
    {"all at once, tiled", kAllAtOnce, kBlock,
     "start = 4,80\ndelta = .5,2\nzoomdelta = .25,.5\ntile = 2\ntilespacing = 2,0\n", Held::Nothing,
     1, "400 x 300", "212,56,257,72  266,56,311,72"},
    // 200 + 1.5 x 8 f - 36, 72 wide, 2 tall
    {"all at once, in rows", kAllAtOnce,
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 4,80\n",
     "delta = .5,2\nzoomdelta = .25,.5\nxscale = 1,2.5\n", Held::Nothing, 1, "400 x 300",
     "176,56,248,58  182,58,254,60  188,60,260,62  194,62,266,64"},
    // X = 80: 20, and 450 wide; Y = 40: -40, and 160 tall. The maskwindow goes 4 left and 4 down:
    // 2 (100 - 14) = 172: 158; 2 (100 + 26) = 252: 278; 2 x 24 = 48: -24; 2 x 54 = 108: 96.
    {"all at once, in a maskwindow", kAllAtOnce, kLarge,
     "start = -40,40\ndelta = 0,0\nzoomdelta = .25,.5\nmaskwindow = -10,20,30,50\n"
     "windowdelta = .5,1\n",
     Held::Nothing, 1, "400 x 300", "158,0,278,96"},
    // The window: 2 x 76 = 152 to 2 x 117 = 234; 2 x 14 = 28 to 2 x 45 = 90
    {"all at once, in both windows", kAllAtOnce, kLarge,
     "start = -40,40\ndelta = 0,0\nzoomdelta = .25,.5\nmaskwindow = -10,20,30,50\n"
     "window = 80,10,120,40\nwindowdelta = .5,1\n",
     Held::Nothing, 1, "400 x 300", "158,28,234,90"},
};

}  // namespace scenara::test
