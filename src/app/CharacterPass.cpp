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

bool IsShown(const CharacterPass& pass) {
    return pass.options.Additions && pass.state.UseChar && pass.state.CharLoaded;
}

// The camera that the elements stand by: where the last pass saw it.
DrawnCamera DrawnBy(const CharacterPass& pass) {
    return {pass.camera.previousX, pass.camera.previousY};
}

Figure FigureOf(const CharacterPass& pass) {
    const TestCharacter& character = pass.state.Characters.front();
    if (character.DrawTexture < 0) {
        return {};
    }
    Figure figure;
    figure.texture = &character.Sprites.at(static_cast<std::size_t>(character.DrawTexture)).texture;
    figure.x = character.DrawX + DrawnBy(pass).x;
    figure.y = character.DrawY;
    figure.width =
        static_cast<Single>(character.DrawWidth) * pass.state.CharZoom * character.XScale;
    figure.height =
        static_cast<Single>(character.DrawHeight) * pass.state.CharZoom * character.YScale;
    figure.mirrored = character.DrawFacing < 0;
    return figure;
}

}  // namespace

Figure AdvanceCharacter(const CharacterPass& pass, const StageModel& model) {
    pass.camera.lead = CameraLead::Keys;
    if (!IsShown(pass)) {
        return {};
    }
    const CameraFollow follow = UpdateCharacter(pass.state, model, pass.keyboard, DrawnBy(pass));
    pass.camera.lead = pass.flags.MouseScroll != 0 ? CameraLead::Stand : LeadOf(follow);
    pass.camera.leadStep = StepOf(pass.state, pass.state.Characters.front());
    return FigureOf(pass);
}

Figure SameCharacter(const CharacterPass& pass, const StageModel& model) {
    if (!IsShown(pass)) {
        return {};
    }
    PlaceAgain(pass.state, model, DrawnBy(pass));
    return FigureOf(pass);
}

}  // namespace scenara
