// SPDX-License-Identifier: MIT
//
// The test character through the main window: chosen, switched on and off while stages run, and
// what the settings keep of it.
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/HeroStage.h"
#include "app/StageFiles.h"
#include "platform/posix/PosixFiles.h"

namespace scenara::test {
namespace {

using testing::HasSubstr;

TEST(UseTestChar, IsOnlyThereWithAStage) {
    const auto stage = WithHero();
    for (const Menu item : {Menu::mnuChar, Menu::mnuChange, Menu::mnuDebugBG}) {
        EXPECT_FALSE(stage->form[item].enabled);
    }
    stage->user = InTurn({[](RunningStage& running) {
        for (const Menu item : {Menu::mnuChar, Menu::mnuChange, Menu::mnuDebugBG}) {
            EXPECT_TRUE(running.form[item].enabled);
        }
    }});
    stage->program.Form_OLEDragDrop(kStageA);
}

TEST(UseTestChar, AsksForACharacterAndTakesItsStep) {
    const auto stage = WithHero();
    stage->dialogs.Answer(kHero);
    stage->user = InTurn({[](RunningStage& running) {
                              running.Click(Menu::mnuChar);
                              EXPECT_TRUE(running.program.Show().TestChar().CharLoaded);
                              EXPECT_EQ(running.form[Menu::mnuChar].caption, "Use The Hero");
                              EXPECT_FLOAT_EQ(running.program.Show().CameraState().HCamStep, 2.4F);
                              EXPECT_EQ(running.Caption(), "first");
                          },
                          [](RunningStage& running) {
                              running.Click(Menu::mnuChar);
                              EXPECT_FLOAT_EQ(running.program.Show().CameraState().HCamStep, 1);
                          }});
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_THAT(stage->MessageTexts(), testing::IsEmpty());
}

TEST(UseTestChar, IsSwitchedOnByTheSettingsAndStaysAcrossStages) {
    const auto stage =
        WithHero(std::string("TestChar = ") + kHero + "\r\nChar = True\r\nHCamStep = 3\r\n");
    EXPECT_TRUE(stage->form[Menu::mnuChar].checked);
    EXPECT_FALSE(stage->program.Show().TestChar().CharLoaded);
    const auto loaded = [](RunningStage& running) {
        EXPECT_TRUE(running.program.Show().TestChar().CharLoaded);
        EXPECT_FLOAT_EQ(running.program.Show().CameraState().HCamStep, 2.4F);
    };
    stage->user = InTurn(
        {loaded, [](RunningStage& running) { running.program.Form_OLEDragDrop(kStageC); }, loaded});
    stage->program.Form_OLEDragDrop(kStageA);
    stage->program.Form_Unload();
    EXPECT_THAT(stage->files.Get("/program/QX.CFG"), HasSubstr("HCamStep = 3\r\n"))
        << "the user's own step";
}

TEST(UseTestChar, GetsItsStepBackFromMouseScrolling) {
    const auto stage = WithHero(std::string("TestChar = ") + kHero + "\r\n");
    stage->user = InTurn({[](RunningStage& running) {
        running.Click(Menu::mnuChar);
        running.Click(Menu::mnuMScroll);
        running.Click(Menu::mnuMScroll);
        EXPECT_FLOAT_EQ(running.program.Show().CameraState().HCamStep, 2.4F);
        running.Click(Menu::mnuChar);
        EXPECT_FLOAT_EQ(running.program.Show().CameraState().HCamStep, 1) << "the user's own";
    }});
    stage->program.Form_OLEDragDrop(kStageA);
}

TEST(UseTestChar, TheSettingsGetTheCharacterAndTheUsersSteps) {
    const auto stage = WithHero("HCamStep = 3\r\nVCamStep = 5\r\n");
    stage->dialogs.Answer(kHero);
    stage->user = InTurn({ClickOn(Menu::mnuChar), Wait, ClickOn(Menu::mnuExit)});
    stage->program.Form_OLEDragDrop(kStageA);
    ASSERT_TRUE(stage->program.Ended());
    EXPECT_EQ(stage->files.Get(kConfiguration), std::string("Version = 1.0A\r\n"
                                                            "MugeDir = /mugen/\r\n"
                                                            "TestChar = ") +
                                                    kHero +
                                                    "\r\n"
                                                    "HCamStep = 3\r\n"
                                                    "VCamStep = 5\r\n"
                                                    "BGMusic = True\r\n"
                                                    "Info = False\r\n"
                                                    "Char = True\r\n"
                                                    "Deform = True\r\n"
                                                    "DebugBG = False\r\n"
                                                    "CharName = The Hero\r\n"
                                                    "StageList = 0\r\n"
                                                    "RecentFile = /mugen/stages/a.def\r\n");

    RunningStage next;
    for (const char* name : {"hero.def", "hero.air", "hero.cns", "hero.sff"}) {
        const std::string path = std::string("/mugen/chars/hero/") + name;
        next.files.Put(path, stage->files.Get(path));
    }
    next.files.Put(kConfiguration, stage->files.Get(kConfiguration));
    next.Load();
    EXPECT_EQ(next.form[Menu::mnuChar].caption, "Use The Hero");
    next.user = InTurn({[](RunningStage& running) {
        EXPECT_TRUE(running.program.Show().TestChar().CharLoaded);
        EXPECT_FLOAT_EQ(StepOf(running), 2.4F);
    }});
    next.program.Form_OLEDragDrop(kStageA);
    next.program.Form_Unload();
    EXPECT_EQ(next.files.Get(kConfiguration), stage->files.Get(kConfiguration));
}

TEST(UseTestChar, AskedForByTheSettingsWithNoneChosenItAsks) {
    const auto stage = WithHero("Char = True\r\nDeform = True\r\n");
    EXPECT_EQ(stage->dialogs.Asked().size(), 1U);
    EXPECT_FALSE(stage->form[Menu::mnuChar].checked) << "nothing was chosen";
    EXPECT_TRUE(stage->form[Menu::mnuDeform].checked) << "the settings behind it are read";
}

TEST(UseTestChar, AFailureAtTheNextStageLeavesTheStageRunning) {
    const auto stage = WithHero(Chosen("Char = True\r\n"));
    stage->user = InTurn({[](RunningStage& running) {
                              EXPECT_FLOAT_EQ(StepOf(running), 2.4F);
                              running.files.Put("/mugen/chars/hero/hero.air", "");
                              running.program.Form_OLEDragDrop(kStageC);
                          },
                          [](RunningStage& running) {
                              EXPECT_EQ(running.Caption(), "third");
                              EXPECT_EQ(running.program.Show().Loop().LoadingStage, 0);
                              EXPECT_FALSE(running.form[Menu::mnuChar].checked);
                              EXPECT_FLOAT_EQ(StepOf(running), 3);
                              for (const Menu item : {Menu::mnuStage, Menu::mnuOptions}) {
                                  EXPECT_TRUE(running.form[item].enabled);
                              }
                          },
                          Wait,
                          [](RunningStage& running) {
                              EXPECT_TRUE(running.ShowsSomething());
                              EXPECT_NE(running.program.Show().Loop().StageRunning, 0);
                          }});
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_THAT(stage->MessageTexts(), testing::ElementsAre(HasSubstr("no walking frames")));
}

TEST(UseTestChar, StaysOnThroughReload) {
    const auto stage = WithHero(Chosen("Char = True\r\n"));
    stage->user = InTurn({ClickOn(Menu::mnuReload), Wait, [](RunningStage& running) {
                              EXPECT_TRUE(running.program.Show().TestChar().CharLoaded);
                              EXPECT_FLOAT_EQ(StepOf(running), 2.4F);
                          }});
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_EQ(stage->Begun(), 2);
}

TEST(UseTestChar, PlainReloadReleasesItAndTheNextStageLoadsItAgain) {
    const auto stage = WithHero(Chosen("Char = True\r\n"), false);
    stage->user = InTurn(
        {Wait, ClickOn(Menu::mnuReload),
         [](RunningStage& running) {
             EXPECT_FALSE(running.program.Show().TestChar().CharLoaded);
             EXPECT_TRUE(running.program.Show().TestChar().Characters.empty());
             EXPECT_TRUE(running.form[Menu::mnuChar].checked);
             running.program.Form_OLEDragDrop(kStageC);
         },
         Wait,
         [](RunningStage& running) { EXPECT_TRUE(running.program.Show().TestChar().CharLoaded); }});
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_THAT(stage->MessageTexts(), testing::IsEmpty());
}

// How often the picture changes when the character comes: the stage itself stands still.
bool ComingChangesThePicture(bool additions) {
    const auto stage = WithHero(Chosen(), additions);
    std::vector<std::uint32_t> without;
    bool changed = false;
    stage->user = InTurn({Wait, Wait,
                          [&](RunningStage& running) {
                              without = running.sink.last;
                              running.Click(Menu::mnuChar);
                          },
                          Wait, Wait,
                          [&](RunningStage& running) {
                              EXPECT_TRUE(running.program.Show().TestChar().CharLoaded);
                              changed = running.sink.last != without;
                          }});
    stage->program.Form_OLEDragDrop(kStageA);
    return changed;
}

TEST(UseTestChar, ItIsSeenWithAdditionsOnly) {
    EXPECT_TRUE(ComingChangesThePicture(true));
    EXPECT_FALSE(ComingChangesThePicture(false));
}

TEST(UseTestChar, TheArrowKeysWalkItAndTheCameraGoesAlong) {
    const auto stage = WithHero(Chosen("Char = True\r\n"));
    stage->user = InTurn(
        {[](RunningStage& running) { running.keyboard.Press(VirtualKey::Right); }, Wait, Wait,
         [](RunningStage& running) {
             const TestCharacter& hero = running.program.Show().TestChar().Characters.at(0);
             EXPECT_FLOAT_EQ(hero.X, 160 + 3 * 2.4F);
             EXPECT_EQ(hero.Action, kWalking);
             EXPECT_FLOAT_EQ(running.program.Show().Model().CamX, -3 * 2.4F);
         }});
    stage->program.Form_OLEDragDrop(kStageA);
}

TEST(ChangeChar, TakesAnotherCharacterInTheRunningStage) {
    const auto stage = WithHero(Chosen("Char = True\r\n"));
    stage->files.Put("/mugen/chars/other/other.def",
                     "[Info]\ndisplayname = \"Other\"\n[Files]\nanim = ../hero/hero.air\n"
                     "sprite = ../hero/hero.sff\ncns = other.cns\nst = stcommon\n");
    stage->files.Put("/mugen/chars/other/other.cns", "[Size]\nwalk.fwd = 1.25\n");
    for (const char* name : {"hero.air", "hero.sff"}) {
        stage->files.Put(std::string("/mugen/chars/other/../hero/") + name,
                         stage->files.Get(std::string("/mugen/chars/hero/") + name));
    }
    stage->dialogs.Answer("/mugen/chars/other/other.def");
    stage->user = InTurn({ClickOn(Menu::mnuChange), [](RunningStage& running) {
                              EXPECT_EQ(running.form[Menu::mnuChar].caption, "Use Other");
                              EXPECT_TRUE(running.form[Menu::mnuChar].checked);
                              EXPECT_FLOAT_EQ(StepOf(running), 1.25F);
                              EXPECT_EQ(running.Caption(), "first");
                          }});
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_THAT(stage->dialogs.Asked(),
                testing::ElementsAre(DialogQuestion{DialogQuestion::Kind::OpenFile,
                                                    "Choose test character.", "/mugen/chars/"}));
    EXPECT_THAT(stage->MessageTexts(), testing::IsEmpty());
}

TEST(ChangeChar, AFileThatIsNoCharacterIsSaid) {
    const auto stage = WithHero(Chosen("Char = True\r\n"));
    stage->dialogs.Answer(kStageC);
    stage->user = InTurn({ClickOn(Menu::mnuChange), [](RunningStage& running) {
                              EXPECT_EQ(running.program.Show().TestChar().TestChar, kHero);
                              EXPECT_TRUE(running.program.Show().TestChar().CharLoaded);
                          }});
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_THAT(stage->MessageTexts(), testing::ElementsAre("Not a Character!"));
}

TEST(ChangeChar, InTheSpriteBrowserTheCaptionStaysTheSprites) {
    const auto stage = WithHero();
    stage->dialogs.Answer("");
    stage->dialogs.Answer(kHero);
    const auto expectSprite = [](RunningStage& running) {
        EXPECT_THAT(running.Caption(), HasSubstr("Group: "));
    };
    stage->user =
        InTurn({ClickOn(Menu::mnuDebug), Wait, expectSprite, ClickOn(Menu::mnuChange), expectSprite,
                ClickOn(Menu::mnuChar), expectSprite, [](RunningStage& running) {
                    EXPECT_TRUE(running.program.Show().TestChar().CharLoaded);
                }});
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_EQ(stage->dialogs.Asked().size(), 2U);
}

TEST(ChangeChar, TakesTheCharacterThatComesWithTheProgram) {
    PosixFiles files("");
    EXPECT_TRUE(IsChar(files, SCENARA_BUNDLED_DATA "/chars/lanternkeeper/lanternkeeper.def"));
    EXPECT_FALSE(IsChar(files, SCENARA_BUNDLED_DATA "/stages/lanternpier.def"));
}

// --- Mouse scrolling and the character share the save slots of the steps -------------------------

enum class Switch { Character, Mouse };

class StepsOfBoth : public testing::TestWithParam<std::vector<Switch>> {};

// The user's steps are 3 and 5, whoever came and went before.
TEST_P(StepsOfBoth, AreTheUsersInTheSettingsAndBehindIt) {
    for (std::size_t exitBehind = 0; exitBehind <= GetParam().size(); ++exitBehind) {
        SCOPED_TRACE(exitBehind);
        const auto stage = WithHero(Chosen());
        std::vector<Act> acts;
        for (std::size_t i = 0; i < exitBehind; ++i) {
            acts.push_back(
                ClickOn(GetParam()[i] == Switch::Character ? Menu::mnuChar : Menu::mnuMScroll));
            acts.emplace_back([](RunningStage& running) { running.pointer.MoveTo({260, 200}); });
        }
        if (exitBehind == GetParam().size()) {
            acts.emplace_back([](RunningStage& running) {
                EXPECT_FLOAT_EQ(StepOf(running), 3);
                EXPECT_FLOAT_EQ(running.program.Show().CameraState().VCamStep, 5);
            });
        }
        acts.push_back(ClickOn(Menu::mnuExit));
        stage->user = InTurn(std::move(acts));
        stage->program.Form_OLEDragDrop(kStageA);
        ASSERT_TRUE(stage->program.Ended());
        EXPECT_THAT(stage->files.Get(kConfiguration),
                    HasSubstr("HCamStep = 3\r\nVCamStep = 5\r\n"));
    }
}

constexpr Switch kC1 = Switch::Character;
constexpr Switch kM1 = Switch::Mouse;

INSTANTIATE_TEST_SUITE_P(EveryOrder, StepsOfBoth,
                         testing::Values(std::vector{kC1, kM1, kC1, kM1},
                                         std::vector{kC1, kM1, kM1, kC1},
                                         std::vector{kM1, kC1, kM1, kC1},
                                         std::vector{kM1, kC1, kC1, kM1}));

}  // namespace
}  // namespace scenara::test
