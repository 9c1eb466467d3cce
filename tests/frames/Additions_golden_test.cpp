// SPDX-License-Identifier: MIT
//
// Each addition as two pictures, on and off: the same small stage, read and drawn with additions
// and plainly. As in Golden_test.cpp, with --update they are made anew.
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "frames/SoftEngine.h"
#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessPointer.h"
#include "render/Frame.h"
#include "render/PrepareStage.h"
#include "stage/LoadStage.h"
#include "support/GoldenPicture.h"

namespace scenara::test {
namespace {

using testing::IsEmpty;

struct AdditionCase {
    const char* name;
    int frames;
    const char* keys;
    std::string definition;
    std::vector<std::string> plainTexts = {};  // what is said with additions off
};

// What a test's name in a report ends with.
void PrintTo(const AdditionCase& golden, std::ostream* out) {
    *out << golden.name;
}

// A picture half upon a floor: where it blends, both are seen.
constexpr const char* kFloorAndArrow =
    "[BG floor]\ntype = normal\nspriteno = 3,0\nstart = 0,105\n"
    "[BG masked]\ntype = normal\nspriteno = 1,0\nstart = -80,120\nmask = 1\n";

// With mask, without, and in front of an element without any blending.
std::string ThreeArrows(const std::string& trans, const std::string& again) {
    return "[BG]\ntype = normal\nspriteno = 1,0\nstart = -20,120\ntrans = " + trans +
           "\n[BG]\ntype = normal\nspriteno = 1,0\nstart = 40,120\nmask = 1\ntrans = " + again +
           "\n[BG]\ntype = normal\nspriteno = 1,0\nstart = 100,120\nmask = 1\n";
}

// Laid out for 640 x 480: a sheared floor, and arrows still, tiled and animated.
constexpr const char* kLargeStage =
    "[BG]\ntype = parallax\nspriteno = 3,0\nstart = 0,360\nxscale = 1,2\n"
    "[BG]\ntype = normal\nspriteno = 1,0\nstart = -201,200\nmask = 1\n"
    "[BG]\ntype = normal\nspriteno = 2,0\nstart = -100,100\ntile = 4,3\ntilespacing = 8,4\n"
    "[BG]\ntype = anim\nactionno = 1\nstart = 200,200\n";

const AdditionCase kCases[] = {
    {"blend_add", 1, "", ThreeArrows("add", "Add")},
    {"blend_add1", 1, "", ThreeArrows("add1", "add1")},
    {"blend_sub", 1, "", ThreeArrows("sub", "sub")},
    // Half and half, mostly what lies behind, mostly itself, everything and nothing.
    {"blend_addalpha", 1, "",
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -30,120\ntrans = addalpha\nalpha = 128,128\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 15,120\ntrans = addalpha\nalpha = 64,192\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 60,120\ntrans = addalpha\nalpha = 192,64\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 105,120\ntrans = addalpha\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 140,120\ntrans = addalpha\nalpha = 0,128\n"},
    {"blend_frames", 1, "",
     "[BG]\ntype = anim\nactionno = 1\nstart = -30,120\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = 15,120\n"
     "[BG]\ntype = anim\nactionno = 3\nstart = 60,120\n"
     "[BG]\ntype = anim\nactionno = 4\nstart = 105,120\n"
     "[BG sub goes before the frame's own]\ntype = anim\nactionno = 1\nstart = 140,120\n"
     "trans = sub\n"
     "[Begin Action 1]\n1,0, 0,0, -1, , A\n[Begin Action 2]\n1,0, 0,0, -1, , A1\n"
     "[Begin Action 3]\n1,0, 0,0, -1, h, S\n[Begin Action 4]\n1,0, 0,0, -1,, AS64D192\n"},
    {"blend_copies", 10, "right:10",
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = -150,30\ntile = 8,2\ntilespacing = -12,-8\n"
     "trans = add1\n"
     "[BG]\ntype = parallax\nspriteno = 2,0\nstart = 0,70\ntile = 1,0\ntilespacing = 6\n"
     "xscale = 1,4\ntrans = sub\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 60,130\ntrans = add\nwindow = 0,95,319,120\n"},
    {"hires", 20, "right:20",
     std::string("[StageInfo]\nhires = 1\n") + kLargeStage +
         // Cut, and moving.
         "[BG]\ntype = normal\nspriteno = 1,0\nstart = 0,300\nmask = 1\n"
         "window = 240,250,319,289\n"
         "[BG]\ntype = normal\nspriteno = 1,0\nstart = -100,300\nmask = 1\nvelocity = 2,0\n"
         "[Begin Action 1]\n1,0, 20,-20, -1, h\n"},
    {"localcoord", 20, "right:20",
     std::string("[StageInfo]\nlocalcoord = 640,480\n") + kLargeStage +
         "[Begin Action 1]\n1,0, 20,-20, -1, h\n"},
    // A wide one, three times as high: the window is the right half of its 1280 columns.
    {"localcoord_wide", 1, "",
     "[StageInfo]\nlocalcoord = 1280,720\n"
     "[BG]\ntype = normal\nspriteno = 3,0\nstart = 0,120\n"
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = 0,210\ntile = 1,0\n"
     "window = 640,0, 1279,719\n"},
    // Smaller than the view: everything twice as large.
    {"localcoord_small", 1, "",
     "[StageInfo]\nlocalcoord = 160,120\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -30,60\nmask = 1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 30,60\n"},
    // A tile, whose axis is its upper left corner, beside its own mirror image.
    {"mirror_h", 1, "",
     "[BG]\ntype = anim\nactionno = 1\nstart = 0,60\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = 0,60\n"
     "[BG]\ntype = anim\nactionno = 3\nstart = 0,120\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = 80,60\nwindow = 210,60, 229,69\n"
     "[Begin Action 1]\n2,0, 0,0, -1\n[Begin Action 2]\n2,0, 0,0, -1, h\n"
     "[Begin Action 3]\n2,0, 40,0, -1, h\n"},
    {"mirror_v",
     1,
     "",
     "[BG]\ntype = anim\nactionno = 1\nstart = -60,120\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = 0,120\n"
     "[BG]\ntype = anim\nactionno = 3\nstart = 60,120\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = 120,120\nwindow = 270,125, 289,149\n"
     "[Begin Action 1]\n1,0, 0,0, -1\n[Begin Action 2]\n1,0, 0,0, -1, v\n"
     "[Begin Action 3]\n1,0, 0,0, -1, h\n",
     {"vertical flip not coded yet dude.."}},
    {"mirror_hv",
     1,
     "",
     "[BG]\ntype = anim\nactionno = 1\nstart = -60,120\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = 0,120\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = 60,120\nwindow = 215,125, 229,149\n"
     "[Begin Action 1]\n1,0, 0,0, -1\n[Begin Action 2]\n1,0, 0,0, -1, hv\n",
     {"vertical flip not coded yet dude.."}},
    // A quarter of the swing: half a period.
    {"sin_x", 21, "",
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -80,120\nmask = 1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 0,120\nmask = 1\nsin.x = 30,40,0\n"
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = 50,0\npositionlink = 1\n"},
    {"windowdelta",
     30,
     "right:30",
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = 0,0\ntile = 1,1\ndelta = 0,0\n"
     "window = 120,80, 199,159\nwindowdelta = 1,0\n",
     {"Windowdelta not supported just yet.."}},
    // The camera rises as far as the file says; without, no picture row may come into view.
    {"upper_bound", 40, "up:30",
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 0,60\ndelta = .5,.5\nmask = 1\n"},
    {"tile_negative", 1, "",
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = -100,60\ntile = 3,0\ntilespacing = -30\n"
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = 20,60\ntile = 0,3\ntilespacing = 0,-20\n"
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = 80,60\ntile = 3,0\n"},
    {"element_kinds", 1, "",
     "[BG]\ntype = nrm\nspriteno = 1,0\nstart = -80,120\nmask = 1\n"
     "[BG]\ntype = anim loop\nactionno = 1\nstart = 0,120\n"
     "[BG]\ntype = dum\nspriteno = 1,0\nstart = 80,120\n"
     "[Begin Action 1]\n4,3, 0,0, -1\n"},
    // With the camera 50 up and 30 to the right: a floor half as high again, one that shrinks, a
    // wall that is no parallax picture, and an arrow of twice its height.
    {"stretch", 1, "",
     "startx = 30\nstarty = -50\n"
     "[BG]\ntype = parallax\nspriteno = 3,0\nstart = 0,20\ndelta = 1,1\nxscale = 1,2\n"
     "yscaledelta = .6667\n"
     "[BG]\ntype = parallax\nspriteno = 2,0\nstart = 0,170\ndelta = 0,0\ntile = 1,0\n"
     "yscalestart = 200\n"
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = -150,190\ndelta = 0,0\ntile = 9,0\n"
     "yscalestart = 50\n"
     "[BG]\ntype = parallax\nspriteno = 1,0\nstart = 0,210\ndelta = 0,0\nmask = 1\n"
     "yscalestart = 50\ntrans = add\n"},
    // With the camera 40 to the right and 20 up: an arrow of twice its size, one mirrored and half
    // as tall, one that grows with the camera, tiles of half their size, and a floor that is wider.
    {"scale", 1, "",
     "[Camera]\nstartx = 40\nstarty = -20\n"
     "[BG]\ntype = parallax\nspriteno = 3,0\nstart = 0,150\ndelta = 1,1\nxscale = 1,2\n"
     "scalestart = 1.5,1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -100,70\ndelta = 0,0\nmask = 1\n"
     "scalestart = 2,2\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 0,60\ndelta = 0,0\nmask = 1\n"
     "scalestart = -2,.5\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 130,60\ndelta = 1,1\nmask = 1\n"
     "scaledelta = .05,-.1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -150,110\ndelta = 0,0\ntile = 6,2\n"
     "tilespacing = 8,4\nmask = 1\nscalestart = .5,.5\n"},
    // An arrow upright, turned by an eighth, a quarter and half a turn, mirrored and turned, larger
    // and turned within a window; tiles that are turned and half as large; and a sheared floor,
    // whose frame is wider and not turned.
    {"frame_angle", 1, "",
     "[BG]\ntype = parallax\nactionno = 7\nstart = 0,170\nxscale = 1,2\n"
     "[BG]\ntype = anim\nactionno = 1\nstart = -130,60\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = -70,60\n"
     "[BG]\ntype = anim\nactionno = 3\nstart = -10,60\n"
     "[BG]\ntype = anim\nactionno = 4\nstart = 50,60\n"
     "[BG]\ntype = anim\nactionno = 5\nstart = 110,60\n"
     "[BG]\ntype = anim\nactionno = 6\nstart = -40,150\nwindow = 80,120,159,189\ntrans = add\n"
     "[BG]\ntype = anim\nactionno = 8\nstart = 30,130\ntile = 4,2\ntilespacing = 30,40\n"
     "[Begin Action 1]\n1,0, 0,0, -1\n[Begin Action 2]\n1,0, 0,0, -1,,, 1,1,45\n"
     "[Begin Action 3]\n1,0, 0,0, -1,,, 1,1,90\n[Begin Action 4]\n1,0, 0,0, -1,,, ,,-180\n"
     "[Begin Action 5]\n1,0, 0,0, -1, h,, 1,1,45\n[Begin Action 6]\n1,0, 0,0, -1,,, 3,2,-30\n"
     "[Begin Action 7]\n3,0, 0,0, -1,,, 1.25,.5,45\n"
     "[Begin Action 8]\n1,0, 0,0, -1,,, .5,.5,20\n"},
    // In the sixth of ten ticks: half the way to the right, to twice the size, round, and to
    // nothing; and an arrow whose frame takes no part in that.
    {"frame_interpolated", 6, "",
     "[BG]\ntype = normal\nspriteno = 3,0\nstart = 0,105\n"
     "[BG]\ntype = anim\nactionno = 1\nstart = -100,90\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = -10,110\n"
     "[BG]\ntype = anim\nactionno = 3\nstart = 60,100\n"
     "[BG]\ntype = anim\nactionno = 4\nstart = 110,120\n"
     "[BG]\ntype = anim\nactionno = 5\nstart = -100,160\n"
     "[Begin Action 1]\n1,0, 0,0, 10\nInterpolate Offset\n1,0, 40,40, 1\n"
     "[Begin Action 2]\n1,0, 0,0, 10\nInterpolate Scale\n1,0, 0,0, 1,,, 3,2\n"
     "[Begin Action 3]\n1,0, 0,0, 10\nInterpolate Angle\n1,0, 0,0, 1,,, 1,1,90\n"
     "[Begin Action 4]\n1,0, 0,0, 10\nInterpolate Blend\n1,0, 0,0, 1,, AS0D256\n"
     "[Begin Action 5]\n1,0, 0,0, 10\n1,0, 40,40, 1,, A, 2,2,90\n"},
    // Two floors of one place, one of them by its start and the other by the camera.
    {"shear", 1, "",
     "startx = 40\n"
     "[BG]\ntype = parallax\nspriteno = 3,0\nstart = 70,30\ndelta = 0,0\nxscale = 1,3\n"
     "[BG]\ntype = parallax\nspriteno = 3,0\nstart = 110,130\ndelta = 1,0\nxscale = 1,3\n"},
    {"cleared", 40, "",
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = 0,0\ndelta = 0,0\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -60,180\nvelocity = 3\nmask = 1\nlayerno = 1\n"},
    {"cleared_color", 1, "",
     "[BGdef]\nbgclearcolor = 30, 90,400\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 0,120\nmask = 1\n"},
    {"cleared_debugbg", 1, "",
     "[BGdef]\nbgclearcolor = 30, 90,400\ndebugbg = 1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 0,120\nmask = 1\n"},
    {"mirror_tiled",
     1,
     "",
     "[BG]\ntype = anim\nactionno = 1\nstart = -140,60\ntile = 5,2\ntilespacing = 30,40\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = 0,160\ntile = 1\ntilespacing = 50\n"
     "[Begin Action 1]\n1,0, 0,0, -1, h\n[Begin Action 2]\n1,0, 0,0, -1, hv\n",
     {"vertical flip not coded yet dude.."}},
    // A quarter of a swing up, a whole one, one that begins at its top, and one that a control
    // begins there.
    {"swing_whole", 11, "",
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -90,120\nmask = 1\nsin.y = -40,40\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -30,120\nmask = 1\nsin.y = -40,10\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 30,120\nmask = 1\nsin.y = -40,10,90\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nid = 4\nstart = 90,120\nmask = 1\n"
     "[BGCtrlDef]\nctrlid = 4\n[BGCtrl]\ntype = siny\ntime = 0\nvalue = -40, 40, 10\n"},
    // Hidden from the first frame to the last but one, and one that never is.
    {"hidden_moves", 21, "",
     "[BG]\ntype = normal\nspriteno = 1,0\nid = 4\nstart = -100,90\nvelocity = 5\nmask = 1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -100,160\nvelocity = 5\nmask = 1\n"
     "[BGCtrlDef]\nctrlid = 4\n[BGCtrl]\ntype = visible\ntime = 0\nvalue = 0\n"
     "[BGCtrl]\ntype = visible\ntime = 20\nvalue = 1\n"},
    {"layer_below_0", 21, "",
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -100,90\nvelocity = 5\nmask = 1\n"
     "layerno = -1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -100,160\nvelocity = 5\nmask = 1\n"},
    {"enabled_word", 1, "",
     "[BG]\ntype = normal\nspriteno = 1,0\nid = 4\nstart = -60,120\nmask = 1\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 60,120\nmask = 1\n"
     "[BGCtrlDef]\nctrlid = 4\n[BGCtrl]\ntype = enabled\ntime = 0\nvalue = 0\n"},
    // A still one without a picture, one with both, and a parallax one, whose rows are sheared.
    {"frames_of_others", 1, "",
     "[BG]\ntype = normal\nactionno = 1\nstart = -90,120\ntile = 2\n"
     "[BG]\ntype = normal\nactionno = 1\nspriteno = 2,0\nstart = 20,120\n"
     "[BG]\ntype = parallax\nactionno = 1\nspriteno = 2,0\nstart = 60,120\nxscale = 1,2\n"
     "[Begin Action 1]\n1,0, 0,0, -1, h\n"},
    // Each of them a pixel to the left or right of where it stands without.
    {"fractions", 1, "",
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -60.25,120\nmask = 1\n"
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = 20.75,9.5\npositionlink = 1\n"
     "[BG]\ntype = anim\nactionno = 1\nstart = 30.5,120.5\n"
     "[Begin Action 1]\n1,0, 40.5,-20.5, -1\n"},
    {"headers", 1, "",
     "[BG]\ntype = normal\nspriteno = 1,0\nauthor = [somebody]\nstart = 0,120\nmask = 1\n"},
    {"odd_case", 1, "",
     "[PlayerInfo]\nP2StartX = 70\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 0,120\nmask = 1\n"},
    // Plainly two of the three are not there.
    {"names_of_sections", 1, "",
     "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = -60,120\nmask = 1\n"
     "[BG default]\ntype = normal\nspriteno = 1,0\nstart = 0,60\nmask = 1\n"
     "[BG]\ntype = anim\nactionno = 1\nstart = 60,120\n[Begin  Action 1]\n4,2, 0,0, -1\n"},
    // Plainly it does not move with the camera.
    {"empty_values", 41, "right:40",
     "[BG]\ntype = normal\nspriteno = 1,0\nmask = 1\ndelta =\n"
     "start =\nstart = 60,120\n"},
};

class AdditionsGolden : public testing::TestWithParam<AdditionCase> {
protected:
    // With these messages, and then the picture of this name.
    static void ExpectPicture(bool additions, const std::vector<std::string>& messages,
                              const char* ending) {
        const auto& [name, frames, keys, definition, plainTexts] = GetParam();
        const bool blends = std::string(name).starts_with("blend");
        const bool scaled = definition.starts_with("[StageInfo]");
        const bool bare = std::string(name).starts_with("cleared");
        PaintedStage stage(std::string(kRoom) + (bare ? "" : kBackdrop) +
                               (scaled ? "tile = 1,1\n" : "") + (blends ? kFloorAndArrow : "") +
                               definition,
                           ViewOptions{additions});
        EXPECT_EQ(stage.MessageTexts(), messages);
        stage.Run(keys, frames);
        EXPECT_TRUE(MatchesGolden(std::string(name) + ending, stage.Picture(),
                                  stage.PictureSize().width, stage.PictureSize().height));
    }
};

TEST_P(AdditionsGolden, OnIsThePictureThatItWas) {
    ExpectPicture(true, {}, "_on");
}

TEST_P(AdditionsGolden, OffIsThePictureThatItWas) {
    ExpectPicture(false, GetParam().plainTexts, "_off");
}

INSTANTIATE_TEST_SUITE_P(Addition, AdditionsGolden, testing::ValuesIn(kCases),
                         [](const auto& suite) { return std::string(suite.param.name); });

// --- mixed pixels ---

const std::string kScaledTwoWays =
    std::string("[StageInfo]\nxscale = 1.4\nyscale = 2.3\n") + kRoom + kBackdrop +
    "tile = 1,1\n"
    "[BG]\ntype = normal\nspriteno = 1,0\nstart = -60,40\nmask = 1\n"
    "[BG]\ntype = normal\nspriteno = 1,0\nstart = 40,40\nmask = 1\ntrans = add\n"
    "[BG]\ntype = parallax\nspriteno = 3,0\nstart = 0,75\nxscale = 1,2\n";

TEST(SmoothPictures, OfAScaledStageAreMixed) {
    PaintedStage stage(kScaledTwoWays, ViewOptions{true, true});
    stage.Run(1);
    EXPECT_TRUE(MatchesGolden("smooth_scaled", stage.Picture(), stage.PictureSize().width,
                              stage.PictureSize().height));
}

TEST(SmoothPictures, OfOthersAreWhatTheyAreWithout) {
    const std::string unscaled = std::string(kRoom) + kBackdrop + kFloorAndArrow;
    for (const auto& [definition, additions] :
         {std::pair{unscaled, true}, {unscaled, false}, {kScaledTwoWays, false}}) {
        PaintedStage smooth(definition, ViewOptions{additions, true});
        PaintedStage stage(definition, ViewOptions{additions, false});
        smooth.Run("right:3", 5);
        stage.Run("right:3", 5);
        EXPECT_EQ(smooth.Picture(), stage.Picture()) << additions;
    }
}

// About the middle of the picture.
std::vector<std::uint32_t> SmoothArrow(const std::string& flip) {
    PaintedStage stage(
        "[StageInfo]\nxscale = 1.4\nyscale = 1.5\n"
        "[BG]\ntype = anim\nactionno = 1\nstart = 0,80\n"
        "[Begin Action 1]\n1,0, 0,0, -1, " +
            flip + "\n",
        ViewOptions{true, true});
    stage.Run(1);
    return stage.Picture();
}

TEST(SmoothPictures, OfMirroredFramesAreTheOthersMirrored) {
    const std::vector<std::uint32_t> arrow = SmoothArrow("");
    const std::vector<std::uint32_t> across = SmoothArrow("h");
    const std::vector<std::uint32_t> down = SmoothArrow("v");
    const std::vector<std::uint32_t> both = SmoothArrow("hv");
    const auto at = [](std::size_t x, std::size_t y) { return 320 * y + x; };
    int seen = 0;
    for (std::size_t y = 0; y < 240; ++y) {
        for (std::size_t x = 0; x < 320; ++x) {
            const std::uint32_t pixel = arrow[at(x, y)];
            seen += (pixel & 0xFFFFFFU) != 0 ? 1 : 0;
            ASSERT_EQ(across[at(319 - x, y)], pixel) << x << "," << y;
            ASSERT_EQ(down[at(x, 239 - y)], pixel) << x << "," << y;
            ASSERT_EQ(both[at(319 - x, 239 - y)], pixel) << x << "," << y;
        }
    }
    EXPECT_GT(seen, 1000);
}

// --- blended colours, in numbers ---

class BlendedPixels : public testing::Test {
protected:
    // Red, 208 48 40, on light grey, 88 88 100.
    static std::uint32_t RedOnGrey(const std::string& keys, bool additions = true) {
        PaintedStage stage(std::string(kBackdrop) +
                               "[BG]\ntype = normal\nspriteno = 1,0\nstart = -20,120\nmask = 1\n" +
                               keys,
                           ViewOptions{additions});
        stage.Run(1);
        return stage.Rgb(125, 103);
    }
    static void ExpectNear(std::uint32_t rgb, int red, int green, int blue) {
        constexpr int kRounding = 1;
        EXPECT_NEAR(static_cast<int>(rgb >> 16U & 0xFFU), red, kRounding);
        EXPECT_NEAR(static_cast<int>(rgb >> 8U & 0xFFU), green, kRounding);
        EXPECT_NEAR(static_cast<int>(rgb & 0xFFU), blue, kRounding);
    }
};

TEST_F(BlendedPixels, OfAddAreTheSum) {
    EXPECT_EQ(RedOnGrey("trans = add\n"), 0xFF888CU);  // 296, 136, 140
}

TEST_F(BlendedPixels, OfSubAreTheDifference) {
    EXPECT_EQ(RedOnGrey("trans = sub\n"), 0x00283CU);  // -120, 40, 60
}

TEST_F(BlendedPixels, OfAdd1AreTheSumWithHalf) {
    ExpectNear(RedOnGrey("trans = add1\n"), 252, 92, 90);  // 44, 44, 50 and the red
}

TEST_F(BlendedPixels, OfAddalphaAreTheSumOfParts) {
    // 192 of 256: 66 66 75. 64 of 256: 52 12 10.
    ExpectNear(RedOnGrey("trans = addalpha\nalpha = 64,192\n"), 118, 78, 85);
    ExpectNear(RedOnGrey("trans = add\nalpha = 64,192\n"), 118, 78, 85);
    EXPECT_EQ(RedOnGrey("trans = addalpha\nalpha = 256,0\n"), 0xD03028U);
    EXPECT_EQ(RedOnGrey("trans = addalpha\nalpha = 0,256\n"), 0x585864U);
    EXPECT_EQ(RedOnGrey("trans = addalpha\nalpha = 0,0\n"), 0U);
}

TEST_F(BlendedPixels, InAPlainViewAreThePictures) {
    for (const char* const trans : {"add", "add1", "sub", "addalpha"}) {
        EXPECT_EQ(RedOnGrey(std::string("trans = ") + trans + "\n", false), 0xD03028U) << trans;
    }
}

}  // namespace
}  // namespace scenara::test
