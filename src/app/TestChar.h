// SPDX-License-Identifier: MIT
//
// TestChar: the test character of the main window: chosen, switched on and off, loaded for the
// stage that is shown.
//
// While it is on, the camera's horizontal step is the character's walking step, and the user's own
// steps are kept in the save slots that mouse scrolling uses, too (CameraSteps.h). What A and Z
// make of the step meanwhile is for the keys: the camera that goes along makes the character's.
//
// What the main window calls, and when:
//
//   mnuChar_Click, mnuChange_Click   from the two menu items; the first also when the configuration
//                                    asks for the character
//   StartTestChar                    at the end of each stage start, behind the placed elements
//   CharacterFigures                 in each pass that draws (CharacterPass.h)
//   ReleaseTestChar                  with the textures of a stage, before its device goes
#pragma once

#include <functional>
#include <string>

#include "app/CameraSteps.h"
#include "app/LoopState.h"
#include "character/CharacterSprites.h"
#include "character/TestCharState.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Form.h"
#include "platform/Messages.h"
#include "render/Camera.h"
#include "render/Engine.h"
#include "render/ViewFlags.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

inline constexpr MessageKind kMessageNotACharacter = "Not a Character";

// What loading works with; all of it outlives the call.
struct TestCharContext {
    TestCharState& state;
    StageModel& model;
    Camera& camera;
    SavedSteps& savedSteps;
    LoopState& loop;
    Form& form;
    const ViewFlags& flags;
    Engine& engine;  // makes the textures; has a device while a stage runs
    Files& files;
    Messages& messages;
    const ViewOptions& options;
    CharacterProgress progress;
};

// What choosing one works with beside.
struct ChooseCharContext {
    Dialogs& dialogs;
    const std::string& mugeDir;                           // with a separator at its end
    std::function<bool(const std::string& path)> isChar;  // whether it is a character's definition
};

// Loads the character, unless it is, and places it on the stage. While it loads the Options and
// Stage menus are off and LoadingStage is 1, as with a stage, so that nobody takes the device away;
// the caption is put back. A failure, which has been said, leaves no character chosen and the
// character off. Raises what the engine raises without a device.
void LoadTestChar(const TestCharContext& context);

// The end of a stage start: loads the character, where it is on, and takes over the camera's step.
void StartTestChar(const TestCharContext& context);

// The menu items. Without a choice the character stays as it was: off, or the one before.
void mnuChange_Click(const TestCharContext& context, const ChooseCharContext& choose);
void mnuChar_Click(const TestCharContext& context, const ChooseCharContext& choose);

// The camera steps as the character walks, where it is on and loaded: for when something else has
// set the steps meanwhile.
void TakeCharacterSteps(const TestCharContext& context);

// Gives its pictures back. It stays on and chosen.
void ReleaseTestChar(TestCharState& state);

}  // namespace scenara
