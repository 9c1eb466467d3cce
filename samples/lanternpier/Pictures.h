// SPDX-License-Identifier: MIT
//
// The pictures of Lantern Pier, each group drawn by a file of its own.
//
// Index 0 is nothing in all of them but the opaque ones (sky, water, boards), which fill every
// pixel. A function that gives several pictures gives the moments of one animation, all with the
// same size and palette.
#pragma once

#include "ArchiveMaker.h"

namespace scenara::samples {

IndexedPicture DrawSky();
IndexedPicture DrawHighClouds();
IndexedPicture DrawLowClouds();
IndexedPicture DrawMountains();
IndexedPicture DrawPagoda();
IndexedPicture DrawHills();
IndexedPicture DrawWater();
Pictures DrawGlitter();
Pictures DrawBirds();
IndexedPicture DrawTorii();
Pictures DrawToriiMirror();  // with the palette of the gate
IndexedPicture DrawBoat();
Pictures DrawBoatLight();  // with the palette of the boat
IndexedPicture DrawBoards();
IndexedPicture DrawRailing();
IndexedPicture DrawLanternPost();
Pictures DrawLanternLight();  // with the palette of the post
IndexedPicture DrawMapleTree();
IndexedPicture DrawMapleBranch();  // with the palette of the tree, as the leaf
Pictures DrawFallingLeaf();

}  // namespace scenara::samples
