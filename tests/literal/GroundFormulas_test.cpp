// SPDX-License-Identifier: MIT
//
// Where a fighter stands on a canvas of the stage's own size, worked out by hand, one case per row.
// D is canvas pixels per stage unit.
#include <memory>
#include <ostream>
#include <span>
#include <string>

#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "literal/ProgramCanvas.h"
#include "literal/SolidPictures.h"
#include "samplemaker/Sff1Writer.h"
#include "support/MemoryFiles.h"
#include "support/StageFixture.h"

namespace scenara::test {
namespace {

// A fighter of 8 x 10 pixels, axis 4,10, who stands.
struct GroundRow {
    const char* name;
    const char* settings;
    const char* fighter;  // keys of its definition's [Info]
    const char* element;
    int frames;
    const char* canvas;
    const char* covered;
};
void PrintTo(const GroundRow& row, std::ostream* out) {
    *out << row.name;
}

constexpr const char* kLinkAt =
    "[BG]\ntype = dummy\nid = 5\nstart = 0,-20\nvelocity = 0,2\ndelta = 0,0\n";

constexpr GroundRow kGroundRows[] = {
    {"the ground", "[StageInfo]\nzoffset = 200\n[PlayerInfo]\np1startx = -50\n", "", "", 1, kOld,
     "106,190,114,200"},
    // 110 - 10; 200 + 20
    {"the ground moves with the camera",
     "[StageInfo]\nzoffset = 200\n[PlayerInfo]\np1startx = -50\n[Camera]\nstartx = 10\n"
     "starty = -20\n",
     "", "", 1, kOld, "96,210,104,220"},
    // 320 - 100 = 220; the fighter is 640 / 320 as large
    {"the ground of 640 x 480",
     "[StageInfo]\nlocalcoord = 640,480\nzoffset = 400\n[PlayerInfo]\np1startx = -100\n", "", "", 1,
     kTwice, "212,380,228,400"},
    // 320 / 640 as large
    {"a fighter of 640 x 480", "[StageInfo]\nzoffset = 200\n[PlayerInfo]\np1startx = -50\n",
     "localcoord = 640,480\n", "", 1, kOld, "108,195,112,200"},
    // 427 / 320 as large: 213.5 - 50 = 163.5, less 4 of 1.334: 158.16, and 8 of it more: 168.84;
    // 200 less 10 of it: 186.66
    {"the ground of an odd width",
     "[StageInfo]\nlocalcoord = 427,240\nzoffset = 200\n[PlayerInfo]\np1startx = -50\n", "", "", 1,
     "427 x 240", "158,187,169,200"},
    // D = 2
    {"the ground of hires", "[StageInfo]\nhires = 1\nzoffset = 200\n[PlayerInfo]\np1startx = -50\n",
     "", "", 1, kTwice, "212,380,228,400"},
    {"a scale leaves fighters",
     "[StageInfo]\nxscale = 2\nyscale = 2\nzoffset = 200\n[PlayerInfo]\np1startx = -50\n", "", "",
     1, kOld, "106,190,114,200"},
    // 200 - 20
    {"the ground of a linked element",
     "[StageInfo]\nzoffset = 200\nzoffsetlink = 5\n[PlayerInfo]\np1startx = -50\n", "", kLinkAt, 1,
     kOld, "106,170,114,180"},
    // 200 - 20 + 4
    {"the ground drifts with a linked element",
     "[StageInfo]\nzoffset = 200\nzoffsetlink = 5\n[PlayerInfo]\np1startx = -50\n", "", kLinkAt, 3,
     kOld, "106,174,114,184"},
    // 200 + 8
    {"the ground swings with a linked element",
     "[StageInfo]\nzoffset = 200\nzoffsetlink = 5\n[PlayerInfo]\np1startx = -50\n", "",
     "[BG]\ntype = dummy\nid = 5\nsin.y = 8,4,90\n", 1, kOld, "106,198,114,208"},
    // D = 2: 2 (200 - .5 x 20) = 380
    {"the ground of a linked element of hires",
     "[StageInfo]\nhires = 1\nzoffset = 200\nzoffsetlink = 5\n[PlayerInfo]\np1startx = -50\n", "",
     kLinkAt, 1, kTwice, "212,360,228,380"},
    // 200 - -20
    {"the ground of a linked element under a scale below 0",
     "[StageInfo]\nyscale = -1\nzoffset = 200\nzoffsetlink = 5\n[PlayerInfo]\np1startx = -50\n", "",
     kLinkAt, 1, kOld, "106,210,114,220"},
    // D = 2: 2 (200 + .5 (-20 + 4)) = 384
    {"the ground of a linked element under a scale",
     "[StageInfo]\nxscale = .5\nyscale = .5\nzoffset = 200\nzoffsetlink = 5\n"
     "[PlayerInfo]\np1startx = -50\n",
     "", kLinkAt, 3, kTwice, "212,364,228,384"},
};

std::unique_ptr<MemoryFiles> FilesOf(const GroundRow& row) {
    auto files = std::make_unique<MemoryFiles>();
    files->Put("/mugen/stages/random.sff", std::span(SolidArchive()));
    files->Put(kTestStage, SolidDefinition(row.settings, row.element));
    files->Put("/mugen/chars/fighter.def",
               std::string("[Info]\ndisplayname = Fighter\n") + row.fighter +
                   "[Files]\nanim = fighter.air\nsprite = fighter.sff\ncns = fighter.cns\n");
    files->Put("/mugen/chars/fighter.cns", "[Size]\nwalk.fwd = 2\n");
    files->Put("/mugen/chars/fighter.air",
               "[Begin Action 0]\n0,0, 0,0, -1\n[Begin Action 5]\n0,0, 0,0, 4\n"
               "[Begin Action 20]\n0,0, 0,0, 5\n");
    files->Put(
        "/mugen/chars/fighter.sff",
        std::span<const std::byte>(samplemaker::WriteSff1({SolidSprite(0, 0, {4, 10}, {8, 10})})));
    return files;
}

class GroundRows : public testing::TestWithParam<GroundRow> {};

TEST_P(GroundRows, OfTheProgram) {
    const GroundRow& row = GetParam();
    ShotStage stage(FilesOf(row), kTestStage, "/mugen/", "/mugen/chars/fighter.def",
                    ViewOptions{true});
    stage.Run(row.frames);
    EXPECT_EQ(Wrong(CanvasOf(stage), row.canvas, row.covered), "");
}

INSTANTIATE_TEST_SUITE_P(Ground, GroundRows, testing::ValuesIn(kGroundRows));

}  // namespace
}  // namespace scenara::test
