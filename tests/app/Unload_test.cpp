// SPDX-License-Identifier: MIT
//
// The end of the program: what is released, what is saved, and what comes too late.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"
#include "support/LoadedImages.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kConfiguration = "/program/QX.CFG";
constexpr Long kItemA = 0;

TEST(FormUnload, SavesTheSettingsByteForByte) {
    RunningStage stage;
    stage.Load();
    stage.user = InTurn({[](RunningStage& running) {
                             running.Click(Menu::mnuInfo);
                             running.Click(Menu::mnuStageList);
                         },
                         [](RunningStage& running) { running.Click(Menu::mnuStageNext); },
                         [](RunningStage& running) { running.Click(Menu::mnuExit); }});
    stage.program.lstStages_Click(kItemA);
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_EQ(stage.files.Get(kConfiguration),
              "Version = 1.0A\r\n"
              "MugeDir = /mugen/\r\n"
              "HCamStep = 1\r\n"
              "VCamStep = 1\r\n"
              "BGMusic = True\r\n"
              "Info = True\r\n"
              "Char = False\r\n"
              "Deform = False\r\n"
              "DebugBG = False\r\n"
              "CharName = \r\n"
              "StageList = 255\r\n"
              "RecentFile = /mugen/stages/b.def\r\n"
              "RecentFile = /mugen/stages/a.def\r\n");
}

TEST(FormUnload, WithoutAnyStageTheStepsStayAtNothing) {
    RunningStage stage;
    stage.Load();
    stage.program.Form_Unload();
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_EQ(stage.files.Get(kConfiguration),
              "Version = 1.0A\r\n"
              "MugeDir = /mugen/\r\n"
              "HCamStep = 0\r\n"
              "VCamStep = 0\r\n"
              "BGMusic = True\r\n"
              "Info = False\r\n"
              "Char = False\r\n"
              "Deform = False\r\n"
              "DebugBG = False\r\n"
              "CharName = \r\n"
              "StageList = 0\r\n");
}

TEST(FormUnload, TheNextStartFindsWhatWasSaved) {
    RunningStage first;
    first.Load();
    first.user = InTurn({[](RunningStage& running) { running.Click(Menu::mnuStageList); },
                         [](RunningStage& running) { running.Click(Menu::mnuInfo); },
                         [](RunningStage& running) { running.Click(Menu::mnuExit); }});
    first.program.lstStages_Click(kItemA);

    RunningStage second;
    second.files.Put(kConfiguration, first.files.Get(kConfiguration));
    second.Load();
    EXPECT_EQ(second.program.MugeDir, "/mugen/");
    EXPECT_EQ(second.program.ShowStageList, 255);
    EXPECT_TRUE(second.form[Menu::mnuInfo].checked);
    EXPECT_TRUE(second.form[Menu::mnuMusic].checked);
    EXPECT_THAT(second.form.recentFiles, ElementsAre("/mugen/stages/a.def"));
    EXPECT_TRUE(second.form[Menu::MnuRecentFiles].visible);
    second.program.Form_Unload();
    EXPECT_EQ(second.files.Get(kConfiguration), first.files.Get(kConfiguration));
}

TEST(FormUnload, ADiskThatIsFullIsSaidAndEndsTheProgramAllTheSame) {
    RunningStage stage;
    stage.Load();
    stage.files.FillDisk();
    stage.user = InTurn({[](RunningStage& running) { running.Click(Menu::mnuExit); }});
    stage.program.lstStages_Click(kItemA);
    EXPECT_THAT(stage.MessageTexts(), ElementsAre(StartsWith("Run-time error: Disk full")));
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_EQ(stage.direct3D.Device(), nullptr);
    EXPECT_EQ(stage.files.Get(kConfiguration), "MugeDir = /mugen/\r\n") << "the old ones";
}

TEST(FormUnload, SavesOnce) {
    RunningStage stage;
    stage.Load();
    stage.program.Form_Unload();
    stage.files.Put(kConfiguration, "somebody else's");
    stage.program.Form_Unload();
    EXPECT_EQ(stage.files.Get(kConfiguration), "somebody else's");
}

TEST(FormUnload, SavesNothingWhereNothingWasRead) {
    RunningStage stage;
    stage.files.Put(kConfiguration, ".3\r\n");
    stage.Load();
    stage.program.Form_Unload();
    EXPECT_EQ(stage.files.Get(kConfiguration), ".3\r\n");
}

TEST(FormUnload, WhatComesBehindItIsPassedOver) {
    RunningStage stage;
    stage.Load();
    stage.form.recentFiles = {"/mugen/stages/a.def", "/mugen/stages/c.def"};
    stage.program.Form_Unload();
    stage.window.MoveTo({150, 300, 9600, 7200});
    const std::vector<std::string> captions = stage.window.Captions();
    for (std::size_t item = 0; item < kMenuCount; ++item) {
        stage.Click(static_cast<Menu>(item));
    }
    stage.program.MnuRecentFiles_Click(2);
    stage.program.lstStages_Click(1);
    stage.program.lstStages_Click(99);
    stage.program.Form_OLEDragDrop("/mugen/stages/gone.def");
    stage.program.Form_KeyDown(VirtualKey::Escape);
    stage.program.Form_Activate();
    stage.program.Form_Resize(800, 600);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
    EXPECT_THAT(stage.dialogs.Asked(), IsEmpty());
    EXPECT_EQ(stage.window.Captions(), captions);
    EXPECT_THAT(stage.form.recentFiles, ElementsAre("/mugen/stages/a.def", "/mugen/stages/c.def"));
    EXPECT_EQ(stage.form.lstStages.ListIndex, -1);
    EXPECT_EQ(stage.window.Place().width, 9600);
    EXPECT_EQ(stage.form.innerWidth, 320);
    EXPECT_FALSE(stage.files.Has("/program/Scenara.ini"));
    EXPECT_EQ(stage.Begun(), 0);
}

TEST(FormUnload, WhileAStageLoadsNothingMoreIsSaid) {
    RunningStage stage;
    stage.Load();
    stage.user = InTurn({}, [](RunningStage& running) {
        running.program.Form_OLEDragDrop("/mugen/stages/gone.def");
        running.program.Form_Unload();
        running.program.lstStages_Click(1);
    });
    stage.program.lstStages_Click(kItemA);
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
    EXPECT_EQ(stage.turn, 1) << "the other images are not read";
    EXPECT_EQ(stage.sink.shown, 0);
    EXPECT_EQ(stage.direct3D.Device(), nullptr);
    EXPECT_TRUE(stage.files.Get(kConfiguration).starts_with("Version = 1.0A\r\n"));
}

TEST(FormUnload, InTheFullScreenEndsToo) {
    RunningStage stage;
    stage.Load();
    stage.user = InTurn({[](RunningStage& running) { running.Click(Menu::mnuFS); },
                         [](RunningStage& running) { running.program.Form_Unload(); }});
    stage.program.lstStages_Click(kItemA);
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_EQ(stage.turn, 3 + 2);
}

// --- the editor's image surfaces ---

class Unload : public testing::Test {
protected:
    Unload() { stage.Load(); }

    void WhileAIsShown(std::vector<Act> acts) {
        stage.user = InTurn(std::move(acts));
        stage.program.lstStages_Click(kItemA);
    }

    RunningStage stage;
    LoadedImages images{stage.program.ImageSurfaces()};
};

constexpr auto kExit = [](RunningStage& running) { running.Click(Menu::mnuExit); };

TEST_F(Unload, ImageSetsAreReleased) {
    stage.program.Form_Unload();
    images.ExpectReleased();
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(Unload, ImageSetsAreReleasedBehindAStage) {
    WhileAIsShown({Wait, [this](RunningStage&) { images.ExpectLoaded(); }, kExit});
    EXPECT_TRUE(stage.program.Ended());
    images.ExpectReleased();
}

TEST_F(Unload, ImageSetsAreReleasedInTheSpriteBrowser) {
    WhileAIsShown({[](RunningStage& running) { running.Click(Menu::mnuDebug); }, Wait, Wait,
                   [this](RunningStage& running) {
                       EXPECT_EQ(running.program.Show().SpriteBrowserMode, 255);
                       images.ExpectLoaded();
                       running.program.Form_Unload();
                   }});
    EXPECT_TRUE(stage.program.Ended());
    images.ExpectReleased();
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(Unload, ImageSetsAreReleasedBehindALoadThatWasGoingOn) {
    stage.user = InTurn({}, [this](RunningStage& running) {
        running.program.Form_Unload();
        images.ExpectLoaded();
    });
    stage.program.lstStages_Click(kItemA);
    images.ExpectReleased();
}

TEST_F(Unload, ImageSetsThatAreNotLoadedAreLeftAlone) {
    stage.program.ImageSurfaces().loaded = false;
    stage.program.Form_Unload();
    const ImageSet& set = stage.program.ImageSurfaces().sets.front();
    EXPECT_EQ(set.images.front().image.surface.selected->width, 99);
}

TEST_F(Unload, AnErrorOfTheStageCostsNeitherTheSurfacesNorTheSettings) {
    stage.files.Put("/mugen/stages/a.def",
                    RunningStage::Stage("sounding") + "[Music]\nbgmusic = sound/a.mid\n");
    stage.media.AddFile("/mugen/sound/a.mid", {.duration = 9});
    WhileAIsShown({[](RunningStage& running) { running.media.RunOutOfMemoryAtStop(); }, kExit});
    EXPECT_THAT(stage.MessageTexts(), ElementsAre("Run-time error: Out of memory"));
    EXPECT_TRUE(stage.program.Ended());
    images.ExpectReleased();
    EXPECT_TRUE(stage.files.Get(kConfiguration).starts_with("Version = 1.0A\r\n"));
}

}  // namespace
}  // namespace scenara::test
