// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using FormLoad = NewProgram;

TEST_F(FormLoad, TellsTheVersionInTheTitle) {
    program.Form_Load();
    EXPECT_EQ(program.VersionText, "1.0");
    EXPECT_EQ(program.AppTitle, "Scenara 1.0 DirectX 8 Experiment");
    EXPECT_EQ(form.title, program.AppTitle) << "boxes carry it";
    EXPECT_EQ(Caption(), "Scenara 1.0 DirectX 8 Experiment");
    EXPECT_FALSE(program.Ended());
}

TEST_F(FormLoad, LimitsFramesTo60) {
    loop.FpsLimit = 7;
    program.Form_Load();
    EXPECT_EQ(loop.FpsLimit, 60);
    EXPECT_EQ(form[Menu::mnuFPS].caption, "FPS Limiter (60 fps)");
    EXPECT_TRUE(form[Menu::mnuFPS].checked);
    EXPECT_EQ(program.Times().CounterFrequency, 60'000.0);
    EXPECT_EQ(program.Times().HasPerfCounter, kTrue);
    EXPECT_EQ(process.FolderChanges(), 1);
}

TEST_F(FormLoad, ASecondInstanceSaysSoAndEnds) {
    process.PretendAnother();
    program.Form_Load();
    EXPECT_THAT(MessageTexts(), ElementsAre("Already running.."));
    EXPECT_EQ(messages.Recorded()[0].title, "");
    EXPECT_EQ(messages.Recorded()[0].icon, MessageIcon::None);
    EXPECT_TRUE(program.Ended());
    EXPECT_TRUE(window.EndRequested());
    EXPECT_EQ(process.FolderChanges(), 0) << "at once";
}

TEST_F(FormLoad, FillsTheListFromTheEngineFolder) {
    files.Put("/mugen/stages/BIG.DEF", "camera");
    Load();
    EXPECT_EQ(program.MugeDir, "/mugen/");
    EXPECT_EQ(form.lstStages.items.size(), 4U);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

class FormLoadOfBoth : public NewProgram, public testing::WithParamInterface<bool> {
protected:
    FormLoadOfBoth() : NewProgram(GetParam()) {}
};

TEST_P(FormLoadOfBoth, AnEngineFolderWithoutASeparatorIsFoundAllTheSame) {
    files.Put(kConfiguration, "MugeDir = /mugen\r\n");
    Load();
    EXPECT_EQ(form.lstStages.items.size(), 3U);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(PlainAndAdditions, FormLoadOfBoth, testing::Bool());

using PlainFormLoad = PlainNewProgram;

TEST_F(PlainFormLoad, AFolderWithoutStagesIsSaid) {
    files.Put(kConfiguration, "MugeDir = /empty/\r\n");
    program.Form_Load();
    ASSERT_THAT(MessageTexts(), ElementsAre("Err.. no files.. uh.. "));
    EXPECT_EQ(messages.Recorded()[0].icon, MessageIcon::None);
    EXPECT_THAT(form.lstStages.items, IsEmpty());
    EXPECT_FALSE(program.Ended());
}

TEST_F(PlainFormLoad, TheFirstStartAsksUntilAFolderIsChosen) {
    files.Delete(kConfiguration);
    dialogs.Answer("");
    dialogs.Answer("");
    dialogs.Answer("/mugen");
    program.Form_Load();
    EXPECT_THAT(MessageTexts(),
                ElementsAre("Browse to your MUGEN directory please so I know where to get stuff.  "
                            "I won't ask you for it again unless I forget."));
    const DialogQuestion question{
        DialogQuestion::Kind::BrowseForFolder,
        "Point me to your MUGEN Directory please:\r\nex. C:\\GAMES\\MUGEN", ""};
    EXPECT_THAT(dialogs.Asked(), ElementsAre(question, question, question));
    EXPECT_EQ(program.MugeDir, "/mugen/");
    EXPECT_THAT(form.lstStages.items, ElementsAre("a", "b"));
}

TEST_F(FormLoad, AWindowClosedAtTheQuestionEndsWithoutSettings) {
    files.Delete(kConfiguration);
    dialogs.Observe([&](const DialogQuestion&) { window.RequestEnd(); });
    program.Form_Load();
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(dialogs.Asked().size(), 1U);
    program.Form_Unload();
    EXPECT_FALSE(files.Has(kConfiguration));
}

TEST_F(FormLoad, SettingsThatCannotBeReadAreSaidAndStagesOpenAllTheSame) {
    files.Put(kConfiguration, ".3\r\n");
    program.Form_Load();
    EXPECT_THAT(MessageTexts(),
                ElementsAre("Run-time error: Input past end of file: /program/QX.CFG"));
    EXPECT_FALSE(program.Ended());
    Show(Drop(kStageA));
    EXPECT_EQ(Caption(), "first");
}

TEST_F(FormLoad, TheAdditionsStandAsTheyWereLeft) {
    for (const bool additions : {true, false}) {
        files.Put("/program/Scenara.ini",
                  additions ? "Additions = True\r\n" : "Additions = False\r\n");
        program.Form_Load();
        EXPECT_EQ(show.Options().Additions, additions);
        EXPECT_EQ(form[Menu::mnuAdditions].checked, additions);
        EXPECT_EQ(form[Menu::mnuSmooth].enabled, additions);
    }
}

TEST_F(FormLoad, TheCanvasIsShownAsItWasLeft) {
    files.Put("/program/Scenara.ini", "Smooth = True\r\nWholeMultiplesOnly = True\r\n");
    program.Form_Load();
    EXPECT_TRUE(form[Menu::mnuSmooth].checked);
    EXPECT_TRUE(form[Menu::mnuWholeMultiples].checked);
    EXPECT_TRUE(show.Options().Smooth);
    EXPECT_EQ(form.presentation, (Presentation{ShownSizes::WholeMultiples, Scaling::Smooth}));
}

class FormActivate : public NewProgram {
protected:
    FormActivate() : NewProgram(false) {}
};

TEST_F(FormActivate, PlainSizesAndCentresTheWindowOnce) {
    program.Form_Activate();
    LetSizeCome();
    ExpectPlace((1024 - 320) / 2, (768 - 240) / 2, 320, 240);

    window.MoveTo({150, 300, 9600, 7200});
    program.Form_Activate();
    LetSizeCome();
    EXPECT_EQ(window.Place().left, 150) << "what the user did stays";
    EXPECT_EQ(window.Place().width, 9600);
}

using FormResize = NewProgram;

TEST_F(FormResize, GivesThePictureAllThatTheListLeaves) {
    program.Form_Resize(800, 600);
    ExpectPicture(800, 600);
    EXPECT_FALSE(form.lstStages.visible);

    program.ShowStageList = 255;
    form.lstStages.browses = true;
    program.lstStages_Resize(130);
    program.Form_Resize(800, 600);
    EXPECT_EQ(form.picDraw.width, 670);
    EXPECT_EQ(form.lstStages.left, 670);
    EXPECT_EQ(form.lstStages.height, 600);
    EXPECT_TRUE(form.lstStages.visible);

    program.Form_Resize(250, 50);
    EXPECT_EQ(form.picDraw.width, 160) << "the list gives way";
    EXPECT_EQ(form.lstStages.width, 90);
    program.Form_Resize(100, 50);
    EXPECT_EQ(form.lstStages.width, 80) << "a little of it is left";
    program.Form_Resize(50, 50);
    EXPECT_EQ(form.picDraw.width, 0) << "never below nothing";
    program.Form_Resize(800, 600);
    EXPECT_EQ(form.lstStages.width, 130) << "as the user has made it";
}

using Menus = NewProgram;

TEST_F(Menus, StandAsDesigned) {
    EXPECT_EQ(form[Menu::mnuStage].caption, "&Stage");
    EXPECT_EQ(form[Menu::mnuExit].caption, "&Exit");
    EXPECT_EQ(form[Menu::mnuFS].caption, "&Full Screen (ESC to exit)");
    EXPECT_EQ(form[Menu::mnuAbout].caption, "&About");
    EXPECT_TRUE(form[Menu::mnuMusic].checked);
    EXPECT_TRUE(form[Menu::mnuFPS].checked);
    EXPECT_FALSE(form[Menu::mnuInfo].checked);
    EXPECT_FALSE(form[Menu::mnuReset].enabled);
    EXPECT_FALSE(form[Menu::MnuRecentFiles].visible);
    EXPECT_TRUE(form[Menu::mnuPause].enabled);
    EXPECT_EQ(form[Menu::mnuPause].place, MenuPlace::Bar);
    EXPECT_EQ(form[Menu::mnuInfo].place, MenuPlace::Options);
    EXPECT_EQ(form[Menu::mnuExit].place, MenuPlace::Stage);
    for (const MenuItem& item : form.menus) {
        EXPECT_FALSE(item.caption.empty());
    }
}

TEST_F(Menus, InfoIsAToggle) {
    program.Menu_Click(Menu::mnuInfo);
    EXPECT_TRUE(form[Menu::mnuInfo].checked);
    program.Menu_Click(Menu::mnuInfo);
    EXPECT_FALSE(form[Menu::mnuInfo].checked);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

}  // namespace
}  // namespace scenara::test
