// SPDX-License-Identifier: MIT
//
// Stages on the disk: real ones, where they are there, and the bundled ones.
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelText.h"
#include "PlainMachine.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ProgramFolder.h"
#include "stage/LoadStage.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kRealFolder = std::string(SCENARA_SAMPLE_DATA) + "/";
constexpr std::array kStagesOfVersion2 = {"glasslagoon.def", "millfair.def"};
const std::string kBundledFolder = std::string(SCENARA_BUNDLED_DATA) + "/";

// A stage of a MUGEN folder on the disk, loaded by a program that lives in a folder of its own.
struct DiskStage {
    DiskStage(const std::string& mugeDir, const std::string& name,
              const ViewOptions& view = kPlainView) {
        machine.view = view;
        PosixFiles files(program.Path());
        std::string path = mugeDir + "stages/" + name;
        loaded = LoadStage(machine.model, path,
                           machine.Context(files, machine.messages, machine.window, mugeDir));
        EXPECT_EQ(path, mugeDir + "stages/" + name);
        EXPECT_TRUE(fs::is_empty(program.Path())) << "something was left in the program's folder";
    }

    [[nodiscard]] const StageModel& Model() const { return machine.model; }

    TemporaryFolder program;
    PlainMachine machine;
    bool loaded = false;
};

class RealStages : public testing::Test {
protected:
    void SetUp() override {
        if (!fs::exists(kRealFolder + "stages/kfm.def")) {
            GTEST_SKIP() << "No real MUGEN content in " << kRealFolder
                         << "; give its place with -DSCENARA_SAMPLE_DATA=DIR.";
        }
    }
};

TEST_F(RealStages, TempleLoadsWithoutAWord) {
    const DiskStage stage(kRealFolder, "kfm.def");
    EXPECT_TRUE(stage.loaded);
    EXPECT_THAT(stage.machine.MessageTexts(), IsEmpty());
    EXPECT_EQ(stage.machine.music, kRealFolder + "sound/kfm.mid");
}

TEST_F(RealStages, TempleSettings) {
    const DiskStage stage(kRealFolder, "kfm.def");
    EXPECT_EQ(
        FieldsText(stage.Model()),
        "StageTitle='\"mountainside temple\"'\nCamStartX=0\nCamStartY=0\nBoundLeft=-150\n"
        "BoundRight=150\nBoundHigh=-22\nBoundLow=0\nMusicFile='sound/kfm.mid'\nZOffset=200\n"
        "ZOffsetLink=-1\nP1StartX=-70\nTension=60\nScreenLeft=15\nScreenRight=15\nCamX=0\n"
        "CamY=0\nLastImageWidth=282\nLastImageHeight=8\n"
        "ElementCount=7\nSpriteCount=7\nActionCount=0\nCtrlDefCount=0\nElementsById=\n"
        "hires=0\nlocalcoordWidth=0\nlocalcoordHeight=0\n"
        "MugenVersion=0\ndebugbg=0\nbgclearcolor=0 0 0 \nMusicVolume=100\n"
        "MusicVolumeOffset=0\nMusicLoopStart=0\nMusicLoopEnd=-1\nStageXScale=1\nStageYScale=1\n"
        "ZoomOut=1\nZoomIn=1\nStartZoom=1\nCamZoom=1\n");
}

// What the definition says of an element.
struct ElementRow {
    std::string name;
    std::string type;
    Long group;
    Integer image;
    Long startY;
    Single deltaX;
    Single deltaY;
    Integer mask;
    Long tileX;
    Integer spriteIndex;
    std::string trans;
};

BackgroundElement ElementOf(const ElementRow& row) {
    BackgroundElement element;
    element.name = row.name;
    element.type = row.type;
    element.spriteGroup = row.group;
    element.spriteImage = row.image;
    element.startY = row.startY;
    element.deltaX = row.deltaX;
    element.deltaY = row.deltaY;
    element.deltaRead = {row.deltaX, row.deltaY};
    element.mask = row.mask;
    element.tileX = row.tileX;
    element.spriteIndex = row.spriteIndex;
    element.trans = row.trans;
    return element;
}

TEST_F(RealStages, TempleElements) {
    std::vector<BackgroundElement> expected;
    for (const ElementRow& row :
         {ElementRow{"0", "normal", 0, 0, 0, 0.5F, 0.5F, 0, 0, 0, "none"},
          ElementRow{"Floor", "parallax", 10, 0, 181, 0.78F, 0.75F, 0, 0, 3, ""},
          ElementRow{"Ceiling", "parallax", 11, 0, 10, 1.1115F, 0.75F, 0, 0, 4, ""},
          ElementRow{"Wall reflection on floor", "normal", 1, 1, 239, 0.8F, 0.75F, 1, 1, 2,
                     "addalpha"},
          ElementRow{"Wall", "normal", 1, 0, 11, 0.8F, 0.75F, 1, 1, 1, ""},
          ElementRow{"Pillar Bottom", "normal", 15, 0, 180, 0.8F, 0.75F, 1, 1, 5, ""},
          ElementRow{"Pillar Top", "normal", 15, 1, 11, 0.8F, 0.75F, 1, 1, 6, ""}}) {
        expected.push_back(ElementOf(row));
    }
    expected[1].xscaleTop = 1;
    expected[1].xscaleBottom = 1.75F;
    expected[2].xscaleTop = 1.425F;
    expected[2].xscaleBottom = 1;
    const DiskStage stage(kRealFolder, "kfm.def");
    EXPECT_EQ(TableText("element", stage.Model().Elements), TableText("element", expected));
}

TEST_F(RealStages, TempleSprites) {
    const DiskStage stage(kRealFolder, "kfm.def");
    ASSERT_EQ(stage.Model().Sprites.size(), 7U);
    std::vector<std::array<int, 9>> sprites;
    for (const SpriteEntry& s : stage.Model().Sprites) {
        sprites.push_back({s.group, s.image, s.axisX, s.axisY, s.width, s.height, s.masked,
                           s.keyRed, s.linkedTo});
    }
    using Row = std::array<int, 9>;
    EXPECT_THAT(
        sprites,
        ElementsAre(Row{0, 0, 240, -17, 480, 130, 0, 0, -1},
                    Row{1, 0, 141, 0, 282, 170, 1, 0x80, -1}, Row{1, 1, 141, 59, 282, 60, 1, 0, -1},
                    Row{10, 0, 370, 0, 740, 60, 0, 0x80, -1},
                    Row{11, 0, 325, 33, 650, 34, 0, 3, -1}, Row{15, 0, 141, 0, 282, 8, 1, 0x80, -1},
                    // The last one has the palette of the one before.
                    Row{15, 1, 141, 8, 282, 8, 1, 0x80, -1}));
}

TEST_F(RealStages, TempleCaptions) {
    const DiskStage stage(kRealFolder, "kfm.def");
    const std::string loading = "Loading \"mountainside temple\" ";
    EXPECT_THAT(stage.machine.window.Captions(),
                ElementsAre(loading + "%", loading + "14%", loading + "29%", loading + "43%",
                            loading + "57%", loading + "71%", loading + "86%"));
}

TEST_F(RealStages, TrainingRoomLoadsWithoutAWord) {
    const DiskStage stage(kRealFolder, "stage0.def");
    EXPECT_TRUE(stage.loaded);
    EXPECT_THAT(stage.machine.MessageTexts(), IsEmpty());
    EXPECT_EQ(stage.machine.music, "");
}

TEST_F(RealStages, TrainingRoomModel) {
    const DiskStage stage(kRealFolder, "stage0.def");
    const StageModel& model = stage.Model();
    EXPECT_EQ(
        FieldsText(model),
        "StageTitle='\"training room\"'\nCamStartX=0\nCamStartY=0\nBoundLeft=-125\n"
        "BoundRight=125\nBoundHigh=-25\nBoundLow=0\nMusicFile=''\nZOffset=190\n"
        "ZOffsetLink=-1\nP1StartX=-70\nTension=50\nScreenLeft=15\nScreenRight=15\nCamX=0\n"
        "CamY=0\nLastImageWidth=35\nLastImageHeight=57\n"
        "ElementCount=2\nSpriteCount=2\nActionCount=0\nCtrlDefCount=0\nElementsById=\n"
        "hires=0\nlocalcoordWidth=0\nlocalcoordHeight=0\n"
        "MugenVersion=0\ndebugbg=0\nbgclearcolor=0 0 0 \nMusicVolume=100\n"
        "MusicVolumeOffset=0\nMusicLoopStart=0\nMusicLoopEnd=-1\nStageXScale=1\nStageYScale=1\n"
        "ZoomOut=1\nZoomIn=1\nStartZoom=1\nCamZoom=1\n");
    EXPECT_EQ(TableText("element", model.Elements),
              TableText("element",
                        std::vector{ElementOf({"0", "normal", 0, 0, 0, 1, 1, 0, 1, 0, "none"}),
                                    ElementOf({"1", "normal", 0, 1, 185, 1, 1, 0, 1, 1, ""})}));
    ASSERT_EQ(model.Sprites.size(), 2U);
    EXPECT_EQ(model.Sprites[0].axisY, 25);
    EXPECT_EQ(model.Sprites[0].width, 50);
    EXPECT_EQ(model.Sprites[0].height, 240);
    EXPECT_EQ(model.Sprites[1].width, 35);
}

std::string BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    ASSERT_TRUE(file.good());
}

TEST_F(RealStages, BareLineFeedsAndBareCarriageReturnsGiveTheSameModel) {
    for (const std::string name : {"kfm", "stage0"}) {
        const DiskStage original(kRealFolder, name + ".def");
        for (const char lineEnd : {'\n', '\r'}) {
            const TemporaryFolder folder;
            fs::create_directory(folder.Path() + "stages");
            std::string text = BytesOf(kRealFolder + "stages/" + name + ".def");
            std::erase(text, '\r');
            std::replace(text.begin(), text.end(), '\n', lineEnd);
            WriteBytes(folder.Path() + "stages/" + name + ".def", text);
            WriteBytes(folder.Path() + "stages/" + name + ".sff",
                       BytesOf(kRealFolder + "stages/" + name + ".sff"));
            const DiskStage changed(folder.Path(), name + ".def");
            EXPECT_TRUE(changed.loaded);
            EXPECT_THAT(changed.machine.MessageTexts(), IsEmpty());
            EXPECT_EQ(ModelText(changed.Model()), ModelText(original.Model()));
        }
    }
}

// Their definitions; never none.
std::vector<std::string> BundledStages() {
    PosixFiles files("/");
    std::vector<std::string> names = files.List(kBundledFolder + "stages/", ".def");
    EXPECT_FALSE(names.empty()) << "No stages in " << kBundledFolder
                                << "; build the target samples.";
    return names;
}

TEST(BundledStages, LoadWithoutAWord) {
    for (const std::string& name : BundledStages()) {
        const DiskStage stage(kBundledFolder, name, ViewOptions());
        EXPECT_TRUE(stage.loaded) << name;
        EXPECT_THAT(stage.machine.MessageTexts(), IsEmpty()) << name;
        EXPECT_GT(stage.Model().ElementCount, 0) << name;
    }
}

TEST(BundledStages, OpenPlainly) {
    for (const std::string& name : BundledStages()) {
        const DiskStage stage(kBundledFolder, name, kPlainView);
        EXPECT_TRUE(stage.loaded) << name;
        EXPECT_GT(stage.Model().ElementCount, 0) << name;
        if (std::ranges::find(kStagesOfVersion2, name) == kStagesOfVersion2.end()) {
            EXPECT_GT(stage.Model().SpriteCount, 0) << name;
        }
    }
}

TEST(BundledStages, ArchivesOfVersion2AreReadWithAdditionsOnly) {
    for (const char* name : kStagesOfVersion2) {
        const DiskStage whole(kBundledFolder, name, ViewOptions());
        EXPECT_GT(whole.Model().SpriteCount, 0) << name;
        const DiskStage plain(kBundledFolder, name, kPlainView);
        EXPECT_EQ(plain.Model().SpriteCount, 0) << name;
        EXPECT_THAT(plain.machine.MessageTexts(), Contains(HasSubstr("version 2.01"))) << name;
    }
}

// "1001 Panes" is written so that the two readings differ.
TEST(BundledStages, PanesIsReadInFullWithAdditionsOnly) {
    const DiskStage whole(kBundledFolder, "thousandpanes.def", ViewOptions());
    EXPECT_EQ(whole.Model().StageTitle, "1001 Panes");
    EXPECT_EQ(whole.Model().CamStartX, 0.0F) << "startx = 0";
    const DiskStage plain(kBundledFolder, "thousandpanes.def", kPlainView);
    EXPECT_EQ(plain.Model().StageTitle, "\"1001") << "cut at the blank behind a digit";
    EXPECT_EQ(plain.Model().CamStartX, 70.0F) << "p2StartX = 70 taken for startx";
}

TEST(BundledStages, EverythingThatTheyNameIsThere) {
    PosixFiles files("/");
    for (const std::string& name : BundledStages()) {
        const DiskStage stage(kBundledFolder, name, ViewOptions());
        EXPECT_TRUE(files.FileExists(stage.machine.music)) << name << ": " << stage.machine.music;
        for (const BackgroundElement& element : stage.Model().Elements) {
            const bool frames = element.type == "anim" || element.spriteIndex == kPicturesOfAction;
            EXPECT_GE(frames ? element.actionIndex : element.spriteIndex, 0)
                << name << ": " << element.name;
        }
        for (const StageAction& action : stage.Model().Actions) {
            for (const StageFrame& frame : action.frames) {
                EXPECT_TRUE(frame.spriteIndex >= 0 || frame.group == -1)
                    << name << ": action " << action.actionNo;
            }
        }
    }
}

}  // namespace
}  // namespace scenara::test
