// SPDX-License-Identifier: MIT
//
// The test character through the main window: switched on and off while a stage runs, and what the
// user does while it loads.
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"
#include "character/CharacterMachine.h"

namespace scenara::test {
namespace {

using testing::HasSubstr;

constexpr const char* kA = "/mugen/stages/a.def";
constexpr const char* kC = "/mugen/stages/c.def";

// A started program with the hero's files beside the stages.
std::unique_ptr<RunningStage> WithHero(const std::string& settings = {}) {
    auto stage = std::make_unique<RunningStage>();
    stage->files.Put("/program/QX.CFG", "MugeDir = /mugen/\r\n" + settings);
    const CharacterMachine hero;
    for (const char* name : {"hero.air", "hero.cns", "hero.sff"}) {
        const std::string path = std::string("/mugen/chars/hero/") + name;
        stage->files.Put(path, hero.files.Get(path));
    }
    stage->files.Put(kHero, hero.files.Get(kHero) + "\nst = stcommon\n");
    stage->Load();
    return stage;
}

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
    stage->program.Form_OLEDragDrop(kA);
}

TEST(UseTestChar, AsksForACharacterAndTakesItsStep) {
    const auto stage = WithHero();
    stage->dialogs.Answer(kHero);
    stage->user = InTurn({[](RunningStage& running) {
                              running.Click(Menu::mnuChar);
                              EXPECT_TRUE(running.program.TestCharacterState().CharLoaded);
                              EXPECT_EQ(running.form[Menu::mnuChar].caption, "Use The Hero");
                              EXPECT_FLOAT_EQ(running.program.CameraState().HCamStep, 2.4F);
                              EXPECT_EQ(running.Caption(), "first");
                          },
                          [](RunningStage& running) {
                              running.Click(Menu::mnuChar);
                              EXPECT_FLOAT_EQ(running.program.CameraState().HCamStep, 1);
                          }});
    stage->program.Form_OLEDragDrop(kA);
    EXPECT_THAT(stage->MessageTexts(), testing::IsEmpty());
}

TEST(UseTestChar, IsSwitchedOnByTheSettingsAndStaysAcrossStages) {
    const auto stage =
        WithHero(std::string("TestChar = ") + kHero + "\r\nChar = True\r\nHCamStep = 3\r\n");
    EXPECT_TRUE(stage->form[Menu::mnuChar].checked);
    EXPECT_FALSE(stage->program.TestCharacterState().CharLoaded);
    const auto loaded = [](RunningStage& running) {
        EXPECT_TRUE(running.program.TestCharacterState().CharLoaded);
        EXPECT_FLOAT_EQ(running.program.CameraState().HCamStep, 2.4F);
    };
    stage->user = InTurn(
        {loaded, [](RunningStage& running) { running.program.Form_OLEDragDrop(kC); }, loaded});
    stage->program.Form_OLEDragDrop(kA);
    stage->program.Form_Unload();
    EXPECT_THAT(stage->files.Get("/program/QX.CFG"), HasSubstr("HCamStep = 3\r\n"))
        << "the user's own step";
}

TEST(UseTestChar, AFileDroppedWhileItLoadsIsOpenedBehindIt) {
    const auto stage = WithHero(std::string("TestChar = ") + kHero + "\r\n");
    bool dropped = false;
    stage->user = InTurn({[](RunningStage& running) { running.Click(Menu::mnuChar); }, Wait,
                          [](RunningStage& running) { EXPECT_EQ(running.Caption(), "third"); }},
                         [&](RunningStage& running) {
                             if (!dropped && running.form[Menu::mnuChar].checked) {
                                 dropped = true;
                                 running.program.Form_OLEDragDrop(kC);
                             }
                         });
    stage->program.Form_OLEDragDrop(kA);
    EXPECT_TRUE(dropped);
    EXPECT_EQ(stage->Begun(), 2);
}

TEST(UseTestChar, PausedWhileItLoadsTheCaptionSaysSo) {
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
    stage->program.Form_OLEDragDrop(kA);
    EXPECT_TRUE(paused);
}

TEST(UseTestChar, GetsItsStepBackFromMouseScrolling) {
    const auto stage = WithHero(std::string("TestChar = ") + kHero + "\r\n");
    stage->user = InTurn({[](RunningStage& running) {
        running.Click(Menu::mnuChar);
        running.Click(Menu::mnuMScroll);
        running.Click(Menu::mnuMScroll);
        EXPECT_FLOAT_EQ(running.program.CameraState().HCamStep, 2.4F);
        running.Click(Menu::mnuChar);
        EXPECT_FLOAT_EQ(running.program.CameraState().HCamStep, 1) << "the user's own";
    }});
    stage->program.Form_OLEDragDrop(kA);
}

}  // namespace
}  // namespace scenara::test
