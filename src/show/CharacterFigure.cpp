// SPDX-License-Identifier: MIT
//
// Addition: the test character in the picture. Plain, a character is never seen.
#include <cmath>

#include "character/UpdateCharacter.h"
#include "render/DrawOptions.h"
#include "show/StageShow.h"

namespace scenara {
// Moves the character and lets it lead the camera, which is the keys' again while it is off. While
// the pointer moves the camera the character walks and does not lead it. Allocates nothing.
Figure StageShow::Next() {
    camera_.lead = CameraLead::Keys;
    if (!ShowsCharacter()) {
        return {};
    }
    const Single along =
        UpdateCharacter(testChar_, model_, machine_.keyboard, DrawnCamera(), view_);
    // In the debug editor its own scroll bar moves the camera as long as the character stands.
    const bool leads = flags_.DebugBG == 0 || testChar_.Characters.front().Walking;
    const bool stands = along == 0 || flags_.MouseScroll != 0 || !leads;
    const CameraLead side = along > 0 ? CameraLead::Right : CameraLead::Left;
    camera_.lead = stands ? CameraLead::Stand : side;
    camera_.leadStep = std::fabs(along);
    return CharacterFigure();
}

Figure StageShow::Again() {
    if (!ShowsCharacter()) {
        return {};
    }
    PlaceAgain(testChar_, model_, DrawnCamera());
    return CharacterFigure();
}

// That the elements of the frame are drawn with.
CameraPlace StageShow::DrawnCamera() const {
    return DrawOptionsOf(model_, camera_, view_, options_).camera;
}

Figure StageShow::CharacterFigure() const {
    const TestCharacter& character = testChar_.Characters.front();
    if (character.DrawTexture < 0) {
        return {};
    }
    Figure figure;
    figure.texture = &character.Sprites.at(static_cast<std::size_t>(character.DrawTexture)).texture;
    const DrawOptions drawn = DrawOptionsOf(model_, camera_, view_, options_);
    const Zoomed across = drawn.Across(drawn.zoom);
    const Zoomed down = drawn.Down(drawn.zoom);
    const auto detail = static_cast<Single>(view_.detail);
    const Single pixels = detail * static_cast<Single>(drawn.zoom) * testChar_.CharZoom;
    figure.x = static_cast<Single>(
        across.Place(static_cast<double>(detail * (character.DrawX + drawn.camera.x))));
    figure.y = static_cast<Single>(down.Place(static_cast<double>(detail * character.DrawY)));
    figure.width = static_cast<Single>(character.DrawWidth) * pixels * character.XScale;
    figure.height = static_cast<Single>(character.DrawHeight) * pixels * character.YScale;
    figure.mirrored = character.DrawFacing < 0;
    return figure;
}

}  // namespace scenara
