// SPDX-License-Identifier: MIT
//
// The scenes of stages that are drawn on canvases of their own size: an opaque backdrop, and layers
// over it that are up to twice as wide as the canvas. All of them come from support/StageArt.h.
#pragma once

#include "render/Scene.h"

namespace scenara::bench {

// 640 x 480: 20 masked layers.
const Scene& SceneH();
// 1280 x 720: 20 masked layers.
const Scene& SceneW();
// W seen from further off: every layer at 0.8 of its size, by the nearest texel.
const Scene& SceneZ();
// Z by the mean of texels.
const Scene& SceneS();
// 1280 x 720: 30 layers, of which 24 have soft edges and lights of any alpha.
const Scene& SceneT();

}  // namespace scenara::bench
