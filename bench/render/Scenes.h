// SPDX-License-Identifier: MIT
//
// The scenes that drawing is measured on. As in real stages, half of all pixels or more have index
// 0, and a line of a masked picture has two or three stretches of others within the view.
// PrintScenes tells what it came to.
//
// All are made at their first call and live as long as the program. They depend on nothing but the
// archives that ScenePictures finds: without real ones pictures are drawn in their place, so
// figures of two machines are of the same scenes only where both have the same.
#pragma once

#include "render/Scene.h"

namespace scenara::bench {

// A frame of a stage: backdrop, layers, a tiled wall and floor, things, fighters.
const Scene& SceneA();

// 20 masked layers that are wider than the view and about as high.
const Scene& SceneB();

// 100 masked layers, half as high, of 25 pictures.
const Scene& SceneC();

// A backdrop and 20 layers as those of B, of which 16 add to what lies behind them.
const Scene& SceneD();

// D with another blending in its place. No peer has it.
const Scene& SceneSub();
const Scene& SceneAdd1();
const Scene& SceneAddAlpha();

// A line for each of A to D: what there is to draw.
void PrintScenes();

}  // namespace scenara::bench
