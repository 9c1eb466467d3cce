// SPDX-License-Identifier: MIT
//
// The whole program on the headless machine: stages in memory, a user who acts whenever the program
// lets messages through, and a clock that goes on by one frame each time.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

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

// Counts what is presented.
class CountingSink : public PictureSink {
public:
    HRESULT Show(const View& /*view*/, std::span<const std::uint32_t> pixels) override {
        ++shown;
        last.assign(pixels.begin(), pixels.end());
        return D3D_OK;
    }
    int shown = 0;
    std::vector<std::uint32_t> last;
};

struct RunningStage {
    // `user` acts at each DoEvents, which are counted from 1.
    using User = std::function<void(RunningStage&, int turn)>;

    explicit RunningStage(User itsUser = {}, bool additions = true)
        : user(std::move(itsUser)), options{additions} {
        files.Put("/mugen/stages/a.def", kStage);
        files.Put("/mugen/stages/b.def", "[Info]\nname = second\n[Camera]\nstartx = 0\n");
        files.Put("/mugen/stages/a.sff", SmallArchiveBytes());
        files.Put("/program/QX.CFG", "MugeDir = /mugen/\r\n");
        window.SetEvents(&program);
        program.MugeDir = "/mugen/";
        program.Show().Which.CurrentStageFile = "/mugen/stages/a.def";
    }

    // What the commands do that open a stage.
    void Open(const std::string& path) {
        program.Show().Which.CurrentStageFile = path;
        if (program.Show().Loop().StageRunning != 0) {
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
        program.Show().Which.CurrentStageFile.clear();
        files.Put("/mugen/stages/c.def", Stage("third"));
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
    Form form;
    frmStage program{{files, messages, window, keyboard, clock, pointer, process, direct3D, dialogs,
                      display, fullScreen, media},
                     form,
                     options};
};

// Ends the loop at this turn.
inline RunningStage::User QuitAt(int last) {
    return [last](RunningStage& stage, int turn) {
        if (turn == last) {
            stage.program.QuitRequested = kTrue;
        }
    };
}

using Act = std::function<void(RunningStage&)>;

// One act after another, each when the program lets messages through while no stage loads; behind
// the last one the loop ends. `loading` acts instead while one does, each time.
inline RunningStage::User InTurn(std::vector<Act> acts, Act loading = {}) {
    return [acts = std::move(acts), loading = std::move(loading), next = std::size_t{0}](
               RunningStage& stage, int) mutable {
        if (stage.program.Show().Loop().LoadingStage != 0) {
            if (loading) {
                loading(stage);
            }
        } else if (next < acts.size()) {
            acts[next++](stage);
        } else {
            stage.program.QuitRequested = kTrue;
        }
    };
}

// For InTurn: nothing.
inline void Wait(RunningStage& /*stage*/) {}

}  // namespace scenara::test
