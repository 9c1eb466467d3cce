// SPDX-License-Identifier: MIT
//
// CharacterAnimation: the animations of a character (.air), as far as they are kept: standing,
// turning, walking forward.
//
//   [Begin Action 020]         020 and 20 are the same number
//   Loopstart                  the next frame is the one to return to
//   20,3, 0,-1, 5, H           group, image, x, y, time, mirrored; a missing number is 0
//
// A frame line begins with a digit. All other lines, and the frames of all other actions, are
// passed over. A number that its field cannot hold is reported and stays 0.
//
// A line that begins with "-" and a digit, a frame of no group, makes the whole file unusable.
// Addition: it is a frame that shows nothing for its time.
//
// The blocks of one number follow upon another, as if they were one. Addition: only the first
// counts, and "[Begin Action x]", which has no number and reads as 0, is none of them.
#pragma once

#include <array>
#include <cstdint>

#include "character/TestCharacter.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "stage/ViewOptions.h"

namespace scenara {

// 0, or the line, from 1, with the negative group; then `actions` is as it was.
[[nodiscard]] std::int64_t ReadCharacterAnimation(
    InputFile& file, std::array<CharAction, kKeptActions.size()>& actions, Messages& messages,
    const ViewOptions& options);

}  // namespace scenara
