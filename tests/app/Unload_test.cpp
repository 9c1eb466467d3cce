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

using FormUnload = Program;

TEST_F(FormUnload, SavesTheSettingsByteForByte) {
    WhileAIsShown({Choose(Menu::mnuInfo), Choose(Menu::mnuStageList), Choose(Menu::mnuStageNext),
                   Choose(Menu::mnuExit)});
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(files.Get(kConfiguration),
              "Version = 1.0A\r\nMugeDir = /mugen/\r\nHCamStep = 1\r\nVCamStep = 1\r\n"
              "BGMusic = True\r\nInfo = True\r\nChar = False\r\nDeform = False\r\n"
              "DebugBG = False\r\nCharName = \r\nStageList = 255\r\n"
              "RecentFile = /mugen/stages/b.def\r\nRecentFile = /mugen/stages/a.def\r\n");
}

TEST_F(FormUnload, WithoutAnyStageTheStepsStayAtNothing) {
    program.Form_Unload();
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(files.Get(kConfiguration),
              "Version = 1.0A\r\nMugeDir = /mugen/\r\nHCamStep = 0\r\nVCamStep = 0\r\n"
              "BGMusic = True\r\nInfo = False\r\nChar = False\r\nDeform = False\r\n"
              "DebugBG = False\r\nCharName = \r\nStageList = 0\r\n");
}

TEST_F(FormUnload, TheNextStartFindsWhatWasSaved) {
    WhileAIsShown({Choose(Menu::mnuStageList), Choose(Menu::mnuInfo), Choose(Menu::mnuExit)});
    RunningStage second;
    second.files.Put(kConfiguration, files.Get(kConfiguration));
    second.Load();
    EXPECT_EQ(second.program.MugeDir, "/mugen/");
    EXPECT_EQ(second.program.ShowStageList, 255);
    EXPECT_TRUE(second.form[Menu::mnuInfo].checked);
    EXPECT_TRUE(second.form[Menu::mnuMusic].checked);
    EXPECT_THAT(second.form.recentFiles, ElementsAre(kStageA));
    EXPECT_TRUE(second.form[Menu::MnuRecentFiles].visible);
    second.program.Form_Unload();
    EXPECT_EQ(second.files.Get(kConfiguration), files.Get(kConfiguration));
}

TEST_F(FormUnload, ADiskThatIsFullIsSaidAndEndsTheProgramAllTheSame) {
    files.FillDisk();
    WhileAIsShown({Choose(Menu::mnuExit)});
    EXPECT_THAT(MessageTexts(), ElementsAre(StartsWith("Run-time error: Disk full")));
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(direct3D.Device(), nullptr);
    EXPECT_EQ(files.Get(kConfiguration), "MugeDir = /mugen/\r\n") << "the old ones";
}

TEST_F(FormUnload, SavesOnce) {
    program.Form_Unload();
    files.Put(kConfiguration, "somebody else's");
    program.Form_Unload();
    EXPECT_EQ(files.Get(kConfiguration), "somebody else's");
}

TEST_F(FormUnload, WhatComesBehindItIsPassedOver) {
    form.recentFiles = {kStageA, kStageC};
    program.Form_Unload();
    window.MoveTo({150, 300, 9600, 7200});
    const std::vector<std::string> captions = window.Captions();
    for (std::size_t item = 0; item < kMenuCount; ++item) {
        Click(static_cast<Menu>(item));
    }
    program.MnuRecentFiles_Click(2);
    program.lstStages_Click(1);
    program.lstStages_Click(99);
    program.Form_OLEDragDrop({kGone});
    program.Form_KeyDown(VirtualKey::Escape);
    program.Form_Activate();
    program.Form_Resize(800, 600);
    EXPECT_THAT(MessageTexts(), IsEmpty());
    EXPECT_THAT(dialogs.Asked(), IsEmpty());
    EXPECT_EQ(window.Captions(), captions);
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageA, kStageC));
    EXPECT_EQ(form.lstStages.ListIndex, -1);
    EXPECT_EQ(window.Place().width, 9600);
    EXPECT_EQ(form.innerWidth, 640);
    EXPECT_FALSE(files.Has("/program/Scenara.ini"));
    EXPECT_EQ(Begun(), 0);
}

TEST_F(FormUnload, WhileAStageLoadsNothingMoreIsSaid) {
    WhileAIsShown({}, [&] {
        program.Form_OLEDragDrop({kGone});
        program.Form_Unload();
        program.lstStages_Click(1);
    });
    EXPECT_TRUE(program.Ended());
    EXPECT_THAT(MessageTexts(), IsEmpty());
    EXPECT_EQ(turn, 1) << "the other images are not read";
    EXPECT_EQ(sink.shown, 0);
    EXPECT_EQ(direct3D.Device(), nullptr);
    EXPECT_TRUE(files.Get(kConfiguration).starts_with("Version = 1.0A\r\n"));
}

TEST_F(FormUnload, InTheFullScreenEndsToo) {
    WhileAIsShown({Choose(Menu::mnuFS), [&] { program.Form_Unload(); }});
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(turn, kRestFrames + 3 + 2);
}

// --- the editor's image surfaces ---

class Unload : public Program {
protected:
    LoadedImages images{program.ImageSurfaces()};
};

const Act kExit = Choose(Menu::mnuExit);

TEST_F(Unload, ImageSetsAreReleased) {
    program.Form_Unload();
    images.ExpectReleased();
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(Unload, ImageSetsAreReleasedBehindAStage) {
    WhileAIsShown({Wait, [&] { images.ExpectLoaded(); }, kExit});
    EXPECT_TRUE(program.Ended());
    images.ExpectReleased();
}

TEST_F(Unload, ImageSetsAreReleasedInTheSpriteBrowser) {
    WhileAIsShown({Choose(Menu::mnuDebug), Wait, Wait, [&] {
                       EXPECT_EQ(show.SpriteBrowserMode, 255);
                       images.ExpectLoaded();
                       program.Form_Unload();
                   }});
    EXPECT_TRUE(program.Ended());
    images.ExpectReleased();
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(Unload, ImageSetsAreReleasedBehindALoadThatWasGoingOn) {
    WhileAIsShown({}, [&] {
        program.Form_Unload();
        images.ExpectLoaded();
    });
    images.ExpectReleased();
}

TEST_F(Unload, ImageSetsThatAreNotLoadedAreLeftAlone) {
    program.ImageSurfaces().loaded = false;
    program.Form_Unload();
    const ImageSet& set = program.ImageSurfaces().sets.front();
    EXPECT_EQ(set.images.front().image.surface.selected->width, 99);
}

TEST_F(Unload, AnErrorOfTheStageCostsNeitherTheSurfacesNorTheSettings) {
    files.Put(kStageA, Stage("sounding") + "[Music]\nbgmusic = sound/a.mid\n");
    media.AddFile("/mugen/sound/a.mid", {.duration = 9});
    WhileAIsShown({[&] { media.RunOutOfMemoryAtStop(); }, kExit});
    EXPECT_THAT(MessageTexts(), ElementsAre("Run-time error: Out of memory"));
    EXPECT_TRUE(program.Ended());
    images.ExpectReleased();
    EXPECT_TRUE(files.Get(kConfiguration).starts_with("Version = 1.0A\r\n"));
}

}  // namespace
}  // namespace scenara::test
