// SPDX-License-Identifier: MIT
//
// StagePass: one pass of the loop that shows a stage, as far as drawing and counting go.
#pragma once

#include <string>

#include "app/CharacterPass.h"
#include "app/LoopState.h"
#include "platform/Clock.h"
#include "render/Engine.h"
#include "render/TileEngine.h"
#include "render/ViewFlags.h"
#include "stage/StageModel.h"

namespace scenara {

// What a pass works with; all of it outlives the call.
struct StagePass {
    Engine& engine;
    TileEngine& tiles;
    ViewFlags& flags;
    LoopState& loop;
    Clock& clock;
    const StageModel& model;
    bool info = false;      // the Info item is checked
    std::string& InfoText;  // the information line, empty when a loop begins
    const CharacterPass& character;
};

// Draws a frame and counts it; once a second InfoText is made anew, while it is wanted, and the
// answer is true. Raises what drawing raises, and "Overflow" when a counter runs over.
bool DrawAndCount(const StagePass& pass);

// Addition: draws the stage as it stands, for one that is edited while it is paused; nothing ticks,
// moves or counts. Raises what drawing raises.
void DrawAgain(const StagePass& pass);

// Shows the picture, with the information line over it while that is wanted.
void ShowPicture(const StagePass& pass);

}  // namespace scenara
