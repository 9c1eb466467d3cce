// SPDX-License-Identifier: MIT
//
// Where the user puts the camera otherwise than by keys that are held.
#include <cmath>

#include "render/CameraControl.h"
#include "render/PrepareStage.h"
#include "show/StageShow.h"
#include "stage/StageSpace.h"

namespace scenara {

void StageShow::StepCamera(Long across, Long down) {
    if (!CanMoveCamera()) {
        return;
    }
    const CameraPlace from{model_.CamX, model_.CamY};
    scenara::StepCamera(model_, camera_, StepUnitsOf(model_, view_, options_.Additions), across,
                        down);
    PlaceCamera(model_, camera_, view_, {model_.CamX, model_.CamY});  // no step is left over
    CameraMoved(from);
}

// In stages for older versions of MUGEN it has whole units only.
void StageShow::PutCamera(const CameraPlace& place) {
    const bool whole = StepUnitsOf(model_, view_, options_.Additions).whole;
    PutCameraAt(whole ? CameraPlace{std::nearbyint(place.x), std::nearbyint(place.y)} : place);
}

void StageShow::CameraToStart() {
    PutCameraAt({-model_.CamStartX, static_cast<Single>(model_.CamStartY)});
}

void StageShow::PutCameraAt(const CameraPlace& place) {
    if (CanMoveCamera()) {
        const CameraPlace from{model_.CamX, model_.CamY};
        PlaceCamera(model_, camera_, view_, place);
        CameraMoved(from);
    }
}

double StageShow::CameraPerPixel() const {
    return 1 / (view_.detail * SpaceOf(model_).hires * model_.CamZoom);
}

void StageShow::CameraMoved(const CameraPlace& from) {
    if (model_.CamX == from.x && model_.CamY == from.y) {
        return;
    }
    NoteEdit();
    if (loop_.Paused != 0 && !infoText_.empty()) {
        TellInfo();  // no second will be over
    }
}

}  // namespace scenara
