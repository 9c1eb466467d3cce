// SPDX-License-Identifier: MIT
//
// A whole machine for loading stages in tests: files in memory, recorded messages and captions, and
// the soft device.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/png/LibPngPictures.h"
#include "platform/soft/SoftDevice.h"
#include "stage/LoadStage.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"
#include "support/MemoryFiles.h"

namespace scenara::test {

// Texture memory that all machines of a test program share, as a program's stages do.
[[nodiscard]] std::shared_ptr<TextureMemory> KeptTextureMemory();

class StageMachine {
public:
    MemoryFiles files;
    HeadlessMessages messages;
    HeadlessWindow window;
    SoftDevice device{KeptTextureMemory()};
    LibPngPictures png;
    ViewOptions view;
    StageModel model;
    std::string music;  // what the load set the music player's file to

    // Loads `definition` as the file /mugen/stages/test.def of the MUGEN folder /mugen/.
    bool Load(std::string_view definition);
    // Loads a file that is there already.
    bool LoadFile(const std::string& path);

    [[nodiscard]] std::vector<std::string> MessageTexts() const;

    // Messages without the one that an archive is missing, which definitions without "spr" give.
    [[nodiscard]] std::vector<std::string> OtherMessageTexts() const;
};

inline constexpr const char* kTestStage = "/mugen/stages/test.def";

}  // namespace scenara::test
