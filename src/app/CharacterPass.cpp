// SPDX-License-Identifier: MIT
#include "app/CharacterPass.h"

#include "character/UpdateCharacter.h"

namespace scenara {
namespace {

CameraLead LeadOf(CameraFollow follow) {
    switch (follow) {
        case CameraFollow::Left: return CameraLead::Left;
        case CameraFollow::Right: return CameraLead::Right;
        case CameraFollow::Stand: break;
    }
    return CameraLead::Stand;
}

}  // namespace

Figure AdvanceCharacter(const CharacterPass& pass, const StageModel& model) {
    TestCharState& state = pass.state;
    pass.camera.lead = CameraLead::Keys;
    if (!pass.options.Additions || !state.UseChar || !state.CharLoaded) {
        return {};
    }
    // The elements stand where the last pass saw the camera.
    const DrawnCamera drawn{pass.camera.previousX, pass.camera.previousY};
    const CameraFollow follow = UpdateCharacter(state, model, pass.keyboard, drawn);
    pass.camera.lead = pass.flags.MouseScroll != 0 ? CameraLead::Stand : LeadOf(follow);

    const TestCharacter& character = state.Characters.front();
    pass.camera.leadStep = StepOf(state, character);
    if (character.DrawTexture < 0) {
        return {};
    }
    Figure figure;
    figure.texture = &character.Sprites.at(static_cast<std::size_t>(character.DrawTexture)).texture;
    figure.x = character.DrawX + drawn.x;
    figure.y = character.DrawY;
    figure.width = static_cast<Single>(character.DrawWidth) * state.CharZoom * character.XScale;
    figure.height = static_cast<Single>(character.DrawHeight) * state.CharZoom * character.YScale;
    figure.mirrored = character.DrawFacing < 0;
    return figure;
}

}  // namespace scenara
