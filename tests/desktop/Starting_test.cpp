// SPDX-License-Identifier: MIT
//
// How the real program is started, and started again while it runs: the command line, what is
// handed over, and the question for the MUGEN folder.
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Version.h"
#include "desktop/ActivationToken.h"
#include "desktop/DesktopProgram.h"
#include "desktop/StartupMessages.h"

namespace scenara::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace fs = std::filesystem;

constexpr int kBarMiddle = 10;
constexpr int kNext = 250;

class Starting : public DesktopProgram {
protected:
    using DesktopProgram::DesktopProgram;

    // Another MUGEN folder with one stage, "more".
    void SetUp() override {
        DesktopProgram::SetUp();
        fs::create_directories(Folder() / "other/STAGES");
        fs::copy_file(StagePath("dot"), Folder() / "other/STAGES/more.def");
        fs::copy_file(Folder() / "mugen/stages/bar.sff", Folder() / "other/STAGES/bar.sff");
    }

    // A start with these words; what it prints is in output_ then.
    std::optional<int> StatusOf(const std::vector<std::string>& words,
                                const std::vector<std::string>& environment) {
        std::vector<std::string> command{display_.Folder() + "bin/scenara"};
        command.insert(command.end(), words.begin(), words.end());
        const std::string printed = display_.Folder() + "second.txt";
        Child second(command, environment, printed);
        std::optional<int> status;
        const bool ended = Eventually([&] {
            if (program_) {
                program_->TakePriorityBack();
            }
            status = second.StatusNow();
            return status.has_value();
        });
        std::ifstream file(printed, std::ios::binary);
        output_.assign(std::istreambuf_iterator<char>(file), {});
        return ended ? status : std::nullopt;
    }
    std::optional<int> StatusOf(const std::vector<std::string>& words) {
        return StatusOf(words, ProgramEnvironment());
    }

    void AskForAnotherFolder() {
        Key("alt+x");
        Key("l");
        ExpectWindow("^Point me to your MUGEN Directory please");
    }
    void AnswerWith(const std::string& folder) {
        Key("ctrl+a");
        Type(folder);
        Key("Return");
    }
    void ExpectSaved(const std::string& line) {
        EXPECT_TRUE(Eventually([&] { return Settings().find(line) != std::string::npos; }))
            << Settings();
    }
    // Another program's window comes up and has the focus.
    void CoverByAnother() {
        another_.emplace(
            std::vector<std::string>{"xmessage", "-geometry", "600x600+200+60", "other"},
            display_.Environment(), display_.Folder() + "another.txt");
        ASSERT_TRUE(Eventually([&] {
            const std::string other = Window("^xmessage$");
            return !other.empty() && display_.Do("getactivewindow") == other;
        }));
    }
    void ExpectInFront() {
        EXPECT_TRUE(Eventually([&] { return display_.Do("getactivewindow") == MainWindow(); }))
            << display_.AllWindows();
    }

    std::string output_;
    std::optional<Child> another_;
};

// --- the command line ---

TEST_F(Starting, TheVersionAndTheHelpNeedNoDisplay) {
    const std::vector<std::string> nowhere = {"DISPLAY=", "WAYLAND_DISPLAY=", "QT_QPA_PLATFORM="};
    EXPECT_EQ(StatusOf({"--version"}, nowhere), 0);
    EXPECT_EQ(output_, VersionLine());
    EXPECT_EQ(StatusOf({"a.def", "--help"}, nowhere), 0);
    EXPECT_THAT(output_, StartsWith("Usage: scenara"));
    EXPECT_EQ(StatusOf({"a.def"}, nowhere), 1);
    EXPECT_EQ(output_, "scenara: there is no display to show a window on\n");
}

TEST_F(Starting, AnUnknownOptionIsWrongUse) {
    const auto expectSaid = [&](const std::vector<std::string>& words,
                                const std::vector<std::string>& environment) {
        EXPECT_EQ(StatusOf(words, environment), 2);
        EXPECT_THAT(output_,
                    AllOf(HasSubstr("scenara: there is no option --bogus\n"),
                          HasSubstr("Usage: scenara"), Not(HasSubstr("no display to show"))));
    };
    const std::vector<std::string> nowhere = {"DISPLAY=", "WAYLAND_DISPLAY=", "QT_QPA_PLATFORM="};
    for (const auto& environment : {ProgramEnvironment(), nowhere}) {
        expectSaid({"--bogus"}, environment);
        expectSaid({"-reverse", "a.def", "--bogus"}, environment);
    }
    expectSaid({"-display", ":gone", "--bogus"}, nowhere);
    EXPECT_EQ(StatusOf({"-display", ":gone", "-title", "--bogus"}, nowhere), 1);
    EXPECT_EQ(output_, "scenara: there is no display to show a window on\n");
}

TEST_F(Starting, TheToolkitTakesItsOwnOptions) {
    WriteSettings();
    program_.emplace(std::vector<std::string>{display_.Folder() + "bin/scenara", "-platform", "xcb",
                                              StagePath("cup")},
                     ProgramEnvironment(), display_.Folder() + "program.txt");
    ExpectTitle("cup");
}

// One that shows its windows nowhere needs no display; and ends as any does.
TEST_F(Starting, TheToolkitsPlatformThatIsAskedForNeedsNoDisplay) {
    WriteSettings();
    environment_ = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    program_.emplace(std::vector<std::string>{display_.Folder() + "bin/scenara", "-platform",
                                              "offscreen", StagePath("cup")},
                     ProgramEnvironment(), display_.Folder() + "program.txt");
    ExpectSaved("RecentFile = " + StagePath("cup") + "\r\n");
    program_->Send(SIGTERM);
    EXPECT_EQ(WaitForEnd(), 0) << display_.AllWindows();
}

TEST_F(Starting, AMugenFolderIsTakenForGoodWithoutAQuestion) {
    Start({}, fs::relative(Folder() / "mugen/stages").string());
    ExpectWindow("^Scenara 1.0");
    ClickAt(kNext, kBarMiddle);
    ExpectTitle("bar");
    ExpectSaved("MugeDir = " + display_.Folder() + "mugen/\r\n");
}

TEST_F(Starting, NamesOfAnyBytesAreOpened) {
    WriteSettings();
    const std::string odd = display_.Folder() + "mugen/stages/-\xFF \n'.def";
    fs::copy_file(StagePath("cup"), odd);
    Start({}, odd);
    ExpectTitle("cup");
    fs::copy_file(StagePath("dot"), odd, fs::copy_options::overwrite_existing);
    fs::current_path(Folder() / "mugen/stages");
    EXPECT_EQ(StatusOf({"--", "-\xFF \n'.def"}), 0);
    fs::current_path("/");
    ExpectTitle("dot");
}

// --- started again ---

TEST_F(Starting, ALaterStartHandsItsFileOver) {
    StartWithBar();
    ExpectNewest("bar");
    EXPECT_EQ(StatusOf({fs::relative(StagePath("cup")).string()}), 0) << output_;
    EXPECT_THAT(output_, Not(HasSubstr("scenara:")));
    ExpectTitle("cup");
    ExpectNewest("cup");
    EXPECT_EQ(StatusOf({StagePath("dot"), StagePath("bar")}), 0);
    ExpectTitle("dot");
    ExpectSaved("RecentFile = " + StagePath("dot") + "\r\nRecentFile = " + StagePath("bar") +
                "\r\nRecentFile = " + StagePath("cup") + "\r\n");
}

TEST_F(Starting, ALaterStartHandsItsFolderOver) {
    StartWithBar();
    EXPECT_EQ(StatusOf({display_.Folder() + "other"}), 0);
    ExpectSaved("MugeDir = " + display_.Folder() + "other/\r\n");
    EXPECT_EQ(Title(), "bar") << "it goes on";
    ClickAt(kNext, kBarMiddle);
    ExpectTitle("dot");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 8; }));
}

TEST_F(Starting, TheWindowComesToTheFront) {
    StartWithBar();
    CoverByAnother();
    EXPECT_EQ(StatusOf({StagePath("cup")}), 0);
    ExpectTitle("cup");
    ExpectInFront();
}

TEST_F(Starting, AWindowThatIsAnIconComesBack) {
    StartWithBar();
    const std::string window = MainWindow();
    display_.Do("windowminimize --sync " + window);
    EXPECT_EQ(StatusOf({StagePath("cup")}), 0);
    ExpectTitle("cup");
    ExpectInFront();
}

TEST_F(Starting, ALaterStartWithoutAFileOnlyBringsTheWindowToTheFront) {
    StartWithBar();
    display_.Do("windowminimize --sync " + MainWindow());
    EXPECT_EQ(StatusOf({}), 0) << output_;
    ExpectInFront();
    EXPECT_EQ(Title(), "bar");
}

// Who has started it gives a name to the start, and shows that it goes on until that name ends.
TEST_F(Starting, ALaterStartWithANameEndsItAndTheWindowComesToTheFront) {
    StartWithBar();
    CoverByAnother();
    StartupMessages messages(display_.Name());
    std::vector<std::string> environment = ProgramEnvironment();
    environment.emplace_back("DESKTOP_STARTUP_ID=files/\"a\\b\"/4711-0-host_TIME1");
    EXPECT_EQ(StatusOf({StagePath("cup")}, environment), 0);
    EXPECT_THAT(messages.Heard(),
                ElementsAre("remove: ID=\"files/\\\"a\\\\b\\\"/4711-0-host_TIME1\""));
    ExpectTitle("cup");
    ExpectInFront();
    EXPECT_EQ(StatusOf({StagePath("dot")}), 0);
    EXPECT_THAT(messages.Heard(), SizeIs(1)) << "without a name";
}

TEST_F(Starting, TheWindowTellsWhenTheUserAskedForALaterStart) {
    StartWithBar();
    const std::string window = MainWindow();
    const auto userTime = [&] {
        const std::string said = display_.Property("-id " + window, "_NET_WM_USER_TIME");
        const std::size_t at = said.find("= ");
        return at == std::string::npos ? 0UL : std::stoul(said.substr(at + 2));
    };
    const auto startNamed = [&](const std::string& name) {
        std::vector<std::string> environment = ProgramEnvironment();
        environment.push_back("DESKTOP_STARTUP_ID=" + name);
        EXPECT_EQ(StatusOf({}, environment), 0);
    };
    const unsigned long before = userTime();
    startNamed("files/4711-0-host");
    ASSERT_TRUE(Eventually([&] { return userTime() > before; })) << "that of the start itself";
    const unsigned long asked = userTime() - 1;
    startNamed("files/4711-0-host_TIME" + std::to_string(asked));
    EXPECT_TRUE(Eventually([&] { return userTime() == asked; })) << userTime();
    unsigned long last = asked;
    const std::string tooLate = "_TIME" + std::to_string((asked + 1000000000) % 4294967296);
    for (const std::string& end :
         {std::string("_TIME0"), std::string("_TIME"), std::string("_TIMEx"), std::string("_TIME1"),
          std::string("_TIME4294967296"), tooLate}) {
        startNamed("files/4711-0-host" + end);
        EXPECT_TRUE(Eventually([&] { return userTime() > last && userTime() - last < 900000000; }))
            << end;
        last = userTime();
    }
}

// The manager does not go to another workspace for it.
TEST_F(Starting, OnAnotherWorkspaceTheWindowAsksForAttention) {
    display_.Do("set_num_desktops 2");
    StartWithBar();
    const std::string window = MainWindow();
    display_.Do("set_desktop 1");
    CoverByAnother();
    EXPECT_EQ(StatusOf({StagePath("cup")}), 0);
    EXPECT_TRUE(Eventually([&] {
        return display_.Property("-id " + window, "_NET_WM_STATE").find("DEMANDS_ATTENTION") !=
               std::string::npos;
    })) << display_.Property("-id " + window, "_NET_WM_STATE");
    EXPECT_EQ(display_.Do("get_desktop"), "1");
    display_.Do("windowactivate " + window);
    ExpectTitle("cup");
    EXPECT_TRUE(Eventually([&] {
        return display_.Property("-id " + window, "_NET_WM_STATE").find("DEMANDS_ATTENTION") ==
               std::string::npos;
    })) << "once it has been seen";
}

TEST_F(Starting, PlainAdditionsOffHandOverToo) {
    std::ofstream(Folder() / "bin/Scenara.ini", std::ios::binary) << "Additions = False\r\n";
    StartWithBar();
    EXPECT_EQ(StatusOf({StagePath("cup")}), 0);
    ExpectTitle("cup");
    EXPECT_EQ(StatusOf({display_.Folder() + "other/STAGES", StagePath("dot")}), 0);
    ExpectTitle("dot");
    EXPECT_TRUE(Box().empty()) << display_.AllWindows();
    program_->Send(SIGTERM);
    EXPECT_EQ(WaitForEnd(), 0) << display_.AllWindows();
    EXPECT_THAT(Settings(), HasSubstr("MugeDir = " + display_.Folder() + "other/\r\n"));
}

TEST_F(Starting, ASocketThatACrashLeftIsNoInstance) {
    StartWithBar();
    program_->Send(SIGKILL);
    EXPECT_EQ(WaitForEnd(), -1);
    EXPECT_TRUE(Eventually([&] { return MainWindow().empty(); }));
    Start({}, StagePath("cup"));
    ExpectTitle("cup");
    EXPECT_EQ(StatusOf({StagePath("dot")}), 0);
    ExpectTitle("dot");
}

TEST_F(Starting, WhatIsHandedOverWhileABoxIsOpenWaitsForIt) {
    StartWithBar();
    ExpectNewest("bar");
    Key("alt+a");
    Key("a");
    ExpectBox();
    EXPECT_EQ(StatusOf({StagePath("dot")}), 0);
    EXPECT_EQ(StatusOf({StagePath("cup")}), 0);
    EXPECT_FALSE(Box().empty());
    EXPECT_EQ(Title(), "bar");
    display_.Do("windowactivate --sync " + Box());
    Key("Return");
    ExpectTitle("cup");
    ExpectSaved("RecentFile = " + StagePath("cup") + "\r\nRecentFile = " + StagePath("dot") +
                "\r\nRecentFile = " + StagePath("bar") + "\r\n");
}

TEST_F(Starting, WhatIsHandedOverWhileTheFolderIsAskedForWaitsForIt) {
    Start();
    ExpectBox();
    Key("Return");
    ExpectWindow("^Point me");
    EXPECT_EQ(StatusOf({StagePath("cup")}), 0);
    ExpectWindow("^Point me");
    AnswerWith(display_.Folder() + "mugen");
    ExpectTitle("cup");
}

TEST_F(Starting, AProgramThatIsStoppedDoesNotAnswer) {
    StartWithBar();
    program_->Send(SIGSTOP);
    EXPECT_EQ(StatusOf({StagePath("cup")}), 1);
    EXPECT_THAT(output_, HasSubstr("scenara: the program that runs already does not answer\n"));
    program_->Send(SIGCONT);
    EXPECT_EQ(StatusOf({StagePath("dot")}), 0);
    ExpectTitle("dot");
    ExpectSaved("RecentFile = " + StagePath("dot") + "\r\nRecentFile = " + StagePath("bar") +
                "\r\n");
}

// What it took it would not show any more.
TEST_F(Starting, AProgramThatIsEndingTakesNothing) {
    StartWithBar();
    fs::remove(Folder() / "bin/QX.CFG");
    fs::create_directories(Folder() / "bin/QX.CFG/in the way");
    Key("alt+F4");
    ExpectBox();  // the settings cannot be saved
    EXPECT_EQ(StatusOf({StagePath("cup")}), 1);
    EXPECT_THAT(output_, HasSubstr("scenara: the program that runs already does not answer\n"));
    Key("Return");
    EXPECT_EQ(WaitForEnd(), 0);
}

// --- the MUGEN folder ---

TEST_F(Starting, TheQuestionForTheFolderCanBeLeft) {
    Start();
    ExpectBox();
    Key("Return");
    ExpectWindow("^Point me");
    Key("Escape");
    ExpectWindow("^Scenara 1.0");
    ExpectNoBox();
    ExpectSaved("MugeDir = \r\n");
    AskForAnotherFolder();
    AnswerWith(display_.Folder() + "mugen/stages");
    ExpectBox();
    Key("Return");  // the one that is meant
    ExpectNoBox();
    ExpectWindow("^Scenara 1.0");
    ExpectSaved("MugeDir = " + display_.Folder() + "mugen/\r\n");
    ClickAt(kNext, kBarMiddle);
    ExpectTitle("bar");
}

TEST_F(Starting, AnotherFolderIsChosenWhileAStageIsShown) {
    StartWithBar();
    AskForAnotherFolder();
    AnswerWith(display_.Folder() + "other");
    ExpectSaved("MugeDir = " + display_.Folder() + "other/\r\n");
    EXPECT_EQ(Title(), "bar");
    ClickListItem(0);
    ExpectTitle("dot");
}

TEST_F(Starting, ASavedFolderThatIsGoneIsNotAskedFor) {
    std::ofstream(Folder() / "bin/QX.CFG", std::ios::binary) << "MugeDir = /gone/mugen/\r\n";
    Start();
    ExpectWindow("^Scenara 1.0");
    ExpectNoBox();
    EXPECT_TRUE(Window("^Point me").empty());
}

// A manager that tiles its windows shows all of them, and still one alone has the focus.
class StartingTiled : public Starting {
protected:
    StartingTiled() : Starting(Manager::I3) {}
};

TEST_F(StartingTiled, TheWindowComesToTheFront) {
    WriteSettings();
    Start({}, StagePath("bar"));
    ExpectTitle("bar");
    CoverByAnother();
    EXPECT_EQ(StatusOf({StagePath("cup")}), 0);
    ExpectTitle("cup");
    ExpectInFront();
}

// This manager refuses the focus to every program that asks for it.
TEST_F(StartingTiled, TheWindowThatMayNotComeAsksForAttention) {
    std::ofstream(Folder() / "manager.conf", std::ios::app) << "focus_on_window_activation none\n";
    display_.Tell("reload");
    const auto isUrgent = [&] {
        return display_.Tell("-t get_workspaces").find("\"urgent\":true") != std::string::npos;
    };
    WriteSettings();
    Start({}, StagePath("bar"));
    ExpectTitle("bar");
    display_.Tell("workspace 2");
    CoverByAnother();
    EXPECT_FALSE(isUrgent());
    EXPECT_EQ(StatusOf({StagePath("cup")}), 0);
    EXPECT_TRUE(Eventually(isUrgent)) << display_.Tell("-t get_workspaces");
    EXPECT_EQ(display_.Do("getactivewindow"), Window("^xmessage$"));
    display_.Tell("workspace 1");
    ExpectTitle("cup");
    ExpectInFront();
    EXPECT_TRUE(Eventually([&] { return !isUrgent(); })) << "once it has been seen";
}

// Unless it is told otherwise, this manager gives the focus to no window of a hidden workspace.
TEST_F(StartingTiled, OnAnotherWorkspaceTheWindowStaysThereAndAsksForAttention) {
    WriteSettings();
    Start({}, StagePath("bar"));
    ExpectTitle("bar");
    display_.Tell("workspace 2");
    EXPECT_EQ(StatusOf({StagePath("cup")}), 0);
    EXPECT_TRUE(Eventually([&] {
        return display_.Tell("-t get_workspaces").find("\"urgent\":true") != std::string::npos;
    })) << display_.Tell("-t get_workspaces");
    EXPECT_EQ(display_.Workspace(), "2");
    display_.Tell("workspace 1");
    ExpectTitle("cup");
    ExpectInFront();
}

// A compositor gives the focus to who shows the token that it has given away for that.
class StartingOnWayland : public Starting {
protected:
    StartingOnWayland() : Starting(Manager::Sway) {}

    std::optional<int> StatusWithToken(const std::string& path, const std::string& token) {
        std::vector<std::string> environment = ProgramEnvironment();
        environment.push_back("XDG_ACTIVATION_TOKEN=" + token);
        return StatusOf({path}, environment);
    }
};

TEST_F(StartingOnWayland, TheWindowComesToTheFrontWithTheTokenOfALaterStart) {
    display_.Tell("focus_on_window_activation focus");
    WriteSettings();
    Start({}, StagePath("bar"));
    ExpectTitle("bar");
    const std::string first = display_.Workspace();
    display_.Tell("workspace other");
    ASSERT_EQ(display_.Workspace(), "other");
    EXPECT_EQ(StatusWithToken(StagePath("cup"), "nobody's"), 0);
    ExpectTitle("cup");
    EXPECT_EQ(display_.Workspace(), "other") << "that token is none of the compositor's";
    const std::string token = ActivationToken(display_.Folder() + "wayland");
    ASSERT_NE(token, "");
    EXPECT_EQ(StatusWithToken(StagePath("dot"), token), 0);
    EXPECT_TRUE(Eventually([&] { return display_.Workspace() == first; })) << display_.Workspace();
    ExpectTitle("dot");
}

}  // namespace
}  // namespace scenara::test
