// SPDX-License-Identifier: MIT
//
// The test character in whole frames: golden pictures (with --update they are made anew), and in
// numbers where it stands, how the camera goes along, and that nothing of it is seen plainly.
#include <cstdint>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "platform/posix/PosixFiles.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "stage/StageSpace.h"
#include "support/AllocationCount.h"
#include "support/GoldenPicture.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using testing::IsEmpty;

constexpr std::uint32_t kBlue = 0x2060E0;    // the body
constexpr std::uint32_t kYellow = 0xF0D020;  // the nose, in front of it
constexpr std::uint32_t kGreen = 0x30C040;   // the feet

// 12 x 30 pixels, axis 5,29: a body from column 2 to 7, a nose two columns in front of it in rows 5
// and 6, feet in the last row. `back`: how far a leg is behind.
samplemaker::Sff1Subfile Person(std::int16_t group, std::int16_t image, int back) {
    samplemaker::IndexedPicture picture;
    picture.width = 12;
    picture.height = 30;
    picture.pixels.assign(12 * 30, 0);
    picture.palette[0] = {255, 0, 255};
    picture.palette[1] = {0x20, 0x60, 0xE0};
    picture.palette[2] = {0xF0, 0xD0, 0x20};
    picture.palette[3] = {0x30, 0xC0, 0x40};
    const auto set = [&](int x, int y, std::uint8_t index) {
        picture.pixels[static_cast<std::size_t>(y * 12 + x)] = index;
    };
    for (int y = 0; y < 29; ++y) {
        for (int x = 2; x < 8; ++x) {
            set(x, y, 1);
        }
    }
    for (const int y : {5, 6}) {
        set(8, y, 2);
        set(9, y, 2);
    }
    for (const int x : {2 - back, 3 - back, 6, 7}) {
        set(x, 29, 3);
    }
    samplemaker::Sff1Subfile subfile;
    subfile.group = group;
    subfile.image = image;
    subfile.axisX = 5;
    subfile.axisY = 29;
    subfile.data = WritePcx(picture);
    return subfile;
}

std::unique_ptr<MemoryFiles> PersonFiles(const std::string& size) {
    auto files = std::make_unique<MemoryFiles>();
    files->Put("/mugen/chars/person.def",
               "displayname = Person\n[Files]\nanim = person.air\nsprite = person.sff\n"
               "cns = person.cns\n");
    files->Put("/mugen/chars/person.cns", "[Size]\n" + size + "walk.fwd = 2\n");
    files->Put("/mugen/chars/person.air",
               "[Begin Action 0]\n0,0, 0,0, -1\n[Begin Action 5]\n0,0, 0,0, 4, H\n"
               "[Begin Action 20]\n20,0, 0,0, 5\n20,1, 0,0, 5\n");
    files->Put("/mugen/chars/person.sff",
               std::span<const std::byte>(
                   samplemaker::WriteSff1({Person(0, 0, 0), Person(20, 0, 1), Person(20, 1, 2)})));
    return files;
}

// The painted stage with a person on it, who walks 2 pixels a frame and turns in 4.
class PeopledStage : public PaintedStage {
public:
    explicit PeopledStage(const std::string& definition, bool additions = true,
                          const std::string& size = "")
        : PaintedStage(definition, ViewOptions{additions}, PersonFiles(size), "person.def") {
        EXPECT_THAT(MessageTexts(), IsEmpty());
    }
    // The columns of a row that have this colour, as first and last; -1 when there is none.
    [[nodiscard]] std::pair<int, int> Columns(int y, std::uint32_t rgb) const {
        std::pair<int, int> columns(-1, -1);
        for (int x = 0; x < PictureSize().width; ++x) {
            if (Rgb(x, y) == rgb) {
                columns.first = columns.first < 0 ? x : columns.first;
                columns.second = x;
            }
        }
        return columns;
    }
};

using Span = std::pair<int, int>;

constexpr const char* kGround =
    "[Camera]\nboundleft = -100\nboundright = 100\nboundhigh = -60\nboundlow = 0\n"
    "[PlayerInfo]\np1startx = -70\n[StageInfo]\nzoffset = 210\n";

// An element that moves with the ground: its left column, in a colour of its own, at 160 of the
// view, rows 206 to 220.
constexpr std::uint32_t kTileEdge = 0xF0C840;
constexpr const char* kGroundTile =
    "[BG floor]\ntype = normal\nspriteno = 2,0\nstart = 0,205\ndelta = 1,1\n";
const std::string kGroundAndBackdrop = std::string(kGround) + kBackdrop;
const std::string kGroundAndTile = kGroundAndBackdrop + kGroundTile;

TEST(Character, StandsWithItsAxisOnTheGroundLine) {
    PeopledStage stage(kGroundAndBackdrop);
    stage.Run("", 1);
    // X is 160 - 70; the axis is column 5, row 29, of the picture: left edge 85, upper edge 181.
    EXPECT_EQ(stage.Columns(190, kBlue), Span(87, 92));
    EXPECT_EQ(stage.Columns(187, kYellow), Span(93, 94));
    EXPECT_EQ(stage.Columns(210, kGreen), Span(87, 92));
    EXPECT_EQ(stage.Columns(211, kGreen), Span(-1, -1));
    EXPECT_EQ(stage.Columns(180, kBlue), Span(-1, -1));
}

TEST(Character, LooksTheOtherWayAboutItsAxis) {
    PeopledStage stage(kGroundAndBackdrop);
    stage.Run("left:1", 8);
    // The right edge at 90 + 5: the body's columns 2 to 7 from 87 to 92, the nose before them.
    EXPECT_EQ(stage.Hero().Action, kStanding);
    EXPECT_EQ(stage.Columns(190, kBlue), Span(87, 92));
    EXPECT_EQ(stage.Columns(187, kYellow), Span(85, 86));
}

TEST(Character, WalksAndThenTakesTheCameraAlong) {
    PeopledStage stage(kGroundAndTile);
    stage.Run("right:35", 35);
    EXPECT_EQ(stage.Model().CamX, 0.0F);
    EXPECT_EQ(stage.Hero().X, 160.0F);
    stage.Run("right:10", 10);
    EXPECT_EQ(stage.Model().CamX, -20.0F);
    EXPECT_EQ(stage.Hero().X, 180.0F);
    // In the last frame the camera stood at 18 still for both: the floor at 160 - 18.
    EXPECT_EQ(stage.Columns(190, kBlue), Span(157, 162));
    EXPECT_EQ(stage.Columns(215, kTileEdge), Span(142, 142));
}

struct CameraKeys {
    const char* before;
    const char* meanwhile;  // beside Right
};

TEST(Character, StaysInTheMiddleAndOnTheFloorWhateverZAndAMakeOfTheSteps) {
    for (const auto& [before, meanwhile] : {CameraKeys{"none:1", ""},
                                            {"z:200", ""},
                                            {"a:200", ""},
                                            {"none:1", "+z"},
                                            {"none:1", "+a"},
                                            {"up:2", "+up+z"},
                                            {"up+a:30,z:50", "+down+a"}}) {
        SCOPED_TRACE(std::string(before) + " " + meanwhile);
        PeopledStage stage(std::string("[Camera]\nboundleft = -100\nboundright = 100\n"
                                       "boundhigh = -25\n[PlayerInfo]\np1startx = -70\n"
                                       "[StageInfo]\nzoffset = 210\n") +
                           kBackdrop + kGroundTile);
        stage.Run(before, 200);
        stage.Run("right:40,right" + std::string(meanwhile) + ":33,none:2", 75);
        EXPECT_EQ(stage.Model().CamX, -76.0F);
        EXPECT_EQ(stage.Hero().X, 236.0F);
        int feet = 0;
        while (feet < View().height - 1 && stage.Columns(feet, kGreen) != Span(157, 162)) {
            ++feet;
        }
        const int floor = feet - 5;
        EXPECT_EQ(stage.Rgb(160 - 76, floor), kTileEdge);
        EXPECT_NE(stage.Rgb(160 - 76, floor - 1), kTileEdge);
    }
}

TEST(Character, StandsStillOnTheFloorWhenItStops) {
    PeopledStage stage(kGroundAndTile);
    stage.Run("right:45", 46);
    const Span body = stage.Columns(190, kBlue);
    stage.Run("", 3);
    EXPECT_EQ(stage.Columns(190, kBlue), body);
    EXPECT_EQ(body, Span(157, 162));
    EXPECT_EQ(stage.Columns(215, kTileEdge), Span(140, 140)) << "and the floor does not slide";
}

TEST(Character, StaysWithinTheStage) {
    PeopledStage stage(std::string(kGround) + "[PlayerInfo]\nscreenleft = 15\nscreenright = 15\n" +
                       kBackdrop);
    stage.Run("right:400", 400);
    EXPECT_EQ(stage.Model().CamX, -100.0F);
    EXPECT_EQ(stage.Hero().X, 404.0F) << "the last whole step before 405";
    stage.Run("left:500", 500);
    EXPECT_EQ(stage.Model().CamX, 100.0F);
    EXPECT_EQ(stage.Hero().X, -84.0F);
}

TEST(Character, GoesDownInTheViewAsTheCameraRises) {
    PeopledStage stage(kGroundAndBackdrop);
    stage.Run("up:10", 12);
    EXPECT_EQ(stage.Model().CamY, -20.0F) << "two steps a frame";
    EXPECT_EQ(stage.Columns(230, kGreen), Span(87, 92));
}

TEST(Character, GoesUpAndDownWithTheElementItStandsOn) {
    PeopledStage stage(
        "[PlayerInfo]\np1startx = -70\n[StageInfo]\nzoffsetlink = 7\n"
        "[Camera]\nboundhigh = -60\n" +
        std::string(kBackdrop) +
        "[BG lift]\ntype = normal\nid = 7\nspriteno = 2,0\nstart = -70,100\ndelta = 1,1\n"
        "velocity = 0,2\n");
    stage.Run("", 1);
    EXPECT_EQ(stage.Columns(100, kGreen), Span(87, 92));
    stage.Run("", 4);
    EXPECT_EQ(stage.Columns(108, kGreen), Span(87, 92));
    stage.Run("up:5", 7);  // 10 up, and 14 on
    EXPECT_EQ(stage.Columns(132, kGreen), Span(87, 92));
}

// Its feet are where the lift is drawn in that very frame.
TEST(Character, GoesUpAndDownWithAnElementThatAControllerMoves) {
    PeopledStage stage(
        "[PlayerInfo]\np1startx = -70\n[StageInfo]\nzoffsetlink = 7\n" + std::string(kBackdrop) +
        "[BG lift]\ntype = normal\nid = 7\nspriteno = 2,0\nstart = -70,100\ndelta = 1,1\n"
        "[BGCtrlDef]\nctrlid = 7\n[BGCtrl]\ntype = posadd\ntime = 0,200\ny = 2\n");
    for (const int frame : {1, 2, 3}) {
        stage.Run("", 1);
        const float lift = stage.Model().Elements.back().posY;
        EXPECT_EQ(lift, static_cast<float>(100 + 2 * frame));
        EXPECT_EQ(stage.Columns(100 + 2 * frame, kGreen), Span(87, 92)) << frame;
    }
}

TEST(Character, IsDrawnBetweenTheLayers) {
    PeopledStage stage(kGroundAndBackdrop +
                       "[BG front]\ntype = normal\nlayerno = 1\nspriteno = 1,0\nstart = -70,205\n"
                       "mask = 1\n");
    stage.Run("", 1);
    EXPECT_EQ(stage.Rgb(90, 190), 0xD03028U) << "the arrow's shaft";
    EXPECT_EQ(stage.Rgb(90, 183), kBlue) << "above it";
}

TEST(Character, IsNotSeenPlainlyAndTheKeysMoveTheCamera) {
    PeopledStage stage(kGroundAndBackdrop, false);
    stage.Run("right:3", 3);
    EXPECT_EQ(stage.Columns(190, kBlue), Span(-1, -1));
    EXPECT_EQ(stage.Model().CamX, -12.0F) << "six of its steps";
    EXPECT_TRUE(stage.TestChar().CharLoaded);
    EXPECT_EQ(stage.Hero().X, 90.0F);
}

TEST(Character, IsAsLargeInAPictureOfMorePixels) {
    PeopledStage stage(
        "[StageInfo]\nlocalcoord = 640,480\nzoffset = 420\n"
        "[PlayerInfo]\np1startx = -140\n" +
        std::string(kBackdrop));
    stage.Run("", 1);
    EXPECT_EQ(stage.Columns(380, kBlue), Span(174, 185));
    EXPECT_EQ(stage.Columns(420, kGreen), Span(174, 185));
}

TEST(Character, AsksForNoMemoryWhileItWalks) {
    PeopledStage stage(kGroundAndTile);
    stage.Run("right:20,left:20,none:20,right:30,left:60,right:10", 60);
    const std::size_t before = AllocationCount();
    stage.Run(100);
    EXPECT_EQ(AllocationCount(), before);
}

// Standing, walking, in a turn, looking left; as it is and scaled.
TEST(CharacterGolden, Walk) {
    PeopledStage stage(kGroundAndTile);
    stage.Run("right:60", 60);
    EXPECT_TRUE(MatchesGolden("character_right", stage.Picture()));
    stage.Run("left:3", 3);
    EXPECT_TRUE(MatchesGolden("character_turn", stage.Picture()));
    stage.Run("left:30", 30);
    EXPECT_TRUE(MatchesGolden("character_left", stage.Picture()));
}

TEST(CharacterGolden, Scaled) {
    PeopledStage stage(kGroundAndBackdrop, true, "xscale = 1.5\nyscale = 2\n");
    stage.Run("right:9", 9);
    EXPECT_TRUE(MatchesGolden("character_scaled", stage.Picture()));
}

// --- characters of others, and our own ---

// The row of the view that a character's axis stands on.
float FeetRow(const ShotStage& stage) {
    const TestCharacter& hero = stage.Hero();
    const CharSprite& sprite = hero.Sprites.at(static_cast<std::size_t>(hero.DrawTexture));
    return hero.DrawY + static_cast<float>(sprite.axisY) * hero.YScale * stage.TestChar().CharZoom;
}

struct RealCase {
    const char* folder;
    const char* stage;
    const char* character;
};

class RealCharacters : public testing::TestWithParam<RealCase> {};

TEST_P(RealCharacters, StandWalkBothWaysAndTurn) {
    const auto& [folder, stageName, character] = GetParam();
    if (!std::ifstream(std::string(folder) + "/chars/" + character)) {
        GTEST_SKIP() << "no " << character << " in " << folder
                     << "/chars (set SCENARA_SAMPLE_DATA to a MUGEN folder)";
    }
    const std::string mugen = folder;
    ShotStage stage(std::make_unique<PosixFiles>(""), mugen + "/stages/" + stageName, mugen,
                    mugen + "/chars/" + character, ViewOptions());
    ASSERT_TRUE(stage.TestChar().CharLoaded);
    for (const CharAction& action : stage.Hero().Actions) {
        EXPECT_FALSE(action.frames.empty());
        for (const CharFrame& frame : action.frames) {
            EXPECT_GE(frame.texture, 0) << frame.group << "," << frame.image;
        }
    }
    stage.Run("", 1);
    EXPECT_EQ(FeetRow(stage), static_cast<float>(stage.Model().ZOffset));
    const float start = stage.Hero().X;
    EXPECT_EQ(start, static_cast<float>(stage.Model().P1StartX +
                                        ViewOf(stage.Model(), ViewOptions()).Centre()));
    stage.Run("right:100", 100);
    EXPECT_GT(stage.Hero().X, start + 100);
    EXPECT_LT(stage.Model().CamX, 0.0F) << "the camera went along";
    const float right = stage.Hero().X;
    stage.Run("left:1", 1);
    EXPECT_EQ(stage.Hero().Action, kTurning);
    stage.Run("left:120", 120);
    EXPECT_EQ(stage.Hero().Action, kWalking);
    EXPECT_EQ(stage.Hero().DrawFacing, kFacingLeft);
    EXPECT_LT(stage.Hero().X, right - 100);
    stage.Run("", 2);
    EXPECT_EQ(stage.Hero().Action, kStanding);
    EXPECT_EQ(FeetRow(stage), static_cast<float>(stage.Model().ZOffset));
}

INSTANTIATE_TEST_SUITE_P(
    , RealCharacters,
    testing::Values(
        RealCase{SCENARA_BUNDLED_DATA, "cloudharbour.def", "lanternkeeper/lanternkeeper.def"},
        RealCase{SCENARA_BUNDLED_DATA, "glasslagoon.def", "lanternkeeper/lanternkeeper.def"},
        RealCase{SCENARA_BUNDLED_DATA, "lanternpier.def", "lanternkeeper/lanternkeeper.def"},
        RealCase{SCENARA_BUNDLED_DATA, "millfair.def", "lanternkeeper/lanternkeeper.def"},
        RealCase{SCENARA_BUNDLED_DATA, "thousandpanes.def", "lanternkeeper/lanternkeeper.def"},
        RealCase{SCENARA_SAMPLE_DATA, "kfm.def", "kfm/kfm.def"},
        RealCase{SCENARA_SAMPLE_DATA, "stage0.def", "kfm/kfm.def"}),
    [](const testing::TestParamInfo<RealCase>& row) {
        return std::string(row.param.character, 3) + "On" +
               std::string(row.param.stage, std::string(row.param.stage).find('.'));
    });

}  // namespace
}  // namespace scenara::test
