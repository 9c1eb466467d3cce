// SPDX-License-Identifier: MIT
//
// DataCheck: the debug dump, a text file of the stage's actions and elements as they are now.
//
// First the actions that have frames:
//
//   (an empty line)
//   [Begin action 5]
//   group,image,x,y,time[,flip]      a line per frame
//
// then the elements in list order, each with an empty line behind it:
//
//   [BG name]
//   type = anim
//   actionno = 5                     the action's number, -1 where there is none
//   layerno = 0
//   spriteno = 0,0                   addition: of these two only what the element shows
//   start = -160,0
//   delta = .5,1                     the element's own, as read
//   mask = 1
//
// Lines end in CR LF; texts are bytes as the stage file had them. Numbers are in their shortest
// form, without the zero before a full stop. Behind a stage's own settings the text reads as part
// of a stage file again. It is for looking up what has been moved: what is not listed above (tiles,
// drift, blending, loop starts, controllers ...) is not in it.
#pragma once

#include <string>

#include "platform/Files.h"
#include "stage/StageModel.h"

namespace scenara {

// A number as the dump writes it: .5, -.5, 0, 12.
[[nodiscard]] std::string DumpNumber(Single value);

// Raises "Subscript out of range" when an element's action is not in its table.
[[nodiscard]] std::string DataCheckText(const StageModel& model, bool additions);

// Where the dump goes: the program's own folder, or the root of the first disk where there is one.
[[nodiscard]] std::string DataCheckPath(Files& files);

// Writes the dump anew, and answers its path. Raises what writing raises.
std::string DataCheck(const StageModel& model, bool additions, Files& files);

// The caption that says where it is.
[[nodiscard]] std::string DataCheckCaption(const std::string& path);

}  // namespace scenara
