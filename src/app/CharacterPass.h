// SPDX-License-Identifier: MIT
//
// CharacterPass: the test character's part in one pass of the loop that shows a stage.
#pragma once

#include "character/TestCharState.h"
#include "platform/Keyboard.h"
#include "render/Camera.h"
#include "render/Figure.h"
#include "render/ViewFlags.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

// What it works with; all of it outlives the passes.
struct CharacterPass {
    TestCharState& state;
    Camera& camera;
    Keyboard& keyboard;
    const ViewFlags& flags;
    const ViewOptions& options;
};

// Addition: moves the character, lets it lead the camera, and gives its picture for the frame that
// is drawn next; none, and the camera back to the keys, while it is off or not loaded. Plain, a
// character is never seen. While the pointer moves the camera the character walks and does not lead
// it.
//
// The picture is valid until the next call. Allocates nothing.
[[nodiscard]] Figure AdvanceCharacter(const CharacterPass& pass, const StageModel& model);

// Its picture again, without a step of its own: where the camera and the ground stand now.
[[nodiscard]] Figure SameCharacter(const CharacterPass& pass, const StageModel& model);

// Both for DrawScene and DrawSceneAgain. What it is made of outlives it.
class CharacterFigures : public FigureSource {
public:
    CharacterFigures(const CharacterPass& pass, const StageModel& model)
        : pass_(pass), model_(model) {}

    [[nodiscard]] Figure Next() override { return AdvanceCharacter(pass_, model_); }
    [[nodiscard]] Figure Again() override { return SameCharacter(pass_, model_); }

private:
    const CharacterPass& pass_;
    const StageModel& model_;
};

}  // namespace scenara
