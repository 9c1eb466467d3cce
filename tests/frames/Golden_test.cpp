// SPDX-License-Identifier: MIT
//
// Each drawing feature as a picture: small stages, drawn whole, beside the pictures in
// tests/golden. With --update the pictures are made anew; look at them before they are kept.
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "support/GoldenPicture.h"

namespace scenara::test {
namespace {

struct GoldenCase {
    const char* name;
    int frames;
    const char* keys;
    const char* definition;
    bool backdrop = true;
};

// What a test's name in a report ends with.
void PrintTo(const GoldenCase& golden, std::ostream* out) {
    *out << golden.name;
}

const GoldenCase kCases[] = {
    // An opaque picture shows colour 0 in its own colour, a masked one nothing there.
    {"mask", 1, "",
     "[BG opaque]\ntype = normal\nspriteno = 1,0\nstart = -60,120\n"
     "[BG masked]\ntype = normal\nspriteno = 1,0\nstart = 60,120\nmask = 1\n"},
    // The last one in the list is on top; layer 1 is in front of all of layer 0.
    {"layers", 1, "",
     "[BG front]\ntype = normal\nspriteno = 1,0\nstart = 0,120\nmask = 1\nlayerno = 1\n"
     "[BG first]\ntype = normal\nspriteno = 2,0\nstart = -30,90\n"
     "[BG second]\ntype = normal\nspriteno = 2,0\nstart = -20,98\n"},
    {"tile_count_x", 1, "",
     "[BG row]\ntype = normal\nspriteno = 2,0\nstart = -150,40\ntile = 5,0\nmask = 1\n"
     "[BG gaps]\ntype = normal\nspriteno = 2,0\nstart = -150,80\ntile = 4,0\ntilespacing = 30\n"
     "[BG overlap]\ntype = normal\nspriteno = 2,0\nstart = -150,120\ntile = 6,0\n"
     "tilespacing = -12\nmask = 1\n"},
    {"tile_count_y", 1, "",
     "[BG column]\ntype = normal\nspriteno = 2,0\nstart = -140,10\ntile = 0,5\nmask = 1\n"
     "[BG gaps]\ntype = normal\nspriteno = 2,0\nstart = -80,10\ntile = 0,4\n"
     "tilespacing = 0,20\n"},
    {"tile_count_both", 1, "",
     "[BG block]\ntype = normal\nspriteno = 2,0\nstart = -100,30\ntile = 4,6\n"
     "tilespacing = 10,4\nmask = 1\n"},
    {"tile_endless_x", 1, "",
     "[BG row]\ntype = normal\nspriteno = 2,0\nstart = 13,40\ntile = 1,0\n"
     "[BG gaps]\ntype = normal\nspriteno = 2,0\nstart = 13,100\ntile = 1,0\ntilespacing = 17\n"
     "mask = 1\n"},
    {"tile_endless_y", 1, "",
     "[BG column]\ntype = normal\nspriteno = 2,0\nstart = -100,77\ntile = 0,1\n"
     "[BG gaps]\ntype = normal\nspriteno = 2,0\nstart = 50,77\ntile = 0,1\ntilespacing = 0,9\n"
     "mask = 1\n"},
    {"tile_endless_both", 1, "",
     "[BG wall]\ntype = normal\nspriteno = 2,0\nstart = 5,7\ntile = 1,1\ntilespacing = 8,8\n"
     "mask = 1\n"},
    // Of animations the spacing is the whole distance; without one, copies follow one another.
    {"tile_anim", 2, "",
     "[BG given]\ntype = anim\nactionno = 1\nstart = -120,60\ntile = 4,0\ntilespacing = 50\n"
     "[BG none]\ntype = anim\nactionno = 1\nstart = 0,140\ntile = 1,0\n"
     "[Begin Action 1]\n4,2, 0,0, 10\n"},
    {"window", 1, "",
     "[BG cut]\ntype = normal\nspriteno = 1,0\nstart = -90,100\nmask = 1\n"
     "window = 60,80, 89,99\n"
     "[BG corners]\ntype = normal\nspriteno = 2,0\nstart = 0,0\ntile = 1,1\n"
     "window = 259,199, 140,60\n"},
    {"window_mirrored", 1, "",
     "[BG whole]\ntype = anim\nactionno = 1\nstart = -60,100\n"
     "[BG cut]\ntype = anim\nactionno = 1\nstart = 60,100\nwindow = 205,75, 229,94\n"
     "[Begin Action 1]\n1,0, 0,0, -1, h\n"},
    {"mirrored", 1, "",
     "[BG plain]\ntype = anim\nactionno = 1\nstart = -60,80\n"
     "[BG mirrored]\ntype = anim\nactionno = 2\nstart = 60,80\n"
     "[BG offset]\ntype = anim\nactionno = 3\nstart = 60,160\n"
     "[BG once]\ntype = anim\nactionno = 2\nstart = -60,160\ntile = 3,0\ntilespacing = 40\n"
     "[Begin Action 1]\n1,0, 0,0, -1\n[Begin Action 2]\n1,0, 0,0, -1, h\n"
     "[Begin Action 3]\n1,0, 25,-5, -1, h\n"},
    {"animation_first", 1, "",
     "[BG four]\ntype = anim\nactionno = 1\nstart = 0,120\n"
     "[Begin Action 1]\n4,0, 0,0, 3\n4,1, 20,0, 2\nloopstart\n4,2, 40,0, 4\n4,3, 60,0, 1\n"},
    // Frames 1-3, 4-5, 6-9, 10, and from 11 on again the third.
    {"animation_loop", 11, "",
     "[BG four]\ntype = anim\nactionno = 1\nstart = 0,120\n"
     "[Begin Action 1]\n4,0, 0,0, 3\n4,1, 20,0, 2\nloopstart\n4,2, 40,0, 4\n4,3, 60,0, 1\n"},
    {"parallax_unmoved", 1, "",
     "[BG floor]\ntype = parallax\nspriteno = 3,0\nstart = 0,160\nxscale = 1,2\n"},
    {"parallax_left", 25, "left:25",
     "[BG floor]\ntype = parallax\nspriteno = 3,0\nstart = 0,160\nxscale = 1,2\n"},
    {"parallax_right", 25, "right:25",
     "[BG floor]\ntype = parallax\nspriteno = 3,0\nstart = 0,160\nxscale = 1,2\n"
     "[BG ceiling]\ntype = parallax\nspriteno = 3,0\nstart = 0,0\ndelta = 1.5,1\n"
     "xscale = 1.5,1\n"},
    {"parallax_tiled", 20, "right:20",
     "[BG tiles]\ntype = parallax\nspriteno = 2,0\nstart = 0,100\nxscale = 1,3\ntile = 1,1\n"
     "mask = 1\nwindow = 40,90, 279,130\n"},
    // Elements of delta 0, 0.5, 1 and 2 under a camera that went right and up.
    {"deltas", 20, "right+up:20",
     "[BG none]\ntype = normal\nspriteno = 1,0\nstart = 0,60\ndelta = 0,0\nmask = 1\n"
     "[BG half]\ntype = normal\nspriteno = 1,0\nstart = 0,100\ndelta = .5,.5\nmask = 1\n"
     "[BG one]\ntype = normal\nspriteno = 1,0\nstart = 0,140\nmask = 1\n"
     "[BG two]\ntype = normal\nspriteno = 1,0\nstart = 0,180\ndelta = 2,2\nmask = 1\n"},
    // A quarter of the swing: half a period.
    {"swing", 21, "",
     "[BG still]\ntype = normal\nspriteno = 1,0\nstart = -80,120\nmask = 1\n"
     "[BG swinging]\ntype = normal\nspriteno = 1,0\nstart = 0,120\nmask = 1\n"
     "sin.y = 30,40,0\n"
     "[BG linked]\ntype = normal\nspriteno = 2,0\nstart = 50,0\npositionlink = 1\n"},
    {"drift", 31, "",
     "[BG back]\ntype = normal\nspriteno = 1,0\nstart = -100,80\nvelocity = 2,.5\nmask = 1\n"
     "[BG both]\ntype = normal\nspriteno = 1,0\nstart = -100,160\nvelocity = 2,.5\nmask = 1\n"
     "layerno = -1\n"},
    {"links", 20, "right:20",
     "[BG parent]\ntype = normal\nspriteno = 1,0\nstart = -40,120\ndelta = .5,.5\nmask = 1\n"
     "velocity = 1,0\n"
     "[BG one]\ntype = normal\nspriteno = 2,0\nstart = 40,0\npositionlink = 1\ndelta = 3,3\n"
     "[BG two]\ntype = normal\nspriteno = 2,0\nstart = 80,0\npositionlink = 1\n"
     "velocity = 0,1\n"},
    {"controllers", 10, "",
     "[BG gone]\ntype = normal\nspriteno = 2,0\nstart = 0,30\nid = 1\n"
     "[BG placed]\ntype = normal\nspriteno = 1,0\nstart = 0,120\nmask = 1\nid = 2\n"
     "[BG other action]\ntype = anim\nactionno = 1\nstart = 0,180\nid = 3\n"
     "[BG drifting]\ntype = normal\nspriteno = 2,0\nstart = -150,200\nid = 4\n"
     "[Begin Action 1]\n4,0, 0,0, -1\n[Begin Action 2]\n4,3, 0,0, -1\n"
     "[BGCtrlDef all]\n"
     "[BGCtrl hide]\ntype = visible\ntime = 3\nvalue = 0\nctrlid = 1\n"
     "[BGCtrl place]\ntype = posset\ntime = 5\nx = -60\ny = -20\nctrlid = 2\n"
     "[BGCtrl change]\ntype = anim\ntime = 2\nvalue = 2\nctrlid = 3\n"
     "[BGCtrl go]\ntype = velset\ntime = 0\nx = 10\nctrlid = 4\n"},
    // The back buffer is never cleared.
    {"smear", 20, "",
     "[BG arrow]\ntype = normal\nspriteno = 1,0\nstart = -100,60\nvelocity = 7,5\nmask = 1\n",
     false},
};

class Golden : public testing::TestWithParam<GoldenCase> {};

TEST_P(Golden, IsThePictureThatItWas) {
    PaintedStage stage(std::string(kRoom) + (GetParam().backdrop ? kBackdrop : "") +
                       GetParam().definition);
    EXPECT_TRUE(stage.MessageTexts().empty()) << stage.MessageTexts().front();
    stage.Run(GetParam().keys, GetParam().frames);
    EXPECT_TRUE(MatchesGolden(GetParam().name, stage.Picture()));
}

INSTANTIATE_TEST_SUITE_P(Feature, Golden, testing::ValuesIn(kCases),
                         [](const auto& suite) { return std::string(suite.param.name); });

}  // namespace
}  // namespace scenara::test
