// SPDX-License-Identifier: MIT
//
// CharacterConstants: the three numbers of a character's constants file (.cns) that a walking
// figure needs. From the line with "[size]" on:
//
//   xscale = .8      how large the pictures are drawn; 1 when not given
//   yscale = .8
//   walk.fwd = 2.4   pixels a frame; 1 when not given. The reading ends behind it.
//
// A number that its field cannot hold is reported and leaves the field as it was. A value that
// begins with no number is none: a scale of 0 would be a character that nobody sees.
#pragma once

#include "base/Integers.h"
#include "platform/Files.h"
#include "platform/Messages.h"

namespace scenara {

struct CharacterConstants {
    Single xScale = 1;
    Single yScale = 1;
    Single walkSpeed = 1;
};

[[nodiscard]] CharacterConstants ReadCharacterConstants(InputFile& file, Messages& messages);

}  // namespace scenara
