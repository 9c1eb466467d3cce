// SPDX-License-Identifier: MIT
//
// What the user does while a character loads, and a character that cannot be loaded.
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/HeroStage.h"

namespace scenara::test {
namespace {

using testing::HasSubstr;

using CharacterLoads = HeroProgram;

// The item that begins the load.
class ByEitherItem : public HeroProgram, public testing::WithParamInterface<Menu> {};

TEST_P(ByEitherItem, AFileDroppedWhileItLoadsIsOpenedBehindIt) {
    Start(GetParam() == Menu::mnuChar ? Chosen() : "");
    dialogs.Answer(kHero);
    bool did = false;
    WhileAIsShown({Choose(GetParam()), Wait, [&] { EXPECT_EQ(Caption(), "third"); }},
                  OnceWhileTheCharacterLoads(Drop(kStageC), did));
    EXPECT_TRUE(did);
    EXPECT_EQ(Begun(), 2);
}

INSTANTIATE_TEST_SUITE_P(Of, ByEitherItem, testing::Values(Menu::mnuChar, Menu::mnuChange));

TEST_F(CharacterLoads, PausedWhileItLoadsTheCaptionSaysSo) {
    Start(Chosen());
    bool did = false;
    WhileAIsShown({Choose(Menu::mnuChar), [&] { EXPECT_EQ(Caption(), "first <<PAUSED>>"); }},
                  OnceWhileTheCharacterLoads(Choose(Menu::mnuPause), did));
    EXPECT_TRUE(did);
}

TEST_F(CharacterLoads, TheSpriteBrowserDoesNotOpenWhileItLoads) {
    Start(Chosen());
    bool did = false;
    WhileAIsShown({Choose(Menu::mnuChar),
                   [&] {
                       EXPECT_EQ(show.SpriteBrowserMode, 0);
                       EXPECT_EQ(Caption(), "first");
                   }},
                  OnceWhileTheCharacterLoads(Choose(Menu::mnuDebug), did));
    EXPECT_TRUE(did);
}

TEST_F(CharacterLoads, KeysTappedWhileItLoadsDoNothingAfterwards) {
    Start(Chosen());
    bool did = false;
    std::size_t elements = 0;
    WhileAIsShown(
        {Choose(Menu::mnuDebugBG), [&] { program.Form_MouseDown(162, 3); },
         [&] { program.Form_MouseUp(); },
         [&] {
             elements = model.Elements.size();
             Click(Menu::mnuChar);
         },
         Wait, Wait,
         [&] {
             EXPECT_EQ(model.Elements.size(), elements);
             EXPECT_EQ(loop.Paused, 0);
         }},
        OnceWhileTheCharacterLoads(All({Tap(VirtualKey::Insert), Tap(VirtualKey::Pause)}), did));
    EXPECT_TRUE(did);
}

class WhileItLoads : public HeroProgram, public testing::WithParamInterface<bool> {
protected:
    // From the menu, or with the stage.
    void Run(Act act, const std::vector<Act>& then, bool additions = true) {
        const bool fromTheMenu = GetParam();
        Start(Chosen(fromTheMenu ? "" : "Char = True\r\n"), additions);
        bool did = false;
        WhileAIsShown((fromTheMenu ? Then(Choose(Menu::mnuChar)) : std::vector<Act>()) + then,
                      OnceWhileTheCharacterLoads(std::move(act), did));
        EXPECT_TRUE(did);
    }
};

TEST_P(WhileItLoads, KeysTappedDoNothingAfterwards) {
    Run(
        [&] {
            Click(Menu::mnuDebugBG);
            form[Menu::mnuDebugBG].checked = true;  // as the settings may have it
            for (const VirtualKey key : {VirtualKey::D, VirtualKey::Pause, VirtualKey::Escape}) {
                keyboard.Tap(key);
            }
        },
        {Wait, Wait, [&] {
             EXPECT_EQ(Caption(), "first");
             EXPECT_EQ(loop.Paused, 0);
             EXPECT_FALSE(files.Has("/program/chek.txt"));
         }});
}

TEST_P(WhileItLoads, ClosingTheWindowEndsTheProgramAndSavesTheUsersSteps) {
    Run([&] { program.Form_Unload(); }, {});
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(direct3D.Device(), nullptr);
    EXPECT_TRUE(Character().Characters.empty());
    EXPECT_THAT(files.Get(kConfiguration), HasSubstr("HCamStep = 3\r\nVCamStep = 5\r\n"));
    EXPECT_THAT(MessageTexts(), testing::IsEmpty());
}

TEST_P(WhileItLoads, NeitherMenusNorRecentFilesDoAnything) {
    Run(
        [&] {
            for (const Menu item :
                 {Menu::mnuOpen, Menu::mnuClose, Menu::mnuReload, Menu::mnuChar, Menu::mnuChange,
                  Menu::mnuFS, Menu::mnuMScroll, Menu::mnuStageNext, Menu::mnuStagePrev, Menu::mnuR,
                  Menu::mnuAdditions}) {
                Click(item);
            }
            form.recentFiles = {kStageC};
            program.MnuRecentFiles_Click(0);
        },
        {[&] {
            EXPECT_EQ(Caption(), "first");
            EXPECT_TRUE(Character().CharLoaded);
            EXPECT_TRUE(form[Menu::mnuChar].checked);
            EXPECT_FLOAT_EQ(Step(), 2.4F);
        }});
    EXPECT_EQ(Begun(), 1);
    EXPECT_FALSE(program.Ended());
    EXPECT_THAT(dialogs.Asked(), testing::IsEmpty());
    EXPECT_THAT(MessageTexts(), testing::IsEmpty());
}

TEST_P(WhileItLoads, PlainEscapeAndQTakeNoDeviceAway) {
    Run(All({KeyDown(VirtualKey::Escape), KeyDown(VirtualKey::Q)}), {[&] {
            EXPECT_NE(direct3D.Device(), nullptr);
            EXPECT_EQ(Character().Characters.at(0).Sprites.size(), 5U);
        }},
        false);
    EXPECT_THAT(MessageTexts(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(FromMenuOrWithTheStage, WhileItLoads, testing::Bool());

TEST_F(CharacterLoads, ABrokenOneInFullScreenLeavesTheFullScreenUsable) {
    Start(Chosen("Char = True\r\n"));
    WhileAIsShown({Choose(Menu::mnuFS), Wait,
                   [&] {
                       files.Put("/mugen/chars/hero/hero.air", "");
                       program.Form_OLEDragDrop({kStageC});
                   },
                   Wait,
                   [&] {
                       EXPECT_EQ(program.FullScreenState, 1);
                       program.Form_KeyDown(VirtualKey::Escape);
                       EXPECT_EQ(program.FullScreenState, 0);
                   },
                   Wait});
    EXPECT_EQ(MessageTexts().size(), 1U);
    EXPECT_EQ(Caption(), "third");
}
}  // namespace
}  // namespace scenara::test
