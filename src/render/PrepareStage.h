// SPDX-License-Identifier: MIT
//
// What happens to a loaded stage before its first frame: the camera is placed, and every element
// gets its first position and runtime values. In this order, since positions contain the camera.
#pragma once

#include "platform/View.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

// The camera at the stage's start, raised to the left and upper bound first and then cut to the
// right and lower one; where the last pass saw it is the same, so no step follows. Addition: at the
// zoom that the stage starts with, and within the bounds that it has then.
void PlaceCamera(StageModel& model, Camera& camera, const View& view);

// The same for a camera that stood somewhere already, at the zoom that it has.
void PlaceCamera(StageModel& model, Camera& camera, const View& view, const CameraPlace& place);

// Elements: linked ones find the element they stand relative to, and take its deltas; each is
// placed by its start, its sprite's axis and the camera; counters, swings and flags are set back.
// An "anim" element shows the pictures of its action from the first frame on (spriteIndex -2).
// Then the ground line's element, the order of ids for controllers, the raised upper bound, and the
// textures that will be drawn with their transparent pixels left out.
//
// With additions dummies are enabled from the start, and the upper bound is not raised: it compares
// camera units with picture rows, and so cuts stages whose deltas are below 1.
//
// Raises "Subscript out of range" when an element's sprite or action is not in its table.
void PrepareElements(StageModel& model, const ViewOptions& options, const View& view);

// The single steps of PrepareElements that stand for themselves.

// ElementsById anew, and what controllers act on by it: for elements that were put into the list,
// or taken out, or moved in it.
void OrderElementsById(StageModel& model);

// ZOffsetLink becomes the index of the first element with that id, -1 when there is none.
void ResolveZOffsetLink(StageModel& model);

// Where the upper bound lies above the smallest upper edge t of the elements' first pictures (with
// the camera at (0, 0)) it becomes t + 1. An element that is tiled without end downwards has no
// upper edge: then nothing is raised. Expects links and frame indices to be set.
void RaiseUpperBound(StageModel& model);

}  // namespace scenara
