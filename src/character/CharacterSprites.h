// SPDX-License-Identifier: MIT
//
// CharacterSprites: the pictures of a character's kept frames out of its archive, and no others.
//
// The chain of subfiles is walked once, headers only (sprites/SffArchive.h); then each picture that
// a kept frame shows is decoded, once, however many frames and linked subfiles show it. Of several
// subfiles of one group and image the first counts. A link index is a subfile's place in the chain,
// and names one before it.
//
// Colours: all pictures in those of the archive's first subfile. Addition: in those of the .act
// file, where there is one; else each in the palette that is in force for it, its own or, for one
// that shares or has none that is whole, that of the one before it.
//
// A picture that is damaged is said and left out; frames without a picture show nothing.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "character/CharacterMessages.h"
#include "character/TestCharacter.h"
#include "platform/Direct3D8.h"
#include "platform/Files.h"
#include "sprites/SffArchive.h"
#include "sprites/SubfilePalette.h"
#include "stage/ViewOptions.h"

namespace scenara {

// What goes on between two pictures. Each may be empty.
struct CharacterProgress {
    std::function<void(const std::string& caption)> setCaption;
    std::function<void()> doEvents;
    std::function<bool()> endRequested;  // then the rest is left out
};

struct CharacterSpritesContext {
    TextureMaker& device;
    CharacterMessages& messages;
    const ViewOptions& options;
    const CharacterProgress& progress;
};

// Fills Sprites, ColorKey and the textures of all frames from an archive of version 1 with this
// header. `name` is the archive's name for messages.
void LoadCharacterSprites(TestCharacter& character, InputFile& archive, const SffHeader& header,
                          const std::string& name, const std::optional<PaletteBytes>& act,
                          const CharacterSpritesContext& context);

}  // namespace scenara
