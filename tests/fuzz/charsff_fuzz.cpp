// SPDX-License-Identifier: MIT
//
// Any bytes as a character's sprite archive of either version, of which its animations show a few
// groups.
#include "character/CharacterMessages.h"
#include "fuzz/CharacterChecks.h"
#include "platform/png/LibPngPictures.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenara;
    test::MemoryFile file(std::as_bytes(std::span(data, size)));
    HeadlessMessages boxes;
    CharacterMessages messages(boxes);
    test::RecordingDevice device;
    const LibPngPictures png;
    const CharacterProgress progress;
    for (const bool additions : {true, false}) {
        const ViewOptions options{additions};
        TestCharacter character;
        for (std::size_t slot = 0; slot < character.Actions.size(); ++slot) {
            for (const Integer image : {Integer{0}, Integer{1}}) {
                CharFrame frame;
                frame.group = static_cast<Integer>(slot);
                frame.image = image;
                character.Actions.at(slot).frames.push_back(frame);
            }
        }
        try {
            LoadCharacterSprites(character, {file, "fuzz.sff", device, messages, options, &png},
                                 std::nullopt, progress);
        } catch (const RunTimeError&) {
            continue;
        }
        test::CheckCharacter(character);
    }
    return 0;
}
