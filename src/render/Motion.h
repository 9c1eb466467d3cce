// SPDX-License-Identifier: MIT
//
// What moves an element: its drift, its swing, the camera, and the element it is linked to.
//
// An element's *motion* (plainly ctrlPos 0 and 1) is the sum of all displacement that is not the
// camera's: drift and the position controllers. An element that is linked to it follows motion and
// swing. Addition: of the camera, links and swings only where they stand counts, when the element
// is placed (ElementPlacement.h).
#pragma once

#include "stage/Camera.h"
#include "stage/StageModel.h"

namespace scenara {

// Notes, for every linked element, where the swing and the motion of its parent stand, so that both
// are drawn from the same values in all passes of a frame. Raises "Subscript out of range" for a
// parent outside of the table.
void NoteLinks(StageModel& model);

// One frame's drift, after the element's draw.
void Drift(BackgroundElement& element);
// Addition: the same for an element that is placed by its motion alone, once all of the frame is
// drawn.
void DriftOn(BackgroundElement& element);
[[nodiscard]] inline bool Drifts(const BackgroundElement& element) {
    return element.velocityX != 0 || element.velocityY != 0;
}

// Whether the element swings. (A swing that has ended stays where it stands.)
[[nodiscard]] inline bool Swings(const BackgroundElement& element) {
    return element.sinState[0] != 0 || element.sinYAmplitude != 0;
}

// Plainly the swings go on after the element's draw, and run when amplitude and period are not 0.
// Deliberate: one full swing takes twice the period (Swing.ReturnsToTheMiddleAfterTwiceThePeriod).
void SwingOn(BackgroundElement& element);

// Addition: where the swings stand in this frame: amplitude * sin(2 pi (tick / period + phase /
// 360)), a whole swing in a period. Ticks count the frames from 0. A period of 0 or less is no
// swing.
void SwingWhole(BackgroundElement& element);

// Whether the camera has moved since the last pass, which is when elements follow it.
[[nodiscard]] inline bool HasMoved(const StageModel& model, const Camera& camera) {
    return camera.previousX - model.CamX != 0 || camera.previousY - model.CamY != 0;
}

// Plainly elements follow the camera since the last pass. Deliberate: by the camera's step and not
// by the distance it moved (ParallaxStep.UsesTheStepAndNotTheDistance). x is stored negated and y
// is not, so the signs of the two are opposite.
void FollowCamera(const StageModel& model, const Camera& camera, BackgroundElement& element);

}  // namespace scenara
