// SPDX-License-Identifier: MIT
//
// Where the rows of parallax elements stand, and how long they are, when `width` gives the lengths
// of the first and the last one, and when their picture is that of an action. Worked out by hand,
// one case per row, as in PlaceRows.h.
//
// In the sums f is a row's share of the first one's length, 1 at the top.
#pragma once

#include "literal/PlaceRows.h"

namespace scenara::test {

inline constexpr const char* kRowsLow =
    "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 30,80\n";
// 10 x 8, axis 3,5; of the second one only columns 0 to 3 are there.
inline constexpr const char* kPinnedRowsAt =
    "[BG]\ntype = parallax\nspriteno = 2,0\ntrans = add\nstart = 30,40\n";
inline constexpr const char* kLeftPartRowsAt =
    "[BG]\ntype = parallax\nspriteno = 4,0\ntrans = add\nstart = 30,40\n";
inline constexpr const char* kMovingRowsAt =
    "[BG]\ntype = parallax\nactionno = 1\ntrans = add\nstart = 30,40\n";

inline constexpr PlaceRow kWidthRows[] = {
    // Widths. With 20,50 f = 1, 1.5, 2 and 2.5: 20, 30, 40 and 50 wide.
    // 190 - 10 = 180; 160 + 20 f
    {"wider downwards", kOwn, kRowsAt, "width = 20,50\n", Held::Nothing, 1, kOld,
     "180,40,200,41  190,41,220,42  200,42,240,43  210,43,260,44"},
    // f = 1, .8, .6, .4: 190 - 20 = 170; 160 + 10 f
    {"narrower downwards", kOwn, kRowsAt, "width = 40,16\n", Held::Nothing, 1, kOld,
     "170,40,210,41  168,41,200,42  166,42,190,43  164,43,180,44"},
    // f = 1, 2 / 3, 1 / 3, 0: 190 - 9 = 181; 160 + 21 f; 18, 12, 6 and 0 wide
    {"down to nothing", kOwn, kRowsAt, "width = 18,0\n", Held::Nothing, 1, kOld,
     "181,40,199,41  174,41,186,42  167,42,173,43"},
    // f = 1, 1.1, 1.2, 1.3: 190 - 5.25 = 184.75; 160 + 24.75 f = 184.75, 187.225, 189.7, 192.175;
    // 10.5, 11.55, 12.6, 13.65 wide: 195.25, 198.775, 202.3, 205.825
    {"both ends of a row are rounded", kOwn, kRowsAt, "width = 10.5,13.65\n", Held::Nothing, 1,
     kOld, "185,40,195,41  187,41,199,42  190,42,202,43  192,43,206,44"},
    // 130 - 10 = 120; 160 - 40 f
    {"widths to the left of the middle", kOwn,
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = -30,40\n", "width = 20,50\n",
     Held::Nothing, 1, kOld, "120,40,140,41  100,41,130,42  80,42,120,43  60,43,110,44"},
    // 160 - 10 f
    {"widths in the middle", kOwn,
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 0,40\n", "width = 20,50\n",
     Held::Nothing, 1, kOld, "150,40,170,41  145,41,175,42  140,42,180,43  135,43,185,44"},
    // 190 - 10, not 3 x 2; 40 - 5
    {"a width is about the picture's middle, whatever the axis", kOwn, kPinnedRowsAt,
     "width = 20,20\n", Held::Nothing, 1, kOld, "180,35,200,43"},
    {"a width leaves out a frame's offset to the side", kOwn, kMovingRowsAt,
     "width = 20,20\n[Begin Action 1]\n2,0, 5,2, -1\n", Held::Nothing, 1, kOld, "180,37,200,45"},
    // The texels are 2 wide: 4 of them
    {"columns of a width", kOwn, kLeftPartRowsAt, "width = 20,20\n", Held::Nothing, 1, kOld,
     "180,35,188,43"},
    // 20 texels on 10 columns: c shows texel 2 c + 1 of 10 in 5
    // 190 - 2.5 = 187.5 to 192.5: texels 1 3 5 7 9, of which 1 and 3 are there
    {"columns of a width of half the picture", kOwn, kLeftPartRowsAt, "width = 5,5\n",
     Held::Nothing, 1, kOld, "188,35,190,43"},
    // 10 wide, and each texel has a pixel
    {"columns of a width under an own scale", kOwn, kLeftPartRowsAt,
     "width = 5,5\nscalestart = 2,1\n", Held::Nothing, 1, kOld, "185,35,189,43"},
    {"columns of a width, mirrored", kOwn, kMovingRowsAt,
     "width = 20,20\n[Begin Action 1]\n4,0, 0,0, -1, H\n", Held::Nothing, 1, kOld, "192,35,200,43"},
    {"a width goes before xscale", kOwn, kRowsAt, "xscale = 1,3\nwidth = 20,50\n", Held::Nothing, 1,
     kOld, "180,40,200,41  190,41,220,42  200,42,240,43  210,43,260,44"},
    {"a width of one value is none", kOwn, kRowsAt, "xscale = 1,3\nwidth = 20\n", Held::Nothing, 1,
     kOld, "182,40,198,41  202,41,218,42  222,42,238,43  242,43,258,44"},
    {"a width of 0 at the top is none", kOwn, kRowsAt, "xscale = 1,3\nwidth = 0,50\n",
     Held::Nothing, 1, kOld, "182,40,198,41  202,41,218,42  222,42,238,43  242,43,258,44"},
    {"a width below 0 at the top is none", kOwn, kRowsAt, "xscale = 1,3\nwidth = -5,50\n",
     Held::Nothing, 1, kOld, "182,40,198,41  202,41,218,42  222,42,238,43  242,43,258,44"},
    {"a width is for parallax rows", kOwn, kBlockAt, "width = 20,50\n", Held::Nothing, 1, kOld,
     "190,40,200,48"},
    // 160 + 30 + 12 - 2 x 10 = 182: 172; 160 + 12 f
    {"widths, drift and camera", "[Camera]\nstartx = 10\n", kRowsAt,
     "width = 20,50\ndelta = 2\nvelocity = 12\n", Held::Nothing, 2, kOld,
     "172,40,192,41  178,41,208,42  184,42,224,43  190,43,240,44"},
    // D = 2, s = 1: 350 - 10 = 340; 320 + 20 f
    {"widths of hires", kHires, kRowsAt, "width = 20,50\n", Held::Nothing, 1, kTwice,
     "340,40,360,41  350,41,380,42  360,42,400,43  370,43,420,44"},
    // s = 1.5: 365 - 15 = 350; 320 + 30 f; rows from 60, 61.5, 63, 64.5 to 66
    {"widths under a scale", kThreeQuarters, kRowsAt, "width = 20,50\n", Held::Nothing, 1, kTwice,
     "350,60,380,62  365,62,410,63  380,63,440,65  395,65,470,66"},
    // 130 - 10 = 120, the last 8 of 20
    {"widths under a scale below 0 are mirrored", kMirror, kLeftPartRowsAt, "width = 20,20\n",
     Held::Nothing, 1, kOld, "132,35,140,43"},
    // Upwards from 40
    {"widths under a y scale below 0", "[StageInfo]\nyscale = -1\n",
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 30,-40\n", "width = 20,50\n",
     Held::Nothing, 1, kOld, "180,39,200,40  190,38,220,39  200,37,240,38  210,36,260,37"},
    // 190 - 20 = 170; 160 + 10 f; 40, 60, 80 and 100 wide, 3 tall
    {"widths under an own scale", kOwn, kRowsAt, "width = 20,50\nscalestart = 2,3\n", Held::Nothing,
     1, kOld, "170,40,210,43  175,43,235,46  180,46,260,49  185,49,285,52"},
    // 40 - 2 x 2 to 40 + 2 x 2
    {"widths of rows twice as tall, about the axis", kOwn, kRowsAboutAxisAt,
     "width = 20,50\nyscalestart = 50\n", Held::Nothing, 1, kOld,
     "180,36,200,38  190,38,220,40  200,40,240,42  210,42,260,44"},
    {"widths are tiled by each row's own", kOwn, kRowsAt, "width = 20,50\ntile = 2\n",
     Held::Nothing, 1, kOld, "180,40,220,41  190,41,250,42  200,42,280,43  210,43,310,44"},
    {"widths are tiled without end", kOwn, kRowsAt, "width = 20,50\ntile = 1\n", Held::Nothing, 1,
     kOld, "0,40,320,44"},
    // 220 - 20 = 200; 160 + 40 f; 40, 60, 80 and 100 wide, 2 tall
    {"widths under zoom", "[Camera]\nzoomin = 2\nstartzoom = 2\n[StageInfo]\nzoffset = 100\n",
     kRowsLow, "width = 20,50\n", Held::Nothing, 1, kOld,
     "200,60,240,62  220,62,280,64  240,64,320,66  260,66,360,68"},
    // e = 1.5, 1: 205 - 15 = 190; 160 + 30 f; 30, 45, 60 and 75 wide
    {"widths and zoomdelta", "[Camera]\nzoomin = 2\nstartzoom = 2\n[StageInfo]\nzoffset = 100\n",
     kRowsLow, "width = 20,50\nzoomdelta = .5,0\n", Held::Nothing, 1, kOld,
     "190,80,220,81  205,81,250,82  220,82,280,83  235,83,310,84"},
    // 185 to 210, 41 to 43
    {"widths in a maskwindow", kOwn, kRowsAt, "width = 20,50\nmaskwindow = 25,41,50,43\n",
     Held::Nothing, 1, kOld, "190,41,210,42  200,42,210,43"},
    // D = 2, middle 200, G = 120; E = 1.5, .5; e = 1.5, 2: X = 208: 212, Y = 88: 56;
    // 8 x 4.5 = 36: 212 - 18 = 194; 200 - 6 f; 36, 54, 72 and 90 wide, 2 tall
    {"widths, all at once",
     "[Info]\nmugenversion = 1.0\n"
     "[StageInfo]\nlocalcoord = 200,150\nhires = 1\nxscale = 3\nyscale = 1\nzoffset = 60\n"
     "[Camera]\nstartx = 8\nstarty = -4\nzoomin = 3\nstartzoom = 3\n",
     "[BG]\ntype = parallax\nspriteno = 6,0\ntrans = add\nstart = 4,80\n",
     "delta = .5,2\nzoomdelta = .25,.5\nwidth = 8,20\n", Held::Nothing, 1, "400 x 300",
     "194,56,230,58  191,58,245,60  188,60,260,62  185,62,275,64"},

    // Parallax elements that show an action. The speeds are 1, 5 / 3, 7 / 3 and 3.
    {"rows of an action's first frame", kOwn, kMovingRowsAt,
     "xscale = 1,3\n[Begin Action 1]\n6,0, 0,0, 2\n6,1, 0,0, -1\n", Held::Nothing, 2, kOld,
     "182,40,198,41  202,41,218,42  222,42,238,43  242,43,258,44"},
    // 2 higher
    {"rows of an action's second frame", kOwn, kMovingRowsAt,
     "xscale = 1,3\n[Begin Action 1]\n6,0, 0,0, 2\n6,1, 0,0, -1\n", Held::Nothing, 3, kOld,
     "182,38,198,39  202,39,218,40  222,40,238,41  242,41,258,42"},
    {"rows of an action that begins again", kOwn, kMovingRowsAt,
     "xscale = 1,3\n[Begin Action 1]\n6,0, 0,0, 2\n6,1, 0,0, 1\n", Held::Nothing, 4, kOld,
     "182,40,198,41  202,41,218,42  222,42,238,43  242,43,258,44"},
    {"widths of an action's second frame", kOwn, kMovingRowsAt,
     "width = 20,50\n[Begin Action 1]\n6,0, 0,0, 2\n6,1, 0,0, -1\n", Held::Nothing, 3, kOld,
     "180,38,200,39  190,39,220,40  200,40,240,41  210,41,260,42"},
    {"an action goes before a picture", kOwn, kRowsAt,
     "actionno = 1\n[Begin Action 1]\n6,1, 0,0, -1\n", Held::Nothing, 1, kOld, "182,38,198,42"},
    {"rows of a blank frame", kOwn, kMovingRowsAt,
     "[Begin Action 1]\n-1,0, 0,0, 2\n6,1, 0,0, -1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\ntrans = add\nstart = 0,20\n",
     Held::Nothing, 2, kOld, "160,20,170,28"},
    // 160 + 30 f - 16, 32 wide, 3 tall
    {"rows of a frame's scale", kOwn, kMovingRowsAt,
     "xscale = 1,3\n[Begin Action 1]\n6,0, 0,0, -1,,, 2,3\n", Held::Nothing, 1, kOld,
     "174,40,206,43  194,43,226,46  214,46,246,49  234,49,266,52"},
    {"rows are not turned", kOwn, kMovingRowsAt,
     "xscale = 1,3\n[Begin Action 1]\n6,0, 0,0, -1,,, 1,1, 90\n", Held::Nothing, 1, kOld,
     "182,40,198,41  202,41,218,42  222,42,238,43  242,43,258,44"},
    {"rows with widths are not turned", kOwn, kMovingRowsAt,
     "width = 20,50\n[Begin Action 1]\n6,0, 0,0, -1,,, 1,1, 45\n", Held::Nothing, 1, kOld,
     "180,40,200,41  190,41,220,42  200,42,240,43  210,43,260,44"},
    // 8 x 1 / 4 = 2, -4 x 1 / 4 = -1
    {"rows with an offset that goes over", kOwn, kMovingRowsAt,
     "xscale = 1,3\n[Begin Action 1]\n6,0, 0,0, 4\nInterpolate Offset\n6,0, 8,-4, -1\n",
     Held::Nothing, 2, kOld, "184,39,200,40  204,40,220,41  224,41,240,42  244,42,260,43"},
};

}  // namespace scenara::test
