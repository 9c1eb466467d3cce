// SPDX-License-Identifier: MIT
//
// The test character through the main window: chosen, switched on and off while stages run, and
// what the settings keep of it.
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/HeroStage.h"
#include "app/StageFiles.h"
#include "platform/posix/PosixFiles.h"

namespace scenara::test {
namespace {

using testing::HasSubstr;

using UseTestChar = HeroProgram;

TEST_F(UseTestChar, IsOnlyThereWithAStage) {
    Start();
    for (const Menu item : {Menu::mnuChar, Menu::mnuChange, Menu::mnuDebugBG}) {
        EXPECT_FALSE(form[item].enabled);
    }
    WhileAIsShown({[&] {
        for (const Menu item : {Menu::mnuChar, Menu::mnuChange, Menu::mnuDebugBG}) {
            EXPECT_TRUE(form[item].enabled);
        }
    }});
}

TEST_F(UseTestChar, IsSwitchedOnByTheSettingsAndStaysAcrossStages) {
    Start(Chosen("Char = True\r\n"));
    EXPECT_TRUE(form[Menu::mnuChar].checked);
    EXPECT_FALSE(Character().CharLoaded);
    const auto loaded = [&] {
        EXPECT_TRUE(Character().CharLoaded);
        EXPECT_FLOAT_EQ(Step(), 2.4F);
    };
    WhileAIsShown({loaded, Drop(kStageC), loaded});
    program.Form_Unload();
    EXPECT_THAT(files.Get(kConfiguration), HasSubstr("HCamStep = 3\r\n")) << "the user's own step";
}

TEST_F(UseTestChar, GetsItsStepBackFromMouseScrolling) {
    Start(Chosen());
    WhileAIsShown({[&] {
        Click(Menu::mnuChar);
        Click(Menu::mnuMScroll);
        Click(Menu::mnuMScroll);
        EXPECT_FLOAT_EQ(Step(), 2.4F);
        Click(Menu::mnuChar);
        EXPECT_FLOAT_EQ(Step(), 3) << "the user's own";
    }});
}

TEST_F(UseTestChar, TheSettingsGetTheCharacterAndTheUsersSteps) {
    Start("HCamStep = 3\r\nVCamStep = 5\r\n");
    dialogs.Answer(kHero);
    WhileAIsShown({Choose(Menu::mnuChar), Wait, Choose(Menu::mnuExit)});
    ASSERT_TRUE(program.Ended());
    EXPECT_EQ(files.Get(kConfiguration),
              std::string("Version = 1.0A\r\nMugeDir = /mugen/\r\nTestChar = ") + kHero +
                  "\r\nHCamStep = 3\r\nVCamStep = 5\r\nBGMusic = True\r\nInfo = False\r\n"
                  "Char = True\r\nDeform = True\r\nDebugBG = False\r\n"
                  "CharName = The Hero\r\nStageList = 0\r\n"
                  "RecentFile = /mugen/stages/a.def\r\n");

    RunningStage next;
    PutHero(next);
    next.files.Put(kConfiguration, files.Get(kConfiguration));
    next.Load();
    EXPECT_EQ(next.form[Menu::mnuChar].caption, "Use The Hero");
    next.user = InTurn({[&] {
        EXPECT_TRUE(next.show.TestChar().CharLoaded);
        EXPECT_FLOAT_EQ(next.show.CameraState().HCamStep, 2.4F);
    }});
    next.program.lstStages_Click(kItemA);
    next.program.Form_Unload();
    EXPECT_EQ(next.files.Get(kConfiguration), files.Get(kConfiguration));
}

TEST_F(UseTestChar, AskedForByTheSettingsWithNoneChosenItAsks) {
    Start("Char = True\r\nDeform = True\r\n");
    EXPECT_EQ(dialogs.Asked().size(), 1U);
    EXPECT_FALSE(form[Menu::mnuChar].checked) << "nothing was chosen";
    EXPECT_TRUE(form[Menu::mnuDeform].checked) << "the settings behind it are read";
}

TEST_F(UseTestChar, AFailureAtTheNextStageLeavesTheStageRunning) {
    Start(Chosen("Char = True\r\n"));
    WhileAIsShown({[&] {
                       EXPECT_FLOAT_EQ(Step(), 2.4F);
                       files.Put("/mugen/chars/hero/hero.air", "");
                       program.Form_OLEDragDrop({kStageC});
                   },
                   [&] {
                       EXPECT_EQ(Caption(), "third");
                       EXPECT_EQ(loop.LoadingStage, 0);
                       EXPECT_FALSE(form[Menu::mnuChar].checked);
                       EXPECT_FLOAT_EQ(Step(), 3);
                       for (const Menu item : {Menu::mnuStage, Menu::mnuOptions}) {
                           EXPECT_TRUE(form[item].enabled);
                       }
                   },
                   Wait,
                   [&] {
                       EXPECT_TRUE(ShowsSomething());
                       EXPECT_NE(loop.StageRunning, 0);
                   }});
    EXPECT_THAT(MessageTexts(), testing::ElementsAre(HasSubstr("no walking frames")));
}

TEST_F(UseTestChar, StaysOnThroughReload) {
    Start(Chosen("Char = True\r\n"));
    WhileAIsShown({Choose(Menu::mnuReload), Wait, [&] {
                       EXPECT_TRUE(Character().CharLoaded);
                       EXPECT_FLOAT_EQ(Step(), 2.4F);
                   }});
    EXPECT_EQ(Begun(), 2);
}

TEST_F(UseTestChar, PlainReloadReleasesItAndTheNextStageLoadsItAgain) {
    Start(Chosen("Char = True\r\n"), false);
    WhileAIsShown({Wait, Choose(Menu::mnuReload),
                   [&] {
                       EXPECT_FALSE(Character().CharLoaded);
                       EXPECT_TRUE(Character().Characters.empty());
                       EXPECT_TRUE(form[Menu::mnuChar].checked);
                       program.Form_OLEDragDrop({kStageC});
                   },
                   Wait, [&] { EXPECT_TRUE(Character().CharLoaded); }});
    EXPECT_THAT(MessageTexts(), testing::IsEmpty());
}

class TestCharPicture : public HeroProgram, public testing::WithParamInterface<bool> {};

// The stage itself stands still.
TEST_P(TestCharPicture, ChangesWithAdditionsOnly) {
    Start(Chosen(), GetParam());
    std::vector<std::uint32_t> without;
    WhileAIsShown({Wait, Wait,
                   [&] {
                       without = sink.last;
                       Click(Menu::mnuChar);
                   },
                   Wait, Wait,
                   [&] {
                       EXPECT_TRUE(Character().CharLoaded);
                       EXPECT_EQ(sink.last != without, GetParam());
                   }});
}

INSTANTIATE_TEST_SUITE_P(PlainAndAdditions, TestCharPicture, testing::Bool());

TEST_F(UseTestChar, TheArrowKeysWalkItAndTheCameraGoesAlong) {
    Start(Chosen("Char = True\r\n"));
    WhileAIsShown({Press(VirtualKey::Right), Wait, Wait, [&] {
                       const TestCharacter& hero = Character().Characters.at(0);
                       EXPECT_FLOAT_EQ(hero.X, 160 + 3 * 2.4F);
                       EXPECT_EQ(hero.Action, kWalking);
                       EXPECT_EQ(model.CamX, -3 * 2.0F) << "by whole units";
                   }});
}

using ChangeChar = HeroProgram;

TEST_F(ChangeChar, TakesAnotherCharacterInTheRunningStage) {
    Start(Chosen("Char = True\r\n"));
    files.Put("/mugen/chars/other/other.def",
              "[Info]\ndisplayname = \"Other\"\n[Files]\nanim = ../hero/hero.air\n"
              "sprite = ../hero/hero.sff\ncns = other.cns\nst = stcommon\n");
    files.Put("/mugen/chars/other/other.cns", "[Size]\nwalk.fwd = 1.25\n");
    for (const char* name : {"hero.air", "hero.sff"}) {
        files.Put(std::string("/mugen/chars/other/../hero/") + name,
                  files.Get(std::string("/mugen/chars/hero/") + name));
    }
    dialogs.Answer("/mugen/chars/other/other.def");
    WhileAIsShown({Choose(Menu::mnuChange), [&] {
                       EXPECT_EQ(form[Menu::mnuChar].caption, "Use Other");
                       EXPECT_TRUE(form[Menu::mnuChar].checked);
                       EXPECT_FLOAT_EQ(Step(), 1.25F);
                       EXPECT_EQ(Caption(), "first");
                   }});
    EXPECT_THAT(dialogs.Asked(),
                testing::ElementsAre(DialogQuestion{DialogQuestion::Kind::OpenFile,
                                                    "Choose test character.", "/mugen/chars/"}));
    EXPECT_THAT(MessageTexts(), testing::IsEmpty());
}

TEST_F(ChangeChar, InTheSpriteBrowserTheCaptionStaysTheSprites) {
    Start();
    dialogs.Answer("");
    dialogs.Answer(kHero);
    const auto expectSprite = [&] { EXPECT_THAT(Caption(), HasSubstr("Group: ")); };
    WhileAIsShown({Choose(Menu::mnuDebug), Wait, expectSprite, Choose(Menu::mnuChange),
                   expectSprite, Choose(Menu::mnuChar), expectSprite,
                   [&] { EXPECT_TRUE(Character().CharLoaded); }});
    EXPECT_EQ(dialogs.Asked().size(), 2U);
}

TEST_F(ChangeChar, TakesTheCharacterThatComesWithTheProgram) {
    PosixFiles disk("");
    EXPECT_TRUE(IsChar(disk, SCENARA_BUNDLED_DATA "/chars/lanternkeeper/lanternkeeper.def"));
    EXPECT_FALSE(IsChar(disk, SCENARA_BUNDLED_DATA "/stages/lanternpier.def"));
}

// --- Mouse scrolling and the character share the save slots of the steps -------------------------

class StepsOfBoth : public HeroProgram,
                    public testing::WithParamInterface<std::tuple<int, std::size_t>> {
protected:
    static constexpr auto kChar = Menu::mnuChar;
    static constexpr auto kMouse = Menu::mnuMScroll;
    static constexpr Menu kOrders[4][4] = {{kChar, kMouse, kChar, kMouse},
                                           {kChar, kMouse, kMouse, kChar},
                                           {kMouse, kChar, kMouse, kChar},
                                           {kMouse, kChar, kChar, kMouse}};
};

// The user's steps are 3 and 5, whoever came and went before the exit.
TEST_P(StepsOfBoth, AreTheUsersInTheSettingsAndBehindIt) {
    const auto& [order, count] = GetParam();
    Start(Chosen());
    std::vector<Act> acts;
    for (std::size_t i = 0; i < count; ++i) {
        acts.push_back(Choose(kOrders[order][i]));
        acts.emplace_back([&] { pointer.MoveTo({260, 200}); });
    }
    if (count == 4) {
        acts.emplace_back([&] {
            EXPECT_FLOAT_EQ(Step(), 3);
            EXPECT_FLOAT_EQ(show.CameraState().VCamStep, 5);
        });
    }
    WhileAIsShown(acts + Then(Choose(Menu::mnuExit)));
    ASSERT_TRUE(program.Ended());
    EXPECT_THAT(files.Get(kConfiguration), HasSubstr("HCamStep = 3\r\nVCamStep = 5\r\n"));
}

INSTANTIATE_TEST_SUITE_P(EveryOrder, StepsOfBoth,
                         testing::Combine(testing::Range(0, 4),
                                          testing::Range(std::size_t{0}, std::size_t{5})));

}  // namespace
}  // namespace scenara::test
