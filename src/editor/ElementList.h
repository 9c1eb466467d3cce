// SPDX-License-Identifier: MIT
//
// ElementList: the moves that the editor makes in a running stage's list of elements.
//
// Records are moved whole, and whatever points at one by its index goes on pointing at the same
// one: position links, the element of the ground line, the order by id that controllers look
// targets up in. What pointed at an element that is taken out points at none (-1): one that was
// linked to it stays where it stands, and from then on is nobody's follower; a swing of its own,
// which was not seen as long as it was one, goes on from there.
//
// Raise "Subscript out of range" for an index outside of the list; then nothing has changed.
#pragma once

#include "base/Integers.h"
#include "stage/StageModel.h"

namespace scenara {

void SwapElements(StageModel& model, Integer a, Integer b);

void DeleteElement(StageModel& model, Integer index);

// Puts a copy of the element right behind it. Raises "Overflow" when the list is full.
void CloneElement(StageModel& model, Integer index);

}  // namespace scenara
