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

using Commands = Program;

// --- Zoom ----------------------------------------------------------------------------------------

class Zooming : public Program {
protected:
    Zooming() {
        files.Put(kStageA,
                  "[Info]\nname = zooms\n[Camera]\nboundleft = -50\nboundright = 60\n"
                  "zoomout = .5\nzoomin = 1\nstartzoom = .75\n");
    }
    void ExpectEnabled(bool enabled) {
        for (const Menu item : {Menu::mnuZoomIn, Menu::mnuZoomOut, Menu::mnuZoomStart}) {
            EXPECT_EQ(form[item].enabled, enabled);
        }
    }
};

TEST_F(Zooming, GoesByTenthsAndTheCamerasBarHasWhereItGoesThen) {
    WhileAIsShown({[&] {
        EXPECT_EQ(model.CamZoom, 0.75);
        // 160 (2 - 4 / 3) = 106.7 farther
        EXPECT_EQ(form.hscHScroll.Min, -156);
        EXPECT_EQ(form.hscHScroll.Max, 166);
        Click(Menu::mnuZoomIn);
        EXPECT_DOUBLE_EQ(model.CamZoom, 0.8);
        Click(Menu::mnuZoomStart);
        EXPECT_EQ(model.CamZoom, 0.75);
        for (int i = 0; i < 7; ++i) {
            Click(Menu::mnuZoomOut);
        }
        EXPECT_EQ(model.CamZoom, 0.5);
        EXPECT_EQ(form.hscHScroll.Min, -50);
        EXPECT_EQ(form.hscHScroll.Max, 60);
    }});
}

TEST_F(Zooming, BeginsAnewWhenAdditionsComeBack) {
    const auto switchAdditions = [&] { Click(Menu::mnuAdditions); };
    WhileAIsShown({[&] { Click(Menu::mnuZoomIn); }, switchAdditions, Wait, switchAdditions, Wait,
                   [&] { EXPECT_EQ(model.CamZoom, 0.75); }});
}

TEST_F(Zooming, BeginsAnewWithTheStageAndIsNoneWithoutAdditions) {
    WhileAIsShown({[&] { Click(Menu::mnuZoomIn); }, [&] { Click(Menu::mnuReload); }, Wait,
                   [&] { EXPECT_EQ(model.CamZoom, 0.75); }, [&] { Click(Menu::mnuAdditions); },
                   Wait,
                   [&] {
                       EXPECT_EQ(model.CamZoom, 1) << "plainly there is none";
                       ExpectEnabled(false);
                   }});
}

TEST_F(Zooming, IsToBeChosenWhereTheStageZooms) {
    ExpectEnabled(false);
    WhileAIsShown({[&] { ExpectEnabled(true); }, Select(kItemC), Wait,
                   [&] { ExpectEnabled(false); }, [&] { Click(Menu::mnuClose); },
                   [&] { ExpectEnabled(false); }});
}

TEST_F(Zooming, IsSeenWhileTheStageIsPaused) {
    files.Put(kStageA,
              "[Info]\nname = zooms\n[Camera]\nzoomin = 2\nzoomout = 1\n"
              "[BGdef]\nspr = stages/a.sff\n"
              "[BG wall]\ntype = normal\nspriteno = 0,0\nstart = 20,100\n");
    std::vector<std::uint32_t> before;
    WhileAIsShown(Then([&] { Click(Menu::mnuInfo); }) + Times(70, Wait) +
                  std::vector<Act>{[&] { Click(Menu::mnuPause); }, Wait,
                                   [&] {
                                       EXPECT_THAT(show.InfoText(), HasSubstr("  Zoom 1  "));
                                       before = sink.last;
                                       Click(Menu::mnuZoomIn);
                                   },
                                   Wait,
                                   [&] {
                                       EXPECT_NE(sink.last, before);
                                       EXPECT_THAT(show.InfoText(), HasSubstr("  Zoom 1.1  "));
                                   }});
}

// --- Frame limiter -------------------------------------------------------------------------------

TEST_F(Commands, UncheckingTheLimiterAsksNothing) {
    Click(Menu::mnuFPS);
    EXPECT_FALSE(form[Menu::mnuFPS].checked);
    EXPECT_EQ(loop.FpsLimit, 0);
    EXPECT_EQ(form[Menu::mnuFPS].caption, "FPS Limiter (60 fps)");
    EXPECT_THAT(dialogs.Asked(), IsEmpty());
}

struct Answer {
    const char* text;
    Integer limit;
};

class LimiterAnswer : public PlainProgram, public testing::WithParamInterface<Answer> {};

TEST_P(LimiterAnswer, BecomesTheLimit) {
    dialogs.Answer(GetParam().text);
    Click(Menu::mnuFPS);
    Click(Menu::mnuFPS);
    EXPECT_THAT(dialogs.Asked(),
                ElementsAre(DialogQuestion{DialogQuestion::Kind::InputBox, "Max FPS?", ""}));
    EXPECT_EQ(loop.FpsLimit, GetParam().limit);
    EXPECT_EQ(form[Menu::mnuFPS].caption,
              "FPS Limiter (" + std::to_string(GetParam().limit) + " fps)");
    EXPECT_TRUE(form[Menu::mnuFPS].checked);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, LimiterAnswer,
                         testing::Values(Answer{"30", 30}, Answer{"0", 0},
                                         Answer{"", 0},  // cancelled
                                         Answer{"fast", 0}, Answer{"12abc", 12}, Answer{"0.5", 0},
                                         Answer{"2.5", 2}, Answer{"3.5", 4}, Answer{"-5", -5},
                                         Answer{"32767", 32767}, Answer{"-32768", -32768}));

// Addition: from 1 to 1000; anything else, and Cancel, changes nothing.
TEST_F(Commands, ALimitThatMakesNoSenseChangesNothing) {
    const struct {
        const char* answer;
        Integer limit;
    } rows[] = {{"30", 30},  {"1", 1},     {"1000", 1000}, {"2.5", 2},    {"", 0},
                {"0", 0},    {"0.5", 0},   {"-5", 0},      {"1001", 0},   {"99999", 0},
                {"fast", 0}, {"1e300", 0}, {"12abc", 12},  {"32768.5", 0}};
    for (const auto& row : rows) {
        RunningStage stage;
        stage.Load();
        stage.Click(Menu::mnuFPS);
        EXPECT_EQ(stage.loop.FpsLimit, 0);
        stage.dialogs.Answer(row.answer);
        stage.Click(Menu::mnuFPS);
        EXPECT_EQ(stage.loop.FpsLimit, row.limit) << row.answer;
        EXPECT_EQ(stage.form[Menu::mnuFPS].checked, row.limit != 0) << row.answer;
        EXPECT_EQ(stage.form[Menu::mnuFPS].caption,
                  "FPS Limiter (" + std::to_string(row.limit != 0 ? row.limit : 60) + " fps)");
        EXPECT_THAT(stage.MessageTexts(), IsEmpty()) << row.answer;
    }
}

using PlainLimit = PlainProgram;

TEST_F(PlainLimit, BeyondSixteenBitsIsAnError) {
    for (const char* const answer : {"32768", "32767.5", "-32769", "1000000000000"}) {
        form[Menu::mnuFPS].checked = false;
        loop.FpsLimit = 0;
        dialogs.Answer(answer);
        Click(Menu::mnuFPS);
        EXPECT_THAT(MessageTexts().back(), StartsWith("Run-time error: Overflow"));
        EXPECT_EQ(loop.FpsLimit, 0);
        EXPECT_EQ(form[Menu::mnuFPS].caption, "FPS Limiter (60 fps)");
        EXPECT_TRUE(form[Menu::mnuFPS].checked) << "that came before the question";
    }
    EXPECT_EQ(MessageTexts().size(), 4U);
}

TEST_F(Commands, TheLimitHoldsFromTheNextFrameOn) {
    dialogs.Answer("20");
    int before = 0;
    // A frame of the clock passes at each check for messages; 1/20 s is three of them.
    WhileAIsShown(Times(2, Choose(Menu::mnuFPS)) + Times(3, Wait) +
                  Then([&] { before = sink.shown; }) + Times(30, Wait) +
                  Then([&] { EXPECT_EQ(sink.shown, before + 10); }));
}

TEST_F(PlainLimit, BelowNothingDoesNotWait) {
    dialogs.Answer("-5");
    Click(Menu::mnuFPS);
    Click(Menu::mnuFPS);
    WhileAIsShown(Times(9, Wait));
    EXPECT_EQ(loop.TotalFrames, 10);
}

// --- Pause ---------------------------------------------------------------------------------------

TEST_F(Commands, PauseMarksItemAndCaptionAndTakesThemBack) {
    WhileAIsShown({Choose(Menu::mnuPause), [&] {
                       EXPECT_EQ(Caption(), "first <<PAUSED>>");
                       EXPECT_TRUE(form[Menu::mnuPause].checked);
                       EXPECT_EQ(loop.Paused, 255);
                       Click(Menu::mnuPause);
                       EXPECT_EQ(Caption(), "first");
                       EXPECT_FALSE(form[Menu::mnuPause].checked);
                       EXPECT_EQ(loop.Paused, 0);
                   }});
}

TEST_F(Commands, WhilePausedTheLineKeepsItsTextAndCommandsGoOn) {
    Click(Menu::mnuInfo);
    WhileAIsShown(Then(Choose(Menu::mnuPause)) + Times(100, Wait) + Then([&] {
                      EXPECT_EQ(show.InfoText(), "Cam 0,0  1 FPS");
                      EXPECT_EQ(loop.TotalFrames, kRestFrames + 1);
                      Click(Menu::mnuAboutBox);
                  }));
    EXPECT_EQ(MessageTexts().size(), 1U);
    EXPECT_EQ(sink.shown, kRestFrames + 1) << "the picture still stands there";
}

// --- Mouse scrolling -----------------------------------------------------------------------------

class MouseScroll : public NewProgram {
protected:
    MouseScroll() {
        files.Put(kConfiguration, "MugeDir = /mugen/\r\nHCamStep = 4\r\nVCamStep = 6\r\n");
        Load();
    }

    // With the pointer at that point of the window, whose middle is at (160, 120).
    Act ScrollAt(Long x, Long y) {
        return [this, x, y] {
            Click(Menu::mnuMScroll);
            pointer.MoveTo({x, y});
        };
    }
    void ExpectSteps(Single across, Single up) {
        EXPECT_EQ(show.CameraState().HCamStep, across);
        EXPECT_EQ(show.CameraState().VCamStep, up);
    }
};

TEST_F(MouseScroll, SetsTheStepsAndGivesThemBack) {
    WhileAIsShown({[&] {
                       Click(Menu::mnuMScroll);
                       EXPECT_TRUE(form[Menu::mnuMScroll].checked);
                       // 100 pixels right of the window's middle, 80 below it.
                       pointer.MoveTo({260, 200});
                   },
                   [&] {
                       ExpectSteps(10, 2);
                       Click(Menu::mnuMScroll);
                       EXPECT_FALSE(form[Menu::mnuMScroll].checked);
                       ExpectSteps(4, 6);
                   },
                   Wait});
    ExpectSteps(4, 6);  // and the pointer has no hold of them
}

TEST_F(MouseScroll, TheUsersStepsAreSavedAtTheEnd) {
    WhileAIsShown({ScrollAt(260, 200), Wait, Choose(Menu::mnuExit)});
    EXPECT_TRUE(program.Ended());
    EXPECT_THAT(files.Get(kConfiguration), HasSubstr("HCamStep = 4\r\nVCamStep = 6\r\n"));
}

TEST_F(MouseScroll, AStageOpenedWithThePointerInTheMiddleKeepsTheUsersSteps) {
    WhileAIsShown({ScrollAt(160, 120),
                   [&] {
                       ExpectSteps(0, 0);
                       program.lstStages_Click(kItemC);
                   },
                   [&] {
                       Click(Menu::mnuMScroll);
                       ExpectSteps(4, 6);
                   }});
    EXPECT_EQ(Begun(), 2);
}

TEST_F(MouseScroll, GoesOnInTheNextStage) {
    WhileAIsShown({[&] {
                       Click(Menu::mnuMScroll);
                       pointer.MoveTo({260, 120});
                       program.lstStages_Click(kItemC);
                   },
                   [&] {
                       EXPECT_EQ(Caption(), "third");
                       ExpectSteps(10, 0);
                   }});
    EXPECT_EQ(Begun(), 2);
}

TEST_F(Commands, SavedStepsOfNothingComeBackAsOneWhenTheMouseScrollsNoMore) {
    form[Menu::mnuMScroll].enabled = true;
    Click(Menu::mnuMScroll);
    EXPECT_EQ(show.CameraState().HCamStep, 0.0F);
    Click(Menu::mnuMScroll);
    EXPECT_EQ(show.CameraState().HCamStep, 1.0F);
    EXPECT_EQ(show.CameraState().VCamStep, 1.0F);
}

// --- The rest of the menu ------------------------------------------------------------------------

TEST_F(Commands, AboutTellsNameVersionAndTwoLinesMore) {
    Click(Menu::mnuAboutBox);
    ASSERT_EQ(messages.Recorded().size(), 1U);
    const Message& about = messages.Recorded()[0];
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
    Click(Menu::mnuAdditions);
    for (const Menu item :
         {Menu::mnuSmooth, Menu::mnuWholeMultiples, Menu::mnuReset, Menu::mnuFS, Menu::mnuMScroll,
          Menu::mnuDeform, Menu::mnuChar, Menu::mnuChange, Menu::mnuDebugBG}) {
        ASSERT_FALSE(form[item].enabled);
        const bool checked = form[item].checked;
        Click(item);
        EXPECT_EQ(form[item].checked, checked);
    }
}

TEST_F(Commands, AStageEnablesWhatItTakes) {
    WhileAIsShown({});
    for (const Menu item :
         {Menu::mnuFS, Menu::mnuMScroll, Menu::mnuChar, Menu::mnuChange, Menu::mnuDebugBG}) {
        EXPECT_TRUE(form[item].enabled);
    }
    EXPECT_FALSE(form[Menu::mnuReset].enabled);
}

TEST_F(Commands, DeformCanBeChosenPlainlyOnly) {
    WhileAIsShown({});
    EXPECT_FALSE(form[Menu::mnuDeform].enabled);
    Click(Menu::mnuAdditions);
    EXPECT_TRUE(form[Menu::mnuDeform].enabled);
    Click(Menu::mnuDeform);
    EXPECT_TRUE(form[Menu::mnuDeform].checked);
    Click(Menu::mnuDeform);
    EXPECT_FALSE(form[Menu::mnuDeform].checked);
    Click(Menu::mnuAdditions);
    EXPECT_FALSE(form[Menu::mnuDeform].enabled);
}

TEST_F(Commands, TheLoopTakesTheListsKeysAndGivesThemBack) {
    EXPECT_TRUE(form.lstStages.takesKeys);
    WhileAIsShown({[&] { EXPECT_FALSE(form.lstStages.takesKeys); }});
    EXPECT_TRUE(form.lstStages.takesKeys);
}

// --- Keys ----------------------------------------------------------------------------------------

TEST_F(Commands, EscapeAndQAreHarmlessWithAdditions) {
    WhileAIsShown({KeyDown(VirtualKey::Escape), KeyDown(VirtualKey::Q), Wait});
    EXPECT_EQ(sink.shown, kRestFrames + 4);
    EXPECT_NE(direct3D.Device(), nullptr);
}

class PlainKey : public PlainProgram, public testing::WithParamInterface<VirtualKey> {};

TEST_P(PlainKey, ReleasesTheDeviceUnderTheLoop) {
    WhileAIsShown({Wait, KeyDown(GetParam()), Wait, Wait,
                   [&] {
                       EXPECT_EQ(direct3D.Device(), nullptr);
                       EXPECT_EQ(sink.shown, 2);
                       EXPECT_EQ(loop.TotalFrames, 2);
                       program.lstStages_Click(kItemC);
                   },
                   Wait});
    EXPECT_EQ(Caption(), "third");
    EXPECT_EQ(loop.TotalFrames, 2) << "the next stage has a device again";
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_P(PlainKey, WaitsForALoad) {
    WhileAIsShown({Wait}, KeyDown(GetParam()));
    EXPECT_EQ(sink.shown, 2);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_P(PlainKey, WithoutAStageDoesNothing) {
    program.Form_KeyDown(GetParam());
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, PlainKey, testing::Values(VirtualKey::Escape, VirtualKey::Q));

// --- Additions on and off ------------------------------------------------------------------------

TEST_F(Commands, AdditionsAreKeptForTheNextStart) {
    EXPECT_TRUE(form[Menu::mnuAdditions].checked);
    Click(Menu::mnuAdditions);
    EXPECT_FALSE(form[Menu::mnuAdditions].checked);
    EXPECT_FALSE(show.Options().Additions);
    EXPECT_EQ(files.Get("/program/Scenara.ini"), "Additions = False\r\n");
    EXPECT_EQ(Begun(), 0);
    Click(Menu::mnuAdditions);
    EXPECT_EQ(files.Get("/program/Scenara.ini"), "Additions = True\r\n");
}

TEST_F(Commands, ChangingTheAdditionsShowsTheStageAgainWhereTheCameraStands) {
    WhileAIsShown(Then(Press(VirtualKey::Right)) + Times(9, Wait) +
                  std::vector<Act>{[&] {
                                       keyboard.Release(VirtualKey::Right);
                                       ASSERT_EQ(model.CamX, -20.0F)
                                           << "ten frames, two passes each, a step of 1";
                                       Click(Menu::mnuAdditions);
                                   },
                                   [&] {
                                       EXPECT_EQ(Begun(), 2);
                                       EXPECT_EQ(model.CamX, -20.0F);
                                       EXPECT_EQ(show.CameraState().previousX, -20.0F);
                                       EXPECT_EQ(Caption(), "first");
                                       program.lstStages_Click(kItemC);
                                   },
                                   [&] {
                                       EXPECT_EQ(Caption(), "third");
                                       EXPECT_EQ(model.CamX, 0.0F)
                                           << "another stage begins at its own start";
                                   }});
    EXPECT_EQ(Begun(), 3);
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageC, kStageA));
}

TEST_F(Commands, AReloadedStageBeginsAtItsStart) {
    WhileAIsShown({Press(VirtualKey::Right), Wait,
                   [&] {
                       keyboard.Release(VirtualKey::Right);
                       EXPECT_EQ(model.CamX, -4.0F);
                       Click(Menu::mnuReload);
                   },
                   [&] { EXPECT_EQ(model.CamX, 0.0F); }});
    EXPECT_EQ(Begun(), 2);
}

// --- The canvas on the screen --------------------------------------------------------------------

TEST_F(Commands, TheCanvasIsShownAtAnySizeUnlessTheUserWantsItOtherwise) {
    const auto expect = [this](ShownSizes sizes, Scaling scaling) {
        EXPECT_EQ(form.presentation, (Presentation{sizes, scaling}));
        EXPECT_EQ(show.Options().Smooth, form[Menu::mnuSmooth].checked);
    };
    WhileAIsShown({[&] {
        expect(ShownSizes::Any, Scaling::Average);
        Click(Menu::mnuPause);
        Click(Menu::mnuSmooth);
        expect(ShownSizes::Any, Scaling::Smooth);
        Click(Menu::mnuWholeMultiples);
        expect(ShownSizes::WholeMultiples, Scaling::Smooth);
        Click(Menu::mnuSmooth);
        expect(ShownSizes::WholeMultiples, Scaling::Average);
        Click(Menu::mnuPause);
    }});
    Click(Menu::mnuWholeMultiples);
    expect(ShownSizes::Any, Scaling::Average);
}

TEST_F(Commands, PlainTheCanvasIsShownAtWholeMultiples) {
    Click(Menu::mnuSmooth);
    Click(Menu::mnuAdditions);
    EXPECT_EQ(form.presentation, Presentation());
    EXPECT_TRUE(form[Menu::mnuSmooth].checked) << "for when they are on again";
    Click(Menu::mnuAdditions);
    EXPECT_EQ(form.presentation, (Presentation{ShownSizes::Any, Scaling::Smooth}));
}

TEST_F(Commands, HowTheCanvasIsShownIsKeptForTheNextStart) {
    Click(Menu::mnuSmooth);
    EXPECT_EQ(files.Get("/program/Scenara.ini"), "Smooth = True\r\n");
    Click(Menu::mnuWholeMultiples);
    EXPECT_EQ(files.Get("/program/Scenara.ini"), "Smooth = True\r\nWholeMultiplesOnly = True\r\n");
    EXPECT_EQ(Begun(), 0);
}

TEST_F(Commands, AnAdditionsSettingThatCannotBeSavedIsSaidAndHolds) {
    files.FillDisk();
    WhileAIsShown({Choose(Menu::mnuAdditions), Wait});
    EXPECT_THAT(MessageTexts(), ElementsAre(StartsWith("Run-time error: Disk full")));
    EXPECT_FALSE(show.Options().Additions);
    EXPECT_EQ(Begun(), 2);
}

}  // namespace
}  // namespace scenara::test
