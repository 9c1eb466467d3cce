// SPDX-License-Identifier: MIT
#include "stage/LoadStage.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Around.h"
#include "ModelText.h"
#include "PlainMachine.h"
#include "base/Path.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "support/FuzzChecks.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// A definition that sets every kind of thing. Its archive is SmallArchiveBytes, with the pictures
// 0,0 and 0,1 and the linked 1,0.
constexpr std::string_view kRich =
    "[Info]\r\nname = Old Town\r\n[Camera]\r\nstartx = 5\r\nstarty = -3\r\nboundleft = -100\r\n"
    "boundright = 110\r\nboundhigh = -20\r\nboundlow = 0\r\ntension = 50\r\n"
    "[PlayerInfo]\r\np1startx = -70\r\n[Bound]\r\nscreenleft = 15\r\nscreenright = 16\r\n"
    "[StageInfo]\r\nzoffset = 200\r\nzoffsetlink = 4\r\n[Music]\r\nbgmusic = sound/a.mp3\r\n"
    "[BGdef]\r\nspr = a.sff\r\n"
    "[BG Wall]\r\ntype = normal\r\nspriteno = 0, 1\r\nmask = 1\r\nid = 4\r\n"
    "[BG Missing]\r\ntype = norm\r\nspriteno = 9, 9\r\n"
    "[BG Lamp]\r\ntype = anim\r\nactionno = 7\r\n"
    "[Begin Action 7]\r\n1,0, 0,0, 5\r\nloopstart\r\n0,0, 0,0, 5\r\n5,5, 0,0, 5\r\n"
    "[BGCtrlDef One]\r\nlooptime = 60\r\nctrlid = 4\r\n"
    "[BGCtrl a]\r\ntype = velset\r\ntime = 3\r\nx = 1\r\n";

void PutArchive(StageMachine& machine) {
    machine.files.Put("/mugen/stages/a.sff", SmallArchiveBytes());
}

TEST(LoadStage, WholeStage) {
    PlainMachine machine;
    PutArchive(machine);
    ASSERT_TRUE(machine.Load(kRich));
    EXPECT_THAT(machine.MessageTexts(), IsEmpty());
    const StageModel& model = machine.model;
    EXPECT_EQ(model.StageTitle, "old town");
    EXPECT_EQ(model.CamStartX, 5);
    EXPECT_EQ(model.BoundRight, 110);
    EXPECT_EQ(model.ZOffsetLink, 4);
    EXPECT_EQ(model.Archive.path, "/mugen/stages/a.sff");
    EXPECT_EQ(model.Archive.version, "1.01");
    ASSERT_EQ(model.SpriteCount, 3);
    ASSERT_EQ(model.ElementCount, 3);
    EXPECT_EQ(model.Elements[0].spriteIndex, 1);
    EXPECT_EQ(model.Elements[1].spriteIndex, -1);
    EXPECT_EQ(model.Elements[2].spriteIndex, -1);
    EXPECT_EQ(model.Elements[2].actionIndex, 0);
    EXPECT_EQ(model.Elements[2].mask, 1);
    ASSERT_EQ(model.ActionCount, 1);
    EXPECT_EQ(model.Actions[0].loopstart, 1);
    EXPECT_EQ(model.Actions[0].frames.at(0).spriteIndex, 2);
    EXPECT_EQ(model.Actions[0].frames.at(1).spriteIndex, 0);
    EXPECT_EQ(model.Actions[0].frames.at(2).spriteIndex, -1);
    EXPECT_EQ(model.CtrlDefs.at(0).controls.at(0).x, 1);
    EXPECT_EQ(machine.music, std::string("/mugen/") + "sound/a.mp3");
}

TEST(LoadStage, PicturesOfMaskedStillElementsAreMasked) {
    PlainMachine machine;
    PutArchive(machine);
    ASSERT_TRUE(machine.Load(kRich));
    EXPECT_EQ(machine.model.Sprites.at(0).masked, 0);
    EXPECT_EQ(machine.model.Sprites.at(1).masked, 1);
    EXPECT_EQ(machine.model.Sprites.at(2).masked, 0);
}

TEST(LoadStage, EmptyFileIsAStageWithoutAnything) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load(""));
    EXPECT_EQ(ModelText(machine.model), ModelText(StageModel()));
    EXPECT_THAT(machine.OtherMessageTexts(), IsEmpty());
}

TEST(LoadStage, StageWithoutElements) {
    PlainMachine machine;
    PutArchive(machine);
    ASSERT_TRUE(machine.Load("[BGdef]\r\nspr = a.sff\r\n"));
    EXPECT_EQ(machine.model.ElementCount, 0);
    EXPECT_EQ(machine.model.SpriteCount, 3);
    EXPECT_THAT(machine.MessageTexts(), IsEmpty());
}

TEST(LoadStage, BoundLowIsAlwaysZero) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load("[Camera]\r\nboundlow = 30\r\nboundhigh = -30\r\n"));
    EXPECT_EQ(machine.model.BoundLow, 0);
    EXPECT_EQ(machine.model.BoundHigh, -30);
}

TEST(LoadStage, NegativeTileCountIsSaid) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load("[BG]\r\ntype = anim\r\ntile = -1\r\n[BG]\r\ntile = 0, -2\r\n"));
    EXPECT_EQ(machine.model.Elements.at(0).tileX, 1);
    EXPECT_EQ(machine.model.Elements.at(1).tileY, 1);
    EXPECT_THAT(machine.OtherMessageTexts(), ElementsAre("TileX < 0", "TileY < 0"));
}

TEST(LoadStage, ActionsMayStandBehindTheirElements) {
    PlainMachine machine;
    ASSERT_TRUE(
        machine.Load("[Begin Action 1]\r\n[BG]\r\ntype = anim\r\nactionno = 5\r\n"
                     "[BG]\r\ntype = anim\r\nactionno = 6\r\n[Begin Action 5]\r\n"));
    EXPECT_EQ(machine.model.Elements.at(0).actionIndex, 1);
    EXPECT_EQ(machine.model.Elements.at(1).actionIndex, -1);
}

TEST(LoadStage, ProblemsAreSaidInTheOrderOfTheFileAndTheLoadGoesOn) {
    PlainMachine machine;
    ASSERT_TRUE(
        machine.Load("[BG a]\r\nwindowdelta = 1, 1\r\nlayerno = 99999\r\n[BG b]\r\ntype = null\r\n"
                     "[Begin Action 1]\r\n0,0, 0,0, 5, V\r\n0,0, 0,0, h\r\n[BG c]\r\ntile = -1\r\n"
                     "[BGdef]\r\nspr = none.sff\r\n"));
    EXPECT_THAT(machine.MessageTexts(),
                ElementsAre("Windowdelta not supported just yet..", "Overflow: layerno, line 3",
                            "NULL BG 1", "vertical flip not coded yet dude..", "DOOM FIX",
                            "TileX < 0", "SFF FILE:\r\nnone.sff\r\nCOULD NOT BE FOUND!"));
    EXPECT_EQ(machine.model.ElementCount, 2);
}

// Music

TEST(LoadStage, MusicLiesUnderTheEngineFolder) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load("[Music]\r\nbgmusic = Sound\\A.mp3\r\n"));
    EXPECT_EQ(machine.model.MusicFile, "sound\\a.mp3");
    EXPECT_EQ(machine.music, "/mugen/sound\\a.mp3");
}

TEST(LoadStage, AdditionMusicIsAlsoFoundInTheFolderThatTheStageIsIn) {
    for (const bool additions : {true, false}) {
        StageMachine machine;
        machine.view.Additions = additions;
        const auto musicOf = [&](const std::string& name) {
            const std::string stage = "/other/stages/test.def";
            machine.files.Put(stage, "[Music]\r\nbgmusic = " + name + "\r\n");
            EXPECT_TRUE(machine.LoadFile(stage));
            return machine.music;
        };
        machine.files.Put("/other/sound/a.mp3", std::string("music"));
        EXPECT_EQ(musicOf("sound/a.mp3"), additions ? "/other/sound/a.mp3" : "/mugen/sound/a.mp3");
        EXPECT_EQ(musicOf("sound/gone.mp3"), "/mugen/sound/gone.mp3");
        machine.files.Put("/mugen/sound/a.mp3", std::string("the user's"));
        EXPECT_EQ(musicOf("sound/a.mp3"), "/mugen/sound/a.mp3");
    }
}

TEST(LoadStage, MusicWithAColonIsTakenAsWritten) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load("[Music]\r\nbgmusic = d:/a.mp3\r\n"));
    EXPECT_EQ(machine.music, "d:/a.mp3");
}

TEST(LoadStage, StageWithoutMusicNamesNone) {
    PlainMachine machine;
    machine.music = "as it was";
    ASSERT_TRUE(machine.Load("[Music]\r\nbgmusic =\r\n"));
    EXPECT_EQ(machine.music, "as it was");
    ASSERT_TRUE(machine.Load("[Info]\r\n"));
    EXPECT_EQ(machine.music, "as it was");
}

TEST(LoadStage, MusicNeedsNoListener) {
    PlainMachine machine;
    machine.files.Put(kTestStage, std::string("bgmusic = a.mp3"));
    std::string path = kTestStage;
    const LoadStageContext context{machine.files, machine.messages, machine.window, machine.device,
                                   machine.view,  "/mugen/",        nullptr};
    EXPECT_TRUE(LoadStage(machine.model, path, context));
    EXPECT_EQ(machine.model.MusicFile, "a.mp3");
}

TEST(LoadStage, EngineFolderMayLackItsSeparator) {
    PlainMachine machine;
    machine.files.Put(kTestStage, std::string("bgmusic = a.mp3\nspr = a.sff"));
    machine.files.Put("/mugen/a.sff", SmallArchiveBytes());
    std::string path = kTestStage;
    const LoadStageContext context{machine.files,
                                   machine.messages,
                                   machine.window,
                                   machine.device,
                                   machine.view,
                                   "/mugen",
                                   [&machine](const std::string& file) { machine.music = file; }};
    EXPECT_TRUE(LoadStage(machine.model, path, context));
    EXPECT_EQ(machine.music, JoinPath("/mugen", "a.mp3"));
    EXPECT_EQ(machine.model.SpriteCount, 3);
}

// The archive

TEST(LoadStage, ArchiveIsLookedForInOrder) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load("spr = x/a.sff"));
    EXPECT_THAT(machine.files.Asked(),
                ElementsAre("/mugen/x/a.sff", "/mugen/stages/x/a.sff", "/mugen/stages/x\\a.sff",
                            "/mugen/stages/x/a.sff"));
}

TEST(LoadStage, ArchiveUnderTheEngineFolderGoesBeforeTheOneBesideTheDefinition) {
    PlainMachine machine;
    PutArchive(machine);
    machine.files.Put("/mugen/a.sff", std::string("no archive"));
    ASSERT_TRUE(machine.Load("spr = a.sff"));
    EXPECT_EQ(machine.model.SpriteCount, 0);
    ASSERT_EQ(machine.MessageTexts().size(), 1U);
    EXPECT_THAT(machine.MessageTexts()[0], StartsWith("SFF Error:  /mugen/a.sff\r\n"));
}

TEST(LoadStage, ArchiveWithAColonIsTakenAsWritten) {
    PlainMachine machine;
    machine.files.Put("d:/x/a.sff", SmallArchiveBytes());
    ASSERT_TRUE(machine.Load("spr = D:\\x\\A.sff"));
    EXPECT_EQ(machine.model.SpriteCount, 3);
    EXPECT_THAT(machine.MessageTexts(), IsEmpty());
}

TEST(LoadStage, MissingArchiveIsSaidAndLeavesAStageWithoutSprites) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load("spr = None.sff\r\n[BG]\r\n[Begin Action 1]\r\n0,0, 0,0, 1\r\n"));
    EXPECT_THAT(machine.MessageTexts(),
                ElementsAre("SFF FILE:\r\nnone.sff\r\nCOULD NOT BE FOUND!"));
    EXPECT_EQ(machine.messages.Recorded()[0].kind, kMessageArchiveMissing);
    EXPECT_EQ(machine.model.SpriteCount, 0);
    EXPECT_EQ(machine.model.Elements.at(0).spriteIndex, -1);
    EXPECT_EQ(machine.model.Actions.at(0).frames.at(0).spriteIndex, -1);
    EXPECT_THAT(machine.window.Captions(), IsEmpty());
}

TEST(LoadStage, StageThatNamesNoArchiveHasNone) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load("[BG]\r\n"));
    EXPECT_THAT(machine.MessageTexts(), ElementsAre("SFF FILE:\r\n\r\nCOULD NOT BE FOUND!"));
}

TEST(LoadStage, ArchiveThatIsGoneSinceItWasFoundIsMissing) {
    class Forgetful : public MemoryFiles {
    public:
        bool FileExists(const std::string&) override { return true; }
    };
    PlainMachine machine;
    Forgetful files;
    files.Put(kTestStage, std::string("spr = a.sff"));
    std::string path = kTestStage;
    EXPECT_TRUE(
        LoadStage(machine.model, path, machine.Context(files, machine.messages, machine.window)));
    EXPECT_THAT(machine.MessageTexts(), ElementsAre("SFF FILE:\r\na.sff\r\nCOULD NOT BE FOUND!"));
}

TEST(LoadStage, SpritesBeyondTheTableAreNotKept) {
    std::vector<samplemaker::Sff1Subfile> subfiles(32'768);
    subfiles[0].data = WritePcx(samplemaker::IndexedPicture{1, 1, {5}, {}});
    PlainMachine machine;
    machine.files.Put("/mugen/a.sff", WriteSff1(subfiles));
    ASSERT_TRUE(machine.Load("spr = a.sff"));
    EXPECT_EQ(machine.model.SpriteCount, 32'767);
    EXPECT_EQ(machine.model.Sprites.size(), 32'767U);
    EXPECT_EQ(machine.MessageTexts().size(), 1U);
}

TEST(LoadStage, CaptionTellsHowFarTheImagesAre) {
    PlainMachine machine;
    PutArchive(machine);
    ASSERT_TRUE(machine.Load("[BGdef]\r\nspr = a.sff\r\n[Info]\r\nname = Old Town\r\n"));
    EXPECT_THAT(machine.window.Captions(),
                ElementsAre("Loading old town %", "Loading old town 33%", "Loading old town 67%"));
    EXPECT_EQ(machine.window.DoEventsCount(), 3U);
}

// One load after another

TEST(LoadStage, SecondLoadInheritsNothing) {
    PlainMachine machine;
    PutArchive(machine);
    ASSERT_TRUE(machine.Load(kRich));
    const std::weak_ptr<Direct3DTexture8> texture = machine.model.Sprites.at(0).texture;
    ASSERT_FALSE(texture.expired());
    ASSERT_TRUE(machine.Load("[Nothing]\r\n"));
    EXPECT_EQ(ModelText(machine.model), ModelText(StageModel()));
    EXPECT_TRUE(texture.expired());
}

TEST(LoadStage, SecondLoadOfTheSameFileGivesTheSame) {
    PlainMachine machine;
    PutArchive(machine);
    ASSERT_TRUE(machine.Load(kRich));
    const std::string first = ModelText(machine.model);
    ASSERT_TRUE(machine.Load(kRich));
    EXPECT_EQ(ModelText(machine.model), first);
}

TEST(LoadStage, LastArchiveNameIsForgotten) {
    PlainMachine machine;
    PutArchive(machine);
    ASSERT_TRUE(machine.Load("spr = a.sff"));
    ASSERT_TRUE(machine.Load("[BG]"));
    EXPECT_THAT(machine.MessageTexts(), ElementsAre("SFF FILE:\r\n\r\nCOULD NOT BE FOUND!"));
}

// Closing the window

TEST(LoadStage, ClosedWindowEndsTheLoadAfterTheCurrentImage) {
    PlainMachine machine;
    PutArchive(machine);
    machine.files.Put(kTestStage, std::string(kRich));
    HeadlessWindow window([](HeadlessWindow& self) { self.RequestEnd(); });
    std::string path = kTestStage;
    (void)LoadStage(machine.model, path, machine.Context(machine.messages, window));
    EXPECT_EQ(machine.model.SpriteCount, 1);
    EXPECT_THAT(window.Captions(), ElementsAre("Loading old town %"));
    EXPECT_EQ(window.DoEventsCount(), 1U);
    EXPECT_THAT(machine.MessageTexts(), IsEmpty());
    EXPECT_EQ(machine.model.Elements.at(0).spriteIndex, -1);
}

TEST(LoadStage, WindowClosedAtAMessageEndsTheLoad) {
    PlainMachine machine;
    machine.files.Put(kTestStage,
                      std::string("[BG a]\r\nlayerno = 99999\r\n[BG b]\r\nid = 99999999999"
                                  "\r\n[BGdef]\r\nspr = none.sff\r\n"));
    int shown = 0;
    HeadlessMessages messages([&](const Message&) {
        ++shown;
        machine.window.RequestEnd();
    });
    std::string path = kTestStage;
    (void)LoadStage(machine.model, path, machine.Context(messages, machine.window));
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(path, kTestStage);
}

// Bad bytes

TEST(LoadStage, EveryByteMayStandInADefinition) {
    for (int byte = 0; byte < 256; ++byte) {
        PlainMachine machine;
        std::string definition = Around("[BG ", byte, "]\r\n");
        definition += Around("", byte, "\r\n");
        definition += Around("trans = <", byte, ">\r\n");
        definition += Around("", byte, "id = 5\r\n[Begin Action 1]\r\n");
        definition += Around("0,0,", byte, "\r\n");
        ASSERT_TRUE(machine.Load(definition)) << "byte " << byte;
        CheckModel(machine.model);
    }
}

TEST(LoadStage, EveryByteGoesIntoATextAsItIs) {
    for (int byte = 0; byte < 256; ++byte) {
        PlainMachine machine;
        ASSERT_TRUE(machine.Load(Around("[BG]\r\ntrans = <", byte, ">\r\n")));
        std::string expected = Around("<", byte, ">");
        if (byte == ';' || byte == '\r' || byte == '\n' || byte == 0x81) {
            expected = "<";
        } else if (byte == '\t') {
            expected = "<>";
        } else if (byte >= 'A' && byte <= 'Z') {
            expected = Around("<", byte + 32, ">");
        }
        EXPECT_EQ(machine.model.Elements.at(0).trans, expected) << "byte " << byte;
    }
}

TEST(LoadStage, LinesOfAMillionCharacters) {
    const std::string million(1'000'000, 'x');
    const std::string digits(1'000'000, '9');
    const std::string commas(1'000'000, ',');
    PlainMachine machine;
    ASSERT_TRUE(machine.Load("[Info]\r\n;" + million + "\r\nname = " + million + "\r\n[BG " +
                             million + "]\r\nid = " + digits + "\r\nstart = 5" + commas + "\r\n" +
                             million + "\r\n[Begin Action 1]\r\n" + commas + "\r\n[BGCtrlDef]\r\n" +
                             "ctrlid = 7" + commas + "\r\n" + std::string(1'000'000, '[') +
                             "\r\nlooptime = 5\r\n"));
    EXPECT_EQ(machine.model.StageTitle, million);
    EXPECT_EQ(machine.model.Elements.at(0).name, million);
    EXPECT_EQ(machine.model.Elements.at(0).startX, 5);
    EXPECT_EQ(machine.model.Actions.at(0).frameCount, 1);
    EXPECT_THAT(machine.model.CtrlDefs.at(0).ctrlIds, ElementsAre(7));
    EXPECT_EQ(machine.model.CtrlDefs.at(0).looptime, 5);
    EXPECT_THAT(machine.OtherMessageTexts(), ElementsAre("Overflow: id, line 5"));
}

TEST(LoadStage, MillionEmptyLines) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load("[BG]" + std::string(1'000'000, '\n') + "layerno = 99999"));
    EXPECT_THAT(machine.OtherMessageTexts(), ElementsAre("Overflow: layerno, line 1000001"));
}

}  // namespace
}  // namespace scenara::test
