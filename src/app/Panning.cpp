// SPDX-License-Identifier: MIT
#include "app/Panning.h"

namespace scenara {

void Panning::Begin(const PullPoint& at, bool fullScreen) {
    grip_.reset();
    if (show_.CanMoveCamera()) {
        grip_ = Grip{at, Place(), Place(), at, show_.Model().CamZoom, fullScreen};
    }
}

// The stored x of the camera is negated: it goes with the pointer, and its y against it.
void Panning::Move(const PullPoint& at, bool fullScreen) {
    if (!grip_) {
        return;
    }
    if (!show_.CanMoveCamera() || grip_->zoom != show_.Model().CamZoom ||
        grip_->fullScreen != fullScreen) {
        grip_.reset();
        return;
    }
    if (const CameraPlace now = Place(); now.x != grip_->left.x || now.y != grip_->left.y) {
        // Something else has moved it meanwhile.
        grip_->camera = now;
        grip_->at = grip_->last;
    }
    const double each = show_.CameraPerPixel();
    const auto moved = [each](Long by) { return static_cast<Single>(by * each); };
    show_.PutCamera(
        {grip_->camera.x + moved(at.x - grip_->at.x), grip_->camera.y - moved(at.y - grip_->at.y)});
    grip_->left = Place();
    grip_->last = at;
}

CameraPlace Panning::Place() const {
    return {show_.Model().CamX, show_.Model().CamY};
}

}  // namespace scenara
