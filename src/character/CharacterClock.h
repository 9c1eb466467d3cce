// SPDX-License-Identifier: MIT
//
// CharacterClock: which frame of its action a character shows, tick by tick.
#pragma once

#include "character/TestCharacter.h"

namespace scenara {

// Sets the clock to the action's first frame.
void StartAction(TestCharacter& character);

// One tick. The frame that is shown in it; none where the action has none. A turn that has played
// through clears `turning`; so does one that would hold a frame for ever.
//
// In the tick in which a turn ends its last frame stays, though the clock is at the first one
// again: the next tick goes on to another action, and the figure would look back for one frame.
const CharFrame* TickCharacter(TestCharacter& character, bool& turning);

}  // namespace scenara
