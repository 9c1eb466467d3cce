// SPDX-License-Identifier: MIT
//
// A program's settings, and the machine around them.
#pragma once

#include <string>
#include <vector>

#include "app/Configuration.h"
#include "app/MenuTree.h"
#include "platform/headless/HeadlessDialogs.h"
#include "platform/headless/HeadlessMessages.h"
#include "support/MemoryFiles.h"

namespace scenara::test {

inline void SaveConfig(const Settings& settings, const std::string& version, Files& files) {
    std::string text;
    MakeConfigText(settings, version, text);
    WriteConfigText(files, text);
}

struct Configured {
    Configured() { DesignMenus(form); }

    bool Load() {
        return LoadConfig(settings, {files, messages, dialogs,
                                     [this] {
                                         charClicks.push_back(TestChar + "|" + CharName);
                                         form[Menu::mnuChar].checked = true;
                                     },
                                     [this] { return ended; }});
    }
    bool Load(const std::string& text) {
        files.Put("/program/QX.CFG", text);
        return Load();
    }
    std::string Save() {
        SaveConfig(settings, "1.0", files);
        return files.Get("/program/QX.CFG");
    }

    std::string MugeDir;
    Single HCamStep = 0;
    Single VCamStep = 0;
    std::string TestChar;
    std::string CharName;
    Byte ShowStageList = 0;
    Form form;
    Settings settings{MugeDir, HCamStep, VCamStep, TestChar, CharName, ShowStageList, form};

    MemoryFiles files;
    HeadlessMessages messages;
    HeadlessDialogs dialogs;
    bool ended = false;
    std::vector<std::string> charClicks;  // what was known at each
};

}  // namespace scenara::test
