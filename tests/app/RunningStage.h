// SPDX-License-Identifier: MIT
//
// The whole program on the headless machine: stages in memory, a user who acts whenever the program
// lets messages through, and a clock that goes on by one frame each time.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "app/frmStage.h"
#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessDialogs.h"
#include "platform/headless/HeadlessDisplayModes.h"
#include "platform/headless/HeadlessFullScreen.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessMedia.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessPointer.h"
#include "platform/headless/HeadlessProcess.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/soft/SoftDirect3D.h"
#include "support/FuzzChecks.h"
#include "support/MemoryFiles.h"
#include "support/StageFixture.h"

namespace scenara::test {

inline constexpr const char* kStageA = "/mugen/stages/a.def";
inline constexpr const char* kStageB = "/mugen/stages/b.def";
inline constexpr const char* kStageC = "/mugen/stages/c.def";
inline constexpr const char* kGone = "/mugen/stages/gone.def";
inline constexpr const char* kConfiguration = "/program/QX.CFG";

// Of the list of stages.
inline constexpr Long kItemA = 0;
inline constexpr Long kItemC = 2;

// Frames until a stage has been shown for a while (frmStage::HasRested), at the clock's pace.
inline constexpr int kRestFrames = 30;

// Counts what is presented.
class CountingSink : public PictureSink {
public:
    HRESULT Show(const CanvasSize& /*size*/, std::span<const std::uint32_t> pixels) override {
        ++shown;
        last.assign(pixels.begin(), pixels.end());
        return D3D_OK;
    }
    int shown = 0;
    std::vector<std::uint32_t> last;
};

// Folders in which something has changed when the test says so.
class ToldFolders : public FolderWatch {
public:
    bool Watch(const std::vector<std::string>& folders) override {
        const bool isNew = std::ranges::any_of(
            folders, [this](const auto& each) { return std::ranges::count(watched, each) == 0; });
        watched = folders;
        return isNew && tellsOfNew;
    }
    bool TakeChange() override { return std::exchange(changed, false); }
    bool MustBeAsked() const override { return false; }

    std::vector<std::string> watched;
    bool tellsOfNew = false;  // as if all else had been watched already
    bool changed = false;
};

struct RunningStage {
    // `user` acts at each DoEvents, which are counted from 1.
    using User = std::function<void(RunningStage&, int turn)>;

    explicit RunningStage(User itsUser = {}, bool additions = true)
        : user(std::move(itsUser)), options{additions} {
        files.Put(kStageA, kStage);
        files.Put(kStageB, "[Info]\nname = second\n[Camera]\nstartx = 0\n");
        files.Put("/mugen/stages/a.sff", SmallArchiveBytes());
        files.Put(kConfiguration, "MugeDir = /mugen/\r\n");
        window.SetEvents(&program);
        window.SetClock(&clock);
        program.MugeDir = "/mugen/";
        show.Which.CurrentStageFile = kStageA;
    }

    // What the commands do that open a stage.
    void Open(const std::string& path) {
        show.Which.CurrentStageFile = path;
        if (loop.StageRunning != 0) {
            program.QuitRequested = kTrue;
            program.UnloadStuff();
        }
        program.QuitRequested = kFalse;
        program.RunStage();
    }

    // Start-up as a user has it: settings, list of stages. The stage files are a, b and c.
    void Load() {
        if (!options.Additions) {
            files.Put("/program/Scenara.ini", "Additions = False\r\n");
        }
        show.Which.CurrentStageFile.clear();
        files.Put(kStageC, Stage("third"));
        program.Form_Load();
    }

    // A stage as "first" is, under another title: one that loads without a message.
    [[nodiscard]] static std::string Stage(const std::string& title) {
        std::string text = kStage;
        return text.replace(text.find("first"), 5, title);
    }

    void Click(Menu item) { program.Menu_Click(item); }

    // While no loop runs: lets messages through, and with them the size that was asked for.
    void LetSizeCome() { window.DoEvents(); }

    // While no loop runs: until it has been said why the stage cannot be shown.
    void LetRest() {
        while (!program.HasRested() && !window.EndRequested()) {
            clock.Advance();
            static_cast<void>(program.Form_Idle());
        }
    }

    // How often a stage was begun to be shown.
    [[nodiscard]] int Begun() const { return process.Yields(); }

    // A pixel of the last picture that is not black: something was drawn.
    [[nodiscard]] bool ShowsSomething() const {
        return std::any_of(sink.last.begin(), sink.last.end(),
                           [](std::uint32_t pixel) { return (pixel & 0xFFFFFFU) != 0; });
    }

    [[nodiscard]] std::vector<std::string> MessageTexts() const {
        std::vector<std::string> texts;
        for (const Message& message : messages.Recorded()) {
            texts.push_back(message.text);
        }
        return texts;
    }
    [[nodiscard]] std::string Caption() const {
        return window.Captions().empty() ? std::string() : window.Captions().back();
    }

    static constexpr const char* kStage =
        "[Info]\nname = first\n[Camera]\nboundleft = -100\nboundright = 100\n"
        "[BGdef]\nspr = stages/a.sff\n"
        "[BG wall]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ntile = 1,1\n";

    User user;
    ViewOptions options;
    MemoryFiles files;
    HeadlessMessages messages;
    int turn = 0;
    int depth = 0;  // how many DoEvents are on the stack
    int deepest = 0;
    HeadlessWindow window{[this](HeadlessWindow&) {
        ++depth;
        deepest = std::max(deepest, depth);
        clock.Advance();
        if (user) {
            user(*this, ++turn);
        }
        --depth;
    }};
    HeadlessKeyboard keyboard;
    HeadlessClock clock;
    HeadlessPointer pointer;
    HeadlessProcess process;
    CountingSink sink;
    SoftDirect3D direct3D{KeptTextureMemory(), &sink};
    HeadlessDialogs dialogs;
    HeadlessDisplayModes display;
    HeadlessFullScreen fullScreen{window};
    HeadlessMedia media{clock};
    ToldFolders folders;
    Form form;
    frmStage program{{{files, messages, window, keyboard, clock, pointer, direct3D},
                      process,
                      dialogs,
                      display,
                      fullScreen,
                      media,
                      nullptr,
                      &folders},
                     form,
                     options};
    StageShow& show = program.Show();
    LoopState& loop = show.Loop();
    StageModel& model = show.Model();
};

// Ends the loop at this turn.
inline RunningStage::User QuitAt(int last) {
    return [last](RunningStage& stage, int turn) {
        if (turn == last) {
            stage.program.QuitRequested = kTrue;
        }
    };
}

// What the user does at one time, to the stage that it is given or to one that it knows.
class Act {
public:
    Act() = default;
    template <std::invocable<RunningStage&> Deed>
    Act(Deed deed) : deed_(std::move(deed)) {}
    template <std::invocable Deed>
    Act(Deed deed) : deed_([deed = std::move(deed)](RunningStage&) mutable { deed(); }) {}

    explicit operator bool() const { return static_cast<bool>(deed_); }
    void operator()(RunningStage& stage) const { deed_(stage); }

private:
    std::function<void(RunningStage&)> deed_;
};

// One act after another, each when the program lets messages through while no stage loads; behind
// the last one the loop ends. `loading` acts instead while one does, each time. A user who looks at
// stages does nothing before a stage has been shown for a while; one who leafs does not wait.
enum class UserPace : Byte { Looking, Leafing };
inline RunningStage::User InTurn(std::vector<Act> acts, Act loading = {},
                                 UserPace pace = UserPace::Looking) {
    return [acts = std::move(acts), loading = std::move(loading), pace, next = std::size_t{0}](
               RunningStage& stage, int) mutable {
        if (stage.loop.LoadingStage != 0) {
            if (loading) {
                loading(stage);
            }
        } else if (pace == UserPace::Looking && !stage.program.HasRested()) {
            return;
        } else if (next < acts.size()) {
            acts[next++](stage);
        } else {
            stage.program.QuitRequested = kTrue;
        }
    };
}

inline RunningStage::User LeafingInTurn(std::vector<Act> acts, Act loading = {}) {
    return InTurn(std::move(acts), std::move(loading), UserPace::Leafing);
}

// Acts: nothing; this item, key, stage.
inline void Wait(RunningStage& /*stage*/) {}
inline Act Choose(Menu item) {
    return [item](RunningStage& stage) { stage.Click(item); };
}
inline Act KeyDown(VirtualKey key) {
    return [key](RunningStage& stage) { stage.program.Form_KeyDown(key); };
}
inline Act Tap(VirtualKey key) {
    return [key](RunningStage& stage) { stage.keyboard.Tap(key); };
}
inline Act Press(VirtualKey key) {
    return [key](RunningStage& stage) { stage.keyboard.Press(key); };
}
inline Act Release(VirtualKey key) {
    return [key](RunningStage& stage) { stage.keyboard.Release(key); };
}
inline Act Select(Long item) {
    return [item](RunningStage& stage) { stage.program.lstStages_Click(item); };
}
inline Act Recent(Long item) {
    return [item](RunningStage& stage) { stage.program.MnuRecentFiles_Click(item); };
}
inline Act Drop(std::string path) {
    return
        [path = std::move(path)](RunningStage& stage) { stage.program.Form_OLEDragDrop({path}); };
}

// One after another, without a frame between them.
inline Act All(std::vector<Act> acts) {
    return [acts = std::move(acts)](RunningStage& stage) {
        for (const Act& act : acts) {
            act(stage);
        }
    };
}
// The first time only.
inline Act Once(Act act) {
    return [act = std::move(act), did = false](RunningStage& stage) mutable {
        if (!std::exchange(did, true)) {
            act(stage);
        }
    };
}
inline std::vector<Act> Then(const Act& act) {
    return {act};
}
// As often as that.
inline std::vector<Act> Times(std::size_t count, const Act& act) {
    return {count, act};
}
inline std::vector<Act> operator+(std::vector<Act> first, const std::vector<Act>& then) {
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

// A program before its start.
class NewProgram : public testing::Test, protected RunningStage {
protected:
    explicit NewProgram(bool additions = true) : RunningStage({}, additions) {}

    // Shows stage a, lets the user act, and ends the loop.
    void WhileAIsShown(std::vector<Act> acts, Act loading = {}) {
        user = InTurn(std::move(acts), std::move(loading), pace);
        program.lstStages_Click(kItemA);
        LetRest();
    }
    // With nothing done meanwhile.
    void Show(const Act& opened) {
        user = InTurn({});
        opened(*this);
        LetRest();
    }

    UserPace pace = UserPace::Looking;

    void ExpectPlace(Long left, Long top, Long width, Long height) {
        EXPECT_EQ(window.Place().left, left * kUnitsPerPixel);
        EXPECT_EQ(window.Place().top, top * kUnitsPerPixel);
        ExpectSize(width, height);
    }
    void ExpectSize(Long width, Long height) {
        EXPECT_EQ(window.Place().width, width * kUnitsPerPixel);
        EXPECT_EQ(window.Place().height, height * kUnitsPerPixel);
    }
    void ExpectPicture(Long width, Long height) {
        EXPECT_EQ(form.picDraw.width, width);
        EXPECT_EQ(form.picDraw.height, height);
    }
};

class PlainNewProgram : public NewProgram {
protected:
    PlainNewProgram() : NewProgram(false) {
        files.Put("/program/Scenara.ini", "Additions = False\r\n");
    }
};

// And after it: its list has the stages a, b and c, and none is shown.
class Program : public NewProgram {
protected:
    explicit Program(bool additions = true) : NewProgram(additions) { Load(); }
};
class PlainProgram : public Program {
protected:
    PlainProgram() : Program(false) {}
};

}  // namespace scenara::test
