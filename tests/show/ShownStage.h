// SPDX-License-Identifier: MIT
//
// A StageShow on the headless machine, with files in memory, and what it has told.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessPointer.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/soft/SoftDirect3D.h"
#include "show/StageShow.h"
#include "support/MemoryFiles.h"
#include "support/StageFixture.h"

namespace scenara::test {

class CountingKeyboard : public HeadlessKeyboard {
public:
    Integer GetAsyncKeyState(VirtualKey key) override {
        ++asked;
        return HeadlessKeyboard::GetAsyncKeyState(key);
    }
    int asked = 0;
};

struct ShownStage : ShowEvents {
    void StateChanged() override { states.push_back(show.State()); }
    void StageLoaded() override { loaded(); }
    void ShowProgress(const std::string& caption) override {
        captions.push_back(caption);
        duringProgress();
    }
    void EndProgress() override { captions.emplace_back("as before"); }

    [[nodiscard]] bool Start(const std::string& definition) {
        files.Put(kTestStage, definition);
        return StartFile(kTestStage);
    }
    [[nodiscard]] bool StartFile(const std::string& path) {
        show.Which.shown = path;
        return show.Start("/mugen/");
    }
    [[nodiscard]] std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Message& message : messages.Recorded()) {
            texts.push_back(message.text);
        }
        return texts;
    }

    MemoryFiles files;
    HeadlessMessages messages;
    HeadlessWindow window;
    CountingKeyboard keyboard;
    HeadlessClock clock;
    HeadlessPointer pointer;
    SoftDirect3D direct3D{KeptTextureMemory()};
    std::vector<ShowState> states;
    std::vector<std::string> captions;
    std::function<void()> loaded = [] {};
    std::function<void()> duringProgress = [] {};
    StageShow show{{files, messages, window, keyboard, clock, pointer, direct3D}, {}, *this};
};

}  // namespace scenara::test
