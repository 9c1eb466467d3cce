// SPDX-License-Identifier: MIT
//
// Where pictures stand when the frames of their action have a scale and an angle of their own, and
// when one frame goes over into the next. Worked out by hand, one case per row, as in PlaceRows.h.
//
// In the sums a picture that is turned by 90 has its columns as rows: what is dx to the right of
// the axis and dy below it goes to dy on the right and dx above, since it turns counter-clockwise.
#pragma once

#include "literal/PlaceRows.h"

namespace scenara::test {

inline constexpr const char* kActionAt =
    "[BG]\ntype = anim\nactionno = 1\ntrans = add\nstart = 30,40\n";
inline constexpr const char* kActionLow =
    "[BG]\ntype = anim\nactionno = 1\ntrans = add\nstart = 30,80\n";
// Blended as the frames say.
inline constexpr const char* kFramesBlendAt = "[BG]\ntype = anim\nactionno = 1\nstart = 30,40\n";
inline constexpr const char* kFramesBlendOverBlockAt =
    "[BG]\ntype = normal\nspriteno = 1,0\nstart = 30,40\n"
    "[BG]\ntype = anim\nactionno = 1\nstart = 30,40\n";
inline constexpr const char* kTurnedNear =  // z = 2, G = 100
    "[Camera]\nzoomin = 2\nstartzoom = 2\n[StageInfo]\nzoffset = 100\n";

inline constexpr PlaceRow kFrameRows[] = {
    // A frame's scale.
    // 190 - 2 x 3; 40 - 3 x 5
    {"a frame's scale, about the axis", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,, 2,3\n",
     Held::Nothing, 1, kOld, "184,25,204,49"},
    {"a frame's scale of one value is the x scale", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 0,0, -1,,, 2\n", Held::Nothing, 1, kOld, "184,35,204,43"},
    {"a frame's y scale alone", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,,, 3\n",
     Held::Nothing, 1, kOld, "187,25,197,49"},
    // 190 - 1.5 = 188.5 to 193.5: texels 1 3 5 7 9, of which 1 and 3 are there; 40 - 2.5 = 37.5
    {"every other texel by a frame's scale", kOwn, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, -1,,, .5,.5\n", Held::Nothing, 1, kOld, "189,38,191,42"},
    // 190 + 2 x 4; 40 - 3 x 2
    {"a frame's scale is that of its offset, too", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 4,-2, -1,,, 2,3\n", Held::Nothing, 1, kOld, "198,34,218,58"},
    // 190 + .75 to 205.75; 40 - 2.25 = 37.75 to 49.75
    {"halves of an offset under a frame's scale", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, .5,-1.5, -1,,, 1.5,1.5\n", Held::Nothing, 1, kOld, "191,38,206,50"},
    // From 190 + 2 x 3 = 196 to 176, the last 8 of them
    {"a frame's scale below 0 mirrors", kOwn, kActionAt, "[Begin Action 1]\n4,0, 0,0, -1,,, -2,1\n",
     Held::Nothing, 1, kOld, "188,35,196,43"},
    // From 40 + 2 x 5 = 50 to 34, the last 4 of them
    {"a frame's y scale below 0", kOwn, kActionAt, "[Begin Action 1]\n4,1, 0,0, -1,,, 1,-2\n",
     Held::Nothing, 1, kOld, "187,46,197,50"},
    // 190 - 2 x 4 = 182, and 20 to the left
    {"an offset under a frame's scale below 0", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 4,0, -1,,, -2,1\n", Held::Nothing, 1, kOld, "162,40,182,48"},
    // Mirrored twice
    {"H under a frame's scale below 0", kOwn, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, -1, H,, -1,1\n", Held::Nothing, 1, kOld, "187,35,191,43"},
    // 190 + 8, from 198 - 14 to 198 + 6, the last 8 of them
    {"H, an offset and a frame's scale", kOwn, kActionAt,
     "[Begin Action 1]\n4,0, 4,0, -1, H,, 2,1\n", Held::Nothing, 1, kOld, "196,35,204,43"},
    {"a frame's scale of 0 draws nothing", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, -1,,, 0,2\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
    {"a frame's y scale of 0 draws nothing", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, -1,,, 2,0\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::Nothing, 1, kOld, "160,20,170,28"},
    {"the next frame's scale is its own", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 0,0, 2,,, 2,3\n2,0, 0,0, -1\n", Held::Nothing, 3, kOld,
     "187,35,197,43"},
    // 190 + 6, 10 x 2 x 1.5; 40 + 4, 8 x 2 x .5
    {"a frame's scale and an own one", kOwn, kActionAt,
     "scalestart = 2,2\n[Begin Action 1]\n1,0, 2,4, -1,,, 1.5,.5\n", Held::Nothing, 1, kOld,
     "196,44,226,52"},
    // The camera at 2: own 1.5. 188 + 2 x 3, 10 x 3
    {"a frame's scale and scaledelta", "[Camera]\nstartx = 2\n", kActionAt,
     "scaledelta = .25,0\n[Begin Action 1]\n1,0, 2,0, -1,,, 2,1\n", Held::Nothing, 1, kOld,
     "194,40,224,48"},
    // 350, 10 x 3; 40, 8 x .5
    {"a frame's scale of hires", kHires, kActionAt, "[Begin Action 1]\n1,0, 0,0, -1,,, 3,.5\n",
     Held::Nothing, 1, kTwice, "350,40,380,44"},
    // s = 1.5 x 1.5, 1.5 x .5: 365 to 387.5; 60 to 66
    {"a frame's scale under a scale of .75", kThreeQuarters, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, -1,,, 1.5,.5\n", Held::Nothing, 1, kTwice, "365,60,388,66"},
    // Mirrored twice: from 130 - 2 x 3
    {"a frame's scale below 0 under one below 0", kMirror, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, -1,,, -2,1\n", Held::Nothing, 1, kOld, "124,35,132,43"},
    // 220 + 3 x 2, 10 x 3; 60 - 3, 8 x 3
    {"a frame's scale under zoom", kTurnedNear, kActionLow,
     "[Begin Action 1]\n1,0, 2,-1, -1,,, 1.5,1.5\n", Held::Nothing, 1, kOld, "226,57,256,81"},
    {"a frame's scale leaves tiles' distance", kOwn, kActionAt,
     "tile = 3\ntilespacing = 15,0\n[Begin Action 1]\n1,0, 0,0, -1,,, .5,1\n", Held::Nothing, 1,
     kOld, "190,40,195,48  205,40,210,48  220,40,225,48"},
    // p = 190 + 2 x 4
    {"tiles larger by a frame's scale, with an offset", kOwn, kActionAt,
     "tile = 2\ntilespacing = 25,0\n[Begin Action 1]\n1,0, 4,0, -1,,, 2,1\n", Held::Nothing, 1,
     kOld, "198,40,218,48  223,40,243,48"},
    // 15 x 2 on, 10 x 2 x .5 wide
    {"tiles by a frame's scale and an own one", kOwn, kActionAt,
     "tile = 3\ntilespacing = 15,0\nscalestart = 2,1\n[Begin Action 1]\n1,0, 0,0, -1,,, .5,1\n",
     Held::Nothing, 1, kOld, "190,40,200,48  220,40,230,48  250,40,260,48"},
    {"a frame's scale leaves a window", kOwn, kActionAt,
     "window = 192,30,199,44\n[Begin Action 1]\n1,0, 0,0, -1,,, 2,2\n", Held::Nothing, 1, kOld,
     "192,40,200,45"},

    // Angles, of 10 x 8 pixels about 3,5: dx from -3 to 7, dy from -5 to 3.
    {"turned by 90", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing,
     1, kOld, "185,33,193,43"},
    {"turned by 180", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 180\n",
     Held::Nothing, 1, kOld, "183,37,193,45"},
    {"turned by 270", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 270\n",
     Held::Nothing, 1, kOld, "187,37,195,47"},
    {"turned by -90", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, -90\n",
     Held::Nothing, 1, kOld, "187,37,195,47"},
    {"turned by 360", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 360\n",
     Held::Nothing, 1, kOld, "187,35,197,43"},
    {"turned by 450", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 450\n",
     Held::Nothing, 1, kOld, "185,33,193,43"},
    {"an angle without scales", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,,,, 90\n",
     Held::Nothing, 1, kOld, "185,33,193,43"},
    // dx from -3 to 1: the left part comes to lie below.
    {"turned by 90: the left goes down", kOwn, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1, kOld, "185,39,193,43"},
    // dy from -5 to -3: the upper part comes to lie on the left.
    {"turned by 90: the top goes to the left", kOwn, kActionAt,
     "[Begin Action 1]\n4,1, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1, kOld, "185,33,187,43"},
    {"turned by -90: the left goes up", kOwn, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, -1,,, 1,1, -90\n", Held::Nothing, 1, kOld, "187,37,195,41"},
    // dx from -1 to 3
    {"H is turned the same way round", kOwn, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, -1, H,, 1,1, 90\n", Held::Nothing, 1, kOld, "185,37,193,41"},
    // dy from 3 to 5
    {"V is turned the same way round", kOwn, kActionAt,
     "[Begin Action 1]\n4,1, 0,0, -1, V,, 1,1, 90\n", Held::Nothing, 1, kOld, "193,33,195,43"},
    {"HV turned by 180 is as it was", kOwn, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, -1, HV,, 1,1, 180\n", Held::Nothing, 1, kOld, "187,35,191,43"},
    // 195,42
    {"an offset is not turned", kOwn, kActionAt, "[Begin Action 1]\n2,0, 5,2, -1,,, 1,1, 90\n",
     Held::Nothing, 1, kOld, "190,35,198,45"},
    // dx from -7 to 3
    {"an offset with H is not turned", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 5,2, -1, H,, 1,1, 90\n", Held::Nothing, 1, kOld, "190,39,198,49"},
    // dx from -6 to 14, dy from -15 to 9
    {"scaled first, then turned", kOwn, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,, 2,3, 90\n",
     Held::Nothing, 1, kOld, "175,26,199,46"},
    // 190 + 10, 40 + 6
    {"scaled with an offset, then turned", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 5,2, -1,,, 2,3, 90\n", Held::Nothing, 1, kOld, "185,32,209,52"},
    // dx from -2 to 6, dy from -5 to 3
    {"scaled below 0, then turned the same way round", kOwn, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, -1,,, -2,1, 90\n", Held::Nothing, 1, kOld, "185,34,193,42"},
    // dx from -6 to 2, dy from -15 to 9
    {"turned after an own scale", kOwn, kActionAt,
     "scalestart = 2,3\n[Begin Action 1]\n4,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1, kOld,
     "175,38,199,46"},
    // 350,40
    {"turned in hires", kHires, kActionAt, "[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n",
     Held::Nothing, 1, kTwice, "345,33,353,43"},
    // 220: dx from -6 to 14
    {"turned after a stage's x scale", "[StageInfo]\nxscale = 2\n", kActionAt,
     "[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1, kOld, "215,26,223,46"},
    // 130: dx from -1 to 3
    {"turned the same way round under a scale below 0", kMirror, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1, kOld, "125,37,133,41"},
    // 220,60: dx from -6 to 2, dy from -10 to 6
    {"turned under zoom", kTurnedNear, kActionLow, "[Begin Action 1]\n4,0, 0,0, -1,,, 1,1, 90\n",
     Held::Nothing, 1, kOld, "210,58,226,66"},
    // 220,80: dx from -6 to 14, dy from -5 to 3
    {"turned after zoomdelta", kTurnedNear, kActionLow,
     "zoomdelta = 1,0\n[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1, kOld,
     "215,66,223,86"},
    // 185.25 to 193.25: the centres from 185.5 to 192.5; 33.75 to 43.75: from 34.5 to 43.5
    {"turned between pixels", kOwn, "[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30.25,40.75\n[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1, kOld,
     "185,34,193,44"},
    {"tiles are turned one by one", kOwn, kActionAt,
     "tile = 2\ntilespacing = 15,0\n[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1,
     kOld, "185,33,193,43  200,33,208,43"},
    {"tiles downwards are turned one by one", kOwn, kActionAt,
     "tile = 0,2\ntilespacing = 0,20\n[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing,
     1, kOld, "185,33,193,43  185,53,193,63"},
    // 15 x 2 on; dx from -6 to 14
    {"tiles are turned after an own scale", kOwn, kActionAt,
     "tile = 2\ntilespacing = 15,0\nscalestart = 2,1\n"
     "[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n",
     Held::Nothing, 1, kOld, "185,26,193,46  215,26,223,46"},
    // 40 + 15 k; 8 wide about -5 to 3
    {"tiles without end are turned one by one", kSmall,
     "[BG]\ntype = anim\nactionno = 1\ntrans = add\nstart = 0,40\n",
     "tile = 1\ntilespacing = 15,0\n[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1,
     "80 x 60",
     "-10,33,-2,43  5,33,13,43  20,33,28,43  35,33,43,43  50,33,58,43  65,33,73,43  80,33,88,43"},
    // Before it is turned the last one goes from 85 to 95, and is outside.
    {"tiles without end: what is turned into the view is seen", kSmall,
     "[BG]\ntype = anim\nactionno = 1\ntrans = add\nstart = 45,40\n",
     "tile = 1\ntilespacing = 40,0\n[Begin Action 1]\n1,0, 0,0, -1,,, 1,1, 180\n", Held::Nothing, 1,
     "80 x 60", "-5,32,5,40  35,32,45,40  75,32,85,40"},
    {"a window of what is turned", kOwn, kActionAt,
     "window = 187,35,189,40\n[Begin Action 1]\n2,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1, kOld,
     "187,35,190,41"},
    // 210 to 226, 58 to 66, and 160 + 2 x 28 to 160 + 2 x 31, 100 - 2 x 20
    {"a maskwindow of what is turned", kTurnedNear, kActionLow,
     "maskwindow = 28,80,31,100\n[Begin Action 1]\n4,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1,
     kOld, "216,60,222,66"},
    {"the next frame's angle is its own", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 0,0, 2,,, 1,1, 90\n2,0, 0,0, -1\n", Held::Nothing, 3, kOld,
     "187,35,197,43"},
    // D = 2, middle 200, G = 120; E = 1.5, .5; the camera at 8, -4; e = 1.5, 2; own 2, 1.5:
    // s = 9, 3 x 2; 212 + 2 x 9, 56 - 6; by 270 what is dx, dy goes to -dy on the right and dx
    // below:
    // dx from -27 to 63, dy from -30 to 18
    {"all at once, turned",
     "[Info]\nmugenversion = 1.0\n"
     "[StageInfo]\nlocalcoord = 200,150\nhires = 1\nxscale = 3\nyscale = 1\nzoffset = 60\n"
     "[Camera]\nstartx = 8\nstarty = -4\nzoomin = 3\nstartzoom = 3\n",
     "[BG]\ntype = anim\nactionno = 1\ntrans = add\nstart = 4,80\n",
     "delta = .5,2\nzoomdelta = .25,.5\nscalestart = 1,.5\nscaledelta = .75,-.125\n"
     "[Begin Action 1]\n2,0, 2,-1, -1,,, 1,2, 270\n",
     Held::Nothing, 1, "400 x 300", "212,23,260,113"},
    // s = 4.5, 6: 212 + 9, 50; 221 - 13.5 to 221 + 31.5
    {"all at once, with a frame's scale",
     "[Info]\nmugenversion = 1.0\n"
     "[StageInfo]\nlocalcoord = 200,150\nhires = 1\nxscale = 3\nyscale = 1\nzoffset = 60\n"
     "[Camera]\nstartx = 8\nstarty = -4\nzoomin = 3\nstartzoom = 3\n",
     "[BG]\ntype = anim\nactionno = 1\ntrans = add\nstart = 4,80\n",
     "delta = .5,2\nzoomdelta = .25,.5\nscalestart = 1,.5\nscaledelta = .75,-.125\n"
     "[Begin Action 1]\n2,0, 2,-1, -1,,, .5,2\n",
     Held::Nothing, 1, "400 x 300", "208,20,253,68"},

    // Angles of 45. A pixel's centre is x, y from the axis; the picture has it when x - y is from
    // its left times the root of 2 to its right times that, and x + y likewise from its top to its
    // bottom. The axis is a quarter of a pixel on the right, so that no centre is on an edge: with
    // column 190 + i and row 40 + j, x - y = i - j - .25 and x + y = i + j + .75.
    // i - j from 1 to 13 or 14 (14.14), i + j from 0 to 10 (11.31)
    {"turned by 45", kOwn, "[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30.25,40\n[Begin Action 1]\n1,0, 0,0, -1,,, 1,1, 45\n", Held::Nothing, 1, kOld,
     "197,33,198,34  196,34,199,35  195,35,200,36  194,36,201,37  193,37,202,38  192,38,203,39  "
     "191,39,202,40  191,40,201,41  192,41,200,42  193,42,199,43  194,43,198,44  195,44,197,45"},
    // i - j from -13 to 0 (-14.14), i + j from 0 to 10
    {"H, turned by 45", kOwn, "[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30.25,40\n[Begin Action 1]\n1,0, 0,0, -1, H,, 1,1, 45\n", Held::Nothing, 1, kOld,
     "190,40,191,41  189,41,192,42  188,42,193,43  187,43,194,44  186,44,195,45  185,45,196,46  "
     "184,46,195,47  184,47,194,48  185,48,193,49  186,49,192,50  187,50,191,51  188,51,190,52"},
    // dx from -3 to 1: i - j from -3 to 1 (-4.24, 1.41); dy from -5 to 3: i + j from -7 to 3
    // (-7.07, 4.24)
    {"columns turned by 45", kOwn, "[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30.25,40\n[Begin Action 1]\n4,0, 0,0, -1,,, 1,1, 45\n", Held::Nothing, 1, kOld,
     "187,36,188,37  186,37,189,38  185,38,190,39  186,39,191,40  187,40,192,41  188,41,193,42  "
     "189,42,192,43  190,43,191,44"},
    // i - j from 1 to 14, i + j from 0 to 4 (5.66)
    {"scaled, then turned by 45", kOwn, "[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30.25,40\n[Begin Action 1]\n1,0, 0,0, -1,,, 1,.5, 45\n", Held::Nothing, 1, kOld,
     "197,33,198,34  196,34,199,35  195,35,200,36  194,36,199,37  193,37,198,38  192,38,197,39  "
     "191,39,196,40  191,40,195,41  192,41,194,42"},
    // x + y from 0 to 14.14: i + j from 0 to 13; y - x from 0 to 11.31: j - i from 0 to 11
    {"turned by -45", kOwn, "[BG]\ntype = anim\nactionno = 1\ntrans = add\n",
     "start = 30.25,40\n[Begin Action 1]\n1,0, 0,0, -1,,, 1,1, -45\n", Held::Nothing, 1, kOld,
     "190,40,191,41  189,41,192,42  188,42,193,43  187,43,194,44  186,44,195,45  185,45,196,46  "
     "185,46,197,47  186,47,197,48  187,48,196,49  188,49,195,50  189,50,194,51  190,51,193,52  "
     "191,52,192,53"},

    // From one frame into the next.
    {"an offset that does not go over", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\n1,0, 8,-4, -1\n", Held::Nothing, 4, kOld, "190,40,200,48"},
    {"an offset goes over: the first picture", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Offset\n1,0, 8,-4, -1\n", Held::Nothing, 1, kOld,
     "190,40,200,48"},
    {"an offset goes over: the second picture", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Offset\n1,0, 8,-4, -1\n", Held::Nothing, 2, kOld,
     "192,39,202,47"},
    {"an offset goes over: the last picture before the next frame", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Offset\n1,0, 8,-4, -1\n", Held::Nothing, 4, kOld,
     "196,37,206,45"},
    {"an offset goes over: the next frame", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Offset\n1,0, 8,-4, -1\n", Held::Nothing, 5, kOld,
     "198,36,208,44"},
    // 190 + 2.67; 40 - 1.33
    {"an offset goes over in thirds", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 3\nInterpolate Offset\n1,0, 8,-4, -1\n", Held::Nothing, 2, kOld,
     "193,39,203,47"},
    // 190 + 2 x 4; 40 - 3 x 2
    {"an offset that goes over is scaled", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4,,, 2,3\nInterpolate Offset\n1,0, 8,-4, -1\n", Held::Nothing, 3,
     kOld, "198,34,218,58"},
    // 220 + 2 x 4; 60 - 2 x 2
    {"an offset goes over under zoom", kTurnedNear, kActionLow,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Offset\n1,0, 8,-4, -1\n", Held::Nothing, 3, kOld,
     "228,56,248,72"},
    {"an offset goes over, the picture does not", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Offset\n5,0, 8,-4, -1\n", Held::Nothing, 3, kOld,
     "194,38,204,46"},
    {"an offset goes over, the others do not", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 0,0, 4\nInterpolate Offset\n2,0, 8,-4, -1, H,, 3,3, 90\n",
     Held::Nothing, 3, kOld, "191,33,201,41"},
    // 1 + 2 / 2, 1 + 1 / 2
    {"a scale goes over", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Scale\n1,0, 8,-4, -1,,, 3,2\n", Held::Nothing, 3,
     kOld, "190,40,210,52"},
    // 3 - 2 / 4
    {"a scale goes over into 1", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4,,, 3,3\nInterpolate Scale\n1,0, 0,0, -1\n", Held::Nothing, 2,
     kOld, "190,40,215,60"},
    {"a scale goes over by way of 0", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Scale\n1,0, 0,0, -1,,, -1,1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::Nothing, 3, kOld, "160,20,170,28"},
    // -.5: from 190 + 1.5 = 191.5 to 186.5: texels 8 6 4 2 0, of which 2 and 0 are there
    {"a scale goes over to below 0", kOwn, kActionAt,
     "[Begin Action 1]\n4,0, 0,0, 4\nInterpolate Scale\n4,0, 0,0, -1,,, -1,1\n", Held::Nothing, 4,
     kOld, "190,35,192,43"},
    // 2, 1.5 about 190 + 2 x 4, 40 - 1.5 x 2
    {"offset and scale go over", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Scale\nInterpolate Offset\n"
     "1,0, 8,-4, -1,,, 3,2\n",
     Held::Nothing, 3, kOld, "198,37,218,49"},
    // 90
    {"an angle goes over", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 0,0, 4\nInterpolate Angle\n2,0, 0,0, -1,,, 1,1, 360\n", Held::Nothing,
     2, kOld, "185,33,193,43"},
    // 270
    {"an angle goes over, all the way round", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 0,0, 4\nInterpolate Angle\n2,0, 0,0, -1,,, 1,1, 360\n", Held::Nothing,
     4, kOld, "187,37,195,47"},
    // -90
    {"an angle goes over clockwise", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 0,0, 2\nInterpolate Angle\n2,0, 0,0, -1,,, 1,1, -180\n", Held::Nothing,
     2, kOld, "187,37,195,47"},
    // 90
    {"an angle goes over into none", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 0,0, 2,,, 1,1, 180\nInterpolate Angle\n2,0, 0,0, -1\n", Held::Nothing,
     2, kOld, "185,33,193,43"},
    // 90 about 190 + 2 x 4, 40 + 2 x 2; dx from -6 to 14, dy from -10 to 6
    {"offset, scale and angle go over", kOwn, kActionAt,
     "[Begin Action 1]\n2,0, 0,0, 2\nInterpolate Offset\nInterpolate Scale\nInterpolate Angle\n"
     "2,0, 8,4, -1,,, 3,3, 180\n",
     Held::Nothing, 2, kOld, "188,30,204,50"},
    {"only the frame before a line goes over", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\n1,0, 8,-4, 4\nInterpolate Offset\n1,0, 16,0, -1\n",
     Held::Nothing, 3, kOld, "190,40,200,48"},
    // 8 + 8 / 2; -4 + 4 / 2
    {"the second frame goes over into the third", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\n1,0, 8,-4, 4\nInterpolate Offset\n1,0, 16,0, -1\n",
     Held::Nothing, 7, kOld, "202,38,212,46"},
    {"a frame without an end does not go over", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, -1\nInterpolate Offset\n1,0, 8,-4, -1\n", Held::Nothing, 3, kOld,
     "190,40,200,48"},
    // The last one from 8, -4, two ticks of four
    {"the last frame goes over into the first", kOwn, kActionAt,
     "[Begin Action 1]\nInterpolate Offset\n1,0, 0,0, 2\n1,0, 8,-4, 4\n", Held::Nothing, 5, kOld,
     "194,38,204,46"},
    {"the last frame goes over into the first, which does not", kOwn, kActionAt,
     "[Begin Action 1]\nInterpolate Offset\n1,0, 0,0, 2\n1,0, 8,-4, 4\n", Held::Nothing, 2, kOld,
     "190,40,200,48"},
    {"the last frame does not go over", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 2\nInterpolate Offset\n1,0, 8,-4, 4\n", Held::Nothing, 5, kOld,
     "198,36,208,44"},
    {"a line after the last frame does nothing", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 2\n1,0, 8,-4, 4\nInterpolate Offset\n", Held::Nothing, 5, kOld,
     "198,36,208,44"},
    {"the last frame goes over into that of loopstart", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 20,0, 1\nLoopstart\nInterpolate Offset\n1,0, 0,0, 2\n1,0, 8,-4, 4\n",
     Held::Nothing, 6, kOld, "194,38,204,46"},
    {"the last frame does not go over into the first with a loopstart", kOwn, kActionAt,
     "[Begin Action 1]\nInterpolate Offset\n1,0, 20,0, 1\nLoopstart\n1,0, 0,0, 2\n1,0, 8,-4, 4\n",
     Held::Nothing, 6, kOld, "198,36,208,44"},
    // The second time round: 8 / 4; -4 / 4
    {"going over begins again", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Offset\n1,0, 8,-4, 1\n", Held::Nothing, 7, kOld,
     "192,39,202,47"},

    // Blending that goes over: of 64 in each colour, 32 is 20 as the rows have it.
    // Of it 128 / 255
    {"blending goes over", kOwn, kFramesBlendAt,
     "[Begin Action 1]\n1,0, 0,0, 4,, AS256D256\nInterpolate Blend\n1,0, 0,0, -1,, AS0D256\n",
     Held::Nothing, 3, kOld, "190,40,200,48", 0x202020},
    {"blending that does not go over", kOwn, kFramesBlendAt,
     "[Begin Action 1]\n1,0, 0,0, 4,, AS256D256\n1,0, 0,0, -1,, AS0D256\n", Held::Nothing, 3, kOld,
     "190,40,200,48"},
    // D = 128: of what is there 127 / 255
    {"blending goes over: what is there", kOwn, kFramesBlendOverBlockAt,
     "[Begin Action 1]\n1,0, 0,0, 4,, AS0D0\nInterpolate Blend\n1,0, 0,0, -1,, AS0D256\n",
     Held::Nothing, 3, kOld, "190,40,200,48", 0x202020},
    // From 256, 0: S = 192, D = 0
    {"blending goes over from none", kOwn, kFramesBlendOverBlockAt,
     "[Begin Action 1]\n1,0, 0,0, 4\nInterpolate Blend\n1,0, 0,0, -1,, AS0D0\n", Held::Nothing, 2,
     kOld, "190,40,200,48", 0x303030},
    // To 256, 0: S = 64, D = 0
    {"blending goes over into none", kOwn, kFramesBlendOverBlockAt,
     "[Begin Action 1]\n1,0, 0,0, 4,, AS0D0\nInterpolate Blend\n1,0, 0,0, -1\n", Held::Nothing, 2,
     kOld, "190,40,200,48", 0x101010},
    {"blending of an element does not go over", kOwn, kActionAt,
     "[Begin Action 1]\n1,0, 0,0, 4,, AS256D256\nInterpolate Blend\n1,0, 0,0, -1,, AS0D256\n",
     Held::Nothing, 3, kOld, "190,40,200,48"},
    {"an offset goes over, blending does not", kOwn, kFramesBlendAt,
     "[Begin Action 1]\n1,0, 0,0, 4,, AS128D256\nInterpolate Offset\n1,0, 8,-4, -1,, AS0D256\n",
     Held::Nothing, 3, kOld, "194,38,204,46", 0x202020},
};

}  // namespace scenara::test
