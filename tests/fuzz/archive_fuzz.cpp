// SPDX-License-Identifier: MIT
//
// Any bytes as a sprite archive, of either version.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/png/LibPngPictures.h"
#include "sprites/sff2.h"
#include "support/FuzzChecks.h"
#include "support/MemoryFiles.h"
#include "support/StageFixture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenara;
    test::MemoryFile file(std::as_bytes(std::span(data, size)));
    const std::string name = "fuzz.sff";
    HeadlessMessages messages;
    HeadlessWindow window;
    SoftDevice device(test::KeptTextureMemory());
    const LibPngPictures png;
    for (const bool additions : {false, true}) {
        StageModel model;
        const ViewOptions options{additions};
        LoadSprites(model, {file, name, device, messages, options, &png}, window);
        test::CheckModel(model);
    }
    return 0;
}
