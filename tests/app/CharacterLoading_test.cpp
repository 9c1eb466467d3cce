// SPDX-License-Identifier: MIT
//
// What the user does while a character loads, and a character that cannot be loaded.
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/HeroStage.h"

namespace scenara::test {
namespace {

using testing::HasSubstr;

TEST(CharacterLoads, AFileDroppedWhileItLoadsIsOpenedBehindIt) {
    const auto stage = WithHero(std::string("TestChar = ") + kHero + "\r\n");
    bool dropped = false;
    stage->user = InTurn({[](RunningStage& running) { running.Click(Menu::mnuChar); }, Wait,
                          [](RunningStage& running) { EXPECT_EQ(running.Caption(), "third"); }},
                         [&](RunningStage& running) {
                             if (!dropped && running.form[Menu::mnuChar].checked) {
                                 dropped = true;
                                 running.program.Form_OLEDragDrop(kStageC);
                             }
                         });
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_TRUE(dropped);
    EXPECT_EQ(stage->Begun(), 2);
}

TEST(CharacterLoads, PausedWhileItLoadsTheCaptionSaysSo) {
    const auto stage = WithHero(std::string("TestChar = ") + kHero + "\r\n");
    bool paused = false;
    stage->user =
        InTurn({[](RunningStage& running) { running.Click(Menu::mnuChar); },
                [](RunningStage& running) { EXPECT_EQ(running.Caption(), "first <<PAUSED>>"); }},
               [&](RunningStage& running) {
                   if (!paused && running.form[Menu::mnuChar].checked) {
                       paused = true;
                       running.Click(Menu::mnuPause);
                   }
               });
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_TRUE(paused);
}

TEST(CharacterLoads, AFileDroppedWhileTheOtherOneLoadsIsOpenedBehindIt) {
    const auto stage = WithHero();
    stage->dialogs.Answer(kHero);
    bool dropped = false;
    stage->user = InTurn(
        {ClickOn(Menu::mnuChange), Wait,
         [](RunningStage& running) { EXPECT_EQ(running.Caption(), "third"); }},
        OnceWhileTheCharacterLoads(
            [](RunningStage& running) { running.program.Form_OLEDragDrop(kStageC); }, dropped));
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_TRUE(dropped);
    EXPECT_EQ(stage->Begun(), 2);
}

TEST(CharacterLoads, TheSpriteBrowserDoesNotOpenWhileItLoads) {
    const auto stage = WithHero(Chosen());
    bool did = false;
    stage->user = InTurn({ClickOn(Menu::mnuChar),
                          [](RunningStage& running) {
                              EXPECT_EQ(running.program.Show().SpriteBrowserMode, 0);
                              EXPECT_EQ(running.Caption(), "first");
                          }},
                         OnceWhileTheCharacterLoads(ClickOn(Menu::mnuDebug), did));
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_TRUE(did);
}

TEST(CharacterLoads, KeysTappedWhileItLoadsDoNothingAfterwards) {
    const auto stage = WithHero(Chosen());
    bool did = false;
    std::size_t elements = 0;
    stage->user =
        InTurn({ClickOn(Menu::mnuDebugBG),
                [](RunningStage& running) {
                    running.program.Form_MouseDown(162, 3);
                    running.program.Form_MouseUp();
                },
                Wait,
                [&](RunningStage& running) {
                    elements = running.program.Show().Model().Elements.size();
                    running.Click(Menu::mnuChar);
                },
                Wait, Wait,
                [&](RunningStage& running) {
                    EXPECT_EQ(running.program.Show().Model().Elements.size(), elements);
                    EXPECT_EQ(running.program.Show().Loop().Paused, 0);
                }},
               OnceWhileTheCharacterLoads(
                   [](RunningStage& running) {
                       for (const VirtualKey key : {VirtualKey::Insert, VirtualKey::Pause}) {
                           running.keyboard.Tap(key);
                       }
                   },
                   did));
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_TRUE(did);
}

class WhileItLoads : public testing::TestWithParam<bool> {
protected:
    // From the menu, or with the stage.
    void Run(Act act, std::vector<Act> then, bool additions = true) {
        const bool fromTheMenu = GetParam();
        stage = WithHero(Chosen(fromTheMenu ? "" : "Char = True\r\n"), additions);
        std::vector<Act> acts;
        if (fromTheMenu) {
            acts.push_back(ClickOn(Menu::mnuChar));
        }
        acts.insert(acts.end(), then.begin(), then.end());
        stage->user = InTurn(std::move(acts), OnceWhileTheCharacterLoads(std::move(act), did));
        stage->program.Form_OLEDragDrop(kStageA);
        EXPECT_TRUE(did);
    }

    std::unique_ptr<RunningStage> stage;
    bool did = false;
};

TEST_P(WhileItLoads, KeysTappedDoNothingAfterwards) {
    Run(
        [](RunningStage& running) {
            running.Click(Menu::mnuDebugBG);
            running.form[Menu::mnuDebugBG].checked = true;  // as the settings may have it
            for (const VirtualKey key : {VirtualKey::D, VirtualKey::Pause, VirtualKey::Escape}) {
                running.keyboard.Tap(key);
            }
        },
        {Wait, Wait, [](RunningStage& running) {
             EXPECT_EQ(running.Caption(), "first");
             EXPECT_EQ(running.program.Show().Loop().Paused, 0);
             EXPECT_FALSE(running.files.Has("/program/chek.txt"));
         }});
}

TEST_P(WhileItLoads, ClosingTheWindowEndsTheProgramAndSavesTheUsersSteps) {
    Run([](RunningStage& running) { running.program.Form_Unload(); }, {});
    EXPECT_TRUE(stage->program.Ended());
    EXPECT_EQ(stage->direct3D.Device(), nullptr);
    EXPECT_TRUE(stage->program.Show().TestChar().Characters.empty());
    EXPECT_THAT(stage->files.Get(kConfiguration), HasSubstr("HCamStep = 3\r\nVCamStep = 5\r\n"));
    EXPECT_THAT(stage->MessageTexts(), testing::IsEmpty());
}

TEST_P(WhileItLoads, NeitherMenusNorListNorRecentFilesDoAnything) {
    Run(
        [](RunningStage& running) {
            for (const Menu item :
                 {Menu::mnuOpen, Menu::mnuClose, Menu::mnuReload, Menu::mnuExit, Menu::mnuChar,
                  Menu::mnuChange, Menu::mnuFS, Menu::mnuMScroll, Menu::mnuStageNext,
                  Menu::mnuStagePrev, Menu::mnuR, Menu::mnuAdditions}) {
                running.Click(item);
            }
            running.program.lstStages_Click(2);
            running.form.recentFiles = {kStageC};
            running.program.MnuRecentFiles_Click(0);
        },
        {[](RunningStage& running) {
            EXPECT_EQ(running.Caption(), "first");
            EXPECT_TRUE(running.program.Show().TestChar().CharLoaded);
            EXPECT_TRUE(running.form[Menu::mnuChar].checked);
            EXPECT_FLOAT_EQ(StepOf(running), 2.4F);
        }});
    EXPECT_EQ(stage->Begun(), 1);
    EXPECT_FALSE(stage->program.Ended());
    EXPECT_THAT(stage->dialogs.Asked(), testing::IsEmpty());
    EXPECT_THAT(stage->MessageTexts(), testing::IsEmpty());
}

TEST_P(WhileItLoads, PlainEscapeAndQTakeNoDeviceAway) {
    Run(
        [](RunningStage& running) {
            running.program.Form_KeyDown(VirtualKey::Escape);
            running.program.Form_KeyDown(VirtualKey::Q);
        },
        {[](RunningStage& running) {
            EXPECT_NE(running.direct3D.Device(), nullptr);
            EXPECT_EQ(running.program.Show().TestChar().Characters.at(0).Sprites.size(), 5U);
        }},
        false);
    EXPECT_THAT(stage->MessageTexts(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(FromMenuOrWithTheStage, WhileItLoads, testing::Bool());

TEST(CharacterLoads, ABrokenOneInFullScreenLeavesTheFullScreenUsable) {
    const auto stage = WithHero(Chosen("Char = True\r\n"));
    stage->user = InTurn({ClickOn(Menu::mnuFS), Wait,
                          [](RunningStage& running) {
                              running.files.Put("/mugen/chars/hero/hero.air", "");
                              running.program.Form_OLEDragDrop(kStageC);
                          },
                          Wait,
                          [](RunningStage& running) {
                              EXPECT_EQ(running.program.FullScreenState, 1);
                              running.program.Form_KeyDown(VirtualKey::Escape);
                              EXPECT_EQ(running.program.FullScreenState, 0);
                          },
                          Wait});
    stage->program.Form_OLEDragDrop(kStageA);
    EXPECT_EQ(stage->MessageTexts().size(), 1U);
    EXPECT_EQ(stage->Caption(), "third");
}
}  // namespace
}  // namespace scenara::test
