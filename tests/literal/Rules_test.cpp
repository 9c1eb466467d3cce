// SPDX-License-Identifier: MIT
//
// One rule per row: the program and the renderer that does it the long way draw the same, and what
// the row adds is seen.
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "frames/ContactSheet.h"
#include "literal/Comparison.h"

namespace scenara::test {
namespace {

enum class Held { Nothing, Right, Left, Up };

struct Row {
    const char* rule;
    bool additions;
    Held held;
    int frames;
    const char* before;  // in front of what the row adds
    const char* adds;
};
void PrintTo(const Row& row, std::ostream* out) {
    *out << row.rule;
}

constexpr bool kPlain = false;
constexpr bool kAdditions = true;

constexpr const char* kArrow =
    "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 10,100\nid = 1\n";
constexpr const char* kMaskedArrow =
    "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 10,100\nid = 1\nmask = 1\n";
constexpr const char* kTile = "[BG tile]\ntype = normal\nspriteno = 2,0\nstart = 0,60\n";
constexpr const char* kTileBelow = "[BG tile]\ntype = normal\nspriteno = 2,0\nstart = 10,90\n";
constexpr const char* kFloor =
    "[BG floor]\ntype = parallax\nspriteno = 3,0\nstart = 0,160\ndelta = 1,1\n";
// What is added goes on with the action.
constexpr const char* kBars =
    "[BG bars]\ntype = anim\nactionno = 1\nstart = 20,100\n"
    "[Begin Action 1]\n4,0, 0,0, 3\n";
constexpr const char* kOverAndArrow =
    "[BG over]\ntype = normal\nspriteno = 2,0\nstart = 0,80\nlayerno = 1\n"
    "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 10,100\n";
constexpr const char* kAnimated = "[BG bars]\ntype = anim\nactionno = 1\nstart = 20,100\n";
constexpr const char* kBarsTwice =
    "[BG bars]\ntype = anim\nactionno = 1\nstart = 20,100\n[Begin Action 1]\n4,0, 0,0, 3\n";
constexpr const char* kDummyAndLinked =
    "[BG lead]\ntype = dummy\nstart = -40,90\nid = 7\nvelocity = 2,1\n"
    "[BG follows]\ntype = normal\nspriteno = 1,0\nstart = 20,10\n";
constexpr const char* kDriftAndControl =
    "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 10,100\nid = 1\nvelocity = 2,1\n"
    "[BGCtrlDef]\nctrlid = 1\n[BGCtrl]\n";
constexpr const char* kControl =
    "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 10,100\nid = 1\n"
    "[BGCtrlDef]\nctrlid = 1\n[BGCtrl]\ntime = 1, 3\n";
constexpr const char* kTwoControlled =
    "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 10,100\nid = 1\n"
    "[BG tile]\ntype = normal\nspriteno = 2,0\nstart = 10,150\nid = 2\n"
    "[BGCtrlDef]\nctrlid = 1\n[BGCtrl]\ntime = 1\n";
constexpr const char* kAnimControl =
    "[Begin Action 1]\n4,0, 0,0, 3\n4,3, 0,0, 2\n[Begin Action 2]\n4,1, 0,0, 2\n4,2, 0,0, 4\n"
    "[BG bars]\ntype = anim\nactionno = 1\nstart = 20,100\nid = 1\n"
    "[BGCtrlDef]\nctrlid = 1\n[BGCtrl]\ntime = 2\n";
constexpr const char* kAdded =
    "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = 10,100\nvelocity = 2,1\nid = 1\n"
    "[BGCtrlDef]\nctrlid = 1\n[BGCtrl]\ntype = posadd\nx = 5\ny = 2\n";

constexpr const char* kNothingIsSeen = "[BGCtrlDef]\n[BGCtrl]\ntype = visible\nvalue = 0\n";

constexpr Row kRows[] = {
    // Elements that stand still.
    {"colour 0 is left out with a mask", kPlain, Held::Nothing, 1, kArrow, "mask = 1\n"},
    {"a mask of 2 is none", kPlain, Held::Nothing, 1, kMaskedArrow, "mask = 2\n"},
    {"start counts from the middle", kPlain, Held::Nothing, 1, kArrow, "start = -70,50\n"},
    {"the start of the camera", kPlain, Held::Nothing, 1, kArrow,
     "[Camera]\nstartx = 33\nstarty = -12\n"},
    {"the camera's start is kept within the bounds", kPlain, Held::Nothing, 1, kArrow,
     "delta = 0.25, 0.25\n[Camera]\nstartx = 500\nstarty = -500\n"},
    {"and to the left", kPlain, Held::Nothing, 1, kArrow,
     "delta = 0.25\n[Camera]\nstartx = -500\n"},
    {"rounding, ties to even", kPlain, Held::Nothing, 4, kArrow, "velocity = 0.5, -0.5\n"},
    {"layers", kPlain, Held::Nothing, 1, kOverAndArrow, "layerno = 1\n"},
    {"both layers: moved twice", kPlain, Held::Nothing, 5, kArrow, "velocity = 3\nlayerno = -1\n"},
    // Tiles.
    {"three tiles", kPlain, Held::Nothing, 1, kTile, "tile = 3\n"},
    {"two by two", kPlain, Held::Nothing, 1, kTile, "tile = 2,2\n"},
    {"without end", kPlain, Held::Nothing, 1, kTile, "tile = 1,1\n"},
    {"with gaps", kPlain, Held::Nothing, 1, kTile, "tile = 1,1\ntilespacing = 7,11\n"},
    {"upon one another", kPlain, Held::Nothing, 1, kMaskedArrow, "tile = 5\ntilespacing = -30,0\n"},
    {"a distance of 0: one", kPlain, Held::Nothing, 1, kMaskedArrow,
     "tile = 5,1\ntilespacing = -40,0\n"},
    {"a distance below 0: none", kPlain, Held::Nothing, 1, kArrow,
     "tile = 5\ntilespacing = -45,0\n"},
    {"an animation's distance", kPlain, Held::Nothing, 1, kBarsTwice,
     "[BG b]\ntype = anim\nactionno = 1\ntile = 3\ntilespacing = 20\n"},
    {"an animation without a distance", kPlain, Held::Nothing, 1, kBarsTwice,
     "[BG b]\ntype = anim\nactionno = 1\ntile = 1\n"},
    // Camera.
    {"the camera to the right", kPlain, Held::Right, 9, kArrow, "delta = 0.75\n"},
    {"the camera to the left", kPlain, Held::Left, 9, kArrow, "delta = 0.75\n"},
    {"the camera upwards", kAdditions, Held::Up, 9, kArrow, "delta = 1, 0.25\n"},
    {"the bound stops it", kPlain, Held::Right, 12, kArrow, "[Camera]\nboundright = 7\n"},
    {"the upper bound is raised", kPlain, Held::Up, 20, "[BG sky]\ntype = normal\nspriteno = 2,0\n",
     "start = 0,-9\n"},
    {"a row's own speed", kPlain, Held::Right, 9, kFloor, "xscale = 1,2\n"},
    {"rows of a top of 0", kPlain, Held::Right, 9, kFloor, "xscale = 0,2\n"},
    // Motion.
    {"drift", kPlain, Held::Nothing, 5, kArrow, "velocity = 1.5, -0.75\n"},
    {"swing", kPlain, Held::Nothing, 7, kArrow, "sin.y = 12, 9, 2\n"},
    {"links follow drift and swing", kPlain, Held::Nothing, 6, kArrow,
     "velocity = 2,1\nsin.y = 9,7,1\n"
     "[BG b]\ntype = normal\nspriteno = 2,0\nstart = 30,10\npositionlink = 1\nvelocity = 1\n"},
    {"links take their parent's delta", kPlain, Held::Right, 6, kArrow,
     "delta = 0.5\n"
     "[BG b]\ntype = normal\nspriteno = 2,0\nstart = 30,10\npositionlink = 1\ndelta = 3\n"},
    {"a dummy is not enabled", kPlain, Held::Nothing, 6, kDummyAndLinked, "positionlink = 1\n"},
    {"a dummy carries", kAdditions, Held::Nothing, 6, kDummyAndLinked, "positionlink = 1\n"},
    // Windows.
    {"a window", kPlain, Held::Nothing, 1, kArrow, "window = 160,75,180,90\n"},
    {"a window's corners in any order", kPlain, Held::Nothing, 1, kArrow,
     "window = 180,90,160,75\n"},
    {"a window moves", kAdditions, Held::Right, 9, kTileBelow,
     "tile = 1,1\nwindow = 60,75,180,90\nwindowdelta = 1.5,0\n"},
    // Animations.
    {"times", kPlain, Held::Nothing, 4, kBars, "4,1, 5,-4, 2\n"},
    {"the first frame comes again", kPlain, Held::Nothing, 5, kAnimated,
     "[Begin Action 1]\n4,0, 0,0, 2\n4,1, 0,0, 2\n"},
    {"a frame of time 0 is passed over", kPlain, Held::Nothing, 4, kBars,
     "4,2, 0,0, 0\n4,3, 0,0, 2\n"},
    {"Loopstart", kPlain, Held::Nothing, 6, kBars, "Loopstart\n4,1, 0,0, 1\n4,2, 0,0, 1\n"},
    {"Loopstart after the last frame", kPlain, Held::Nothing, 6, kBars,
     "4,1, 0,0, 2\n4,2, 0,0, 1\nLoopstart\n"},
    {"for ever", kPlain, Held::Nothing, 9, kBars, "4,1, 0,0, -1\n4,2, 0,0, 2\n"},
    {"H within the rectangle", kPlain, Held::Nothing, 1, kAnimated,
     "[Begin Action 1]\n1,0, 0,0, 2, H\n"},
    {"H about the axis", kAdditions, Held::Nothing, 1, kAnimated,
     "[Begin Action 1]\n4,3, 30,0, 2, H\n"},
    {"HV about the axis", kAdditions, Held::Nothing, 1, kAnimated,
     "[Begin Action 1]\n1,0, 0,0, 2, HV\n"},
    {"V and tiles", kAdditions, Held::Nothing, 1, kAnimated,
     "tile = 3\ntilespacing = 50\n[Begin Action 1]\n1,0, 0,0, 2, V\n"},
    // Controllers.
    {"visible", kPlain, Held::Nothing, 3, kControl, "type = visible\nvalue = 0\n"},
    {"hidden, so not drifting", kPlain, Held::Nothing, 7, kDriftAndControl,
     "type = visible\nvalue = 0\ntime = 2,3,4\n"},
    {"enable", kPlain, Held::Nothing, 3, kControl, "type = enable\nvalue = 0\n"},
    {"velset", kPlain, Held::Nothing, 6, kControl, "type = velset\nx = 2\n"},
    {"veladd adds up", kPlain, Held::Nothing, 6, kControl, "type = veladd\nx = 1\ny = 2\n"},
    {"posset counts from the start", kPlain, Held::Nothing, 6, kAdded,
     "time = 0,2\n[BGCtrl]\ntype = posset\nx = 1\ntime = 4\n"},
    {"posadd adds up", kPlain, Held::Nothing, 6, kControl, "type = posadd\nx = 4\ny = -2\n"},
    {"anim begins anew", kPlain, Held::Nothing, 6, kAnimControl, "type = anim\nvalue = 2\n"},
    {"sinx", kPlain, Held::Nothing, 8, kControl, "type = sinx\nvalue = 20, 9\n"},
    {"siny", kPlain, Held::Nothing, 8, kControl, "type = siny\nvalue = 20, 9\n"},
    {"a disabled animation stands still", kPlain, Held::Nothing, 8, kAnimControl,
     "type = enable\nvalue = 0\n[BGCtrl]\ntype = enable\nvalue = 1\ntime = 6\n"},
    {"anim shows the first frame", kPlain, Held::Nothing, 5, kAnimControl,
     "time = 4\ntype = anim\nvalue = 1\n"},
    {"an end before the start", kPlain, Held::Nothing, 6, kControl,
     "type = posadd\nx = 4\ntime = 3,1\n"},
    {"a list of its own", kPlain, Held::Nothing, 6, kTwoControlled,
     "type = posadd\nx = 40\nctrlid = 2\n"},
    {"a list of nobody", kPlain, Held::Nothing, 6, kTwoControlled,
     "type = posadd\nx = 40\nctrlid = -1\n"},
    {"a loop of its own", kPlain, Held::Nothing, 9, kControl,
     "type = posadd\nx = 4\ntime = 1,1,3\n"},
    {"the group's loop", kPlain, Held::Nothing, 9, kArrow,
     "[BGCtrlDef]\nlooptime = 3\n[BGCtrl]\ntype = posadd\nx = 4\ntime = 1\n"},
    // Blending.
    {"add", kAdditions, Held::Nothing, 1, kArrow, "trans = add\n"},
    {"add1", kAdditions, Held::Nothing, 1, kArrow, "trans = add1\n"},
    {"sub", kAdditions, Held::Nothing, 1, kArrow, "trans = sub\n"},
    {"addalpha", kAdditions, Held::Nothing, 1, kArrow, "trans = addalpha\nalpha = 100,180\n"},
    {"add with alpha", kAdditions, Held::Nothing, 1, kArrow, "trans = add\nalpha = 100,180\n"},
    {"a frame's own blending", kAdditions, Held::Nothing, 1, kAnimated,
     "[Begin Action 1]\n1,0, 0,0, 2, , AS128D64\n"},
    {"none leaves it to the frames before 1.0", kAdditions, Held::Nothing, 1, kAnimated,
     "trans = none\n[Begin Action 1]\n1,0, 0,0, 2, , A\n"},
    {"none is none from 1.0 on", kAdditions, Held::Nothing, 1, kAnimated,
     "trans = none\n[Info]\nmugenversion = 1.0\n[Begin Action 1]\n1,0, 0,0, 2, , A\n"},
    // What is seen where nothing is, and what moves.
    {"black where nothing is", kAdditions, Held::Nothing, 3, kArrow,
     "[BGCtrlDef]\n[BGCtrl]\ntype = visible\nvalue = 0\ntime = 1\n"},
    {"a colour where nothing is", kAdditions, Held::Nothing, 1, kNothingIsSeen,
     "[BGdef]\nbgclearcolor = 10,20,300\n"},
    {"magenta where nothing is", kAdditions, Held::Nothing, 1, kNothingIsSeen,
     "[BGdef]\ndebugbg = 1\nbgclearcolor = 10,20,30\n"},
    {"no other debugbg", kAdditions, Held::Nothing, 1, kNothingIsSeen,
     "[BGdef]\ndebugbg = 2\nbgclearcolor = 10,20,30\n"},
    {"a whole swing in a period", kAdditions, Held::Nothing, 4, kArrow, "sin.y = 20,12\n"},
    {"the phase in degrees", kAdditions, Held::Nothing, 1, kArrow, "sin.x = 20,12,90\n"},
    {"a period below 0: no swing", kAdditions, Held::Nothing, 4, kArrow,
     "sin.y = 20,-12,90\nsin.x = 5,8\n"},
    {"a controller's swing begins in its own frame", kAdditions, Held::Nothing, 6, kControl,
     "type = siny\nvalue = 20, 9, 2\n"},
    {"a controller's type after its value", kAdditions, Held::Nothing, 6, kControl,
     "value = 20, 9\ntype = siny\n"},
    {"a linked element swings with its parent", kAdditions, Held::Nothing, 4, kArrow,
     "sin.y = 20,12\n[BG linked]\ntype = normal\nspriteno = 2,0\npositionlink = 1\n"},
    {"a disabled element does not swing", kAdditions, Held::Nothing, 9, kArrow,
     "sin.y = 20,12\n[BGCtrlDef]\nctrlid = 1\n[BGCtrl]\ntype = enable\nvalue = 0\ntime = 2\n"
     "[BGCtrl]\ntype = enable\nvalue = 1\ntime = 7\n"},
    {"an element without a picture carries no swing", kAdditions, Held::Nothing, 9,
     "[BG lead]\ntype = normal\nspriteno = 99,0\nstart = -40,90\nsin.y = 40,30\n",
     "[BG follows]\ntype = normal\nspriteno = 1,0\nstart = 20,10\npositionlink = 1\n"},
    {"hidden elements drift on", kAdditions, Held::Nothing, 9, kDriftAndControl,
     "type = visible\nvalue = 0\ntime = 2\n[BGCtrl]\ntype = visible\nvalue = 1\ntime = 7\n"
     "[BGCtrl]\ntype = posadd\nx = 1\ntime = 8\n"},
    {"enabled is enable", kAdditions, Held::Nothing, 2, kControl, "type = enabled\nvalue = 0\n"},
    {"both layers: moved once", kAdditions, Held::Nothing, 5, kArrow,
     "velocity = 3\nlayerno = -1\n"},
    {"an unknown kind carries its links", kAdditions, Held::Nothing, 5,
     "[BG lead]\ntype = water\nstart = -40,90\nvelocity = 4\n",
     "[BG follows]\ntype = normal\nspriteno = 1,0\nstart = 20,10\npositionlink = 1\n"},
    // Frames, rows and fractions.
    {"animations without a distance stand side by side", kAdditions, Held::Nothing, 1, kAnimated,
     "tile = 3,2\n[Begin Action 1]\n1,0, 0,0, 9\n"},
    {"mirrored tiles", kAdditions, Held::Nothing, 1, kAnimated,
     "tile = 3,2\ntilespacing = 60,50\n[Begin Action 1]\n1,0, 0,0, 9, H\n"},
    {"a still element without a picture shows an action", kAdditions, Held::Nothing, 1, "",
     "[BG a]\ntype = normal\nactionno = 1\nstart = 0,90\ntile = 2\n"
     "[Begin Action 1]\n1,0, 3,4, 9, H\n"},
    {"a still element with a picture shows that", kAdditions, Held::Nothing, 1,
     "[Begin Action 1]\n1,0, 3,4, 9, H\n[BG a]\ntype = normal\nspriteno = 2,0\n",
     "start = 0,90\nactionno = 1\n"},
    {"a parallax element shows an action", kAdditions, Held::Right, 9,
     "[Begin Action 1]\n1,0, 3,4, 5, H\n4,1, 0,0, 3\n"
     "[BG a]\ntype = parallax\nspriteno = 3,0\nstart = 20,90\n",
     "xscale = 1,3\nactionno = 1\n"},
    {"rows are sheared from the middle", kAdditions, Held::Nothing, 1,
     "[BG floor]\ntype = parallax\nspriteno = 3,0\nstart = 60,150\n", "xscale = 1,2\n"},
    {"rows are stretched about the axis", kAdditions, Held::Nothing, 1, kFloor,
     "yscalestart = 60\nxscale = 1,2\n"},
    {"and shrunk", kAdditions, Held::Up, 9, kFloor, "yscaledelta = -7\n"},
    {"halves of a start", kAdditions, Held::Nothing, 1,
     "[BG arrow]\ntype = normal\nspriteno = 1,0\n", "start = 10.75,101.5\n"},
    {"halves of an offset", kAdditions, Held::Nothing, 1, kAnimated,
     "start = 0.5,90.5\n[Begin Action 1]\n1,0, 0.5,-1.5, 9\n"},
    {"a distance below 0: one", kAdditions, Held::Nothing, 3, kMaskedArrow,
     "velocity = 9,0\ntile = 5\ntilespacing = -45,0\n"},
    // The stage's own size.
    {"hires", kAdditions, Held::Nothing, 1, kArrow, "[StageInfo]\nhires = 1\n"},
    {"a space of its own", kAdditions, Held::Nothing, 1, kArrow,
     "[StageInfo]\nlocalcoord = 427,241\n"},
    {"a scale", kAdditions, Held::Nothing, 1, kMaskedArrow,
     "[StageInfo]\nxscale = .6\nyscale = 1.7\n"},
    {"a scale below 0", kAdditions, Held::Nothing, 1,
     "[BG arrow]\ntype = normal\nspriteno = 1,0\nmask = 1\n",
     "start = 10,-80\n[StageInfo]\nxscale = -1.3\nyscale = -.8\n"},
    {"a scale below 0 mirrors mirrored frames", kAdditions, Held::Nothing, 1, kAnimated,
     "[Begin Action 1]\n1,0, 9,-4, 2, H\n[StageInfo]\nxscale = -1.3\n"},
    {"a scale beyond all bounds", kAdditions, Held::Right, 3, kMaskedArrow,
     "start = 0,5\ndelta = 40\ntile = 3,2\n[StageInfo]\nxscale = 3e9\nyscale = -2e30\n"},
    {"rows of a scale beyond all bounds", kAdditions, Held::Right, 3, kFloor,
     "xscale = 1,2\ntile = 3\n[StageInfo]\nxscale = -3e9\nyscale = 2e30\n"},
    {"tiles share their edges", kAdditions, Held::Right, 5, kTile,
     "delta = .37\ntile = 1,1\n[StageInfo]\nxscale = .7\nyscale = 1.9\n"},
    {"tiles with gaps under a scale", kAdditions, Held::Nothing, 1, kTile,
     "tile = 1,3\ntilespacing = 7,11\n[StageInfo]\nxscale = .7\nyscale = 1.9\n"},
    {"an animation's distance under a scale", kAdditions, Held::Nothing, 1, kBarsTwice,
     "[BG b]\ntype = anim\nactionno = 1\ntile = 3\ntilespacing = 20\n"
     "[StageInfo]\nxscale = .7\nyscale = .7\n"},
    {"rows under a scale", kAdditions, Held::Right, 9, kFloor,
     "xscale = 1,2\n[StageInfo]\nxscale = .7\nyscale = .7\n"},
    {"stretched rows under a scale below 0", kAdditions, Held::Up, 9,
     "[BG floor]\ntype = parallax\nspriteno = 3,0\n",
     "start = 40,-150\nxscale = 1,2\nyscalestart = 60\nyscaledelta = 1\n"
     "[StageInfo]\nyscale = -.7\n"},
    {"a window of hires", kAdditions, Held::Right, 9, kTileBelow,
     "tile = 1,1\nwindow = 60,75,180.5,90\nwindowdelta = 1.25,0\n[StageInfo]\nhires = 1\n"},
    {"steps of a wide space", kAdditions, Held::Right, 9, kArrow,
     "delta = .75\n[Info]\nmugenversion = 1.0\n[StageInfo]\nlocalcoord = 500,240\n"},
    {"whole steps of a wide space", kAdditions, Held::Right, 9, kArrow,
     "delta = .75\n[StageInfo]\nlocalcoord = 500,240\n"},
    {"links under a scale", kAdditions, Held::Right, 6, kArrow,
     "velocity = 2,1\nsin.y = 9,7,1\n[StageInfo]\nxscale = .5\nyscale = .5\n"
     "[BG b]\ntype = normal\nspriteno = 2,0\nstart = 30,10\npositionlink = 1\nvelocity = 1\n"},
    // Zoom.
    {"a start of the zoom", kAdditions, Held::Nothing, 1, kArrow,
     "[Camera]\nzoomin = 1.7\nstartzoom = 1.7\n[StageInfo]\nzoffset = 190\n"},
    {"a start of the zoom beyond its limits", kAdditions, Held::Right, 5, kArrow,
     "[Camera]\nzoomout = .7\nstartzoom = .1\n"},
    {"some of the zoom", kAdditions, Held::Up, 5, kArrow,
     "zoomdelta = .5,1.5\n[Camera]\nzoomout = .6\nstartzoom = .6\n"},
    {"so much of the zoom that nothing is seen", kAdditions, Held::Nothing, 1, kArrow,
     "zoomdelta = 3\n[Camera]\nzoomout = .6\nstartzoom = .6\n"},
    {"a ground that is linked", kAdditions, Held::Nothing, 1, kArrow,
     "[Camera]\nzoomin = 1.7\nstartzoom = 1.7\n[StageInfo]\nzoffset = 90\nzoffsetlink = 1\n"},
    {"near by, the camera goes farther", kAdditions, Held::Right, 40, kArrow,
     "[StageInfo]\nlocalcoord = 80,60\n[Camera]\nstartx = 190\nzoomin = 1.25\nstartzoom = 1.25\n"},
    {"tiles and rows under zoom", kAdditions, Held::Right, 5, kFloor,
     "xscale = 1,2\ntile = 1\n[Camera]\nzoomout = .35\nstartzoom = .35\n"},
    // A window that is zoomed.
    {"a maskwindow", kAdditions, Held::Nothing, 1, kArrow, "maskwindow = 20,95,0,80\n"},
    {"a maskwindow is zoomed and moves", kAdditions, Held::Right, 5, kTileBelow,
     "tile = 1,1\nmaskwindow = -40,50,71,180\nwindowdelta = .7\n"
     "[Camera]\nzoomin = 1.3\nstartzoom = 1.3\n"},
    {"both windows", kAdditions, Held::Nothing, 1, kTileBelow,
     "tile = 1,1\nmaskwindow = -40,50,71,180\nwindow = 100,60,210,190\n"},
    // Rows of widths of their own.
    {"a trapezoid", kAdditions, Held::Right, 5, kFloor, "width = 100,390\n"},
    {"a trapezoid is mirrored", kAdditions, Held::Nothing, 1, kFloor,
     "width = 100,390\nscalestart = -1,1.3\n"},
    {"a trapezoid's last row is gone", kAdditions, Held::Nothing, 1, kFloor, "width = 100,0\n"},
    {"tiles of a trapezoid", kAdditions, Held::Nothing, 1, kFloor, "width = 60,190\ntile = 3\n"},
    // 160 - 272 + 245 / 2 = 10.5, so to column 11
    {"rows end in the middle of a pixel", kAdditions, Held::Nothing, 1,
     "[BG floor]\ntype = parallax\nspriteno = 3,0\nstart = -272,160\n", "width = 245,245\n"},
    // Frames of a scale and an angle of their own.
    {"a frame's scale", kAdditions, Held::Nothing, 1, kAnimated,
     "tile = 3\ntilespacing = 50\n[Begin Action 1]\n1,0, 7,-5, 2, H, , 1.7, -.6\n"},
    {"a frame that is turned", kAdditions, Held::Nothing, 1, kAnimated,
     "[Begin Action 1]\n1,0, 7,-5, 2, H, , 1.7, .6, 33\n"},
    {"a quarter turn", kAdditions, Held::Nothing, 1, kAnimated,
     "[Begin Action 1]\n1,0, 7,-5, 2, , , , , -270\n"},
    {"turned tiles", kAdditions, Held::Nothing, 1, kAnimated,
     "tile = 1,2\ntilespacing = 50,40\n[Begin Action 1]\n1,0, 0,0, 2, , , , , 100\n"},
    {"rows are not turned", kAdditions, Held::Nothing, 1,
     "[BG a]\ntype = parallax\nactionno = 1\nstart = 20,90\n",
     "[Begin Action 1]\n1,0, 3,4, 5, , , 2, 1, 40\n"},
    {"frames go over into others", kAdditions, Held::Nothing, 5, kAnimated,
     "[Begin Action 1]\nInterpolate Offset\n1,0, 0,0, 7\nInterpolate Offset\nInterpolate Scale\n"
     "Interpolate Angle\nInterpolate Blend\n1,0, 40,-20, 1, , AS30D200, 2, .5, 90\n"},
    {"the last frame goes over into the first", kAdditions, Held::Nothing, 6, kAnimated,
     "[Begin Action 1]\nInterpolate Offset\n1,0, 0,0, 2\n1,0, 40,-20, 9\n"},
    {"a frame that stays goes over into none", kAdditions, Held::Nothing, 5, kAnimated,
     "trans = default\nlayerno = -1\n[Begin Action 1]\n1,0, 0,0, -1, , AS100D100\n"
     "Interpolate Offset\nInterpolate Blend\n1,0, 40,0, 1, , A\n"},
};

RandomStage StageOf(const Row& row, const std::string& adds) {
    RandomStage stage;
    stage.archive = PaintedArchive();
    stage.definition =
        std::string("[BGdef]\nspr = random.sff\n") + kRoom + kBackdrop + row.before + adds;
    const LiteralKeys keys{row.held == Held::Left, row.held == Held::Right, row.held == Held::Up,
                           false};
    stage.keys.assign(static_cast<std::size_t>(row.frames), keys);
    return stage;
}

class Rules : public testing::TestWithParam<Row> {};

TEST_P(Rules, ProgramAgrees) {
    const Row& row = GetParam();
    const ViewOptions view{row.additions};
    const RandomStage with = StageOf(row, row.adds);
    EXPECT_EQ(FirstDifference(with, view), "");
    EXPECT_FALSE(LiteralPictureOf(with, view) == LiteralPictureOf(StageOf(row, ""), view))
        << "nothing of the rule is seen";
}

// The camera moves, so that rows are sheared.
TEST(ContactSheet, ProgramAgrees) {
    for (const SheetStage& sheet : kSheetStages) {
        SCOPED_TRACE(sheet.name);
        RandomStage stage;
        stage.archive = PaintedArchive();
        stage.definition =
            std::string("[BGdef]\nspr = random.sff\n") + kRoom + SheetDefinition(sheet);
        stage.keys.assign(5, {.left = false, .right = true, .up = true, .down = false});
        EXPECT_EQ(FirstDifference(stage, ViewOptions{true}), "");
        EXPECT_EQ(FirstDifference(stage, ViewOptions{false}), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Literal, Rules, testing::ValuesIn(kRows));

}  // namespace
}  // namespace scenara::test
