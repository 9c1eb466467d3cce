// SPDX-License-Identifier: MIT
//
// Any bytes as a sprite archive.
#include <cstddef>
#include <cstdint>
#include <span>

#include "sprites/sff2.h"
#include "support/FuzzChecks.h"
#include "support/MemoryFiles.h"
#include "support/StageFixture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenara;
    test::MemoryFile file(std::as_bytes(std::span(data, size)));
    HeadlessMessages messages;
    HeadlessWindow window;
    SoftDevice device(test::KeptTextureMemory());
    for (const bool additions : {false, true}) {
        StageModel model;
        LoadSprites(model, file, "fuzz.sff", device, window, messages, ViewOptions{additions});
        test::CheckModel(model);
    }
    return 0;
}
