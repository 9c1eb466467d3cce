// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(FormLoad, TellsTheVersionInTheTitle) {
    RunningStage stage;
    stage.program.Form_Load();
    EXPECT_EQ(stage.program.VersionText, "1.0");
    EXPECT_EQ(stage.program.AppTitle, "Scenara 1.0 DirectX 8 Experiment");
    EXPECT_EQ(stage.form.title, stage.program.AppTitle) << "boxes carry it";
    EXPECT_EQ(stage.Caption(), "Scenara 1.0 DirectX 8 Experiment");
    EXPECT_FALSE(stage.program.Ended());
}

TEST(FormLoad, LimitsFramesTo60) {
    RunningStage stage;
    stage.program.Show().Loop().FpsLimit = 7;
    stage.program.Form_Load();
    EXPECT_EQ(stage.program.Show().Loop().FpsLimit, 60);
    EXPECT_EQ(stage.form[Menu::mnuFPS].caption, "FPS Limiter (60 fps)");
    EXPECT_TRUE(stage.form[Menu::mnuFPS].checked);
    EXPECT_EQ(stage.program.Times().CounterFrequency, 60'000.0);
    EXPECT_EQ(stage.program.Times().HasPerfCounter, kTrue);
    EXPECT_EQ(stage.process.FolderChanges(), 1);
}

TEST(FormLoad, ASecondInstanceSaysSoAndEnds) {
    RunningStage stage;
    stage.process.PretendAnother();
    stage.program.Form_Load();
    EXPECT_THAT(stage.MessageTexts(), ElementsAre("Already running.."));
    EXPECT_EQ(stage.messages.Recorded()[0].title, "");
    EXPECT_EQ(stage.messages.Recorded()[0].icon, MessageIcon::None);
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_TRUE(stage.window.EndRequested());
    EXPECT_EQ(stage.process.FolderChanges(), 0) << "at once";
}

TEST(FormLoad, FillsTheListFromTheEngineFolder) {
    RunningStage stage;
    stage.files.Put("/mugen/stages/BIG.DEF", "camera");
    stage.Load();
    EXPECT_EQ(stage.program.MugeDir, "/mugen/");
    EXPECT_EQ(stage.form.lstStages.items.size(), 4U);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST(FormLoad, AnEngineFolderWithoutASeparatorIsFoundAllTheSame) {
    for (const bool additions : {true, false}) {
        RunningStage stage({}, additions);
        stage.files.Put("/program/QX.CFG", "MugeDir = /mugen\r\n");
        stage.Load();
        EXPECT_EQ(stage.form.lstStages.items.size(), 3U);
        EXPECT_THAT(stage.MessageTexts(), IsEmpty());
    }
}

TEST(FormLoad, AFolderWithoutStagesIsSaid) {
    RunningStage stage;
    stage.files.Put("/program/QX.CFG", "MugeDir = /empty/\r\n");
    stage.program.Form_Load();
    ASSERT_THAT(stage.MessageTexts(), ElementsAre("Err.. no files.. uh.. "));
    EXPECT_EQ(stage.messages.Recorded()[0].icon, MessageIcon::None);
    EXPECT_THAT(stage.form.lstStages.items, IsEmpty());
    EXPECT_FALSE(stage.program.Ended());
}

TEST(FormLoad, TheFirstStartAsksUntilAFolderIsChosen) {
    RunningStage stage;
    stage.files.Delete("/program/QX.CFG");
    stage.dialogs.Answer("");
    stage.dialogs.Answer("");
    stage.dialogs.Answer("/mugen");
    stage.program.Form_Load();
    EXPECT_THAT(stage.MessageTexts(),
                ElementsAre("Browse to your MUGEN directory please so I know where to get stuff.  "
                            "I won't ask you for it again unless I forget."));
    const DialogQuestion question{
        DialogQuestion::Kind::BrowseForFolder,
        "Point me to your MUGEN Directory please:\r\nex. C:\\GAMES\\MUGEN", ""};
    EXPECT_THAT(stage.dialogs.Asked(), ElementsAre(question, question, question));
    EXPECT_EQ(stage.program.MugeDir, "/mugen/");
    EXPECT_THAT(stage.form.lstStages.items, ElementsAre("a", "b"));
}

TEST(FormLoad, AWindowClosedAtTheQuestionEndsWithoutSettings) {
    RunningStage stage;
    stage.files.Delete("/program/QX.CFG");
    stage.dialogs.Observe([&](const DialogQuestion&) { stage.window.RequestEnd(); });
    stage.program.Form_Load();
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_EQ(stage.dialogs.Asked().size(), 1U);
    stage.program.Form_Unload();
    EXPECT_FALSE(stage.files.Has("/program/QX.CFG"));
}

TEST(FormLoad, SettingsThatCannotBeReadAreSaidAndStagesOpenAllTheSame) {
    RunningStage stage;
    stage.files.Put("/program/QX.CFG", ".3\r\n");
    stage.program.Form_Load();
    EXPECT_THAT(stage.MessageTexts(),
                ElementsAre("Run-time error: Input past end of file: /program/QX.CFG"));
    EXPECT_FALSE(stage.program.Ended());
    stage.user = InTurn({});
    stage.program.Form_OLEDragDrop("/mugen/stages/a.def");
    EXPECT_EQ(stage.Caption(), "first");
}

TEST(FormLoad, TheAdditionsStandAsTheyWereLeft) {
    for (const bool additions : {true, false}) {
        RunningStage stage;
        stage.files.Put("/program/Scenara.ini",
                        additions ? "Additions = True\r\n" : "Additions = False\r\n");
        stage.program.Form_Load();
        EXPECT_EQ(stage.program.Show().Options().Additions, additions);
        EXPECT_EQ(stage.form[Menu::mnuAdditions].checked, additions);
    }
}

TEST(FormActivate, SizesAndCentresTheWindowOnce) {
    RunningStage stage;
    stage.program.Form_Activate();
    stage.LetSizeCome();
    EXPECT_EQ(stage.window.Place().width, 320 * 15);
    EXPECT_EQ(stage.window.Place().height, 240 * 15);
    EXPECT_EQ(stage.window.Place().left, (1024 - 320) / 2 * 15);
    EXPECT_EQ(stage.window.Place().top, (768 - 240) / 2 * 15);

    stage.window.MoveTo({150, 300, 9600, 7200});
    stage.program.Form_Activate();
    stage.LetSizeCome();
    EXPECT_EQ(stage.window.Place().left, 150) << "what the user did stays";
    EXPECT_EQ(stage.window.Place().width, 9600);
}

TEST(FormResize, GivesThePictureAllThatTheListLeaves) {
    RunningStage stage;
    stage.program.Form_Resize(800, 600);
    EXPECT_EQ(stage.form.picDraw.width, 800);
    EXPECT_EQ(stage.form.picDraw.height, 600);
    EXPECT_FALSE(stage.form.lstStages.visible);

    stage.program.ShowStageList = 255;
    stage.form.lstStages.width = 130;
    stage.program.Form_Resize(800, 600);
    EXPECT_EQ(stage.form.picDraw.width, 670);
    EXPECT_EQ(stage.form.lstStages.left, 670);
    EXPECT_EQ(stage.form.lstStages.height, 600);
    EXPECT_TRUE(stage.form.lstStages.visible);

    stage.program.Form_Resize(100, 50);
    EXPECT_EQ(stage.form.picDraw.width, 0) << "never below nothing";
}

TEST(Menus, StandAsDesigned) {
    RunningStage stage;
    EXPECT_EQ(stage.form[Menu::mnuStage].caption, "&Stage");
    EXPECT_EQ(stage.form[Menu::mnuExit].caption, "&Exit");
    EXPECT_EQ(stage.form[Menu::mnuFS].caption, "&Full Screen (ESC to exit)");
    EXPECT_EQ(stage.form[Menu::mnuAbout].caption, "&About");
    EXPECT_TRUE(stage.form[Menu::mnuMusic].checked);
    EXPECT_TRUE(stage.form[Menu::mnuFPS].checked);
    EXPECT_FALSE(stage.form[Menu::mnuInfo].checked);
    EXPECT_FALSE(stage.form[Menu::mnuReset].enabled);
    EXPECT_FALSE(stage.form[Menu::MnuRecentFiles].visible);
    EXPECT_TRUE(stage.form[Menu::mnuPause].enabled);
    EXPECT_EQ(stage.form[Menu::mnuPause].place, MenuPlace::Bar);
    EXPECT_EQ(stage.form[Menu::mnuInfo].place, MenuPlace::Options);
    EXPECT_EQ(stage.form[Menu::mnuExit].place, MenuPlace::Stage);
    for (const MenuItem& item : stage.form.menus) {
        EXPECT_FALSE(item.caption.empty());
    }
}

TEST(Menus, InfoIsAToggle) {
    RunningStage stage;
    stage.program.Menu_Click(Menu::mnuInfo);
    EXPECT_TRUE(stage.form[Menu::mnuInfo].checked);
    stage.program.Menu_Click(Menu::mnuInfo);
    EXPECT_FALSE(stage.form[Menu::mnuInfo].checked);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

}  // namespace
}  // namespace scenara::test
