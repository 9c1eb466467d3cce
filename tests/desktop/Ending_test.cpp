// SPDX-License-Identifier: MIT
//
// Every way in which the system ends the real program, and what is left of the settings then.
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/SessionManager.h"
#include "platform/x11/X11DisplayModes.h"

namespace scenara::test {
namespace {

using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

constexpr int kBarMiddle = 10;
constexpr int kStageList = 175;
constexpr std::uint32_t kPaper = 0xFFFFFF;  // of the list

class Ending : public DesktopProgram {
public:
    [[nodiscard]] bool HasSettings() const { return fs::exists(Folder() / "bin/QX.CFG"); }

    // Nothing is saved before the end then.
    void SetPlain() const {
        std::ofstream(Folder() / "bin/Scenara.ini", std::ios::binary) << "Additions = False\r\n";
    }
    void StartWithList() {
        WriteSettings("StageList = 255\r\n");
        Start();
        ExpectMainWindow(480);
    }
    // A change that can be seen.
    void HideTheList() {
        ClickAt(kStageList, kBarMiddle);
        ASSERT_TRUE(Eventually([&] { return Count(kPaper) < 1000; }));
    }
    void ExpectSaved(const std::string& line) {
        EXPECT_TRUE(Eventually([&] { return Settings().find(line) != std::string::npos; }))
            << Settings();
    }
    void ExpectWholeSettings() {
        EXPECT_THAT(Settings(), HasSubstr("CharName = \r\nStageList = 0\r\n"));
        EXPECT_FALSE(fs::exists(Folder() / "bin/QX.CFG.new"));
    }
    // The fifth of the Options.
    void ChooseLimiter() {
        Key("alt+o");
        for (int i = 0; i < 4; ++i) {
            Key("Down");
        }
        Key("Return");
    }
    // The menu covers a part of the picture.
    void OpenAMenu() {
        const int before = Count(kGround);
        Key("alt+o");
        ASSERT_TRUE(Eventually([&] { return Count(kGround) < before - 1000; }));
    }
};

// What is open when it comes.
struct State {
    const char* name;
    int signal;
    std::function<void(Ending&)> bringAbout;

    friend std::ostream& operator<<(std::ostream& out, const State& state) {
        return out << state.name;
    }
};

class Signal : public Ending, public testing::WithParamInterface<State> {};

TEST_P(Signal, EndsTheProgramAsClosingItDoes) {
    SetPlain();
    StartWithList();
    GetParam().bringAbout(*this);
    EXPECT_THAT(Settings(), Not(HasSubstr("StageList = 0")));
    program_->Send(GetParam().signal);
    EXPECT_EQ(WaitForEnd(), 0);
    ExpectWholeSettings();
}

void ShowBar(Ending& test) {
    test.ClickListItem(0);
    test.ExpectTitle("bar");
    ASSERT_TRUE(test.Eventually([&] { return test.BarWidth() == 8; }));
    test.HideTheList();
}

const State kStates[] = {
    {"NoStage", SIGTERM, [](Ending& test) { test.HideTheList(); }},
    {"AStageRuns", SIGTERM, ShowBar},
    {"Paused", SIGHUP,
     [](Ending& test) {
         ShowBar(test);
         test.Key("alt+p");
         test.ExpectTitle("bar <<PAUSED>>");
     }},
    {"AMenuIsOpen", SIGINT,
     [](Ending& test) {
         ShowBar(test);
         test.OpenAMenu();
     }},
    {"ABoxIsOpen", SIGINT,
     [](Ending& test) {
         test.HideTheList();
         test.Key("alt+a");
         test.Key("a");
         test.ExpectBox();
     }},
    {"AQuestionIsOpen", SIGHUP,
     [](Ending& test) {
         ShowBar(test);
         test.ChooseLimiter();  // off
         test.ChooseLimiter();
         test.ExpectBox();
     }},
    {"ABoxOfTheDialogsIsOpen", SIGTERM,
     [](Ending& test) {
         ShowBar(test);
         test.Key("alt+s");
         test.Key("o");
         test.ExpectWindow("^Choose your stage!");
         test.Type("no such file");
         test.Key("Return");
         ASSERT_TRUE(test.Eventually([&] {
             const std::string all = test.Windows("^Choose your stage!");
             return std::count(all.begin(), all.end(), '\n') == 2;
         }));
     }},
    {"FullScreen", SIGTERM,
     [](Ending& test) {
         ShowBar(test);
         test.Key("alt+o");
         test.Key("f");
         ASSERT_TRUE(test.Eventually([&] { return test.PictureSize() == SeenSize{960, 720}; }));
     }},
};

INSTANTIATE_TEST_SUITE_P(Ending, Signal, testing::ValuesIn(kStates),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Ending, ASignalGivesTheScreenItsModeBack) {
    const auto mode = [&] {
        X11DisplayModes modes([] { return ScreenRectangle{100, 100, 320, 240}; }, display_.Name());
        return modes.Current().width;
    };
    const std::string xrandr = "xrandr --display " + display_.Name() + " ";
    ASSERT_EQ(std::system((xrandr + "--newmode full 5.04 320 328 360 400 240 241 244 210").c_str()),
              0);
    ASSERT_EQ(std::system((xrandr + "--addmode screen full").c_str()), 0);
    SetPlain();
    StartWithList();
    ShowBar(*this);
    Key("alt+o");
    Key("f");
    ASSERT_TRUE(Eventually([&] { return mode() == 320; }));
    program_->Send(SIGINT);
    EXPECT_EQ(WaitForEnd(), 0) << display_.AllWindows();
    EXPECT_TRUE(Eventually([&] { return mode() == 1024; })) << mode();
    ExpectWholeSettings();
}

// --- the desktop's session ---

class Session : public Ending {
protected:
    void StartInSession() {
        WriteSettings("StageList = 255\r\n");
        Start(session.Address());
        ExpectMainWindow(480);
        ASSERT_TRUE(Eventually([&] { return session.HasProgram(); }));
    }

    SessionManager session;
};

TEST_F(Session, TheSettingsAreSavedWhenTheProgramSaysSo) {
    StartInSession();
    HideTheList();
    session.AskToSave();
    ASSERT_TRUE(Eventually([&] { return session.HasSaved(); }));
    ExpectWholeSettings();
    EXPECT_FALSE(MainWindow().empty()) << "the session may go on";
}

TEST_F(Session, ItsEndEndsTheProgramWhateverIsOpen) {
    SetPlain();
    StartInSession();
    HideTheList();
    Key("alt+s");
    Key("o");
    ExpectWindow("^Choose your stage!");
    session.AskToSave();
    ASSERT_TRUE(Eventually([&] { return session.HasSaved(); }));
    EXPECT_THAT(Settings(), Not(HasSubstr("StageList = 0"))) << "at the end alone";
    session.End();
    EXPECT_EQ(WaitForEnd(), 0);
    ExpectWholeSettings();
}

TEST_F(Session, ItsEndAtTheFirstQuestionWritesNothing) {
    Start(session.Address());
    ExpectBox();
    Key("Return");
    ExpectWindow("^Point me to your MUGEN Directory please");
    ASSERT_TRUE(Eventually([&] { return session.HasProgram(); }));
    session.AskToSave();
    ASSERT_TRUE(Eventually([&] { return session.HasSaved(); }));
    session.End();
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_FALSE(HasSettings());
}

// --- the first start ---

TEST_F(Ending, ASignalAtTheFirstBoxWritesNothing) {
    Start();
    ExpectBox();
    program_->Send(SIGTERM);
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_FALSE(HasSettings());
}

TEST_F(Ending, ASignalAtTheFirstQuestionWritesNothing) {
    Start();
    ExpectBox();
    Key("Return");
    ExpectWindow("^Point me to your MUGEN Directory please");
    program_->Send(SIGINT);
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_FALSE(HasSettings());
}

TEST_F(Ending, TheFolderThatWasChosenOutlivesTheProgram) {
    Start();
    ExpectBox();
    Key("Return");
    ExpectWindow("^Point me to your MUGEN Directory please");
    Key("ctrl+a");
    Type(display_.Folder() + "mugen");
    Key("Return");
    ExpectSaved("MugeDir = " + display_.Folder() + "mugen/\r\n");
    program_->Send(SIGKILL);
    EXPECT_EQ(WaitForEnd(), -1);
    EXPECT_THAT(Settings(), HasSubstr("MugeDir = " + display_.Folder() + "mugen/\r\n"));
}

TEST_F(Ending, ASecondProgramLeavesTheSettingsAlone) {
    StartWithList();
    HideTheList();
    ExpectSaved("StageList = 0\r\n");
    const std::string before = Settings();
    Child second({display_.Folder() + "bin/scenara"}, ProgramEnvironment(),
                 display_.Folder() + "second.txt");
    EXPECT_EQ(second.ExitStatus(), 0);
    EXPECT_EQ(Settings(), before);
    program_->Send(SIGTERM);
    EXPECT_EQ(WaitForEnd(), 0);
}

// --- with additions: what is saved before the end ---

TEST_F(Ending, AChangeIsSavedWhileTheProgramSleeps) {
    StartWithList();
    HideTheList();
    ExpectSaved("StageList = 0\r\n");
    EXPECT_FALSE(MainWindow().empty());
}

TEST_F(Ending, AChangeIsSavedWhileADialogIsOpen) {
    StartWithList();
    HideTheList();
    Key("alt+s");
    Key("o");
    ExpectWindow("^Choose your stage!");
    ExpectSaved("StageList = 0\r\n");
    EXPECT_FALSE(Window("^Choose your stage!").empty());
}

// What is going on when the display is lost.
struct Scene {
    const char* name;
    std::function<void(Ending&)> bringAbout;

    friend std::ostream& operator<<(std::ostream& out, const Scene& scene) {
        return out << scene.name;
    }
};

class LostDisplay : public Ending, public testing::WithParamInterface<Scene> {};

TEST_P(LostDisplay, LeavesTheSettingsOfASecondBefore) {
    StartWithList();
    HideTheList();
    ExpectSaved("StageList = 0\r\n");
    GetParam().bringAbout(*this);
    display_.Kill();
    EXPECT_TRUE(WaitForEnd().has_value());
    ExpectWholeSettings();
}

const Scene kScenes[] = {
    {"NoStage", [](Ending&) {}},
    {"AStageRuns",
     [](Ending& test) {
         test.ClickAt(250, kBarMiddle);  // the next one
         test.ExpectTitle("bar");
         ASSERT_TRUE(test.Eventually([&] { return test.BarWidth() == 8; }));
     }},
    {"ADialogIsOpen",
     [](Ending& test) {
         test.Key("alt+s");
         test.Key("o");
         test.ExpectWindow("^Choose your stage!");
     }},
};

INSTANTIATE_TEST_SUITE_P(Ending, LostDisplay, testing::ValuesIn(kScenes),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace scenara::test
