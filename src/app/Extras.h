// SPDX-License-Identifier: MIT
//
// Extras: settings that QX.CFG has no line for, in Scenara.ini beside it.
//
// One line each, by the names of Extras: "Additions = True" or "Additions = False", in any letter
// case; of several lines with one name the last counts. Whatever else is in the file stays as it
// is, byte by byte.
#pragma once

#include "platform/Files.h"

namespace scenara {

// Each as it is when the file or its line is missing, or says neither True nor False.
struct Extras {
    bool Additions = true;  // stages are shown with them
    // With additions:
    bool Smooth = false;              // what is made larger is mixed from neighbouring pixels
    bool WholeMultiplesOnly = false;  // of the canvas' pixels
    bool SwitchDisplayMode = false;   // the full screen is the smallest mode that holds the canvas
};

// Raises what reading raises.
[[nodiscard]] Extras LoadExtras(Files& files);

// Writes those that the file does not say already, in one step. Raises what reading and writing
// raise.
void SaveExtras(Files& files, const Extras& extras);

}  // namespace scenara
