// SPDX-License-Identifier: MIT
//
// The commands beyond choosing stages, as the user gives them.
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr Long kItemA = 0;
constexpr Long kItemC = 2;

Act Click(Menu item) {
    return [item](RunningStage& stage) { stage.Click(item); };
}
Act KeyDown(VirtualKey key) {
    return [key](RunningStage& stage) { stage.program.Form_KeyDown(key); };
}

class Commands : public testing::Test {
protected:
    Commands() { stage.Load(); }

    void WhileAIsShown(std::vector<Act> acts) {
        stage.user = InTurn(std::move(acts));
        stage.program.lstStages_Click(kItemA);
    }

    RunningStage stage;
};

// --- Frame limiter -------------------------------------------------------------------------------

TEST_F(Commands, UncheckingTheLimiterAsksNothing) {
    stage.Click(Menu::mnuFPS);
    EXPECT_FALSE(stage.form[Menu::mnuFPS].checked);
    EXPECT_EQ(stage.program.Show().Loop().FpsLimit, 0);
    EXPECT_EQ(stage.form[Menu::mnuFPS].caption, "FPS Limiter (60 fps)");
    EXPECT_THAT(stage.dialogs.Asked(), IsEmpty());
}

struct Answer {
    const char* text;
    Integer limit;
    const char* caption;
};

class LimiterAnswer : public testing::TestWithParam<Answer> {};

TEST_P(LimiterAnswer, BecomesTheLimit) {
    RunningStage stage;
    stage.Load();
    stage.dialogs.Answer(GetParam().text);
    stage.Click(Menu::mnuFPS);
    stage.Click(Menu::mnuFPS);
    EXPECT_THAT(stage.dialogs.Asked(),
                ElementsAre(DialogQuestion{DialogQuestion::Kind::InputBox, "Max FPS?", ""}));
    EXPECT_EQ(stage.program.Show().Loop().FpsLimit, GetParam().limit);
    EXPECT_EQ(stage.form[Menu::mnuFPS].caption, GetParam().caption);
    EXPECT_TRUE(stage.form[Menu::mnuFPS].checked);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, LimiterAnswer,
                         testing::Values(Answer{"30", 30, "FPS Limiter (30 fps)"},
                                         Answer{"0", 0, "FPS Limiter (0 fps)"},
                                         Answer{"", 0, "FPS Limiter (0 fps)"},  // cancelled
                                         Answer{"fast", 0, "FPS Limiter (0 fps)"},
                                         Answer{"12abc", 12, "FPS Limiter (12 fps)"},
                                         Answer{"0.5", 0, "FPS Limiter (0 fps)"},
                                         Answer{"2.5", 2, "FPS Limiter (2 fps)"},
                                         Answer{"3.5", 4, "FPS Limiter (4 fps)"},
                                         Answer{"-5", -5, "FPS Limiter (-5 fps)"},
                                         Answer{"32767", 32767, "FPS Limiter (32767 fps)"},
                                         Answer{"-32768", -32768, "FPS Limiter (-32768 fps)"}));

TEST_F(Commands, ALimitBeyond16BitsIsAnError) {
    for (const char* const answer : {"32768", "32767.5", "-32769", "1000000000000"}) {
        stage.form[Menu::mnuFPS].checked = false;
        stage.program.Show().Loop().FpsLimit = 0;
        stage.dialogs.Answer(answer);
        stage.Click(Menu::mnuFPS);
        EXPECT_THAT(stage.MessageTexts().back(), StartsWith("Run-time error: Overflow"));
        EXPECT_EQ(stage.program.Show().Loop().FpsLimit, 0);
        EXPECT_EQ(stage.form[Menu::mnuFPS].caption, "FPS Limiter (60 fps)");
        EXPECT_TRUE(stage.form[Menu::mnuFPS].checked) << "that came before the question";
    }
    EXPECT_EQ(stage.MessageTexts().size(), 4U);
}

TEST_F(Commands, TheLimitHoldsFromTheNextFrameOn) {
    stage.dialogs.Answer("20");
    int before = 0;
    std::vector<Act> acts = {
        Click(Menu::mnuFPS), Click(Menu::mnuFPS), Wait, Wait, Wait, [&](RunningStage& running) {
            before = running.sink.shown;
        }};
    acts.insert(acts.end(), 30, Wait);
    acts.emplace_back([&](RunningStage& running) { EXPECT_EQ(running.sink.shown, before + 10); });
    // A frame of the clock passes at each check for messages; 1/20 s is three of them.
    WhileAIsShown(acts);
}

TEST_F(Commands, ALimitBelowNothingDoesNotWait) {
    stage.dialogs.Answer("-5");
    stage.Click(Menu::mnuFPS);
    stage.Click(Menu::mnuFPS);
    WhileAIsShown(std::vector<Act>(9, Wait));
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 10);
}

// --- Pause ---------------------------------------------------------------------------------------

TEST_F(Commands, PauseMarksItemAndCaptionAndTakesThemBack) {
    WhileAIsShown({Click(Menu::mnuPause), [](RunningStage& running) {
                       EXPECT_EQ(running.Caption(), "first <<PAUSED>>");
                       EXPECT_TRUE(running.form[Menu::mnuPause].checked);
                       EXPECT_EQ(running.program.Show().Loop().Paused, 255);
                       running.Click(Menu::mnuPause);
                       EXPECT_EQ(running.Caption(), "first");
                       EXPECT_FALSE(running.form[Menu::mnuPause].checked);
                       EXPECT_EQ(running.program.Show().Loop().Paused, 0);
                   }});
}

TEST_F(Commands, WhilePausedTheLineKeepsItsTextAndCommandsGoOn) {
    stage.Click(Menu::mnuInfo);
    std::vector<Act> acts = {Click(Menu::mnuPause)};
    acts.insert(acts.end(), 100, Wait);
    acts.emplace_back([](RunningStage& running) {
        EXPECT_EQ(running.program.Show().InfoText(), "Cam 0,0  1 FPS");
        EXPECT_EQ(running.program.Show().Loop().TotalFrames, 1);
        running.Click(Menu::mnuAbout);
    });
    WhileAIsShown(acts);
    EXPECT_EQ(stage.MessageTexts().size(), 1U);
    EXPECT_EQ(stage.sink.shown, 103) << "the picture is shown again and again";
}

// --- Mouse scrolling -----------------------------------------------------------------------------

class MouseScroll : public testing::Test {
protected:
    MouseScroll() {
        stage.files.Put("/program/QX.CFG", "MugeDir = /mugen/\r\nHCamStep = 4\r\nVCamStep = 6\r\n");
        stage.Load();
    }

    [[nodiscard]] std::vector<Single> Steps() const {
        return {stage.program.Show().CameraState().HCamStep,
                stage.program.Show().CameraState().VCamStep};
    }

    RunningStage stage;
};

TEST_F(MouseScroll, SetsTheStepsAndGivesThemBack) {
    stage.user = InTurn({[](RunningStage& running) {
                             running.Click(Menu::mnuMScroll);
                             EXPECT_TRUE(running.form[Menu::mnuMScroll].checked);
                             // 100 pixels right of the window's middle, 80 below it.
                             running.pointer.MoveTo({260, 200});
                         },
                         [&](RunningStage& running) {
                             EXPECT_THAT(Steps(), ElementsAre(10.0F, 2.0F));
                             running.Click(Menu::mnuMScroll);
                             EXPECT_FALSE(running.form[Menu::mnuMScroll].checked);
                             EXPECT_THAT(Steps(), ElementsAre(4.0F, 6.0F));
                         },
                         Wait});
    stage.program.lstStages_Click(kItemA);
    EXPECT_THAT(Steps(), ElementsAre(4.0F, 6.0F)) << "and the pointer has no hold of them";
}

TEST_F(MouseScroll, SwitchedOffTheElementsStandWhereTheCameraSeesThem) {
    float start = 0;
    stage.user =
        InTurn({[&](RunningStage& running) {
                    start = running.program.Show().Model().Elements.at(0).posX;
                    running.Click(Menu::mnuMScroll);
                    running.pointer.MoveTo({260, 120});
                },
                Wait, Wait,
                [](RunningStage& running) {
                    EXPECT_EQ(running.program.Show().Model().CamX, -60.0F);  // twice a frame
                    running.Click(Menu::mnuMScroll);
                },
                Wait,
                [&](RunningStage& running) {
                    const BackgroundElement& wall = running.program.Show().Model().Elements.at(0);
                    EXPECT_EQ(running.program.Show().Model().CamX, -60.0F);
                    EXPECT_EQ(wall.posX, start - 60 * wall.deltaX);
                }});
    stage.program.lstStages_Click(kItemA);
}

TEST_F(MouseScroll, SavedStepsOfNothingComeBackAsOne) {
    RunningStage fresh;
    fresh.Load();
    fresh.form[Menu::mnuMScroll].enabled = true;
    fresh.Click(Menu::mnuMScroll);
    EXPECT_EQ(fresh.program.Show().CameraState().HCamStep, 0.0F);
    fresh.Click(Menu::mnuMScroll);
    EXPECT_EQ(fresh.program.Show().CameraState().HCamStep, 1.0F);
    EXPECT_EQ(fresh.program.Show().CameraState().VCamStep, 1.0F);
}

TEST_F(MouseScroll, TheUsersStepsAreSavedAtTheEnd) {
    stage.user = InTurn({[](RunningStage& running) {
                             running.Click(Menu::mnuMScroll);
                             running.pointer.MoveTo({260, 200});
                         },
                         Wait, Click(Menu::mnuExit)});
    stage.program.lstStages_Click(kItemA);
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_THAT(stage.files.Get("/program/QX.CFG"), HasSubstr("HCamStep = 4\r\nVCamStep = 6\r\n"));
}

TEST_F(MouseScroll, AStageOpenedWithThePointerInTheMiddleKeepsTheUsersSteps) {
    stage.user = InTurn({[](RunningStage& running) {
                             running.Click(Menu::mnuMScroll);
                             running.pointer.MoveTo({160, 120});
                         },
                         [&](RunningStage& running) {
                             EXPECT_THAT(Steps(), ElementsAre(0.0F, 0.0F));
                             running.program.lstStages_Click(kItemC);
                         },
                         [&](RunningStage& running) {
                             running.Click(Menu::mnuMScroll);
                             EXPECT_THAT(Steps(), ElementsAre(4.0F, 6.0F));
                         }});
    stage.program.lstStages_Click(kItemA);
    EXPECT_EQ(stage.Begun(), 2);
}

TEST_F(MouseScroll, GoesOnInTheNextStage) {
    stage.user = InTurn({[](RunningStage& running) {
                             running.Click(Menu::mnuMScroll);
                             running.pointer.MoveTo({260, 120});
                             running.program.lstStages_Click(kItemC);
                         },
                         [&](RunningStage& running) {
                             EXPECT_EQ(running.Caption(), "third");
                             EXPECT_THAT(Steps(), ElementsAre(10.0F, 0.0F));
                         }});
    stage.program.lstStages_Click(kItemA);
    EXPECT_EQ(stage.Begun(), 2);
}

// --- The rest of the menu ------------------------------------------------------------------------

TEST_F(Commands, AboutTellsNameVersionAndTwoLinesMore) {
    stage.Click(Menu::mnuAbout);
    ASSERT_EQ(stage.messages.Recorded().size(), 1U);
    const Message& about = stage.messages.Recorded()[0];
    EXPECT_EQ(about.icon, MessageIcon::None);
    EXPECT_EQ(about.title, "");
    const std::string first = "Scenara 1.0 DirectX 8 Experimental Release\r\n";
    ASSERT_THAT(about.text, StartsWith(first));
    const std::string rest = about.text.substr(first.size());
    const std::size_t end = rest.find("\r\n");
    ASSERT_NE(end, std::string::npos);
    EXPECT_GT(end, 0U);
    EXPECT_EQ(rest.find("\r\n", end + 2), std::string::npos) << "two lines";
    EXPECT_GT(rest.size(), end + 2);
}

TEST_F(Commands, DisabledItemsDoNothing) {
    for (const Menu item : {Menu::mnuReset, Menu::mnuFS, Menu::mnuMScroll, Menu::mnuDeform,
                            Menu::mnuChar, Menu::mnuChange, Menu::mnuDebugBG}) {
        ASSERT_FALSE(stage.form[item].enabled);
        const bool checked = stage.form[item].checked;
        stage.Click(item);
        EXPECT_EQ(stage.form[item].checked, checked);
    }
}

TEST_F(Commands, AStageEnablesWhatItTakes) {
    WhileAIsShown({});
    for (const Menu item : {Menu::mnuFS, Menu::mnuMScroll, Menu::mnuDeform, Menu::mnuChar,
                            Menu::mnuChange, Menu::mnuDebugBG}) {
        EXPECT_TRUE(stage.form[item].enabled);
    }
    EXPECT_FALSE(stage.form[Menu::mnuReset].enabled);
    stage.Click(Menu::mnuDeform);
    EXPECT_TRUE(stage.form[Menu::mnuDeform].checked);
    stage.Click(Menu::mnuDeform);
    EXPECT_FALSE(stage.form[Menu::mnuDeform].checked);
}

TEST_F(Commands, TheLoopTakesTheListsKeysAndGivesThemBack) {
    EXPECT_TRUE(stage.form.lstStages.takesKeys);
    WhileAIsShown({[](RunningStage& running) { EXPECT_FALSE(running.form.lstStages.takesKeys); }});
    EXPECT_TRUE(stage.form.lstStages.takesKeys);
}

// --- Keys ----------------------------------------------------------------------------------------

TEST_F(Commands, EscapeAndQAreHarmlessWithAdditions) {
    WhileAIsShown({KeyDown(VirtualKey::Escape), KeyDown(VirtualKey::Q), Wait});
    EXPECT_EQ(stage.sink.shown, 4);
    EXPECT_NE(stage.direct3D.Device(), nullptr);
}

class PlainKey : public testing::TestWithParam<VirtualKey> {
protected:
    PlainKey() { stage.Load(); }
    RunningStage stage{{}, false};
};

TEST_P(PlainKey, ReleasesTheDeviceUnderTheLoop) {
    stage.user = InTurn({Wait, KeyDown(GetParam()), Wait, Wait,
                         [](RunningStage& running) {
                             EXPECT_EQ(running.direct3D.Device(), nullptr);
                             EXPECT_EQ(running.sink.shown, 2);
                             EXPECT_EQ(running.program.Show().Loop().TotalFrames, 2);
                             running.program.lstStages_Click(kItemC);
                         },
                         Wait});
    stage.program.lstStages_Click(kItemA);
    EXPECT_EQ(stage.Caption(), "third");
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 2) << "the next stage has a device again";
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_P(PlainKey, WaitsForALoad) {
    stage.user = InTurn({Wait}, KeyDown(GetParam()));
    stage.program.lstStages_Click(kItemA);
    EXPECT_EQ(stage.sink.shown, 2);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_P(PlainKey, WithoutAStageDoesNothing) {
    stage.program.Form_KeyDown(GetParam());
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, PlainKey, testing::Values(VirtualKey::Escape, VirtualKey::Q));

// --- Additions on and off ------------------------------------------------------------------------

TEST_F(Commands, AdditionsAreKeptForTheNextStart) {
    EXPECT_TRUE(stage.form[Menu::mnuAdditions].checked);
    stage.Click(Menu::mnuAdditions);
    EXPECT_FALSE(stage.form[Menu::mnuAdditions].checked);
    EXPECT_FALSE(stage.program.Show().Options().Additions);
    EXPECT_EQ(stage.files.Get("/program/Scenara.ini"), "Additions = False\r\n");
    EXPECT_EQ(stage.Begun(), 0);
    stage.Click(Menu::mnuAdditions);
    EXPECT_EQ(stage.files.Get("/program/Scenara.ini"), "Additions = True\r\n");
}

TEST_F(Commands, ChangingTheAdditionsShowsTheStageAgainWhereTheCameraStands) {
    std::vector<Act> acts = {
        [](RunningStage& running) { running.keyboard.Press(VirtualKey::Right); }};
    acts.insert(acts.end(), 9, Wait);
    acts.emplace_back([](RunningStage& running) {
        running.keyboard.Release(VirtualKey::Right);
        ASSERT_EQ(running.program.Show().Model().CamX, -20.0F)
            << "ten frames, two passes each, a step of 1";
        running.Click(Menu::mnuAdditions);
    });
    acts.emplace_back([](RunningStage& running) {
        EXPECT_EQ(running.Begun(), 2);
        EXPECT_EQ(running.program.Show().Model().CamX, -20.0F);
        EXPECT_EQ(running.program.Show().CameraState().previousX, -20.0F);
        EXPECT_EQ(running.Caption(), "first");
        running.program.lstStages_Click(kItemC);
    });
    acts.emplace_back([](RunningStage& running) {
        EXPECT_EQ(running.Caption(), "third");
        EXPECT_EQ(running.program.Show().Model().CamX, 0.0F)
            << "another stage begins at its own start";
    });
    WhileAIsShown(acts);
    EXPECT_EQ(stage.Begun(), 3);
    EXPECT_THAT(stage.form.recentFiles, ElementsAre("/mugen/stages/c.def", "/mugen/stages/a.def"));
}

TEST_F(Commands, AReloadedStageBeginsAtItsStart) {
    WhileAIsShown(
        {[](RunningStage& running) { running.keyboard.Press(VirtualKey::Right); }, Wait,
         [](RunningStage& running) {
             running.keyboard.Release(VirtualKey::Right);
             EXPECT_EQ(running.program.Show().Model().CamX, -4.0F);
             running.Click(Menu::mnuReload);
         },
         [](RunningStage& running) { EXPECT_EQ(running.program.Show().Model().CamX, 0.0F); }});
    EXPECT_EQ(stage.Begun(), 2);
}

TEST_F(Commands, AnAdditionsSettingThatCannotBeSavedIsSaidAndHolds) {
    stage.files.FillDisk();
    WhileAIsShown({Click(Menu::mnuAdditions), Wait});
    EXPECT_THAT(stage.MessageTexts(), ElementsAre(StartsWith("Run-time error: Disk full")));
    EXPECT_FALSE(stage.program.Show().Options().Additions);
    EXPECT_EQ(stage.Begun(), 2);
}

}  // namespace
}  // namespace scenara::test
