// SPDX-License-Identifier: MIT
//
// LoadCharacter: from a character's definition (.def) to a figure in memory.
//
// Where to find things: which files it is made of, CharacterDefinition.h; scale and speed,
// CharacterConstants.h; animations, CharacterAnimation.h; pictures, CharacterSprites.h; their
// colours, CharacterColors.h.
//
// Every problem is said in a box with the title "Cohortia" and the exclamation sign. Without its
// definition, animations, archive or a single frame of walking there is no character; anything else
// that is missing or damaged leaves a default. Only the pictures of the kept animations are
// decoded, so the size of the archive hardly matters.
#pragma once

#include <string>

#include "character/CharacterSprites.h"
#include "character/TestCharacter.h"
#include "platform/Direct3D8.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "stage/ViewOptions.h"

namespace scenara {

class PngPictures;

// What a load works with; all of it outlives the call.
struct LoadCharacterContext {
    Files& files;
    Messages& messages;
    TextureMaker& device;
    const ViewOptions& options;
    CharacterProgress progress;
    const PngPictures* png = nullptr;  // none: the machine reads no PNG
};

// Fills `character` anew. False when it cannot be used, which has been said. When the program is
// ending (endRequested) the pictures not yet loaded are left out, which is no failure.
[[nodiscard]] bool LoadCharacter(const std::string& path, TestCharacter& character,
                                 const LoadCharacterContext& context);

}  // namespace scenara
