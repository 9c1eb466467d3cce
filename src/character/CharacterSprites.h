// SPDX-License-Identifier: MIT
//
// CharacterSprites: the pictures of a character's kept frames out of its archive, and no others.
//
// The archive is walked once, headers only (sprites/SpriteArchive.h); then each picture that a kept
// frame shows is decoded, once, however many frames and linked sprites show it. Of several sprites
// of one group and image the first counts. In archives of version 1 a link index is a place in the
// chain, and names one before it.
//
// Colours, in archives of version 1: all pictures in those of the first subfile. Addition: in those
// of the .act file, where there is one; else each in the palette that is in force for it, its own
// or, for one that shares or has none that is whole, that of the one before it. In archives of
// version 2 each picture names its palette.
//
// A picture that is damaged is said and left out; frames without a picture show nothing.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "character/TestCharacter.h"
#include "sprites/SpriteArchive.h"

namespace scenara {

// What goes on between two pictures; by itself nothing.
struct CharacterProgress {
    std::function<void(const std::string& caption)> setCaption = [](const std::string&) {};
    std::function<void()> doEvents = [] {};
    std::function<bool()> endRequested = [] { return false; };  // then the rest is left out
};

// Fills Sprites, ColorKey and the textures of all frames. Raises RunTimeError for a file that ends
// in its header, and where the disk fails.
void LoadCharacterSprites(TestCharacter& character, const ArchiveSource& source,
                          const std::optional<PaletteBytes>& act,
                          const CharacterProgress& progress);

}  // namespace scenara
