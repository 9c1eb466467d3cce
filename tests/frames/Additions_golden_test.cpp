// SPDX-License-Identifier: MIT
//
// Each addition as two pictures, on and off: the same small stage, read and drawn with additions
// and plainly. As in Golden_test.cpp, with --update they are made anew.
#include <ostream>
#include <string>
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
    {"headers", 1, "",
     "[BG]\ntype = normal\nspriteno = 1,0\nauthor = [somebody]\nstart = 0,120\nmask = 1\n"},
    {"odd_case", 1, "",
     "[PlayerInfo]\nP2StartX = 70\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = 0,120\nmask = 1\n"},
};

class AdditionsGolden : public testing::TestWithParam<AdditionCase> {
protected:
    // With these messages, and then the picture of this name.
    static void ExpectPicture(bool additions, const std::vector<std::string>& messages,
                              const char* ending) {
        const auto& [name, frames, keys, definition, plainTexts] = GetParam();
        const bool blends = std::string(name).starts_with("blend");
        const bool scaled = definition.starts_with("[StageInfo]");
        PaintedStage stage(std::string(kRoom) + kBackdrop + (scaled ? "tile = 1,1\n" : "") +
                               (blends ? kFloorAndArrow : "") + definition,
                           ViewOptions{additions});
        EXPECT_EQ(stage.MessageTexts(), messages);
        stage.Run(keys, frames);
        EXPECT_TRUE(MatchesGolden(std::string(name) + ending, stage.Picture()));
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

// --- Deform, which is a flag of the view ---

// A stage with the flag set, after one frame.
class DeformedStage : public SoftEngine {
public:
    DeformedStage(const std::string& definition, bool additions) : view_{additions} {
        files_.Put("/mugen/stages/painted.sff", std::span(PaintedArchive()));
        files_.Put("/mugen/stages/painted.def", "[BGdef]\nspr = stages/painted.sff\n" + definition);
        std::string path = "/mugen/stages/painted.def";
        EXPECT_TRUE(
            LoadStage(model, path,
                      {files_, messages, window, engine.Device(), view_, View(), "/mugen/", {}}));
        EXPECT_THAT(messages.Recorded(), IsEmpty());
        PlaceCamera(model, camera_);
        PrepareElements(model, view_, View());
        flags_.Deform = kByteTrue;
        DrawScene(engine, tiles_, flags_);
    }

private:
    ViewOptions view_;
    MemoryFiles files_;
    HeadlessKeyboard keyboard_;
    HeadlessClock clock_;
    HeadlessPointer pointer_;
    Camera camera_;
    ViewFlags flags_;
    TileEngine tiles_{
        engine, model, camera_, picture, flags_, view_, {keyboard_, clock_, pointer_, window}};
};

// With the camera 50 up and 30 to the right: a floor half as high again, one that shrinks, and a
// wall that is no parallax picture.
TEST(AdditionsGoldenDeform, StretchesParallaxPictures) {
    const std::string definition =
        std::string(kRoom) + "startx = 30\nstarty = -50\n" + kBackdrop +
        "[BG]\ntype = parallax\nspriteno = 3,0\nstart = 0,20\ndelta = 1,1\nxscale = 1,2\n"
        "yscaledelta = .6667\n"
        "[BG]\ntype = parallax\nspriteno = 2,0\nstart = 0,170\ndelta = 0,0\ntile = 1,0\n"
        "yscalestart = 200\n"
        "[BG]\ntype = normal\nspriteno = 2,0\nstart = -150,190\ndelta = 0,0\ntile = 9,0\n"
        "yscalestart = 50\n"
        "[BG]\ntype = parallax\nspriteno = 1,0\nstart = 0,210\ndelta = 0,0\nmask = 1\n"
        "yscalestart = 50\ntrans = add\n";
    EXPECT_TRUE(MatchesGolden("deform_on", DeformedStage(definition, true).Pixels()));
    EXPECT_TRUE(MatchesGolden("deform_off", DeformedStage(definition, false).Pixels()));
}

}  // namespace
}  // namespace scenara::test
