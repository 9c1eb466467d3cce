// SPDX-License-Identifier: MIT
//
// CharacterDefinition: the text file (.def) that says how a character is called and which files it
// is made of.
//
//   displayname = "Name"      anywhere; the last one counts
//   localcoord = 640,480      anywhere; how wide the view is in the character's own pixels
//   pal.defaults = 2,1        anywhere; the first number chooses the palette line below
//   [Files]
//   anim = name.air           base names, the extension left out; may hold folders
//   sprite = name.sff
//   cns = name.cns
//   pal2 = name.act           the first line with the chosen key counts; without pal.defaults none
//
// Names stay as they are written; they are relative to the definition's folder. A name without its
// extension is not found, and its line is skipped.
#pragma once

#include <string>
#include <string_view>

#include "base/Integers.h"
#include "platform/Files.h"

namespace scenara {

struct CharacterDefinition {
    std::string displayName;
    std::string anim;  // base names; empty: not named
    std::string sprite;
    std::string cns;
    std::string palette;
    Long localcoordWidth = 0;  // 0: not given
};

[[nodiscard]] CharacterDefinition ReadCharacterDefinition(InputFile& file);

// Whether a line (as it stands, blanks included) ends the [Files] section. Deliberate: the places
// of the first "[" and the first "]", counted from 1, are combined bit by bit, so that a header of
// six letters from column 1 on, "[Arcade]", does not end it: 1 and 8 have no bit in common
// (CharacterDefinition.AHeaderOfSixLettersDoesNotEndTheFiles).
[[nodiscard]] bool EndsFilesSection(std::string_view untrimmed);

}  // namespace scenara
